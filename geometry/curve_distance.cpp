// Distances of lines and arcs. Of two curves all places are tried at which the distance can be the
// least; which of them is does not depend on how the curves cross, so that a crossing missed by a
// rounding costs no more than the rounding.
#include "geometry/curve_distance.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tess {
namespace {

// The share of a line's point that is nearest, of a line without length its start.
double nearestShare(const Curve& line, PlanePoint from) {
  const PlanePoint along = line.end - line.start;
  const double square = dot(along, along);
  return square == 0 ? 0 : std::clamp(dot(from - line.start, along) / square, 0.0, 1.0);
}

// From the start on and not from the nearest point, which far from the origin has lost digits.
double distanceToLine(const Curve& line, PlanePoint from) {
  return normOf(from - line.start - nearestShare(line, from) * (line.end - line.start));
}

double distanceToArc(const Curve& arc, PlanePoint from) {
  if (isBeside(arc, from)) return std::abs(normOf(from - arc.center) - arc.radius);
  return std::min(normOf(from - arc.start), normOf(from - arc.end));
}

PlanePoint nearestOnArc(const Curve& arc, PlanePoint from) {
  if (!isBeside(arc, from)) {
    return normOf(from - arc.end) < normOf(from - arc.start) ? arc.end : arc.start;
  }
  const PlanePoint toward = from - arc.center;
  const double away = normOf(toward);
  return away == 0 ? arc.start : arc.center + (arc.radius / away) * toward;
}

// The least gap seen so far, by the point of one curve that it was found from.
class LeastGap {
 public:
  LeastGap(const Curve& first, const Curve& second) : first_(first), second_(second) {
    tryFirst(first.start);
    tryFirst(first.end);
    trySecond(second.start);
    trySecond(second.end);
  }

  double distance() const { return distance_; }

  CurveGap gap() const {
    if (isOfFirst_) return {distance_, at_, nearestOn(second_, at_).at};
    return {distance_, nearestOn(first_, at_).at, at_};
  }

  // Where a line or arc meets the whole of the other, it may meet the other itself.
  void tryCrossings() {
    const Shares shares = second_.isArc()
                              ? sharesOnCircle(first_, second_.center, second_.radius)
                              : sharesOnLine(first_, second_.start, second_.end - second_.start);
    for (const double share : shares) {
      const PlanePoint at = pointAt(first_, share);
      if (isBeside(second_, at)) take(0, at, /*isOfFirst=*/true);
    }
  }

  // The line along which two centres, or a centre and a line, are nearest to each other is square
  // to both curves.
  void tryNormals() {
    if (first_.isArc() && second_.isArc()) {
      tryNormal(second_.center - first_.center);
    } else if (first_.isArc()) {
      tryNormal(leftOf(second_.end - second_.start));
    } else if (second_.isArc()) {
      tryNormal(leftOf(first_.end - first_.start));
    }
  }

 private:
  void take(double distance, PlanePoint at, bool isOfFirst) {
    if (!(distance < distance_)) return;
    distance_ = distance;
    at_ = at;
    isOfFirst_ = isOfFirst;
  }
  void tryFirst(PlanePoint at) { take(distanceTo(second_, at), at, /*isOfFirst=*/true); }
  void trySecond(PlanePoint at) { take(distanceTo(first_, at), at, /*isOfFirst=*/false); }

  // The points of an arc on its diameter in this direction, seen from the other curve. There is
  // none for arcs about one centre: they are as near at an end as anywhere.
  void tryNormal(PlanePoint direction) {
    const double length = normOf(direction);
    if (length == 0) return;
    for (const double side : {-1 / length, 1 / length}) {
      tryOnArc(first_, side * direction, &LeastGap::tryFirst);
      tryOnArc(second_, side * direction, &LeastGap::trySecond);
    }
  }
  void tryOnArc(const Curve& curve, PlanePoint direction, void (LeastGap::*tryPoint)(PlanePoint)) {
    if (!curve.isArc()) return;
    const PlanePoint at = curve.center + curve.radius * direction;
    if (isBeside(curve, at)) (this->*tryPoint)(at);
  }

  const Curve& first_;
  const Curve& second_;
  double distance_ = std::numeric_limits<double>::infinity();
  PlanePoint at_;
  bool isOfFirst_ = true;
};

}  // namespace

double distanceTo(const Curve& curve, PlanePoint from) {
  return curve.isArc() ? distanceToArc(curve, from) : distanceToLine(curve, from);
}

CurvePlace nearestOn(const Curve& curve, PlanePoint from) {
  const PlanePoint at =
      curve.isArc() ? nearestOnArc(curve, from) : pointAt(curve, nearestShare(curve, from));
  return {at, distanceTo(curve, from)};
}

CurveGap gapBetween(const Curve& first, const Curve& second) {
  LeastGap least(first, second);
  if (least.distance() > 0) least.tryCrossings();
  if (least.distance() > 0) least.tryNormals();
  return least.gap();
}

}  // namespace tess
