// The options, and which of them go together.
#include "shell/automation/command_line.h"

#include <algorithm>
#include <ostream>
#include <sstream>

#include "CLI/CLI.hpp"

#include "core/version.h"
#include "shell/automation/file_jobs.h"
#include "shell/automation/reports.h"
#include "shell/program_folder.h"

namespace tess {
namespace {

constexpr char kRun[] = "--run";
constexpr char kFooter[] =
    "Everything behind SCRIPT belongs to the script, which finds it in arg[1], arg[2], ...\n"
    "Exit status: 0 done, 1 the job failed, 2 wrong usage.";

// What the options hold while they are read.
struct Options {
  CommandLine line;
  std::string home;
  std::string mode;
};

// The arguments of the script are none of the program's options, whatever they look like.
std::vector<std::string> splitOffScript(std::vector<std::string>& arguments) {
  const auto run = std::find(arguments.begin(), arguments.end(), kRun);
  if (arguments.end() - run < 2) return {};
  const auto first = run + 2;
  std::vector<std::string> rest(first, arguments.end());
  arguments.erase(first, arguments.end());
  return rest;
}

void addOptions(CLI::App& app, Options& options) {
  app.set_help_flag("--help", "Print this text and exit");
  app.set_version_flag("--version", std::string(kProductName) + " " + kVersionText,
                       "Print the version and exit");
  app.footer(kFooter);
  app.add_option("--home", options.home, "Use DIR as the program's folder")->type_name("DIR");
  app.add_flag("--allow-io", options.line.allowIo,
               "Give the script Lua's io, os and package libraries");
  auto* const run = app.add_option(kRun, options.line.script, "Run a script without a window")
                        ->type_name("SCRIPT.lua [ARG ...]");
  auto* const make = app.add_option("--make-cnc", options.mode, "Write the CNC program of DRAWING")
                         ->type_name("mill|lathe")
                         ->check(CLI::IsMember({"mill", "lathe"}).description(""))
                         ->excludes(run);
  app.add_option("-o", options.line.output, "Write the program to FILE")
      ->type_name("FILE")
      ->needs(make);
  app.add_option("DRAWING", options.line.drawing, "The drawing to open, or to make a program of")
      ->excludes(run);
}

// The job that the options make up; throws what CLI11 does for options that make none.
void settle(const CLI::App& app, Options& options) {
  CommandLine& line = options.line;
  if (app.count("--home") > 0) line.home = options.home;
  if (line.allowIo && app.count(kRun) == 0) throw CLI::RequiresError("--allow-io", kRun);
  if (app.count(kRun) > 0) line.job = Job::RunScript;
  if (app.count("--make-cnc") == 0) return;
  if (line.drawing.empty()) throw CLI::RequiresError("--make-cnc", "DRAWING");
  line.job = Job::MakeCnc;
  line.mode = options.mode == "lathe" ? CncMode::Lathe : CncMode::Mill;
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

ExitStatus runScriptJob(const CommandLine& line, std::ostream& out, std::ostream& err) {
  ScriptJob job{.path = line.script,
                .arguments = line.scriptArguments,
                .appfolder = programFolder(folderRequest(line.home)),
                .folders = {},
                .fileAccess = line.allowIo,
                .limits = {}};
  if (line.home) job.folders.push_back(*line.home);
  return runScript(job, out, err);
}

ExitStatus makeProgram(const CommandLine& line, std::ostream& out, std::ostream& err) {
  return makeCncFile({.drawing = line.drawing,
                      .mode = line.mode,
                      .output = line.output,
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

ExitStatus runJob(const CommandLine& line, std::ostream& out, std::ostream& err) {
  switch (line.job) {
    case Job::RunScript:
      return runScriptJob(line, out, err);
    case Job::MakeCnc:
      return makeProgram(line, out, err);
    case Job::Window:
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

ExitStatus runCommandLine(const CommandLine& line, std::ostream& out, std::ostream& err) {
  try {
    return runJob(line, out, err);
  } catch (const RuntimeFailure& failure) {
    say(err, describe(failure));
  } catch (const std::exception& failure) {
    say(err, failure.what());
  }
  return ExitStatus::JobFailed;
}

}  // namespace tess
