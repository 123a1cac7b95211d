// Which files a file dialog lists.
// Owns: FileFilter, filtersOf, matchesPattern, endingOf.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tess {

struct FileFilter {
  std::string title;    // "Drawing Files (*.cdm)"
  std::string pattern;  // "*.cdm", or several with semicolons between
};

// The filters of "*.CDM", or of "Drawing Files (*.cdm)|*.cdm|All Files (*.*)|*.*".
std::vector<FileFilter> filtersOf(std::string_view text);

// Whether a file name fits one of the patterns, in either case of letters. `*` stands for any
// letters, `?` for one; "*.*" means every file, also one without a dot.
bool matchesPattern(std::string_view name, std::string_view pattern);

// The ending that the first pattern asks for, as ".cdm"; "" when any will do.
std::string endingOf(std::string_view pattern);

}  // namespace tess
