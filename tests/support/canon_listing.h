// What an RS-274 interpreter says a machine does: one canonical call a line, as LinuxCNC's rs274
// prints them.
// Owns: lengthOfTool, readCanonListing.
#pragma once

#include <string>

#include "tests/support/gcode_reader.h"

namespace tess::testing {

// In the tool table of the machine, in inches, so that a length that is not taken over shows.
constexpr double lengthOfTool(int tool) {
  return tool / 1000.0;
}

// The motions of a listing; lines count those of the listing. Raises GcodeError for a call that a
// program of a drawing has no reason for, for a motion with the length of another tool than that in
// the spindle, and for a program without its end.
GcodeProgram readCanonListing(const std::string& listing, bool lathe);

}  // namespace tess::testing
