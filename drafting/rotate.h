// Turning drawing rows about a point.
// Owns: rotatePoint, Turn, turnRows, mnuEditRotate_Click.
#pragma once

#include <span>

#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

struct DraftingContext;

// A point turned counter-clockwise. It goes by polarOf's rounded angle and length, so that turning
// there and back does not lead to the same number.
Point rotatePoint(Point center, Point p, float degrees);

struct Turn {
  Point about;
  float degrees = 0;  // counter-clockwise
};

void turnRows(std::span<SegmentRow> rows, const Turn& turn);

// Asks what to turn and how far, and does it.
void mnuEditRotate_Click(DraftingContext& context);

}  // namespace tess
