// Arrowheads.
#include "display/arrowheads.h"

#include <cmath>

#include "geometry/float_angles.h"

namespace tess {

namespace {

constexpr float kBarb = 10;              // pixels
constexpr double kBarbAngle = kPi / 12;  // from the way back

}  // namespace

void PolarLine(const ArrowTip& from, float length, Rgb color, DrawingTarget& target) {
  const double angle = from.angle;
  target.TraceLine({from.at.x, from.at.y, narrow(from.at.x + length * std::cos(angle)),
                    narrow(from.at.y + length * std::sin(angle))},
                   color);
}

void DrawArrowhead(const ArrowTip& tip, Rgb color, DrawingTarget& target) {
  DrawHalfArrowhead(tip, color, target, 1);
  DrawHalfArrowhead(tip, color, target, 2);
}

void DrawHalfArrowhead(const ArrowTip& tip, Rgb color, DrawingTarget& target, int side) {
  const double turn = side == 1 ? kBarbAngle : -kBarbAngle;
  const ArrowTip barb{tip.at, narrow(tip.angle + kPi + turn)};
  PolarLine(barb, target.ScaleX(kBarb, ScaleUnit::Pixels, ScaleUnit::User), color, target);
}

void TraceArrowhead(const WorldBox& ends, Rgb color, PictureBoxProxy& ScreenProxy) {
  const Polar polarForm = polarOf({ends.x0, ends.y0}, {ends.x1, ends.y1});
  const float angle = narrow(polarForm.degrees * kPi / 180);
  ScreenProxy.setDrawMode(PenMode::NotXor);
  DrawArrowhead({{ends.x1, ends.y1}, angle}, color, ScreenProxy);
  ScreenProxy.setDrawMode(PenMode::Copy);
}

}  // namespace tess
