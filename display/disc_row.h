// A row of discs that show the way of a tool along a move, as far as a target can show them.
// Owns: DiscRow, traceDiscs.
#pragma once

#include <functional>

#include "display/drawing_target.h"

namespace tess {

// Discs at places numbered from 1 to count. `bulge` says how far the way between two places leaves
// the straight line between them; `spacing` is the way from one to the next.
struct DiscRow {
  int count = 0;
  float radius = 0;
  double spacing = 0;
  std::function<Point(int place)> at;
  std::function<double(int from, int to)> bulge;
};

// Traces the discs one by one. Of a row with more discs than the target has pixels along its sides,
// only those that can be seen, and only each so many-th where they lie closer than a pixel.
void traceDiscs(const DiscRow& row, Rgb color, DrawingTarget& target);

}  // namespace tess
