// Crossings of scan lines with working rows: single cases by their points, random scenes against
// plain passes and exchange sorts.
#include "toolpath/scan_points.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/scenes.h"
#include "tests/support/failure_of.h"
#include "tests/toolpath/plain_scan.h"
#include "tests/toolpath/working_outline_rows.h"

namespace tess {
namespace {

using testing::addWorkingBox;
using testing::addWorkingCircle;
using testing::addWorkingPolygon;
using testing::Dice;
using testing::PlainScan;
using testing::SceneKind;

DrawingStore emptyStore() {
  DrawingStore store;
  store.cfg_tolerance = 0.001F;
  return store;
}

void addArc(DrawingStore& store, int type, Point start, Point end, Point center) {
  AddSeg(store,
         {.type = type,
          .attr = kPocketOutline,
          .x0 = start.x,
          .y0 = start.y,
          .x1 = end.x,
          .y1 = end.y,
          .xc = center.x,
          .yc = center.y},
         nullptr);
}

std::vector<ScanPoint> pointsOf(const DrawingStore& store, ScanStyle style, float bound,
                                float spacing) {
  return collectScanPoints(store, style, bound, spacing, [](int, int) {}).points();
}

using Points = std::vector<ScanPoint>;

// ---- The bound

TEST(LowestWorkingPoint, IsNothingWithoutWorkingRows) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {1, 1}, kOrdinaryClass);
  EXPECT_FALSE(lowestWorkingPoint(store, ScanStyle::Horizontal));
}

TEST(LowestWorkingPoint, RowsOfOtherKindsDoNotCount) {
  DrawingStore store = emptyStore();
  AddSeg(store, {.type = kCircle, .attr = kPocketOutline, .x0 = 1, .x1 = 1}, nullptr);
  EXPECT_FALSE(lowestWorkingPoint(store, ScanStyle::Horizontal));
}

TEST(LowestWorkingPoint, TheFirstOfEquallyLowEndsIsRemembered) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {2, 1}, {6, 4});
  EXPECT_EQ(lowestWorkingPoint(store, ScanStyle::Horizontal), (ScanPoint{1, 2}));
  EXPECT_EQ(lowestWorkingPoint(store, ScanStyle::Lathe), (ScanPoint{1, 2}));
  EXPECT_EQ(lowestWorkingPoint(store, ScanStyle::Vertical), (ScanPoint{2, 1}));
}

TEST(LowestWorkingPoint, AnArcCountsAsItsWholeCircle) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {10, 4});
  // The upper half of a circle of radius 2: its lowest point is not on the arc.
  addArc(store, kCounterClockwiseArc, {7, 1}, {3, 1}, {5, 1});
  EXPECT_EQ(lowestWorkingPoint(store, ScanStyle::Horizontal), (ScanPoint{-1, 5}));
}

TEST(LowestWorkingPoint, NothingLiesAMillionUnitsUp) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 1e6F}, {10, 2e6F});
  EXPECT_FALSE(lowestWorkingPoint(store, ScanStyle::Horizontal));
}

// ---- Crossings

TEST(CollectScanPoints, TheFirstLineLiesHalfAStepInside) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {10, 4});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, 1), (Points{{0.5F, 10},
                                                                  {0.5F, 0},
                                                                  {1.5F, 10},
                                                                  {1.5F, 0},
                                                                  {2.5F, 10},
                                                                  {2.5F, 0},
                                                                  {3.5F, 10},
                                                                  {3.5F, 0}}));
}

TEST(CollectScanPoints, SlantedEdgesAreMetWhereTheyPass) {
  DrawingStore store = emptyStore();
  addWorkingPolygon(store, {{0, 0}, {4, 0}, {2, 4}});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, 2),
            (Points{{1, 3.5F}, {1, 0.5F}, {3, 2.5F}, {3, 1.5F}}));
  EXPECT_EQ(pointsOf(store, ScanStyle::Vertical, 0, 2), (Points{{1, 0}, {1, 2}, {3, 0}, {3, 2}}));
}

// The right corner lies at height 1, where the second line runs. Both its rows miss it, the left
// side stays unpaired, and a line that keeps no point ends the run.
TEST(CollectScanPoints, AVertexExactlyOnAHorizontalLineIsMissedByBothItsRows) {
  DrawingStore store = emptyStore();
  addWorkingPolygon(store, {{0, 0}, {4, 1}, {0, 2}});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, 2.0F / 3),
            (Points{{1.0F / 3, 4.0F / 3}, {1.0F / 3, 0}}));
}

TEST(CollectScanPoints, LatheLinesPassBesideAVertex) {
  DrawingStore store = emptyStore();
  addWorkingPolygon(store, {{0, 0}, {4, 1}, {0, 2}});
  const Points points = pointsOf(store, ScanStyle::Lathe, 0, 2.0F / 3);
  ASSERT_EQ(points.size(), 6U);
  // Tested just above the corner, the crossing is that of the upper side.
  EXPECT_EQ(points[2], (ScanPoint{1, 4}));
  EXPECT_EQ(points[3], (ScanPoint{1, 0}));
}

TEST(CollectScanPoints, TheLastPointOfAnOddLineIsDropped) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {10, 2});
  addWorkingBox(store, {2, 0}, {4, 2}, kIslandOutline);
  store.segattr[4] = kOrdinaryClass;  // the left side of the pocket is missing
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, 1),
            (Points{{0.5F, 10}, {0.5F, 4}, {1.5F, 10}, {1.5F, 4}}));
}

TEST(CollectScanPoints, ThousandEmptyLinesEndARunThatNeverBegan) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 100}, {10, 104});
  int lines = 0;
  const ScanPoints points =
      collectScanPoints(store, ScanStyle::Horizontal, 0, 0.0625F, [&lines](int, int) { ++lines; });
  EXPECT_EQ(points.count(), 0);
  EXPECT_EQ(lines, 1000);
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, 0.125F).size(), 64U);
}

// The line at -5 touches the circle, that at 5 too: neither adds a point.
TEST(CollectScanPoints, HalvesOfACircleGiveTwoPointsPerLineAndNoneWhereItIsTouched) {
  DrawingStore store = emptyStore();
  addWorkingCircle(store, {0, 0}, 5);
  const float wide = std::sqrt(24.0F);
  EXPECT_EQ(
      pointsOf(store, ScanStyle::Horizontal, -6, 2),
      (Points{{-3, -4}, {-3, 4}, {-1, -wide}, {-1, wide}, {1, wide}, {1, -wide}, {3, 4}, {3, -4}}));
}

// The right half of a circle, met at its rightmost point: the vertical style adds one point, which
// stays alone.
TEST(CollectScanPoints, AVerticalTouchAddsOnePointThatIsDropped) {
  DrawingStore store = emptyStore();
  addArc(store, kCounterClockwiseArc, {0, -5}, {0, 5}, {0, 0});
  std::vector<int> counts;
  const ScanPoints points =
      collectScanPoints(store, ScanStyle::Vertical, 2, 2,
                        [&counts](int, int pointcount) { counts.push_back(pointcount); });
  EXPECT_EQ(counts, (std::vector<int>{2, 3}));
  EXPECT_EQ(points.count(), 2);
}

TEST(CollectScanPoints, HitsOnAnArcComeByTheirDistanceFromItsStart) {
  DrawingStore store = emptyStore();
  addArc(store, kCounterClockwiseArc, {5, 0}, {-5, 0}, {0, 0});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 2, 2), (Points{{3, 4}, {3, -4}}));
  store = emptyStore();
  addArc(store, kClockwiseArc, {-5, 0}, {5, 0}, {0, 0});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 2, 2), (Points{{3, -4}, {3, 4}}));
}

// The second line has exactly the left side's x; it is tested beside it and kept at its place.
TEST(CollectScanPoints, AVerticalLineOnAnEdgeFallsToOneSideAndKeepsItsPlace) {
  DrawingStore store = emptyStore();
  addWorkingPolygon(store, {{0, 0}, {3, 0}, {3, 2}, {1, 2}, {1, 4}, {0, 4}});
  EXPECT_EQ(pointsOf(store, ScanStyle::Vertical, 0.5F, 1),
            (Points{{1, 0}, {1, 2}, {2, 0}, {2, 2}}));
}

TEST(CollectScanPoints, TellsTheLastWorkingRowAndThePointsSoFarAfterEachLine) {
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {10, 2});
  AddSegLine(store, kLine, kOrdinaryClass, 0, 0, 1, 1, nullptr);
  std::vector<std::pair<int, int>> told;
  collectScanPoints(store, ScanStyle::Horizontal, 0, 1,
                    [&told](int row, int count) { told.emplace_back(row, count); });
  EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{4, 2}, {4, 4}, {4, 4}}));
}

TEST(CollectScanPoints, MorePointsThan16BitsCountAreAnOverflow) {
  constexpr float kStep = 1.0F / 4096;
  DrawingStore store = emptyStore();
  addWorkingBox(store, {0, 0}, {10, 4 - kStep});
  EXPECT_EQ(pointsOf(store, ScanStyle::Horizontal, 0, kStep).size(), 32766U);
  addWorkingBox(store, {0, 4 - kStep}, {10, 4});
  EXPECT_EQ(testing::numberOfFailure([&] { pointsOf(store, ScanStyle::Horizontal, 0, kStep); }),
            FailureNumber::Overflow);
}

// ---- Order

TEST(SortScanPoints, LeavesTheLinesInTheirOrder) {
  ScanPoints points;
  for (const ScanPoint p : Points{{2, 5}, {2, 1}, {2, 3}, {2, 2}, {1, 9}, {1, 4}}) points.add(p);
  sortScanPoints(points);
  EXPECT_EQ(points.points(), (Points{{2, 1}, {2, 2}, {2, 3}, {2, 5}, {1, 4}, {1, 9}}));
}

// ---- Random scenes

constexpr SceneKind kScannedScenes[] = {
    SceneKind::Spread,  SceneKind::Grid,        SceneKind::OneLine, SceneKind::Tiny,
    SceneKind::Lattice, SceneKind::AlignedArcs, SceneKind::OnePoint};

// Two of three rows are working rows of either class.
DrawingStore workingScene(int number, Dice& dice) {
  DrawingStore store = emptyStore();
  store.cfg_tolerance = number % 3 == 0 ? 0.02F : 0.001F;
  const SceneKind kind =
      kScannedScenes[static_cast<std::size_t>(number) % std::size(kScannedScenes)];
  const int rows = 1 + dice.below(60);
  for (int row = 0; row < rows; ++row) {
    const int attrs[] = {kPocketOutline, kIslandOutline, kOrdinaryClass};
    const Entity e = testing::sceneEntity(kind, dice);
    AddSeg(store,
           {e.type, attrs[dice.below(3)], e.start.x, e.start.y, e.end.x, e.end.y, e.center.x,
            e.center.y},
           nullptr);
  }
  return store;
}

TEST(ScanPoints, RandomScenesGiveThePointsOfPlainPassesAndExchangeSorts) {
  int points = 0;
  int exchanges = 0;
  for (int number = 0; number < 900; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    Dice dice(static_cast<std::uint32_t>(number) * 31U + 5U);
    const DrawingStore store = workingScene(number, dice);
    const auto style = static_cast<ScanStyle>(number % 3);
    const float spacings[] = {0.001F, 0.25F, 1, 0.3F};
    const float spacing =
        kScannedScenes[static_cast<std::size_t>(number) % std::size(kScannedScenes)] ==
                SceneKind::Tiny
            ? 0.0003F
            : spacings[1 + dice.below(3)];
    PlainScan plain{
        .store = store, .style = static_cast<PlainScan::Style>(style), .spacing = spacing};
    const bool any = plain.collect();
    const auto bound = lowestWorkingPoint(store, style);
    ASSERT_EQ(bound.has_value(), any);
    if (!any) continue;
    ASSERT_EQ(*bound, (ScanPoint{plain.fixed[0], plain.along[0]}));
    ScanPoints quick = collectScanPoints(store, style, bound->fixed, spacing, [](int, int) {});
    plain.sort();
    sortScanPoints(quick);
    Points expected;
    for (std::size_t k = 1; k < plain.fixed.size(); ++k)
      expected.push_back({plain.fixed[k], plain.along[k]});
    ASSERT_EQ(quick.points(), expected);
    points += quick.count();
    exchanges += plain.exchanges;
  }
  EXPECT_GT(points, 10000);
  EXPECT_GT(exchanges, 1000);
}

// Lines that fall never leave rows behind for good.
TEST(ScanPoints, AStepThatIsNotPositiveMeetsWhatPlainPassesMeet) {
  for (int number = 0; number < 60; ++number) {
    Dice dice(static_cast<std::uint32_t>(number) + 900U);
    const DrawingStore store = workingScene(number, dice);
    const auto style = static_cast<ScanStyle>(number % 3);
    PlainScan plain{
        .store = store, .style = static_cast<PlainScan::Style>(style), .spacing = -0.0005F};
    if (!plain.collect()) continue;
    EXPECT_EQ(collectScanPoints(store, style, plain.fixed[0], -0.0005F, [](int, int) {}).count(),
              plain.pointcount);
  }
}

}  // namespace
}  // namespace tess
