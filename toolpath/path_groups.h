// Groups of path rows: where they begin and end, and where the next one goes. Groups are read to
// the nearest whole number (groupRounded).
// Owns: firstOfPathGroup, lastOfPathGroup, PathInsertMode, pathInsertIndex, deletePathGroup.
#pragma once

#include "drafting/change.h"

namespace tess {

// The lowest row of the group of row `ps`; 0 without rows.
int firstOfPathGroup(const DrawingStore& store, int ps);
// The last row of the unbroken run of this group that goes on from row `ps`.
int lastOfPathGroup(const DrawingStore& store, int ps);

// Where the path editor wants new paths; a fresh program has not chosen. Another number, as scripts
// may give, is the end too.
enum class PathInsertMode : int { Unset = 0, BeforeGroup = 1, AfterGroup = 2, AtEnd = 3 };

// The row at which the next placement starts.
int pathInsertIndex(const DrawingStore& store, PathInsertMode mode, int group);

// Removes the rows of a group as one step of the log.
void deletePathGroup(Changes& changes, int group);

}  // namespace tess
