// Paths of both kinds, lookups without regard to case, and failures of files.
#include "core/file_system.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

#include "gtest/gtest.h"

#include "core/runtime_failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::failureOf;
using testing::numberOfFailure;
using testing::TempFolder;

struct SplitCase {
  const char* path;
  const char* ext;
  const char* folder;
  const char* name;
};

TEST(SplitPath, TakesFolderAndDefaultOrForcedExtension) {
  const SplitCase cases[] = {
      {" C:\\work\\part.txt ", ".CDM", "C:\\work\\", "part.CDM"},
      {"C:\\work\\part", "CDM", "C:\\work\\", "part.CDM"},
      {"C:\\work\\part.old", "CDM", "C:\\work\\", "part.old"},
      {"work/part.a.b", ".CNC", "work/", "part.a.CNC"},
      {"c:part", "CDM", "c:", "part.CDM"},
      {"part", "CDM", "before", "part.CDM"},
      {"", "CDM", "before", ""},
      {"folder/", "CDM", "folder/", ""},
  };
  for (const SplitCase& c : cases) {
    std::string folder = "before";
    EXPECT_EQ(splitPath(folder, c.path, c.ext), c.name) << c.path;
    EXPECT_EQ(folder, c.folder) << c.path;
  }
}

TEST(FileNameOf, IsThePartBehindTheLastSeparatorOrColon) {
  EXPECT_EQ(fileNameOf("C:\\work\\part.cdm"), "part.cdm");
  EXPECT_EQ(fileNameOf("work/part"), "part");
  EXPECT_EQ(fileNameOf("c:part"), "part");
  EXPECT_EQ(fileNameOf("part"), "part");
  EXPECT_EQ(fileNameOf("work/"), "");
}

TEST(FileSystem, FullPathStartsAtTheWorkingFolder) {
  const TempFolder folder;
  folder.write("Part.cdm", "x");
  EXPECT_EQ(fullPath(folder("PART.CDM")), folder("Part.cdm"));
  EXPECT_EQ(fullPath("no such.cdm"),
            withSeparator(std::filesystem::current_path().string()) + "no such.cdm");
}

TEST(FileSystem, NamesThatDifferOnlyInCaseAreMeant) {
  const TempFolder folder;
  std::filesystem::create_directory(folder("Parts"));
  folder.write("Parts/Bracket.Cdm", "x");
  EXPECT_EQ(resolvePath(folder("PARTS\\BRACKET.CDM")), folder("Parts/Bracket.Cdm"));
  EXPECT_TRUE(fileExists(folder("parts/bracket.cdm")));
  EXPECT_TRUE(folderExists(folder("PARTS\\")));
  EXPECT_EQ(resolvePath(folder("PARTS/new.cdm")), folder("Parts/new.cdm"));
  EXPECT_EQ(readFile(folder("PARTS/bracket.CDM")), "x");
}

TEST(FileSystem, ExactNameWinsOverOneOfOtherCase) {
  const TempFolder folder;
  folder.write("a.cdm", "lower");
  std::filesystem::path upper = folder("A.CDM");
  std::filesystem::copy_file(folder("a.cdm"), upper);
  EXPECT_EQ(resolvePath(folder("A.CDM")), folder("A.CDM"));
  EXPECT_EQ(resolvePath(folder("a.cdm")), folder("a.cdm"));
  EXPECT_EQ(resolvePath(folder("A.cdm")), folder("A.CDM"));
}

TEST(FileSystem, FoldersAreNoFiles) {
  const TempFolder folder;
  EXPECT_FALSE(fileExists(folder()));
  EXPECT_FALSE(fileExists(""));
  EXPECT_FALSE(folderExists(""));
}

TEST(FileSystem, FailuresCarryTheirNumbers) {
  const TempFolder folder;
  folder.write("file", "");
  EXPECT_EQ(numberOfFailure([&] { readFile(folder("none")); }), FailureNumber::FileNotFound);
  EXPECT_EQ(numberOfFailure([&] { readFile(folder()); }), FailureNumber::PathFileAccess);
  EXPECT_EQ(numberOfFailure([&] { readFile(folder("file/below")); }), FailureNumber::PathNotFound);
  EXPECT_EQ(numberOfFailure([&] { readFile(folder(std::string(300, 'x'))); }),
            FailureNumber::PathNotFound);
  EXPECT_EQ(numberOfFailure([] { raiseFileFailure(EIO, "x"); }), FailureNumber::DeviceInputOutput);
}

TEST(FileSystem, PipesAndDevicesAreRefusedAtOnce) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo(folder("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("pipe", folder("link"));
  for (const char* name : {"pipe", "link"}) {
    const RuntimeFailure failure = failureOf([&] { readFile(folder(name)); });
    EXPECT_EQ(failure.number(), FailureNumber::PathFileAccess);
    EXPECT_EQ(failure.description(), "Path/File access error (it is a pipe)");
    EXPECT_EQ(failure.source(), folder(name));
  }
  EXPECT_EQ(failureOf([] { readFile("/dev/zero"); }).description(),
            "Path/File access error (it is a device)");
  EXPECT_EQ(failureOf([&] { readFile(folder()); }).description(), "Path/File access error");
}

TEST(FileSystem, TooLargeFilesAreRefusedBeforeTheyAreRead) {
  const TempFolder folder;
  folder.write("full", std::string(1000, 'x'));
  EXPECT_EQ(readFile(folder("full"), 1000).size(), 1000U);
  const RuntimeFailure failure = failureOf([&] { readFile(folder("full"), 999); });
  EXPECT_EQ(failure.number(), FailureNumber::PathFileAccess);
  EXPECT_EQ(failure.description(), "The file is too large (1000 bytes, at most 999)");
  EXPECT_EQ(failure.source(), folder("full"));
  folder.write("huge", "");
  std::filesystem::resize_file(folder("huge"), std::uintmax_t{1} << 40);  // takes no room
  EXPECT_EQ(numberOfFailure([&] { readFile(folder("huge")); }), FailureNumber::PathFileAccess);
}

// The kernel's files have no size until they are read.
TEST(FileSystem, FilesOfUnknownSizeAreReadToTheirEnd) {
  const std::string whole = readFile("/proc/self/maps");
  EXPECT_GT(whole.size(), 100U);
  EXPECT_EQ(numberOfFailure([] { readFile("/proc/self/maps", 10); }),
            FailureNumber::PathFileAccess);
}

TEST(FileSystem, TheBeginningOfAFile) {
  const TempFolder folder;
  folder.write("a", "abcdef");
  folder.write("empty", "");
  EXPECT_EQ(readBeginning(folder("A"), 4), "abcd");
  EXPECT_EQ(readBeginning(folder("a"), 10), "abcdef");
  EXPECT_EQ(readBeginning(folder("empty"), 10), "");
  EXPECT_EQ(numberOfFailure([&] { readBeginning(folder(), 1); }), FailureNumber::PathFileAccess);
}

TEST(FileSystem, LinksAndOtherNamesAreTheSameFile) {
  const TempFolder folder;
  folder.write("a", "x");
  folder.write("b", "x");
  std::filesystem::create_symlink("a", folder("link"));
  std::filesystem::create_hard_link(folder("a"), folder("name"));
  for (const char* same : {"a", "A", "link", "name", "./a"}) {
    EXPECT_TRUE(isSameFile(folder("a"), folder(same))) << same;
  }
  EXPECT_FALSE(isSameFile(folder("a"), folder("b")));
  EXPECT_FALSE(isSameFile(folder("a"), folder("none")));
  EXPECT_FALSE(isSameFile(folder("none"), folder("none")));
}

}  // namespace
}  // namespace tess
