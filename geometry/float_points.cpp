// Points, their midpoints and boxes.
#include "geometry/float_points.h"

#include <algorithm>

namespace tess {
namespace {

// The grown limits are 32-bit values: a point stored 0.0015 beyond the box is then met exactly.
bool withinGrown(float value, float a, float b) {
  const auto [low, high] = std::minmax(a, b);
  return value >= static_cast<float>(low - kSegBoxMargin) &&
         value <= static_cast<float>(high + kSegBoxMargin);
}

}  // namespace

bool pointInSegBox(Point p, Point a, Point b) {
  return withinGrown(p.x, a.x, b.x) && withinGrown(p.y, a.y, b.y);
}

MidpointSlope midpointAndSlope(Point a, Point b) {
  const double dx = static_cast<double>(b.x) - a.x;
  const double dy = static_cast<double>(b.y) - a.y;
  return {{narrow(a.x + dx / 2), narrow(a.y + dy / 2)}, dx == 0 ? kVerticalSlope : dy / dx};
}

Point reflectThroughMidpoint(Point a, Point b, Point p) {
  const Point middle = midpointAndSlope(a, b).middle;
  return {narrow(2.0 * middle.x - p.x), narrow(2.0 * middle.y - p.y)};
}

}  // namespace tess
