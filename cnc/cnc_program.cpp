// CNC programs: the commands, the question about unsaved work and the file.
#include "cnc/cnc_program.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cnc/machine_kind.h"
#include "cnc/program_target.h"
#include "cnc/program_writer.h"
#include "core/count_text.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/lifecycle.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kExtensionLength = 4;  // ".CDM"
constexpr std::size_t kBytesPerRow = 48;     // a generous guess: the text grows without moving

std::string programName(std::string_view drawingname) {
  return std::string(drawingname.substr(0, drawingname.rfind('.'))).append(".CNC");
}

bool isBlank(std::string_view text) {
  return trimmed(text).empty();
}

std::string outputFolder(const DrawingStore& store) {
  const std::string& wanted = store.cncoutputpath;
  const bool usable = !isBlank(wanted) && folderExists(wanted);
  return usable ? withSeparator(wanted) : store.drawingpath;
}

// The name under which the program is shown, where its folder is the one that the setting names.
std::string shownName(const DrawingStore& store) {
  const std::string_view name = store.drawingname;
  const std::size_t stem = name.size() - std::min(name.size(), kExtensionLength);
  const std::string folder =
      isBlank(store.cncoutputpath) ? store.drawingpath : withSeparator(store.cncoutputpath);
  return folder + std::string(name.substr(0, stem)) + ".cnc";
}

// What is shown is the file that was written, also where the setting leads elsewhere by now, or
// another file has the same name in other letters.
std::string shownFile(const DrawingStore& store) {
  const std::string written = programFile(store);
  const std::string shown = shownName(store);
  return isSameFile(shown, written) ? shown : written;
}

std::string folderNotice(const DrawingStore& store) {
  const std::string& wanted = store.cncoutputpath;
  if (isBlank(wanted) || folderExists(wanted)) return {};
  return "The folder for CNC files is missing: " + wanted +
         ". The file is in the drawing's folder.";
}

// False when the operator cancels.
// Fixed: a No counts as saved; the question does not come back, not even when the program ends.
bool settleUnsavedWork(Session& session) {
  if (!isUnsaved(session)) return true;
  int answer = 0;
  askUser(session, "Drawing not saved! Save now?", kAskYesNoCancel, answer);
  if (answer == kAnswerYes) smart_save(session);
  if (answer == kAnswerNo) countAsSaved(session);
  return answer != kAnswerCancel;
}

// The tools of the path that have no speed, in the order of their first rows.
std::vector<int> toolsWithoutSpeed(const DrawingStore& store) {
  std::vector<int> tools;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const int index = toolIndex(store.pscode[ps]);
    const bool listed = std::ranges::find(tools, index + 1) != tools.end();
    if (!listed && !(store.toolspindlespeed[index] > 0)) tools.push_back(index + 1);
  }
  return tools;
}

void warnOfStandingSpindle(Session& session) {
  std::string tools;
  for (const int tool : toolsWithoutSpeed(session.store)) {
    tools += (tools.empty() ? "" : ", ") + std::to_string(tool);
  }
  if (tools.empty()) return;
  int answer = 0;
  askUser(session,
          "No spindle speed! The program does not start the spindle for tool " + tools + ".",
          kAskOk, answer);
}

std::string targetOf(const DrawingStore& store, const CncState& state, const ProgramFile& file) {
  return file.path.empty() ? outputFolder(store) + state.cncfilename : file.path;
}

// False when the operator would rather not. Asked with the consent of the setup, as about the
// paths.
bool settleOtherMachine(const Session& session, CncMode mode) {
  if (!session.store.cfg_true_paths) return true;
  const std::string reason = otherMachine(session.store, mode);
  return reason.empty() || session.host.prompts.showMessage(
                               {.text = reason + "\nDo you want to write the program anyway ?",
                                .title = "CNC Program",
                                .icon = MessageIcon::Warning,
                                .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

// False when the operator would rather not.
bool settleObjections(const Session& session, const CncState& state) {
  const std::string objections = state.objections ? state.objections() : std::string();
  if (objections.empty()) return true;
  return session.host.prompts.showMessage(
             {.text = objections + "\nDo you want to write the program anyway ?",
              .title = "Path Proof",
              .icon = MessageIcon::Warning,
              .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

// A file that holds a program of the other kind; nothing for any other.
struct OtherKind {
  std::string file;  // its name
  std::string kind;  // "mill" or "lathe"
};

std::string kindWord(CncMode mode) {
  return mode == CncMode::Mill ? "mill" : "lathe";
}

std::optional<OtherKind> otherKindAt(const std::string& path, CncMode mode) {
  const auto there = kindOfProgramAt(path);
  if (!there || *there == mode) return std::nullopt;
  return OtherKind{std::string(fileNameOf(path)), kindWord(*there)};
}

// False when the operator would rather keep what is there. Asked with the same consent of the setup
// as about the paths: other setups replace programs as ever.
bool settleOtherKind(const Session& session, const std::optional<OtherKind>& there, CncMode mode) {
  if (!there || !session.store.cfg_true_paths) return true;
  return session.host.prompts.showMessage(
             {.text = there->file + " holds a " + there->kind + " program, and this one is for a " +
                      kindWord(mode) + ".\nDo you want to write the program anyway ?",
              .title = "CNC Program",
              .icon = MessageIcon::Warning,
              .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

void tellWritten(Session& session, const std::string& path, int lines,
                 const std::optional<OtherKind>& replaced) {
  std::string text = "Written: " + std::string(fileNameOf(path)) + ", " + countText(lines, "line");
  if (replaced) text += ", in place of a " + replaced->kind + " program";
  session.results.tell(text);
}

void makeAndShow(Session& session, const PostDefinition& definition, CncState& state,
                 ProgramViewer& viewer, CncMode mode) {
  if (session.store.NumPathSegments == 0) {
    int answer = 0;
    askUser(session, "No Path Segments Placed!", kAskOk, answer);
    return;
  }
  session.listener.clearUndoMenu();
  if (!make_cnc(session, definition, state, mode)) return;
  if (!session.store.drawingname.empty()) {
    viewer.showFile(shownFile(session.store), folderNotice(session.store));
  }
}

}  // namespace

std::string programText(const Session& session, const PostDefinition& definition, CncState& state,
                        CncMode mode) {
  std::string out;
  out.reserve(kBytesPerRow * static_cast<std::size_t>(session.store.NumPathSegments));
  ProgramWriter writer(session, definition, mode, state.cncfilename, state.lastmove, out);
  state.made = {};
  if (state.keepsMade) writer.recordRows(state.made.rows);
  tellMotions(session.store, mode, writer, motionRules(definition.dialect));
  if (state.keepsMade) state.made.text = checksumOf(out);
  return out;
}

std::string programFile(const DrawingStore& store) {
  return outputFolder(store) + programName(store.drawingname);
}

void WriteCncFinish(const Session& session, const PostDefinition& definition, CncState& state,
                    CncMode mode, const ProgramFile& file) {
  const Procedure here("WriteCncFinish(mode$)");
  const std::string path = targetOf(session.store, state, file);
  if (!file.overDrawing && isOfDrawing(session.store, path)) {
    throw RuntimeFailure(FailureNumber::FileExists, path,
                         "The program would take the place of the drawing");
  }
  const std::string text = programText(session, definition, state, mode);
  writeFile(session.host.guard, path, FileKind::Program, text);
  state.lines = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

bool make_cnc(Session& session, const PostDefinition& definition, CncState& state, CncMode mode,
              const ProgramFile& file) {
  const Procedure here("make_cnc(mode$)");
  if (!settleUnsavedWork(session) || !settleOtherMachine(session, mode)) return false;
  if (!settleObjections(session, state)) return false;
  state.cncfilename = programName(session.store.drawingname);
  const std::string path = targetOf(session.store, state, file);
  const std::optional<OtherKind> replaced = otherKindAt(path, mode);
  if (!settleOtherKind(session, replaced, mode)) return false;
  WriteCncFinish(session, definition, state, mode, file);
  tellWritten(session, path, state.lines, replaced);
  if (definition.dialect.spindleDue) warnOfStandingSpindle(session);
  return true;
}

void mnuCAMMakeCNCFile_Click(Session& session, const PostDefinition& definition, CncState& state,
                             ProgramViewer& viewer) {
  const Procedure here("mnuCAMMakeCNCFile_Click()");
  makeAndShow(session, definition, state, viewer, CncMode::Mill);
}

void mnuCAMMakeCNCLatheFile_Click(Session& session, const PostDefinition& definition,
                                  CncState& state, ProgramViewer& viewer) {
  const Procedure here("mnuCAMMakeCNCLatheFile_Click()");
  makeAndShow(session, definition, state, viewer, CncMode::Lathe);
}

}  // namespace tess
