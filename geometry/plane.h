// Places and directions of the plane in 64 bits: the ground of all geometry that is not bound to
// the 32-bit formulas of the tables.
// Owns: PlanePoint, dot, cross, lengthOf, normOf, leftOf, unitOf, isStorable.
#pragma once

#include <cmath>
#include <limits>

namespace tess {

struct PlanePoint {
  double x = 0, y = 0;
  friend PlanePoint operator+(PlanePoint a, PlanePoint b) { return {a.x + b.x, a.y + b.y}; }
  friend PlanePoint operator-(PlanePoint a, PlanePoint b) { return {a.x - b.x, a.y - b.y}; }
  friend PlanePoint operator*(double factor, PlanePoint a) { return {factor * a.x, factor * a.y}; }
  friend bool operator==(PlanePoint, PlanePoint) = default;
};

inline double dot(PlanePoint a, PlanePoint b) {
  return a.x * b.x + a.y * b.y;
}
// Positive when `b` lies to the left of `a`.
inline double cross(PlanePoint a, PlanePoint b) {
  return a.x * b.y - a.y * b.x;
}
inline double lengthOf(PlanePoint a) {
  return std::hypot(a.x, a.y);
}
// The same for what the tables can hold, whose squares are numbers too: in half the time.
inline double normOf(PlanePoint a) {
  return std::sqrt(dot(a, a));
}
inline PlanePoint leftOf(PlanePoint a) {
  return {-a.y, a.x};
}
// The direction with length 1; (0, 0) has none and stays.
inline PlanePoint unitOf(PlanePoint a) {
  const double length = lengthOf(a);
  return length == 0 ? a : PlanePoint{a.x / length, a.y / length};
}

// True for what the tables can hold: a 32-bit number in each axis.
inline bool isStorable(PlanePoint a) {
  constexpr double kMax = std::numeric_limits<float>::max();
  return std::abs(a.x) <= kMax && std::abs(a.y) <= kMax;
}

}  // namespace tess
