// Replacing files so that a failed write loses nothing: the new content is complete on the disk
// before anything that was there is touched.
// Owns: FileReplacement, replaceFile, replaceWithBackup.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tess {

struct FileReplacement {
  std::string path;
  std::optional<std::string> content;  // nothing: the file shall be gone
};

// Replaces one file. Symbolic links are followed and the permissions stay. Raises Path not found,
// Permission denied, Path/File access error (something there is no file), Disk full or Device I/O
// error, with the path as source; the file is then what it was.
void replaceFile(std::string_view path, std::string_view content);

// Replaces files that belong together: either all of them, or, with a failure as above, none. What
// was there stays beside each, with a tilde behind its name, in place of an earlier backup; where
// nothing was there no backup stays either.
void replaceWithBackup(std::span<const FileReplacement> replacements);

}  // namespace tess
