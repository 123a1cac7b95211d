// Rounding the corner of two lines by an arc.
// Owns: FilletResult, addFillet, addPathFillet, tellFillet, mnuAddFillet_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

enum class FilletResult {
  Added,
  NoCommonEnd,
  SameRow,  // or no row
  NotLines,
  NoCenter,  // the lines lie on top of one another or go on straight: no circle touches both
};

// Draws line `sgA` back to where the arc begins and `sgB` to where it ends, and adds the arc. A
// line that is shorter than that runs backward. Path rows keep their sense, and the arc comes
// between them; it is cut as the row in front of it is. Raises Overflow for a full table.
FilletResult addFillet(Changes& changes, int sgA, int sgB, float radius);
FilletResult addPathFillet(Changes& changes, int psA, int psB, float radius);

// The message or beep that goes with it.
void tellFillet(DraftingContext& context, FilletResult result);

void mnuAddFillet_Click(DraftingContext& context);

}  // namespace tess
