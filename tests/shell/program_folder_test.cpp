// Which folder is the program's, and how a new user's is filled.
#include "shell/program_folder.h"

#include <filesystem>
#include <map>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class ProgramFolder : public ::testing::Test {
 protected:
  ProgramFolder() {
    for (const char* folder : {"home", "named", "bin", "share/tessimo", "data", "user"}) {
      fs::create_directories(root(folder));
    }
    root.write("share/tessimo/tess.def", "shipped");
    root.write("share/tessimo/mill.msu", "shipped");
    request.executableFolder = root("bin/");
    request.environment = [this](const char* name) -> std::optional<std::string> {
      const auto found = variables.find(name);
      if (found == variables.end()) return std::nullopt;
      return found->second;
    };
  }

  TempFolder root;
  std::map<std::string, std::string> variables;
  FolderRequest request;
};

TEST_F(ProgramFolder, TheOptionComesFirst) {
  request.home = root("home");
  variables["TESSIMO_HOME"] = root("named");
  root.write("bin/tess.def", "");
  EXPECT_EQ(programFolder(request), root("home/"));
}

TEST_F(ProgramFolder, ThenTheVariable) {
  variables["TESSIMO_HOME"] = root("named");
  root.write("bin/tess.def", "");
  EXPECT_EQ(programFolder(request), root("named/"));
}

TEST_F(ProgramFolder, ThenTheProgramsOwnFolderWhenItHoldsASetup) {
  variables["XDG_DATA_HOME"] = root("data");
  root.write("bin/tess.def", "");
  EXPECT_EQ(programFolder(request), root("bin/"));
}

TEST_F(ProgramFolder, ThenTheUsersFolderFilledTheFirstTime) {
  variables["XDG_DATA_HOME"] = root("data");
  EXPECT_EQ(programFolder(request), root("data/tessimo/"));
  EXPECT_EQ(root.read("data/tessimo/tess.def"), "shipped");
  EXPECT_EQ(root.read("data/tessimo/mill.msu"), "shipped");
  root.write("data/tessimo/mill.msu", "changed");
  root.write("share/tessimo/new.msu", "");
  EXPECT_EQ(programFolder(request), root("data/tessimo/"));
  EXPECT_EQ(root.read("data/tessimo/mill.msu"), "changed");
  EXPECT_FALSE(root.has("data/tessimo/new.msu")) << "it is filled once";
}

TEST_F(ProgramFolder, FillingKeepsWhatIsThere) {
  variables["XDG_DATA_HOME"] = root("data");
  fs::create_directory(root("data/tessimo"));
  root.write("data/tessimo/mill.msu", "changed");
  programFolder(request);
  EXPECT_EQ(root.read("data/tessimo/mill.msu"), "changed");
  EXPECT_EQ(root.read("data/tessimo/tess.def"), "shipped");
}

// A newer program brings newer ones.
TEST_F(ProgramFolder, ManualAndExamplesStayWhereTheyAreInstalled) {
  variables["XDG_DATA_HOME"] = root("data");
  fs::create_directories(root("share/tessimo/examples"));
  root.write("share/tessimo/examples/plate.cdm", "");
  programFolder(request);
  EXPECT_TRUE(root.has("data/tessimo/mill.msu"));
  EXPECT_FALSE(fs::exists(root("data/tessimo/examples")));
}

TEST_F(ProgramFolder, HelpIsThatOfTheInstallationElseOfTheTrees) {
  const HelpFiles installed = helpFiles(root("bin/"));
  EXPECT_EQ(installed.manual, root("bin/../share/tessimo/help/tsmo_manual.pdf"));
  EXPECT_EQ(installed.examples, root("bin/../share/tessimo/examples/"));
  const HelpFiles built = helpFiles(root("home/bin/"));
  EXPECT_TRUE(built.manual.ends_with("/manual/tsmo_manual.pdf")) << built.manual;
  EXPECT_EQ(built.examples, TESSIMO_SOURCE_DIR "/examples/");
  EXPECT_TRUE(fileExists(built.examples + "bracket.cdm"));
}

TEST_F(ProgramFolder, AFolderFilledEarlierGetsTheDatabase) {
  variables["XDG_DATA_HOME"] = root("data");
  programFolder(request);
  EXPECT_FALSE(root.has("data/tessimo/SpeedsFeeds.MDB"));
  root.write("share/tessimo/SpeedsFeeds.MDB", "tables");
  programFolder(request);
  EXPECT_EQ(root.read("data/tessimo/SpeedsFeeds.MDB"), "tables");
  root.write("data/tessimo/SpeedsFeeds.MDB", "others");
  programFolder(request);
  EXPECT_EQ(root.read("data/tessimo/SpeedsFeeds.MDB"), "others") << "the operator's own stays";
}

TEST_F(ProgramFolder, ADatabaseOfAnyCaseIsTheOne) {
  variables["XDG_DATA_HOME"] = root("data");
  root.write("share/tessimo/SpeedsFeeds.MDB", "tables");
  fs::create_directory(root("data/tessimo"));
  root.write("data/tessimo/tess.def", "");
  root.write("data/tessimo/speedsfeeds.mdb", "others");
  programFolder(request);
  EXPECT_EQ(root.read("data/tessimo/speedsfeeds.mdb"), "others");
  EXPECT_FALSE(fs::exists(root("data/tessimo/SpeedsFeeds.MDB")));
}

TEST_F(ProgramFolder, AFolderInTheDatabasesPlaceIsLeftAlone) {
  variables["XDG_DATA_HOME"] = root("data");
  programFolder(request);
  root.write("share/tessimo/SpeedsFeeds.MDB", "tables");
  fs::create_directory(root("data/tessimo/SpeedsFeeds.MDB"));
  EXPECT_EQ(programFolder(request), root("data/tessimo/"));
  EXPECT_TRUE(folderExists(root("data/tessimo/SpeedsFeeds.MDB")));
}

// ---- Controls

class ControlsFolder : public ProgramFolder {
 protected:
  ControlsFolder() { variables["XDG_DATA_HOME"] = root("data"); }

  void shipControls() {
    root.write("share/tessimo/controls.txt", "Mill,mill.msu,new.msu\r\nLathe,lathe.msu,-\r\n");
    for (const char* name : {"new.msu", "new.msx", "lathe.msu"}) {
      root.write("share/tessimo/" + std::string(name), "shipped");
    }
  }
};

TEST_F(ControlsFolder, AFolderFilledEarlierGetsTheirSetupsOnce) {
  programFolder(request);
  root.write("data/tessimo/mill.msu", "changed");
  shipControls();
  root.write("share/tessimo/mill.msx", "shipped");
  programFolder(request);
  for (const char* name : {"new.msu", "new.msx", "lathe.msu"}) {
    EXPECT_EQ(root.read("data/tessimo/" + std::string(name)), "shipped") << name;
  }
  EXPECT_EQ(root.read("data/tessimo/mill.msu"), "changed");
  EXPECT_FALSE(root.has("data/tessimo/mill.msx")) << "a setup of the operator's stays as it is";
  EXPECT_EQ(root.read("data/tessimo/controls.txt"), root.read("share/tessimo/controls.txt"));
  fs::remove(root("data/tessimo/new.msu"));
  programFolder(request);
  EXPECT_FALSE(root.has("data/tessimo/new.msu")) << "what the operator removes stays away";
}

TEST_F(ControlsFolder, AddingThatWasCutShortGoesOn) {
  programFolder(request);
  shipControls();
  fs::create_symlink(root("none/lathe.msu"), root("data/tessimo/lathe.msu"));
  EXPECT_EQ(programFolder(request), root("data/tessimo/")) << "it is no failure";
  EXPECT_FALSE(root.has("data/tessimo/controls.txt"));
  fs::remove(root("data/tessimo/lathe.msu"));
  programFolder(request);
  EXPECT_EQ(root.read("data/tessimo/lathe.msu"), "shipped");
  EXPECT_TRUE(root.has("data/tessimo/controls.txt"));
}

TEST_F(ControlsFolder, ADamagedShippedListIsPassedOver) {
  programFolder(request);
  root.write("share/tessimo/controls.txt", "Mill,mill.msu");
  EXPECT_EQ(programFolder(request), root("data/tessimo/"));
  EXPECT_FALSE(root.has("data/tessimo/controls.txt"));
}

TEST_F(ControlsFolder, TheFirstStartIsThatOfAFolderFilledHere) {
  const std::string folder = programFolder(request);
  EXPECT_TRUE(isFirstStart(request, folder));
  EXPECT_TRUE(isFirstStart(request, programFolder(request))) << "until a window has asked";
  endFirstStart(folder);
  EXPECT_FALSE(isFirstStart(request, folder));
  EXPECT_FALSE(isFirstStart(request, programFolder(request)));
}

TEST_F(ControlsFolder, AFolderThatSomebodyNamesIsNeverAsked) {
  const std::string folder = programFolder(request);
  request.home = folder;
  EXPECT_FALSE(isFirstStart(request, folder));
  request.home.reset();
  variables["TESSIMO_HOME"] = folder;
  EXPECT_FALSE(isFirstStart(request, folder));
}

TEST_F(ControlsFolder, AFolderOfAnEarlierVersionIsNotAsked) {
  fs::create_directory(root("data/tessimo"));
  root.write("data/tessimo/tess.def", "");
  EXPECT_FALSE(isFirstStart(request, programFolder(request)));
}

TEST_F(ProgramFolder, NamedFoldersAreNotAddedTo) {
  root.write("share/tessimo/SpeedsFeeds.MDB", "tables");
  request.home = root("home");
  programFolder(request);
  EXPECT_FALSE(root.has("home/SpeedsFeeds.MDB"));
}

TEST_F(ProgramFolder, WithoutADataFolderTheUsualPlaceIsTaken) {
  variables["HOME"] = root("user");
  EXPECT_EQ(programFolder(request), root("user/.local/share/tessimo/"));
  variables["XDG_DATA_HOME"] = "relative";
  EXPECT_EQ(programFolder(request), root("user/.local/share/tessimo/"));
}

TEST_F(ProgramFolder, ANamedFolderMustExist) {
  request.home = root("none");
  try {
    programFolder(request);
    FAIL() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::PathNotFound);
    EXPECT_EQ(failure.source(), root("none"));
  }
}

TEST_F(ProgramFolder, AUserWithoutAnyPlaceIsToldTheRemedy) {
  try {
    programFolder(request);
    FAIL() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.description(), "There is no home folder; name one with --home");
  }
}

TEST_F(ProgramFolder, AFolderThatCannotBeFilledIsAFailure) {
  root.write("data/tessimo", "a file is in the way");
  variables["XDG_DATA_HOME"] = root("data");
  EXPECT_THROW(programFolder(request), RuntimeFailure);
}

TEST_F(ProgramFolder, AFillingThatWasCutShortGoesOnAtTheNextStart) {
  variables["XDG_DATA_HOME"] = root("data");
  root.write("share/tessimo/zz.msu", "shipped");
  fs::create_directory(root("data/tessimo"));
  fs::create_symlink(root("none/zz.msu"), root("data/tessimo/zz.msu"));
  EXPECT_THROW(programFolder(request), RuntimeFailure);
  EXPECT_FALSE(root.has("data/tessimo/tess.def")) << "the folder does not count as filled";
  fs::remove(root("data/tessimo/zz.msu"));
  EXPECT_EQ(programFolder(request), root("data/tessimo/"));
  EXPECT_EQ(root.read("data/tessimo/zz.msu"), "shipped");
  EXPECT_EQ(root.read("data/tessimo/tess.def"), "shipped");
}

TEST_F(ProgramFolder, TheDrawingFolderIsMade) {
  request.home = root("home");
  programFolder(request);
  EXPECT_TRUE(folderExists(root("home/CNC")));
  EXPECT_EQ(root.read("home/CNC/TSMO.MRU"), "") << "an empty list of recent files";
  fs::create_directory(root("named/cnc"));
  request.home = root("named");
  programFolder(request);
  EXPECT_FALSE(fs::exists(root("named/CNC"))) << "one that differs in case is the one";
}

TEST_F(ProgramFolder, ABuildFindsTheDataOfItsSources) {
  EXPECT_EQ(shippedDataFolder(root("bin/")), root("bin/../share/tessimo/"));
  EXPECT_EQ(shippedDataFolder(root("elsewhere/")), TESSIMO_SOURCE_DIR "/data/");
}

TEST(FolderRequestOfThisProcess, KnowsItsExecutable) {
  const FolderRequest request = folderRequest("folder");
  EXPECT_EQ(request.home, "folder");
  EXPECT_TRUE(folderExists(request.executableFolder));
  EXPECT_TRUE(request.environment("PATH").has_value());
  EXPECT_FALSE(request.environment("TESSIMO_NO_SUCH_VARIABLE").has_value());
}

}  // namespace
}  // namespace tess
