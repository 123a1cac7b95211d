// Files and folders: lookups without regard to case, and whole-file reads whose failures carry the
// program's numbers.
#include "core/file_system.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

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

OpenFile openFile(const std::string& path) {
  if (folderExists(path)) raiseFileFailure(EISDIR, path);
  OpenFile file(std::fopen(path.c_str(), "rb"));
  if (!file) raiseFileFailure(errno, path);
  return file;
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

std::string readFile(std::string_view path) {
  const std::string found = resolvePath(path);
  const OpenFile file = openFile(found);
  std::string content;
  char block[1 << 16];
  while (const std::size_t got = std::fread(block, 1, sizeof block, file.get())) {
    content.append(block, got);
  }
  if (std::ferror(file.get()) != 0) raiseFileFailure(errno, found);
  return content;
}

void raiseFileFailure(int error, const std::string& path) {
  throw RuntimeFailure(failureOf(error), path);
}

}  // namespace tess
