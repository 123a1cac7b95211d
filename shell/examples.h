// The drawings that ship with the program to be tried: their list, and the copies that are opened.
// Owns: Example, availableExamples, copyExample.
#pragma once

#include <string>
#include <vector>

#include "core/write_guard.h"

namespace tess {

struct Example {
  std::string file;   // of the drawing, without its folder
  std::string title;  // a line for the operator
};

// Those that the list in the folder names and that are there; none without a list. Raises what
// FieldReader::open raises, and Input past end of file for a line that is cut off.
std::vector<Example> availableExamples(const std::string& folder);

// Puts the drawing and what belongs to it into a folder, both with their last separator, under its
// own name or, where that is taken, with a number behind it. Gives the name. Raises the failures
// of reading and writing.
std::string copyExample(WriteGuard& guard, const Example& example, const std::string& from,
                        const std::string& to);

}  // namespace tess
