// How many rows end at a point: what removing a vertex asks first.
// Owns: linesEndingAt, pathsEndingAt.
#pragma once

#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// Lines of the drawing with an end that is samePoint to `at`; one with both ends there counts once.
int linesEndingAt(const DrawingStore& store, Point at);
// The same among the visible path rows that are lines or arcs.
int pathsEndingAt(const DrawingStore& store, Point at);

}  // namespace tess
