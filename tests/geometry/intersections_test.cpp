// Crossings of lines and arcs: every result code, and what is written when.
#include "geometry/intersections.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/rounding.h"
#include "geometry/circles.h"
#include "tests/geometry/arcs.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::kTolerence;

constexpr PointPair kUntouched{{-7, -7}, {-7, -7}};

void expectNear(Point actual, Point expected, double tolerance = 1e-6) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

Entity closedArc(Point center, float radius, int type = kCounterClockwiseArc) {
  const Point on{center.x + radius, center.y};
  return {type, on, on, center};
}

TEST(IntersectSlopes, MeetsAndIsRounded) {
  Point at;
  EXPECT_EQ(intersectSlopes(1, 0, -1, 1, at), kCrossing);
  EXPECT_EQ(at, (Point{0.5F, 0.5F}));
  EXPECT_EQ(intersectSlopes(0, 0, 3, -1, at), kCrossing);
  EXPECT_EQ(at, (Point{0.333333F, 0}));
}

TEST(IntersectSlopes, EqualSlopesAreParallel) {
  Point at{-7, -7};
  EXPECT_EQ(intersectSlopes(2, 0, 2, 5, at), kParallel);
  EXPECT_EQ(at, (Point{-7, -7}));
}

TEST(IntersectSlopes, TheHeightComesFromTheLineWithTheSmallerSum) {
  // At x = 1/3 the steep line is rounded off in its last digits; the flat one is exact.
  Point at;
  EXPECT_EQ(intersectSlopes(3e9, -1e9 + 2, 0, 2, at), kCrossing);
  EXPECT_EQ(at.y, 2.0F);
  EXPECT_EQ(intersectSlopes(0, 2, 3e9, -1e9 + 2, at), kCrossing);
  EXPECT_EQ(at.y, 2.0F);
}

TEST(IntersectLines, InsideBothSegments) {
  Point at;
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {4, 4}), lineEntity({0, 4}, {4, 0}), at), kCrossing);
  EXPECT_EQ(at, (Point{2, 2}));
}

TEST(IntersectLines, BeyondASegmentThePointIsWritten) {
  Point at{-7, -7};
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {1, 1}), lineEntity({0, 4}, {4, 0}), at), kBeyond);
  EXPECT_EQ(at, (Point{2, 2}));
}

TEST(IntersectLines, ParallelSegmentsWriteNothing) {
  Point at{-7, -7};
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {4, 4}), lineEntity({0, 1}, {2, 3}), at), kParallel);
  EXPECT_EQ(at, (Point{-7, -7}));
}

TEST(IntersectLines, TheMarginOfTheBoxCounts) {
  Point at;
  const Entity wall = lineEntity({1, -1}, {1, 1});
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {0.9985F, 0}), wall, at), kCrossing);
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {0.9984F, 0}), wall, at), kBeyond);
}

TEST(IntersectLines, VerticalAndHorizontal) {
  Point at;
  const Entity vertical = lineEntity({3, 0}, {3, 8});
  EXPECT_EQ(intersectLines(vertical, lineEntity({0, 2}, {9, 2}), at), kCrossing);
  expectNear(at, {3, 2}, 1e-5);
  EXPECT_EQ(intersectLines(lineEntity({0, 2}, {9, 2}), vertical, at), kCrossing);
  expectNear(at, {3, 2}, 1e-5);
}

TEST(IntersectLines, VerticalsOfDifferentLengthAreNotParallel) {
  // Their stand-in slopes differ, and they meet where those say.
  Point at{-7, -7};
  const Entity a = lineEntity({5, 0}, {5, 1});
  const Entity b = lineEntity({5, 0}, {5, 2});
  EXPECT_EQ(intersectLines(a, b, at), kCrossing);
  expectNear(at, {5, 0}, 1e-5);
  EXPECT_EQ(intersectLines(a, lineEntity({5, 3}, {5, 4}), at), kParallel);
  EXPECT_EQ(intersectLines(lineEntity({0, 0}, {0, 1}), lineEntity({1, 0}, {1, 2}), at), kBeyond);
  expectNear(at, {2, 2e6F}, 1);
}

TEST(IntersectLineArc, EveryCombinationOfBits) {
  const Entity upper{kCounterClockwiseArc, {1, 0}, {-1, 0}, {0, 0}};
  PointPair at = kUntouched;
  EXPECT_EQ(intersectLineArc(lineEntity({-2, 0.6F}, {2, 0.6F}), upper, kTolerence, at), 3);
  expectNear(at.first, {0.8F, 0.6F});
  expectNear(at.second, {-0.8F, 0.6F});
  at = kUntouched;
  EXPECT_EQ(intersectLineArc(lineEntity({0, 0.6F}, {2, 0.6F}), upper, kTolerence, at), 1);
  expectNear(at.first, {0.8F, 0.6F});
  expectNear(at.second, {-0.8F, 0.6F});
  EXPECT_EQ(intersectLineArc(lineEntity({0, 0.6F}, {-2, 0.6F}), upper, kTolerence, at), 2);
  at = kUntouched;
  EXPECT_EQ(intersectLineArc(lineEntity({-2, -0.6F}, {2, -0.6F}), upper, kTolerence, at), 0);
  EXPECT_EQ(at, kUntouched);
}

TEST(IntersectLineArc, PassesOnThatTheLineMisses) {
  PointPair at = kUntouched;
  const Entity line = lineEntity({-2, 5}, {2, 6});
  EXPECT_EQ(intersectLineArc(line, closedArc({0, 0}, 1), kTolerence, at), kNoHit);
  EXPECT_EQ(intersectLineArc(line, closedArc({0, 0}, 0), kTolerence, at), kNoRadius);
  EXPECT_EQ(at, kUntouched);
}

TEST(IntersectLineArc, ATangentSetsBothBits) {
  PointPair at;
  EXPECT_EQ(intersectLineArc(lineEntity({-2, 1}, {2, 1}), closedArc({0, 0}, 1), kTolerence, at), 3);
  EXPECT_EQ(at, (PointPair{{0, 1}, {0, 1}}));
}

TEST(IntersectLineArc, TheRadiusIsThatOfTheStart) {
  const Entity uneven{kCounterClockwiseArc, {2, 0}, {-9, 0}, {0, 0}};
  PointPair at;
  EXPECT_EQ(intersectLineArc(lineEntity({0, 0}, {0, 20}), uneven, kTolerence, at), 1);
  expectNear(at.first, {0, 2});
}

TEST(IntersectLineArc, TableOfArcs) {
  for (const testing::ArcCase& c : testing::kArcCases) {
    SCOPED_TRACE(c.name);
    const Point in = testing::onUnitCircle(c.inside);
    const Entity ray = lineEntity({in.x / 2, in.y / 2}, {in.x * 2, in.y * 2});
    PointPair at;
    const int bits = intersectLineArc(ray, testing::arcOf(c), kTolerence, at);
    ASSERT_TRUE(bits == kFirstHit || bits == kSecondHit);
    expectNear(bits == kFirstHit ? at.first : at.second, in);
    if (c.outside < 0) continue;
    const Point out = testing::onUnitCircle(c.outside);
    const Entity miss = lineEntity({out.x / 2, out.y / 2}, {out.x * 2, out.y * 2});
    EXPECT_EQ(intersectLineArc(miss, testing::arcOf(c), kTolerence, at), 0);
  }
}

TEST(IntersectArcs, EveryCombinationOfBits) {
  const Entity left = closedArc({0, 0}, 5);
  const Point up{4, 3};
  const Point down{4, -3};
  const Point center{8, 0};
  // The radical line is vertical; the upper hit comes first.
  const Entity onlyUpper{kCounterClockwiseArc, {13, 0}, {3, 0}, center};
  const Entity onlyLower{kClockwiseArc, {13, 0}, {3, 0}, center};
  PointPair at = kUntouched;
  EXPECT_EQ(intersectArcs(left, closedArc(center, 5), kTolerence, at), 3);
  expectNear(at.first, up);
  expectNear(at.second, down);
  EXPECT_EQ(intersectArcs(left, onlyUpper, kTolerence, at), 1);
  EXPECT_EQ(intersectArcs(left, onlyLower, kTolerence, at), 2);
  at = kUntouched;
  const Entity neither{kClockwiseArc, {13, 0}, {8, -5}, center};
  EXPECT_EQ(intersectArcs(left, neither, kTolerence, at), 0);
  EXPECT_EQ(at, kUntouched);
}

TEST(IntersectArcs, CentresAboveOneAnother) {
  PointPair at;
  EXPECT_EQ(intersectArcs(closedArc({0, 0}, 5), closedArc({0, 8}, 5), kTolerence, at), 3);
  expectNear(at.first, {3, 4});
  expectNear(at.second, {-3, 4});
}

TEST(IntersectArcs, CentresOnASlant) {
  PointPair at;
  EXPECT_EQ(intersectArcs(closedArc({0, 0}, 1), closedArc({1, 1}, 1), kTolerence, at), 3);
  expectNear(at.first, {1, 0});
  expectNear(at.second, {0, 1});
}

TEST(IntersectArcs, ApartOrWithoutRadiusIsZero) {
  PointPair at = kUntouched;
  EXPECT_EQ(intersectArcs(closedArc({0, 0}, 1), closedArc({5, 5}, 1), kTolerence, at), 0);
  EXPECT_EQ(intersectArcs(closedArc({0, 0}, 0), closedArc({0, 0}, 1), kTolerence, at), 0);
  EXPECT_EQ(at, kUntouched);
}

TEST(IntersectArcs, EqualYOfTheCentresGoesByTheHalvedIntercept) {
  PointPair at;
  EXPECT_EQ(intersectArcs(closedArc({0, 2}, 1), closedArc({1, 2}, 1), kTolerence, at), 3);
  expectNear(at.first, {0.5F, 2.8660254F});
  expectNear(at.second, {0.5F, 1.1339746F});
}

TEST(IntersectArcs, EqualArcsGiveWhatTheFormulasGive) {
  // The radical line of equal circles comes out as y = 0, wherever they stand.
  PointPair at = kUntouched;
  EXPECT_EQ(intersectArcs(closedArc({3, 5}, 1), closedArc({3, 5}, 1), kTolerence, at), 0);
  EXPECT_EQ(at, kUntouched);
  EXPECT_EQ(intersectArcs(closedArc({3, 0}, 1), closedArc({3, 0}, 1), kTolerence, at), 3);
  EXPECT_EQ(at, (PointPair{{4, 0}, {2, 0}}));
}

TEST(IntersectArcs, ConcentricCirclesDoNotMeet) {
  PointPair at;
  EXPECT_EQ(intersectArcs(closedArc({3, 0}, 1), closedArc({3, 0}, 2), kTolerence, at), 0);
}

// Rows: 1 and 2 crossing lines, 3 a clockwise and 4 a counter-clockwise arc, 5 a circle,
// 6 a rectangle.
DrawingStore mixedStore() {
  return testing::storeWith({
      lineEntity({-2, -2}, {2, 2}),
      lineEntity({-2, 2}, {2, -2}),
      closedArc({0, 0}, 1, kClockwiseArc),
      closedArc({1, 0}, 1, kCounterClockwiseArc),
      {kCircle, {1, 0}, {1, 0}, {0, 0}},
      {kRectangle, {-1, -1}, {1, 1}, {}},
  });
}

TEST(IntersectSegs, DispatchesOnThePairOfKinds) {
  const DrawingStore store = mixedStore();
  const struct {
    int a, b, result;
  } cases[] = {
      {1, 2, 1}, {2, 1, 1},                        // lines
      {1, 3, 3}, {3, 1, 3}, {1, 4, 3}, {4, 1, 3},  // a line and an arc
      {3, 4, 3}, {4, 3, 3},                        // arcs
      {1, 5, 0}, {5, 1, 0}, {1, 6, 0}, {6, 1, 0}, {3, 5, 0}, {5, 6, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.a << " with " << c.b);
    PointPair segs = kUntouched;
    PointPair paths = kUntouched;
    PointPair entity = kUntouched;
    EXPECT_EQ(intersectSegs(store, c.a, c.b, segs), c.result);
    EXPECT_EQ(intersectPathSegs(store, c.a, c.b, paths), c.result);
    EXPECT_EQ(intersectWithSeg(store, segmentEntity(store, c.a), c.b, entity), c.result);
    EXPECT_EQ(segs, paths);
    EXPECT_EQ(segs, entity);
    if (c.result == 0) {
      EXPECT_EQ(segs, kUntouched);
    }
  }
}

TEST(IntersectSegs, TwoLinesWriteTheFirstPointAlone) {
  PointPair at = kUntouched;
  EXPECT_EQ(intersectSegs(mixedStore(), 1, 2, at), kCrossing);
  EXPECT_EQ(at, (PointPair{{0, 0}, {-7, -7}}));
}

TEST(IntersectSegs, EqualIndicesAreRefused) {
  const DrawingStore store = mixedStore();
  PointPair at = kUntouched;
  EXPECT_EQ(intersectSegs(store, 3, 3, at), kSameRow);
  EXPECT_EQ(intersectPathSegs(store, 3, 3, at), kSameRow);
  EXPECT_EQ(at, kUntouched);
}

TEST(IntersectSegs, ABadIndexIsASubscriptFailure) {
  const DrawingStore store = mixedStore();
  PointPair at;
  try {
    intersectSegs(store, 1, 32767, at);
    FAIL();
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::SubscriptOutOfRange);
  }
}

TEST(IntersectEntities, TheCodeIsASumOfTensAndOnes) {
  // A rapid and a cycle 21 add up to an arc with a line.
  PointPair at;
  const Entity rapid{kRapid, {1, 0}, {0, 1}, {0, 0}};
  const Entity cycle{21, {-2, 0.6F}, {2, 0.6F}, {}};
  EXPECT_EQ(intersectEntities(rapid, cycle, kTolerence, at), 1);
  EXPECT_EQ(intersectEntities(cycle, rapid, kTolerence, at), 0);
}

Point drawnPoint() {
  return {static_cast<float>(*rc::gen::inRange(-4000, 4000)) / 32,
          static_cast<float>(*rc::gen::inRange(-4000, 4000)) / 32};
}

RC_GTEST_PROP(IntersectionsProperty, LinesCrossTheSameInEitherOrder, ()) {
  const Entity a = lineEntity(drawnPoint(), drawnPoint());
  const Entity b = lineEntity(drawnPoint(), drawnPoint());
  // Next to a box's edge the two orders may round to different sides of it.
  RC_PRE(a.start.x != a.end.x && b.start.x != b.end.x);
  Point ab;
  Point ba;
  RC_ASSERT(intersectLines(a, b, ab) == intersectLines(b, a, ba));
  if (std::max({std::abs(ab.x), std::abs(ab.y)}) < 200) RC_ASSERT(distance(ab, ba) < 1e-2F);
}

RC_GTEST_PROP(IntersectionsProperty, ALineAndAnArcCrossTheSameInEitherOrder, ()) {
  const Point center = drawnPoint();
  const Entity arc{*rc::gen::element(2, 3), drawnPoint(), drawnPoint(), center};
  const Entity line = lineEntity(drawnPoint(), drawnPoint());
  PointPair first;
  PointPair second;
  RC_ASSERT(intersectEntities(line, arc, kTolerence, first) ==
            intersectEntities(arc, line, kTolerence, second));
  RC_ASSERT(first == second);
}

RC_GTEST_PROP(IntersectionsProperty, WholeCirclesMeetOnBoth, ()) {
  const Entity a = closedArc(drawnPoint(), static_cast<float>(*rc::gen::inRange(1, 2000)) / 16);
  const Entity b = closedArc(drawnPoint(), static_cast<float>(*rc::gen::inRange(1, 2000)) / 16);
  RC_PRE(std::abs(a.center.x - b.center.x) > 0.5F && std::abs(a.center.y - b.center.y) > 0.5F);
  PointPair at;
  RC_PRE(intersectArcs(a, b, kTolerence, at) == 3);
  for (const Point hit : {at.first, at.second}) {
    RC_ASSERT(std::abs(distance(hit, a.center) - radiusOf(a)) < 0.02F);
    RC_ASSERT(std::abs(distance(hit, b.center) - radiusOf(b)) < 0.02F);
  }
}

}  // namespace
}  // namespace tess
