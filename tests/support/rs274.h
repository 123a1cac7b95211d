// LinuxCNC's interpreter as a judge of programs: `rs274` reads one without a machine and tells each
// move. scripts/setup unpacks it; where it is not, tests that need it are skipped.
// Owns: whyNoInterpreter, interpreted.
#pragma once

#include <optional>
#include <string>

#include "tests/support/gcode_reader.h"

namespace tess::testing {

// Why there is no interpreter here; nothing when there is.
std::optional<std::string> whyNoInterpreter();

// What the program makes a machine do that starts with the tools 1 to 100. Raises GcodeError with
// the interpreter's words for a program that it refuses.
GcodeProgram interpreted(const std::string& program, bool lathe);

}  // namespace tess::testing
