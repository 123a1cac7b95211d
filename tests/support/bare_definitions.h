// The definitions as they were before they told of controls. Programs by them stay byte for byte as
// they are: the goldens and what is told of single lines rest on that. The shipped definitions are
// held against the path rows in tests/jobs.
// Owns: useBareDefinitions.
#pragma once

#include <string>

#include "core/file_system.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

// In place of those of the same names in a program's folder.
inline void useBareDefinitions(const TempFolder& home) {
  for (const char* name : {"standard.msx", "mill_inch.msx", "mill_mm.msx", "lathe.msx"}) {
    home.write(name, readFile(TESSIMO_SOURCE_DIR "/tests/cnc/bare/" + std::string(name)));
  }
}

}  // namespace tess::testing
