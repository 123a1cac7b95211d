// Growing files: when they are there, what a failure leaves of them, and who may claim one.
#include "core/growing_file.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "gtest/gtest.h"

#include "core/file_writer.h"
#include "tests/support/failure_of.h"
#include "tests/support/full_disk.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/shared_memory.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::FullDisk;
using testing::numberOfFailure;
using testing::TempFolder;

struct GrowingFolder : TempFolder {
  GrowingFile grow(std::string_view begin) {
    return {FilePlace(nobody, path(), FileKind::Record), begin};
  }
  std::string path() const { return (*this)("journal"); }
  std::optional<AbandonedFile> claim() const { return AbandonedFile::claim(path()); }

  NoGuard nobody;
};

void inAProcessThatDies(const std::function<void()>& work) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    work();
    ::_exit(0);
  }
  ASSERT_EQ(::waitpid(child, nullptr, 0), child);
}

TEST(GrowingFile, BeginsAndGrows) {
  GrowingFolder folder;
  GrowingFile file = folder.grow("one ");
  file.append("two ");
  file.flush();
  file.append("three");
  EXPECT_EQ(folder.read("journal"), "one two three");
  EXPECT_EQ(file.size(), 13U);
}

TEST(GrowingFile, TakesThePlaceOfTheOneBefore) {
  GrowingFolder folder;
  folder.write("journal", "old");
  GrowingFile file = folder.grow("new");
  file.append("er");
  EXPECT_EQ(folder.read("journal"), "newer");
}

TEST(GrowingFile, AFullDiskLeavesTheOneBeforeAndNothingElse) {
  GrowingFolder folder;
  folder.write("journal", "old");
  const FailureNumber number = numberOfFailure([&] {
    const FullDisk disk(4);
    folder.grow("much too long");
  });
  EXPECT_EQ(number, FailureNumber::DiskFull);
  EXPECT_EQ(folder.read("journal"), "old");
  const std::filesystem::directory_iterator entries(folder());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST(GrowingFile, AFullDiskLeavesTheEndWhereItWas) {
  GrowingFolder folder;
  GrowingFile file = folder.grow("one");
  const FailureNumber number = numberOfFailure([&] {
    const FullDisk disk(5);
    file.append("much too long");
  });
  EXPECT_EQ(number, FailureNumber::DiskFull);
  EXPECT_EQ(folder.read("journal"), "one");
  file.append("two");
  EXPECT_EQ(folder.read("journal"), "onetwo");
}

TEST(AbandonedFile, IsThereOnceTheProcessIsGone) {
  GrowingFolder folder;
  inAProcessThatDies([&] {
    GrowingFile file = folder.grow("left ");
    file.append("behind");
    ::_exit(0);
  });
  const auto abandoned = folder.claim();
  ASSERT_TRUE(abandoned);
  EXPECT_EQ(abandoned->path(), folder.path());
  EXPECT_EQ(abandoned->read(), "left behind");
  EXPECT_FALSE(folder.claim()) << "one claim at a time";
  abandoned->remove(folder.nobody);
  EXPECT_FALSE(folder.has("journal"));
}

TEST(AbandonedFile, IsNoneWhileItsProcessLives) {
  GrowingFolder folder;
  const GrowingFile file = folder.grow("mine");
  EXPECT_FALSE(folder.claim());
}

TEST(AbandonedFile, IsNoneWhereThereIsNoFile) {
  GrowingFolder folder;
  EXPECT_FALSE(folder.claim());
  std::filesystem::create_directory(folder.path());
  EXPECT_FALSE(folder.claim());
  std::filesystem::remove(folder.path());
  std::filesystem::create_symlink(folder.write("other", "text"), folder.path());
  EXPECT_FALSE(folder.claim());
  std::filesystem::remove(folder.path());
  ASSERT_EQ(::mkfifo(folder.path().c_str(), 0600), 0);
  EXPECT_FALSE(folder.claim());
}

// A process that puts a new file in the place of its old one lets go of the old one.
TEST(AbandonedFile, IsNoneWhileItsProcessReplacesIt) {
  GrowingFolder folder;
  std::optional<GrowingFile> file(folder.grow("one"));
  auto& claims = testing::sharedWithChildren<std::atomic<int>>();
  int call = 1;
  for (bool reached = true; reached; ++call) {
    reached = testing::interleavedAt(
        call, [&] { file = folder.grow("another"); },
        [&] {
          file.reset();  // a child has the files of its parent open too
          if (folder.claim()) ++claims;
        });
  }
  EXPECT_GT(call, 3) << "it opens the file and locks it";
  EXPECT_EQ(claims, 0);
}

}  // namespace
}  // namespace tess
