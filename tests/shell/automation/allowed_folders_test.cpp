// What a script may touch: real places count, not how a path is written.
#include "shell/automation/allowed_folders.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

#include "gtest/gtest.h"

#include "core/descriptor.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class AllowedFoldersTest : public ::testing::Test {
 protected:
  AllowedFoldersTest() {
    fs::create_directories(root("inside/deeper"));
    fs::create_directories(root("inside2"));
    fs::create_directories(root("outside"));
    folders.allow(root("inside"));
  }
  bool allows(const std::string& path) const { return !folders.refusal(path).has_value(); }

  TempFolder root;
  AllowedFolders folders;
};

TEST_F(AllowedFoldersTest, OpenFoldersAndWhatLiesBelowThem) {
  EXPECT_TRUE(allows(root("inside/part.cdm")));
  EXPECT_TRUE(allows(root("inside/deeper/part.cdm")));
  EXPECT_TRUE(allows(root("inside/deeper/../part.cdm")));
  EXPECT_TRUE(allows(root("INSIDE/part.cdm"))) << "names are looked up without regard to case";
}

TEST_F(AllowedFoldersTest, NothingElse) {
  EXPECT_FALSE(allows(root("outside/part.cdm")));
  EXPECT_FALSE(allows(root("inside/../outside/part.cdm")));
  EXPECT_FALSE(allows(root("inside/..\\outside\\part.cdm")));
  EXPECT_FALSE(allows(root("inside2/part.cdm"))) << "the beginning of a name is not the folder";
  EXPECT_FALSE(allows(root("nowhere/part.cdm")));
  EXPECT_FALSE(allows(std::string(root("inside/part.cdm")) + '\0' + "x"));
  EXPECT_FALSE(allows(""));
}

TEST_F(AllowedFoldersTest, LinksCountAsWhereTheyLead) {
  fs::create_directory_symlink(root("outside"), root("inside/folder"));
  fs::create_symlink(root("outside/part.cdm"), root("inside/dangling.cdm"));
  fs::create_symlink(root("inside/deeper/real.cdm"), root("outside/back.cdm"));
  root.write("inside/deeper/real.cdm", "");
  EXPECT_FALSE(allows(root("inside/folder/part.cdm")));
  EXPECT_FALSE(allows(root("inside/dangling.cdm"))) << "a write would make the file outside";
  EXPECT_TRUE(allows(root("outside/back.cdm")));
}

TEST_F(AllowedFoldersTest, CompanionsThatLeadOutsideAreRefusedToo) {
  root.write("outside/secret", "");
  fs::create_symlink(root("outside/secret"), root("inside/PART.TPM"));
  EXPECT_FALSE(allows(root("inside/part.cdm"))) << "its path file would be written";
  EXPECT_TRUE(allows(root("inside/other.cdm")));
}

TEST_F(AllowedFoldersTest, TheRefusalNamesThePath) {
  EXPECT_EQ(folders.refusal(root("outside/part.cdm")),
            "'" + root("outside/part.cdm") +
                "' is outside the folders that this script may use: those named on the command "
                "line, the script's own and the drawing folder");
}

TEST_F(AllowedFoldersTest, ArgumentsNameFoldersAndFilesWithTheirFolder) {
  folders.allowNamedBy(root("outside"));
  EXPECT_TRUE(allows(root("outside/part.cdm")));
  EXPECT_FALSE(allows(root("inside2/part.cdm")));
  root.write("inside2/old.cdm", "");
  folders.allowNamedBy(root("inside2/old.cdm"));
  EXPECT_TRUE(allows(root("inside2/part.cdm")));
}

TEST_F(AllowedFoldersTest, WhatIsNotThereOpensNothing) {
  folders.allowNamedBy(root("outside/new.cdm"));
  folders.allowNamedBy(root("nowhere/new.cdm"));
  EXPECT_FALSE(allows(root("outside/part.cdm")));
  fs::create_symlink("nowhere", root("outside/dangling"));
  folders.allowNamedBy(root("outside/dangling"));
  EXPECT_FALSE(allows(root("outside/part.cdm")));
}

TEST_F(AllowedFoldersTest, WhatIsNeitherFileNorFolderOpensNothing) {
  ASSERT_EQ(::mkfifo(root("outside/pipe").c_str(), 0600), 0);
  folders.allowNamedBy(root("outside/pipe"));
  EXPECT_FALSE(allows(root("outside/part.cdm")));
}

TEST_F(AllowedFoldersTest, NoArgumentOpensTheRoot) {
  for (const char* argument : {"/5", "/", "//", "/.", "/tmp/..", "\\5"}) {
    folders.allowNamedBy(argument);
    EXPECT_FALSE(allows(root("outside/part.cdm"))) << argument;
  }
}

TEST_F(AllowedFoldersTest, AnOpenDescriptorTellsWhereItReallyIs) {
  const auto holds = [this](const std::string& folder) {
    const Descriptor opened(::open(folder.c_str(), O_PATH | O_DIRECTORY));
    return folders.holds(opened.number());
  };
  fs::create_directory_symlink(root("outside"), root("inside/link"));
  EXPECT_TRUE(holds(root("inside")));
  EXPECT_TRUE(holds(root("inside/deeper")));
  EXPECT_FALSE(holds(root("inside/link")));
  EXPECT_FALSE(holds(root("inside2")));
  EXPECT_FALSE(holds(root()));
  EXPECT_FALSE(holds("/"));
}

TEST_F(AllowedFoldersTest, PlainArgumentsOpenNothing) {
  for (const char* argument : {"4", "", "part.cdm", "1/2", "--fast"}) {
    folders.allowNamedBy(argument);
    EXPECT_FALSE(allows(root("outside/part.cdm"))) << argument;
    EXPECT_FALSE(allows("part.cdm")) << argument;
  }
}

TEST_F(AllowedFoldersTest, SetupsOfTheProgramsFolderAreReadAndNothingElseOfIt) {
  folders.setProgramFolder(root("outside"));
  fs::create_directories(root("outside/deeper"));
  root.write("outside/lathe.msu", "");
  fs::create_symlink(root("inside2/secret"), root("outside/link.msu"));
  EXPECT_FALSE(folders.refusalToRead(root("outside/lathe.msu")).has_value());
  EXPECT_FALSE(folders.refusalToRead(root("inside/part.cdm")).has_value());
  EXPECT_TRUE(folders.refusal(root("outside/lathe.msu")).has_value()) << "it is not written";
  for (const char* path : {"outside/part.cdm", "outside/deeper/other.msu", "outside/link.msu"}) {
    EXPECT_TRUE(folders.refusalToRead(root(path)).has_value()) << path;
  }
}

}  // namespace
}  // namespace tess
