// Groups of path rows: where they begin and end, and where the next one goes. Groups are read to
// the nearest whole number (groupRounded).
// Owns: firstOfPathGroup, lastOfPathGroup, pathInsertIndex, deletePathGroup.
#pragma once

#include "drafting/change.h"

namespace tess {

// The lowest row of the group of row `ps`; 0 without rows.
int firstOfPathGroup(const DrawingStore& store, int ps);
// The last row of the unbroken run of this group that goes on from row `ps`.
int lastOfPathGroup(const DrawingStore& store, int ps);

// The row at which the next placement starts, by the mode of CamDesk::pathInsertMode.
int pathInsertIndex(const DrawingStore& store, int mode, int group);

// Removes the rows of a group as one step of the log.
void deletePathGroup(Changes& changes, int group);

}  // namespace tess
