// What the process keeps beside the drawing: paths, names, number formats, recent files, and the
// interface by which the core tells the rooms above it what happened.
// Owns: NumberFormats, RecentFiles, SessionListener, Session, EndProgram.
#pragma once

#include <array>
#include <stdexcept>
#include <string>

#include "core/drawing_store.h"
#include "core/host.h"

namespace tess {

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

// Effects that the core announces without knowing who carries them out. Each does nothing unless a
// room above overrides it; an Application passes them on to views, tools and logs.
class SessionListener {
 public:
  virtual ~SessionListener() = default;
  virtual void clearUndoMenu() {}
  virtual void resetUndoState() {}
  virtual void UnselectAll() {}
  virtual void Clear_Paste() {}
  virtual void Update_menu_checks() {}
  virtual void UpdateGridButtons() {}
  virtual void SetUpdatePropertyFlag(bool /*update*/) {}
  virtual void UpdatePropertyWindow() {}
  virtual void resetObjectSnap() {}                     // snap off, radius 0.1, kinds 1 to 5
  virtual void moveMarker(float /*x*/, float /*y*/) {}  // erase at the old place, draw at x, y
  virtual void recover() {}                             // surface size anew, view scale 1
  virtual void resetPendingAction() {}                  // pendingaction, DrawMode 0, arrow
  virtual void DisplayedFilename(const std::string& /*text*/) {}  // first panel of the status bar
  virtual void updateStatusDisplay() {}
  virtual void rowsRewritten() {}    // by other ways than a command: a save has rounded them
  virtual void drawingReplaced() {}  // another drawing or none: its view starts anew
  virtual void recentFilesChanged() {}
  virtual void brandingRead() {}                  // productname may have changed
  virtual void load_xsetup() {}                   // the post definition of the setup
  virtual void scaleDrawing(float /*factor*/) {}  // after a change of units
  virtual void closeMainWindow() {}
  virtual void importDxf(const std::string& /*path*/) {}
  virtual void loadLayout() {}          // Layout.tb3 of the program's folder
  virtual void saveLayout() {}          // to the same file
  virtual void readPressedTools() {}    // OSnap, VGrid, CGrid, miEditSegsOrPaths into their flags
  virtual void unloadOtherWindows() {}  // all but the main one
};

// Thrown to end the program in order when it cannot go on; what() is a line for the operator.
class EndProgram : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Session {
  Session(DrawingStore& drawing, Host& platform, SessionListener& above)
      : store(drawing), host(platform), listener(above) {}

  DrawingStore& store;
  Host& host;
  SessionListener& listener;

  NumberFormats formats;
  std::string appfolder;                     // the program's folder with its last separator
  std::string cmdline;                       // the drawing named at the start, as it was typed
  std::string selectedfolder, selectedname;  // what the next load will use
  std::string lastfilename;                  // full path of the drawing chosen last, for a revert
  std::string setuppath, setupname;          // the setup in force: as named, and its file name
  std::string productname = "Tessimo Mill";
  std::string companyname;
  RecentFiles recentfiles;
  double starttime = 0;  // of the clock, when Main began
  bool startupdone = false;
};

}  // namespace tess
