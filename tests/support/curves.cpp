// Lines and arcs of the plane: distances in closed form, and the winding number.
#include "tests/support/curves.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <string>

namespace tess::testing {
namespace {

// Angles are told apart this finely where a point may lie on the very end of an arc.
constexpr double kAngleNoise = 1e-12;

double angleOf(Vec direction) {
  return std::atan2(direction.y, direction.x);
}

// The turn from `from` to `to` in the sense of the sweep, 0 up to a full turn.
double turnFrom(double from, double to, bool clockwise) {
  const double turn = std::fmod(clockwise ? from - to : to - from, kFullTurn);
  return turn < 0 ? turn + kFullTurn : turn;
}

bool isOnSweep(const Curve& arc, Vec direction) {
  const double turn = turnFrom(arc.from, angleOf(direction), arc.sweep < 0);
  return turn <= std::abs(arc.sweep) + kAngleNoise || turn >= kFullTurn - kAngleNoise;
}

Vec nearestOnLine(const Curve& line, Vec point) {
  const Vec along = line.end - line.start;
  const double square = dot(along, along);
  const double share = square == 0 ? 0 : dot(point - line.start, along) / square;
  return pointOn(line, std::clamp(share, 0.0, 1.0));
}

Vec nearestOnArc(const Curve& arc, Vec point) {
  const Vec direction = point - arc.center;
  if (direction == Vec{}) return arc.start;
  if (isOnSweep(arc, direction)) {
    return arc.center + (arc.radius / lengthOf(direction)) * direction;
  }
  return lengthOf(point - arc.start) < lengthOf(point - arc.end) ? arc.start : arc.end;
}

// The least distance between curves that do not cross lies at an end of one of them, or where one
// normal serves both.
double leastFromEnds(const Curve& a, const Curve& b) {
  return std::min({distanceBetween(a, b.start), distanceBetween(a, b.end),
                   distanceBetween(b, a.start), distanceBetween(b, a.end)});
}

bool linesCross(const Curve& a, const Curve& b) {
  const Vec alongA = a.end - a.start;
  const Vec alongB = b.end - b.start;
  const double startSide = cross(alongA, b.start - a.start);
  const double endSide = cross(alongA, b.end - a.start);
  const double ownStartSide = cross(alongB, a.start - b.start);
  const double ownEndSide = cross(alongB, a.end - b.start);
  return startSide * endSide < 0 && ownStartSide * ownEndSide < 0;
}

bool isOnLine(const Curve& line, double share) {
  return share >= 0 && share <= 1 && lengthOf(line) > 0;
}

// Where the line's carrier passes the centre, as its nearest point and the share of the way there.
struct Foot {
  Vec at;
  double share = 0;
};

Foot footOf(const Curve& line, Vec point) {
  const Vec along = line.end - line.start;
  const double share = dot(point - line.start, along) / dot(along, along);
  return {line.start + share * along, share};
}

bool lineCrossesArc(const Curve& line, const Curve& arc) {
  const Foot foot = footOf(line, arc.center);
  const double off = lengthOf(foot.at - arc.center);
  if (off > arc.radius) return false;
  const double half = std::sqrt(arc.radius * arc.radius - off * off) / lengthOf(line);
  for (const double share : {foot.share - half, foot.share + half}) {
    const Vec at = line.start + share * (line.end - line.start);
    if (isOnLine(line, share) && isOnSweep(arc, at - arc.center)) return true;
  }
  return false;
}

double lineToArc(const Curve& line, const Curve& arc) {
  double least = leastFromEnds(line, arc);
  if (lengthOf(line) == 0) return least;
  if (lineCrossesArc(line, arc)) return 0;
  const Foot foot = footOf(line, arc.center);
  if (!isOnLine(line, foot.share)) return least;
  const Vec normal = (1 / lengthOf(line)) * leftOf(line.end - line.start);
  for (const double side : {arc.radius, -arc.radius}) {
    const Vec direction = side * normal;
    if (isOnSweep(arc, direction))
      least = std::min(least, lengthOf(foot.at - (arc.center + direction)));
  }
  return least;
}

bool arcsCross(const Curve& a, const Curve& b) {
  const Vec between = b.center - a.center;
  const double d = lengthOf(between);
  if (d == 0 || d > a.radius + b.radius || d < std::abs(a.radius - b.radius)) return false;
  const double along = (d * d + a.radius * a.radius - b.radius * b.radius) / (2 * d);
  const double across = std::sqrt(std::max(0.0, a.radius * a.radius - along * along));
  const Vec unit = (1 / d) * between;
  for (const double side : {across, -across}) {
    const Vec at = a.center + along * unit + side * leftOf(unit);
    if (isOnSweep(a, at - a.center) && isOnSweep(b, at - b.center)) return true;
  }
  return false;
}

double arcToArc(const Curve& a, const Curve& b) {
  double least = leastFromEnds(a, b);
  if (arcsCross(a, b)) return 0;
  const Vec between = b.center - a.center;
  if (lengthOf(between) == 0) return least;  // the ends tell all about rings of one centre
  const Vec unit = (1 / lengthOf(between)) * between;
  for (const double sideA : {a.radius, -a.radius}) {
    for (const double sideB : {b.radius, -b.radius}) {
      if (!isOnSweep(a, sideA * unit) || !isOnSweep(b, sideB * unit)) continue;
      const Vec gap = (a.center + sideA * unit) - (b.center + sideB * unit);
      least = std::min(least, lengthOf(gap));
    }
  }
  return least;
}

// Positive when the way from a to b passes the point on its left.
double sideOf(Vec a, Vec b, Vec point) {
  return cross(a - point, b - point) + 0.0;
}

// The angle under which the point sees the way from a to b, counter-clockwise positive. A point on
// the way counts as one to the left of it.
double seenAngle(Vec a, Vec b, Vec point) {
  return std::atan2(sideOf(a, b, point), dot(a - point, b - point));
}

// Between an arc and its chord the arc goes round a point once more than the chord does. A
// counter-clockwise arc always lies to the right of its chord.
int extraTurn(const Curve& arc, Vec point) {
  if (lengthOf(point - arc.center) > arc.radius) return 0;
  const bool clockwise = arc.sweep < 0;
  const bool isLeft = sideOf(arc.start, arc.end, point) >= 0;
  if (arc.start != arc.end && isLeft != clockwise) return 0;
  return clockwise ? -1 : 1;
}

Vec startOf(const auto& row) {
  return {row.x0, row.y0};
}
Vec endOf(const auto& row) {
  return {row.x1, row.y1};
}

Curve curveOfRow(const auto& row) {
  if (row.type == kLine || row.type == kRapid) return lineCurve(startOf(row), endOf(row));
  if (isArc(row.type)) {
    return arcCurve(startOf(row), endOf(row), {row.xc, row.yc}, row.type == kClockwiseArc);
  }
  throw std::invalid_argument("a row of type " + std::to_string(row.type) + " is no curve");
}

}  // namespace

Curve lineCurve(Vec start, Vec end) {
  return {.start = start, .end = end};
}

Curve arcCurve(Vec start, Vec end, Vec center, bool clockwise) {
  const double from = angleOf(start - center);
  double turn = turnFrom(from, angleOf(end - center), clockwise);
  if (start == end) turn = kFullTurn;
  return {.start = start,
          .end = end,
          .isArc = true,
          .center = center,
          .radius = lengthOf(start - center),
          .from = from,
          .sweep = clockwise ? -turn : turn};
}

Curve circleCurve(Vec center, double radius) {
  const Vec start = center + Vec{radius, 0};
  return arcCurve(start, start, center, /*clockwise=*/false);
}

Curve curveOf(const SegmentRow& row) {
  if (row.type == kCircle)
    return circleCurve({row.xc, row.yc}, lengthOf(startOf(row) - Vec{row.xc, row.yc}));
  return curveOfRow(row);
}

Curve curveOf(const PathRow& row) {
  return curveOfRow(row);
}

Vec pointOn(const Curve& curve, double share) {
  if (!curve.isArc) return curve.start + share * (curve.end - curve.start);
  return onCircle(curve.center, curve.radius, curve.from + share * curve.sweep);
}

double lengthOf(const Curve& curve) {
  return curve.isArc ? curve.radius * std::abs(curve.sweep) : lengthOf(curve.end - curve.start);
}

Vec nearestOn(const Curve& curve, Vec point) {
  return curve.isArc ? nearestOnArc(curve, point) : nearestOnLine(curve, point);
}

double distanceBetween(const Curve& curve, Vec point) {
  return lengthOf(point - nearestOn(curve, point));
}

double distanceBetween(const Curve& a, const Curve& b) {
  if (a.isArc && b.isArc) return arcToArc(a, b);
  if (a.isArc) return lineToArc(b, a);
  if (b.isArc) return lineToArc(a, b);
  return linesCross(a, b) ? 0 : leastFromEnds(a, b);
}

int windingNumber(const Loop& loop, Vec point) {
  double angle = 0;
  int extra = 0;
  for (const Curve& curve : loop) {
    angle += seenAngle(curve.start, curve.end, point);
    if (curve.isArc) extra += extraTurn(curve, point);
  }
  return static_cast<int>(std::lround(angle / kFullTurn)) + extra;
}

double arcMismatch(const PathRow& row) {
  if (!isArc(row.type)) return 0;
  const Vec center{row.xc, row.yc};
  return std::abs(lengthOf(startOf(row) - center) - lengthOf(endOf(row) - center));
}

}  // namespace tess::testing
