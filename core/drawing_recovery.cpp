// Finding and settling saves of drawings that were cut off.
#include "core/drawing_recovery.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sys/stat.h>

#include "core/drawing_format.h"
#include "core/file_system.h"
#include "core/path_job_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;

// Where no lock tells whether a process lives, its journal is left alone for so long.
constexpr seconds kLifeOfJournal{10};
constexpr std::string_view kHiddenBegin = ".tessimo-";
constexpr std::string_view kTemporaryEnd = ".tmp";

bool isYoung(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) return false;
  const auto age = std::chrono::system_clock::now().time_since_epoch() - seconds(state.st_mtime);
  return age > -kLifeOfJournal && age < kLifeOfJournal;
}

bool mayBeAlive(const FolderLock& lock, const std::string& journal) {
  return lock.isBusy() || (!lock.isHeld() && isYoung(journal));
}

// The names of hidden files of the program in the folder; none when it cannot be listed.
std::vector<std::string> hiddenFiles(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (name.starts_with(kHiddenBegin)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

// A journal says itself whose it is. Nobody may have a file replaced through one that is no drawing
// with a path file, or whose journal it is not.
std::optional<std::string> drawingOf(const std::string& journal, const std::string& stem) {
  const auto parsed = parseJournal(readFile(journal, kLargestJournal));
  if (!parsed) return std::nullopt;
  const std::string& name = parsed->name;
  const bool plain =
      !name.starts_with('.') && fileNameOf(name) == name && !pathFileName(name).empty();
  return plain && journalStem(name) == stem ? std::optional(name) : std::nullopt;
}

// A journal that was cut off in the making stands for nothing, and nobody knows its drawing.
void removeNameless(const WriteGuard& guard, const std::string& journal, const std::string& stem) {
  NoGuard looking;
  const FilePlace place = FilePlace::ofEntry(looking, journal, FileKind::Companion);
  const std::string text = readFile(journal, kLargestJournal);
  if (parseJournal(text) || isOfAnotherVersion(text) || !place.isPermittedBy(guard)) return;
  for (std::size_t index = 0; index < SaveJournal::kMaxFiles; ++index) {
    place.beside(freshName(stem, index), FileKind::Companion).remove();
    place.beside(spareName(stem, index), FileKind::Companion).remove();
  }
  place.remove();
}

void removeTemporaries(const WriteGuard& guard, const std::string& folder) {
  NoGuard looking;
  const auto any = FilePlace::ofEntry(looking, folder + "any", FileKind::Companion);
  if (any.isPermittedBy(guard)) any.removeAbandoned();
}

// The files that a save may have touched: with the jobs of the paths, which it touches where there
// are any.
std::vector<std::string> filesOfSave(const std::vector<std::string>& paths) {
  std::vector<std::string> files = paths;
  if (paths.size() == 1) return files;
  const std::string_view name = fileNameOf(paths.front());
  const std::string folder = paths.front().substr(0, paths.front().size() - name.size());
  files.push_back(jobPath(folder, std::string(name)));
  return files;
}

std::optional<Recovery> recoverJournal(const WriteGuard& guard, const std::string& folder,
                                       const std::string& journal, const std::string& stem) {
  const auto name = drawingOf(folder + journal, stem);
  const FolderLock lock = name ? lockDrawing(folder + *name, FolderLock::Waiting::NotAtAll)
                               : FolderLock(folder, FolderLock::Waiting::NotAtAll);
  if (mayBeAlive(lock, folder + journal)) return std::nullopt;
  if (name) return recoverDrawing(guard, pairPaths(folder, *name), lock);
  removeNameless(guard, folder + journal, stem);
  return std::nullopt;
}

}  // namespace

std::vector<std::string> pairPaths(const std::string& folder, const std::string& name) {
  std::vector<std::string> paths{resolvePath(folder + name)};
  const std::string pathFile = pathFileName(name);
  if (!pathFile.empty()) paths.push_back(resolvePath(folder + pathFile));
  return paths;
}

std::string jobPath(const std::string& folder, const std::string& name) {
  return resolvePath(folder + jobFileName(name));
}

FolderLock lockDrawing(const std::string& drawing, FolderLock::Waiting waiting) {
  NoGuard looking;
  const FilePlace place(looking, drawing, FileKind::Drawing);
  return FolderLock(fs::path(place.path()).parent_path().string(), waiting);
}

bool hasJournal(const std::string& drawing) {
  const std::string_view name = fileNameOf(drawing);
  const std::string folder = drawing.substr(0, drawing.size() - name.size());
  struct stat state {};
  return ::lstat((folder + journalName(journalStem(name))).c_str(), &state) == 0;
}

std::optional<Recovery> recoverDrawing(const WriteGuard& guard,
                                       const std::vector<std::string>& paths,
                                       const FolderLock& lock) {
  if (!hasJournal(paths.front())) return std::nullopt;
  NoGuard looking;
  const std::vector<std::string> files = filesOfSave(paths);
  const FileGroup group(looking, files, /*optional=*/files.size() - paths.size());
  const bool permitted = group.isPermittedBy(guard);
  const bool alive = mayBeAlive(lock, group.journal().path());
  auto settled = settleFiles(group, permitted && !alive);
  if (!settled) return std::nullopt;
  if (!permitted && !alive) {
    settled->unwritten = RuntimeFailure(FailureNumber::PermissionDenied, paths.front());
  }
  return Recovery{.drawing = paths.front(), .settled = std::move(*settled)};
}

std::vector<Recovery> recoverFolder(const WriteGuard& guard, const std::string& folder,
                                    const std::string& apartFrom) {
  std::vector<Recovery> recoveries;
  bool temporaries = false;
  const std::string found = resolvePath(folder);
  for (const std::string& name : hiddenFiles(found)) {
    temporaries = temporaries || name.ends_with(kTemporaryEnd);
    try {
      const auto stem = stemOfJournal(name);
      if (!stem || *stem == journalStem(apartFrom)) continue;
      if (auto recovery = recoverJournal(guard, found, name, *stem)) {
        recoveries.push_back(std::move(*recovery));
      }
    } catch (const RuntimeFailure&) {
      // Another drawing's trouble is told when that one is opened.
      takeCallChain();
    }
  }
  if (temporaries) removeTemporaries(guard, found);
  return recoveries;
}

std::string recoveryText(const Recovery& recovery) {
  std::string text = "The last save of " + recovery.drawing + " was cut off.";
  const bool complete = recovery.settled.outcome == Settlement::Completed;
  if (recovery.settled.outcome == Settlement::LeftAlone) {
    return text +
           " Its files have been changed since and stay as they are: drawing and tool path "
           "may not belong together.";
  }
  if (recovery.settled.unwritten) {
    text += complete ? " It is shown complete" : " It is shown as it was before that save";
    return text + ", but its files cannot be put in order here: " +
           recovery.settled.unwritten->description();
  }
  return text + (complete ? " It has now been completed." : " All is as it was before that save.");
}

}  // namespace tess
