// Drawings whose last save was cut off: finding them, putting them in order while no other process
// is at them, and the words that tell the operator.
// Owns: Recovery, pairPaths, jobPath, lockDrawing, hasJournal, recoverDrawing, recoverFolder,
//       recoveryText.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/drawing_lock.h"
#include "core/settle_files.h"
#include "core/write_guard.h"

namespace tess {

struct Recovery {
  std::string drawing;  // its path
  Settled settled;
};

// The files of a drawing: its own, and behind it the path file where its name gives it one.
std::vector<std::string> pairPaths(const std::string& folder, const std::string& name);

// The file of the jobs of its paths, for a drawing whose name gives it one.
std::string jobPath(const std::string& folder, const std::string& name);

// The lock under which the files of a drawing are written: that of the folder behind any links.
FolderLock lockDrawing(const std::string& drawing,
                       FolderLock::Waiting waiting = FolderLock::Waiting::AWhile);

// Whether there is something to settle beside that drawing.
bool hasJournal(const std::string& drawing);

// Settles the save of that drawing which was cut off, if there is one. While another process may
// still be at it, nothing is written, and the result tells only what the files hold together.
std::optional<Recovery> recoverDrawing(const WriteGuard& guard,
                                       const std::vector<std::string>& paths,
                                       const FolderLock& lock);

// The same for all drawings of a folder but the one of that name, as far as no other process is at
// them. What else a process that died has left in the folder goes as well.
std::vector<Recovery> recoverFolder(const WriteGuard& guard, const std::string& folder,
                                    const std::string& apartFrom);

// What the operator is told.
std::string recoveryText(const Recovery& recovery);

}  // namespace tess
