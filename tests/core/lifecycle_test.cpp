// The start with its command line, new drawings, the questions about unsaved work, and the end.
#include "core/lifecycle.h"

#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/setup_file.h"
#include "tests/support/failure_of.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::numberOfFailure;
using testing::TestSession;

const char kAskToSave[] = "Drawing not saved! Save now?";

class Lifecycle : public ::testing::Test {
 protected:
  Lifecycle() {
    test.home.write("tess.def", "1.0\r\nmill.msu\r\n");
    test.home.write("mill.msu",
                    "units of measure =M\r\npart material =Brass\r\n"
                    "drawing title =Plate\r\nx origin =-1\r\nvisual grid = .5\r\n"
                    "visual grid f = 1\r\ncursor grid = .25\r\ncursor grid f = 1\r\n"
                    "designer name =Ann\r\ndrawing revision =C\r\npart dim x = 7\r\n"
                    "part dim y = 6\r\n");
    test.home.write("CNC/TSMO.MRU", "");
  }

  void start(const std::string& commandLine = {}) { Main(session, commandLine, test.home()); }
  void addLine() {
    AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
    store.drawingsaved = false;
  }
  // A drawing with one line on the disk.
  std::string makeDrawing(const std::string& path) {
    DrawingStore drawing;
    AddSeg(drawing, {.type = kLine, .x1 = 1}, nullptr);
    std::string text;
    writefileheader(drawing, text);
    appendSegments(text, drawing);
    return test.home.write(path, text);
  }
  void answer(Answer next) { test.recording.prompts.answers = {next}; }

  TestSession test;
  Session& session = test.session;
  DrawingStore& store = test.store;
};

// The start.

TEST_F(Lifecycle, StartReadsSetupAndMakesAnEmptyDrawing) {
  start();
  EXPECT_EQ(session.appfolder, test.home());
  EXPECT_EQ(store.drawingpath, test.home("CNC/"));
  EXPECT_EQ(store.units, "M");
  EXPECT_EQ(session.formats.coordfmt, "####0.0000");
  EXPECT_EQ(store.drawingname, "");
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_EQ(store.x0.upperBound(), 22);
  EXPECT_EQ(store.psx0.upperBound(), 10);
  EXPECT_TRUE(session.startupdone);
  EXPECT_FALSE(isUnsaved(session));
}

TEST_F(Lifecycle, StartKeepsItsOrder) {
  start();
  EXPECT_THAT(test.listener.take(),
              ElementsAre("resetObjectSnap", "load_xsetup", "UpdateGridButtons",
                          "Update_menu_checks",                            // the setup
                          "UpdateGridButtons", "brandingRead", "recover",  // defaults, names
                          "clearUndoMenu", "UnselectAll", "Clear_Paste", "Update_menu_checks",
                          "UpdateGridButtons", "moveMarker(0,0)", "resetUndoState",
                          "SetUpdatePropertyFlag(true)", "UpdatePropertyWindow",  // new drawing
                          "recover", "resetPendingAction", "Update_menu_checks", "clearUndoMenu",
                          "Clear_Paste", "resetUndoState"));
}

TEST_F(Lifecycle, ProgramFolderGetsItsSeparator) {
  std::string folder = test.home();
  folder.pop_back();
  Main(session, "", folder);
  EXPECT_EQ(session.appfolder, test.home());
}

TEST_F(Lifecycle, StartWithoutDefaultsFileIsAFileFailure) {
  fs::remove(test.home("tess.def"));
  EXPECT_EQ(numberOfFailure([&] { start(); }), FailureNumber::FileNotFound);
}

TEST_F(Lifecycle, StartWithoutSetupEndsTheProgram) {
  fs::remove(test.home("mill.msu"));
  EXPECT_THROW(start(), EndProgram);
  EXPECT_THAT(test.recording.surroundings.printed,
              ElementsAre("Could not find setup file: mill.msu\nnamed in " + test.home("tess.def") +
                          " line 2 field 1"));
}

TEST_F(Lifecycle, SetupWithAToolOfNoRadiusStillStarts) {
  test.home.write("mill.msu", "cut width type = 2\r\n");
  start();
  EXPECT_TRUE(session.startupdone);
  EXPECT_EQ(test.recording.failures.reported.size(), 1U);
}

TEST_F(Lifecycle, QuotedCommandLineWithBlanksLoadsThatDrawing) {
  fs::create_directory(test.home("my parts"));
  makeDrawing("my parts/left plate.CDM");
  start("\"" + test.home("my parts/left plate") + "\"");
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.drawingname, "left plate.CDM");
  EXPECT_EQ(store.drawingpath, test.home("my parts/"));
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:LEFT PLATE.CDM");
  EXPECT_EQ(session.cmdline, "");
}

TEST_F(Lifecycle, CommandLineFileThatDoesNotExistGivesTheEmptyDrawing) {
  start(test.home("CNC/gone.cdm"));
  EXPECT_EQ(store.drawingname, "");
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_EQ(session.cmdline, "");
  EXPECT_EQ(store.drawingpath, test.home("CNC/"));
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(Lifecycle, ExtensionOfTheCommandLineIsReplaced) {
  makeDrawing("part.CDM");
  test.home.write("part.TXT", "no drawing");
  start(test.home("part.TXT"));
  EXPECT_EQ(store.drawingname, "part.CDM");
  EXPECT_EQ(store.NumSegments, 1);
}

TEST_F(Lifecycle, BareNameIsLookedForAmongTheDrawings) {
  makeDrawing("CNC/PART.CDM");
  start("part");
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_EQ(store.drawingpath, test.home("CNC/"));
}

TEST_F(Lifecycle, CommandLineOfAFolderGivesTheEmptyDrawing) {
  start(test.home());
  EXPECT_EQ(store.drawingname, "");
}

TEST_F(Lifecycle, BrokenDrawingIsReportedAndTheProgramStarts) {
  test.home.write("cut.CDM", "1.0\r\nPROFILE\r\n");
  start(test.home("cut.CDM"));
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::InputPastEnd);
  EXPECT_TRUE(session.startupdone);
}

TEST_F(Lifecycle, MainWindowLoadFillsTheRecentListAndAddsTheDrawing) {
  const std::string older = makeDrawing("CNC/OLDER.CDM");
  const std::string named = makeDrawing("CNC/NAMED.CDM");
  test.home.write("CNC/TSMO.MRU", older + "\r\n" + test.home("CNC/GONE.CDM") + "\r\n");
  loadMainWindow(session, named, test.home());
  EXPECT_EQ(session.recentfiles[0], named);
  EXPECT_EQ(session.recentfiles[1], older);
  EXPECT_EQ(session.recentfiles[2], "");
  std::vector<std::string> told = test.listener.take();
  told.erase(told.begin(), told.end() - 5);
  EXPECT_THAT(told, ElementsAre("loadLayout", "readPressedTools", "recentFilesChanged",
                                "recentFilesChanged", "updateStatusDisplay"));
}

TEST_F(Lifecycle, MainWindowLoadSurvivesAMissingRecentList) {
  fs::remove(test.home("CNC/TSMO.MRU"));
  loadMainWindow(session, "", test.home());
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.listener.take().back(), "updateStatusDisplay");
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:<Untitled>");
}

// New drawings and defaults.

TEST_F(Lifecycle, NewDrawingClearsRowsNamesAndMarker) {
  start();
  addLine();
  addPathSegment(store, {});
  store.drawingname = "PART.CDM";
  store.markerx = 3;
  store.pathgroupname[1] = "Outline";
  store.savedpaths = 4;
  test.listener.take();
  new_drawing(session);
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_EQ(store.drawingname, "");
  EXPECT_EQ(store.markerx, 0.0F);
  EXPECT_EQ(store.savedpaths, 0);
  EXPECT_EQ(store.pathgroupname[1], "");
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_FALSE(isUnsaved(session));
  EXPECT_THAT(test.listener.take(),
              ElementsAre("clearUndoMenu", "UnselectAll", "Clear_Paste", "Update_menu_checks",
                          "UpdateGridButtons", "moveMarker(0,0)", "resetUndoState",
                          "SetUpdatePropertyFlag(true)", "UpdatePropertyWindow"));
}

TEST_F(Lifecycle, DefaultsBecomeTheLiveSettings) {
  start();
  EXPECT_EQ(store.visualgrid, 0.5F);
  EXPECT_EQ(store.visualgridf, 1);
  EXPECT_EQ(store.cursorgrid, 0.25F);
  EXPECT_EQ(store.cursorgridf, 1);
  EXPECT_EQ(store.xorigin, -1);
  EXPECT_EQ(store.yorigin, 1);
  EXPECT_EQ(store.zorigin, -1);
  EXPECT_EQ(store.drawingtitle, "Plate");
  EXPECT_EQ(store.designername, "Ann");
  EXPECT_EQ(store.drawingrevision, "C");
  EXPECT_EQ(store.creationdate, "03/09/2026");
  EXPECT_EQ(store.partmaterial, "Brass");
  EXPECT_EQ(store.partdimx, 7.0F);
  EXPECT_EQ(store.partdimy, 6.0F);
  EXPECT_EQ(store.partdimz, 0.25F) << "a part has some height";
  EXPECT_FALSE(store.setupchanged);
}

TEST_F(Lifecycle, WithoutMaterialTheStandardOneIsTaken) {
  test.home.write("mill.msu", "part hardness =95\r\n");
  start();
  EXPECT_EQ(store.materialcategory, "Alluminum Alloys");
  EXPECT_EQ(store.partmaterial, "Wrought Aluminum Alloys 5000 6000 7000 Series");
  EXPECT_EQ(store.parthardness, "");
  EXPECT_EQ(store.materialcondition, "Cold Drawn");
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(Lifecycle, CategoryAloneKeepsTheMaterialBlank) {
  test.home.write("mill.msu", "material category =Steel\r\n");
  start();
  EXPECT_EQ(store.partmaterial, "");
  EXPECT_EQ(store.materialcategory, "Steel");
  EXPECT_FALSE(store.setupchanged);
}

struct UnsavedCase {
  const char* name;
  bool drawingsaved;
  int segments, savedSegments, paths, savedPaths;
  bool unsaved;
};

TEST_F(Lifecycle, UnsavedIsAChangeOrAnotherNumberOfRows) {
  const UnsavedCase cases[] = {
      {"saved", true, 2, 2, 3, 3, false},
      {"changed", false, 2, 2, 3, 3, true},
      {"another number of rows", true, 2, 1, 3, 3, true},
      {"another number of path rows", true, 2, 2, 3, 4, true},
      {"no rows left", true, 0, 2, 0, 3, false},
      {"empty but changed", false, 0, 0, 0, 0, true},
  };
  for (const UnsavedCase& c : cases) {
    store.drawingsaved = c.drawingsaved;
    store.NumSegments = c.segments, store.savedsegments = c.savedSegments;
    store.NumPathSegments = c.paths, store.savedpaths = c.savedPaths;
    EXPECT_EQ(isUnsaved(session), c.unsaved) << c.name;
  }
}

TEST_F(Lifecycle, SmartNewOfASavedDrawingAsksNothing) {
  start();
  smart_New(session);
  EXPECT_TRUE(test.messages().empty());
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:<Untitled>");
}

TEST_F(Lifecycle, SmartNewAsksAboutUnsavedWork) {
  start();
  addLine();
  answer(Answer::Cancel);
  smart_New(session);
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, kAskToSave);
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Question);
  EXPECT_EQ(store.NumSegments, 1);
  answer(Answer::No);
  smart_New(session);
  EXPECT_EQ(store.NumSegments, 0);
}

TEST_F(Lifecycle, SmartNewSavesOnYes) {
  start();
  addLine();
  test.name("PART.CDM");
  answer(Answer::Yes);
  smart_New(session);
  EXPECT_TRUE(test.home.has("CNC/PART.CDM"));
  EXPECT_EQ(store.drawingname, "");
}

// Leaving a drawing.

TEST_F(Lifecycle, SavedDrawingMayBeLeft) {
  EXPECT_TRUE(safe_EXIT(session, /*frmunloading=*/false));
  EXPECT_TRUE(test.listener.take().empty());
  EXPECT_TRUE(safe_EXIT(session, /*frmunloading=*/true));
  EXPECT_THAT(test.listener.take(), ElementsAre("closeMainWindow"));
}

TEST_F(Lifecycle, CancelKeepsWindowAndDrawing) {
  addLine();
  answer(Answer::Cancel);
  EXPECT_FALSE(safe_EXIT(session, /*frmunloading=*/true));
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_EQ(test.messages().at(0).text, kAskToSave);
  EXPECT_TRUE(test.listener.take().empty());
}

TEST_F(Lifecycle, NoLeavesWithoutSaving) {
  addLine();
  test.name("PART.CDM");
  answer(Answer::No);
  EXPECT_TRUE(safe_EXIT(session, /*frmunloading=*/true));
  EXPECT_FALSE(test.home.has("CNC/PART.CDM"));
}

TEST_F(Lifecycle, YesSavesAndOnlyClosingGoesOn) {
  for (const bool closing : {false, true}) {
    addLine();
    test.name("PART.CDM");
    answer(Answer::Yes);
    EXPECT_EQ(safe_EXIT(session, closing), closing);
    EXPECT_TRUE(store.drawingsaved);
    EXPECT_TRUE(test.home.has("CNC/PART.CDM"));
  }
}

TEST_F(Lifecycle, YesWithoutANameKeepsTheWindow) {
  addLine();
  answer(Answer::Yes);
  EXPECT_FALSE(safe_EXIT(session, /*frmunloading=*/true)) << "the file dialog was cancelled";
}

// Opening.

TEST_F(Lifecycle, OpenLoadsTheChosenDrawing) {
  test.recording.prompts.files = {makeDrawing("CNC/PART.CDM")};
  mnuFileOpen_Click(session);
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.drawingname, "PART.CDM");
}

TEST_F(Lifecycle, YesOnTheWayToOpenSavesAndStopsTheOpen) {
  addLine();
  test.name("MINE.CDM");
  answer(Answer::Yes);
  mnuFileOpen_Click(session);
  EXPECT_TRUE(test.home.has("CNC/MINE.CDM"));
  EXPECT_TRUE(test.recording.prompts.fileRequests.empty());
}

TEST_F(Lifecycle, RecentFileLoadsWithoutAQuestionAndLosesUnsavedWork) {
  session.recentfiles[2] = " " + makeDrawing("CNC/PART.CDM") + " ";
  addLine();
  addLine();
  openRecentFile(session, "miRecentFile3");
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(Lifecycle, TheFirstAndTheLastRecentFileLoad) {
  session.recentfiles.front() = makeDrawing("CNC/FIRST.CDM");
  session.recentfiles.back() = makeDrawing("CNC/LAST.CDM");
  openRecentFile(session, "miRecentFile1");
  EXPECT_EQ(store.drawingname, "FIRST.CDM");
  session.recentfiles.back() = test.home("CNC/LAST.CDM");  // the load has moved it out of the list
  openRecentFile(session, "miRecentFile9");
  EXPECT_EQ(store.drawingname, "LAST.CDM");
}

TEST_F(Lifecycle, EmptySlotsAndOtherToolsOpenNothing) {
  for (const char* tool : {"miRecentFile1", "miRecentFile0", "miOpen", ""}) {
    openRecentFile(session, tool);
  }
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(Lifecycle, DropLoadsTheFirstThatExists) {
  makeDrawing("CNC/PART.CDM");
  makeDrawing("CNC/NEXT.CDM");
  const std::string names[] = {test.home("CNC/gone.cdm"), test.home("CNC/part.txt"),
                               test.home("CNC/next.cdm")};
  dropFiles(session, names);
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:PART.CDM");
}

TEST_F(Lifecycle, DroppedDxfGoesToTheImport) {
  const std::string path = test.home.write("CNC/Shape.dxf", "0\nEOF\n");
  const std::string names[] = {test.home("CNC/SHAPE.Dxf")};
  dropFiles(session, names);
  EXPECT_THAT(test.listener.imported, ElementsAre(path));
  EXPECT_EQ(store.drawingname, "");
}

TEST_F(Lifecycle, DropAsksAboutUnsavedWorkFirst) {
  const std::string names[] = {makeDrawing("CNC/PART.CDM")};
  addLine();
  answer(Answer::Cancel);
  dropFiles(session, names);
  EXPECT_EQ(store.drawingname, "");
  EXPECT_EQ(test.messages().at(0).text, kAskToSave);
}

TEST_F(Lifecycle, DropOfNothingThatExistsDoesNothing) {
  const std::string names[] = {test.home("CNC/gone.cdm")};
  dropFiles(session, names);
  EXPECT_TRUE(test.messages().empty());
  EXPECT_TRUE(test.listener.imported.empty());
}

TEST_F(Lifecycle, DeleteTakesTheChosenDrawingButNotItsPaths) {
  makeDrawing("CNC/PART.CDM");
  test.home.write("CNC/PART.TPM", "");
  store.drawingname = "OPEN.CDM";
  test.recording.prompts.files = {test.home("CNC/PART.CDM")};
  mnuFileDelete_Click(session);
  EXPECT_FALSE(test.home.has("CNC/PART.CDM"));
  EXPECT_TRUE(test.home.has("CNC/PART.TPM"));
  EXPECT_EQ(store.drawingname, "OPEN.CDM");
  mnuFileDelete_Click(session);
  EXPECT_TRUE(test.home.has("CNC/PART.TPM")) << "a cancelled dialog deletes nothing";
}

TEST_F(Lifecycle, DeleteHasItsOwnButtonAndMovesToTheTrash) {
  makeDrawing("CNC/PART.CDM");
  test.recording.surroundings.trash = Trash::Taken;
  test.recording.prompts.files = {test.home("CNC/PART.CDM")};
  mnuFileDelete_Click(session);
  EXPECT_EQ(test.recording.prompts.fileRequests.back().okCaption, "&Delete");
  EXPECT_THAT(test.recording.surroundings.trashed, ElementsAre(test.home("CNC/PART.CDM")));
  EXPECT_TRUE(test.home.has("CNC/PART.CDM")) << "taking it is the trash's affair";
}

TEST_F(Lifecycle, AFileThatTheTrashDoesNotTakeStays) {
  makeDrawing("CNC/PART.CDM");
  test.recording.surroundings.trash = Trash::Failed;
  test.recording.prompts.files = {test.home("CNC/PART.CDM")};
  mnuFileDelete_Click(session);
  EXPECT_TRUE(test.home.has("CNC/PART.CDM"));
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "The trash does not take " + test.home("CNC/PART.CDM") +
                                         ".\n\nThe file has not been deleted.");
}

TEST_F(Lifecycle, TitleShowsTheUpperCasedNameOrUntitled) {
  store.drawingname = "Fräse 1.cdm";
  showDrawingName(session);
  store.drawingname.clear();
  showDrawingName(session);
  EXPECT_THAT(test.listener.displayed, ElementsAre("Drawing:FRÄSE 1.CDM", "Drawing:<Untitled>"));
}

struct AskCase {
  int kind;
  MessageButtons buttons;
  MessageIcon icon;
  std::vector<std::pair<Answer, int>> answers;
};

TEST_F(Lifecycle, AskUserHasThreeKinds) {
  const AskCase cases[] = {
      {1, MessageButtons::Ok, MessageIcon::None, {{Answer::Ok, 1}}},
      {2, MessageButtons::OkCancel, MessageIcon::None, {{Answer::Ok, 1}, {Answer::Cancel, 2}}},
      {3,
       MessageButtons::YesNoCancel,
       MessageIcon::Question,
       {{Answer::Yes, 1}, {Answer::No, 2}, {Answer::Cancel, 3}}},
  };
  for (const AskCase& c : cases) {
    for (const auto& [given, number] : c.answers) {
      answer(given);
      int result = 0;
      askUser(session, "Sure?", c.kind, result);
      EXPECT_EQ(result, number) << c.kind;
      EXPECT_EQ(test.messages().back().text, "Sure?");
      EXPECT_EQ(test.messages().back().buttons, c.buttons);
      EXPECT_EQ(test.messages().back().icon, c.icon);
    }
  }
  int result = 0;
  EXPECT_EQ(numberOfFailure([&] { askUser(session, "Sure?", 4, result); }),
            FailureNumber::InvalidProcedureCall);
}

// The end.

TEST_F(Lifecycle, UnloadSavesLayoutThenListWhenNothingChanged) {
  session.recentfiles[0] = makeDrawing("CNC/PART.CDM");
  Form_Unload(session);
  EXPECT_THAT(test.listener.take(), ElementsAre("saveLayout", "unloadOtherWindows"));
  EXPECT_TRUE(test.messages().empty());
  EXPECT_EQ(test.home.read("CNC/TSMO.MRU"), test.home("CNC/PART.CDM") + "\r\n");
}

TEST_F(Lifecycle, UnloadOffersToSaveAChangedSetup) {
  session.setupname = "mine.msu";
  store.setupchanged = true;
  answer(Answer::No);
  Form_Unload(session);
  EXPECT_FALSE(test.home.has("mine.msu"));
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "  System parameters have changed!  Save now ? ");
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNo);
  answer(Answer::Yes);
  Form_Unload(session);
  EXPECT_TRUE(test.home.has("mine.msu"));
}

TEST_F(Lifecycle, UnloadGoesOnBehindALayoutThatCannotBeSaved) {
  session.setupname = "mine.msu";
  store.setupchanged = true;
  session.recentfiles[0] = makeDrawing("CNC/PART.CDM");
  test.listener.onSaveLayout = [] { throw RuntimeFailure(FailureNumber::DiskFull, "Layout.tb3"); };
  answer(Answer::Yes);
  Form_Unload(session);
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].source(), "Layout.tb3");
  EXPECT_TRUE(test.home.has("mine.msu"));
  EXPECT_EQ(test.home.read("CNC/TSMO.MRU"), test.home("CNC/PART.CDM") + "\r\n");
}

TEST_F(Lifecycle, UnloadAsksAgainAboutASetupThatCouldNotBeSaved) {
  session.setupname = "mine.msu";
  store.setupchanged = true;
  fs::create_directory(test.home("mine.msu"));
  test.recording.prompts.answers = {Answer::Yes, Answer::Yes, Answer::No};
  Form_Unload(session);
  EXPECT_EQ(test.recording.failures.reported.size(), 2U);
  ASSERT_EQ(test.messages().size(), 3U);
  EXPECT_EQ(test.messages()[2].text, "  System parameters have changed!  Save now ? ");
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(Lifecycle, SwapHandsTheDrawingToASibling) {
  test.home.write("Lathe.exe", "");
  test.name("PART.CDM");
  App_EXIT(session, "Lathe");
  EXPECT_EQ(test.home.read("swaptmp.dat"),
            test.home("Lathe.exe") + "\r\n" + test.home("CNC/PART.CDM") + "\r\n");
  EXPECT_THAT(test.listener.take(), ElementsAre("closeMainWindow"));
}

TEST_F(Lifecycle, SwapWithoutTheSiblingSaysSo) {
  App_EXIT(session, "Lathe");
  EXPECT_EQ(test.messages().at(0).text, "Program not found");
  EXPECT_TRUE(test.listener.take().empty());
}

}  // namespace
}  // namespace tess
