// Scripts and the programs of others: without --allow-io nothing is started and nothing of them is
// written down; with it the forms work as for an operator.
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "cnc/send_program.h"
#include "tests/support/script_run.h"
#include "tests/support/stand_in_program.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::StandInProgram;

constexpr char kMade[] =
    "add_path{type=1, x1=1, z=-0.25, feed=10, code=100} save('part') make_cnc('mill') "
    "local viewer = form('dlgMenuHelper') ";
constexpr char kStartRefused[] =
    "a script starts no other program (it needs --allow-io in front of --run)";

class ScriptHandOver : public ::testing::Test, public testing::ScriptRun {
 protected:
  ScriptHandOver() { job.userfolder = user(); }

  void installControl() { home.write("GTX_LOC.DAT", program.path() + "\r\n"); }
  void chooseProgram() {
    user.write("send_program", sendChoiceText({program.path(), program.path()}));
  }

  testing::TempFolder user;
  StandInProgram program;
};

TEST_F(ScriptHandOver, TheViewerIsAFormLikeAnyOther) {
  EXPECT_EQ(
      outputOf(std::string(kMade) + "viewer.txtFind:change('g01 x') "
                                    "print(viewer.caption, viewer.shown, viewer.lblPlace.text, "
                                    "select(2, viewer.txtFile.text:gsub('\\r\\n', '')) > 20) "
                                    "viewer.cmdExit:click() print(viewer.shown)"),
      "View File - " + home("CNC/part.cnc") + "\ttrue\tLine 34 of 36\ttrue\nfalse\n");
}

TEST_F(ScriptHandOver, BrowseIsAnsweredByTheScript) {
  home.write("CNC/other.CNC", "G90\r\n");
  EXPECT_EQ(outputOf("on_file(function(title, pattern, initial) print(title, pattern) "
                     "return 'other.CNC' end) tool('miBrowseCNCFile') "
                     "print(form('dlgMenuHelper').txtFile.text)"),
            "CNC File Selector\t*.CNC\nG90\n");
}

TEST_F(ScriptHandOver, WithoutAccessTransferStartsNothing) {
  installControl();
  EXPECT_EQ(errorOf(std::string(kMade) + "viewer.cmdAutoLoad2GTXFW:click()"), kStartRefused);
  EXPECT_FALSE(program.wasStarted());
}

TEST_F(ScriptHandOver, WithoutAccessSendStartsNothing) {
  chooseProgram();
  EXPECT_EQ(errorOf(std::string(kMade) + "viewer.cmdSend:click()"), kStartRefused);
  EXPECT_FALSE(program.wasStarted());
}

// A script's error cannot be caught into a start either.
TEST_F(ScriptHandOver, WithoutAccessThereIsNoWayRound) {
  installControl();
  chooseProgram();
  EXPECT_EQ(
      outputOf(std::string(kMade) + "print(pcall(function() viewer.cmdAutoLoad2GTXFW:click() end)) "
                                    "print((pcall(function() viewer.cmdSend:click() end)))"),
      "false\t" + folder("test.lua:1: ") + kStartRefused + "\nfalse\n");
  EXPECT_FALSE(program.wasStarted());
}

TEST_F(ScriptHandOver, WithoutAccessNoLocationIsWritten) {
  EXPECT_EQ(outputOf("on_form('dlgGcodeGen', function(f) f.txtxstart.text = '3' "
                     "f.cmdAccept:click() print(f.shown) end) "
                     "tool('miG-codeControlSetup') print(store.xstartpos)"),
            "false\n3.0\n");
  EXPECT_FALSE(home.has("GTX_LOC.DAT"));
  EXPECT_EQ(errorOf("on_form('dlgGcodeGen', function(f) f.txtGTX_Path.text = '/opt/x' "
                    "f.cmdAccept:click() end) tool('miG-codeControlSetup')"),
            "'" + home("GTX_LOC.DAT") +
                "': a script writes down no other program (it needs --allow-io in front of --run)");
  EXPECT_FALSE(home.has("GTX_LOC.DAT"));
}

TEST_F(ScriptHandOver, WithoutAccessBrowsingForTheControlWritesNothing) {
  home.write("CNC/gtxfw.exe", "");
  EXPECT_THAT(errorOf("on_file(function() return '" + home("CNC/gtxfw.exe") +
                      "' end) on_form('dlgGcodeGen', function(f) f.cmdBrowse:click() end) "
                      "tool('miG-codeControlSetup')"),
              HasSubstr("a script writes down no other program"));
  EXPECT_FALSE(home.has("GTX_LOC.DAT"));
}

TEST_F(ScriptHandOver, WithAccessTheControlIsNamedAndStarted) {
  job.fileAccess = true;
  outputOf("on_form('dlgGcodeGen', function(f) f.txtGTX_Path.text = [[" + program.path() +
           "]] f.cmdAccept:click() end) tool('miG-codeControlSetup') " + kMade +
           "viewer.cmdAutoLoad2GTXFW:click()");
  EXPECT_EQ(home.read("GTX_LOC.DAT"), program.path() + "\r\n");
  EXPECT_THAT(program.arguments(), ElementsAre(home("CNC/part.CNC")));
}

TEST_F(ScriptHandOver, WithAccessTheOperatorsProgramIsStarted) {
  job.fileAccess = true;
  chooseProgram();
  outputOf(std::string(kMade) + "viewer.cmdSend:click()");
  EXPECT_THAT(program.arguments(), ElementsAre(home("CNC/part.CNC")));
}

// The operator alone says where files go, whatever the script may do besides.
TEST_F(ScriptHandOver, AScriptNeverChoosesTheProgramToSendTo) {
  for (const bool access : {false, true}) {
    job.fileAccess = access;
    EXPECT_EQ(
        errorOf("on_form('dlgSendProgram', function(f) f.txtProgram.text = [[" + program.path() +
                "]] f.cmdAccept:click() end) " + kMade + "viewer.cmdSendProgram:click()"),
        "'" + user("send_program") +
            "': a script does not choose the program that files are sent to");
    EXPECT_FALSE(user.has("send_program"));
  }
}

TEST_F(ScriptHandOver, AScriptsAnswerIsNotTheOperators) {
  job.fileAccess = true;
  const std::string unseen = sendChoiceText({program.path(), ""});
  user.write("send_program", unseen);
  EXPECT_THAT(outputOf(std::string(kMade) + "viewer.cmdSend:click() print(messages[1].text)"),
              HasSubstr("This command has not been used before"));
  EXPECT_EQ(program.arguments().size(), 1U);
  EXPECT_EQ(user.read("send_program"), unseen);
}

TEST_F(ScriptHandOver, ACopyIsHeldToTheFoldersOfTheScript) {
  std::filesystem::create_directory(home("CNC/stick"));
  const std::string copy = "viewer.cmdCopyToFolder:click() print(messages[#messages].text)";
  const std::string told = outputOf("on_file(function() return '" + home("CNC/stick/part.CNC") +
                                    "' end) " + kMade + copy);
  EXPECT_EQ(told, "Copied to " + home("CNC/stick/part.CNC") + ": " +
                      std::to_string(home.read("CNC/part.CNC").size()) +
                      " bytes, read back and compared.\n");
  EXPECT_EQ(home.read("CNC/stick/part.CNC"), home.read("CNC/part.CNC"));
  EXPECT_THAT(errorOf("on_file(function() return '" + user("part.CNC") + "' end) " + kMade + copy),
              HasSubstr("part.CNC"));
  EXPECT_FALSE(user.has("part.CNC"));
}

}  // namespace
}  // namespace tess
