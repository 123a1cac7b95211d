// How far lines and arcs are from points and from one another, and where. Exact up to rounding:
// the least distance lies at an end, at a common normal or where they cross.
// Owns: distanceTo, CurvePlace, nearestOn, CurveGap, gapBetween.
#pragma once

#include "geometry/curve.h"

namespace tess {

// The distance of a point from the nearest point of the curve.
double distanceTo(const Curve& curve, PlanePoint from);

// A point of a curve and its distance from what was asked about.
struct CurvePlace {
  PlanePoint at;
  double distance = 0;
};

// The nearest point of the curve; of an arc asked from its centre, its start.
CurvePlace nearestOn(const Curve& curve, PlanePoint from);

// The nearest points of two curves; a point where they cross or touch has distance 0.
struct CurveGap {
  double distance = 0;
  PlanePoint onFirst, onSecond;
};
CurveGap gapBetween(const Curve& first, const Curve& second);

}  // namespace tess
