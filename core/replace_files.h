// Replacing files that belong together, so that neither a failed write nor the end of the process
// loses anything: all new content is complete on the disk before anything that was there is
// touched, and a journal tells from then on how to go on.
// Owns: FileReplacement, Backup, replaceWithBackup.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/checksum.h"
#include "core/runtime_failure.h"
#include "core/write_guard.h"

namespace tess {

struct FileReplacement {
  std::string path;
  std::optional<std::string> content;     // nothing: the file shall be gone
  std::optional<Checksum> checksum = {};  // of the content, where that is known already
  std::optional<Checksum> present = {};   // of what is there now, likewise
};

enum class Backup {
  Renew,  // what was there becomes the backup, a tilde behind its name; nothing: no backup either
  Keep,   // an earlier backup stays, whatever was there is gone
};

// Replaces files that belong together: either all of them, or, with a failure as writeFile raises,
// none. Hold the lock of their folder meanwhile. Gives the failure that came when all was in its
// place already, such as that of a backup: the journal then stays for settleFiles.
std::optional<RuntimeFailure> replaceWithBackup(WriteGuard& guard,
                                                std::span<const FileReplacement> replacements,
                                                Backup backup = Backup::Renew);

}  // namespace tess
