// Rows of the exact conversion on their way into the tables: with the entity that each came from,
// and what can be asked of them.
// Owns: PlacedRow, startOf, endOf, centerOf, isWholeCircle, isLongArc, straighten.
#pragma once

#include "geometry/plane.h"
#include "import/dxf_rows.h"

namespace tess {

// A row and the entity that it came from.
struct PlacedRow {
  DxfRow row;
  const DxfEntity* entity = nullptr;
};

inline PlanePoint startOf(const DxfRow& row) {
  return {row.x0, row.y0};
}
inline PlanePoint endOf(const DxfRow& row) {
  return {row.x1, row.y1};
}
inline PlanePoint centerOf(const DxfRow& row) {
  return {row.xc, row.yc};
}

inline bool isWholeCircle(const DxfRow& row) {
  return row.type != kLine && startOf(row) == endOf(row);
}

// More than half a turn, by its ends' senses about the centre.
inline bool isLongArc(const DxfRow& arc) {
  const double side = cross(startOf(arc) - centerOf(arc), endOf(arc) - centerOf(arc));
  return arc.type == kCounterClockwiseArc ? side < 0 : side > 0;
}

// Leaves only the chord of an arc.
inline void straighten(DxfRow& row) {
  row.type = kLine;
  row.xc = row.yc = 0;
}

}  // namespace tess
