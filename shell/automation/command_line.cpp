// The options, and which of them go together.
#include "shell/automation/command_line.h"

#include <algorithm>
#include <charconv>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "CLI/CLI.hpp"

#include "core/date_text.h"
#include "core/version.h"
#include "display/scaled_print.h"
#include "shell/automation/file_jobs.h"
#include "shell/automation/reports.h"
#include "shell/program_folder.h"

namespace tess {
namespace {

constexpr char kRun[] = "--run";
constexpr char kPlay[] = "--play";
constexpr char kExport[] = "export";
constexpr char kImport[] = "import";
constexpr char kFooter[] =
    "Everything behind SCRIPT belongs to the script, which finds it in arg[1], arg[2], ...\n"
    "Exit status: 0 done, 1 the job failed, 2 wrong usage.";

// What the options hold while they are read.
struct Options {
  CommandLine line;
  std::string home;
  std::string mode;
  std::string size;
  std::string date;
  bool checks = false;
  std::string scale;
  std::string sheet;
  std::vector<std::string> tools;  // what to do, and the file
};

// The arguments of the script are none of the program's options, whatever they look like.
std::vector<std::string> splitOffScript(std::vector<std::string>& arguments) {
  const auto run = std::find_if(arguments.begin(), arguments.end(), [](const std::string& word) {
    return word == kRun || word == kPlay;
  });
  if (arguments.end() - run < 2) return {};
  const auto first = run + 2;
  std::vector<std::string> rest(first, arguments.end());
  arguments.erase(first, arguments.end());
  return rest;
}

// "640x480"; nothing for another text or an impossible size.
std::optional<PixelSize> sizeIn(const std::string& text) {
  PixelSize size{0, 0};
  const char* const end = text.data() + text.size();
  const auto [cross, bad] = std::from_chars(text.data(), end, size.width);
  if (bad != std::errc() || cross == end || (*cross != 'x' && *cross != 'X')) return std::nullopt;
  const auto [last, wrong] = std::from_chars(cross + 1, end, size.height);
  if (wrong != std::errc() || last != end || !isUsable(size)) return std::nullopt;
  return size;
}

std::string sizeError(const std::string& text) {
  if (sizeIn(text)) return {};
  return "'" + text + "' is not WIDTHxHEIGHT with sides of 1 to " + std::to_string(kLongestSide) +
         " pixels";
}

std::string dateError(const std::string& text) {
  if (momentIn(text)) return {};
  return "'" + text + "' is not a date as 2026-03-09, 2026-03-09T14:05 or 2026-03-09T14:05:07";
}

std::string scaleError(const std::string& text) {
  if (readPrintScale(text)) return {};
  return "'" + text + "' is not a scale above 0, as 1, 0.5, 1:2 or 2:1";
}

std::string paperError(const std::string& text) {
  if (paperNamed(text) != nullptr) return {};
  std::string names;
  for (const PaperSize& size : paperSizes())
    names += (names.empty() ? "" : ", ") + std::string(size.name);
  return "'" + text + "' is not one of " + names;
}

// A number of seconds that the clock can count.
std::string timeoutError(const std::string& text) {
  constexpr double kLongest = 1e9;
  double seconds = 0;
  const char* const end = text.data() + text.size();
  const auto [last, wrong] = std::from_chars(text.data(), end, seconds);
  const bool usable = wrong == std::errc() && last == end && seconds >= 0 && seconds <= kLongest;
  return usable ? "" : "'" + text + "' is not a number of seconds, as 60 or 0.5";
}

std::string emptyError(const std::string& text) {
  return text.empty() ? "a name is missing" : "";
}

void addScriptOptions(CLI::App& app, Options& options) {
  app.add_flag("--allow-io", options.line.allowIo,
               "Give the script Lua's io, os and package libraries");
  app.add_option(kRun, options.line.script, "Run a script without a window")
      ->type_name("SCRIPT.lua [ARG ...]");
  app.add_option(kPlay, options.line.script,
                 "Run a script in the main window, slowly enough to follow")
      ->type_name("SCRIPT.lua [ARG ...]")
      ->excludes(kRun);
  app.add_option("--timeout", options.line.timeout,
                 "End a script that runs longer; 0, as without it, lets it run")
      ->type_name("SECONDS")
      ->check(CLI::Validator(timeoutError, ""));
}

void addPrintOptions(CLI::App& app, Options& options) {
  auto* const print = app.add_option("--print", options.line.picture,
                                     "Write DRAWING to FILE.pdf, to scale and on as many sheets as "
                                     "it takes")
                          ->type_name("FILE.pdf")
                          ->excludes(kRun)
                          ->excludes(kPlay)
                          ->excludes("--make-cnc")
                          ->excludes("--plot");
  app.add_option("--scale", options.scale, "Scale of --print, paper to part; 1:1 without it")
      ->type_name("S|S:S")
      ->check(CLI::Validator(scaleError, ""))
      ->needs(print);
  app.add_option("--paper", options.sheet, "Sheets of --print; those of the page set-up without it")
      ->type_name("NAME")
      ->check(CLI::Validator(paperError, ""))
      ->needs(print);
}

void addFileOptions(CLI::App& app, Options& options) {
  auto* const make = app.add_option("--make-cnc", options.mode, "Write the CNC program of DRAWING")
                         ->type_name("mill|lathe")
                         ->check(CLI::IsMember({"mill", "lathe"}).description(""))
                         ->excludes(kRun)
                         ->excludes(kPlay);
  app.add_option("-o", options.line.output, "Write the program to FILE")
      ->type_name("FILE")
      ->needs(make);
  app.add_option("--setup", options.line.setup,
                 "Make the program by this setup of the program's folder and its definition")
      ->type_name("NAME")
      ->needs(make)
      ->check(CLI::Validator(emptyError, ""));
  auto* const plot =
      app.add_option("--plot", options.line.picture,
                     "Write a picture of DRAWING to FILE.png, or to FILE.svg in real units")
          ->type_name("FILE.png|svg")
          ->excludes(kRun)
          ->excludes(kPlay)
          ->excludes(make);
  addPrintOptions(app, options);
  auto* const check =
      app.add_flag("--check", options.checks,
                   "Print the path proof of DRAWING; status 1 when a limit is passed")
          ->excludes(kRun)
          ->excludes(kPlay)
          ->excludes(make)
          ->excludes(plot)
          ->excludes("--print");
  app.add_option("--tools", options.tools,
                 "Write the tools of the setup to FILE.csv or FILE.tbl, or take its tools over")
      ->type_name("export|import FILE")
      ->type_size(2)
      ->expected(1)
      ->excludes(kRun)
      ->excludes(kPlay)
      ->excludes(make)
      ->excludes(plot)
      ->excludes(check);
  app.add_flag("--force", options.line.force,
               "Write the program over any file, and by a damaged definition");
  app.add_option("DRAWING", options.line.drawing,
                 "The drawing to open, to plot, to check, or to make a program of")
      ->excludes(kRun)
      ->excludes(kPlay);
}

void addOptions(CLI::App& app, Options& options) {
  app.set_help_flag("--help", "Print this text and exit");
  app.set_version_flag("--version", std::string(kProductName) + " " + kVersionText,
                       "Print the version and exit");
  app.footer(kFooter);
  app.add_option("--home", options.home, "Use DIR as the program's folder")->type_name("DIR");
  addScriptOptions(app, options);
  addFileOptions(app, options);
  app.add_option("--size", options.size,
                 "Size of the view of a script, or of the picture of --plot")
      ->type_name("WxH")
      ->check(CLI::Validator(sizeError, ""));
  app.add_option("--date", options.date,
                 "Date and time that programs and drawings get, instead of today's")
      ->type_name("YYYY-MM-DD[THH:MM[:SS]]")
      ->check(CLI::Validator(dateError, ""));
}

// An option that says more about jobs of some kinds; throws when there is none of them.
bool isGiven(const CLI::App& app, const char* option, bool withThem, const char* jobs) {
  if (app.count(option) == 0) return false;
  if (!withThem) throw CLI::RequiresError(option, jobs);
  return true;
}

void settleTools(const CLI::App& app, Options& options) {
  CommandLine& line = options.line;
  if (app.count("DRAWING") > 0) throw CLI::ExcludesError("DRAWING", "--tools");
  const std::string& what = options.tools.front();
  if (what != kExport && what != kImport) {
    throw CLI::ValidationError("--tools", "'" + what + "' is neither export nor import");
  }
  line.job = Job::Tools;
  line.importsTools = what == kImport;
  line.library = options.tools.back();
}

void settleDrawing(Options& options, const char* option, Job job) {
  CommandLine& line = options.line;
  if (line.drawing.empty()) throw CLI::RequiresError(option, "DRAWING");
  line.job = job;
  line.mode = options.mode == "lathe" ? CncMode::Lathe : CncMode::Mill;
}

// The job that the options make up; throws what CLI11 does for options that make none.
void settle(const CLI::App& app, Options& options) {
  CommandLine& line = options.line;
  const bool plays = app.count(kPlay) > 0;
  const bool plots = app.count("--plot") > 0;
  const bool makes = app.count("--make-cnc") > 0;
  const bool prints = app.count("--print") > 0;
  const bool checks = options.checks;
  if (app.count("--home") > 0) line.home = options.home;
  if (app.count(kRun) > 0) line.job = Job::RunScript;
  if (plays) line.job = Job::PlayScript;
  if (line.allowIo && line.script.empty()) throw CLI::RequiresError("--allow-io", kRun);
  const bool scripts = !line.script.empty();
  isGiven(app, "--timeout", scripts, "--run or --play");
  if (isGiven(app, "--size", scripts || plots, "--run or --plot"))
    line.size = *sizeIn(options.size);
  const bool exchanges = app.count("--tools") > 0;
  isGiven(app, "--force", plots || makes || prints || exchanges,
          "--make-cnc, --plot, --print or --tools");
  if (isGiven(app, "--date", scripts || plots || makes, "--run, --make-cnc or --plot")) {
    line.date = momentIn(options.date);
  }
  if (!options.scale.empty()) line.scale = *readPrintScale(options.scale);
  if (!options.sheet.empty()) line.sheet = options.sheet;
  if (exchanges) settleTools(app, options);
  if (plots) settleDrawing(options, "--plot", Job::Plot);
  if (prints) settleDrawing(options, "--print", Job::Print);
  if (makes) settleDrawing(options, "--make-cnc", Job::MakeCnc);
  if (checks) settleDrawing(options, "--check", Job::Check);
}

CommandLine printAndExit(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream out;
  std::ostringstream ignored;
  CommandLine line;
  line.job = Job::PrintAndExit;
  if (app.exit(error, out, ignored) == 0) {
    line.text = out.str();
  } else {
    line.status = ExitStatus::WrongUsage;
    line.text = std::string(error.what()) + " (see tessimo --help)";
  }
  return line;
}

ExitStatus makeProgram(const CommandLine& line, std::ostream& out, std::ostream& err) {
  return makeCncFile({.drawing = line.drawing,
                      .mode = line.mode,
                      .output = line.output,
                      .setup = line.setup,
                      .force = line.force,
                      .appfolder = programFolder(folderRequest(line.home)),
                      .date = line.date},
                     out, err);
}

ExitStatus plotDrawing(const CommandLine& line, const PictureWriter& writePicture,
                       std::ostream& err) {
  return writePlot({.drawing = line.drawing,
                    .picture = line.picture,
                    .force = line.force,
                    .size = line.size,
                    .appfolder = programFolder(folderRequest(line.home)),
                    .date = line.date},
                   writePicture, err);
}

ExitStatus printDrawing(const CommandLine& line, std::ostream& err) {
  return writePrint({.drawing = line.drawing,
                     .file = line.picture,
                     .scale = line.scale,
                     .sheet = line.sheet,
                     .force = line.force,
                     .appfolder = programFolder(folderRequest(line.home)),
                     .paper = line.paper},
                    err);
}

ExitStatus checkDrawing(const CommandLine& line, std::ostream& out, std::ostream& err) {
  return checkPaths({.drawing = line.drawing, .appfolder = programFolder(folderRequest(line.home))},
                    out, err);
}

ExitStatus exchangeToolChest(const CommandLine& line, std::ostream& out, std::ostream& err) {
  return exchangeTools({.file = line.library,
                        .imports = line.importsTools,
                        .force = line.force,
                        .appfolder = programFolder(folderRequest(line.home))},
                       out, err);
}

ExitStatus printText(const CommandLine& line, std::ostream& out, std::ostream& err) {
  if (line.status == ExitStatus::Done) {
    out << line.text;
  } else {
    say(err, line.text);
  }
  return line.status;
}

ExitStatus runJob(const CommandLine& line, const PictureWriter& writePicture, std::ostream& out,
                  std::ostream& err) {
  switch (line.job) {
    case Job::RunScript:
      return runScript(scriptJob(line), writePicture, out, err);
    case Job::MakeCnc:
      return makeProgram(line, out, err);
    case Job::Plot:
      return plotDrawing(line, writePicture, err);
    case Job::Print:
      return printDrawing(line, err);
    case Job::Check:
      return checkDrawing(line, out, err);
    case Job::Tools:
      return exchangeToolChest(line, out, err);
    case Job::Window:
    case Job::PlayScript:
      throw std::logic_error("a window is not the business of a job without one");
    case Job::PrintAndExit:
      break;
  }
  return printText(line, out, err);
}

}  // namespace

CommandLine parseCommandLine(std::vector<std::string> arguments) {
  Options options;
  options.line.scriptArguments = splitOffScript(arguments);
  CLI::App app("Tessimo Mill: drawings and tool paths for small CNC mills and lathes", "tessimo");
  addOptions(app, options);
  try {
    std::reverse(arguments.begin(), arguments.end());  // CLI11 takes them from the back
    app.parse(std::move(arguments));
    settle(app, options);
  } catch (const CLI::ParseError& error) {
    return printAndExit(app, error);
  }
  return options.line;
}

ScriptJob scriptJob(const CommandLine& line) {
  ScriptJob job{.path = line.script,
                .arguments = line.scriptArguments,
                .appfolder = programFolder(folderRequest(line.home)),
                .folders = {},
                .fileAccess = line.allowIo,
                .size = line.size,
                .date = line.date,
                .limits = {},
                .timeout = line.timeout,
                .showProgress = line.showProgress,
                .jetReader = line.jetReader,
                .userfolder = userFolder(folderRequest(line.home)),
                .paper = line.paper};
  if (line.home) job.folders.push_back(*line.home);
  return job;
}

ExitStatus reportingFailures(std::ostream& err, const std::function<ExitStatus()>& job) {
  try {
    return job();
  } catch (const RuntimeFailure& failure) {
    say(err, describe(failure));
  } catch (const std::exception& failure) {
    say(err, failure.what());
  }
  return ExitStatus::JobFailed;
}

ExitStatus runCommandLine(const CommandLine& line, const PictureWriter& writePicture,
                          std::ostream& out, std::ostream& err) {
  return reportingFailures(err, [&] { return runJob(line, writePicture, out, err); });
}

}  // namespace tess
