// Scans over the tables: which rows count, ties, and the reach.
#include "geometry/float_nearest_scans.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/float_nearest.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

Entity lineAt(float y) {
  return lineEntity({0, y}, {10, y});
}

TEST(NearestScans, AnEmptyDrawingHasNothing) {
  const DrawingStore store;
  EXPECT_EQ(nearestSeg(store, {0, 0}), 0);
  EXPECT_EQ(nearestSelectedSeg(store, {0, 0}), 0);
  EXPECT_EQ(nearestLineSeg(store, {0, 0}), 0);
  EXPECT_EQ(nearestArcSeg(store, {0, 0}), 0);
  EXPECT_EQ(nearestRoundSeg(store, {0, 0}), 0);
  EXPECT_EQ(nearestPathSeg(store, {0, 0}, 0), 0);
  EXPECT_EQ(nearestPathChord(store, {0, 0}), 0);
  EXPECT_FALSE(nearestSegEndpoint(store, {0, 0}));
  EXPECT_FALSE(nearestPathEndpoint(store, {0, 0}));
}

TEST(NearestScans, TheLowestRowWinsATie) {
  const DrawingStore store = testing::storeWith({lineAt(5), lineAt(1), lineAt(-1), lineAt(1)});
  EXPECT_EQ(nearestSeg(store, {3, 0}), 2);
  EXPECT_EQ(nearestLineSeg(store, {3, 0}), 2);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 0), 2);
  EXPECT_EQ(nearestPathChord(store, {3, 0}), 2);
}

TEST(NearestScans, NothingIsFoundAMillionAway) {
  const DrawingStore at = testing::storeWith({lineAt(1e6F)});
  EXPECT_EQ(nearestSeg(at, {3, 0}), 0);
  const DrawingStore nearer = testing::storeWith({lineAt(999999.9F)});
  EXPECT_EQ(nearestSeg(nearer, {3, 0}), 1);
  EXPECT_FALSE(nearestSegEndpoint(at, {0, 0}));
  EXPECT_TRUE(nearestSegEndpoint(nearer, {0, 0}));
}

TEST(NearestScans, EachScanSeesItsKindsAlone) {
  const DrawingStore store = testing::storeWith({
      {kCircle, {1, 0}, {1, 0}, {0, 0}},
      {kClockwiseArc, {2, 0}, {2, 0}, {0, 0}},
      {kCounterClockwiseArc, {3, 0}, {3, 0}, {0, 0}},
      lineEntity({4, -9}, {4, 9}),
      {kRectangle, {-9, -9}, {9, 9}, {}},
  });
  EXPECT_EQ(nearestSeg(store, {0, 1}), 1);
  EXPECT_EQ(nearestSeg(store, {8.5F, 1}), 5);
  EXPECT_EQ(nearestArcSeg(store, {0, 1}), 2);
  EXPECT_EQ(nearestArcSeg(store, {0, 9}), 3);
  EXPECT_EQ(nearestLineSeg(store, {0, 1}), 4);
}

TEST(NearestRoundSeg, ACircleIsMeasuredAsAnArc) {
  // Without a sense only the angle of its stored point lies on the sweep, so that the circle's
  // other side counts as far as that point.
  const DrawingStore store = testing::storeWith({
      {kCircle, {1, 0}, {1, 0}, {0, 0}},
      {kClockwiseArc, {-2.5F, 0}, {-2.5F, 0}, {-3, 0}},
  });
  EXPECT_EQ(nearestRoundSeg(store, {1.1F, 0}), 1);
  EXPECT_EQ(nearestRoundSeg(store, {-1.1F, 0.1F}), 2);
  EXPECT_EQ(nearestSeg(store, {-1.1F, 0.1F}), 1);
}

TEST(NearestSeg, ABarePointCountsByItsEndPoint) {
  const DrawingStore store =
      testing::storeWith({{kPoint, {0, 0}, {5, 5}, {}}, lineEntity({9, 0}, {9, 9})});
  EXPECT_EQ(nearestSeg(store, {5, 4}), 1);
  EXPECT_EQ(nearestSeg(store, {8, 0}), 2);
}

TEST(NearestSeg, RowsWithoutANearestPointArePassedOver) {
  const DrawingStore store = testing::storeWith({
      {4, {1, 1}, {1, 1}, {}},
      {kClockwiseArc, {1, 1}, {1, 1}, {1, 1}},
      {kCircle, {1, 1}, {1, 1}, {1, 1}},
      lineAt(50),
  });
  EXPECT_EQ(nearestSeg(store, {1, 1}), 4);
  EXPECT_EQ(nearestArcSeg(store, {1, 1}), 0);
  EXPECT_EQ(nearestRoundSeg(store, {1, 1}), 0);
}

TEST(NearestSelectedSeg, SeesVerifiedRowsAlone) {
  DrawingStore store;
  testing::addSegment(store, lineAt(1), kOrdinaryClass);
  testing::addSegment(store, lineAt(2), 30008);
  testing::addSegment(store, lineAt(3), 30110);
  testing::addSegment(store, lineAt(4), kVerifiedRow);
  EXPECT_EQ(nearestSelectedSeg(store, {3, 0}), 4);
}

TEST(NearestSegEndpoint, StartsComeBeforeEnds) {
  const DrawingStore store =
      testing::storeWith({lineEntity({-1, 0}, {1, 0}), lineEntity({0, -1}, {0, 5})});
  EXPECT_EQ(nearestSegEndpoint(store, {0, 0}), (Point{-1, 0}));
  EXPECT_EQ(nearestSegEndpoint(store, {0.5F, 0}), (Point{1, 0}));
  EXPECT_EQ(nearestSegEndpoint(store, {0, 4}), (Point{0, 5}));
}

TEST(NearestPathScans, HiddenRowsDoNotCount) {
  DrawingStore store;
  testing::addPath(store, lineAt(1), 100, /*visible=*/false);
  testing::addPath(store, lineAt(2), 100, /*visible=*/true);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 0), 2);
  EXPECT_EQ(nearestPathChord(store, {3, 0}), 2);
  EXPECT_EQ(nearestPathLine(store, {3, 0}), 2);
  EXPECT_EQ(nearestPathEndpoint(store, {0, 0}), (Point{0, 2}));
}

TEST(NearestPathLineAndArc, SeeTheirKindsAloneAndOnlyWhatIsShown) {
  DrawingStore store = testing::storeWith({
      {81, {0, 0}, {0, 0}, {}},
      {kRapid, {-9, 0}, {9, 0}, {}},
      {kClockwiseArc, {1, 0}, {-1, 0}, {0, 0}},
      {kCounterClockwiseArc, {4, 0}, {-4, 0}, {0, 0}},
      lineAt(5),
      lineAt(7),
  });
  EXPECT_EQ(nearestPathLine(store, {0, 0}), 5);
  EXPECT_EQ(nearestPathArc(store, {0, 0.5F}), 3);
  EXPECT_EQ(nearestPathArc(store, {0, 3}), 4) << "by its sweep, not by its chord";
  store.psvisible[3] = store.psvisible[5] = false;
  EXPECT_EQ(nearestPathLine(store, {0, 0}), 6);
  EXPECT_EQ(nearestPathArc(store, {0, 0.5F}), 4);
  store.psvisible[4] = store.psvisible[6] = false;
  EXPECT_EQ(nearestPathLine(store, {0, 0}), 0);
  EXPECT_EQ(nearestPathArc(store, {0, 0.5F}), 0);
}

TEST(NearestPathChord, AnArcCountsByItsChord) {
  // The arc bulges away from the point; its chord does not.
  const DrawingStore store = testing::storeWith({
      {kCounterClockwiseArc, {5, 0}, {-5, 0}, {0, 0}},
      lineAt(-3),
      {kRapid, {-9, -1}, {9, -1}, {}},
      {81, {0, -1}, {0, -1}, {}},
  });
  EXPECT_EQ(nearestPathChord(store, {0, -1}), 1);
  EXPECT_EQ(nearestPathSeg(store, {0, -1.5F}, 0), 4);
}

TEST(NearestPathSeg, RapidsAndCyclesThatAreNoPointsDoNotCount) {
  const DrawingStore store = testing::storeWith({
      {kRapid, {0, 0}, {1, 0}, {}},
      {79, {0, 0}, {0, 0}, {}},
      {90, {0, 0}, {0, 0}, {}},
      {83, {0, 0}, {5, 5}, {}},
  });
  EXPECT_EQ(nearestPathSeg(store, {0, 0}, 0), 4);
}

TEST(NearestPathSeg, TheGroupIsComparedAsARealQuotient) {
  DrawingStore store;
  testing::addPath(store, lineAt(1), 100);
  testing::addPath(store, lineAt(2), 200);
  testing::addPath(store, lineAt(3), 250);
  testing::addPath(store, lineAt(4), 30200);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 0), 1);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 2), 1);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 3), 2);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 3.5), 3);  // tool index 50 belongs to no whole group
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 303), 4);
  EXPECT_EQ(nearestPathSeg(store, {3, 0}, 1), 0);
}

// Rows that cannot be near are passed over without a look at their nearest point.
int nearestOfAll(const DrawingStore& store, Point at) {
  float best = kFarthest;
  int found = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const auto point = nearestPointOfRow(store, sg, at);
    if (!point || distance(at, point.at) >= best) continue;
    best = distance(at, point.at);
    found = sg;
  }
  return found;
}

int nearestOfAllPaths(const DrawingStore& store, Point at) {
  float best = kFarthest;
  int found = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const auto point = nearestPointOfPathRow(store, ps, at);
    if (!point || distance(at, point.at) >= best) continue;
    best = distance(at, point.at);
    found = ps;
  }
  return found;
}

TEST(NearestScans, PassOverNoRowThatIsNearest) {
  for (int number = 0; number < 40 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const testing::Scene scene = testing::sceneOf(number);
    testing::Dice dice(static_cast<std::uint32_t>(number) + 5U);
    const DrawingStore store = testing::storeWith(scene.entities);
    for (int query = 0; query < 30; ++query) {
      const Point at = testing::queryPoint(scene, dice);
      ASSERT_EQ(nearestSeg(store, at), nearestOfAll(store, at));
      ASSERT_EQ(nearestPathSeg(store, at, /*group=*/0), nearestOfAllPaths(store, at));
    }
  }
}

// Every row measured, without a bound that passes some over.
template <typename Counts>
int plainNearest(const DrawingStore& store, Point at, Counts counts) {
  float best = kFarthest;
  int found = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!counts(store.segtype[sg])) continue;
    const NearestPoint point = nearestOnArc(segmentEntity(store, sg), at, store.cfg_tolerance);
    if (!point || distance(at, point.at) >= best) continue;
    best = distance(at, point.at);
    found = sg;
  }
  return found;
}

TEST(NearestArcsAndRounds, AnswerAsAPlainPass) {
  for (int number = 0; number < 10 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const testing::Scene scene = testing::sceneOf(number);
    const DrawingStore store = testing::storeWith(scene.entities);
    testing::Dice dice(static_cast<std::uint32_t>(number) + 7U);
    for (int query = 0; query < 20; ++query) {
      const Point at = testing::queryPoint(scene, dice);
      EXPECT_EQ(nearestArcSeg(store, at), plainNearest(store, at, isArc));
      EXPECT_EQ(nearestRoundSeg(store, at), plainNearest(store, at, isRound));
    }
  }
}

}  // namespace
}  // namespace tess
