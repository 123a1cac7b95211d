// Circles from points, and circles met by lines.
//
// How a line meets a circle is told by a small number: kTwoHits, kTangent, kNoRadius, kNoHit. A
// result below 1 leaves the outputs alone. The three branches (horizontal, vertical, sloped) judge
// tangency differently: by distance, by squared distance, and with no tolerance at all. The joints
// of offset outlines rest on each as it stands; none may be aligned with another. Owns: Circle,
// Bisector, the hit codes, circleFrom3Points, perpBisector, centersFromChord,
//       lineCircle, slopeLineCircle, horizontalCircle, verticalCircle.
#pragma once

#include "geometry/points.h"

namespace tess {

struct Circle {
  Point center;
  float radius = 0;
};

inline constexpr int kTwoHits = 2;
inline constexpr int kTangent = 1;    // both outputs are the same point
inline constexpr int kNoRadius = -1;  // the radius is not positive
inline constexpr int kNoHit = -2;

// The centre of the circle through three points; false, with `center` untouched, when they count
// as collinear.
bool circleFrom3Points(Point p1, Point p2, Point p3, float tolerence, Point& center);

// The perpendicular bisector of two points as a line y = slope*x + intercept. It exchanges the
// points when the first is farther from the origin, so that the result does not depend on their
// order.
struct Bisector {
  double slope = 0, intercept = 0;
};
Bisector perpBisector(Point& p1, Point& p2);

// The centres of the two circles of radius `radius` through both points; false, with `centers`
// untouched, when the radius is too small. A radius too small by so little that the discriminant
// rounds to 0.000 gives the midpoint twice.
bool centersFromChord(Point p1, Point p2, float radius, PointPair& centers);

// The line through a point with a slope.
int lineCircle(Point through, double slope, const Circle& circle, float tolerence, PointPair& hits);

// The line y = slope*x + intercept. Steeper than kSteepSlope it takes x = -intercept/(2*slope),
// which is right for the radical line of two arcs whose centres have the same y, and for no other.
int slopeLineCircle(double slope, double intercept, const Circle& circle, float tolerence,
                    PointPair& hits);

// The horizontal line at y, the vertical one at x.
int horizontalCircle(double y, const Circle& circle, float tolerence, float& xa, float& xb);
int verticalCircle(double x, const Circle& circle, float tolerence, float& ya, float& yb);

}  // namespace tess
