// Loading, saving and choosing drawings through the commands, on real files.
#include "core/drawing_file.h"

#include <algorithm>
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "tests/support/failure_of.h"
#include "tests/support/full_disk.h"
#include "tests/support/recording_session.h"
#include "tests/support/without_root_rights.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using testing::failureOf;
using ::testing::HasSubstr;
using testing::numberOfFailure;
using testing::TestSession;
using testing::WithoutRootRights;
using testing::writeFile;

const char kOlder[] =
    "Drawing was created with older version of this software! ~~You may need to adjust the grid "
    "selections.~~(To avoid this message at loading, you should save now!)~";

class DrawingFile : public ::testing::Test {
 protected:
  void addLine(float x1) {
    AddSeg(store, {.type = kLine, .x0 = 0, .y0 = 0, .x1 = x1, .y1 = 1}, nullptr);
    store.drawingsaved = false;
  }
  void addPath() {
    addPathSegment(store, {.type = kLine, .x1 = 2, .z = -0.5F, .feed = 8, .code = 102});
  }
  void saveAs(const std::string& name) {
    test.name(name);
    save_Drawing(session);
  }
  void load(const std::string& name) {
    session.selectedfolder = test.home("CNC/");
    session.selectedname = name;
    load_Drawing(session);
  }
  std::string cnc(const std::string& name) const { return test.home("CNC/" + name); }
  std::string read(const std::string& name) const { return readFile(cnc(name)); }
  bool has(const std::string& name) const { return fs::exists(cnc(name)); }
  // Every entry of the folder, sorted: nothing may be left behind.
  std::vector<std::string> entries() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(cnc(""))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  TestSession test;
  Session& session = test.session;
  DrawingStore& store = test.store;
};

TEST_F(DrawingFile, DrawingWithoutRowsIsThirtyLinesAndLoadsEmpty) {
  saveAs("EMPTY.CDM");
  const std::string text = read("EMPTY.CDM");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 30);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 30);
  addLine(1);
  load("EMPTY.CDM");
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(DrawingFile, SaveRoundsWritesBothFilesAndMarksTheDrawingSaved) {
  addLine(1.0000049F);
  addPath();
  saveAs("part.cdm");
  EXPECT_THAT(read("part.cdm"), EndsWith("1,8,0,0,1,1\r\n"));
  EXPECT_EQ(read("PART.TPM"), "1,102,0,0,2,0,0,0,-.5,8\r\n");
  EXPECT_EQ(store.x1[1], 1.0F);
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_EQ(store.savedsegments, 1);
  EXPECT_EQ(store.savedpaths, 1);
  EXPECT_EQ(session.recentfiles[0], cnc("part.cdm"));
  EXPECT_EQ(test.listener.rewritings, 1);
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:PART.CDM");
}

TEST_F(DrawingFile, UntitledDrawingIsNotSaved) {
  addLine(1);
  save_Drawing(session);
  EXPECT_TRUE(entries().empty());
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(DrawingFile, DrawingThatLostItsPathsDeletesThePathFile) {
  addPath();
  saveAs("PART.CDM");
  ASSERT_TRUE(has("PART.TPM"));
  store.NumPathSegments = 0;
  save_Drawing(session);
  EXPECT_FALSE(has("PART.TPM"));
}

TEST_F(DrawingFile, NameOfAnotherExtensionHasNoPathFile) {
  addPath();
  saveAs("PART.OLD");
  EXPECT_EQ(entries(), std::vector<std::string>{"PART.OLD"});
  load("PART.OLD");
  EXPECT_EQ(store.NumPathSegments, 0);
}

TEST_F(DrawingFile, PathFileWithoutItsDrawingIsNeverRead) {
  writeFile(cnc("LONE.TPM"), "1,102,0,0,2,0,0,0,-.5,8\r\n");
  load("LONE.CDM");
  EXPECT_EQ(store.NumPathSegments, 0);
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "Couldn't revert to saved drawing.\n\nFile not found");
}

TEST_F(DrawingFile, FileThatDoesNotOpenLeavesTheDrawingAlone) {
  addLine(1);
  test.name("OPEN.CDM");
  test.listener.take();
  load("GONE.CDM");
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.drawingname, "OPEN.CDM");
  EXPECT_EQ(test.messages()[0].text, "Couldn't revert to saved drawing.\n\nFile not found");
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::Ok);
  EXPECT_TRUE(test.listener.take().empty());
}

TEST_F(DrawingFile, SelectionOfDrawingRowsIsNotSavedThatOfPathsIs) {
  addLine(1);
  addLine(2);
  store.segattr[1] = 30008;
  store.segattr[2] = 30108;
  addPath();
  store.pscode[1] = 30102;
  saveAs("PART.CDM");
  EXPECT_EQ(store.segattr[2], 30108) << "a save does not change the selection";
  EXPECT_THAT(read("PART.CDM"), EndsWith("1,8,0,0,1,1\r\n1,8,0,0,2,1\r\n"));
  load("PART.CDM");
  EXPECT_EQ(store.segattr[1], 8);
  EXPECT_EQ(store.segattr[2], 8);
  EXPECT_EQ(store.pscode[1], 30102);
}

TEST_F(DrawingFile, PartHeightOfZeroIsSavedAsAQuarter) {
  store.partdimx = 4;
  saveAs("PART.CDM");
  EXPECT_THAT(read("PART.CDM"), HasSubstr("\r\n4,0,.25\r\n"));
  EXPECT_EQ(store.partdimz, 0.25F);
}

TEST_F(DrawingFile, LoadTakesOverNamesCountsAndEffects) {
  addLine(1);
  addPath();
  saveAs("PART.CDM");
  store.drawingname.clear();
  store.drawingpath = test.home();
  store.showpaths = 0;
  store.pathgroupname[1] = "Outline";
  store.psvisible[1] = false;
  store.units = "M";
  test.listener.take();
  load("PART.CDM");
  EXPECT_EQ(store.drawingpath, cnc(""));
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_EQ(session.lastfilename, cnc("PART.CDM"));
  EXPECT_EQ(store.savedsegments, 1);
  EXPECT_EQ(store.savedpaths, 1);
  EXPECT_EQ(store.showpaths, 1);
  EXPECT_EQ(store.pathgroupname[1], "") << "groups come back as numbers";
  EXPECT_TRUE(store.psvisible[1]);
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_EQ(session.formats.coordfmt, "##0.0000") << "formats follow the drawing's units";
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:PART.CDM");
  EXPECT_THAT(
      test.listener.take(),
      ElementsAre("resetUndoState", "clearUndoMenu", "UnselectAll", "SetUpdatePropertyFlag(true)",
                  "UpdatePropertyWindow", "Clear_Paste", "updateStatusDisplay", "UpdateGridButtons",
                  "recentFilesChanged", "Update_menu_checks"));
}

TEST_F(DrawingFile, TruncatedFileKeepsItsRowsAndNoneOfTheLaterSteps) {
  addLine(1);
  addLine(2);
  saveAs("PART.CDM");
  const std::string text = read("PART.CDM");
  writeFile(cnc("CUT.CDM"), text.substr(0, text.size() - 5));
  const RuntimeFailure failure = failureOf([&] { load("CUT.CDM"); });
  EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
  EXPECT_THAT(failure.source(), HasSubstr("CUT.CDM line 32 field 5"));
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(session.lastfilename, cnc("PART.CDM"));
  EXPECT_EQ(session.recentfiles[0], cnc("PART.CDM"));
}

TEST_F(DrawingFile, FailureNamesTheRoutine) {
  writeFile(cnc("CUT.CDM"), "1.0");
  test.name("CUT.CDM");
  try {
    load_Drawing(session);
    FAIL() << "nothing was raised";
  } catch (const RuntimeFailure&) {
    const auto chain = takeCallChain();
    ASSERT_EQ(chain.size(), 1U);
    EXPECT_EQ(chain[0].method, "load_Drawing()");
  }
}

TEST_F(DrawingFile, OlderVersionGivesTheMessageAndLoads) {
  addLine(1);
  saveAs("PART.CDM");
  std::string text = read("PART.CDM");
  for (const char* version : {".9", "abc", ""}) {
    writeFile(cnc("OLD.CDM"), version + text.substr(3));
    test.messages().clear();
    load("OLD.CDM");
    ASSERT_EQ(test.messages().size(), 1U) << version;
    EXPECT_EQ(test.messages()[0].text, kOlder);
    EXPECT_EQ(test.messages()[0].buttons, MessageButtons::Ok);
    EXPECT_EQ(store.NumSegments, 1);
  }
  for (const char* version : {"1.0", "1", "2.5", "1.0b"}) {
    writeFile(cnc("NEW.CDM"), version + text.substr(3));
    test.messages().clear();
    load("NEW.CDM");
    EXPECT_TRUE(test.messages().empty()) << version;
  }
}

TEST_F(DrawingFile, CncOutputPathThatIsNotHereBecomesTheDrawingsFolder) {
  store.cncoutputpath = "c:\\no such folder\\";
  saveAs("PART.CDM");
  load("PART.CDM");
  EXPECT_EQ(store.cncoutputpath, cnc(""));
}

TEST_F(DrawingFile, CncOutputPathThatIsHereStays) {
  std::string path = test.home();
  std::replace(path.begin(), path.end(), '/', '\\');
  store.cncoutputpath = path;
  saveAs("PART.CDM");
  load("PART.CDM");
  EXPECT_EQ(store.cncoutputpath, path);
}

TEST_F(DrawingFile, PairOfAnotherSystemLoadsWhateverTheCase) {
  addLine(1);
  addPath();
  saveAs("PART.CDM");
  fs::rename(cnc("PART.TPM"), cnc("part.tpm"));
  session.selectedfolder = test.home("cnc\\");
  session.selectedname = "Part.Cdm";
  load_Drawing(session);
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.NumPathSegments, 1);
}

TEST_F(DrawingFile, OnlyTheFileNameIsChangedForThePathFile) {
  const std::string folder = test.home("my.cdm parts/");
  fs::create_directory(folder);
  addPath();
  store.drawingpath = folder;
  store.drawingname = "part.cdm";
  save_Drawing(session);
  EXPECT_TRUE(fs::exists(folder + "PART.TPM"));
  session.selectedfolder = folder;
  session.selectedname = "part.cdm";
  load_Drawing(session);
  EXPECT_EQ(store.NumPathSegments, 1);
}

TEST_F(DrawingFile, SaveAndLoadIsIdentity) {
  store.drawingtitle = "Bracket";
  store.units = "M";
  store.partdimz = 2;
  store.cncoutputpath = cnc("");
  for (int row = 1; row <= 50; ++row) addLine(static_cast<float>(row) * 0.37F);
  addPath();
  saveAs("PART.CDM");
  const std::string drawing = read("PART.CDM");
  const std::string paths = read("PART.TPM");
  load("PART.CDM");
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM"), drawing);
  EXPECT_EQ(read("PART.TPM"), paths);
}

// Backups.

TEST_F(DrawingFile, OldPairStaysAsABackup) {
  addLine(1);
  addPath();
  saveAs("PART.CDM");
  const std::string drawing = read("PART.CDM");
  const std::string paths = read("PART.TPM");
  EXPECT_FALSE(has("PART.CDM~"));
  addLine(2);
  addPath();
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), drawing);
  EXPECT_EQ(read("PART.TPM~"), paths);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
}

TEST_F(DrawingFile, BackupOfAPathFileGoesWithThePairItBelongsTo) {
  addLine(1);
  addPath();
  saveAs("PART.CDM");
  store.NumPathSegments = 0;
  save_Drawing(session);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM~"));
  addLine(2);
  save_Drawing(session);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~"));
}

// Writes that fail.

class FailingSave : public DrawingFile {
 protected:
  void SetUp() override {
    addLine(1);
    addPath();
    saveAs("PART.CDM");
    drawing_ = read("PART.CDM");
    paths_ = read("PART.TPM");
    addLine(2);
    addPath();
  }
  void expectOldPair() {
    EXPECT_EQ(read("PART.CDM"), drawing_);
    EXPECT_EQ(read("PART.TPM"), paths_);
    EXPECT_FALSE(store.drawingsaved);
    EXPECT_EQ(store.savedsegments, 1);
    for (const std::string& name : entries()) EXPECT_THAT(name, ::testing::StartsWith("PART"));
  }

 private:
  std::string drawing_, paths_;
};

TEST_F(FailingSave, FullDiskLeavesTheOldPair) {
  const RuntimeFailure failure = failureOf([&] {
    const testing::FullDisk disk(16);
    save_Drawing(session);
  });
  EXPECT_EQ(failure.number(), FailureNumber::DiskFull);
  EXPECT_EQ(failure.source(), cnc("PART.CDM"));
  expectOldPair();
}

TEST_F(FailingSave, SaveAsLeavesTheDrawingItsName) {
  test.recording.prompts.files = {cnc("OTHER")};
  const RuntimeFailure failure = failureOf([&] {
    const testing::FullDisk disk(16);
    save_file_As(session);
  });
  EXPECT_EQ(failure.number(), FailureNumber::DiskFull);
  EXPECT_EQ(failure.source(), cnc("OTHER.CDM"));
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_EQ(store.drawingpath, cnc(""));
  expectOldPair();
}

TEST_F(FailingSave, FolderInTheWayOfThePathFileLeavesTheOldPair) {
  fs::rename(cnc("PART.TPM"), cnc("PART.KEPT"));
  fs::create_directory(cnc("PART.TPM"));
  const RuntimeFailure failure = failureOf([&] { save_Drawing(session); });
  EXPECT_EQ(failure.number(), FailureNumber::PathFileAccess);
  EXPECT_EQ(failure.source(), cnc("PART.TPM"));
  fs::remove(cnc("PART.TPM"));
  fs::rename(cnc("PART.KEPT"), cnc("PART.TPM"));
  expectOldPair();
}

TEST_F(FailingSave, FolderInTheWayOfABackupLeavesTheOldPair) {
  fs::create_directory(cnc("PART.TPM~"));
  const RuntimeFailure failure = failureOf([&] { save_Drawing(session); });
  EXPECT_EQ(failure.source(), cnc("PART.TPM~"));
  expectOldPair();
}

TEST_F(FailingSave, ReadOnlyFolderLeavesTheOldPair) {
  const auto readOnly = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec;
  fs::permissions(cnc("PART.CDM"), fs::perms::all);
  fs::permissions(cnc("PART.TPM"), fs::perms::all);
  fs::permissions(cnc(""), readOnly);
  fs::permissions(test.home(), readOnly);
  const FailureNumber number = numberOfFailure([&] {
    const WithoutRootRights somebody;
    save_Drawing(session);
  });
  fs::permissions(test.home(), fs::perms::owner_all);
  fs::permissions(cnc(""), fs::perms::owner_all);
  EXPECT_EQ(number, FailureNumber::PermissionDenied);
  expectOldPair();
}

TEST_F(FailingSave, MissingFolderIsNamed) {
  store.drawingpath = test.home("GONE/");
  const RuntimeFailure failure = failureOf([&] { save_Drawing(session); });
  EXPECT_EQ(failure.number(), FailureNumber::PathNotFound);
  EXPECT_EQ(failure.source(), test.home("GONE/PART.CDM"));
}

// The commands around the files.

TEST_F(DrawingFile, SmartSaveSavesANamedDrawingWithoutAsking) {
  addLine(1);
  test.name("PART.CDM");
  smart_save(session);
  EXPECT_TRUE(has("PART.CDM"));
  EXPECT_TRUE(test.recording.prompts.fileRequests.empty());
}

TEST_F(DrawingFile, SmartSaveAsksForTheNameOfAnUntitledOne) {
  addLine(1);
  test.recording.prompts.files = {cnc("new")};
  smart_save(session);
  EXPECT_TRUE(has("new.CDM"));
  ASSERT_EQ(test.recording.prompts.fileRequests.size(), 1U);
  const FileRequest& request = test.recording.prompts.fileRequests[0];
  EXPECT_EQ(request.title, "Save As");
  EXPECT_EQ(request.pattern, "Drawing Files (*.cdm)|*.cdm");
  EXPECT_EQ(request.folder, cnc(""));
  EXPECT_EQ(request.name, "");
  EXPECT_TRUE(request.forSaving);
  EXPECT_EQ(store.drawingname, "new.CDM");
  EXPECT_EQ(session.selectedname, "new.CDM");
  EXPECT_EQ(session.selectedfolder, cnc(""));
}

// An import names a drawing after its file, without an extension.
TEST_F(DrawingFile, SmartSaveAsksForTheFileOfANameWithoutExtension) {
  store.drawingname = "plate";
  test.recording.prompts.files = {std::nullopt};
  smart_save(session);
  ASSERT_EQ(test.recording.prompts.fileRequests.size(), 1U);
  EXPECT_EQ(test.recording.prompts.fileRequests[0].name, "plate");
  EXPECT_FALSE(test.home.has("CNC/plate"));
}

TEST_F(DrawingFile, SaveAsOffersTheNameOrElseTheLastOne) {
  test.name("PART.CDM");
  save_file_As(session);
  EXPECT_EQ(test.recording.prompts.fileRequests.back().name, "PART.CDM");
  store.drawingname.clear();
  session.lastfilename = cnc("LAST.CDM");
  save_file_As(session);
  EXPECT_EQ(test.recording.prompts.fileRequests.back().name, "LAST.CDM");
  EXPECT_TRUE(entries().empty()) << "both were cancelled";
}

TEST_F(DrawingFile, SaveAsIgnoresAnEmptyNameAndOneWithAStar) {
  for (const char* name : {"", "/x/*.cdm"}) {
    test.recording.prompts.files = {std::string(name)};
    save_file_As(session);
    EXPECT_EQ(store.drawingname, "");
  }
}

TEST_F(DrawingFile, SaveAsAsksBeforeItOverwrites) {
  writeFile(cnc("OLD.CDM"), "old");
  test.recording.prompts.files = {cnc("OLD")};
  test.recording.prompts.answers = {Answer::Cancel};
  save_file_As(session);
  EXPECT_EQ(read("OLD.CDM"), "old");
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "File already exists! Overwrite?");
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Question);

  test.recording.prompts.files = {cnc("OLD"), cnc("OTHER")};
  test.recording.prompts.answers = {Answer::No};
  save_file_As(session);
  EXPECT_EQ(read("OLD.CDM"), "old");
  EXPECT_TRUE(has("OTHER.CDM")) << "a No opens the dialog again";

  test.recording.prompts.files = {cnc("OLD")};
  test.recording.prompts.answers = {Answer::Yes};
  save_file_As(session);
  EXPECT_NE(read("OLD.CDM"), "old");
}

TEST_F(DrawingFile, SelectFileStartsInTheDrawingFolderOrElseTheProgramsOwn) {
  EXPECT_FALSE(select_file(session));
  const FileRequest first = test.recording.prompts.fileRequests.back();
  EXPECT_EQ(first.title, "Drawing File Selector");
  EXPECT_EQ(first.pattern, "*.CDM");
  EXPECT_EQ(first.folder, cnc(""));
  EXPECT_FALSE(first.forSaving);
  store.drawingpath = "/no such folder/";
  test.recording.prompts.files = {cnc("PART")};
  EXPECT_TRUE(select_file(session));
  EXPECT_EQ(test.recording.prompts.fileRequests.back().folder, test.home());
  EXPECT_EQ(session.selectedfolder, cnc(""));
  EXPECT_EQ(session.selectedname, "PART.CDM");
}

TEST_F(DrawingFile, RevertLoadsTheLastFileWithoutAQuestion) {
  addLine(1);
  saveAs("PART.CDM");
  addLine(2);
  mnuFileRevert_Click(session);
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(DrawingFile, RevertWithoutALastFileDoesNothing) {
  addLine(1);
  mnuFileRevert_Click(session);
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_TRUE(test.messages().empty());
}

}  // namespace
}  // namespace tess
