// What the process keeps beside the drawing: paths, names, number formats, recent files, and the
// interface by which the core tells the rooms above it what happened.
// Owns: NumberFormats, kRecentFiles, RecentFiles, SessionListener, EndProgram, Session.
#pragma once

#include <array>
#include <stdexcept>
#include <string>

#include "core/host.h"
#include "core/open_drawing.h"
#include "core/path_jobs.h"
#include "core/results.h"

namespace tess {

struct DrawingStore;

// Patterns for numbers. The two cncfmt ones may be replaced by the post definition; the last three
// are those in use and follow the units of the drawing.
struct NumberFormats {
  std::string numfmtinch = "##0.0000";
  std::string numfmtmm = "####0.0000";
  std::string cncfmtinch = "##0.0####";
  std::string cncfmtmm = "####0.0###";
  std::string coordfmt, dimfmt, cncfmt;
};

inline constexpr int kRecentFiles = 9;
using RecentFiles = std::array<std::string, kRecentFiles>;  // full paths, the newest first

// Effects that the core announces without knowing who carries them out. None of them has a default:
// whoever listens says what comes of each, so that none is lost unseen. An Application passes them
// on to views, tools and logs.
class SessionListener {
 public:
  virtual ~SessionListener() = default;
  virtual void clearUndoMenu() = 0;
  virtual void resetUndoState() = 0;
  virtual void UnselectAll() = 0;
  virtual void Clear_Paste() = 0;
  virtual void Update_menu_checks() = 0;
  virtual void UpdateGridButtons() = 0;
  virtual void SetUpdatePropertyFlag(bool update) = 0;
  virtual void UpdatePropertyWindow() = 0;
  virtual void resetObjectSnap() = 0;             // snap off, radius 0.1, kinds 1 to 5
  virtual void moveMarker(float x, float y) = 0;  // erase at the old place, draw at x, y
  virtual void recover() = 0;                     // surface size anew, view scale 1
  virtual void resetPendingAction() = 0;          // pendingaction, DrawMode 0, arrow
  virtual void DisplayedFilename(const std::string& text) = 0;  // first panel of the status bar
  virtual void updateStatusDisplay() = 0;
  virtual void rowsRewritten() = 0;    // by other ways than a command: a save has rounded them
  virtual void drawingReplaced() = 0;  // another drawing or none: its view starts anew
  virtual void recentFilesChanged() = 0;
  virtual void brandingRead() = 0;              // productname may have changed
  virtual void load_xsetup() = 0;               // the post definition of the setup
  virtual void setupChosen() = 0;               // another one by hand: stock and grids are its own
  virtual void scaleDrawing(float factor) = 0;  // after a change of units
  virtual void closeMainWindow() = 0;
  virtual void importDxf(const std::string& path) = 0;
  virtual void loadLayout() = 0;          // Layout.tb3 of the program's folder
  virtual void saveLayout() = 0;          // to the same file
  virtual void readPressedTools() = 0;    // OSnap, VGrid, CGrid, miEditSegsOrPaths into their flags
  virtual void unloadOtherWindows() = 0;  // all but the main one
};

// Thrown to end the program in order when it cannot go on; what() is a line for the operator.
class EndProgram : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Session {
  Session(DrawingStore& drawing, Host& platform, SessionListener& above);
  ~Session();

  DrawingStore& store;
  Host& host;
  SessionListener& listener;

  NumberFormats formats;
  std::string appfolder;                     // the program's folder with its last separator
  std::string cmdline;                       // the drawing named at the start, as it was typed
  std::string selectedfolder, selectedname;  // what the next load will use
  std::string lastfilename;                  // full path of the drawing chosen last, for a revert
  OpenDrawing opened;                        // what the drawing was on the disk
  PathJobs pathJobs;                         // of the drawing's path rows, until there is another
  bool opensToRead = false;                  // for a job that leaves drawings as they are
  std::string setuppath, setupname;          // the setup in force: as named, and its file name
  std::string setupplace;                    // file and line that name it; empty: chosen by hand
  std::string productname = "Tessimo Mill";
  std::string companyname;
  RecentFiles recentfiles;
  Results results{host.clock};
  double starttime = 0;  // of the clock, when Main began
  bool startupdone = false;
};

}  // namespace tess
