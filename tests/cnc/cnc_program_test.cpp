// Making a program: the commands, the question about unsaved work and the file.
#include "cnc/cnc_program.h"

#include <limits>
#include <string>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MakeCncTest : public CncFixture {
 protected:
  MakeCncTest() {
    store.drawingpath = folder();
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  }

  bool make(CncMode mode = CncMode::Mill) { return make_cnc(session, definition, state, mode); }

  TempFolder folder;
};

TEST_F(MakeCncTest, WithoutPathRowsTheCommandsSaySoAndStop) {
  store.NumPathSegments = 0;
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  mnuCAMMakeCNCLatheFile_Click(session, definition, state, viewer);
  ASSERT_EQ(host.prompts.messages.size(), 2U);
  EXPECT_EQ(host.prompts.messages[0].text, "No Path Segments Placed!");
  EXPECT_EQ(host.prompts.messages[0].buttons, MessageButtons::Ok);
  EXPECT_THAT(listener.noted, IsEmpty());
  EXPECT_FALSE(folder.has("part.CNC"));
}

TEST_F(MakeCncTest, MillCommandWritesTheProgramAndShowsIt) {
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_EQ(folder.read("part.CNC"), program());
  EXPECT_THAT(folder.read("part.CNC"), HasSubstr("GantrixPro (tm)"));
  EXPECT_EQ(state.cncfilename, "part.CNC");
  EXPECT_THAT(listener.noted, ElementsAre("clearUndoMenu"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.cnc")));
  EXPECT_THAT(host.prompts.messages, IsEmpty());
}

TEST_F(MakeCncTest, LatheCommandWritesTheLathesProgram) {
  mnuCAMMakeCNCLatheFile_Click(session, definition, state, viewer);
  EXPECT_THAT(folder.read("part.CNC"), HasSubstr("Lathrix Pro (tm)"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.cnc")));
}

TEST_F(MakeCncTest, EveryLineEndsWithCarriageReturnAndLineFeed) {
  ASSERT_TRUE(make());
  const std::string text = folder.read("part.CNC");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
  linesOf(text);
}

TEST_F(MakeCncTest, EmptyHeaderAndTrailerAreEmptyLines) {
  const auto lines = linesOf(program());
  EXPECT_EQ(lines.front(), "");
  EXPECT_EQ(lines.back(), "");
}

TEST_F(MakeCncTest, HeaderAndTrailerStandAsTheyAre) {
  definition.cncheadertext = "%\r\nO7";
  definition.cnctrailertext = "M30\r\n%";
  definition.cnccomment = ";";
  const std::string text = program();
  EXPECT_TRUE(text.starts_with("%\r\nO7\r\n;**"));
  EXPECT_TRUE(text.ends_with("\r\nM30\r\n%\r\n"));
}

TEST_F(MakeCncTest, OutputPathIsUsedWhenItExists) {
  const TempFolder elsewhere;
  store.cncoutputpath = elsewhere();
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_TRUE(elsewhere.has("part.CNC"));
  EXPECT_FALSE(folder.has("part.CNC"));
  EXPECT_THAT(viewer.shown, ElementsAre(elsewhere("part.cnc")));
}

TEST_F(MakeCncTest, ProgramFileIsWhereTheProgramWillLand) {
  const TempFolder elsewhere;
  EXPECT_EQ(programFile(store), folder("part.CNC"));
  store.cncoutputpath = elsewhere();
  EXPECT_EQ(programFile(store), elsewhere("part.CNC"));
  store.cncoutputpath = elsewhere("gone");
  EXPECT_EQ(programFile(store), folder("part.CNC"));
}

TEST_F(MakeCncTest, OutputPathOfBlanksCountsAsNone) {
  store.cncoutputpath = "   ";
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_TRUE(folder.has("part.CNC"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.cnc")));
}

TEST_F(MakeCncTest, OutputPathThatIsNotThereIsToldAndTheWrittenFileIsShown) {
  store.cncoutputpath = folder("gone/");
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_TRUE(folder.has("part.CNC"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.CNC")));
  EXPECT_THAT(viewer.notices,
              ElementsAre("The folder for CNC files is missing: " + folder("gone/") +
                          ". The file is in the drawing's folder."));
}

// The shown name is in small letters, which may be another file.
TEST_F(MakeCncTest, BesideAFileOfOtherLettersTheWrittenOneIsShown) {
  folder.write("part.CNC", "old");
  folder.write("part.cnc", "another");
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_EQ(folder.read("part.cnc"), "another");
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.CNC")));
  EXPECT_THAT(viewer.notices, ElementsAre(""));
}

TEST_F(MakeCncTest, UntitledDrawingIsWrittenButNotShown) {
  store.drawingname.clear();
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  EXPECT_TRUE(folder.has(".CNC"));
  EXPECT_THAT(viewer.shown, IsEmpty());
}

TEST_F(MakeCncTest, UnsavedDrawingIsAskedAboutAndCancelStopsSilently) {
  store.drawingsaved = false;
  host.prompts.answers = {Answer::Cancel};
  mnuCAMMakeCNCFile_Click(session, definition, state, viewer);
  ASSERT_EQ(host.prompts.messages.size(), 1U);
  EXPECT_EQ(host.prompts.messages[0].text, "Drawing not saved! Save now?");
  EXPECT_EQ(host.prompts.messages[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_FALSE(folder.has("part.CNC"));
  EXPECT_THAT(viewer.shown, IsEmpty());
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(MakeCncTest, NoGoesOnAndTheQuestionDoesNotComeBack) {
  store.drawingsaved = false;
  host.prompts.answers = {Answer::No};
  EXPECT_TRUE(make());
  EXPECT_TRUE(folder.has("part.CNC"));
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_TRUE(make());
  EXPECT_EQ(host.prompts.messages.size(), 1U);
}

TEST_F(MakeCncTest, YesSavesTheDrawingAndGoesOn) {
  store.drawingsaved = false;
  host.prompts.answers = {Answer::Yes};
  EXPECT_TRUE(make());
  EXPECT_TRUE(folder.has("part.CNC"));
  EXPECT_TRUE(folder.has("part.CDM"));
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(MakeCncTest, OldProgramIsReplaced) {
  folder.write("part.CNC", std::string(100000, 'x'));
  ASSERT_TRUE(make());
  EXPECT_EQ(folder.read("part.CNC"), program());
}

TEST_F(MakeCncTest, FailureLeavesNoHalfWrittenProgram) {
  folder.write("part.CNC", "old");
  place(lineRow({1, 0}, {std::numeric_limits<float>::quiet_NaN(), 0}, -0.25F, 10));
  EXPECT_THROW(make(), RuntimeFailure);
  EXPECT_EQ(folder.read("part.CNC"), "old");
  const auto chain = takeCallChain();
  ASSERT_EQ(chain.size(), 2U);
  EXPECT_EQ(chain[0].method, "WriteCncFinish(mode$)");
  EXPECT_EQ(chain[1].method, "make_cnc(mode$)");
}

TEST_F(MakeCncTest, FolderThatIsGoneRaisesAFileFailure) {
  store.drawingpath = folder("gone/");
  EXPECT_EQ(numberOfFailure([this] { make(); }), FailureNumber::PathNotFound);
}

}  // namespace
}  // namespace tess::testing
