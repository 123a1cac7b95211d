// Whole outputs held against files that were reviewed by eye.
// Owns: expectGolden.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/source_folder.h"
#include "tests/support/write_file.h"

namespace tess::testing {

// Compares bytes with the file `name` under tests/. With TESSIMO_PROMOTE_GOLDENS set the file is
// written instead, and the test fails so that nobody takes that for a pass; scripts/promote_goldens
// does this, and the difference is read in review.
inline void expectGolden(std::string_view name, std::string_view actual) {
  const std::string path = std::string(TESSIMO_SOURCE_DIR) + "/tests/" + std::string(name);
  if (std::getenv("TESSIMO_PROMOTE_GOLDENS") != nullptr) {
    writeFile(path, actual);
    ADD_FAILURE() << "promoted " << path;
    return;
  }
  EXPECT_EQ(readFile(path), actual) << "differs from " << path;
}

}  // namespace tess::testing
