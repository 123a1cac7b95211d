// Work that an earlier run of the program could not save: finding it at the start, offering it, and
// bringing it back.
// Owns: UnsavedWork, findUnsavedWork, restoreWork, offerUnsavedWork.
#pragma once

#include <string>
#include <vector>

#include "core/growing_file.h"
#include "drafting/drawing_record.h"
#include "shell/application.h"

namespace tess {

// One drawing as its journal tells it.
struct UnsavedWork {
  AbandonedFile journal;  // nobody else's as long as this lives
  std::string drawing;    // its path, "" for an untitled one
  std::string when;       // date and time of day of the last change
  int segments = 0, paths = 0;

  std::string shortName() const;
};

// The newest first. A journal that says nothing the saved drawing does not say is removed on the
// way; those of running programs, and what is no journal, are left alone.
std::vector<UnsavedWork> findUnsavedWork(const Session& session);

// The drawing is as it was, unsaved, and under its name; the one before is gone. The journal of
// this run, if it keeps one, takes the place of the one that was left.
void restoreWork(Application& application, const UnsavedWork& work);

// What a start ends with: asks what shall become of unsaved work, if there is any, until something
// is restored or the rest is to wait. Nothing is removed without a second question.
void offerUnsavedWork(Application& application);

}  // namespace tess
