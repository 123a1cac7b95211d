// Where coordinates of a file come to stand in the drawing: scaled to its units, turned out of the
// planes that entities lie in, and carried along by the blocks that hold them. All of it happens in
// space; the drawing is the view from above.
// Owns: BlockPlacement, scaledBy, objectPlane, insertedAt.
#pragma once

#include "geometry/plane.h"
#include "import/dxf_document.h"

namespace tess {

// A change of coordinates: where the axes and the origin go.
struct BlockPlacement {
  DxfPoint xAxis{1, 0, 0}, yAxis{0, 1, 0}, zAxis{0, 0, 1}, origin;

  PlanePoint point(DxfPoint p) const;
  PlanePoint direction(DxfPoint d) const;  // without the origin
  // First `inner`, then `outer`.
  friend BlockPlacement operator*(const BlockPlacement& outer, const BlockPlacement& inner);
};

BlockPlacement scaledBy(double factor);

// The plane of an entity that is drawn in coordinates of its own, from its extrusion: (0, 0, -1) is
// a plane seen from behind. The identity for an extrusion without direction.
BlockPlacement objectPlane(DxfPoint extrusion);

// Where the content of a block with that base comes to stand by an INSERT, for one place of its
// array, counted from 0.
BlockPlacement insertedAt(const DxfEntity& insert, DxfPoint base, int column, int row);

}  // namespace tess
