// Distances of lines and arcs. Of two curves all places are tried at which the distance can be the
// least; which of them is does not depend on how the curves cross, so that a crossing missed by a
// rounding costs no more than the rounding.
#include "geometry/curve_distance.h"

#include <algorithm>
#include <cmath>

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
  return lengthOf(from - line.start - nearestShare(line, from) * (line.end - line.start));
}

double distanceToArc(const Curve& arc, PlanePoint from) {
  if (isBeside(arc, from)) return std::abs(lengthOf(from - arc.center) - arc.radius);
  return std::min(lengthOf(from - arc.start), lengthOf(from - arc.end));
}

PlanePoint nearestOnArc(const Curve& arc, PlanePoint from) {
  if (!isBeside(arc, from)) {
    return lengthOf(from - arc.end) < lengthOf(from - arc.start) ? arc.end : arc.start;
  }
  const PlanePoint toward = unitOf(from - arc.center);
  return toward == PlanePoint{} ? arc.start : arc.center + arc.radius * toward;
}

// The least of the gaps seen so far.
class LeastGap {
 public:
  LeastGap(const Curve& first, const Curve& second) : first_(first), second_(second) {
    fromFirst(nearestOn(second, first.start), first.start);
    fromFirst(nearestOn(second, first.end), first.end);
    fromSecond(nearestOn(first, second.start), second.start);
    fromSecond(nearestOn(first, second.end), second.end);
  }

  const CurveGap& gap() const { return gap_; }

  // Where a line or arc meets the whole of the other, it may meet the other itself.
  void tryCrossings() {
    const Shares shares = second_.isArc()
                              ? sharesOnCircle(first_, second_.center, second_.radius)
                              : sharesOnLine(first_, second_.start, second_.end - second_.start);
    for (const double share : shares) {
      const PlanePoint at = pointAt(first_, share);
      if (isBeside(second_, at)) take({0, at, at});
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
  void take(const CurveGap& gap) {
    if (isFirst_ || gap.distance < gap_.distance) gap_ = gap;
    isFirst_ = false;
  }
  void fromFirst(const CurvePlace& place, PlanePoint end) { take({place.distance, end, place.at}); }
  void fromSecond(const CurvePlace& place, PlanePoint end) {
    take({place.distance, place.at, end});
  }

  // The points of an arc on its diameter in this direction, seen from the other curve. There is
  // none for arcs about one centre: they are as near at an end as anywhere.
  void tryNormal(PlanePoint direction) {
    const PlanePoint along = unitOf(direction);
    if (along == PlanePoint{}) return;
    for (const double side : {-1.0, 1.0}) {
      if (first_.isArc()) tryPointOfFirst(first_.center + side * first_.radius * along);
      if (second_.isArc()) tryPointOfSecond(second_.center + side * second_.radius * along);
    }
  }
  void tryPointOfFirst(PlanePoint at) {
    if (isBeside(first_, at)) fromFirst(nearestOn(second_, at), at);
  }
  void tryPointOfSecond(PlanePoint at) {
    if (isBeside(second_, at)) fromSecond(nearestOn(first_, at), at);
  }

  const Curve& first_;
  const Curve& second_;
  CurveGap gap_;
  bool isFirst_ = true;
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
  if (least.gap().distance > 0) least.tryCrossings();
  if (least.gap().distance > 0) least.tryNormals();
  return least.gap();
}

}  // namespace tess
