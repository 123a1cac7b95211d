// Replacing files in place: links, permissions, owners of names, and what a failure leaves.
#include "core/replace_files.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::failureOf;
using testing::numberOfFailure;
using testing::TempFolder;
using testing::WithoutRootRights;

std::size_t entriesOf(const TempFolder& folder) {
  const fs::directory_iterator entries(folder(""));
  return static_cast<std::size_t>(std::distance(fs::begin(entries), fs::end(entries)));
}

TEST(ReplaceFile, WritesNewAndOldFilesAndLeavesNothingElse) {
  const TempFolder folder;
  replaceFile(folder("a"), "one");
  replaceFile(folder("A"), "two");
  EXPECT_EQ(folder.read("a"), "two") << "a name of other case is the same file";
  EXPECT_EQ(entriesOf(folder), 1U);
}

TEST(ReplaceFile, NewFileHasOrdinaryPermissions) {
  const TempFolder folder;
  folder.write("ordinary", "x");
  replaceFile(folder("new"), "x");
  EXPECT_EQ(fs::status(folder("new")).permissions(), fs::status(folder("ordinary")).permissions());
}

TEST(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  const TempFolder folder;
  folder.write("a", "one");
  const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_exec;
  fs::permissions(folder("a"), permissions);
  replaceFile(folder("a"), "two");
  EXPECT_EQ(fs::status(folder("a")).permissions(), permissions);
}

TEST(ReplaceFile, FollowsLinksAlsoToWhatIsNotThereYet) {
  const TempFolder folder;
  fs::create_directory(folder("far"));
  fs::create_symlink("far/target", folder("link"));
  fs::create_symlink(folder("link"), folder("link of link"));
  for (const char* content : {"one", "two"}) {
    replaceFile(folder("link of link"), content);
    EXPECT_TRUE(fs::is_symlink(folder("link")));
    EXPECT_TRUE(fs::is_symlink(folder("link of link")));
    EXPECT_EQ(folder.read("far/target"), content);
  }
}

TEST(ReplaceFile, RefusesWhatIsNoFile) {
  const TempFolder folder;
  EXPECT_EQ(numberOfFailure([&] { replaceFile(folder(), "x"); }), FailureNumber::PathFileAccess);
  EXPECT_EQ(numberOfFailure([&] { replaceFile("/dev/full", "x"); }), FailureNumber::PathFileAccess);
  folder.write("file", "");
  EXPECT_EQ(numberOfFailure([&] { replaceFile(folder("file/below"), "x"); }),
            FailureNumber::PathNotFound);
  EXPECT_EQ(numberOfFailure([&] { replaceFile(folder("none/below"), "x"); }),
            FailureNumber::PathNotFound);
  fs::create_symlink("ring", folder("ring"));
  EXPECT_EQ(failureOf([&] { replaceFile(folder("ring"), "x"); }).source(), folder("ring"));
}

TEST(ReplaceFile, WriteProtectedFileStaysAsItIs) {
  const TempFolder folder;
  folder.write("a", "one");
  fs::permissions(folder("a"), fs::perms::owner_read | fs::perms::others_read);
  fs::permissions(folder(), fs::perms::all);
  const FailureNumber number = numberOfFailure([&] {
    const WithoutRootRights somebody;
    replaceFile(folder("a"), "two");
  });
  EXPECT_EQ(number, FailureNumber::PermissionDenied);
  EXPECT_EQ(folder.read("a"), "one");
}

TEST(ReplaceWithBackup, KeepsWhatWasThereAndDropsStaleBackups) {
  const TempFolder folder;
  folder.write("a", "old a");
  folder.write("b~", "stale b");
  folder.write("c", "old c");
  const FileReplacement files[] = {
      {folder("a"), "new a"}, {folder("b"), "new b"}, {folder("c"), std::nullopt}};
  replaceWithBackup(files);
  EXPECT_EQ(folder.read("a"), "new a");
  EXPECT_EQ(folder.read("a~"), "old a");
  EXPECT_EQ(folder.read("b"), "new b");
  EXPECT_FALSE(folder.has("b~"));
  EXPECT_FALSE(folder.has("c"));
  EXPECT_EQ(folder.read("c~"), "old c");
  EXPECT_EQ(entriesOf(folder), 4U);
}

TEST(ReplaceWithBackup, FailureOfTheLastPutsTheFirstBack) {
  const TempFolder folder;
  folder.write("a", "old a");
  fs::create_directory(folder("c~"));
  folder.write("c", "old c");
  const FileReplacement files[] = {
      {folder("a"), "new a"}, {folder("b"), "new b"}, {folder("c"), "new c"}};
  EXPECT_EQ(failureOf([&] { replaceWithBackup(files); }).source(), folder("c~"));
  EXPECT_EQ(folder.read("a"), "old a");
  EXPECT_FALSE(folder.has("b"));
  EXPECT_EQ(folder.read("c"), "old c");
  EXPECT_EQ(entriesOf(folder), 3U);
}

}  // namespace
}  // namespace tess
