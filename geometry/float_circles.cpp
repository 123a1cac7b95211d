// Circles from points, and lines with circles. All quadratics run in 64 bits.
#include "geometry/float_circles.h"

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
  return {slope, middle.y - middle.x * slope, {a, b}};
}

// Tested on the rounded 32-bit value: a radius that falls short by rounding alone still counts.
// Fixed: what rounds to 0.000 is not negative; arcs clicked a little too small would fail.
bool isTooNegative(double discriminant) {
  return roundTo(narrow(discriminant), 3) < 0;
}

double rootOf(double discriminant) {
  return discriminant < 0 ? 0 : std::sqrt(discriminant);
}

double square(double value) {
  return value * value;
}

std::optional<PointPair> centersBesideVerticalChord(Point p1, Point p2, double radius) {
  const double ym = middleOf(p1, p2).y;
  const double discriminant = square(radius) - square(p1.y - ym);
  if (isTooNegative(discriminant)) return std::nullopt;
  const double root = rootOf(discriminant);
  return PointPair{{narrow(p1.x + root), narrow(ym)}, {narrow(p1.x - root), narrow(ym)}};
}

std::optional<PointPair> centersBesideHorizontalChord(Point p1, Point p2, double radius) {
  const double xm = middleOf(p1, p2).x;
  const double discriminant = square(radius) - square(p1.x - xm);
  if (isTooNegative(discriminant)) return std::nullopt;
  const double root = rootOf(discriminant);
  return PointPair{{narrow(xm), narrow(p1.y + root)}, {narrow(xm), narrow(p1.y - root)}};
}

// The circle about p1 met by the bisector y = m*x + b: A*x^2 + B*x + C = 0.
std::optional<PointPair> centersBesideSlopedChord(Point p1, Point p2, double radius) {
  const auto [m, b, points] = perpBisector(p1, p2);
  const double x = p1.x;
  const double y = p1.y;
  const double A = m * m + 1;
  const double B = -(2 * y * m + 2 * x - 2 * m * b);
  const double C = x * x + y * y - 2 * y * b + b * b - square(radius);
  const double discriminant = B * B - 4 * A * C;
  if (isTooNegative(discriminant)) return std::nullopt;
  const double root = rootOf(discriminant);
  const double xa = (-B + root) / (2 * A);
  const double xb = (-B - root) / (2 * A);
  return PointPair{{narrow(xa), narrow(m * xa + b)}, {narrow(xb), narrow(m * xb + b)}};
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

CircleHits hitsAtHeight(double y, const Circle& circle, float tolerence) {
  const AxisHits hits = horizontalCircle(y, circle, tolerence);
  if (!hits) return {.miss = hits.miss};
  return {Miss::None, hits.tangent, {{hits.first, narrow(y)}, {hits.second, narrow(y)}}};
}

CircleHits hitsAcross(double x, const Circle& circle, float tolerence) {
  const AxisHits hits = verticalCircle(x, circle, tolerence);
  if (!hits) return {.miss = hits.miss};
  return {Miss::None, hits.tangent, {{narrow(x), hits.first}, {narrow(x), hits.second}}};
}

CircleHits slopedHits(double slope, double intercept, const Circle& circle) {
  const Quadratic q = quadraticOf(slope, intercept, circle);
  if (q.discriminant < 0) return {.miss = Miss::NoHit};
  return {Miss::None, q.discriminant == 0, rootsOnLine(q, slope, intercept)};
}

}  // namespace

std::optional<Point> circleFrom3Points(Point p1, Point p2, Point p3, float tolerence) {
  const Bisector first = bisectorOf(p1, p3);
  const Bisector second = bisectorOf(p2, p3);
  const double slopes = first.slope - second.slope;
  if (std::abs(slopes) < tolerence) return std::nullopt;
  const double quotient = first.slope / nonZero(second.slope);
  const double y = (first.intercept - second.intercept * quotient) / nonZero(1 - quotient);
  return Point{narrow((second.intercept - first.intercept) / slopes), narrow(y)};
}

Bisector perpBisector(Point p1, Point p2) {
  if (distance({}, p1) > distance({}, p2)) swapValues(p1, p2);
  return bisectorOf(p1, p2);
}

std::optional<PointPair> centersFromChord(Point p1, Point p2, float radius) {
  // The vertical case stands first: two identical points take it.
  if (p1.x == p2.x) return centersBesideVerticalChord(p1, p2, radius);
  if (p1.y == p2.y) return centersBesideHorizontalChord(p1, p2, radius);
  return centersBesideSlopedChord(p1, p2, radius);
}

CircleHits lineCircle(Point through, double slope, const Circle& circle, float tolerence) {
  if (circle.radius <= 0) return {.miss = Miss::NoRadius};
  if (std::abs(slope) < kFlatSlope) return hitsAtHeight(through.y, circle, tolerence);
  if (std::abs(slope) > kSteepSlope) return hitsAcross(through.x, circle, tolerence);
  return slopedHits(slope, through.y - through.x * slope, circle);
}

CircleHits slopeLineCircle(double slope, double intercept, const Circle& circle, float tolerence) {
  if (circle.radius <= 0) return {.miss = Miss::NoRadius};
  CircleHits hits;
  if (std::abs(slope) < kFlatSlope) {
    hits = hitsAtHeight(intercept, circle, tolerence);
  } else if (std::abs(slope) <= kSteepSlope) {
    hits = slopedHits(slope, intercept, circle);
  } else {
    hits = hitsAcross(-intercept / (2 * slope), circle, tolerence);
  }
  if (hits && hits.at.first == hits.at.second) hits.tangent = true;
  return hits;
}

AxisHits horizontalCircle(double y, const Circle& circle, float tolerence) {
  if (circle.radius <= 0) return {.miss = Miss::NoRadius};
  const double offset = y - circle.center.y;
  const double gap = circle.radius - std::abs(offset);
  if (gap < -tolerence) return {.miss = Miss::NoHit};
  const double reach = gap <= 0 ? 0 : std::sqrt(square(circle.radius) - square(offset));
  return {Miss::None, gap <= 0, narrow(circle.center.x + reach), narrow(circle.center.x - reach)};
}

AxisHits verticalCircle(double x, const Circle& circle, float tolerence) {
  if (circle.radius <= 0) return {.miss = Miss::NoRadius};
  const double squaredReach = square(circle.radius) - square(x - circle.center.x);
  if (squaredReach < -tolerence) return {.miss = Miss::NoHit};
  const double reach = rootOf(squaredReach);
  const float first = narrow(circle.center.y + reach);
  const float second = narrow(circle.center.y - reach);
  return {Miss::None, first == second, first, second};
}

}  // namespace tess
