// The record of where the machine-control program lies.
#include "cnc/control_location.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/failure_of.h"
#include "tests/support/recording_session.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::numberOfFailure;
using testing::TempFolder;
using testing::TestSession;

constexpr char kDefault[] = "C:\\Program Files\\Gantrix Pro\\GTXFW.EXE";

class ControlLocation : public ::testing::Test {
 protected:
  std::string path() { return controlPath(test.session); }
  void write(const std::string& path) { writeControlPath(test.session, path); }

  TestSession test;
};

TEST(LocationIn, TheWholeFirstLineIsThePath) {
  EXPECT_EQ(locationIn("/opt/a, b/c d.exe\r\nmore"), "/opt/a, b/c d.exe");
  EXPECT_EQ(locationIn(" /opt/\"x\" \n"), " /opt/\"x\" ");
  EXPECT_EQ(locationIn("/opt/x"), "/opt/x");
}

TEST(LocationIn, BlankAndUnassignedAreNone) {
  for (const char* content :
       {"", "\r\n", "  \t\r\n/opt/x", "< NO PATH ASSIGNED >\r\n", "< NO PATH ASSIGNED >"}) {
    EXPECT_EQ(locationIn(content), "") << content;
  }
}

TEST(LocationIn, AnyBytesAreAPath) {
  const std::string odd("\0\xFF\x1A", 3);
  EXPECT_EQ(locationIn(odd + "\rx"), odd);
}

TEST_F(ControlLocation, WithoutAFileItIsTheUsualPlace) {
  EXPECT_EQ(path(), kDefault);
  test.home.write("GTX_LOC.DAT", "");
  EXPECT_EQ(path(), kDefault);
  test.home.write("GTX_LOC.DAT", "< NO PATH ASSIGNED >\r\n");
  EXPECT_EQ(path(), kDefault);
}

TEST_F(ControlLocation, TheNewerPlaceCountsWhenItHasSomethingInIt) {
  const testing::WorkingFolder there(test.home());
  fs::create_directories("C:/Program Files (x86)/Gantrix Pro");
  EXPECT_EQ(path(), kDefault);
  test.home.write("C:/Program Files (x86)/Gantrix Pro/any", "");
  EXPECT_EQ(path(), "C:\\Program Files (x86)\\Gantrix Pro\\GTXFW.EXE");
}

TEST_F(ControlLocation, TheFileIsFoundInEitherCase) {
  test.home.write("gtx_Loc.dat", "/opt/gtxfw\n");
  EXPECT_EQ(path(), "/opt/gtxfw");
  write("/opt/other");
  EXPECT_EQ(test.home.read("gtx_Loc.dat"), "/opt/other\r\n");
  EXPECT_FALSE(test.home.has("GTX_LOC.DAT"));
}

TEST_F(ControlLocation, WhatIsWrittenIsTheOnlyLine) {
  test.home.write("GTX_LOC.DAT", "/old\r\nmore\r\n");
  write("/opt/it's a \"$(touch x)\"/\xFF");
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "/opt/it's a \"$(touch x)\"/\xFF\r\n");
  EXPECT_EQ(path(), "/opt/it's a \"$(touch x)\"/\xFF");
  write("");
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "< NO PATH ASSIGNED >\r\n");
}

TEST_F(ControlLocation, APathWithALineEndIsRefusedAndTheOldOneStays) {
  write("/opt/x");
  const RuntimeFailure failure = testing::failureOf([this] { write("/opt/a\nb"); });
  EXPECT_EQ(failure.number(), FailureNumber::InvalidProcedureCall);
  EXPECT_EQ(failure.description(), "A path with a line end in it cannot be kept");
  EXPECT_EQ(failure.source(), "/opt/a b");
  EXPECT_EQ(path(), "/opt/x");
}

// A record of a hundred megabytes must not be read for its first line.
TEST_F(ControlLocation, OnlyTheBeginningOfTheFileIsLookedAt) {
  test.home.write("GTX_LOC.DAT", "/opt/x\n");
  fs::resize_file(test.home("GTX_LOC.DAT"), std::uintmax_t{1} << 40);
  EXPECT_EQ(path(), "/opt/x");
}

TEST_F(ControlLocation, AFolderInPlaceOfTheFileCountsAsNone) {
  fs::create_directory(test.home("GTX_LOC.DAT"));
  EXPECT_EQ(path(), kDefault);
}

TEST_F(ControlLocation, AFileThatCannotBeReadIsReportedAndCountsAsNone) {
  fs::create_symlink("/dev/null", test.home("GTX_LOC.DAT"));
  EXPECT_EQ(path(), kDefault);
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].source(), test.home("GTX_LOC.DAT"));
}

TEST_F(ControlLocation, OnlyAFileOfAFullPathExists) {
  const std::string file = test.home.write("gtxfw.exe", "");
  const testing::WorkingFolder there(test.home());
  EXPECT_TRUE(controlExists(file));
  EXPECT_TRUE(controlExists(test.home("GTXFW.EXE"))) << "in either case";
  EXPECT_FALSE(controlExists("gtxfw.exe")) << "the working folder may be anybody's";
  EXPECT_FALSE(controlExists(test.home()));
  EXPECT_FALSE(controlExists(test.home("gone")));
  EXPECT_FALSE(controlExists(file + std::string("\0x", 2)));
  EXPECT_FALSE(controlExists(""));
}

}  // namespace
}  // namespace tess
