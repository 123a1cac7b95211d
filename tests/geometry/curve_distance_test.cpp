// Distances of lines and arcs.
#include "geometry/curve_distance.h"

#include <cmath>
#include <numbers>

#include "gtest/gtest.h"

#include "tests/geometry/random_curves.h"

namespace tess::testing {
namespace {

constexpr double kFine = 1e-12;

Curve upperHalf(PlanePoint center, double radius) {
  return arcCurve({center.x + radius, center.y}, {center.x - radius, center.y}, center, 1);
}

TEST(CurveDistance, NearestPointOfALine) {
  const Curve line = lineCurve({1, 1}, {5, 1});
  struct Case {
    PlanePoint from, at;
    double distance;
  };
  for (const Case& c : {Case{{2, 4}, {2, 1}, 3}, Case{{0, 1}, {1, 1}, 1}, Case{{8, 5}, {5, 1}, 5},
                        Case{{3, 1}, {3, 1}, 0}}) {
    const CurvePlace place = nearestOn(line, c.from);
    EXPECT_EQ(place.at, c.at);
    EXPECT_DOUBLE_EQ(place.distance, c.distance);
  }
}

TEST(CurveDistance, NearestPointOfAnArc) {
  const Curve arc = upperHalf({1, 1}, 2);
  struct Case {
    const char* name;
    PlanePoint from, at;
    double distance;
  };
  for (const Case& c : {
           Case{"outside", {1, 9}, {1, 3}, 6},
           Case{"inside", {1, 2}, {1, 3}, 1},
           Case{"below, nearer to the start", {4, 1 - 0.75}, {3, 1}, 1.25},
           Case{"below, nearer to the end", {-2, 1 - 0.75}, {-1, 1}, 1.25},
           Case{"the centre", {1, 1}, {3, 1}, 2},
       }) {
    SCOPED_TRACE(c.name);
    for (const Curve& curve : {arc, reversed(arc)}) {
      const CurvePlace place = nearestOn(curve, c.from);
      const bool ofCenter = c.from == arc.center;
      EXPECT_NEAR(place.distance, c.distance, kFine);
      EXPECT_NEAR(place.at.x, ofCenter ? curve.start.x : c.at.x, kFine);
      EXPECT_NEAR(place.at.y, ofCenter ? curve.start.y : c.at.y, kFine);
    }
  }
}

struct GapCase {
  const char* name;
  Curve first, second;
  double distance;
};

TEST(CurveDistance, LeastDistanceOfTwoCurves) {
  const Curve line = lineCurve({0, 0}, {4, 0});
  const Curve arc = upperHalf({0, 0}, 2);
  for (const GapCase& c : {
           GapCase{"crossing lines", line, lineCurve({1, -1}, {2, 3}), 0},
           GapCase{"lines with one end", line, lineCurve({4, 0}, {5, 5}), 0},
           GapCase{"a line that ends on the other", line, lineCurve({2, 0}, {2, 5}), 0},
           GapCase{"lines side by side", line, lineCurve({1, 2}, {9, 2}), 2},
           GapCase{"lines one upon the other", line, lineCurve({3, 0}, {9, 0}), 0},
           GapCase{"lines in a row", line, lineCurve({6, 0}, {9, 0}), 2},
           GapCase{"a point by a line", line, lineCurve({1, 3}, {1, 3}), 3},
           GapCase{"a line over an arc", lineCurve({-9, 5}, {9, 5}), arc, 3},
           GapCase{"a line under an arc", lineCurve({-1, 1}, {1, 1}), arc, 2 - std::sqrt(2)},
           GapCase{"a line through an arc", lineCurve({0, 1}, {0, 5}), arc, 0},
           GapCase{"a line that touches an arc", lineCurve({-9, 2}, {9, 2}), arc, 0},
           GapCase{"a line through the other half", lineCurve({-1, -5}, {1, -1}), arc,
                   std::sqrt(2)},
           GapCase{"an arc above an arc", upperHalf({0, 6}, 1), arc, std::sqrt(37) - 2},
           GapCase{"an arc back to back", reversed(arcCurve({-3, 6}, {3, 6}, {0, 6}, 1)), arc, 1},
           GapCase{"arcs about one centre", upperHalf({0, 0}, 5), arc, 3},
           GapCase{"arcs of one circle", arcCurve({2, 0}, {0, 2}, {0, 0}, 1), arc, 0},
           GapCase{"crossing arcs", upperHalf({3, 0}, 2), arc, 0},
           GapCase{"arcs that touch", upperHalf({4, 0}, 2), arc, 0},
           GapCase{"an arc within an arc", upperHalf({0.5, 0}, 1), arc, 0.5},
       }) {
    SCOPED_TRACE(c.name);
    const CurveGap gap = gapBetween(c.first, c.second);
    EXPECT_NEAR(gap.distance, c.distance, kFine);
    EXPECT_NEAR(gapBetween(c.second, c.first).distance, gap.distance, kFine);
    EXPECT_NEAR(gapBetween(reversed(c.first), c.second).distance, gap.distance, kFine);
  }
}

// The gap is that of two points on the curves, and no two points are nearer.
TEST(CurveDistance, NoTwoPointsAreNearerThanTheGap) {
  std::mt19937 random(20261);  // NOLINT: the same curves on every run
  constexpr int kSteps = 60;
  int meeting = 0;
  for (int run = 0; run < 4000; ++run) {
    const Curve a = randomCurve(random, 3);
    const Curve b = randomCurve(random, 3);
    const CurveGap gap = gapBetween(a, b);
    if (gap.distance == 0) ++meeting;
    EXPECT_NEAR(nearestOn(a, gap.onFirst).distance, 0, kFine);
    EXPECT_NEAR(nearestOn(b, gap.onSecond).distance, 0, kFine);
    EXPECT_NEAR(lengthOf(gap.onFirst - gap.onSecond), gap.distance, kFine);
    for (int k = 0; k <= kSteps; ++k) {
      const PlanePoint onA = pointAt(a, static_cast<double>(k) / kSteps);
      EXPECT_LE(gap.distance, nearestOn(b, onA).distance + kFine);
    }
  }
  EXPECT_GT(meeting, 400);
  EXPECT_LT(meeting, 3600);
}

TEST(CurveDistance, NoPointOfACurveIsNearerThanTheNearest) {
  std::mt19937 random(20262);  // NOLINT: the same curves on every run
  std::uniform_real_distribution<double> anywhere(-5, 5);
  for (int run = 0; run < 2000; ++run) {
    const Curve curve = randomCurve(random, 3);
    const PlanePoint from{anywhere(random), anywhere(random)};
    const CurvePlace place = nearestOn(curve, from);
    EXPECT_NEAR(lengthOf(place.at - from), place.distance, kFine);
    const double share = shareOf(curve, place.at);
    EXPECT_NEAR(lengthOf(pointAt(curve, share) - place.at), 0, kFine);
    for (int k = 0; k <= 40; ++k) {
      EXPECT_LE(place.distance, lengthOf(pointAt(curve, k / 40.0) - from) + kFine);
    }
  }
}

}  // namespace
}  // namespace tess::testing
