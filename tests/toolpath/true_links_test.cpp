// Loops cut from the nearest place, and links that keep clear of the walls.
#include "toolpath/true_links.h"

#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"
#include "toolpath/region_offset.h"

namespace tess {
namespace {

using namespace tess::testing;

constexpr double kRadius = 0.25;

// A U with a tongue of 1 between its arms.
PocketRegion shapeOfU() {
  return regionOfRows(polygonRows({{0, 0}, {3, 0}, {3, 4}, {2, 4}, {2, 1}, {1, 1}, {1, 4}, {0, 4}}))
      .region;
}

double lengthOfRun(const std::vector<tess::Curve>& run) {
  double length = 0;
  for (const tess::Curve& curve : run) length += lengthOf(curve);
  return length;
}

TEST(LoopFrom, GoesAllRoundAndBackToThePlace) {
  const RegionLoop loop = offsetRegion(shapeOfU(), kRadius).region.loops()[0];
  const LoopPlace place = nearestPlace(loop, {1.5, 0});
  const std::vector<tess::Curve> way = loopFrom(loop, place);
  EXPECT_NEAR(way.front().start.x, 1.5, 1e-9);
  EXPECT_NEAR(way.front().start.y, 0.25, 1e-9);
  EXPECT_EQ(way.front().start, way.back().end);
  EXPECT_NEAR(lengthOfRun(way), lengthOfRun(loop.curves), 1e-9);
}

TEST(LoopFrom, TakesACornerWholeThatIsNear) {
  const RegionLoop loop = offsetRegion(shapeOfU(), kRadius).region.loops()[0];
  const std::vector<tess::Curve> way = loopFrom(loop, nearestPlace(loop, {0.2505, 0}));
  EXPECT_EQ(way.size(), loop.curves.size());
  EXPECT_NEAR(way.front().start.x, 0.25, 1e-9);
}

TEST(Links, AreStraightWhereThatIsClear) {
  const PocketRegion region = shapeOfU();
  RoomWay way(region, {kRadius, kRadius, /*links=*/true});
  way.cut({tess::lineCurve({0.25, 0.25}, {2.75, 0.25})}, /*linked=*/true);
  way.cut({tess::lineCurve({2.75, 0.5}, {0.25, 0.5})}, /*linked=*/true);
  ASSERT_EQ(way.runs().size(), 1U);
  ASSERT_EQ(way.runs()[0].size(), 3U);
  EXPECT_EQ(way.runs()[0][1], tess::lineCurve({2.75, 0.25}, {2.75, 0.5}));
}

TEST(Links, FollowTheLoopRoundTheTongueUnlessThatIsFar) {
  const PocketRegion region = shapeOfU();
  const PocketRegion offset = offsetRegion(region, kRadius).region;
  for (const double y : {1.2, 3.75}) {
    RoomWay way(region, {kRadius, kRadius, /*links=*/true});
    way.cut({tess::lineCurve({0.25, y}, {0.75, y})}, /*linked=*/true, &offset);
    way.cut({tess::lineCurve({2.25, y}, {2.75, y})}, /*linked=*/true, &offset);
    EXPECT_EQ(way.runs().size(), y < 2 ? 1U : 2U);
    for (const auto& run : way.runs()) {
      for (const tess::Curve& curve : run) EXPECT_TRUE(region.isClear(curve, kRadius - 0.00003));
    }
  }
}

TEST(Links, AreNoneWhereTheyAreNotWanted) {
  const PocketRegion region = shapeOfU();
  for (const bool wanted : {true, false}) {
    RoomWay way(region, {kRadius, kRadius, wanted});
    way.cut({tess::lineCurve({0.25, 0.25}, {2.75, 0.25})}, /*linked=*/true);
    way.cut({tess::lineCurve({2.75, 0.5}, {0.25, 0.5})}, /*linked=*/!wanted);
    EXPECT_EQ(way.runs().size(), 2U);
    way.cut({tess::lineCurve({0.25, 0.5}, {0.25, 2.75})}, /*linked=*/false);
    EXPECT_EQ(way.runs().size(), 2U) << "it begins where the tool is";
  }
}

}  // namespace
}  // namespace tess
