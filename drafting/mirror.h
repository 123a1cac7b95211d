// Mirroring drawing rows across lines through a point.
// Owns: mirrorCoord, Mirroring, mirrorRows, mnuEditMirror_Click.
#pragma once

#include <span>

#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

struct DraftingContext;

// A coordinate on the other side of m.
float mirrorCoord(float c, float m);

struct Mirroring {
  Point about;
  bool horizontally = true;  // x coordinates change sides
  bool vertically = false;   // y coordinates do
};

// An arc turns its sense when one axis is mirrored, and keeps it when both are.
void mirrorRows(std::span<SegmentRow> rows, const Mirroring& mirroring);

// Asks what to mirror and how, and does it.
void mnuEditMirror_Click(DraftingContext& context);

}  // namespace tess
