// Reads a program as GRBL 1.1 does, and refuses what it refuses, with GRBL's error number. The
// rules follow its list of error codes and the order in which it looks for them.
// Owns: readGrblProgram.
#pragma once

#include <string>

#include "tests/support/gcode_reader.h"

namespace tess::testing {

// Raises GcodeError, "line 3: error:20" and what it is about, for the first line that GRBL would
// answer so. Without a number it refuses what GRBL takes and no program may hold: characters that
// act at once wherever they stand, moves before units and absolute mode are set, and moves to
// places that the program does not tell.
GcodeProgram readGrblProgram(const std::string& text);

}  // namespace tess::testing
