// Arcs that pass the right-hand end of their circle, where angles begin anew. The drawing's extents
// measure such an arc by points on the rest of its circle, which of a large one lie far outside the
// drawing: a zoom to the extents then shows a dot.
// Owns: splitAtAxis.
#pragma once

#include <vector>

#include "import/placed_row.h"

namespace tess {

// Cuts in two what makes the extents reach out of the rows themselves: at the point to the right of
// the centre, as far as both parts are longer than `tolerence`. Parts that end at that point from
// below get a centre that lies a little above it; their arcs change by less than a share of
// `tolerance`, the one of curves. All other rows stay as they are.
void splitAtAxis(std::vector<PlacedRow>& rows, float tolerence, double tolerance);

}  // namespace tess
