// The folders of a script: where a path really leads, and whether that is inside.
#include "shell/automation/allowed_folders.h"

#include <algorithm>
#include <system_error>

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

std::optional<fs::path> existingFolder(std::string_view folder) {
  if (folder.empty()) return std::nullopt;
  std::error_code error;
  const fs::path known = fs::canonical(fs::path(resolvePath(folder)), error);
  return !error && fs::is_directory(known, error) ? std::optional(known) : std::nullopt;
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

std::string outside(const fs::path& path) {
  return "'" + path.string() +
         "' is outside the folders that this script may use: those named on the command line, "
         "the script's own and the drawing folder";
}

}  // namespace

void AllowedFolders::allow(std::string_view folder) {
  if (const auto known = existingFolder(folder)) folders_.push_back(*known);
}

void AllowedFolders::allowSetupsOf(std::string_view folder) {
  if (const auto known = existingFolder(folder)) setupFolders_.push_back(*known);
}

void AllowedFolders::allowNamedBy(std::string_view argument) {
  if (folderExists(argument)) return allow(argument);
  std::string folder;
  splitPath(folder, argument, "");
  allow(folder);
}

bool AllowedFolders::holds(const fs::path& path) const {
  return !path.empty() && std::any_of(folders_.begin(), folders_.end(),
                                      [&](const auto& folder) { return liesWithin(path, folder); });
}

bool AllowedFolders::holdsEntry(const fs::path& entry) const {
  return holds(resolved(entry));
}

std::optional<std::string> AllowedFolders::refusal(std::string_view path) const {
  const fs::path wanted(resolvePath(path));
  if (path.find('\0') != std::string_view::npos || !holdsEntry(wanted)) return outside(wanted);
  std::error_code error;
  const fs::path folder = wanted.parent_path().empty() ? "." : wanted.parent_path();
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const bool companion = entry->is_symlink(error) && sharesStem(entry->path(), wanted);
    if (companion && !holdsEntry(entry->path())) return outside(entry->path());
  }
  return std::nullopt;
}

std::optional<std::string> AllowedFolders::refusalToRead(std::string_view path) const {
  const fs::path target = resolved(fs::path(resolvePath(path)));
  const bool isSetup = equalIgnoringCase(target.extension().string(), ".msu") &&
                       std::find(setupFolders_.begin(), setupFolders_.end(),
                                 target.parent_path()) != setupFolders_.end();
  return isSetup ? std::nullopt : refusal(path);
}

}  // namespace tess
