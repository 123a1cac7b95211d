// Numbers as the program reads and writes them, with a point, whatever the operator's locale.
// Owns: keepPlainNumbers.
#pragma once

#include <clocale>

namespace tess {

// To be called once the toolkit has come up, which takes over the locale of the desktop for the
// whole process: scripts would print numbers with a comma.
inline void keepPlainNumbers() {
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace tess
