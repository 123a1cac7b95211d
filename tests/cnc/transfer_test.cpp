// The hand-over to a machine-control program: its window, or its start.
#include "cnc/transfer.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/runtime_failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/recording_programs.h"
#include "tests/support/recording_session.h"
#include "tests/support/stand_in_program.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using testing::failureOf;
using ::testing::IsEmpty;
using testing::RecordingPrograms;
using testing::RecordingWindows;
using testing::TestSession;

class Transfer : public ::testing::Test {
 protected:
  Transfer() { others.found = &windows; }

  WindowHandle find(const std::string& title) {
    return FindWindowPartial(windows, test.recording.surroundings, title);
  }
  void transfer(CncMode mode = CncMode::Mill, const std::string& file = "/nc/part.cnc") {
    transferProgram(test.session, others, mode, file);
  }

  TestSession test;
  RecordingWindows windows;
  RecordingPrograms others;
};

TEST_F(Transfer, AWindowIsFoundByTheBeginningOfItsTitle) {
  windows.titles = {"Clock", "my GantrixPro 2010", "gantrixpro 2010", "GantrixPro 2010 - a.cnc"};
  EXPECT_EQ(find("GantrixPro 2010"), 4U);
  EXPECT_THAT(windows.noted, ElementsAre("front 4"));
  EXPECT_EQ(test.recording.surroundings.eventsServed, 1);
  EXPECT_EQ(find("Lathrix Pro 2010"), 0U);
  EXPECT_THAT(windows.noted, ElementsAre("front 4"));
}

TEST_F(Transfer, ATitleWithTwentyThreeMoreCharactersIsAnothersDocument) {
  const std::string title = "GantrixPro 2010";
  windows.titles = {title + std::string(23, 'x')};
  EXPECT_EQ(find(title), 0U);
  windows.titles = {title + std::string(22, 'x')};
  EXPECT_EQ(find(title), 1U);
  windows.titles = {title};
  EXPECT_EQ(find(title), 1U);
}

TEST_F(Transfer, WithoutWindowsNoneIsFound) {
  EXPECT_EQ(find("GantrixPro 2010"), 0U);
}

TEST_F(Transfer, TheFileGoesToTheWindowAsItsPathWithAZeroByte) {
  windows.titles = {"GantrixPro 2011"};
  transfer();
  EXPECT_THAT(windows.noted, ElementsAre("front 1", "show 1", "send 1 3 13 /nc/part.cnc"));
  EXPECT_THAT(others.started, IsEmpty());
}

// The years count in their order, whatever the order of the windows.
TEST_F(Transfer, TheFirstTitleOfTheListIsTaken) {
  windows.titles = {"GantrixPro 2013", "GantrixPro 2010", "Lathrix Pro 2012"};
  transfer();
  EXPECT_EQ(windows.noted.front(), "front 2");
  windows.noted.clear();
  transfer(CncMode::Lathe);
  EXPECT_EQ(windows.noted.front(), "front 3");
}

TEST_F(Transfer, EachTitleIsKnown) {
  for (const char* const year : {"2010", "2011", "2012", "2013"}) {
    windows.noted.clear();
    windows.titles = {std::string("GantrixPro ") + year, std::string("Lathrix Pro ") + year};
    transfer(CncMode::Mill);
    transfer(CncMode::Lathe);
    EXPECT_EQ(windows.noted.front(), "front 1") << year;
    EXPECT_EQ(windows.noted.back(), "send 2 3 13 /nc/part.cnc") << year;
  }
}

TEST_F(Transfer, WithoutAWindowTheProgramIsStartedWithTheFile) {
  test.home.write("GTX_LOC.DAT", "/opt/a, b/GTXFW.EXE\r\n");
  windows.titles = {"Lathrix Pro 2010"};
  transfer();
  EXPECT_THAT(others.started, ElementsAre(ElementsAre("/opt/a, b/GTXFW.EXE", "/nc/part.cnc")));
  EXPECT_THAT(windows.noted, IsEmpty());
}

TEST_F(Transfer, WhereWindowsCannotBeSearchedTheProgramIsStarted) {
  others.found = nullptr;
  test.home.write("GTX_LOC.DAT", "/opt/GTXFW.EXE");
  transfer();
  EXPECT_THAT(others.started, ElementsAre(ElementsAre("/opt/GTXFW.EXE", "/nc/part.cnc")));
}

TEST_F(Transfer, TheLatheHasItsOwnProgramAndFolder) {
  EXPECT_EQ(lathePath("C:\\Program Files\\Gantrix Pro\\GTXFW.EXE"),
            "C:\\Program Files\\Lathrix Pro\\LTXFW.EXE");
  EXPECT_EQ(lathePath("/opt/GANTRIX/gtxfw.exe"), "/opt/Lathrix/LTXFW.exe");
  EXPECT_EQ(lathePath("/opt/gantrix.exe"), "/opt/gantrix.exe") << "the word counts in the folder";
  EXPECT_EQ(lathePath("/opt/control"), "/opt/control");
  test.home.write("GTX_LOC.DAT", "/opt/Gantrix/gtxfw");
  transfer(CncMode::Lathe);
  EXPECT_THAT(others.started, ElementsAre(ElementsAre("/opt/Lathrix/LTXFW", "/nc/part.cnc")));
}

TEST_F(Transfer, AProgramThatHasVanishedIsAFailureThatTellsHowFarItCame) {
  test.home.write("GTX_LOC.DAT", test.home("gone"));
  others.failure = RuntimeFailure(FailureNumber::FileNotFound, test.home("gone"));
  const RuntimeFailure failure = failureOf([this] { transfer(); });
  EXPECT_EQ(failure.number(), FailureNumber::FileNotFound);
  EXPECT_EQ(failure.source(), test.home("gone"));
  EXPECT_EQ(failure.description(), "File not found (Before FindWindow (); Before Shell ())");
}

TEST_F(Transfer, NothingOfTheWorkingFolderIsStarted) {
  const testing::WorkingFolder there(test.home());
  std::filesystem::create_directories("C:/Program Files/Gantrix Pro");
  test.home.write("C:/Program Files/Gantrix Pro/GTXFW.EXE", "");
  EXPECT_EQ(failureOf([this] { transfer(); }).number(), FailureNumber::FileNotFound);
  EXPECT_THAT(others.started, IsEmpty());
}

TEST_F(Transfer, ARealProgramGetsTheNameAsItIs) {
  const testing::StandInProgram control;
  test.home.write("GTX_LOC.DAT", control.path() + "\r\n");
  LocalPrograms local;
  const std::string file = "/nc/a \"b\" 'c' $(touch x)\nd.cnc";
  transferProgram(test.session, local, CncMode::Mill, file);
  EXPECT_THAT(control.arguments(), ElementsAre(file));
}

}  // namespace
}  // namespace tess
