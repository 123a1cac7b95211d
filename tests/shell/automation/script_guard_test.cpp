// What scripts may write, asked at the write itself: whatever a handler changes in between, and
// whichever tool saves.
#include "shell/automation/script_guard.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_writer.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

// A drawing with a path row and unsaved work.
const char kPart[] =
    "add_segment{type=1, x1=2} add_path{type=1, x1=2, z=-0.25, feed=10, code=100} ";

class ScriptGuardTest : public ::testing::Test, public testing::ScriptRun {
 protected:
  // Answers the question about unsaved work, after it has pointed the store to another file.
  std::string swapping(const std::string& target) const {
    const std::string name = fs::path(target).filename().string();
    const std::string path = target.substr(0, target.size() - name.size());
    return std::string(kPart) + "store.drawingsaved = false on_message(function(text) " +
           "if text ~= 'Drawing not saved! Save now?' then return nil end " +
           "store.drawingpath = [[" + path + "]] store.drawingname = [[" + name +
           "]] return 'Yes' end) ";
  }
  // The error of a statement that names the path of a refused file.
  void expectRefused(const std::string& statement, const std::string& path,
                     const std::string& reason) {
    EXPECT_EQ(errorOf(statement), "'" + fs::canonical(fs::path(path).parent_path()).string() + "/" +
                                      fs::path(path).filename().string() + reason)
        << statement;
  }
  bool nothingOutside() const { return fs::is_empty(outside()); }

  testing::TempFolder outside;
  const std::string kOutside =
      "' is outside the folders that this script may use: those named on the command line, the "
      "script's own and the drawing folder";
};

// ---- The question between the command and the write

TEST_F(ScriptGuardTest, AHandlerThatMovesTheDrawingGetsNothingOut) {
  for (const char* command :
       {"tool('miNew')", "tool('miOpen')", "tool('miExit')", "tool('miLoadSetup')",
        "tool('miMakeCNCFile')", "tool('miMakeCNCLatheFile')", "key('Ctrl+M')", "key('Ctrl+L')",
        "make_cnc('mill')", "make_cnc('lathe', 'program')"}) {
    expectRefused(swapping(outside("part.cdm")) + command, outside("part.cdm"), kOutside);
    EXPECT_TRUE(nothingOutside()) << command;
  }
}

TEST_F(ScriptGuardTest, AHandlerThatGoesOnBehindAPcallGetsNothingOutEither) {
  EXPECT_EQ(outputOf(swapping(outside("part.cdm")) +
                     "print(pcall(tool, 'miNew')) print(pcall(tool, 'miSave'))")
                .substr(0, 6),
            "false\t");
  EXPECT_TRUE(nothingOutside());
}

TEST_F(ScriptGuardTest, NoHiddenFileIsWrittenByAnotherName) {
  folder.write(".bashrc", "good");
  expectRefused(swapping(folder(".bashrc")) + "tool('miNew')", folder(".bashrc"),
                "': a script writes no file whose name begins with a point");
  EXPECT_EQ(folder.read(".bashrc"), "good");
}

TEST_F(ScriptGuardTest, TheProgramsOutputFolderIsHeldToTheRule) {
  const std::string statement = std::string(kPart) +
                                "save('part') on_message(function() "
                                "setting['cnc output path'] = [[" +
                                outside() + "]] return 'No' end) store.drawingsaved = false ";
  for (const char* command : {"make_cnc('mill')", "tool('miMakeCNCFile')", "key('Ctrl+L')"}) {
    expectRefused(statement + command, outside("part.CNC"), kOutside);
  }
  EXPECT_TRUE(nothingOutside());
}

TEST_F(ScriptGuardTest, ADrawingsOwnOutputFolderIsHeldToTheRule) {
  outputOf(std::string(kPart) + "setting['cnc output path'] = [[" + outside() + "]] save('part')");
  expectRefused("open('part') make_cnc('mill')", outside("part.CNC"), kOutside);
  EXPECT_TRUE(nothingOutside());
}

TEST_F(ScriptGuardTest, CompanionsDoNotLeadOutside) {
  outside.write("secret", "good");
  fs::create_symlink(outside("secret"), folder("PART.TPM"));
  expectRefused(swapping(folder("part.cdm")) + "tool('miNew')", outside("secret"), kOutside);
  EXPECT_EQ(outside.read("secret"), "good");
  EXPECT_FALSE(folder.has("part.cdm")) << "neither file of the pair was touched";
}

// ---- Setups, layouts, deletion

TEST_F(ScriptGuardTest, SetupsBesideTheProgramStayAsTheyAre) {
  const std::string before = home.read("test.msu");
  for (const char* statement :
       {"call.SetupTESS('S')", "on_file(function() return arg[1] end) tool('miSaveSetupAs')",
        "store.setupchanged = true on_message(function() return 'Yes' end) tool('miExit')"}) {
    job.arguments = {folder.write("test.msu", "")};
    expectRefused(statement, home("test.msu"), kOutside);
  }
  EXPECT_EQ(home.read("test.msu"), before);
}

TEST_F(ScriptGuardTest, TheLayoutAtTheEndIsTheProgramsOwnAffair) {
  EXPECT_EQ(outputOf("tool('miExit')"), "");
  EXPECT_TRUE(home.has("Layout.tb3"));
}

TEST_F(ScriptGuardTest, OnlyDrawingsAreDeleted) {
  job.folders.push_back(home());
  const std::string choose = "on_file(function() return arg[1] end) tool('miDeleteFile')";
  job.arguments = {home("test.msu")};
  expectRefused(choose, home("test.msu"), "': a script saves drawings only as .cdm");
  job.arguments = {home.write("old.cdm", "")};
  outputOf(choose);
  EXPECT_FALSE(home.has("old.cdm"));
}

// ---- Names

TEST_F(ScriptGuardTest, DrawingsAreSavedOnlyAsDrawings) {
  const std::string reason = "': a script saves drawings only as .cdm";
  expectRefused("save([[" + folder("part.txt") + "]])", folder("part.txt"), reason);
  expectRefused("store.drawingname = 'part.sh' tool('miSave')", home("CNC/part.sh"), reason);
  EXPECT_EQ(valueOf("store.drawingname"), "") << "another run starts afresh";
  EXPECT_EQ(outputOf("pcall(save, 'part.txt') print(store.drawingname)"), "\n")
      << "the drawing keeps its name";
  outputOf(std::string(kPart) + "save('PART.Cdm')");
  EXPECT_TRUE(home.has("CNC/PART.Cdm"));
  EXPECT_TRUE(home.has("CNC/PART.TPM"));
}

TEST_F(ScriptGuardTest, PicturesHaveNamesOfPictures) {
  writePicture = [](Application& application, const std::string& path, PixelSize /*size*/) {
    writeFile(application.session.host.guard, path, FileKind::Picture, "picture");
  };
  const std::string reason = "': a script writes pictures only as .png, .svg or .pdf";
  expectRefused("plot([[" + folder("part.lua") + "]])", folder("part.lua"), reason);
  expectRefused("plot([[" + folder(".png") + "]])", folder(".png"),
                "': a script writes no file whose name begins with a point");
  for (const char* name : {"a.png", "b.SVG", "c.pdf", "d"}) {
    outputOf("plot([[" + folder(name) + "]])");
  }
  EXPECT_TRUE(folder.has("a.png") && folder.has("b.SVG") && folder.has("c.pdf"));
  EXPECT_TRUE(folder.has("d.png"));
}

TEST_F(ScriptGuardTest, ProgramsAreNeitherHiddenNorExecutableNorDrawings) {
  const auto make = [](const std::string& path) {
    return std::string(kPart) + "save('part') make_cnc('mill', [[" + path + "]])";
  };
  expectRefused(make(folder(".profile")), folder(".profile"),
                "': a script writes no file whose name begins with a point");
  expectRefused(make(folder("part.cdm")), folder("part.cdm"),
                "': a program does not go where drawings are kept");
  folder.write("tool.sh", "#!/bin/sh\n");
  fs::permissions(folder("tool.sh"), fs::perms::owner_exec, fs::perm_options::add);
  expectRefused(make(folder("tool.sh")), folder("tool.sh"),
                "': a script writes over no file that can be executed");
  EXPECT_EQ(folder.read("tool.sh"), "#!/bin/sh\n");
  outputOf(make(folder("part.sh")));
  EXPECT_TRUE(folder.has("part.sh"));
}

TEST_F(ScriptGuardTest, ALayoutIsSavedAsALayout) {
  job.arguments = {folder.write("bar.lua", "")};
  expectRefused("on_file(function() return arg[1] end) tool('miSaveLayoutAs')", folder("bar.lua"),
                "': a script saves layouts only as .tb3");
}

// ---- After the script

TEST_F(ScriptGuardTest, AFinaliserIsHeldToTheRulesToo) {
  outputOf("setmetatable({}, {__gc = function() store.drawingpath = [[" + outside() +
           "]] store.drawingname = 'part.cdm' call.SetupTESS('S') save([[" + outside("x.cdm") +
           "]]) end})");
  EXPECT_TRUE(nothingOutside());
}

}  // namespace
}  // namespace tess
