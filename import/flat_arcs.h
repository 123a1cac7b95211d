// Arcs that can hardly be told from their chords become lines: their centres lie so far away that
// the 32 bits of the tables say little about them, and a control would get huge offsets.
// Owns: kFlatShare, kFlattestSlope, riseOver, straightenFlatArcs.
#pragma once

#include <vector>

#include "import/placed_row.h"

namespace tess {

// An arc that rises over its chord by less than this share of the tolerance is a line.
inline constexpr double kFlatShare = 0.1;
// One that rises by less than this share of its chord has a centre too far away for the tables.
inline constexpr double kFlattestSlope = 1e-6;

// How far an arc of up to half a turn rises over its chord.
double riseOver(double chord, double radius);

// Leaves the chords of all flat arcs of up to half a turn.
void straightenFlatArcs(std::vector<PlacedRow>& rows, double tolerance);

}  // namespace tess
