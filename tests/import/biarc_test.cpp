// Fitted curves: each stays within its tolerance of random splines and ellipses and has no corner.
#include "import/biarc.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "import/ellipse_curve.h"
#include "import/spline_curve.h"
#include "tests/support/curves.h"
#include "tests/support/dxf_samples.h"

namespace tess {
namespace {

using testing::Curve;
using testing::Vec;

constexpr double kTolerance = 0.001;

Curve curveOfRow(const DxfRow& row) {
  const Vec start{row.x0, row.y0};
  const Vec end{row.x1, row.y1};
  if (row.type == kLine) return testing::lineCurve(start, end);
  return testing::arcCurve(start, end, {row.xc, row.yc}, row.type == kClockwiseArc);
}

std::vector<Curve> fitted(const PlaneCurve& curve, double tolerance = kTolerance) {
  std::vector<DxfRow> rows;
  appendBiarcs(curve, tolerance, rows);
  std::vector<Curve> curves;
  for (const DxfRow& row : rows) curves.push_back(curveOfRow(row));
  return curves;
}

double distanceTo(const std::vector<Curve>& curves, Vec point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const Curve& curve : curves) nearest = std::min(nearest, distanceBetween(curve, point));
  return nearest;
}

double distanceTo(const std::vector<Vec>& chain, Vec point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (std::size_t k = 1; k < chain.size(); ++k) {
    nearest = std::min(nearest, distanceBetween(testing::lineCurve(chain[k - 1], chain[k]), point));
  }
  return nearest;
}

// Of the way at its start or end, of length 1.
Vec directionAt(const Curve& curve, bool atEnd) {
  if (!curve.isArc) return (1 / lengthOf(curve)) * (curve.end - curve.start);
  const double angle = curve.from + (atEnd ? curve.sweep : 0);
  const Vec out = testing::onCircle({}, 1, angle);
  return curve.sweep > 0 ? leftOf(out) : -1 * leftOf(out);
}

double widestCorner(const std::vector<Curve>& curves) {
  double widest = 0;
  for (std::size_t k = 1; k < curves.size(); ++k) {
    const Vec before = directionAt(curves[k - 1], /*atEnd=*/true);
    const Vec after = directionAt(curves[k], /*atEnd=*/false);
    widest = std::max(widest, std::abs(std::atan2(cross(before, after), dot(before, after))));
  }
  return widest;
}

bool isChain(const std::vector<Curve>& curves) {
  for (std::size_t k = 1; k < curves.size(); ++k) {
    if (!(curves[k - 1].end == curves[k].start)) return false;
  }
  return !curves.empty();
}

// Both ways: no point of the curve is far from the rows, and none of the rows far from the curve.
// The chain of samples lies within a fraction of the tolerance of the curve itself.
void holdTogether(const std::vector<Curve>& curves, const std::vector<Vec>& samples) {
  RC_ASSERT(isChain(curves));
  for (const Vec sample : samples) RC_ASSERT(distanceTo(curves, sample) <= kTolerance);
  for (const Curve& curve : curves) {
    for (const double share : {0.25, 0.5, 0.75}) {
      RC_ASSERT(distanceTo(samples, pointOn(curve, share)) <= 1.2 * kTolerance);
    }
  }
}

double between(double low, double high) {
  return low + (high - low) * *rc::gen::inRange(0, 100001) / 100000;
}

// A gentle walk of control points: steps of one to three units that turn by at most a right angle.
DxfSpline randomSpline(int degree, int count, bool rational) {
  DxfSpline spline;
  spline.degree = degree;
  double heading = between(0, 6);
  Vec at{between(-20, 20), between(-20, 20)};
  for (int k = 0; k < count; ++k) {
    spline.controlPoints.push_back({at.x, at.y, 0});
    if (rational) spline.weights.push_back(between(0.3, 3));
    heading += between(-1.5, 1.5);
    at = testing::onCircle(at, between(1, 3), heading);
  }
  return spline;
}

void clampKnots(DxfSpline& spline) {
  const std::size_t ends = static_cast<std::size_t>(spline.degree) + 1;
  double knot = between(-5, 5);
  spline.knots.assign(ends, knot);
  for (std::size_t k = ends; k < spline.controlPoints.size(); ++k) {
    knot += between(0.5, 2);
    spline.knots.push_back(knot);
  }
  spline.knots.insert(spline.knots.end(), ends, knot + 1);
}

void spreadKnots(DxfSpline& spline) {
  double knot = between(-5, 5);
  const std::size_t count =
      spline.controlPoints.size() + static_cast<std::size_t>(spline.degree) + 1;
  for (std::size_t k = 0; k < count; ++k) {
    spline.knots.push_back(knot);
    knot += between(0.5, 2);
  }
}

// Quadratic and cubic splines have no cusps on such a walk often enough to matter; a direction that
// is gone for a moment is a corner in truth.
bool isSmooth(const std::vector<Vec>& samples) {
  for (std::size_t k = 2; k < samples.size(); ++k) {
    const Vec before = samples[k - 1] - samples[k - 2];
    const Vec after = samples[k] - samples[k - 1];
    if (lengthOf(before) == 0 || lengthOf(after) == 0) continue;
    if (std::abs(std::atan2(cross(before, after), dot(before, after))) > 0.2) return false;
  }
  return true;
}

void checkSpline(const DxfSpline& spline) {
  const SplineCurve curve(bezierSpans(spline, {}));
  RC_ASSERT(curve.spans() > 0);
  const std::vector<Vec> samples = testing::splineSamples(spline, 200);
  const std::vector<Curve> curves = fitted(curve);
  holdTogether(curves, samples);
  if (isSmooth(samples)) RC_ASSERT(widestCorner(curves) <= 0.01);
}

RC_GTEST_PROP(Biarcs, StayAtClampedSplines, ()) {
  const int degree = *rc::gen::inRange(2, 5);
  DxfSpline spline = randomSpline(degree, *rc::gen::inRange(degree + 1, degree + 6), false);
  clampKnots(spline);
  checkSpline(spline);
}

RC_GTEST_PROP(Biarcs, StayAtRationalSplinesWithAnyKnots, ()) {
  const int degree = *rc::gen::inRange(2, 5);
  DxfSpline spline = randomSpline(degree, *rc::gen::inRange(degree + 1, degree + 6), true);
  spreadKnots(spline);
  checkSpline(spline);
}

// What rises by less than 0.002 of the tolerance is a line and not an arc. On a curve as tight as
// this radius it leans from the arc by the angle whose versine is that rise, at either end.
double cornerOfFlatLines(double radius) {
  return 2 * std::acos(1 - 0.002 * kTolerance / radius);
}

RC_GTEST_PROP(Biarcs, StayAtEllipses, ()) {
  DxfEntity entity;
  entity.EntityType = "ELLIPSE";
  entity.ellipse = std::make_unique<DxfEllipse>();
  entity.x0 = between(-50, 50);
  entity.y0 = between(-50, 50);
  const Vec major = testing::onCircle({}, between(0.5, 20), between(0, 6));
  entity.x1 = major.x;
  entity.y1 = major.y;
  entity.g40 = between(0.05, 1);
  entity.ellipse->startParameter = between(0, 6);
  entity.ellipse->endParameter = entity.ellipse->startParameter + between(0.1, 6.28);
  const EllipseCurve curve({.center = {entity.x0, entity.y0},
                            .u = {major.x, major.y},
                            .v = {-entity.g40 * major.y, entity.g40 * major.x},
                            .from = entity.ellipse->startParameter,
                            .to = entity.ellipse->endParameter});
  const std::vector<Curve> curves = fitted(curve);
  holdTogether(curves, testing::ellipseSamples(entity, 2000));
  const double tightest = entity.g40 * entity.g40 * lengthOf(major);
  RC_ASSERT(widestCorner(curves) <= std::max(0.01, cornerOfFlatLines(tightest)));
}

// A parabola: halving the tolerance eight times over takes about twice the rows, since the error of
// a pair of arcs falls with the third power of its length.
TEST(Biarcs, RowsGrowWithTheCubeRootOfTheirPrecision) {
  DxfSpline spline;
  spline.degree = 2;
  spline.controlPoints = {{0, 0, 0}, {50, 100, 0}, {100, 0, 0}};
  spline.knots = {0, 0, 0, 1, 1, 1};
  const SplineCurve parabola(bezierSpans(spline, {}));
  const std::size_t coarse = fitted(parabola, 0.08).size();
  const std::size_t fine = fitted(parabola, 0.01).size();
  EXPECT_GE(coarse, 4U);
  EXPECT_LE(coarse, 20U);
  EXPECT_LE(fine, 3 * coarse);
}

TEST(Biarcs, CornerBetweenSpansStays) {
  DxfSpline spline;
  spline.degree = 2;
  spline.controlPoints = {{0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {2, 3, 0}, {0, 3, 0}};
  spline.knots = {0, 0, 0, 1, 1, 2, 2, 2};
  const std::vector<Curve> curves = fitted(SplineCurve(bezierSpans(spline, {})));
  EXPECT_TRUE(isChain(curves));
  EXPECT_NEAR(widestCorner(curves), std::atan2(1, 1), 0.001);
}

// Waves without number, as no curve of a drawing has them.
class Waves : public PlaneCurve {
 public:
  explicit Waves(double frequency) : frequency_(frequency) {}
  int spans() const override { return 1; }
  CurvePoint pointAt(int /*span*/, double share) const override {
    const double slope = 1000 * frequency_ * std::cos(frequency_ * share);
    return {{1e6 * share, 1000 * std::sin(frequency_ * share)}, unitOf({1e6, slope})};
  }

 private:
  const double frequency_;
};

TEST(Biarcs, StopAtTheMostRows) {
  std::vector<DxfRow> rows;
  EXPECT_FALSE(appendBiarcs(Waves(1e6), kTolerance, rows));
  EXPECT_GE(rows.size(), kMaxExactRows);
  EXPECT_LE(rows.size(), kMaxExactRows + 4);
}

TEST(Biarcs, WildCurveComesToAnEnd) {
  const std::vector<Curve> curves = fitted(Waves(1e12));
  EXPECT_TRUE(isChain(curves));
  EXPECT_LE(curves.size(), kMaxExactRows + 4);
}

}  // namespace
}  // namespace tess
