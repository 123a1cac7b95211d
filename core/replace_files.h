// Replacing files that belong together, so that a failed write loses nothing: all new content is
// complete on the disk before anything that was there is touched.
// Owns: FileReplacement, replaceWithBackup.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/write_guard.h"

namespace tess {

struct FileReplacement {
  std::string path;
  std::optional<std::string> content;  // nothing: the file shall be gone
  FileKind kind = FileKind::Drawing;
};

// Replaces files that belong together: either all of them, or, with a failure as writeFile raises,
// none. What was there stays beside each, with a tilde behind its name, in place of an earlier
// backup; where nothing was there no backup stays either.
void replaceWithBackup(WriteGuard& guard, std::span<const FileReplacement> replacements);

}  // namespace tess
