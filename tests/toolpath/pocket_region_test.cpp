// Regions: which side of an outline is free, whatever order and sense its rows were drawn in, and
// what outlines of every bad kind become.
#include "toolpath/pocket_region.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"
#include "toolpath/region_offset.h"

namespace tess {
namespace {

using namespace tess::testing;
using Rows = std::vector<SegmentRow>;

Rows squareRows(float x, float y, float size) {
  return polygonRows({{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}});
}

Rows together(std::initializer_list<Rows> outlines) {
  Rows all;
  for (const Rows& rows : outlines) all.insert(all.end(), rows.begin(), rows.end());
  return all;
}

SegmentRow circleRow(float x, float y, float radius) {
  return {.type = kCircle, .x0 = x + radius, .y0 = y, .x1 = x + radius, .y1 = y, .xc = x, .yc = y};
}

PocketRegion region(const Rows& rows) {
  const OutlineRegion made = regionOfRows(rows);
  EXPECT_FALSE(made.fault.has_value());
  return made.region;
}

TEST(RegionOfOutlines, HasItsPocketCounterClockwiseAndItsIslandsClockwise) {
  const PocketRegion part = region(together({squareRows(1, 1, 1), squareRows(0, 0, 4)}));
  ASSERT_EQ(part.loops().size(), 2U);
  EXPECT_DOUBLE_EQ(part.loops()[0].area, 16);
  EXPECT_DOUBLE_EQ(part.loops()[1].area, -1);
  EXPECT_DOUBLE_EQ(part.area(), 15);
  EXPECT_TRUE(part.isFree({0.5, 0.5}));
  EXPECT_FALSE(part.isFree({1.5, 1.5}));
  EXPECT_FALSE(part.isFree({5, 1.5}));
}

TEST(RegionOfOutlines, DoesNotDependOnOrderAndSenseOfTheRows) {
  for (int number = 0; number < 150; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion part = regionOfPocket(pocket);
    Rows rows = pocket.outline;
    for (const Rows& island : pocket.islands)
      rows.insert(rows.begin(), island.begin(), island.end());
    std::reverse(rows.begin(), rows.end());
    for (SegmentRow& row : rows) {
      std::swap(row.x0, row.x1);
      std::swap(row.y0, row.y1);
      if (isArc(row.type)) row.type = kClockwiseArc + kCounterClockwiseArc - row.type;
    }
    EXPECT_NEAR(region(rows).area(), part.area(), 1e-9);
    const double radius = pocket.toolRadius;
    EXPECT_NEAR(offsetRegion(region(rows), radius).region.area(),
                offsetRegion(part, radius).region.area(), 1e-7);
  }
}

TEST(RegionOfOutlines, NestsFiveDeep) {
  const PocketRegion part =
      region(together({squareRows(0, 0, 10), squareRows(1, 1, 8), squareRows(2, 2, 6),
                       squareRows(3, 3, 4), squareRows(4, 4, 2)}));
  for (const double x : {0.5, 2.5, 4.5}) EXPECT_TRUE(part.isFree({x, 5})) << x;
  for (const double x : {-0.5, 1.5, 3.5}) EXPECT_FALSE(part.isFree({x, 5})) << x;
  EXPECT_DOUBLE_EQ(part.area(), 100 - 64 + 36 - 16 + 4);
}

TEST(RegionOfOutlines, TakesCirclesRectanglesAndWholeArcs) {
  const SegmentRow rectangle{.type = kRectangle, .x0 = 4, .y0 = 3, .x1 = 0, .y1 = 0};
  const SegmentRow whole{
      .type = kClockwiseArc, .x0 = 3.5F, .y0 = 1, .x1 = 3.5F, .y1 = 1, .xc = 3, .yc = 1};
  const PocketRegion part = region({rectangle, circleRow(1, 1, 0.5F), whole});
  EXPECT_NEAR(part.area(), 12 - 2 * std::numbers::pi / 4, 1e-9);
  EXPECT_FALSE(part.isFree({3, 1.4}));
  EXPECT_TRUE(part.isFree({2, 1}));
}

TEST(RegionOfOutlines, KeepsPocketsThatTouchInAPoint) {
  const PocketRegion part = region(together({squareRows(0, 0, 1), squareRows(1, 1, 1)}));
  EXPECT_NEAR(part.area(), 2, 1e-12);
  EXPECT_TRUE(part.isFree({0.9, 0.9}));
  EXPECT_TRUE(part.isFree({1.1, 1.1}));
  EXPECT_FALSE(part.isFree({0.9, 1.1}));
  EXPECT_NEAR(offsetRegion(part, 0.2).region.area(), 2 * 0.36, 1e-9);
}

TEST(RegionOfOutlines, KeepsPocketsThatShareAWall) {
  const PocketRegion part = region(together({squareRows(0, 0, 2), squareRows(2, 0.5F, 1)}));
  EXPECT_NEAR(part.area(), 5, 1e-12);
  EXPECT_NEAR(offsetRegion(part, 0.25).region.area(), 2.25 + 0.25, 1e-9);
}

TEST(RegionOfOutlines, CutsBothLobesOfAnOutlineThatCrossesItself) {
  const PocketRegion part = region(polygonRows({{0, 0}, {4, 4}, {4, 0}, {0, 4}}));
  EXPECT_TRUE(part.isFree({0.5, 2}));
  EXPECT_TRUE(part.isFree({3.5, 2}));
  EXPECT_FALSE(part.isFree({2, 1}));
  const PocketRegion offset = offsetRegion(part, 0.25).region;
  ASSERT_EQ(offset.loops().size(), 2U);
  EXPECT_NEAR(offset.loops()[0].area, offset.loops()[1].area, 1e-9);
  // A triangle of sides 4 and twice the root of 8 with its inscribed circle's share taken off.
  const double inscribed = 8 / (4 + 2 * std::sqrt(8.0));
  EXPECT_NEAR(offset.loops()[0].area, 4 * std::pow(1 - 0.25 / inscribed, 2), 1e-9);
}

TEST(RegionOfOutlines, LetsAnIslandOverlapTheWallAndOtherIslands) {
  const PocketRegion part =
      region(together({squareRows(0, 0, 4), squareRows(3, 1, 2), squareRows(2.5F, 1.5F, 1)}));
  EXPECT_FALSE(part.isFree({3.75, 2}));
  EXPECT_FALSE(part.isFree({2.75, 2}));
  EXPECT_FALSE(part.isFree({4.5, 2}));
  EXPECT_TRUE(part.isFree({2.25, 2}));
  const double distance = 0.25;
  const PocketRegion offset = offsetRegion(part, distance).region;
  EXPECT_EQ(offset.loops().size(), 1U);
  for (const RegionLoop& loop : offset.loops()) {
    for (const tess::Curve& curve : loop.curves) {
      EXPECT_TRUE(part.isFree(pointAt(curve, 0.5)));
      EXPECT_FALSE(part.isClear(curve, distance + 1e-9));
      EXPECT_TRUE(part.isClear(curve, distance - 1e-9));
    }
  }
}

TEST(RegionOfOutlines, CountsADuplicateOnce) {
  Rows rows = together({squareRows(0, 0, 4), squareRows(0, 0, 4), squareRows(1, 1, 1)});
  rows.push_back(rows.front());
  const PocketRegion part = region(rows);
  EXPECT_NEAR(part.area(), 15, 1e-12);
  EXPECT_NEAR(offsetRegion(part, 0.25).region.area(),
              12.25 - 2.25 + (4 - std::numbers::pi) * 0.0625, 1e-9);
}

TEST(RegionOfOutlines, ClosesWhatIsOpenByLessThanTheTolerance) {
  Rows rows = squareRows(0, 0, 2);
  rows[1].x0 += 0.00008F;
  rows[3].y1 += 0.00008F;
  EXPECT_NEAR(region(rows).area(), 4, 0.0004);
}

TEST(RegionOfOutlines, NamesThePlaceOfAGap) {
  Rows rows = squareRows(0, 0, 2);
  rows[3].y1 = 0.001F;
  const OutlineRegion made = regionOfRows(rows);
  ASSERT_TRUE(made.fault.has_value());
  EXPECT_EQ(made.fault->kind, OutlineFault::Kind::Open);
  EXPECT_NEAR(made.fault->at.y, 0.001, 1e-9);
  EXPECT_TRUE(made.region.isEmpty());
}

TEST(RegionOfOutlines, NamesTheArcWithTwoRadii) {
  Rows rows = squareRows(0, 0, 2);
  rows[1] = {.type = kCounterClockwiseArc, .x0 = 2, .y0 = 0, .x1 = 2, .y1 = 2, .xc = 2, .yc = 1.1F};
  const OutlineRegion made = regionOfRows(rows);
  ASSERT_TRUE(made.fault.has_value());
  EXPECT_EQ(made.fault->kind, OutlineFault::Kind::TwoRadii);
  EXPECT_EQ(made.fault->at, (PlanePoint{2, 0}));
}

TEST(RegionOfOutlines, TakesARoundedCentreForTheBisectors) {
  Rows rows = squareRows(0, 0, 2);
  rows[1] = {.type = kCounterClockwiseArc,
             .x0 = 2,
             .y0 = 0,
             .x1 = 2,
             .y1 = 2,
             .xc = 2.0001F,
             .yc = 1.0001F};
  const PocketRegion part = region(rows);
  EXPECT_NEAR(part.area(), 4 + std::numbers::pi / 2, 0.001);
}

TEST(RegionOfOutlines, IsFreeOutsideWhenThePartIsInside) {
  const OutlineRegion made = regionOf(entitiesOf(squareRows(0, 0, 2)), kTestTolerence, true);
  EXPECT_TRUE(made.region.isFree({3, 1}));
  EXPECT_FALSE(made.region.isFree({1, 1}));
  const PocketRegion round = offsetRegion(made.region, 0.5).region;
  ASSERT_EQ(round.loops().size(), 1U);
  EXPECT_NEAR(round.area(), -(4 + 8 * 0.5 + std::numbers::pi * 0.25), 1e-9);
}

TEST(RegionOfOutlines, HoldsCoordinatesOfAMillion) {
  const PocketRegion part = region(squareRows(1e6F, 1e6F, 4));
  const PocketRegion offset = offsetRegion(part, 0.25).region;
  EXPECT_NEAR(offset.area(), 3.5 * 3.5, 1e-6);
}

TEST(RegionOfOutlines, IgnoresSlivers) {
  Rows rows = squareRows(0, 0, 2);
  rows.push_back({.type = kLine, .x0 = 0.5F, .y0 = 0.5F, .x1 = 0.50001F, .y1 = 0.5F});
  EXPECT_NEAR(region(rows).area(), 4, 1e-12);
  const Rows sliver = polygonRows({{0, 0}, {2, 0}, {2, 0.00001F}});
  EXPECT_TRUE(offsetRegion(region(sliver), 0.25).region.isEmpty());
}

TEST(RegionOfOutlines, OfNoRowsIsEmpty) {
  const PocketRegion part = region({});
  EXPECT_TRUE(part.isEmpty());
  EXPECT_FALSE(part.isFree({0, 0}));
  EXPECT_TRUE(offsetRegion(part, 0.25).region.isEmpty());
}

}  // namespace
}  // namespace tess
