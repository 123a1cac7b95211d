// Writing and removing files: links, permissions, what a failure and what a dead process leaves,
// and the guard that is asked about the very folder.
#include "core/file_writer.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/failure_of.h"
#include "tests/support/full_disk.h"
#include "tests/support/temp_folder.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::failureOf;
using testing::FullDisk;
using testing::numberOfFailure;
using testing::TempFolder;
using testing::WithoutRootRights;

// The entry that an open descriptor stands for.
fs::path placeOf(int descriptor) {
  return fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor));
}

// Trusts no link, writes down what it is asked, and refuses what `onRequire` throws at.
class StrictGuard : public WriteGuard {
 public:
  bool trustsLinks() const override { return false; }
  void require(const FileWrite& write) override {
    asked.push_back((placeOf(write.folder) / write.name).string());
    kinds.push_back(write.kind);
    if (onRequire) onRequire(write);
  }
  bool permits(const FileWrite& /*write*/) const override { return !onRequire; }

  std::function<void(const FileWrite&)> onRequire;
  std::vector<std::string> asked;
  std::vector<FileKind> kinds;
};

std::vector<std::string> entriesOf(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

void write(const std::string& path, std::string_view content) {
  NoGuard nobody;
  writeFile(nobody, path, FileKind::Record, content);
}

TEST(WriteFile, WritesNewAndOldFilesAndLeavesNothingElse) {
  const TempFolder folder;
  write(folder("a"), "one");
  write(folder("A"), "two");
  EXPECT_EQ(folder.read("a"), "two") << "a name of other case is the same file";
  EXPECT_THAT(entriesOf(folder()), ElementsAre("a"));
}

TEST(WriteFile, NewFileHasOrdinaryPermissions) {
  const TempFolder folder;
  folder.write("ordinary", "x");
  write(folder("new"), "x");
  EXPECT_EQ(fs::status(folder("new")).permissions(), fs::status(folder("ordinary")).permissions());
}

TEST(WriteFile, KeepsThePermissionsOfTheOldFile) {
  const TempFolder folder;
  folder.write("a", "one");
  const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_exec;
  fs::permissions(folder("a"), permissions);
  write(folder("a"), "two");
  EXPECT_EQ(fs::status(folder("a")).permissions(), permissions);
}

TEST(WriteFile, FollowsLinksAlsoToWhatIsNotThereYet) {
  const TempFolder folder;
  fs::create_directory(folder("far"));
  fs::create_symlink("far/target", folder("link"));
  fs::create_symlink(folder("link"), folder("link of link"));
  for (const char* content : {"one", "two"}) {
    write(folder("link of link"), content);
    EXPECT_TRUE(fs::is_symlink(folder("link")));
    EXPECT_TRUE(fs::is_symlink(folder("link of link")));
    EXPECT_EQ(folder.read("far/target"), content);
  }
}

TEST(WriteFile, RefusesWhatIsNoFile) {
  const TempFolder folder;
  EXPECT_EQ(numberOfFailure([&] { write(folder(), "x"); }), FailureNumber::PathFileAccess);
  EXPECT_EQ(numberOfFailure([&] { write("/dev/full", "x"); }), FailureNumber::PathFileAccess);
  folder.write("file", "");
  EXPECT_EQ(numberOfFailure([&] { write(folder("file/below"), "x"); }),
            FailureNumber::PathNotFound);
  EXPECT_EQ(numberOfFailure([&] { write(folder("none/below"), "x"); }),
            FailureNumber::PathNotFound);
  fs::create_symlink("ring", folder("ring"));
  EXPECT_EQ(failureOf([&] { write(folder("ring"), "x"); }).source(), folder("ring"));
}

TEST(WriteFile, WriteProtectedFileStaysAsItIs) {
  const TempFolder folder;
  folder.write("a", "one");
  fs::permissions(folder("a"), fs::perms::owner_read | fs::perms::others_read);
  fs::permissions(folder(), fs::perms::all);
  const FailureNumber number = numberOfFailure([&] {
    const WithoutRootRights somebody;
    write(folder("a"), "two");
  });
  EXPECT_EQ(number, FailureNumber::PermissionDenied);
  EXPECT_EQ(folder.read("a"), "one");
}

TEST(WriteFile, RefusesPipesAtOnce) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo(folder("pipe").c_str(), 0600), 0);
  EXPECT_EQ(numberOfFailure([&] { write(folder("pipe"), "x"); }), FailureNumber::PathFileAccess);
  EXPECT_TRUE(fs::is_fifo(folder("pipe")));
}

TEST(WriteFile, NamesWithAZeroByteAreNoNames) {
  const TempFolder folder;
  EXPECT_EQ(numberOfFailure([&] { write(folder(std::string("a\0b", 3)), "x"); }),
            FailureNumber::PathNotFound);
  EXPECT_THAT(entriesOf(folder()), ElementsAre());
}

TEST(WriteFile, FullDiskLeavesTheOldFileAndNothingElse) {
  const TempFolder folder;
  folder.write("a", "good");
  const FailureNumber number = numberOfFailure([&] {
    const FullDisk disk(10);
    write(folder("a"), "more than ten characters");
  });
  EXPECT_EQ(number, FailureNumber::DiskFull);
  EXPECT_EQ(folder.read("a"), "good");
  EXPECT_THAT(entriesOf(folder()), ElementsAre("a"));
}

TEST(WriteFile, RemovesWhatDeadProcessesLeftAndNothingElse) {
  const TempFolder folder;
  const std::string mine = ".tessimo-" + std::to_string(::getpid()) + "-0.tmp";
  const std::vector<std::string> strangers{".tessimo-1-.tmp", ".tessimo--1.tmp",  ".tessimo-1-2.tm",
                                           ".tessimo-1.tmp",  ".tessimo-a-2.tmp", "tessimo-1-2.tmp",
                                           ".tessimo-.tmp"};
  for (const std::string& name : strangers) folder.write(name, "");
  folder.write(".tessimo-1-2.tmp", "");
  folder.write(mine, "left by a process that had the same number");
  fs::create_directory(folder(".tessimo-1-3.tmp"));
  write(folder("a"), "x");
  EXPECT_FALSE(folder.has(".tessimo-1-2.tmp"));
  EXPECT_FALSE(folder.has(mine));
  EXPECT_TRUE(folder.has(".tessimo-1-3.tmp")) << "a folder is none of ours";
  for (const std::string& name : strangers) EXPECT_TRUE(folder.has(name)) << name;
}

TEST(WriteFile, LeavesTheTemporaryFilesOfTheLivingAlone) {
  const TempFolder folder;
  NoGuard nobody;
  StagedFile staged(FilePlace(nobody, folder("a"), FileKind::Record), "staged");
  write(folder("b"), "x");
  staged.moveIntoPlace();
  EXPECT_EQ(folder.read("a"), "staged");
  EXPECT_THAT(entriesOf(folder()), ElementsAre("a", "b"));
}

TEST(WriteFile, AKilledProcessLeavesNothingBehindTheNextWrite) {
  const TempFolder folder;
  folder.write("a", "old");
  const pid_t child = ::fork();
  if (child == 0) {
    NoGuard nobody;
    const StagedFile staged(FilePlace(nobody, folder("a"), FileKind::Record), "staged");
    ::_exit(0);
  }
  ASSERT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_EQ(entriesOf(folder()).size(), 2U) << "the file, and the temporary one of the dead";
  EXPECT_EQ(folder.read("a"), "old");
  write(folder("a"), "new");
  EXPECT_THAT(entriesOf(folder()), ElementsAre("a"));
}

TEST(StagedFile, IsGoneUnlessItIsMovedIntoPlace) {
  const TempFolder folder;
  NoGuard nobody;
  {
    const StagedFile staged(FilePlace(nobody, folder("a"), FileKind::Record), "x");
    EXPECT_EQ(entriesOf(folder()).size(), 1U);
  }
  EXPECT_THAT(entriesOf(folder()), ElementsAre());
}

TEST(StagedFile, KnowsWhetherItReadsBackAsItWasWritten) {
  const TempFolder folder;
  NoGuard nobody;
  const std::string large(200000, 'x');
  const StagedFile staged(FilePlace(nobody, folder("a"), FileKind::Record), large);
  EXPECT_TRUE(staged.reads(large));
  EXPECT_FALSE(staged.reads(large + "x"));
  EXPECT_FALSE(staged.reads(large.substr(1)));
  const std::string temporary = entriesOf(folder()).front();
  folder.write(temporary, large.substr(1) + "y");
  EXPECT_FALSE(staged.reads(large));
}

TEST(FilePlaceAppend, AddsToTheEndAndCreates) {
  const TempFolder folder;
  NoGuard nobody;
  FilePlace(nobody, folder("log"), FileKind::Record).append("one\n");
  FilePlace(nobody, folder("LOG"), FileKind::Record).append("two\n");
  EXPECT_EQ(folder.read("log"), "one\ntwo\n");
}

TEST(FilePlaceAppend, RefusesWhatIsNoFile) {
  const TempFolder folder;
  NoGuard nobody;
  ASSERT_EQ(::mkfifo(folder("pipe").c_str(), 0600), 0);
  for (const char* name : {"pipe", "none/log"}) {
    EXPECT_THROW(FilePlace(nobody, folder(name), FileKind::Record).append("x"), RuntimeFailure)
        << name;
  }
}

TEST(FilePlaceAppend, FullDiskLeavesTheOldEnd) {
  const TempFolder folder;
  NoGuard nobody;
  folder.write("log", "one\n");
  const FailureNumber number = numberOfFailure([&] {
    const FullDisk disk(10);
    FilePlace(nobody, folder("log"), FileKind::Record).append("more than ten characters");
  });
  EXPECT_EQ(number, FailureNumber::DiskFull);
  EXPECT_EQ(folder.read("log"), "one\n");
}

TEST(RemoveFile, TakesAwayWhatIsThereAndNothingIsNoFailure) {
  const TempFolder folder;
  NoGuard nobody;
  folder.write("Old.TPM", "x");
  removeFile(nobody, folder("old.tpm"), FileKind::Companion);
  removeFile(nobody, folder("old.tpm"), FileKind::Companion);
  EXPECT_FALSE(folder.has("Old.TPM"));
}

TEST(RemoveFile, OfALinkTheLinkGoes) {
  const TempFolder folder;
  NoGuard nobody;
  folder.write("file", "x");
  fs::create_symlink("file", folder("link"));
  removeFile(nobody, folder("link"), FileKind::Drawing);
  EXPECT_THAT(entriesOf(folder()), ElementsAre("file"));
}

TEST(WriteGuard, IsAskedAboutTheFolderThatLinksLeadTo) {
  const TempFolder folder;
  fs::create_directories(folder("real/deeper"));
  fs::create_directory_symlink("real/deeper", folder("link"));
  fs::create_symlink(folder("link/target"), folder("a"));
  StrictGuard guard;
  writeFile(guard, folder("a"), FileKind::Program, "x");
  EXPECT_THAT(guard.asked, ElementsAre(fs::canonical(folder("real/deeper/target")).string()));
  EXPECT_THAT(guard.kinds, ElementsAre(FileKind::Program));
  EXPECT_EQ(folder.read("real/deeper/target"), "x");
}

TEST(WriteGuard, ItsRefusalLeavesEverythingAsItWas) {
  const TempFolder folder;
  folder.write("a", "old");
  StrictGuard guard;
  guard.onRequire = [](const FileWrite& write) { throw std::runtime_error(write.path); };
  EXPECT_THROW(writeFile(guard, folder("a"), FileKind::Program, "new"), std::runtime_error);
  EXPECT_THROW(removeFile(guard, folder("a"), FileKind::Program), std::runtime_error);
  EXPECT_EQ(folder.read("a"), "old");
  EXPECT_THAT(entriesOf(folder()), ElementsAre("a"));
}

// Whatever the path means once the guard has agreed, the folder is the one it was asked about.
TEST(WriteGuard, AFolderSwappedForALinkBehindItsBackIsNotFollowed) {
  const TempFolder folder;
  fs::create_directories(folder("allowed"));
  fs::create_directories(folder("forbidden"));
  StrictGuard guard;
  guard.onRequire = [&](const FileWrite& /*write*/) {
    fs::rename(folder("allowed"), folder("moved"));
    fs::create_directory_symlink("forbidden", folder("allowed"));
  };
  writeFile(guard, folder("allowed/a"), FileKind::Program, "x");
  EXPECT_EQ(folder.read("moved/a"), "x");
  EXPECT_THAT(entriesOf(folder("forbidden")), ElementsAre());
}

// A race that somebody else runs against every write: two folders change places all the time.
TEST(WriteGuard, NothingEverLandsInAForbiddenFolder) {
  constexpr int kWrites = 2000;
  const TempFolder folder;
  fs::create_directories(folder("forbidden"));
  fs::create_directories(folder("place"));
  fs::create_directory_symlink("forbidden", folder("link"));
  const fs::path forbidden = fs::canonical(folder("forbidden"));
  StrictGuard guard;
  guard.onRequire = [&](const FileWrite& write) {
    if (placeOf(write.folder) == forbidden) throw std::runtime_error("forbidden");
  };
  std::atomic<bool> done = false;
  std::thread swapper([&] {
    while (!done) {
      ::renameat2(AT_FDCWD, folder("place").c_str(), AT_FDCWD, folder("link").c_str(),
                  RENAME_EXCHANGE);
    }
  });
  int written = 0;
  for (int count = 0; count < kWrites; ++count) {
    try {
      writeFile(guard, folder("place/a"), FileKind::Program, "x");
      ++written;
    } catch (const std::exception&) {  // the guard's, or a folder that was a link just then
    }
  }
  done = true;
  swapper.join();
  EXPECT_GT(written, 0);
  EXPECT_THAT(entriesOf(folder("forbidden")), ElementsAre());
}

TEST(WriteGuard, IsAskedAboutEachNameInAnOpenFolder) {
  const TempFolder folder;
  StrictGuard guard;
  const FilePlace place(guard, folder("a.cdm"), FileKind::Drawing);
  const FilePlace backup = place.beside("a.cdm~", FileKind::Companion);
  EXPECT_TRUE(backup.sharesFolderWith(place));
  EXPECT_EQ(backup.path(), fs::canonical(folder()).string() + "/a.cdm~");
  EXPECT_THAT(guard.kinds, ElementsAre(FileKind::Drawing, FileKind::Companion));
}

// ---- Temporary files

class TemporaryFiles : public ::testing::Test {
 protected:
  TemporaryFiles() { ::setenv("TMPDIR", folder().c_str(), 1); }
  ~TemporaryFiles() override {
    before_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before_.c_str(), 1);
  }

  std::size_t count() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder()), fs::directory_iterator()));
  }

  TempFolder folder;

 private:
  static std::string setting() {
    const char* const set = std::getenv("TMPDIR");
    return set == nullptr ? "" : set;
  }
  const std::string before_ = setting();
};

TEST_F(TemporaryFiles, EachHasANameOfItsOwnAndIsGoneWhenItIsRemoved) {
  const std::string first = writeTemporaryFile("TMP", ".bmp", "one");
  const std::string second = writeTemporaryFile("TMP", ".bmp", "two");
  EXPECT_NE(first, second);
  for (const std::string& path : {first, second}) {
    EXPECT_TRUE(fs::equivalent(fs::path(path).parent_path(), folder()));
    EXPECT_TRUE(fs::path(path).filename().string().starts_with("TMP"));
    EXPECT_EQ(fs::path(path).extension(), ".bmp");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  }
  EXPECT_EQ(readFile(first), "one");
  EXPECT_EQ(readFile(second), "two");
  removeTemporaryFile(first);
  removeTemporaryFile(second);
  removeTemporaryFile(second);  // gone already
  EXPECT_EQ(count(), 0U);
}

TEST_F(TemporaryFiles, AFullDiskLeavesNone) {
  const FullDisk disk(10);
  const RuntimeFailure failure =
      failureOf([] { writeTemporaryFile("TMP", ".bmp", std::string(100, 'x')); });
  EXPECT_EQ(failure.number(), FailureNumber::DiskFull);
  EXPECT_EQ(count(), 0U);
}

TEST_F(TemporaryFiles, AFolderThatIsNoneIsNamed) {
  ::setenv("TMPDIR", folder("missing").c_str(), 1);
  const RuntimeFailure failure = failureOf([] { writeTemporaryFile("TMP", ".bmp", ""); });
  EXPECT_EQ(failure.number(), FailureNumber::PathNotFound);
  EXPECT_EQ(failure.source(), "the folder for temporary files (TMPDIR)");
}

}  // namespace
}  // namespace tess
