// The one line in which a job says on standard error what went wrong.
// Owns: oneLine, describe, say.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "core/runtime_failure.h"

namespace tess {

// The text with its line ends turned into blanks.
std::string oneLine(std::string_view text);

// The failure's description, and where it happened as far as it is known.
std::string describe(const RuntimeFailure& failure);

// Writes the line with the program's name in front.
void say(std::ostream& err, std::string_view text);

}  // namespace tess
