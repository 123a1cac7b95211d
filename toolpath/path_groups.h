// Groups of path rows: where they begin and end, and where the next one goes. Groups are read to
// the nearest whole number (groupRounded).
// Owns: firstOfPathGroup, lastOfPathGroup, pathGroupName, PathInsertMode, pathInsertIndex,
//       deletePathGroup.
#pragma once

#include <string>

#include "drafting/change.h"

namespace tess {

// The lowest row of the group of row `ps`; 0 without rows.
int firstOfPathGroup(const DrawingStore& store, int ps);
// The last row of the unbroken run of this group that goes on from row `ps`.
int lastOfPathGroup(const DrawingStore& store, int ps);

// The name of a group; a blank one is first made "Group " and the number, for which the table
// grows. A group below 0, as only a damaged code has it, has that name and no entry.
std::string pathGroupName(Column<std::string>& names, int group);

// Where the path editor wants new paths; a fresh program has not chosen. Another number, as scripts
// may give, is the end too.
enum class PathInsertMode : int { Unset = 0, BeforeGroup = 1, AfterGroup = 2, AtEnd = 3 };

// The row at which the next placement starts.
int pathInsertIndex(const DrawingStore& store, PathInsertMode mode, int group);

// Removes the rows of a group as one step of the log.
void deletePathGroup(Changes& changes, int group);

}  // namespace tess
