// Ends that lie within the drawing's tolerance of each other become one point, so that outlines of
// rows drawn one by one close exactly.
// Owns: joinEnds.
#pragma once

#include <vector>

#include "import/placed_row.h"

namespace tess {

// Rounds all ends to the 32 bits of the tables, moves neighbours within `tolerence` in each axis to
// the same point, and sets the centres of arcs so that both ends lie on the circle. An end moves by
// less than twice the tolerance where many crowd. Rows that have no length then are dropped; arcs
// whose ends would pass for one become lines, unless they are nearly whole circles. Whole circles
// and rows with numbers that the tables cannot hold stay as they are.
void joinEnds(std::vector<PlacedRow>& rows, float tolerence);

}  // namespace tess
