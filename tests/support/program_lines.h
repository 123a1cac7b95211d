// A program of as many lines as are wanted.
// Owns: programOfLines.
#pragma once

#include <string>

namespace tess::testing {

inline std::string programOfLines(int lines) {
  std::string text;
  for (int line = 1; line <= lines; ++line) {
    text +=
        "G01 X" + std::to_string(line) + ".12345 Y-" + std::to_string(line % 777) + ".5 F120\r\n";
  }
  return text;
}

}  // namespace tess::testing
