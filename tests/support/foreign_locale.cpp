// A locale compiled from Debian's sources of it.
#include "tests/support/foreign_locale.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>

namespace tess::testing {

ForeignLocale::ForeignLocale(const std::string& language)
    : before_(std::setlocale(LC_ALL, nullptr)) {
  const std::string name = language + ".UTF-8";
  const std::string make = "localedef -i " + language + " -f UTF-8 '" + folder_(name) + "'";
  const bool made = std::system(make.c_str()) == 0;
  ::setenv("LOCPATH", folder_().c_str(), /*replace=*/1);
  if (!made || std::setlocale(LC_ALL, name.c_str()) == nullptr) {
    throw std::runtime_error("no locale " + name);
  }
}

ForeignLocale::~ForeignLocale() {
  ::unsetenv("LOCPATH");
  std::setlocale(LC_ALL, before_.c_str());
}

}  // namespace tess::testing
