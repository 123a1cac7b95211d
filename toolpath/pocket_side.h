// On which side of an edge the inside of the selected outline lies.
// Owns: pocketSideOf.
#pragma once

#include "core/conventions.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// Where the inside lies, seen from `from` to `to`; On where that is undecided.
Side pocketSideOf(const DrawingStore& store, Point from, Point to);

}  // namespace tess
