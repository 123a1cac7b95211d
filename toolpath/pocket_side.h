// On which side of an edge the inside of the selected outline lies.
// Owns: pocketSideOf.
#pragma once

#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// -1: the inside lies to the left of the way from `from` to `to`; 1: to the right; 0: undecided.
int pocketSideOf(const DrawingStore& store, Point from, Point to);

}  // namespace tess
