// The nearest point on one entity.
#include "geometry/float_nearest.h"

#include <algorithm>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "tests/geometry/arcs.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::kTolerence;

void expectNear(Point actual, Point expected, double tolerance = 1e-6) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

void expectFoundNear(const NearestPoint& nearest, Point expected, double tolerance = 1e-6) {
  EXPECT_EQ(nearest.miss, Miss::None);
  expectNear(nearest.at, expected, tolerance);
}

void expectFound(const NearestPoint& nearest, Point expected) {
  EXPECT_EQ(nearest.found(), expected);
}

void expectMiss(const NearestPoint& nearest, Miss miss) {
  EXPECT_EQ(nearest.miss, miss);
  EXPECT_FALSE(nearest);
  EXPECT_EQ(nearest.found(), std::nullopt);
  EXPECT_EQ(nearest.at, Point{});
}

TEST(NearestOnLine, FootOfThePerpendicular) {
  expectNear(nearestOnLine({0, 0}, {4, 4}, {0, 4}), {2, 2});
  expectNear(nearestOnLine({0, 0}, {4, -2}, {3, 1}), {2, -1});
}

TEST(NearestOnLine, AHorizontalSegmentEndsAtItsEnd) {
  EXPECT_EQ(nearestOnLine({0, 1}, {4, 1}, {9, 5}), (Point{4, 1}));
  EXPECT_EQ(nearestOnLine({0, 1}, {4, 1}, {-9, 5}), (Point{0, 1}));
  EXPECT_EQ(nearestOnLine({0, 1}, {4, 1}, {3, 5}), (Point{3, 1}));
}

TEST(NearestOnLine, AnAlmostHorizontalOneTakesTheHeightOfTheNearerEnd) {
  const Point start{0, 0};
  const Point end{100, 0.0005F};
  EXPECT_EQ(nearestOnLine(start, end, {20, 3}), (Point{20, 0}));
  EXPECT_EQ(nearestOnLine(start, end, {80, 3}), (Point{80, 0.0005F}));
  EXPECT_EQ(nearestOnLine(start, end, {50, 3}), (Point{50, 0}));  // a tie takes the start
}

TEST(NearestOnLine, AnAlmostVerticalOneTakesThePlaceOfTheNearerEnd) {
  const Point start{0, 0};
  const Point end{0.0005F, 100};
  EXPECT_EQ(nearestOnLine(start, end, {3, 20}), (Point{0, 20}));
  EXPECT_EQ(nearestOnLine(start, end, {3, 80}), (Point{0.0005F, 80}));
  EXPECT_EQ(nearestOnLine(start, end, {3, 50}), (Point{0, 50}));
  EXPECT_EQ(nearestOnLine({2, 0}, {2, 4}, {3, 9}), (Point{2, 4}));
}

TEST(NearestOnLine, AFootBeyondTheBoxInXAloneKeepsItsY) {
  // A short vertical segment counts as a slope of 50000: the foot misses its box in x alone.
  const Point nearest = nearestOnLine({0, 0}, {0, 0.05F}, {1, 0.03F});
  EXPECT_EQ(nearest.x, 0.0F);
  EXPECT_FLOAT_EQ(nearest.y, 0.03002F);
}

TEST(NearestOnLine, AFootBeyondBothIsTheEnd) {
  EXPECT_EQ(nearestOnLine({0, 0}, {4, 2}, {9, 9}), (Point{4, 2}));
  EXPECT_EQ(nearestOnLine({0, 0}, {4, 2}, {-9, 1}), (Point{0, 0}));
}

TEST(NearestOnLine, ANullSegmentIsItsPoint) {
  EXPECT_EQ(nearestOnLine({2, 3}, {2, 3}, {9, 9}), (Point{2, 3}));
}

TEST(NearestOnRect, NearestOfFourSides) {
  const Point a{0, 0};
  const Point b{4, 2};
  EXPECT_EQ(nearestOnRect(a, b, {2, -1}), (Point{2, 0}));
  EXPECT_EQ(nearestOnRect(a, b, {9, 1}), (Point{4, 1}));
  EXPECT_EQ(nearestOnRect(a, b, {2, 9}), (Point{2, 2}));
  EXPECT_EQ(nearestOnRect(a, b, {-9, 1}), (Point{0, 1}));
}

TEST(NearestOnRect, AnEarlierSideWinsATie) {
  // The middle of a square: the side from (x0,y0) to (x1,y0) stands first.
  EXPECT_EQ(nearestOnRect({0, 0}, {2, 2}, {1, 1}), (Point{1, 0}));
  EXPECT_EQ(nearestOnRect({2, 2}, {0, 0}, {1, 1}), (Point{1, 2}));
}

TEST(NearestOnArc, TableOfArcs) {
  for (const testing::ArcCase& c : testing::kArcCases) {
    SCOPED_TRACE(c.name);
    const Entity arc = testing::arcOf(c);
    const Point inside = testing::onUnitCircle(c.inside);
    expectFoundNear(nearestOnArc(arc, {inside.x * 3, inside.y * 3}, kTolerence), inside);
    expectFoundNear(nearestOnArc(arc, {inside.x / 2, inside.y / 2}, kTolerence), inside);
  }
}

TEST(NearestOnArc, OffTheSweepTheNearerEnd) {
  const Entity quarter{kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0}};
  // Both hits, at 140 and 320 degrees, miss the sweep.
  expectFound(nearestOnArc(quarter, {-1.53F, 1.28F}, kTolerence), Point{0, 1});
  expectFound(nearestOnArc(quarter, {1.53F, -1.28F}, kTolerence), Point{1, 0});
}

TEST(NearestOnArc, ATieOfTheEndsPicksTheEnd) {
  const Entity quarter{kCounterClockwiseArc, {1, 1}, {-1, 1}, {0, 0}};
  // Cast from the centre itself the line is horizontal and misses the sweep.
  expectFound(nearestOnArc(quarter, {0, 0}, kTolerence), Point{-1, 1});
}

TEST(NearestOnArc, OneHitOnTheSweepIsTheAnswerEvenWhenFar) {
  const Entity quarter{kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0}};
  expectFoundNear(nearestOnArc(quarter, {-2, -2}, kTolerence),
                  {testing::kDiagonal, testing::kDiagonal});
}

TEST(NearestOnArc, ATieOfTheHitsPicksTheSecond) {
  const Entity closed{kClockwiseArc, {1, 0}, {1, 0}, {0, 0}};
  expectFound(nearestOnArc(closed, {0, 0}, kTolerence), Point{-1, 0});
}

TEST(NearestOnArc, TheRadiusIsThatOfTheEndPoint) {
  const Entity uneven{kCounterClockwiseArc, {1, 0}, {0, 3}, {0, 0}};
  expectFoundNear(nearestOnArc(uneven, {3, 4}, kTolerence), {1.8F, 2.4F});
}

TEST(NearestOnArc, WithoutARadiusItSaysSo) {
  const Entity flat{kClockwiseArc, {1, 0}, {0, 0}, {0, 0}};
  expectMiss(nearestOnArc(flat, {3, 4}, kTolerence), Miss::NoRadius);
}

TEST(NearestOnCircle, NearerRadialHit) {
  expectFound(nearestOnCircle({1, 1}, {3, 1}, {1, 9}, kTolerence), Point{1, 3});
  expectFound(nearestOnCircle({1, 1}, {3, 1}, {0.5F, 1}, kTolerence), Point{-1, 1});
}

TEST(NearestOnCircle, ATiePicksTheSecondHit) {
  expectFound(nearestOnCircle({1, 1}, {3, 1}, {1, 1}, kTolerence), Point{-1, 1});
}

TEST(NearestOnCircle, WithoutARadiusItSaysSo) {
  expectMiss(nearestOnCircle({1, 1}, {1, 1}, {5, 5}, kTolerence), Miss::NoRadius);
}

TEST(NearestOnSeg, GoesByTheKindOfTheRow) {
  const DrawingStore store = testing::storeWith({
      {kLine, {0, 0}, {4, 0}, {}},
      {kClockwiseArc, {1, 0}, {1, 0}, {0, 0}},
      {kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0}},
      {kCircle, {1, 0}, {1, 0}, {0, 0}},
      {kRectangle, {0, 0}, {4, 2}, {}},
  });
  const Point expected[] = {{0, 0}, {0, 1}, {0, 1}, {0, 1}, {0, 2}};
  for (int sg = 1; sg <= 5; ++sg) {
    SCOPED_TRACE(sg);
    expectFoundNear(nearestOnSeg(store, sg, {0, 5}), expected[sg - 1]);
  }
}

TEST(NearestOnSeg, OtherKindsHaveNone) {
  const DrawingStore store = testing::storeWith({{kPoint, {1, 1}, {1, 1}, {}}, {4, {}, {}, {}}});
  expectMiss(nearestOnSeg(store, 1, {0, 5}), Miss::NoRule);
  expectMiss(nearestOnSeg(store, 2, {0, 5}), Miss::NoRule);
}

TEST(NearestOnPathSeg, GoesByTheKindOfTheRow) {
  const DrawingStore store = testing::storeWith({
      {kLine, {0, 0}, {4, 0}, {}},
      {kClockwiseArc, {1, 0}, {1, 0}, {0, 0}},
      {kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0}},
      {80, {9, 9}, {3, 4}, {}},
      {89, {9, 9}, {5, 6}, {}},
  });
  const Point expected[] = {{0, 0}, {0, 1}, {0, 1}, {3, 4}, {5, 6}};
  for (int ps = 1; ps <= 5; ++ps) {
    SCOPED_TRACE(ps);
    expectFoundNear(nearestOnPathSeg(store, ps, {0, 5}), expected[ps - 1]);
  }
}

TEST(NearestOnPathSeg, OtherKindsReportTheOriginAsFound) {
  const DrawingStore store =
      testing::storeWith({{kRapid, {}, {1, 1}, {}}, {79, {}, {1, 1}, {}}, {90, {}, {1, 1}, {}}});
  for (int ps = 1; ps <= 3; ++ps) {
    expectFound(nearestOnPathSeg(store, ps, {0, 5}), {0, 0});
  }
}

Point drawnPoint() {
  return {static_cast<float>(*rc::gen::inRange(-4000, 4000)) / 32,
          static_cast<float>(*rc::gen::inRange(-4000, 4000)) / 32};
}

RC_GTEST_PROP(NearestProperty, OnALineNeverFartherThanBothEnds, ()) {
  const Point start = drawnPoint();
  const Point end = drawnPoint();
  const Point at = drawnPoint();
  const float away = distance(nearestOnLine(start, end, at), at);
  RC_ASSERT(away <= std::max(distance(start, at), distance(end, at)) * 1.00001F);
}

RC_GTEST_PROP(NearestProperty, OnALineTheAnswerLiesInItsBox, ()) {
  const Point start = drawnPoint();
  const Point end = drawnPoint();
  const Point nearest = nearestOnLine(start, end, drawnPoint());
  RC_ASSERT(nearest.x >= std::min(start.x, end.x) && nearest.x <= std::max(start.x, end.x));
  RC_ASSERT(nearest.y >= std::min(start.y, end.y) && nearest.y <= std::max(start.y, end.y));
}

RC_GTEST_PROP(NearestProperty, OnACircleTheAnswerIsARadiusFromTheCenter, ()) {
  const Point center = drawnPoint();
  const Point on = drawnPoint();
  const Point at = drawnPoint();
  RC_PRE(distance(center, on) > 0.1F);
  const NearestPoint found = nearestOnCircle(center, on, at, kTolerence);
  RC_ASSERT(found.miss == Miss::None);
  const Point nearest = found.at;
  const float radius = distance(center, on);
  RC_ASSERT(std::abs(distance(nearest, center) - radius) < 1e-2F);
  RC_ASSERT(std::abs(distance(nearest, at) - std::abs(distance(at, center) - radius)) < 2e-2F);
}

}  // namespace
}  // namespace tess
