// The viewer of CNC programs in the running program: the commands that bring it up, and its step
// with the drawing.
#include "shell/cnc_viewer.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/selection.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class CncViewerTest : public ::testing::Test, public testing::RunningProgram {
 protected:
  CncViewerTest() {
    for (int row = 0; row < 4; ++row) {
      const auto x = static_cast<float>(row);
      addPathSegment(store(),
                     {.type = kLine, .x0 = x, .x1 = x + 1, .z = -0.25F, .feed = 10, .code = 100});
    }
    store().drawingname = "part.CDM";
    store().drawingsaved = true;
    store().savedpaths = store().NumPathSegments;
  }

  DrawingStore& store() { return application.store; }
  dlgMenuHelper& form() { return application.viewer.form; }
  bool isOpen() { return application.interaction.forms.find("dlgMenuHelper") == &form(); }
  void make() { ASSERT_TRUE(application.clickTool("miMakeCNCFile")); }

  void select(int row, bool on = true) {
    application.guarded("test", [&] {
      Change change(context().changes);
      change.paths.mark(row, selectedCode(store().pscode[row], on));
      change.keep();
    });
  }

  std::vector<std::string> markedLines() {
    std::vector<std::string> lines;
    for (int line = 0; line < form().txtFile.lines().count(); ++line) {
      if (form().txtFile.isMarked(line)) lines.push_back(form().txtFile.shownLine(line));
    }
    return lines;
  }

  std::vector<int> selectedPaths() {
    std::vector<int> rows;
    for (int ps = 1; ps <= store().NumPathSegments; ++ps) {
      if (hasSelectionMark(store().pscode[ps])) rows.push_back(ps);
    }
    return rows;
  }

  // The place of the first line that is this one.
  int lineOf(const std::string& text) {
    int line = 0;
    while (form().txtFile.shownLine(line) != text) ++line;
    return line;
  }
};

TEST_F(CncViewerTest, AProgramThatIsMadeIsShownBesideTheMainWindow) {
  make();
  ASSERT_TRUE(isOpen());
  EXPECT_EQ(form().modality(), Modality::Modeless);
  EXPECT_EQ(form().caption(), "View File - " + home("CNC/part.cnc"));
  EXPECT_THAT(form().txtFile.text(), HasSubstr("\r\nG01 X2.0\r\n"));
  EXPECT_EQ(screen.pointer.MousePointer(), kDefaultShape);
  EXPECT_THAT(platform.prompts.messages, IsEmpty());
}

TEST_F(CncViewerTest, AnOpenViewerShowsTheNextProgram) {
  make();
  application.clickTool("miMakeCNCLatheFile");
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(form().cmdAutoLoad2GTXFW.caption(), "&Transfer to Lathrix Pro");
}

TEST_F(CncViewerTest, BrowseShowsAFile) {
  platform.prompts.files = {
      home.write("CNC/lathe.CNC", "*  Created for Lathrix Pro (tm) 2012\r\n")};
  ASSERT_TRUE(application.clickTool("miBrowseCNCFile"));
  ASSERT_TRUE(isOpen());
  EXPECT_EQ(platform.prompts.fileRequests[0].folder, store().drawingpath);
  EXPECT_EQ(form().caption(), "View File - " + home("CNC/lathe.CNC"));
  EXPECT_EQ(form().cmdAutoLoad2GTXFW.caption(), "&Transfer to Lathrix Pro");
  EXPECT_EQ(store().cncoutputpath, home("CNC/"));
}

TEST_F(CncViewerTest, AFileThatCannotBeOpenedIsReported) {
  platform.prompts.files = {home("CNC/gone.CNC")};
  EXPECT_FALSE(application.clickTool("miBrowseCNCFile") && reporting.lastReport().empty());
  EXPECT_THAT(reporting.lastReport(), HasSubstr("File not found"));
  EXPECT_THAT(reporting.lastReport(), HasSubstr("showFile(file$)"));
  EXPECT_EQ(screen.pointer.MousePointer(), kDefaultShape);
  EXPECT_EQ(form().caption(), "View File");
}

TEST_F(CncViewerTest, AMissingOutputFolderIsToldInTheViewer) {
  store().cncoutputpath = home("gone/");
  make();
  EXPECT_EQ(form().file(), home("CNC/part.CNC"));
  EXPECT_EQ(form().lblNotice.caption(), "The folder for CNC files is missing: " + home("gone/") +
                                            ". The file is in the drawing's folder.");
}

TEST_F(CncViewerTest, TheSetupIsFollowedByARedraw) {
  int shown = 0;
  platform.prompts.onForm = [&](Form& setup) {
    ++shown;
    EXPECT_EQ(setup.name(), "dlgGcodeGen");
    setup.control("txtcncpath")->setText("d");
    setup.pressDefault();
  };
  pass(1000);
  ASSERT_TRUE(context().ScreenProxy.surface().Enabled());
  ASSERT_TRUE(application.clickTool("miG-codeControlSetup"));
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(store().cncoutputpath, "D:");
  EXPECT_FALSE(context().ScreenProxy.surface().Enabled()) << "as it is for a while after a redraw";
}

// ---- Rows and lines

TEST_F(CncViewerTest, TheLinesOfTheSelectedRowsAreMarked) {
  make();
  EXPECT_THAT(markedLines(), IsEmpty());
  select(3);
  EXPECT_THAT(markedLines(), ElementsAre("G01 X3.0"));
  EXPECT_EQ(form().txtFile.revealed(), lineOf("G01 X3.0"));
  select(2);
  EXPECT_THAT(markedLines(), ElementsAre("G01 X2.0", "G01 X3.0"));
  select(3, false);
  EXPECT_THAT(markedLines(), ElementsAre("G01 X2.0"));
}

TEST_F(CncViewerTest, WhatIsSelectedAlreadyIsMarkedWhenTheProgramIsShown) {
  select(2);
  make();
  EXPECT_THAT(markedLines(), ElementsAre("G01 X2.0"));
}

TEST_F(CncViewerTest, APickedLineSelectsItsRowAlone) {
  make();
  select(2);
  select(4);
  const bool saved = store().drawingsaved;
  application.guarded("test", [&] { form().txtFile.pickLine(lineOf("G01 X3.0")); });
  EXPECT_THAT(selectedPaths(), ElementsAre(3));
  EXPECT_THAT(markedLines(), ElementsAre("G01 X3.0"));
  EXPECT_EQ(store().drawingsaved, saved) << "a selection is no change of the drawing";
  EXPECT_FALSE(context().changelog.canUndo());
  application.guarded("test", [&] { form().txtFile.pickLine(0); });
  EXPECT_THAT(selectedPaths(), ElementsAre(3)) << "a line of the heading belongs to no row";
}

TEST_F(CncViewerTest, AfterAnEditTheLinesBelongToNoRow) {
  make();
  select(2);
  application.guarded("test", [&] {
    Change change(context().changes);
    change.paths.erase(1);
    change.keep();
  });
  EXPECT_THAT(markedLines(), IsEmpty());
  select(1);
  EXPECT_THAT(markedLines(), IsEmpty());
  application.guarded("test", [&] { form().txtFile.pickLine(lineOf("G01 X3.0")); });
  EXPECT_THAT(selectedPaths(), ElementsAre(1)) << "row 1 is the one that was selected before";
  make();
  EXPECT_EQ(markedLines().front(), ";") << "with all that the first row brings about";
  EXPECT_EQ(markedLines().back(), "G01 X2.0 F100");
}

TEST_F(CncViewerTest, ASaveLeavesTheMarks) {
  make();
  select(2);
  application.clickTool("miSave");
  EXPECT_TRUE(home.has("CNC/part.CDM"));
  EXPECT_THAT(markedLines(), ElementsAre("G01 X2.0"));
}

TEST_F(CncViewerTest, AnotherDrawingHasOtherRows) {
  make();
  select(2);
  application.clickTool("miNew");
  EXPECT_THAT(markedLines(), IsEmpty());
  EXPECT_FALSE(form().hasRows());
}

TEST_F(CncViewerTest, OnlyTheProgramMadeLastIsKnownByItsRows) {
  make();
  select(2);
  platform.prompts.files = {home.write("CNC/copy.CNC", home.read("CNC/part.CNC"))};
  application.clickTool("miBrowseCNCFile");
  EXPECT_THAT(markedLines(), ElementsAre("G01 X2.0")) << "a copy has the same lines";
  platform.prompts.files = {home.write("CNC/copy.CNC", home.read("CNC/part.CNC") + "M30\r\n")};
  application.clickTool("miBrowseCNCFile");
  EXPECT_THAT(markedLines(), IsEmpty());
}

}  // namespace
}  // namespace tess
