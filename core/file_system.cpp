// Files and folders: lookups without regard to case, and whole-file reads whose failures carry the
// program's numbers.
#include "core/file_system.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "core/descriptor.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

std::string withPlatformSeparators(std::string_view path) {
  std::string result(path);
  for (char& letter : result) {
    if (letter == '\\') letter = kSeparator;
  }
  return result;
}

bool entryExists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

// The entry of `folder` that is `name` but for case; `name` itself when there is none. Of several
// the first in the order of their names, so that the answer does not depend on the file system.
std::string entryIgnoringCase(const fs::path& folder, const std::string& name) {
  std::error_code error;
  std::string found;
  for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    std::string candidate = entry->path().filename().string();
    if (!equalIgnoringCase(candidate, name)) continue;
    if (found.empty() || candidate < found) found = std::move(candidate);
  }
  return found.empty() ? name : found;
}

FailureNumber failureOf(int error) {
  switch (error) {
    case ENOENT:
      return FailureNumber::FileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
      return FailureNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return FailureNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FailureNumber::DiskFull;
    case EISDIR:
      return FailureNumber::PathFileAccess;
    case EEXIST:
      return FailureNumber::FileExists;
    default:
      return FailureNumber::DeviceInputOutput;
  }
}

// A pipe would keep the program waiting, and opening a device may set it going: what is no file is
// left alone.
Descriptor openFile(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) raiseFileFailure(errno, path);
  if (!S_ISREG(state.st_mode)) raiseNoFile(state.st_mode, path);
  Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.isOpen() || ::fstat(file.number(), &state) != 0) raiseFileFailure(errno, path);
  if (!S_ISREG(state.st_mode)) raiseNoFile(state.st_mode, path);
  return file;
}

std::size_t sizeOf(const Descriptor& file, const std::string& path) {
  struct stat state {};
  if (::fstat(file.number(), &state) != 0) raiseFileFailure(errno, path);
  return static_cast<std::size_t>(state.st_size);
}

// Reads up to `most` bytes; a file may have grown since its size was asked.
std::string readUpTo(const Descriptor& file, std::size_t most, const std::string& path) {
  std::string content;
  content.resize(std::min(most, sizeOf(file, path) + 1));
  std::size_t filled = 0;
  while (filled < most) {
    if (filled == content.size()) content.resize(std::min(most, 2 * filled));
    const ssize_t got = ::read(file.number(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) raiseFileFailure(errno, path);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
  return content;
}

[[noreturn]] void raiseTooLarge(std::size_t size, std::size_t limit, const std::string& path) {
  throw RuntimeFailure(FailureNumber::PathFileAccess, path,
                       "The file is too large (" + std::to_string(size) + " bytes, at most " +
                           std::to_string(limit) + ")");
}

const char* kindOf(mode_t mode) {
  if (S_ISFIFO(mode)) return "pipe";
  return S_ISSOCK(mode) ? "socket" : "device";
}

void sortIgnoringCase(std::vector<std::string>& names) {
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(lowerCased(a), a) < std::pair(lowerCased(b), b);
  });
}

}  // namespace

std::string_view fileNameOf(std::string_view path) {
  const std::size_t last = path.find_last_of("\\/:");
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string splitPath(std::string& folder, std::string_view path, std::string_view ext) {
  path = trimmed(path);
  std::string name(fileNameOf(path));
  if (name.size() < path.size()) folder = path.substr(0, path.size() - name.size());
  if (name.empty()) return name;
  const std::size_t dot = name.rfind('.');
  if (ext.starts_with('.')) return name.substr(0, dot).append(ext);
  if (dot != std::string::npos) return name;
  return name.append(".").append(ext);
}

std::string withSeparator(std::string_view folder) {
  std::string result(folder);
  const bool ends = result.empty() || result.back() == '\\' || result.back() == kSeparator;
  if (!ends) result.push_back(kSeparator);
  return result;
}

std::string resolvePath(std::string_view path) {
  const std::string wanted = withPlatformSeparators(path);
  if (entryExists(wanted)) return wanted;
  const bool folderWanted = wanted.ends_with(kSeparator);
  fs::path found;
  for (const fs::path& part : fs::path(wanted)) {
    const bool known = part.empty() || entryExists(found / part);
    found /= known ? part : fs::path(entryIgnoringCase(found, part.string()));
  }
  std::string result = found.string();
  if (folderWanted && !result.ends_with(kSeparator)) result.push_back(kSeparator);
  return result;
}

std::string fullPath(std::string_view path) {
  return fs::absolute(resolvePath(path)).string();
}

bool fileExists(std::string_view path) {
  std::error_code ignored;
  const std::string found = resolvePath(path);
  return !path.empty() && fs::exists(found, ignored) && !fs::is_directory(found, ignored);
}

bool folderExists(std::string_view path) {
  std::error_code ignored;
  return !path.empty() && fs::is_directory(resolvePath(path), ignored);
}

FolderEntries listFolder(std::string_view path) {
  FolderEntries entries;
  std::error_code error;
  for (fs::directory_iterator entry(resolvePath(path), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with('.')) continue;
    std::error_code unknown;
    (entry->is_directory(unknown) ? entries.folders : entries.files).push_back(name);
  }
  sortIgnoringCase(entries.folders);
  sortIgnoringCase(entries.files);
  return entries;
}

std::string readFile(std::string_view path, std::size_t limit) {
  const std::string found = resolvePath(path);
  const Descriptor file = openFile(found);
  if (const std::size_t size = sizeOf(file, found); size > limit) raiseTooLarge(size, limit, found);
  std::string content = readUpTo(file, limit + 1, found);
  if (content.size() > limit) raiseTooLarge(content.size(), limit, found);
  return content;
}

std::string readBeginning(std::string_view path, std::size_t bytes) {
  const std::string found = resolvePath(path);
  return readUpTo(openFile(found), bytes, found);
}

bool isSameFile(std::string_view a, std::string_view b) {
  std::error_code different;
  return fs::equivalent(resolvePath(a), resolvePath(b), different);
}

void raiseFileFailure(int error, const std::string& path) {
  throw RuntimeFailure(failureOf(error), path);
}

void raiseNoFile(mode_t mode, const std::string& path) {
  if (S_ISDIR(mode)) raiseFileFailure(EISDIR, path);
  constexpr FailureNumber kNumber = FailureNumber::PathFileAccess;
  throw RuntimeFailure(kNumber, path,
                       std::string(descriptionOf(kNumber)) + " (it is a " + kindOf(mode) + ")");
}

}  // namespace tess
