// Replacing files that belong together: backups, and what a failure leaves.
#include "core/replace_files.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::failureOf;
using testing::TempFolder;

std::size_t entriesOf(const TempFolder& folder) {
  const fs::directory_iterator entries(folder(""));
  return static_cast<std::size_t>(std::distance(fs::begin(entries), fs::end(entries)));
}

TEST(ReplaceWithBackup, KeepsWhatWasThereAndDropsStaleBackups) {
  const TempFolder folder;
  NoGuard nobody;
  folder.write("a", "old a");
  folder.write("b~", "stale b");
  folder.write("c", "old c");
  const FileReplacement files[] = {
      {folder("a"), "new a"}, {folder("b"), "new b"}, {folder("c"), std::nullopt}};
  replaceWithBackup(nobody, files);
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
  NoGuard nobody;
  folder.write("a", "old a");
  fs::create_directory(folder("c~"));
  folder.write("c", "old c");
  const FileReplacement files[] = {
      {folder("a"), "new a"}, {folder("b"), "new b"}, {folder("c"), "new c"}};
  EXPECT_EQ(failureOf([&] { replaceWithBackup(nobody, files); }).source(), folder("c~"));
  EXPECT_EQ(folder.read("a"), "old a");
  EXPECT_FALSE(folder.has("b"));
  EXPECT_EQ(folder.read("c"), "old c");
  EXPECT_EQ(entriesOf(folder), 3U);
}

}  // namespace
}  // namespace tess
