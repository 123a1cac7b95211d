// Lines and arcs of the plane in 64 bits, for checks of the tool paths. Nothing here is shared with
// the routines that make the paths.
// Owns: Vec, dot, cross, lengthOf, leftOf, onCircle, kFullTurn, Curve, Loop, lineCurve, arcCurve,
//       circleCurve, curveOf, pointOn, nearestOn, distanceBetween, windingNumber, encloses,
//       arcMismatch.
#pragma once

#include <cmath>
#include <vector>

#include "core/drawing_rows.h"

namespace tess::testing {

struct Vec {
  double x = 0, y = 0;
  friend Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
  friend Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
  friend Vec operator*(double factor, Vec a) { return {factor * a.x, factor * a.y}; }
  friend bool operator==(Vec, Vec) = default;
};

inline double dot(Vec a, Vec b) {
  return a.x * b.x + a.y * b.y;
}
// Positive when `b` lies to the left of `a`.
inline double cross(Vec a, Vec b) {
  return a.x * b.y - a.y * b.x;
}
inline double lengthOf(Vec a) {
  return std::hypot(a.x, a.y);
}
inline Vec leftOf(Vec a) {
  return {-a.y, a.x};
}
inline Vec onCircle(Vec center, double radius, double angle) {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

inline constexpr double kFullTurn = 6.283185307179586;

// A line from start to end, or the part of a circle that begins at the angle `from` and turns by
// `sweep`, counter-clockwise when positive.
struct Curve {
  Vec start, end;
  bool isArc = false;
  Vec center{};
  double radius = 0, from = 0, sweep = 0;
};

// One after the other, the last back to the first.
using Loop = std::vector<Curve>;

Curve lineCurve(Vec start, Vec end);
// By the radius of the start; equal ends are a full circle.
Curve arcCurve(Vec start, Vec end, Vec center, bool clockwise);
Curve circleCurve(Vec center, double radius);

// Drawing rows: lines, arcs and circles. Path rows: lines and arcs.
Curve curveOf(const SegmentRow& row);
Curve curveOf(const PathRow& row);

// At `share` of the way, 0 to 1.
Vec pointOn(const Curve& curve, double share);
double lengthOf(const Curve& curve);

// The nearest point of the curve; of an arc asked from its centre, its start.
Vec nearestOn(const Curve& curve, Vec point);

// The least distance, exact up to rounding; 0 where they meet.
double distanceBetween(const Curve& curve, Vec point);
double distanceBetween(const Curve& a, const Curve& b);

// How often the loop turns counter-clockwise round a point that does not lie on it.
int windingNumber(const Loop& loop, Vec point);
inline bool encloses(const Loop& loop, Vec point) {
  return windingNumber(loop, point) != 0;
}

// By how much the end of an arc row lies off the circle of its start: a control refuses more than a
// few units of its resolution. 0 for a line.
double arcMismatch(const PathRow& row);

}  // namespace tess::testing
