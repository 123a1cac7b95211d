// Points and directions of ellipses.
#include "import/ellipse_curve.h"

#include <cmath>
#include <numbers>

namespace tess {
namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2;

// Where the points farthest from the centre and nearest to it lie: at this parameter and at each
// quarter turn from it. There the squared distance |cos(t) u + sin(t) v|^2 is level, which is to
// say (v.v - u.u) sin(2t) + 2 u.v cos(2t) = 0.
double axisParameter(const EllipseArc& e) {
  return std::atan2(2 * dot(e.u, e.v), dot(e.u, e.u) - dot(e.v, e.v)) / 2;
}

}  // namespace

PlanePoint EllipseArc::at(double t) const {
  return center + std::cos(t) * u + std::sin(t) * v;
}

bool isCircular(const EllipseArc& ellipse) {
  constexpr double kSameShape = 1e-9;  // what turning and scaling in 64 bits leaves of a circle
  const double square = dot(ellipse.u, ellipse.u);
  return std::abs(dot(ellipse.u, ellipse.v)) <= kSameShape * square &&
         std::abs(dot(ellipse.v, ellipse.v) - square) <= kSameShape * square;
}

EllipseCurve::EllipseCurve(const EllipseArc& ellipse) : ellipse_(ellipse), ends_{ellipse.from} {
  const double axis = axisParameter(ellipse);
  const double steps = std::floor((ellipse.from - axis) / kQuarterTurn) + 1;
  for (int k = 0;; ++k) {
    const double end = axis + (steps + k) * kQuarterTurn;
    if (!(end < ellipse.to)) break;
    if (end > ends_.back()) ends_.push_back(end);
  }
  ends_.push_back(ellipse.to);
}

CurvePoint EllipseCurve::pointAt(int span, double share) const {
  const auto k = static_cast<std::size_t>(span);
  const double t = ends_[k] + share * (ends_[k + 1] - ends_[k]);
  return {ellipse_.at(t), unitOf(std::cos(t) * ellipse_.v - std::sin(t) * ellipse_.u)};
}

}  // namespace tess
