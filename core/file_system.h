// Files and folders as the program sees them: both separators are read, the platform's is written,
// and names are looked up without regard to case.
// Owns: kSeparator, fileNameOf, splitPath, withSeparator, resolvePath, fullPath, fileExists,
//       folderExists, FolderEntries, listFolder, readFile, raiseFileFailure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

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
// access error (a folder) or Device I/O error, with the path as source.
std::string readFile(std::string_view path);

// The failure of the operating system's error number `error`, with the path as source.
[[noreturn]] void raiseFileFailure(int error, const std::string& path);

}  // namespace tess
