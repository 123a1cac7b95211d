// How far drawings of each kind of row reach.
#include "display/drawing_extents.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

void expectBox(const DrawingStore& store, float minx, float miny, float maxx, float maxy,
               const char* name = "") {
  const auto box = GetDrawingExtents(store);
  ASSERT_TRUE(box) << name;
  EXPECT_NEAR(box->minx, minx, 1e-5) << name;
  EXPECT_NEAR(box->miny, miny, 1e-5) << name;
  EXPECT_NEAR(box->maxx, maxx, 1e-5) << name;
  EXPECT_NEAR(box->maxy, maxy, 1e-5) << name;
}

DrawingStore drawingOf(const SegmentRow& row) {
  DrawingStore store;
  AddSeg(store, row, nullptr);
  return store;
}

TEST(GetDrawingExtents, AnEmptyDrawingHasNone) {
  const DrawingStore empty;
  EXPECT_FALSE(GetDrawingExtents(empty));
}

TEST(GetDrawingExtents, ASingleVerticalOrHorizontalLineHasNone) {
  EXPECT_FALSE(GetDrawingExtents(drawingOf({1, 8, 2, 0, 2, 5})));
  EXPECT_FALSE(GetDrawingExtents(drawingOf({1, 8, 0, 3, 5, 3})));
}

TEST(GetDrawingExtents, LinesAndRectanglesCountWithBothEnds) {
  expectBox(drawingOf({1, 8, 3, 4, -1, 7}), -1, 4, 3, 7, "line");
  expectBox(drawingOf({6, 8, 3, 4, -1, -7}), -1, -7, 3, 4, "rectangle");
}

TEST(GetDrawingExtents, CirclesCountWithTheirRadius) {
  expectBox(drawingOf({5, 8, 3, 1, 3, 1, 1, 1}), -1, -1, 3, 3, "circle");
  expectBox(drawingOf({2, 8, 3, 1, 3, 1, 1, 1}), -1, -1, 3, 3, "clockwise");
  expectBox(drawingOf({3, 8, 3, 1, 3, 1, 1, 1}), -1, -1, 3, 3, "counter-clockwise");
}

// From angle a to angle b about the origin with radius 1.
SegmentRow arcRow(int type, double a, double b) {
  const auto x = [](double angle) { return static_cast<float>(std::cos(angle)); };
  const auto y = [](double angle) { return static_cast<float>(std::sin(angle)); };
  return {type, 8, x(a), y(a), x(b), y(b), 0, 0};
}

constexpr double kQuarter = 1.5707963267948966;

TEST(GetDrawingExtents, HalfCirclesReachTheirMiddle) {
  expectBox(drawingOf(arcRow(3, 0, 2 * kQuarter)), -1, 0, 1, 1, "upper, counter-clockwise");
  expectBox(drawingOf(arcRow(2, 2 * kQuarter, 0)), -1, 0, 1, 1, "upper, clockwise");
  expectBox(drawingOf(arcRow(3, kQuarter, 3 * kQuarter)), -1, -1, 0, 1, "left");
  expectBox(drawingOf(arcRow(3, 2 * kQuarter, 0)), -1, -1, 1, 0, "lower, across zero");
  expectBox(drawingOf(arcRow(2, 0, 2 * kQuarter)), -1, -1, 1, 0, "lower, clockwise across zero");
  expectBox(drawingOf(arcRow(3, 3 * kQuarter, kQuarter)), 0, -1, 1, 1, "right, across zero");
}

TEST(GetDrawingExtents, ThreeSamplesCanMissAQuadrantsExtreme) {
  // From 80 to 300 degrees the samples lie at 135, 190 and 245: the left extreme at 180 is missed.
  const double degree = kQuarter / 90;
  const auto box = GetDrawingExtents(drawingOf(arcRow(3, 80 * degree, 300 * degree)));
  ASSERT_TRUE(box);
  EXPECT_NEAR(box->minx, std::cos(190 * degree), 1e-6);
  EXPECT_NEAR(box->miny, std::sin(245 * degree), 1e-6);
  EXPECT_NEAR(box->maxy, std::sin(80 * degree), 1e-6);
  EXPECT_NEAR(box->maxx, 0.5, 1e-6);
}

TEST(GetDrawingExtents, AnArcAcrossZeroIsSampledAQuarterOfTheDifferenceApart) {
  // From 300 to 20 degrees: the middle is 340, the difference 280, so the samples are 340, 50, 270.
  const double degree = kQuarter / 90;
  const auto box = GetDrawingExtents(drawingOf(arcRow(3, 300 * degree, 20 * degree)));
  ASSERT_TRUE(box);
  EXPECT_NEAR(box->maxy, std::sin(50 * degree), 1e-6);
  EXPECT_NEAR(box->miny, -1, 1e-6);
}

TEST(GetDrawingExtents, ABarePointCountsWithItsPointAlone) {
  DrawingStore store = drawingOf({0, 8, 3, 4, 99, 99});
  EXPECT_FALSE(GetDrawingExtents(store));
  AddSeg(store, {1, 8, 0, 0, 1, 1}, nullptr);
  expectBox(store, 0, 0, 3, 4);
}

TEST(GetDrawingExtents, PathRowsCountAfterTheDrawing) {
  DrawingStore store = drawingOf({1, 8, 0, 0, 1, 1});
  addPathSegment(store, {1, 5, 5, 6, 7});
  expectBox(store, 0, 0, 6, 7, "drawing and path");
  DrawingStore pathOnly;
  addPathSegment(pathOnly, {0, 2, 2, 4, 5});
  expectBox(pathOnly, 2, 2, 4, 5, "rapid");
}

TEST(GetDrawingExtents, CycleRowsCountWithTheirPointsAndNotTheirCenterFields) {
  DrawingStore store;
  addPathSegment(store, {81, 1, 1, 1, 1, /*increment depth*/ 50, /*dwell*/ 60});
  EXPECT_FALSE(GetDrawingExtents(store));
  addPathSegment(store, {79, 2, 2, 4, 3, 50, 60});
  expectBox(store, 1, 1, 4, 3);
}

TEST(GetDrawingExtents, PathArcsAndHiddenRowsCountAsWell) {
  DrawingStore store;
  PathRow arc{3, 1, 0, -1, 0, 0, 0};
  arc.visible = false;
  addPathSegment(store, arc);
  store.psvisible[1] = false;
  expectBox(store, -1, 0, 1, 1);
}

TEST(GetSegmentExtents, OnlyTheRowsOfTheRangeCount) {
  DrawingStore store = drawingOf({1, 8, 100, 100, 200, 200});
  AddSeg(store, {1, 8, 1, 2, 3, 4}, nullptr);
  AddSeg(store, {5, 8, 5, 3, 5, 3, 4, 3}, nullptr);
  addPathSegment(store, {.type = 1, .x0 = -9, .y0 = -9});
  const auto box = GetSegmentExtents(store, 2, 3);
  ASSERT_TRUE(box);
  EXPECT_EQ(box->minx, 1);
  EXPECT_EQ(box->miny, 2);
  EXPECT_EQ(box->maxx, 5);
  EXPECT_EQ(box->maxy, 4);
}

TEST(GetSegmentExtents, ARangeThatIsEmptyOrPastTheRowsHasNone) {
  const DrawingStore store = drawingOf({1, 8, 1, 2, 3, 4});
  EXPECT_TRUE(GetSegmentExtents(store, 1, 1));
  EXPECT_FALSE(GetSegmentExtents(store, 2, 1));
  EXPECT_FALSE(GetSegmentExtents(store, 1, 2));
  EXPECT_FALSE(GetSegmentExtents(store, 0, 1));
}

}  // namespace
}  // namespace tess
