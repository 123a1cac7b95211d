// What the options mean, alone and together.
#include "shell/automation/command_line.h"

#include "gtest/gtest.h"

#include "core/date_text.h"
#include "core/drawing_lock.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/save_journal.h"
#include "tests/support/other_process.h"
#include "tests/support/recorded_paper.h"
#include "tests/support/script_run.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

using testing::ScriptRun;

TEST(CommandLine, NothingOrADrawingIsTheWindow) {
  EXPECT_EQ(parseCommandLine({}).job, Job::Window);
  const CommandLine line = parseCommandLine({"--home", "folder", "part.cdm"});
  EXPECT_EQ(line.job, Job::Window);
  EXPECT_EQ(line.drawing, "part.cdm");
  EXPECT_EQ(line.home, "folder");
}

TEST(CommandLine, EverythingBehindTheScriptIsTheScripts) {
  const CommandLine line = parseCommandLine(
      {"--home", "folder", "--allow-io", "--run", "flange.lua", "4", "--home", "-o", "--run"});
  EXPECT_EQ(line.job, Job::RunScript);
  EXPECT_EQ(line.script, "flange.lua");
  EXPECT_EQ(line.scriptArguments, (std::vector<std::string>{"4", "--home", "-o", "--run"}));
  EXPECT_EQ(line.home, "folder");
  EXPECT_TRUE(line.allowIo);
}

TEST(CommandLine, ProgramsOfDrawings) {
  const CommandLine mill = parseCommandLine({"--make-cnc", "mill", "part.cdm"});
  EXPECT_EQ(mill.job, Job::MakeCnc);
  EXPECT_EQ(mill.mode, CncMode::Mill);
  EXPECT_EQ(mill.drawing, "part.cdm");
  EXPECT_EQ(mill.output, "");
  const CommandLine lathe = parseCommandLine({"--make-cnc", "lathe", "part.cdm", "-o", "out.nc"});
  EXPECT_EQ(lathe.mode, CncMode::Lathe);
  EXPECT_EQ(lathe.output, "out.nc");
  EXPECT_EQ(lathe.setup, "");
  EXPECT_EQ(parseCommandLine({"--make-cnc", "mill", "part.cdm", "--setup", "other"}).setup,
            "other");
}

TEST(CommandLine, PrintsOfDrawings) {
  const CommandLine plain = parseCommandLine({"--print", "part.pdf", "part.cdm"});
  EXPECT_EQ(plain.job, Job::Print);
  EXPECT_EQ(plain.picture, "part.pdf");
  EXPECT_EQ(plain.scale, 1);
  EXPECT_FALSE(plain.sheet);
  const CommandLine scaled =
      parseCommandLine({"--print", "part.pdf", "part.cdm", "--scale", "1:2", "--paper", "letter"});
  EXPECT_EQ(scaled.scale, 0.5);
  EXPECT_EQ(scaled.sheet, "letter");
}

TEST(CommandLine, PicturesOfDrawings) {
  const CommandLine plain = parseCommandLine({"--plot", "part.png", "part.cdm"});
  EXPECT_EQ(plain.job, Job::Plot);
  EXPECT_EQ(plain.picture, "part.png");
  EXPECT_EQ(plain.drawing, "part.cdm");
  EXPECT_EQ(plain.size.width, 1000);
  EXPECT_EQ(plain.size.height, 800);
  const CommandLine sized =
      parseCommandLine({"--plot", "part.png", "part.cdm", "--size", "16384x1"});
  EXPECT_EQ(sized.size.width, 16384);
  EXPECT_EQ(sized.size.height, 1);
}

TEST(CommandLine, TheSizeOfAScriptsSurface) {
  const CommandLine line = parseCommandLine({"--size", "640X480", "--run", "x.lua", "--size"});
  EXPECT_EQ(line.job, Job::RunScript);
  EXPECT_EQ(line.size.width, 640);
  EXPECT_EQ(line.size.height, 480);
  EXPECT_EQ(line.scriptArguments, std::vector<std::string>{"--size"});
  EXPECT_EQ(scriptJob(line).size.width, 640);
}

TEST(CommandLine, TheDateOfAJob) {
  const CommandLine script =
      parseCommandLine({"--date", "2026-03-09T14:05:07", "--run", "x.lua", "--date", "never"});
  EXPECT_EQ(script.scriptArguments, (std::vector<std::string>{"--date", "never"}));
  ASSERT_TRUE(scriptJob(script).date);
  EXPECT_EQ(dateText(*scriptJob(script).date), "03/09/2026");
  EXPECT_EQ(timeText(*scriptJob(script).date), "14:05:07");
  for (const std::vector<std::string>& job :
       {std::vector<std::string>{"--make-cnc", "mill", "part.cdm"},
        {"--plot", "part.png", "part.cdm"},
        {"--play", "x.lua"}}) {
    std::vector<std::string> arguments{"--date", "2024-02-29"};
    arguments.insert(arguments.end(), job.begin(), job.end());
    const CommandLine line = parseCommandLine(arguments);
    ASSERT_TRUE(line.date) << line.text;
    EXPECT_EQ(dateText(*line.date), "02/29/2024");
    EXPECT_FALSE(parseCommandLine(job).date);
  }
}

TEST(CommandLine, ADateThatIsNoneIsNamed) {
  const CommandLine line = parseCommandLine({"--date", "2026-02-29", "--run", "x.lua"});
  EXPECT_EQ(line.status, ExitStatus::WrongUsage);
  EXPECT_EQ(line.text,
            "--date: '2026-02-29' is not a date as 2026-03-09, 2026-03-09T14:05 or "
            "2026-03-09T14:05:07 (see tessimo --help)");
}

TEST(CommandLine, AScriptInTheWindow) {
  const CommandLine line =
      parseCommandLine({"--home", TESSIMO_SOURCE_DIR, "--play", "x.lua", "4", "--run"});
  EXPECT_EQ(line.job, Job::PlayScript);
  const ScriptJob job = scriptJob(line);
  EXPECT_EQ(job.path, "x.lua");
  EXPECT_EQ(job.arguments, (std::vector<std::string>{"4", "--run"}));
  EXPECT_EQ(job.folders, std::vector<std::string>{TESSIMO_SOURCE_DIR});
  EXPECT_FALSE(job.fileAccess);
}

TEST(CommandLine, HelpAndVersionAreDoneWithText) {
  for (const char* option : {"--help", "--version"}) {
    const CommandLine line = parseCommandLine({option});
    EXPECT_EQ(line.job, Job::PrintAndExit);
    EXPECT_EQ(line.status, ExitStatus::Done);
    EXPECT_EQ(line.text.find("Tessimo Mill"), 0U) << line.text;
  }
  const std::string help = parseCommandLine({"--help"}).text;
  for (const char* option : {"--run", "--play", "--make-cnc", "--plot", "--size", "--date",
                             "--home", "--allow-io", "--version", "--setup", "-o"}) {
    EXPECT_NE(help.find(option), std::string::npos) << option;
  }
}

TEST(CommandLine, WrongUsageIsOneLine) {
  const std::vector<std::vector<std::string>> cases = {
      {"--bad"},
      {"a.cdm", "b.cdm"},
      {"--run"},
      {"--make-cnc"},
      {"--make-cnc", "mill"},
      {"--make-cnc", "laser", "part.cdm"},
      {"--make-cnc", "mill", "--run", "x.lua"},
      {"part.cdm", "--run", "x.lua"},
      {"-o", "out.nc"},
      {"-o", "out.nc", "part.cdm"},
      {"--setup", "other", "part.cdm"},
      {"--setup", "other", "--run", "x.lua"},
      {"--allow-io"},
      {"--home"},
      {"--make-cnc", "mill", "part.cdm", "-o"},
      {"--play"},
      {"part.cdm", "--play", "x.lua"},
      {"--size", "100x100"},
      {"--size", "100x100", "part.cdm"},
      {"--plot", "part.png"},
      {"--print", "part.pdf"},
      {"--print", "part.pdf", "--plot", "part.png", "part.cdm"},
      {"--print", "part.pdf", "--scale", "0", "part.cdm"},
      {"--print", "part.pdf", "--scale", "1:x", "part.cdm"},
      {"--print", "part.pdf", "--paper", "A9", "part.cdm"},
      {"--scale", "2", "part.cdm"},
      {"--paper", "A4", "--plot", "part.png", "part.cdm"},
      {"--plot", "part.png", "--make-cnc", "mill", "part.cdm"},
      {"--plot", "part.png", "--run", "x.lua"},
      {"--size", "100", "--run", "x.lua"},
      {"--size", "100x", "--run", "x.lua"},
      {"--size", "x100", "--run", "x.lua"},
      {"--size", "100x100x", "--run", "x.lua"},
      {"--size", "0x100", "--run", "x.lua"},
      {"--size", "-1x100", "--run", "x.lua"},
      {"--size", "100x16385", "--run", "x.lua"},
      {"--date", "2026-03-09"},
      {"--date", "2026-03-09", "part.cdm"},
      {"--date", "tomorrow", "--run", "x.lua"},
      {"--date", "2026-03-09T25:00", "--make-cnc", "mill", "part.cdm"},
      {"--date", "", "--plot", "part.png", "part.cdm"},
      {"--tools"},
      {"--tools", "export"},
      {"--tools", "copy", "tools.csv"},
      {"--tools", "export", "tools.csv", "part.cdm"},
      {"--tools", "export", "tools.csv", "--run", "x.lua"},
      {"--tools", "import", "tools.csv", "--make-cnc", "mill", "part.cdm"},
      {"--tools", "import", "tools.csv", "--plot", "part.png", "part.cdm"},
      {"--tools", "import", "tools.csv", "--size", "100x100"},
  };
  for (const auto& arguments : cases) {
    const CommandLine line = parseCommandLine(arguments);
    const std::string shown = ::testing::PrintToString(arguments);
    EXPECT_EQ(line.job, Job::PrintAndExit) << shown;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runCommandLine(line, {}, out, err), ExitStatus::WrongUsage) << shown;
    EXPECT_EQ(out.str(), "") << shown;
    EXPECT_TRUE(err.str().starts_with("tessimo: ")) << shown << err.str();
    EXPECT_EQ(err.str().find('\n'), err.str().size() - 1) << shown << err.str();
  }
}

TEST(CommandLine, ToolsOfTheSetup) {
  const CommandLine exported = parseCommandLine({"--tools", "export", "tools.csv", "--force"});
  EXPECT_EQ(exported.job, Job::Tools);
  EXPECT_FALSE(exported.importsTools);
  EXPECT_EQ(exported.library, "tools.csv");
  EXPECT_TRUE(exported.force);
  const CommandLine imported =
      parseCommandLine({"--home", "shop", "--tools", "import", "tool.tbl"});
  EXPECT_EQ(imported.job, Job::Tools);
  EXPECT_TRUE(imported.importsTools);
  EXPECT_EQ(imported.library, "tool.tbl");
  EXPECT_EQ(imported.home, "shop");
}

class CommandLineJobs : public ::testing::Test, protected ScriptRun {
 protected:
  ExitStatus runLine(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--home", home()});
    std::ostringstream outStream;
    std::ostringstream errStream;
    status =
        runCommandLine(parseCommandLine(std::move(arguments)), writePicture, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  // A drawing with one path row in the folder for scripts.
  std::string drawing(const std::string& name) {
    outputOf("add_path{type=1, x1=2, y1=1, z=-0.25, feed=10, code=100} save([[" + folder(name) +
             "]])");
    return folder(name);
  }
};

TEST_F(CommandLineJobs, AScriptRunsWithItsArguments) {
  const std::string script = folder.write("add.lua", "print(arg[1] + arg[2])");
  EXPECT_EQ(runLine({"--run", script, "1", "2"}), ExitStatus::Done) << err;
  EXPECT_EQ(out, "3\n");
}

TEST_F(CommandLineJobs, TheHomeThatIsNamedIsOpenToTheScript) {
  const std::string script = folder.write("save.lua", "save(arg[1])");
  EXPECT_EQ(runLine({"--run", script, home("other.cdm")}), ExitStatus::Done) << err;
  EXPECT_TRUE(home.has("other.cdm"));
}

TEST_F(CommandLineJobs, AHomeThatDoesNotExistFailsTheJob) {
  std::ostringstream outStream;
  std::ostringstream errStream;
  const CommandLine line = parseCommandLine({"--home", home("none"), "--run", "x.lua"});
  EXPECT_EQ(runCommandLine(line, {}, outStream, errStream), ExitStatus::JobFailed);
  EXPECT_EQ(errStream.str(), "tessimo: Path not found: " + home("none") + "\n");
}

TEST_F(CommandLineJobs, APictureShowsTheDrawingAsItOpensWithItsPaths) {
  View seen;
  bool paths = false;
  writePicture = [&](Application& application, const std::string& path, PixelSize size) {
    EXPECT_EQ(path, folder("part.PNG")) << "the extension is added";
    EXPECT_EQ(size.width, 400);
    seen = application.interaction.view;
    paths = application.store.showpaths != 0;
  };
  EXPECT_EQ(runLine({"--plot", folder("part"), drawing("part.cdm"), "--size", "400x200"}),
            ExitStatus::Done)
      << err;
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, "");
  EXPECT_TRUE(paths);
  EXPECT_EQ(seen.viewspan, seen.homespan);
  EXPECT_EQ(seen.picwidth, 400);
}

TEST_F(CommandLineJobs, APictureShowsWhatReachesBeyondTheStock) {
  outputOf("add_segment{type=1, x0=-100, y0=0, x1=100, y1=50} save([[" + folder("wide.cdm") +
           "]])");
  View seen;
  writePicture = [&](Application& application, const std::string& /*path*/, PixelSize /*size*/) {
    seen = application.interaction.view;
  };
  EXPECT_EQ(runLine({"--plot", folder("wide.png"), folder("wide.cdm")}), ExitStatus::Done) << err;
  EXPECT_EQ(seen.viewcx, 0);
  EXPECT_EQ(seen.viewcy, 25);
  EXPECT_GE(seen.viewspan, 100);
}

TEST_F(CommandLineJobs, APictureOfNothingIsAFailure) {
  writePicture = [](Application&, const std::string&, PixelSize) { FAIL(); };
  EXPECT_EQ(runLine({"--plot", folder("x.png"), folder("none.cdm")}), ExitStatus::JobFailed);
  EXPECT_TRUE(err.starts_with("tessimo: " + folder("none.cdm") + ": ")) << err;
}

TEST_F(CommandLineJobs, APrintTakesScaleAndPaper) {
  testing::RecordedPaper paper;
  CommandLine line = parseCommandLine({"--home", home(), "--print", folder("part"),
                                       drawing("part.cdm"), "--scale", "2:1", "--paper", "a5"});
  line.paper = &paper;
  std::ostringstream outStream;
  std::ostringstream errStream;
  EXPECT_EQ(runCommandLine(line, {}, outStream, errStream), ExitStatus::Done) << errStream.str();
  ASSERT_EQ(paper.composed.size(), 1U);
  EXPECT_DOUBLE_EQ(paper.composed[0].plan.millimetres, 50.8);
  EXPECT_DOUBLE_EQ(paper.composed[0].plan.sides.width, 148);
  EXPECT_FALSE(paper.composed[0].picture.strokes.empty()) << "the paths are shown";
  EXPECT_EQ(folder.read("part.PDF"), "%PDF-recorded");
}

TEST_F(CommandLineJobs, APrintThatTakesTooManySheetsSaysSo) {
  testing::RecordedPaper paper;
  CommandLine line = parseCommandLine(
      {"--home", home(), "--print", folder("part.pdf"), drawing("part.cdm"), "--scale", "10000"});
  line.paper = &paper;
  std::ostringstream outStream;
  std::ostringstream errStream;
  EXPECT_EQ(runCommandLine(line, {}, outStream, errStream), ExitStatus::JobFailed);
  EXPECT_NE(errStream.str().find("takes more than 400 sheets"), std::string::npos)
      << errStream.str();
  EXPECT_FALSE(folder.has("part.pdf"));
}

TEST_F(CommandLineJobs, APictureOfVectorsIsInRealUnits) {
  EXPECT_EQ(runLine({"--plot", folder("part.SVG"), drawing("part.cdm")}), ExitStatus::Done) << err;
  const std::string svg = folder.read("part.SVG");
  EXPECT_NE(svg.find("x2=\"55.800000\""), std::string::npos) << svg;
}

TEST_F(CommandLineJobs, APictureNeverTakesTheDrawingsPlace) {
  const std::string part = drawing("part.cdm");
  const std::string before = folder.read("part.cdm");
  EXPECT_EQ(runLine({"--plot", part, part}), ExitStatus::JobFailed);
  EXPECT_EQ(folder.read("part.cdm"), before);
}

TEST_F(CommandLineJobs, AProgramGoesBesideItsDrawing) {
  const std::string part = drawing("part.cdm");
  EXPECT_EQ(runLine({"--make-cnc", "mill", part}), ExitStatus::Done) << err;
  EXPECT_EQ(out, folder("part.CNC") + "\n");
  EXPECT_EQ(err, "");
  EXPECT_NE(folder.read("part.CNC").find("GantrixPro"), std::string::npos);
}

TEST_F(CommandLineJobs, AJobTellsThatItsDrawingIsOpenElsewhere) {
  const std::string part = drawing("part.cdm");
  DrawingPresence window;
  const testing::OtherProcess other([&] { window.hold(part); });
  EXPECT_EQ(runLine({"--make-cnc", "mill", part}), ExitStatus::Done) << err;
  EXPECT_EQ(err, "tessimo: " + part + " is open in another process (" +
                     std::to_string(other.number()) +
                     "): what is not saved there is missing here.\n");
}

TEST_F(CommandLineJobs, AJobPutsADrawingInOrderFirst) {
  const std::string part = drawing("part.cdm");
  const std::string text = folder.read("part.cdm");
  const std::string paths = folder.read("PART.TPM");
  const std::string stem = journalStem("part.cdm");
  const SaveJournal journal{
      .name = "part.cdm",
      .keepsOld = true,
      .files = {{.before = checksumOf("before"), .after = checksumOf(text)},
                {.before = checksumOf(paths), .after = checksumOf(paths + paths)}}};
  folder.write(journalName(stem), journalText(journal));
  folder.write(freshName(stem, 1), paths + paths);
  EXPECT_EQ(runLine({"--make-cnc", "mill", part}), ExitStatus::Done) << err;
  EXPECT_EQ(err,
            "tessimo: The last save of " + part + " was cut off. It has now been completed.\n");
  EXPECT_EQ(folder.read("PART.TPM"), paths + paths);
  EXPECT_FALSE(folder.has(journalName(stem)));
}

TEST_F(CommandLineJobs, AProgramGoesWhereItIsTold) {
  drawing("part.CDM");
  EXPECT_EQ(runLine({"--make-cnc", "lathe", folder("part"), "-o", folder("out.nc")}),
            ExitStatus::Done)
      << err;
  EXPECT_EQ(out, "");
  EXPECT_NE(folder.read("out.nc").find("Lathrix Pro"), std::string::npos);
  EXPECT_FALSE(folder.has("part.CNC"));
}

// The heading and nothing else tells when a program was made.
TEST_F(CommandLineJobs, ADateMakesTheSameProgramOnAnyDay) {
  const std::string part = drawing("part.cdm");
  EXPECT_EQ(runLine({"--date", "2026-03-09T14:05", "--make-cnc", "mill", part}), ExitStatus::Done)
      << err;
  EXPECT_NE(
      folder.read("part.CNC").find("{Creation Date}: 03/09/2026   {Creation Time}: 14:05:00\r\n"),
      std::string::npos)
      << folder.read("part.CNC");
}

TEST_F(CommandLineJobs, AScriptsDrawingsAndProgramsBearTheDate) {
  const std::string script = folder.write(
      "dated.lua",
      "tool('miNew') add_path{type=1, x1=2, feed=10, code=100} wait(60000)"
      "print(setting['creation date']) save([[" +
          folder("dated.cdm") + "]]) make_cnc('lathe', [[" + folder("dated.cnc") + "]])");
  EXPECT_EQ(runLine({"--date", "2001-02-03", "--run", script}), ExitStatus::Done) << err;
  EXPECT_EQ(out, "02/03/2001\n");
  EXPECT_NE(
      folder.read("dated.cnc").find("{Creation Date}: 02/03/2001   {Creation Time}: 00:00:00\r\n"),
      std::string::npos)
      << folder.read("dated.cnc");
}

TEST_F(CommandLineJobs, ADrawingThatGivesNoProgramIsOneLine) {
  folder.write("short.cdm", "1.0\r\nPROFILE\r\n");
  outputOf("add_segment{type=1, x1=1} save([[" + folder("empty.cdm") + "]])");
  const struct {
    std::string drawing;
    std::string reason;
  } cases[] = {
      {folder("none.cdm"), "Couldn't revert to saved drawing. File not found"},
      {folder(), "it is a folder"},
      {folder("short.cdm"), "Input past end of file: " + folder("short.cdm") + " line 3 field 1"},
      {folder("empty.cdm"), "No Path Segments Placed!"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(runLine({"--make-cnc", "mill", c.drawing}), ExitStatus::JobFailed) << c.drawing;
    EXPECT_EQ(err, "tessimo: " + c.drawing + ": " + c.reason + "\n");
    EXPECT_EQ(out, "");
  }
}

TEST_F(CommandLineJobs, AProgramThatCannotBeWrittenIsOneLine) {
  const std::string part = drawing("part.cdm");
  EXPECT_EQ(runLine({"--make-cnc", "mill", part, "-o", folder("none/out.nc")}),
            ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + part + ": Path not found: " + folder("none/out.nc") + "\n");
  EXPECT_EQ(runLine({"--make-cnc", "mill", part, "-o", folder()}), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + part + ": Path/File access error: " + folder() + "\n");
}

TEST_F(CommandLineJobs, MessagesOfALoadThatWorksAreToldToo) {
  const std::string part = drawing("part.cdm");
  std::string text = folder.read("part.cdm");
  folder.write("part.cdm", text.replace(0, 3, "0.9"));
  EXPECT_EQ(runLine({"--make-cnc", "mill", part}), ExitStatus::Done);
  EXPECT_TRUE(err.starts_with("tessimo: Drawing was created with older version")) << err;
}

TEST_F(CommandLineJobs, AProgramFolderWithoutSetupFailsTheJob) {
  std::filesystem::remove(home("tess.def"));
  EXPECT_EQ(runLine({"--make-cnc", "mill", "part.cdm"}), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: File not found: " + home("tess.def") + "\n");
  home.write("tess.def", "1.0\r\nnone.msu\r\n");
  EXPECT_EQ(runLine({"--make-cnc", "mill", "part.cdm"}), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: Could not find setup file: none.msu named in " + home("tess.def") +
                     " line 2 field 1\n");
}

class ToolJobs : public CommandLineJobs {
 protected:
  // The setup of the test home with two tools of its own.
  ToolJobs() {
    runLine({"--tools", "import",
             folder.write("first.csv",
                          "number,name,diameter,flutes,type\r\n"
                          "1,end mill,0.25,2,end\r\n"
                          "7,face mill,2,4,face\r\n")});
    EXPECT_EQ(status, ExitStatus::Done) << err;
  }
  std::string setup() { return readFile(home("test.msu")); }
  ExitStatus toolsTo(const std::string& name) {
    return runLine({"--tools", "export", folder(name)});
  }
  ExitStatus toolsFrom(const std::string& name) {
    return runLine({"--tools", "import", folder(name)});
  }
};

TEST_F(ToolJobs, AnImportNamesTheSetupThatItChanged) {
  EXPECT_EQ(out, home() + "test.msu\n");
  EXPECT_NE(setup().find("face mill"), std::string::npos);
}

TEST_F(ToolJobs, ARoundTripChangesNothing) {
  const std::string before = setup();
  for (const char* const name : {"tools.csv", "tool.tbl"}) {
    EXPECT_EQ(toolsTo(name), ExitStatus::Done) << err;
    EXPECT_EQ(out + err, "");
    const std::string exported = readFile(folder(name));
    EXPECT_EQ(toolsFrom(name), ExitStatus::Done) << err;
    EXPECT_EQ(setup(), before) << name;
    EXPECT_EQ(toolsTo(name), ExitStatus::Done);
    EXPECT_EQ(readFile(folder(name)), exported);
  }
}

TEST_F(ToolJobs, LinesThatCannotBeTakenAreNamedAndTheOthersAreTaken) {
  const std::string file = folder.write("bad.csv",
                                        "number,name,diameter\n"
                                        "3,drill,0.5\n"
                                        "3,again,0.5\n"
                                        "4,a name that is much too long,1\n"
                                        "5,reamer,wide\n"
                                        "\"6,tap,1\n");
  EXPECT_EQ(toolsFrom("bad.csv"), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + file + ":3: Tool 3 stands in line 2 already\n" + "tessimo: " + file +
                     ":4: The name \"a name that is much too long\" does not fit: it "
                     "has more than 20 characters\n" +
                     "tessimo: " + file + ":5: The diameter \"wide\" is not a number\n" +
                     "tessimo: " + file + ":6: A quote is not closed\n");
  EXPECT_NE(setup().find("drill"), std::string::npos);
  EXPECT_EQ(out, home() + "test.msu\n");
}

TEST_F(ToolJobs, AFileWithoutAToolLeavesTheSetupAlone) {
  const std::string before = setup();
  folder.write("none.csv", "name\nend mill\n");
  EXPECT_EQ(toolsFrom("none.csv"), ExitStatus::JobFailed);
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, "tessimo: " + folder("none.csv") + ":1: There is no column \"number\"\n");
  EXPECT_EQ(setup(), before);
}

TEST_F(ToolJobs, AnotherEndingOrAMissingFileIsOneLine) {
  EXPECT_EQ(toolsTo("tools.txt"), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + folder("tools.txt") +
                     ": a tool library is a .csv file or a tool table, .tbl\n");
  EXPECT_EQ(toolsFrom("missing.tbl"), ExitStatus::JobFailed);
  EXPECT_TRUE(err.starts_with("tessimo: " + folder("missing.tbl") + ": ")) << err;
  EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
}

TEST_F(ToolJobs, ACsvFileThatHoldsNoToolsIsNotWrittenOver) {
  folder.write("prices.csv", "article,price\nend mill,12\n");
  EXPECT_EQ(toolsTo("prices.csv"), ExitStatus::JobFailed);
  EXPECT_EQ(err,
            "tessimo: " + folder("prices.csv") + ": it holds no tools (--force writes over it)\n");
  EXPECT_EQ(readFile(folder("prices.csv")), "article,price\nend mill,12\n");
  EXPECT_EQ(runLine({"--tools", "export", folder("prices.csv"), "--force"}), ExitStatus::Done);
  EXPECT_TRUE(readFile(folder("prices.csv")).starts_with("number,name"));
  EXPECT_EQ(toolsTo("prices.csv"), ExitStatus::Done) << "a tool library is replaced";
}

TEST_F(ToolJobs, ATableKeepsWhatWasMeasuredAtTheMachine) {
  folder.write("tool.tbl", "T7 P3 D1.0 Z-4.5 ;old\nT99 P9 Z1 ;probe\n");
  EXPECT_EQ(toolsTo("tool.tbl"), ExitStatus::Done) << err;
  const std::string table = readFile(folder("tool.tbl"));
  EXPECT_NE(table.find("Z-4.5"), std::string::npos) << table;
  EXPECT_NE(table.find("T99 P9 Z1 ;probe"), std::string::npos) << table;
}

}  // namespace
}  // namespace tess
