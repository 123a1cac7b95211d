// How far a drawing reaches.
// Owns: DrawingExtents, GetDrawingExtents, GetSegmentExtents, entityExtents.
#pragma once

#include <optional>

#include "geometry/entity.h"

namespace tess {

struct DrawingStore;

struct DrawingExtents {
  float minx = 0, miny = 0, maxx = 0, maxy = 0;
};

// The box round all drawing rows and path rows, visible or not. Nothing for an empty drawing and
// for one without width or height. An arc counts with its ends and three points on it, which can
// miss a quadrant's extreme by a little.
std::optional<DrawingExtents> GetDrawingExtents(const DrawingStore& store);

// The same round drawing rows `first` to `last` alone. Nothing for a range that is empty or not
// within the rows in use.
std::optional<DrawingExtents> GetSegmentExtents(const DrawingStore& store, int first, int last);

// What a single row that is no bare point adds to them. Of an arc that passes the angle 0 two of
// the three points can lie on the rest of its circle, far away from the arc.
DrawingExtents entityExtents(const Entity& entity);

}  // namespace tess
