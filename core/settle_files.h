// Puts in order what a save has left that was cut off between its first step and its last.
// Owns: Settlement, Settled, settleFiles, takeBack.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/file_group.h"
#include "core/runtime_failure.h"

namespace tess {

enum class Settlement {
  Completed,  // all files are those of the save
  TakenBack,  // all files are those before the save
  LeftAlone,  // somebody has changed the files since; they are as they were found
};

struct Settled {
  Settlement outcome = Settlement::LeftAlone;
  // The files as they are to be read; nothing where there is none.
  std::vector<std::optional<std::string>> contents;
  bool written = false;  // the files on the disk are in order now
  // Why they could not be put in order, as in a folder that is read-only.
  std::optional<RuntimeFailure> unwritten;
};

// Completes or takes back the save whose journal lies there; nothing when there is none. Hold the
// lock of the folder meanwhile, or else, without `mayWrite`, only look.
std::optional<Settled> settleFiles(const FileGroup& group, bool mayWrite);

// Takes back a save of this process that has failed before all files were in their places.
void takeBack(const FileGroup& group, const SaveJournal& journal);

}  // namespace tess
