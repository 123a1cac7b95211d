// Curves become rows: merged, tested, rounded.
#include "toolpath/region_rows.h"

#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"

namespace tess {
namespace {

using namespace tess::testing;

RegionRows anyRows() {
  return RegionRows([](const tess::Curve&) { return true; });
}

TEST(RegionRows, MakeOneRowOfPiecesOfACircleUpToHalfATurn) {
  const PlanePoint center{1, 1};
  const PlanePoint right{2, 1};
  const PlanePoint top{1, 2};
  const PlanePoint left{0, 1};
  const PlanePoint bottom{1, 0};
  const auto arc = [&](PlanePoint from, PlanePoint to) {
    return tess::arcCurve(from, to, center, 1);
  };
  RegionRows rows = anyRows();
  rows.add({arc(right, top), arc(top, left), arc(left, bottom)});
  ASSERT_EQ(rows.rows().size(), 2U);
  EXPECT_EQ(rows.rows()[0], (Entity{kCounterClockwiseArc, {2, 1}, {0, 1}, {1, 1}}));
  EXPECT_EQ(rows.rows()[1], (Entity{kCounterClockwiseArc, {0, 1}, {1, 0}, {1, 1}}));
}

TEST(RegionRows, WriteAShortArcAsALine) {
  RegionRows rows = anyRows();
  rows.add({tess::arcCurve({0, 0}, {0.0004, 0}, {0.0002, 1}, 1)});
  ASSERT_EQ(rows.rows().size(), 1U);
  EXPECT_EQ(rows.rows()[0], lineEntity({0, 0}, {0.0004F, 0}));
}

TEST(RegionRows, LeaveOutWhatHasNoLength) {
  RegionRows rows = anyRows();
  rows.add({tess::lineCurve({0, 0}, {0.00001, 0.00001}), tess::lineCurve({5, 5}, {6, 5})});
  ASSERT_EQ(rows.rows().size(), 1U);
  EXPECT_FALSE(rows.refused());
}

TEST(RegionRows, RefuseWhatComesTooNearToAWall) {
  const OutlineRegion square = regionOfRows(polygonRows({{0, 0}, {4, 0}, {4, 4}, {0, 4}}));
  RegionRows rows(square.region, 0.5);
  rows.add({tess::lineCurve({0.5, 0.5}, {3.5, 0.5})});
  EXPECT_FALSE(rows.refused());
  rows.add({tess::lineCurve({0.5, 0.5}, {3.5, 0.4999})});
  EXPECT_TRUE(rows.refused());
  EXPECT_EQ(rows.rows().size(), 1U);
}

}  // namespace
}  // namespace tess
