// Circles from points, and lines with circles. All quadratics run in 64 bits.
#include "geometry/circles.h"

#include "core/rounding.h"
#include "geometry/entity.h"

namespace tess {
namespace {

struct Middle {
  double x = 0, y = 0;
};

Middle middleOf(Point a, Point b) {
  return {(static_cast<double>(a.x) + b.x) / 2, (static_cast<double>(a.y) + b.y) / 2};
}

Bisector bisectorOf(Point a, Point b) {
  const Middle middle = middleOf(a, b);
  const double slope = -1 / nonZero(chordSlope(a, b));
  return {slope, middle.y - middle.x * slope};
}

// Tested on the rounded 32-bit value: a radius that falls short by rounding alone still counts.
bool isTooNegative(double discriminant) {
  return roundTo(narrow(discriminant), 3) < 0;
}

double rootOf(double discriminant) {
  return discriminant < 0 ? 0 : std::sqrt(discriminant);
}

double square(double value) {
  return value * value;
}

bool centersBesideVerticalChord(Point p1, Point p2, double radius, PointPair& centers) {
  const double ym = middleOf(p1, p2).y;
  const double discriminant = square(radius) - square(p1.y - ym);
  if (isTooNegative(discriminant)) return false;
  const double root = rootOf(discriminant);
  centers = {{narrow(p1.x + root), narrow(ym)}, {narrow(p1.x - root), narrow(ym)}};
  return true;
}

bool centersBesideHorizontalChord(Point p1, Point p2, double radius, PointPair& centers) {
  const double xm = middleOf(p1, p2).x;
  const double discriminant = square(radius) - square(p1.x - xm);
  if (isTooNegative(discriminant)) return false;
  const double root = rootOf(discriminant);
  centers = {{narrow(xm), narrow(p1.y + root)}, {narrow(xm), narrow(p1.y - root)}};
  return true;
}

// The circle about p1 met by the bisector y = m*x + b: A*x^2 + B*x + C = 0.
bool centersBesideSlopedChord(Point p1, Point p2, double radius, PointPair& centers) {
  Point near = p1;
  Point far = p2;
  const auto [m, b] = perpBisector(near, far);
  const double x = p1.x;
  const double y = p1.y;
  const double A = m * m + 1;
  const double B = -(2 * y * m + 2 * x - 2 * m * b);
  const double C = x * x + y * y - 2 * y * b + b * b - square(radius);
  const double discriminant = B * B - 4 * A * C;
  if (isTooNegative(discriminant)) return false;
  const double root = rootOf(discriminant);
  const double xa = (-B + root) / (2 * A);
  const double xb = (-B - root) / (2 * A);
  centers = {{narrow(xa), narrow(m * xa + b)}, {narrow(xb), narrow(m * xb + b)}};
  return true;
}

// The circle met by the line y = s*x + c: A*x^2 + B*x + C = 0.
struct Quadratic {
  double A = 0, B = 0, discriminant = 0;
};

Quadratic quadraticOf(double s, double c, const Circle& circle) {
  const double xc = circle.center.x;
  const double fromCenter = c - circle.center.y;
  const double A = s * s + 1;
  const double B = fromCenter * 2 * s - 2 * xc;
  const double C = xc * xc + fromCenter * fromCenter - square(circle.radius);
  return {A, B, B * B - 4 * A * C};
}

PointPair rootsOnLine(const Quadratic& q, double s, double c) {
  const double root = std::sqrt(q.discriminant);
  const double x1 = (-q.B + root) / (2 * q.A);
  const double x2 = (-q.B - root) / (2 * q.A);
  return {{narrow(x1), narrow(x1 * s + c)}, {narrow(x2), narrow(x2 * s + c)}};
}

int hitsAtHeight(double y, const Circle& circle, float tolerence, PointPair& hits) {
  float xa = 0;
  float xb = 0;
  const int code = horizontalCircle(y, circle, tolerence, xa, xb);
  if (code > 0) hits = {{xa, narrow(y)}, {xb, narrow(y)}};
  return code;
}

int hitsAcross(double x, const Circle& circle, float tolerence, PointPair& hits) {
  float ya = 0;
  float yb = 0;
  const int code = verticalCircle(x, circle, tolerence, ya, yb);
  if (code > 0) hits = {{narrow(x), ya}, {narrow(x), yb}};
  return code;
}

int slopedHits(double slope, double intercept, const Circle& circle, PointPair& hits) {
  const Quadratic q = quadraticOf(slope, intercept, circle);
  if (q.discriminant < 0) return kNoHit;
  hits = rootsOnLine(q, slope, intercept);
  return q.discriminant == 0 ? kTangent : kTwoHits;
}

}  // namespace

bool circleFrom3Points(Point p1, Point p2, Point p3, float tolerence, Point& center) {
  const auto [m1, b1] = bisectorOf(p1, p3);
  const auto [m2, b2] = bisectorOf(p2, p3);
  if (std::abs(m1 - m2) < tolerence) return false;
  const double quotient = m1 / nonZero(m2);
  const double y = (b1 - b2 * quotient) / nonZero(1 - quotient);
  center = {narrow((b2 - b1) / (m1 - m2)), narrow(y)};
  return true;
}

Bisector perpBisector(Point& p1, Point& p2) {
  if (distance({}, p1) > distance({}, p2)) swapValues(p1, p2);
  return bisectorOf(p1, p2);
}

bool centersFromChord(Point p1, Point p2, float radius, PointPair& centers) {
  // The vertical case stands first: two identical points take it.
  if (p1.x == p2.x) return centersBesideVerticalChord(p1, p2, radius, centers);
  if (p1.y == p2.y) return centersBesideHorizontalChord(p1, p2, radius, centers);
  return centersBesideSlopedChord(p1, p2, radius, centers);
}

int lineCircle(Point through, double slope, const Circle& circle, float tolerence,
               PointPair& hits) {
  if (circle.radius <= 0) return kNoRadius;
  if (std::abs(slope) < kFlatSlope) return hitsAtHeight(through.y, circle, tolerence, hits);
  if (std::abs(slope) > kSteepSlope) return hitsAcross(through.x, circle, tolerence, hits);
  return slopedHits(slope, through.y - through.x * slope, circle, hits);
}

int slopeLineCircle(double slope, double intercept, const Circle& circle, float tolerence,
                    PointPair& hits) {
  if (circle.radius <= 0) return kNoRadius;
  int code = kNoHit;
  if (std::abs(slope) < kFlatSlope) {
    code = hitsAtHeight(intercept, circle, tolerence, hits);
  } else if (std::abs(slope) <= kSteepSlope) {
    code = slopedHits(slope, intercept, circle, hits);
  } else {
    code = hitsAcross(-intercept / (2 * slope), circle, tolerence, hits);
  }
  return code > kTangent && hits.first == hits.second ? kTangent : code;
}

int horizontalCircle(double y, const Circle& circle, float tolerence, float& xa, float& xb) {
  if (circle.radius <= 0) return kNoRadius;
  const double offset = y - circle.center.y;
  const double gap = circle.radius - std::abs(offset);
  if (gap < -tolerence) return kNoHit;
  const double reach = gap <= 0 ? 0 : std::sqrt(square(circle.radius) - square(offset));
  xa = narrow(circle.center.x + reach);
  xb = narrow(circle.center.x - reach);
  return gap <= 0 ? kTangent : kTwoHits;
}

int verticalCircle(double x, const Circle& circle, float tolerence, float& ya, float& yb) {
  if (circle.radius <= 0) return kNoRadius;
  const double squaredReach = square(circle.radius) - square(x - circle.center.x);
  if (squaredReach < -tolerence) return kNoHit;
  const double reach = rootOf(squaredReach);
  ya = narrow(circle.center.y + reach);
  yb = narrow(circle.center.y - reach);
  return ya == yb ? kTangent : kTwoHits;
}

}  // namespace tess
