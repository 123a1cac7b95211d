// The path rows of a long command as one step of the change log: however it came by them, undo
// gives back exactly the rows before it, and redo those after it.
// Owns: PathStep.
#pragma once

#include <vector>

#include "toolpath/cam_desk.h"

namespace tess {

// While it lives, what is logged on the desk counts for nothing. Unless it is kept, the path rows
// and the log then are as they were before it.
class PathStep {
 public:
  explicit PathStep(CamDesk& cam);
  ~PathStep();
  PathStep(const PathStep&) = delete;
  PathStep& operator=(const PathStep&) = delete;

  // Drops what was logged since, so that many small placements do not fill the log.
  void forgetRecords() { cam_.changelog.clear(); }

  // Logs all rows that are gone or new as one step. Raises Overflow when the log is full.
  void keep();

 private:
  void bringLogBack();
  void bringRowsBack();

  CamDesk& cam_;
  std::vector<PathRow> before_;
  ChangeLog log_;  // the desk's own, or later the useless one
  bool logIsAside_ = true;
  bool kept_ = false;
};

}  // namespace tess
