// Moving the drawing or what is selected of it, and setting its origin.
// Owns: moveAll, moveSelected, mnuEditMoveProf_Click, SetOrigin.
#pragma once

#include "drafting/change.h"

namespace tess {

struct DraftingContext;

// Moves the drawing rows from row `start` on and all path rows. Of undo these are two steps: the
// path rows come back first. What has no centre keeps what stands in its place: a line its 0, a
// machine cycle its increment and dwell. Raises Overflow, and then has moved nothing.
void moveAll(Changes& changes, float dx, float dy, int start);

// Moves the selected ordinary rows as one step; path rows stay.
void moveSelected(Changes& changes, float dx, float dy);

// Arm the click to which the marker, with all that moves, or the origin goes.
void mnuEditMoveProf_Click(DraftingContext& context);
void SetOrigin(DraftingContext& context);

}  // namespace tess
