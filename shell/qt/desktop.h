// The program with its main window. This header knows nothing of the toolkit.
// Owns: DesktopRequest, runDesktop, playScript.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "shell/automation/command_line.h"

namespace tess {

struct DesktopRequest {
  std::string drawing;              // to open, as it was typed; empty for none
  std::optional<std::string> home;  // the program's folder, if one was named
  std::string jetReader{};          // the program that reads Jet databases; empty: none does
};

// Shows the main window and serves it until it is closed. `arguments` begin with the program's own
// name; the toolkit reads its options from them. Gives the exit status of the process.
int runDesktop(const DesktopRequest& request, std::vector<std::string> arguments);

// The same for a PlayScript: the script runs in the main window, at a pace that a person can
// follow, and the window closes after it. A failure gives one line on standard error.
ExitStatus playScript(const CommandLine& line, std::vector<std::string> arguments);

}  // namespace tess
