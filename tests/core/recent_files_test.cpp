// The list of recently used drawings, in memory and in its file.
#include "core/recent_files.h"

#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/failure_of.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using testing::numberOfFailure;
using testing::TestSession;

class RecentFilesTest : public ::testing::Test {
 protected:
  std::string make(const std::string& name) { return test.home.write("CNC/" + name, "x"); }

  TestSession test;
  Session& session = test.session;
};

TEST_F(RecentFilesTest, NewestComesFirst) {
  const std::string a = make("A.CDM");
  const std::string b = make("B.CDM");
  addRecent(session, a);
  addRecent(session, b);
  EXPECT_EQ(recentCaption(session, 1), "1 - " + b);
  EXPECT_EQ(recentCaption(session, 2), "2 - " + a);
  EXPECT_EQ(recentCaption(session, 3), "") << "its tool is hidden";
  EXPECT_THAT(test.listener.take(), ElementsAre("recentFilesChanged", "recentFilesChanged"));
}

TEST_F(RecentFilesTest, WhatIsNoFileOnlyTidies) {
  const std::string a = make("A.CDM");
  session.recentfiles = {"", a, "", a};
  addRecent(session, "");
  EXPECT_THAT(session.recentfiles, ElementsAre(a, "", "", "", "", "", "", "", ""));
  addRecent(session, test.home("none"));
  addRecent(session, test.home());
  EXPECT_EQ(session.recentfiles[1], "");
}

TEST_F(RecentFilesTest, LaterDuplicateIsRemovedAndTheRestClosesUp) {
  const std::string a = make("A.CDM");
  const std::string b = make("B.CDM");
  const std::string c = make("C.CDM");
  for (const std::string& path : {a, b, c}) addRecent(session, path);
  addRecent(session, a);
  EXPECT_THAT(session.recentfiles, ElementsAre(a, c, b, "", "", "", "", "", ""));
}

TEST_F(RecentFilesTest, SameFileInOtherLettersIsADuplicate) {
  const std::string a = make("A.CDM");
  addRecent(session, a);
  addRecent(session, test.home("cnc\\a.cdm"));
  EXPECT_EQ(session.recentfiles[1], "");
}

TEST_F(RecentFilesTest, TenNamesLeaveNineAndADeletedFileIsGoneAtTheNextStart) {
  std::vector<std::string> paths;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    paths.push_back(make(std::string(1, letter) + ".CDM"));
    addRecent(session, paths.back());
  }
  for (std::size_t slot = 0; slot < 9; ++slot)
    EXPECT_EQ(session.recentfiles[slot], paths[9 - slot]);
  writeRecent(session);
  std::filesystem::remove(paths[5]);
  session.recentfiles = {};
  readRecent(session);
  EXPECT_THAT(session.recentfiles, ElementsAre(paths[9], paths[8], paths[7], paths[6], paths[4],
                                               paths[3], paths[2], paths[1], ""));
}

TEST_F(RecentFilesTest, FileHoldsOnePathPerLineWithoutBlanksOrGoneFiles) {
  const std::string a = make("A, left.CDM");
  const std::string b = make("B.CDM");
  session.recentfiles = {a, "", test.home("gone.cdm"), b};
  writeRecent(session);
  EXPECT_EQ(readFile(recentFileList(session)), a + "\r\n" + b + "\r\n");
  EXPECT_EQ(recentFileList(session), test.home("CNC/TSMO.MRU"));
  readRecent(session);
  EXPECT_EQ(session.recentfiles[0], a) << "a comma is part of the path";
  EXPECT_EQ(session.recentfiles[1], b);
}

TEST_F(RecentFilesTest, AtMostNineAreRead) {
  std::string list;
  for (int file = 1; file <= 11; ++file) list += make(std::to_string(file) + ".CDM") + "\n";
  test.home.write("CNC/TSMO.MRU", list);
  readRecent(session);
  EXPECT_EQ(session.recentfiles[8], test.home("CNC/9.CDM"));
}

TEST_F(RecentFilesTest, MissingListIsReportedAndTheMenuStays) {
  session.recentfiles = {"kept"};
  readRecent(session);
  EXPECT_EQ(session.recentfiles[0], "kept");
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::FileNotFound);
}

TEST_F(RecentFilesTest, SlotsRunFromOneToNine) {
  for (const int slot : {0, 10}) {
    EXPECT_EQ(numberOfFailure([&] { recentCaption(session, slot); }),
              FailureNumber::SubscriptOutOfRange);
  }
}

}  // namespace
}  // namespace tess
