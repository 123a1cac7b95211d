// The command line: what was asked for, and the jobs that need no window.
// Owns: Job, CommandLine, parseCommandLine, runCommandLine.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "cnc/cnc_program.h"
#include "shell/automation/script_runner.h"

namespace tess {

enum class Job { Window, RunScript, MakeCnc, PrintAndExit };

struct CommandLine {
  Job job = Job::Window;
  std::optional<std::string> home;
  std::string drawing;  // to open in the window, or to make a program of; may be empty
  std::string script;
  std::vector<std::string> scriptArguments;
  bool allowIo = false;
  CncMode mode = CncMode::Mill;
  std::string output;  // of the program; empty: where its rules put it

  // Of PrintAndExit: --help, --version or wrong usage.
  ExitStatus status = ExitStatus::Done;
  std::string text;
};

// Reads the arguments behind the program's own name.
CommandLine parseCommandLine(std::vector<std::string> arguments);

// Does any job but Window.
ExitStatus runCommandLine(const CommandLine& line, std::ostream& out, std::ostream& err);

}  // namespace tess
