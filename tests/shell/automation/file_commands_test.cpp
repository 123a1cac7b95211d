// `open`, `save` and `make_cnc` of scripts, and the folders that hold them.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/save_journal.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;
using testing::WorkingFolder;

class FileCommands : public ::testing::Test, protected ScriptRun {
 protected:
  static constexpr char kPart[] =
      "add_segment{type=1, x1=2, y1=1} "
      "add_path{type=1, x1=2, y1=1, z=-0.25, feed=10, code=100} ";
};

TEST_F(FileCommands, ABareNameStandsInTheDrawingFolder) {
  EXPECT_EQ(outputOf(std::string(kPart) + "save('flange') print(store.drawingname, "
                                          "store.drawingsaved)"),
            "flange.CDM\t-1\n");
  EXPECT_TRUE(home.has("CNC/flange.CDM"));
  EXPECT_TRUE(home.has("CNC/FLANGE.TPM"));
  EXPECT_EQ(outputOf("open('FLANGE.cdm') print(store.NumSegments, store.NumPathSegments, "
                     "store.drawingname)"),
            "1\t1\tFLANGE.cdm\n");
}

// Drawings of one line, whose ends at x = 1, 2 and 3 tell them apart.
TEST_F(FileCommands, ADrawingIsLookedForAmongDrawingsBesideTheScriptAndInTheWorkingFolder) {
  const testing::TempFolder working;
  const WorkingFolder there(working());
  job.folders.push_back(working());
  const std::string open = "open('part') print(store.x1[1], store.drawingpath)";
  const auto saveLine = [this](const std::string& x, const std::string& path) {
    outputOf("add_segment{type=1, x1=" + x + "} save([[" + path + "]])");
  };
  saveLine("3", working("part.CDM"));
  EXPECT_EQ(outputOf(open), "3.0\t" + working() + "\n");
  saveLine("2", folder("part.CDM"));
  EXPECT_EQ(outputOf(open), "2.0\t" + folder() + "\n");
  saveLine("1", "part");
  EXPECT_EQ(outputOf(open), "1.0\t" + home("CNC/") + "\n");
}

TEST_F(FileCommands, ADrawingInAWorkingFolderThatIsNotOpenIsNotFound) {
  const testing::TempFolder working;
  const WorkingFolder there(working());
  working.write("part.CDM", "1.0\r\n");
  EXPECT_EQ(outputOf("open('part') print(messages[1].text, store.drawingname)"),
            "Couldn't revert to saved drawing.\n\nFile not found\t\n");
}

TEST_F(FileCommands, ABareNameIsSavedAmongTheDrawingsWhereverItWasOpened) {
  folder.write("part.CDM", "");
  outputOf("save('part')");
  EXPECT_TRUE(home.has("CNC/part.CDM"));
  EXPECT_EQ(folder.read("part.CDM"), "");
}

TEST_F(FileCommands, AnExtensionThatIsGivenStays) {
  outputOf("save('flange.cdm')");
  EXPECT_TRUE(home.has("CNC/flange.cdm"));
}

TEST_F(FileCommands, PathsInTheScriptsFolderAreOpen) {
  outputOf(std::string(kPart) + "save([[" + folder("part.cdm") + "]])");
  EXPECT_TRUE(folder.has("part.cdm"));
  EXPECT_EQ(valueOf("store.drawingpath"), home("CNC/")) << "another run starts afresh";
  EXPECT_EQ(outputOf("open([[" + folder("part.cdm") + "]]) print(store.drawingpath)"),
            folder() + "\n");
}

TEST_F(FileCommands, EverythingOutsideIsRefusedWithItsPath) {
  const testing::TempFolder outside;
  const std::string refusal =
      "' is outside the folders that this script may use: those named on the command line, the "
      "script's own and the drawing folder";
  const std::string target = outside("part.cdm");
  for (const char* command : {"open", "save", "make_cnc('mill',"}) {
    const std::string call =
        std::string(command) + (std::string(command).ends_with(",") ? "" : "(");
    EXPECT_EQ(errorOf(std::string(kPart) + call + "[[" + target + "]])"), "'" + target + refusal)
        << command;
  }
  EXPECT_FALSE(outside.has("part.cdm"));
  EXPECT_EQ(errorOf("save([[" + home("tess.def") + "]])"), "'" + home("tess.def") + refusal);
  job.folders.push_back(outside());
  outputOf("save([[" + target + "]])");
  EXPECT_TRUE(outside.has("part.cdm"));
}

TEST_F(FileCommands, FoldersInTheScriptsArgumentsAreOpen) {
  const testing::TempFolder outside;
  job.arguments = {"4", outside()};
  outputOf("save(arg[2] .. 'part.cdm')");
  EXPECT_TRUE(outside.has("part.cdm"));
  job.arguments = {outside("part.cdm")};
  outputOf("save(arg[1])");
}

TEST_F(FileCommands, AStoreThatPointsOutsideGivesNoWayOut) {
  const testing::TempFolder outside;
  EXPECT_NE(errorOf(std::string(kPart) + "store.drawingpath = [[" + outside() +
                    "]] store.drawingname = 'part.cdm' make_cnc('mill')")
                .find("is outside the folders"),
            std::string::npos);
  EXPECT_NE(errorOf(std::string(kPart) + "setting['cnc output path'] = [[" + outside() +
                    "]] save('part.cdm') make_cnc('mill')")
                .find("is outside the folders"),
            std::string::npos);
  EXPECT_NE(errorOf(std::string(kPart) + "on_file(function() return [[" + outside("part.cdm") +
                    "]] end) make_cnc('mill')")
                .find("is outside the folders"),
            std::string::npos);
  EXPECT_TRUE(std::filesystem::is_empty(outside()));
}

TEST_F(FileCommands, AMissingDrawingGivesTheProgramsMessageAndGoesOn) {
  EXPECT_EQ(
      outputOf(std::string(kPart) + "open('nothing.cdm') print(messages[1].text, messages[1].icon, "
                                    "store.NumSegments)"),
      "Couldn't revert to saved drawing.\n\nFile not found\twarning\t1\n");
}

TEST_F(FileCommands, ATruncatedDrawingIsReportedAndLogged) {
  home.write("CNC/short.cdm", "1.0\r\nPROFILE\r\n1\r\n");
  const std::string shown = outputOf(
      "open('short.cdm') print(messages[1].kind, "
      "messages[1].text)");
  EXPECT_TRUE(shown.starts_with("error\tInput past end of file")) << shown;
  EXPECT_NE(shown.find("short.cdm line 4 field 1"), std::string::npos) << shown;
  EXPECT_TRUE(home.has("Errors.txt"));
}

TEST_F(FileCommands, AProgramLandsWhereItsRulesPutIt) {
  EXPECT_EQ(outputOf(std::string(kPart) + "save('flange.cdm') print(make_cnc('mill'))"), "true\n");
  const std::string program = home.read("CNC/flange.CNC");
  EXPECT_TRUE(program.starts_with("%\r\n;****")) << program;
  EXPECT_NE(program.find("\r\nM06 T1\r\nM03 S3000\r\n"), std::string::npos) << program;
}

TEST_F(FileCommands, AProgramLandsWhereItIsTold) {
  EXPECT_EQ(outputOf(std::string(kPart) + "save('flange.cdm') print(make_cnc('lathe', [[" +
                     folder("out.nc") + "]]))"),
            "true\n");
  const std::string program = folder.read("out.nc");
  EXPECT_NE(program.find("{File Name}:  flange.CNC"), std::string::npos) << program;
  EXPECT_NE(program.find("Lathrix Pro"), std::string::npos) << program;
  EXPECT_FALSE(home.has("CNC/flange.CNC"));
}

TEST_F(FileCommands, WithoutPathsThereIsNoProgram) {
  EXPECT_EQ(outputOf("print(make_cnc('mill'), messages[1].text)"),
            "false\tNo Path Segments Placed!\n");
  EXPECT_EQ(outputOf("print(make_cnc('mill', 'x.nc'), messages[1].text)"),
            "false\tNo Path Segments Placed!\n");
}

TEST_F(FileCommands, TheQuestionAboutUnsavedWorkIsAnsweredByTheScript) {
  EXPECT_EQ(
      outputOf(std::string(kPart) + "on_message(function(text, title, buttons) "
                                    "print(text, table.concat(buttons, '/')) return 'Cancel' end) "
                                    "print(make_cnc('mill', 'x.nc'))"),
      "Drawing not saved! Save now?\tYes/No/Cancel\nfalse\n");
  EXPECT_FALSE(home.has("CNC/x.nc"));
}

TEST_F(FileCommands, WrongArgumentsAreErrors) {
  EXPECT_EQ(errorOf("make_cnc('laser')"),
            "a program is for \"mill\" or \"lathe\", not for 'laser'");
  EXPECT_EQ(errorOf("open()"), "Type mismatch");
  EXPECT_EQ(errorOf("save('')"), "'' names no file");
  EXPECT_EQ(errorOf("open('folder/')"), "'folder/' names no file");
}

// A good drawing and its path, garbage beside it.
TEST_F(FileCommands, AnOpenThatFailsLeavesAnUntitledDrawing) {
  outputOf(std::string(kPart) + "save('good')");
  const std::string drawing = home.read("CNC/good.CDM");
  const std::string paths = home.read("CNC/GOOD.TPM");
  home.write("CNC/garbage.CDM", "this is no drawing");
  EXPECT_EQ(outputOf("open('good') open('garbage') "
                     "print(messages[1].kind, store.NumSegments, #store.drawingname) "
                     "tool('miSave') tool('miSave') print(messages[2].kind, messages[2].title)"),
            "error\t0\t0\nfile\tSave As\n");
  EXPECT_EQ(home.read("CNC/good.CDM"), drawing);
  EXPECT_EQ(home.read("CNC/GOOD.TPM"), paths);
}

TEST_F(FileCommands, ADrawingThatAnotherHasChangedIsReplacedOnlyIfTheScriptSaysSo) {
  job.fileAccess = true;
  outputOf(std::string(kPart) + "save('part')");
  const std::string file = home("CNC/part.CDM");
  const std::string meanwhile = std::string(kPart) + "open('part') " + kPart +
                                "local f = io.open([[" + file +
                                "]], 'a') f:write('1,8,0,0,5,5\\r\\n') f:close() ";
  const std::string save = "save('part') print(store.drawingsaved, messages[#messages].kind)";
  outputOf(meanwhile);
  const std::string theirs = home.read("CNC/part.CDM");
  EXPECT_EQ(outputOf(meanwhile + save), "0\tfile\n") << "nobody gives another name";
  EXPECT_EQ(home.read("CNC/part.CDM"), theirs + "1,8,0,0,5,5\r\n");
  EXPECT_EQ(outputOf("on_message(function(text, title, buttons) return buttons[2] end) " +
                     meanwhile + save),
            "-1\tmessage\n")
      << "the second button is No";
  EXPECT_EQ(home.read("CNC/part.CDM~"), theirs + "1,8,0,0,5,5\r\n1,8,0,0,5,5\r\n");
}

// The files of a save that had just placed the drawing when its process died.
TEST_F(FileCommands, AScriptPutsADrawingInOrderAndHearsOfIt) {
  outputOf(std::string(kPart) + "save('part')");
  const std::string drawing = home.read("CNC/part.CDM");
  const std::string paths = home.read("CNC/PART.TPM");
  const std::string stem = journalStem("part.CDM");
  const SaveJournal journal{
      .name = "part.CDM",
      .keepsOld = true,
      .files = {{.before = checksumOf("before"), .after = checksumOf(drawing)},
                {.before = checksumOf(paths), .after = checksumOf(paths + paths)}}};
  home.write("CNC/" + journalName(stem), journalText(journal));
  home.write("CNC/" + freshName(stem, 1), paths + paths);
  EXPECT_EQ(outputOf("open('part') print(store.NumPathSegments, #messages, messages[1].text)"),
            "2\t1\tThe last save of " + home("CNC/part.CDM") +
                " was cut off. It has now been completed.\n");
  EXPECT_FALSE(home.has("CNC/" + journalName(stem)));
}

// A script writes over nothing that can be executed, but may read it.
TEST_F(FileCommands, AScriptPutsNothingInOrderWhereItMayNotWrite) {
  outputOf(std::string(kPart) + "save('part')");
  const std::string drawing = home.read("CNC/part.CDM");
  const std::string stem = journalStem("part.CDM");
  const SaveJournal journal{.name = "part.CDM",
                            .keepsOld = true,
                            .files = {{.before = std::nullopt, .after = checksumOf(drawing)},
                                      {.before = std::nullopt, .after = std::nullopt}}};
  home.write("CNC/" + journalName(stem), journalText(journal));
  std::filesystem::remove(home("CNC/PART.TPM"));
  std::filesystem::permissions(home("CNC/part.CDM"), std::filesystem::perms::owner_all);
  EXPECT_EQ(outputOf("open('part') print(store.NumSegments, #messages, messages[1].text)"),
            "1\t1\tThe last save of " + home("CNC/part.CDM") +
                " was cut off. It is shown complete, but its files cannot be put in order here: "
                "Permission denied\n");
  EXPECT_TRUE(home.has("CNC/" + journalName(stem)));
}

}  // namespace
}  // namespace tess
