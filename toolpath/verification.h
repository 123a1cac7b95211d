// Verification: proof that the selected rows form one closed outline, and its measure.
// Owns: OutlineSize, verifypocket, arcBounds, mnuCAMVerifyAcceptPocket_Click,
//       mnuCAMVerifyAcceptIsland_Click.
#pragma once

#include "geometry/box_index.h"
#include "toolpath/cam_context.h"

namespace tess {

// Walks the selected rows end to end. A closed outline becomes verified; otherwise a message names
// the place and the rows stay selected. Measured in both cases, 0 without a selection.
struct OutlineSize {
  float width = 0, height = 0;
};
OutlineSize verifypocket(CamContext& cam);

// The bounds of arc row `sg` from its ends and three samples of its sweep: an arc can pass a
// quadrant between two samples, and is meant to be measured short then.
Box arcBounds(const DrawingStore& store, int sg);

void mnuCAMVerifyAcceptPocket_Click(CamContext& cam);
void mnuCAMVerifyAcceptIsland_Click(CamContext& cam);

}  // namespace tess
