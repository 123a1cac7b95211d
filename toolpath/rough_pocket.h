// Rough pocketing: the inside of a verified outline is cleared, its verified islands stay standing.
// Owns: roughCutLevel, mnuCAMRoughCutPocket_Click.
#pragma once

#include "toolpath/scan_run.h"

namespace tess {

// Makes the working outlines, `radius` and the roughing clearance away from the verified ones, and
// clears between them in the chosen style at depth `z`. The outline with the lowest end point is
// the pocket, all others are islands. Working rows, and the verified rows parked, stay
// behind in any case.
Clearing roughCutLevel(CamContext& cam, float z, float feed, float radius);

// The command: all levels, links, and the drawing as it was. The parallel spiral asks for a click
// first.
void mnuCAMRoughCutPocket_Click(CamContext& cam);

}  // namespace tess
