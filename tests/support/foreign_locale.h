// The C library in the language of an operator, for as long as a test lasts.
// Owns: ForeignLocale.
#pragma once

#include <string>

#include "tests/support/temp_folder.h"

namespace tess::testing {

// Of a language, as in "tr_TR", in UTF-8; made for the test, so that none need be installed. Fails
// with std::runtime_error where it cannot be made.
class ForeignLocale {
 public:
  explicit ForeignLocale(const std::string& language);
  ~ForeignLocale();
  ForeignLocale(const ForeignLocale&) = delete;
  ForeignLocale& operator=(const ForeignLocale&) = delete;

 private:
  TempFolder folder_;
  std::string before_;
};

}  // namespace tess::testing
