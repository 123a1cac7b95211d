// Points of the tables, their distances and the tests that two of them are one or that one lies at
// a segment. What is to be exact stands on plane.h instead.
// Owns: Point, PointPair, narrow, distance, nonZero, swapValues, samePoint, pointInSegBox,
//       MidpointSlope, midpointAndSlope, reflectThroughMidpoint.
#pragma once

#include <cmath>
#include <limits>
#include <utility>

#include "core/runtime_failure.h"
#include "geometry/float_constants.h"

// Fixed: all of float_*.h rounds to 32 bits at each step; paths and programs hold rounded results.

namespace tess {

// A place in drawing units.
struct Point {
  float x = 0, y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

// The two answers of a crossing.
struct PointPair {
  Point first, second;
  friend bool operator==(const PointPair&, const PointPair&) = default;
};

// A 64-bit result as the tables hold it. Raises Overflow for what is no 32-bit number.
inline float narrow(double value) {
  if (!(std::abs(value) <= std::numeric_limits<float>::max())) throw overflow();
  return static_cast<float>(value);
}

inline float distance(Point a, Point b) {
  const double dx = static_cast<double>(a.x) - b.x;
  const double dy = static_cast<double>(a.y) - b.y;
  return narrow(std::sqrt(dx * dx + dy * dy));
}

// The value, or 1e-6 for exactly 0: a divisor that never fails.
constexpr double nonZero(double x) {
  return x == 0 ? kZeroStandIn : x;
}

template <typename T>
void swapValues(T& a, T& b) {
  std::swap(a, b);
}

// The one test that two points coincide: within `tolerence` in each axis, inclusive.
inline bool samePoint(Point a, Point b, float tolerence) {
  return std::abs(static_cast<double>(a.x) - b.x) <= tolerence &&
         std::abs(static_cast<double>(a.y) - b.y) <= tolerence;
}

// True when `p` lies in the box of the two corners grown by kSegBoxMargin, inclusive.
bool pointInSegBox(Point p, Point a, Point b);

struct MidpointSlope {
  Point middle;
  double slope = 0;  // kVerticalSlope when both points have the same x
};
MidpointSlope midpointAndSlope(Point a, Point b);

// The point reflected through the midpoint of `a` and `b`.
Point reflectThroughMidpoint(Point a, Point b, Point p);

}  // namespace tess
