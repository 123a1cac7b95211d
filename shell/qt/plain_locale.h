// What the C library does with texts and numbers, the same whatever the operator's locale.
// Owns: keepPlainLocale.
#pragma once

#include <clocale>

namespace tess {

// To be called once the toolkit has come up, which takes over the locale of the desktop for the
// whole process: scripts would print numbers with a comma, sort texts and turn their case by the
// rules of the operator's language, and the system would give its reasons in it. The toolkit itself
// reads what it shows from the environment.
inline void keepPlainLocale() {
  if (std::setlocale(LC_ALL, "C.UTF-8") == nullptr) std::setlocale(LC_ALL, "C");
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace tess
