// Where roughing begins with an outline: at the lowest of its end points, which is a convex corner,
// so that its two rows tell on which side the inside lies.
// Owns: OutlineCorner, pocketCorner, islandCorners, OutlineGuide, guideAt, mirroredOut.
#pragma once

#include <optional>
#include <vector>

#include "toolpath/chain_walk.h"

namespace tess {

// A row and the end of it that lies lowest. Bulges of arcs do not count.
struct OutlineCorner {
  int sg = 0;
  Point at;
};

// The lowest corner of all selected rows, the first of several. A line that ends at its height
// replaces an arc, with its start point. Nothing when none lies below a million units.
std::optional<OutlineCorner> pocketCorner(const DrawingStore& store);

// The corners of all selected rows, the lowest first: the first one that is still selected is that
// of the next island.
std::vector<OutlineCorner> islandCorners(const DrawingStore& store);

// The points that an offset from a corner goes by.
struct OutlineGuide {
  Point reference;  // inside the outline
  Point direction;
};

// Nothing for an open row without a neighbour.
std::optional<OutlineGuide> guideAt(const DrawingStore& store, ChainWalk& rows,
                                    const OutlineCorner& corner);

// A point inside an outline at row `sg`, reflected to the other side of the row.
Point mirroredOut(const DrawingStore& store, int sg, Point inside);

}  // namespace tess
