// A row whose points are all mapped alike: what moving, scaling, mirroring and turning are made of.
// Owns: mapPoint, mapEnds, mapRow.
#pragma once

#include "geometry/entity.h"

namespace tess {

template <class Map>
void mapPoint(float& x, float& y, const Map& map) {
  const Point to = map(Point{x, y});
  x = to.x;
  y = to.y;
}

template <class Row, class Map>
void mapEnds(Row& row, const Map& map) {
  mapPoint(row.x0, row.y0, map);
  mapPoint(row.x1, row.y1, map);
}

// Both ends, and the centre of what has one; other rows keep what stands in its place.
template <class Row, class Map>
void mapRow(Row& row, const Map& map) {
  mapEnds(row, map);
  if (isRound(row.type)) mapPoint(row.xc, row.yc, map);
}

}  // namespace tess
