// From the start to the end of the program: what runs once at the start, new drawings, questions
// about unsaved work, opening and dropping files, and shutting down.
// Owns: Main, loadMainWindow, new_drawing, applydefaults, isUnsaved, countAsSaved, smart_New,
//       safe_EXIT, file_EXIT, App_EXIT, showDrawingName, updateStatusDisplay, kAskOk, kAskOkCancel,
//       kAskYesNoCancel, kAnswerOk, kAnswerNotOk, kAnswerYes, kAnswerNo, kAnswerCancel, askUser,
//       mnuFileOpen_Click, openRecentFile, droppedFile, dropFiles, mnuFileDelete_Click,
//       Form_Unload.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/session.h"

namespace tess {

// The one-time initialisation: tables, setup, defaults, an empty drawing, and the drawing that the
// command line names. Raises the file failures of the setup; throws EndProgram without a setup.
void Main(Session& session, std::string_view commandLine, std::string_view programFolder);

// The main window's load as far as no window is needed: Main, the docking layout, the pressed grid
// and snap buttons, the recent files and the status display.
void loadMainWindow(Session& session, std::string_view commandLine, std::string_view programFolder);

void new_drawing(Session& session);

// The defaults that the setup left become the live settings.
void applydefaults(Session& session);

// True when work would be lost: a change since the last save, or rows of another number.
bool isUnsaved(const Session& session);
// The operator has let the work go: until the next change nothing counts as unsaved.
void countAsSaved(Session& session);

// A new drawing, after a question about unsaved work.
void smart_New(Session& session);

// Asks about unsaved work; true when the caller may go on. With `frmunloading` a saved drawing ends
// the program. A Yes on the way to something else than closing saves and then says no, so that the
// operator chooses it again.
bool safe_EXIT(Session& session, bool frmunloading);

// Closes the main window.
void file_EXIT(Session& session);

// Hands the drawing over to a sibling program in the program's folder and ends this one.
void App_EXIT(Session& session, std::string_view siblingName);

// "Drawing:" and the name in upper case, or <Untitled>, in the first panel of the status bar.
void showDrawingName(Session& session);

// The name and whatever else the status display shows.
void updateStatusDisplay(Session& session);

// Kinds of askUser with the answers that they give.
inline constexpr int kAskOk = 1;           // kAnswerOk
inline constexpr int kAskOkCancel = 2;     // kAnswerOk or kAnswerNotOk
inline constexpr int kAskYesNoCancel = 3;  // kAnswerYes, kAnswerNo or kAnswerCancel
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerNotOk = 2;
inline constexpr int kAnswerYes = 1;
inline constexpr int kAnswerNo = 2;
inline constexpr int kAnswerCancel = 3;

// The one prompt routine. Raises Invalid procedure call for another kind.
void askUser(Session& session, const std::string& text, int kind, int& answer);

void mnuFileOpen_Click(Session& session);

// A click on miRecentFile1 to miRecentFile9: loads that file straight away, without a question.
void openRecentFile(Session& session, std::string_view toolName);

// The file that dropFiles would take; nothing when none of the names is one.
std::optional<std::string> droppedFile(std::span<const std::string> names);

// Files dropped on the drawing: the first that exists is loaded, or imported when it is a DXF file.
void dropFiles(Session& session, std::span<const std::string> names);

// Deletes a drawing file that the operator chooses, never its path file.
void mnuFileDelete_Click(Session& session);

// The main window goes: layout, changed setup, other windows, recent files.
void Form_Unload(Session& session);

}  // namespace tess
