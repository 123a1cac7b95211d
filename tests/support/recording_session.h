// A session for tests: a program folder of its own, a store, a recording host, and a listener that
// keeps the names of what it was told, oldest first.
// Owns: RecordingListener, TestSession.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/session.h"
#include "tests/support/recording_host.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

class RecordingListener : public SessionListener {
 public:
  ~RecordingListener() override;
  void clearUndoMenu() override { note("clearUndoMenu"); }
  void resetUndoState() override { note("resetUndoState"); }
  void UnselectAll() override { note("UnselectAll"); }
  void Clear_Paste() override { note("Clear_Paste"); }
  void Update_menu_checks() override { note("Update_menu_checks"); }
  void UpdateGridButtons() override { note("UpdateGridButtons"); }
  void SetUpdatePropertyFlag(bool update) override {
    note(update ? "SetUpdatePropertyFlag(true)" : "SetUpdatePropertyFlag(false)");
  }
  void UpdatePropertyWindow() override { note("UpdatePropertyWindow"); }
  void resetObjectSnap() override { note("resetObjectSnap"); }
  void moveMarker(float x, float y) override {
    note("moveMarker(" + plainText(x) + "," + plainText(y) + ")");
  }
  void recover() override { note("recover"); }
  void resetPendingAction() override { note("resetPendingAction"); }
  void DisplayedFilename(const std::string& text) override { displayed.push_back(text); }
  void updateStatusDisplay() override { note("updateStatusDisplay"); }
  void rowsRewritten() override { ++rewritings; }
  void drawingReplaced() override {}  // follows from a load or a new drawing
  void recentFilesChanged() override { note("recentFilesChanged"); }
  void brandingRead() override { note("brandingRead"); }
  void load_xsetup() override { note("load_xsetup"); }
  void setupChosen() override { note("setupChosen"); }
  void scaleDrawing(float factor) override { note("scaleDrawing(" + plainText(factor) + ")"); }
  void closeMainWindow() override { note("closeMainWindow"); }
  void importDxf(const std::string& path) override { imported.push_back(path); }
  void loadLayout() override { note("loadLayout"); }
  void saveLayout() override {
    note("saveLayout");
    if (onSaveLayout) onSaveLayout();
  }
  void readPressedTools() override { note("readPressedTools"); }
  void unloadOtherWindows() override { note("unloadOtherWindows"); }

  std::function<void()> onSaveLayout;

  // Takes what was noted so far.
  std::vector<std::string> take() { return std::exchange(noted, {}); }

  std::vector<std::string> noted;
  std::vector<std::string> displayed;  // texts of the first status panel
  std::vector<std::string> imported;
  int rewritings = 0;

 private:
  void note(std::string what) { noted.push_back(std::move(what)); }
};

struct TestSession {
  TestSession();
  ~TestSession();

  // A drawing file of that name in the CNC folder to save to and to load from.
  void name(const std::string& drawing) {
    store.drawingname = session.selectedname = drawing;
    session.selectedfolder = store.drawingpath;
  }

  std::vector<Message>& messages() { return recording.prompts.messages; }

  TempFolder home;
  DrawingStore store;
  RecordingHost recording;
  RecordingListener listener;
  Session session{store, recording.host, listener};
};

}  // namespace tess::testing
