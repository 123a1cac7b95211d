// Crossings of lines and arcs: every result and every miss.
#include "geometry/float_intersections.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/float_circles.h"
#include "geometry/row_entity.h"
#include "tests/geometry/arcs.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::kTolerence;

void expectNear(Point actual, Point expected, double tolerance = 1e-6) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

Entity closedArc(Point center, float radius, int type = kCounterClockwiseArc) {
  const Point on{center.x + radius, center.y};
  return {type, on, on, center};
}

// Which of the hits count.
constexpr int kNone = 0;
constexpr int kFirst = 1;
constexpr int kSecond = 2;
constexpr int kBoth = 3;

int hitsOf(const Crossing& crossing) {
  EXPECT_EQ(static_cast<bool>(crossing), crossing.first || crossing.second);
  return (crossing.first ? kFirst : kNone) + (crossing.second ? kSecond : kNone);
}

void expectMiss(const Crossing& crossing, Miss miss) {
  EXPECT_EQ(crossing.miss, miss);
  EXPECT_EQ(hitsOf(crossing), kNone);
  EXPECT_EQ(crossing.at, PointPair{});
}

// Of lines.
void expectCrossing(const Crossing& crossing, Point at, double tolerance = 1e-6) {
  EXPECT_EQ(hitsOf(crossing), kFirst);
  expectNear(crossing.at.first, at, tolerance);
  EXPECT_EQ(crossing.at.second, Point{});
}

void expectBeyond(const Crossing& crossing, Point at, double tolerance = 1e-6) {
  EXPECT_EQ(crossing.miss, Miss::Apart);
  EXPECT_EQ(hitsOf(crossing), kNone);
  expectNear(crossing.at.first, at, tolerance);
}

TEST(NearerHit, IsTheOneThatCountsOrTheNearerAndTheFirstOnATie) {
  const PointPair hits{{1, 0}, {-1, 0}};
  EXPECT_EQ(nearerHit({Miss::None, true, false, hits}, {-5, 0}), hits.first);
  EXPECT_EQ(nearerHit({Miss::None, false, true, hits}, {5, 0}), hits.second);
  EXPECT_EQ(nearerHit({Miss::None, true, true, hits}, {5, 0}), hits.first);
  EXPECT_EQ(nearerHit({Miss::None, true, true, hits}, {-5, 0}), hits.second);
  EXPECT_EQ(nearerHit({Miss::None, true, true, hits}, {0, 3}), hits.first);
}

TEST(IntersectSlopes, MeetsAndIsRounded) {
  EXPECT_EQ(intersectSlopes(1, 0, -1, 1), (Point{0.5F, 0.5F}));
  EXPECT_EQ(intersectSlopes(0, 0, 3, -1), (Point{0.333333F, 0}));
}

TEST(IntersectSlopes, EqualSlopesAreParallel) {
  EXPECT_EQ(intersectSlopes(2, 0, 2, 5), std::nullopt);
}

TEST(IntersectSlopes, TheHeightComesFromTheLineWithTheSmallerSum) {
  // At x = 1/3 the steep line is rounded off in its last digits; the flat one is exact.
  EXPECT_EQ(intersectSlopes(3e9, -1e9 + 2, 0, 2).value().y, 2.0F);
  EXPECT_EQ(intersectSlopes(0, 2, 3e9, -1e9 + 2).value().y, 2.0F);
}

TEST(IntersectLines, InsideBothSegments) {
  expectCrossing(intersectLines(lineEntity({0, 0}, {4, 4}), lineEntity({0, 4}, {4, 0})), {2, 2}, 0);
}

TEST(IntersectLines, BeyondASegmentThePointIsTold) {
  expectBeyond(intersectLines(lineEntity({0, 0}, {1, 1}), lineEntity({0, 4}, {4, 0})), {2, 2}, 0);
}

TEST(IntersectLines, ParallelSegmentsHaveNoPoint) {
  expectMiss(intersectLines(lineEntity({0, 0}, {4, 4}), lineEntity({0, 1}, {2, 3})),
             Miss::Parallel);
}

TEST(IntersectLines, TheMarginOfTheBoxCounts) {
  const Entity wall = lineEntity({1, -1}, {1, 1});
  expectCrossing(intersectLines(lineEntity({0, 0}, {0.9985F, 0}), wall), {1, 0});
  expectBeyond(intersectLines(lineEntity({0, 0}, {0.9984F, 0}), wall), {1, 0});
}

TEST(IntersectLines, VerticalAndHorizontal) {
  const Entity vertical = lineEntity({3, 0}, {3, 8});
  const Entity horizontal = lineEntity({0, 2}, {9, 2});
  expectCrossing(intersectLines(vertical, horizontal), {3, 2}, 1e-5);
  expectCrossing(intersectLines(horizontal, vertical), {3, 2}, 1e-5);
}

TEST(IntersectLines, VerticalsOfDifferentLengthAreNotParallel) {
  // Their stand-in slopes differ, and they meet where those say.
  const Entity a = lineEntity({5, 0}, {5, 1});
  const Entity b = lineEntity({5, 0}, {5, 2});
  expectCrossing(intersectLines(a, b), {5, 0}, 1e-5);
  expectMiss(intersectLines(a, lineEntity({5, 3}, {5, 4})), Miss::Parallel);
  expectBeyond(intersectLines(lineEntity({0, 0}, {0, 1}), lineEntity({1, 0}, {1, 2})), {2, 2e6F},
               1);
}

TEST(IntersectLineArc, EveryCombinationOfBits) {
  const Entity upper{kCounterClockwiseArc, {1, 0}, {-1, 0}, {0, 0}};
  const struct {
    Entity line;
    int hits;
  } cases[] = {{lineEntity({-2, 0.6F}, {2, 0.6F}), kBoth},
               {lineEntity({0, 0.6F}, {2, 0.6F}), kFirst},
               {lineEntity({0, 0.6F}, {-2, 0.6F}), kSecond}};
  for (const auto& c : cases) {
    const Crossing crossing = intersectLineArc(c.line, upper, kTolerence);
    EXPECT_EQ(hitsOf(crossing), c.hits);
    expectNear(crossing.at.first, {0.8F, 0.6F});
    expectNear(crossing.at.second, {-0.8F, 0.6F});
  }
  expectMiss(intersectLineArc(lineEntity({-2, -0.6F}, {2, -0.6F}), upper, kTolerence), Miss::Apart);
}

TEST(IntersectLineArc, PassesOnThatTheLineMisses) {
  const Entity line = lineEntity({-2, 5}, {2, 6});
  expectMiss(intersectLineArc(line, closedArc({0, 0}, 1), kTolerence), Miss::NoHit);
  expectMiss(intersectLineArc(line, closedArc({0, 0}, 0), kTolerence), Miss::NoRadius);
}

TEST(IntersectLineArc, ATangentCountsAsBothHits) {
  const Crossing crossing =
      intersectLineArc(lineEntity({-2, 1}, {2, 1}), closedArc({0, 0}, 1), kTolerence);
  EXPECT_EQ(hitsOf(crossing), kBoth);
  EXPECT_EQ(crossing.at, (PointPair{{0, 1}, {0, 1}}));
}

TEST(IntersectLineArc, TheRadiusIsThatOfTheStart) {
  const Entity uneven{kCounterClockwiseArc, {2, 0}, {-9, 0}, {0, 0}};
  const Crossing crossing = intersectLineArc(lineEntity({0, 0}, {0, 20}), uneven, kTolerence);
  EXPECT_EQ(hitsOf(crossing), kFirst);
  expectNear(crossing.at.first, {0, 2});
}

TEST(IntersectLineArc, TableOfArcs) {
  for (const testing::ArcCase& c : testing::kArcCases) {
    SCOPED_TRACE(c.name);
    const Point in = testing::onUnitCircle(c.inside);
    const Entity ray = lineEntity({in.x / 2, in.y / 2}, {in.x * 2, in.y * 2});
    const Crossing crossing = intersectLineArc(ray, testing::arcOf(c), kTolerence);
    ASSERT_NE(crossing.first, crossing.second);
    expectNear(crossing.first ? crossing.at.first : crossing.at.second, in);
    if (c.outside < 0) continue;
    const Point out = testing::onUnitCircle(c.outside);
    const Entity miss = lineEntity({out.x / 2, out.y / 2}, {out.x * 2, out.y * 2});
    expectMiss(intersectLineArc(miss, testing::arcOf(c), kTolerence), Miss::Apart);
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
  const Crossing crossing = intersectArcs(left, closedArc(center, 5), kTolerence);
  EXPECT_EQ(hitsOf(crossing), kBoth);
  expectNear(crossing.at.first, up);
  expectNear(crossing.at.second, down);
  EXPECT_EQ(hitsOf(intersectArcs(left, onlyUpper, kTolerence)), kFirst);
  EXPECT_EQ(hitsOf(intersectArcs(left, onlyLower, kTolerence)), kSecond);
  const Entity neither{kClockwiseArc, {13, 0}, {8, -5}, center};
  expectMiss(intersectArcs(left, neither, kTolerence), Miss::Apart);
}

void expectBoth(const Crossing& crossing, Point first, Point second) {
  EXPECT_EQ(hitsOf(crossing), kBoth);
  expectNear(crossing.at.first, first);
  expectNear(crossing.at.second, second);
}

TEST(IntersectArcs, CentersAboveOneAnother) {
  expectBoth(intersectArcs(closedArc({0, 0}, 5), closedArc({0, 8}, 5), kTolerence), {3, 4},
             {-3, 4});
}

TEST(IntersectArcs, CentersOnASlant) {
  expectBoth(intersectArcs(closedArc({0, 0}, 1), closedArc({1, 1}, 1), kTolerence), {1, 0}, {0, 1});
}

TEST(IntersectArcs, ApartOrWithoutRadiusIsAMissOfOneKind) {
  expectMiss(intersectArcs(closedArc({0, 0}, 1), closedArc({5, 5}, 1), kTolerence), Miss::Apart);
  expectMiss(intersectArcs(closedArc({0, 0}, 0), closedArc({0, 0}, 1), kTolerence), Miss::Apart);
}

TEST(IntersectArcs, EqualYOfTheCentersGoesByTheHalvedIntercept) {
  expectBoth(intersectArcs(closedArc({0, 2}, 1), closedArc({1, 2}, 1), kTolerence),
             {0.5F, 2.8660254F}, {0.5F, 1.1339746F});
}

TEST(IntersectArcs, EqualArcsGiveWhatTheFormulasGive) {
  // The radical line of equal circles comes out as y = 0, wherever they stand.
  expectMiss(intersectArcs(closedArc({3, 5}, 1), closedArc({3, 5}, 1), kTolerence), Miss::Apart);
  const Crossing crossing = intersectArcs(closedArc({3, 0}, 1), closedArc({3, 0}, 1), kTolerence);
  EXPECT_EQ(hitsOf(crossing), kBoth);
  EXPECT_EQ(crossing.at, (PointPair{{4, 0}, {2, 0}}));
}

TEST(IntersectArcs, ConcentricCirclesDoNotMeet) {
  expectMiss(intersectArcs(closedArc({3, 0}, 1), closedArc({3, 0}, 2), kTolerence), Miss::Apart);
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
    int a, b, hits;
  } cases[] = {
      {1, 2, kFirst}, {2, 1, kFirst},                                // lines
      {1, 3, kBoth},  {3, 1, kBoth},  {1, 4, kBoth}, {4, 1, kBoth},  // a line and an arc
      {3, 4, kBoth},  {4, 3, kBoth},                                 // arcs
      {1, 5, kNone},  {5, 1, kNone},  {1, 6, kNone}, {6, 1, kNone},  // no rule
      {3, 5, kNone},  {5, 6, kNone},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.a << " with " << c.b);
    const Crossing segs = intersectSegs(store, c.a, c.b);
    const Crossing paths = intersectPathSegs(store, c.a, c.b);
    const Crossing entity = intersectWithSeg(store, segmentEntity(store, c.a), c.b);
    for (const Crossing& crossing : {segs, paths, entity}) {
      EXPECT_EQ(hitsOf(crossing), c.hits);
      EXPECT_EQ(crossing.miss, c.hits == kNone ? Miss::NoRule : Miss::None);
      EXPECT_EQ(crossing.at, segs.at);
    }
    EXPECT_TRUE(c.hits != kNone || segs.at == PointPair{});
  }
}

TEST(IntersectSegs, TwoLinesHaveTheFirstPointAlone) {
  const DrawingStore store = testing::storeWith({
      lineEntity({1, 1}, {3, 3}),
      lineEntity({1, 3}, {3, 1}),
  });
  expectCrossing(intersectSegs(store, 1, 2), {2, 2});
}

TEST(IntersectSegs, EqualIndicesAreRefused) {
  const DrawingStore store = mixedStore();
  expectMiss(intersectSegs(store, 3, 3), Miss::SameRow);
  expectMiss(intersectPathSegs(store, 3, 3), Miss::SameRow);
}

TEST(IntersectSegs, ABadIndexIsASubscriptFailure) {
  const DrawingStore store = mixedStore();
  try {
    intersectSegs(store, 1, 32767);
    FAIL();
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::SubscriptOutOfRange);
  }
}

TEST(IntersectEntities, TheCodeIsASumOfTensAndOnes) {
  // A rapid and a cycle 21 add up to an arc with a line.
  const Entity rapid{kRapid, {1, 0}, {0, 1}, {0, 0}};
  const Entity cycle{21, {-2, 0.6F}, {2, 0.6F}, {}};
  EXPECT_EQ(hitsOf(intersectEntities(rapid, cycle, kTolerence)), kFirst);
  expectMiss(intersectEntities(cycle, rapid, kTolerence), Miss::NoRule);
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
  const Crossing ab = intersectLines(a, b);
  const Crossing ba = intersectLines(b, a);
  RC_ASSERT(ab.miss == ba.miss);
  const Point at = ab.at.first;
  if (std::max({std::abs(at.x), std::abs(at.y)}) < 200) {
    RC_ASSERT(distance(at, ba.at.first) < 1e-2F);
  }
}

RC_GTEST_PROP(IntersectionsProperty, ALineAndAnArcCrossTheSameInEitherOrder, ()) {
  const Point center = drawnPoint();
  const Entity arc{*rc::gen::element(2, 3), drawnPoint(), drawnPoint(), center};
  const Entity line = lineEntity(drawnPoint(), drawnPoint());
  const Crossing one = intersectEntities(line, arc, kTolerence);
  const Crossing other = intersectEntities(arc, line, kTolerence);
  RC_ASSERT(one.miss == other.miss);
  RC_ASSERT(one.first == other.first && one.second == other.second);
  RC_ASSERT(one.at == other.at);
}

RC_GTEST_PROP(IntersectionsProperty, WholeCirclesMeetOnBoth, ()) {
  const Entity a = closedArc(drawnPoint(), static_cast<float>(*rc::gen::inRange(1, 2000)) / 16);
  const Entity b = closedArc(drawnPoint(), static_cast<float>(*rc::gen::inRange(1, 2000)) / 16);
  RC_PRE(std::abs(a.center.x - b.center.x) > 0.5F && std::abs(a.center.y - b.center.y) > 0.5F);
  const Crossing crossing = intersectArcs(a, b, kTolerence);
  RC_PRE(crossing.first && crossing.second);
  for (const Point hit : {crossing.at.first, crossing.at.second}) {
    RC_ASSERT(std::abs(distance(hit, a.center) - radiusOf(a)) < 0.02F);
    RC_ASSERT(std::abs(distance(hit, b.center) - radiusOf(b)) < 0.02F);
  }
}

}  // namespace
}  // namespace tess
