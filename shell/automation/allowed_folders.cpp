// The folders of a script: where a path really leads, and whether that is inside.
#include "shell/automation/allowed_folders.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#include "core/descriptor.h"
#include "core/file_system.h"
#include "core/text.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

// Where the path leads once links and dots are resolved; empty when that cannot be told, as for a
// link to nowhere, which a write would follow.
fs::path resolved(const fs::path& path) {
  std::error_code error;
  const fs::path folder =
      fs::canonical(path.parent_path().empty() ? "." : path.parent_path(), error);
  if (error) return {};
  const fs::path entry = folder / path.filename();
  if (fs::symlink_status(entry, error).type() == fs::file_type::not_found) return entry;
  const fs::path target = fs::canonical(entry, error);
  return error ? fs::path() : target;
}

bool liesWithin(const fs::path& path, const fs::path& folder) {
  const auto [inFolder, inPath] =
      std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
  return inFolder == folder.end();
}

bool sharesStem(const fs::path& entry, const fs::path& path) {
  const std::string stem = path.stem().string();
  return !stem.empty() && equalIgnoringCase(entry.filename().string().substr(0, stem.size()), stem);
}

Descriptor parentOf(const Descriptor& folder) {
  return Descriptor(::openat(folder.number(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

std::string AllowedFolders::outside(const std::string& path) {
  return "'" + path +
         "' is outside the folders that this script may use: those named on the command line, "
         "the script's own and the drawing folder";
}

std::optional<AllowedFolders::Place> AllowedFolders::existing(std::string_view folder) {
  if (folder.empty()) return std::nullopt;
  std::error_code error;
  const fs::path known = fs::canonical(fs::path(resolvePath(folder)), error);
  struct stat state {};
  const bool there = !error && ::stat(known.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
  return there ? std::optional(Place{known, state.st_dev, state.st_ino}) : std::nullopt;
}

void AllowedFolders::allow(std::string_view folder) {
  if (auto known = existing(folder)) folders_.push_back(std::move(*known));
}

void AllowedFolders::setProgramFolder(std::string_view folder) {
  programFolder_ = existing(folder);
}

void AllowedFolders::allowNamedBy(std::string_view argument) {
  std::string folder(argument);
  if (!folderExists(argument)) {
    folder.clear();
    std::error_code error;
    if (fs::is_regular_file(resolvePath(argument), error)) splitPath(folder, argument, "");
  }
  auto known = existing(folder);
  if (known && known->path != known->path.root_path()) folders_.push_back(std::move(*known));
}

bool AllowedFolders::isProgramFolder(int folder) const {
  struct stat state {};
  return programFolder_ && ::fstat(folder, &state) == 0 && state.st_dev == programFolder_->device &&
         state.st_ino == programFolder_->number;
}

// From the folder up to the root, which is its own parent.
bool AllowedFolders::holds(int folder) const {
  Descriptor at(::openat(folder, ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat below {};
  while (at.isOpen()) {
    struct stat state {};
    if (::fstat(at.number(), &state) != 0) return false;
    const auto isHere = [&](const Place& place) {
      return place.device == state.st_dev && place.number == state.st_ino;
    };
    if (std::any_of(folders_.begin(), folders_.end(), isHere)) return true;
    if (state.st_dev == below.st_dev && state.st_ino == below.st_ino) return false;
    below = state;
    at = parentOf(at);
  }
  return false;
}

bool AllowedFolders::holdsPath(const fs::path& path) const {
  return !path.empty() && std::any_of(folders_.begin(), folders_.end(), [&](const Place& folder) {
    return liesWithin(path, folder.path);
  });
}

bool AllowedFolders::holdsEntry(const fs::path& entry) const {
  return holdsPath(resolved(entry));
}

std::optional<std::string> AllowedFolders::refusal(std::string_view path) const {
  const fs::path wanted(resolvePath(path));
  if (path.find('\0') != std::string_view::npos || !holdsEntry(wanted))
    return outside(wanted.string());
  std::error_code error;
  const fs::path folder = wanted.parent_path().empty() ? "." : wanted.parent_path();
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const bool companion = entry->is_symlink(error) && sharesStem(entry->path(), wanted);
    if (companion && !holdsEntry(entry->path())) return outside(entry->path().string());
  }
  return std::nullopt;
}

std::optional<std::string> AllowedFolders::refusalToRead(std::string_view path) const {
  const fs::path target = resolved(fs::path(resolvePath(path)));
  const bool isSetup = equalIgnoringCase(target.extension().string(), ".msu") && programFolder_ &&
                       target.parent_path() == programFolder_->path;
  return isSetup ? std::nullopt : refusal(path);
}

}  // namespace tess
