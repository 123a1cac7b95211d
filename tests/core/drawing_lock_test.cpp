// Locks between processes: who holds them, when they go, and where there are none.
#include "core/drawing_lock.h"

#include <chrono>
#include <filesystem>
#include <optional>

#include "gtest/gtest.h"

#include "tests/support/other_process.h"
#include "tests/support/temp_folder.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::OtherProcess;
using testing::TempFolder;
using testing::WithoutRootRights;
using Waiting = FolderLock::Waiting;

TEST(FolderLock, IsHeldUntilItGoes) {
  const TempFolder folder;
  {
    const FolderLock lock(folder());
    EXPECT_TRUE(lock.isHeld());
    const FolderLock second(folder(), Waiting::NotAtAll);
    EXPECT_TRUE(second.isBusy());
    EXPECT_FALSE(second.isHeld());
  }
  EXPECT_TRUE(FolderLock(folder(), Waiting::NotAtAll).isHeld());
  EXPECT_TRUE(fs::is_empty(folder())) << "it leaves no file";
}

TEST(FolderLock, DiesWithItsProcess) {
  const TempFolder folder;
  std::optional<FolderLock> theirs;
  OtherProcess other([&] { theirs.emplace(folder()); });
  EXPECT_TRUE(FolderLock(folder(), Waiting::NotAtAll).isBusy());
  other.kill();
  EXPECT_TRUE(FolderLock(folder(), Waiting::NotAtAll).isHeld());
}

TEST(FolderLock, WaitsForAProcessThatIsAtItButNotForEver) {
  const TempFolder folder;
  std::optional<FolderLock> theirs;
  const OtherProcess other([&] { theirs.emplace(folder()); });
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(FolderLock(folder()).isBusy());
  const auto waited = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(waited, std::chrono::milliseconds(FolderLock::kLongestWait));
}

TEST(FolderLock, NeedsNoPermissionToWrite) {
  const TempFolder folder;
  fs::permissions(folder(), static_cast<fs::perms>(0555));
  {
    const WithoutRootRights somebody;
    EXPECT_TRUE(FolderLock(folder()).isHeld());
  }
  fs::permissions(folder(), fs::perms::owner_all);
}

TEST(FolderLock, WhereThereIsNoneNobodyIsHeldUp) {
  const FolderLock lock("/proc/no such folder");
  EXPECT_FALSE(lock.isHeld());
  EXPECT_FALSE(lock.isBusy());
}

TEST(DrawingPresence, ShowsOtherProcessesThatADrawingIsOpen) {
  const TempFolder folder;
  const std::string path = folder.write("a.cdm", "x");
  DrawingPresence theirs;
  OtherProcess other([&] { theirs.hold(path); });
  EXPECT_EQ(DrawingPresence::elsewhere(path), other.number());
  DrawingPresence mine;
  EXPECT_EQ(mine.hold(path), other.number());
  other.kill();
  EXPECT_EQ(DrawingPresence::elsewhere(path), std::nullopt) << "this process is not another";
}

TEST(DrawingPresence, GoesWithARelease) {
  const TempFolder folder;
  const std::string path = folder.write("a.cdm", "x");
  DrawingPresence theirs;
  const OtherProcess other([&] {
    theirs.hold(path);
    theirs.release();
  });
  EXPECT_EQ(DrawingPresence::elsewhere(path), std::nullopt);
}

TEST(DrawingPresence, MovesToAnotherFile) {
  const TempFolder folder;
  const std::string first = folder.write("a.cdm", "x");
  const std::string second = folder.write("b.cdm", "x");
  DrawingPresence theirs;
  const OtherProcess other([&] {
    theirs.hold(first);
    theirs.hold(second);
    theirs.hold(second);
  });
  EXPECT_EQ(DrawingPresence::elsewhere(first), std::nullopt);
  EXPECT_EQ(DrawingPresence::elsewhere(second), other.number());
}

TEST(DrawingPresence, WorksOnProtectedFilesAndSaysNothingAboutMissingOnes) {
  const TempFolder folder;
  const std::string path = folder.write("a.cdm", "x");
  fs::permissions(path, static_cast<fs::perms>(0444));
  fs::permissions(folder(), static_cast<fs::perms>(0555));
  {
    const WithoutRootRights somebody;
    DrawingPresence theirs;
    const OtherProcess other([&] { theirs.hold(path); });
    EXPECT_EQ(DrawingPresence::elsewhere(path), other.number());
    EXPECT_EQ(DrawingPresence::elsewhere(folder("gone")), std::nullopt);
    EXPECT_EQ(DrawingPresence().hold(folder("gone")), std::nullopt);
  }
  fs::permissions(folder(), fs::perms::owner_all);
}

}  // namespace
}  // namespace tess
