// Files as a test finds them lying about: written in place, past everything that the program does
// for its own.
// Owns: writeFile.
#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tess::testing {

inline void writeFile(const std::string& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

}  // namespace tess::testing
