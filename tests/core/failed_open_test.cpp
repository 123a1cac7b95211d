// Drawings that fail to open half-way: what stands in the window then is nobody's file, and the
// drawing that was open before keeps its own.
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::DrawingFolder;
using ::testing::ElementsAre;
using testing::failureOf;
using testing::numberOfFailure;

const char kGarbage[] = "this is no drawing\r\n";

class FailedOpen : public ::testing::Test, protected DrawingFolder {
 protected:
  FailedOpen() {
    addLine(1);
    addPath();
    saveAs("GOOD.CDM");
    addLine(2);
    addPath();
    saveAs("GOOD.CDM");
    drawing_ = read("GOOD.CDM");
    paths_ = read("GOOD.TPM");
    backup_ = read("GOOD.CDM~");
    backupPaths_ = read("GOOD.TPM~");
    write("GARBAGE.CDM", kGarbage);
    test.listener.displayed.clear();
  }

  // The pair and its backup are those of the beginning.
  void expectUntouched() {
    EXPECT_EQ(read("GOOD.CDM"), drawing_);
    EXPECT_EQ(read("GOOD.TPM"), paths_);
    EXPECT_EQ(read("GOOD.CDM~"), backup_);
    EXPECT_EQ(read("GOOD.TPM~"), backupPaths_);
    EXPECT_EQ(read("GARBAGE.CDM"), kGarbage);
  }
  // Save asks for a name, and without one saves nothing.
  void expectSaveAsks() {
    const std::size_t before = test.recording.prompts.fileRequests.size();
    smart_save(session);
    smart_save(session);
    ASSERT_EQ(test.recording.prompts.fileRequests.size(), before + 2);
    EXPECT_EQ(test.recording.prompts.fileRequests.back().title, "Save As");
    expectUntouched();
  }
  void expectUntitled() {
    EXPECT_EQ(store.drawingname, "");
    EXPECT_EQ(test.listener.displayed.back(), "Drawing:<Untitled>");
    EXPECT_EQ(store.savedsegments, 0);
    EXPECT_EQ(store.savedpaths, 0);
  }

  std::string drawing_, paths_, backup_, backupPaths_;
};

TEST_F(FailedOpen, GarbageLeavesAnEmptyUntitledDrawing) {
  EXPECT_EQ(numberOfFailure([&] { load("GARBAGE.CDM"); }), FailureNumber::InputPastEnd);
  expectUntitled();
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_FALSE(isUnsaved(session)) << "there is nothing that could be saved";
  expectSaveAsks();
}

TEST_F(FailedOpen, RowsReadSoFarStayAndCountAsUnsaved) {
  write("CUT.CDM", drawing_.substr(0, drawing_.size() - 5));
  store.savedsegments = 2;
  EXPECT_EQ(failureOf([&] { load("CUT.CDM"); }).source(), cnc("CUT.CDM") + " line 32 field 5");
  EXPECT_EQ(store.NumSegments, 2);
  expectUntitled();
  EXPECT_TRUE(isUnsaved(session));
  expectSaveAsks();
}

TEST_F(FailedOpen, DamagedPathFileLeavesTheDrawingUntitledToo) {
  write("CUT.CDM", drawing_);
  write("CUT.TPM", paths_.substr(0, paths_.size() - 5));
  EXPECT_EQ(failureOf([&] { load("CUT.CDM"); }).source(), cnc("CUT.TPM") + " line 2 field 9");
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(store.NumPathSegments, 2);
  expectUntitled();
  EXPECT_TRUE(isUnsaved(session));
  expectSaveAsks();
}

TEST_F(FailedOpen, WindowShowsWhatIsLeft) {
  test.listener.take();
  EXPECT_EQ(numberOfFailure([&] { load("GARBAGE.CDM"); }), FailureNumber::InputPastEnd);
  EXPECT_THAT(test.listener.take(),
              ElementsAre("resetUndoState", "clearUndoMenu", "UnselectAll",
                          "SetUpdatePropertyFlag(true)", "UpdatePropertyWindow", "Clear_Paste",
                          "updateStatusDisplay", "UpdateGridButtons", "Update_menu_checks"));
}

TEST_F(FailedOpen, SavedUnderANameTheRowsAreADrawingAgain) {
  write("CUT.CDM", drawing_.substr(0, drawing_.size() - 5));
  EXPECT_EQ(numberOfFailure([&] { load("CUT.CDM"); }), FailureNumber::InputPastEnd);
  test.recording.prompts.files = {cnc("SAVED")};
  smart_save(session);
  EXPECT_EQ(store.drawingname, "SAVED.CDM");
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:SAVED.CDM");
  expectUntouched();
}

// The ways in.

TEST_F(FailedOpen, ByTheOpenCommand) {
  test.recording.prompts.files = {cnc("GARBAGE.CDM")};
  EXPECT_EQ(numberOfFailure([&] { mnuFileOpen_Click(session); }), FailureNumber::InputPastEnd);
  expectUntitled();
  expectSaveAsks();
}

TEST_F(FailedOpen, ByRevert) {
  load("GOOD.CDM");
  write("GOOD.CDM", kGarbage);
  EXPECT_EQ(numberOfFailure([&] { mnuFileRevert_Click(session); }), FailureNumber::InputPastEnd);
  expectUntitled();
  write("GOOD.CDM", drawing_);
  expectSaveAsks();
}

TEST_F(FailedOpen, RevertToAFileThatDoesNotOpenLeavesTheDrawingItsName) {
  session.lastfilename = cnc("GONE.CDM");
  mnuFileRevert_Click(session);
  EXPECT_THAT(takeTexts(), ElementsAre("Couldn't revert to saved drawing.\n\nFile not found"));
  EXPECT_EQ(store.drawingname, "GOOD.CDM");
  EXPECT_EQ(store.NumSegments, 2);
  smart_save(session);
  EXPECT_FALSE(has("GONE.CDM"));
  expectUntouched();
}

TEST_F(FailedOpen, ByARecentFile) {
  session.recentfiles[1] = cnc("GARBAGE.CDM");
  EXPECT_EQ(numberOfFailure([&] { openRecentFile(session, "miRecentFile2"); }),
            FailureNumber::InputPastEnd);
  expectUntitled();
  expectSaveAsks();
}

TEST_F(FailedOpen, ByADrop) {
  const std::string dropped[] = {cnc("GARBAGE.CDM")};
  EXPECT_EQ(numberOfFailure([&] { dropFiles(session, dropped); }), FailureNumber::InputPastEnd);
  expectUntitled();
  expectSaveAsks();
}

}  // namespace
}  // namespace tess
