// Arrowheads on lines and arcs, with barbs of a fixed size on the screen.
// Owns: ArrowTip, PolarLine, DrawArrowhead, DrawHalfArrowhead, TraceArrowhead.
#pragma once

#include "display/drawing_target.h"

namespace tess {

// A point and the direction of travel there, in radians.
struct ArrowTip {
  Point at;
  float angle = 0;
};

// A line of a length from the tip in the direction of its angle.
void PolarLine(const ArrowTip& from, float length, Rgb color, DrawingTarget& target);

// Two barbs of 10 pixels, 15 degrees to each side of the way back from the tip.
void DrawArrowhead(const ArrowTip& tip, Rgb color, DrawingTarget& target);

// The left barb for side 1, the right one for side 2.
void DrawHalfArrowhead(const ArrowTip& tip, Rgb color, DrawingTarget& target, int side);

// The head of a rubber-band arrow at the second point, in the inverting pen.
void TraceArrowhead(const WorldBox& ends, Rgb color, PictureBoxProxy& ScreenProxy);

}  // namespace tess
