// Arrays of corners.
#include "import/text_frame.h"

#include <cmath>
#include <numbers>

namespace tess {

void RotateArray(std::span<PlanePoint> a, double x0, double y0, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (PlanePoint& point : a) {
    const PlanePoint from{point.x - x0, point.y - y0};
    point = {from.x * c - from.y * s + x0, from.x * s + from.y * c + y0};
  }
}

void OffsetArray(std::span<PlanePoint> a, double dx, double dy) {
  for (PlanePoint& point : a) point = point + PlanePoint{dx, dy};
}

double ArcTan(double dy, double dx) {
  using std::numbers::pi;
  if (dx > 0) return std::atan(dy / dx);
  if (dx < 0) return std::atan(dy / dx) + pi;
  return dy >= 0 ? pi / 2 : pi / 2 + pi;
}

}  // namespace tess
