// Leads of true paths.
#include "toolpath/true_leads.h"

#include <cmath>
#include <numbers>

namespace tess {
namespace {

double radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

PlanePoint turned(PlanePoint direction, double angle) {
  return std::cos(angle) * direction + std::sin(angle) * leftOf(direction);
}

// From one point to another along a direction, or by the arc that bulges away from `toCenter`.
Curve leadBetween(PlanePoint from, PlanePoint to, PlanePoint toCenter, const LeadShape& shape) {
  if (!shape.arcs) return lineCurve(from, to);
  const double half = radians(shape.angle / 2);
  const PlanePoint center = 0.5 * (from + to) + std::cos(half) * shape.length * toCenter;
  const int turn = cross(from - center, to - center) > 0 ? 1 : -1;
  return arcCurve(from, to, center, turn);
}

}  // namespace

LeadPair leadsAt(const Curve& first, const Curve& last, bool freeLeft, const LeadShape& shape) {
  const double side = freeLeft ? 1 : -1;
  const double angle = side * radians(shape.angle);
  const PlanePoint approach = turned(directionAt(first, 0), -angle);
  const PlanePoint exit = turned(directionAt(last, 1), angle);
  const PlanePoint from = first.start - shape.length * approach;
  const PlanePoint to = last.end + shape.length * exit;
  return {leadBetween(from, first.start, side * leftOf(approach), shape),
          leadBetween(last.end, to, side * leftOf(exit), shape)};
}

double clearLeadLength(const Curve& first, const Curve& last, bool freeLeft, const LeadShape& shape,
                       const std::function<bool(const Curve&)>& isClear) {
  constexpr double kFinest = 1e-4;
  const auto fits = [&](double length) {
    const LeadPair leads = leadsAt(first, last, freeLeft, {shape.arcs, shape.angle, length});
    return isClear(leads.in) && isClear(leads.out);
  };
  if (fits(shape.length)) return shape.length;
  double clear = 0;
  double blocked = shape.length;
  while (blocked - clear > kFinest) {
    const double middle = (clear + blocked) / 2;
    (fits(middle) ? clear : blocked) = middle;
  }
  return clear;
}

}  // namespace tess
