// Circles from points, and circles met by lines.
//
// The three branches of a line that meets a circle (horizontal, vertical, sloped) judge tangency
// differently: by distance, by squared distance, and with no tolerance at all.
// Owns: Circle, circleFrom3Points, Bisector, perpBisector, centersFromChord, CircleHits,
//       lineCircle, slopeLineCircle, AxisHits, horizontalCircle, verticalCircle.
#pragma once

#include <optional>

#include "geometry/float_points.h"
#include "geometry/miss.h"

namespace tess {

struct Circle {
  Point center;
  float radius = 0;
};

// The centre of the circle through three points; none when they count as collinear.
std::optional<Point> circleFrom3Points(Point p1, Point p2, Point p3, float tolerence);

// The perpendicular bisector of two points as a line y = slope*x + intercept. It takes first the
// point nearer to the origin, so that the result does not depend on their order.
struct Bisector {
  double slope = 0, intercept = 0;
  PointPair points;  // in the order taken
};
Bisector perpBisector(Point p1, Point p2);

// The centres of the two circles of radius `radius` through both points; none when the radius is
// too small. A radius too small by so little that the discriminant rounds to 0.000 gives the
// midpoint twice.
std::optional<PointPair> centersFromChord(Point p1, Point p2, float radius);

// Where a line meets a circle; NoRadius and NoHit are the misses.
struct CircleHits {
  Miss miss = Miss::NoHit;
  bool tangent = false;  // both hits are meant to be one
  PointPair at{};
  explicit operator bool() const { return miss == Miss::None; }
};

// The line through a point with a slope.
CircleHits lineCircle(Point through, double slope, const Circle& circle, float tolerence);

// The line y = slope*x + intercept. Steeper than kSteepSlope it takes x = -intercept/(2*slope),
// which is right for the radical line of two arcs whose centres have the same y, and for no other.
// Fixed: a steep line takes half its x; two arcs with centres at one height meet by that alone.
CircleHits slopeLineCircle(double slope, double intercept, const Circle& circle, float tolerence);

// The same of a line along an axis, by the hits' places on it: x on the horizontal line at y, y on
// the vertical one at x.
// Fixed: each branch judges tangency its own way; joints of offset outlines rest on all three.
struct AxisHits {
  Miss miss = Miss::NoHit;
  bool tangent = false;
  float first = 0, second = 0;
  explicit operator bool() const { return miss == Miss::None; }
};
AxisHits horizontalCircle(double y, const Circle& circle, float tolerence);
AxisHits verticalCircle(double x, const Circle& circle, float tolerence);

}  // namespace tess
