// Files and folders as the program sees them: both separators are read, the platform's is written,
// and names are looked up without regard to case.
// Owns: kSeparator, fileNameOf, splitPath, withSeparator, resolvePath, fullPath, fileExists,
//       folderExists, FolderEntries, listFolder, readFile, readBeginning, isSameFile,
//       raiseFileFailure, raiseNoFile.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "core/file_limits.h"

namespace tess {

inline constexpr char kSeparator = '/';

// The part behind the last separator or colon.
std::string_view fileNameOf(std::string_view path);

// Trims `path`, splits it behind its last separator or colon, writes the part up to there to
// `folder` unless it is empty, and returns the file name. An `ext` that begins with a dot replaces
// any extension of the name; one without a dot is added to a name that has none. An empty name
// stays empty.
std::string splitPath(std::string& folder, std::string_view path, std::string_view ext);

// The folder with a separator at its end; an empty one stays empty.
std::string withSeparator(std::string_view folder);

// The path with the platform's separators, each part that does not exist as written replaced by an
// existing entry that differs only in case. Parts that do not exist at all stay as written.
std::string resolvePath(std::string_view path);

// The same as a full path; a relative one starts at the present working folder.
std::string fullPath(std::string_view path);

// True when a non-empty path names a file; hidden files count, folders do not.
bool fileExists(std::string_view path);
bool folderExists(std::string_view path);

// What a folder shows of its content, both in the order of their names regardless of case.
struct FolderEntries {
  std::vector<std::string> folders;
  std::vector<std::string> files;
};

// Without hidden entries. A folder that cannot be read shows nothing.
FolderEntries listFolder(std::string_view path);

// The whole file as bytes. Raises File not found, Path not found, Permission denied, Path/File
// access error (a folder, pipe or device, or more bytes than `limit`) or Device I/O error, with the
// path as source. What is no file, or too large, is not even opened.
std::string readFile(std::string_view path, std::size_t limit = kLargestFile);
// The first `bytes` of a file, or all that it has. Raises the same, but for the size.
std::string readBeginning(std::string_view path, std::size_t bytes);

// Whether both paths lead to one file that is there: the same path, a link to it, or another name.
bool isSameFile(std::string_view a, std::string_view b);

// The failure of the operating system's error number `error`, with the path as source.
[[noreturn]] void raiseFileFailure(int error, const std::string& path);
// Path/File access error for what stands there in place of a file, by its mode.
[[noreturn]] void raiseNoFile(mode_t mode, const std::string& path);

}  // namespace tess
