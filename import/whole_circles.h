// Two arcs that make a circle become one row: as two they would pass for one arc drawn twice, since
// drawings compare ends without regard to their order.
// Owns: closeCircles.
#pragma once

#include <vector>

#include "import/join_ends.h"

namespace tess {

// Replaces each pair of arcs of one sense, of which each begins exactly where the other ends, by a
// whole circle in the place of the first, when their centres are one within `tolerence`.
void closeCircles(std::vector<PlacedRow>& rows, float tolerence);

}  // namespace tess
