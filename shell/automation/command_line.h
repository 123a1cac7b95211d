// The command line: what was asked for, and the jobs that need no window.
// Owns: Job, CommandLine, parseCommandLine, runCommandLine, reportingFailures, scriptJob.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "cnc/cnc_program.h"
#include "shell/automation/script_runner.h"

namespace tess {

enum class Job { Window, RunScript, PlayScript, MakeCnc, Plot, Print, Check, Tools, PrintAndExit };

struct CommandLine {
  Job job = Job::Window;
  std::optional<std::string> home;
  std::string drawing;  // to open in the window, or to make a program or a picture of
  std::string script;   // of RunScript and PlayScript
  std::vector<std::string> scriptArguments;
  bool allowIo = false;
  double timeout = 0;  // of the script, in seconds; 0: none
  CncMode mode = CncMode::Mill;
  std::string output;                // of the program; empty: where its rules put it
  std::string setup;                 // of the program; empty: the one in force
  std::string picture;               // of Plot; the PDF file of Print
  double scale = 1;                  // of Print: paper over part
  std::optional<std::string> sheet;  // of Print: the name of a paper size
  std::string library;               // of Tools
  bool importsTools = false;         // from it; else they go there
  bool force = false;                // over what a program or a picture does not replace by itself
  PixelSize size;                    // of the surface that nobody sees, or of the picture
  std::optional<DateTime> date;  // that programs and drawings bear; none: of the machine's clock
  bool showProgress = false;     // on the error stream: for a terminal
  std::string jetReader{};       // the program that reads Jet databases; empty: none does
  Paper* paper = nullptr;        // null: nothing can be printed

  // Of PrintAndExit: --help, --version or wrong usage.
  ExitStatus status = ExitStatus::Done;
  std::string text;
};

// Reads the arguments behind the program's own name.
CommandLine parseCommandLine(std::vector<std::string> arguments);

// Does any job but Window and PlayScript.
ExitStatus runCommandLine(const CommandLine& line, const PictureWriter& writePicture,
                          std::ostream& out, std::ostream& err);

// Runs a job whose failures, whatever they are, end as a line on `err`.
ExitStatus reportingFailures(std::ostream& err, const std::function<ExitStatus()>& job);

// The script of a RunScript or PlayScript with all that the command line says about it.
ScriptJob scriptJob(const CommandLine& line);

}  // namespace tess
