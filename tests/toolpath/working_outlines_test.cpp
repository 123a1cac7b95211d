// Working outlines by their rows: what they were made from, on which side they lie.
#include "toolpath/working_outlines.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/row_entity.h"
#include "tests/support/failure_of.h"
#include "tests/toolpath/working_outline_rows.h"
#include "toolpath/outline_corners.h"

namespace tess {
namespace {

using testing::addWorkingPolygon;
using testing::RecordedCam;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

// The rows that the offset of an outline appends, by the outline's first row.
Texts outlineOf(RecordedCam& c, Point reference, float distance, int attr = kPocketOutline) {
  const int before = c.store.NumSegments;
  ChainWalk rows(c.store);
  const Entity first = segmentEntity(c.store, 1);
  offsetSegChain(c.cam, rows, {1, first.start, first.end, reference, attr, distance});
  Texts texts = segmentTexts(c.store);
  texts.erase(texts.begin(), texts.begin() + before);
  return texts;
}

void addSelected(RecordedCam& c, const std::vector<Point>& corners) {
  addWorkingPolygon(c.store, corners, kVerifiedRow);
}

void addArc(RecordedCam& c, int type, Point start, Point end, Point center) {
  c.add({.type = type,
         .attr = kVerifiedRow,
         .x0 = start.x,
         .y0 = start.y,
         .x1 = end.x,
         .y1 = end.y,
         .xc = center.x,
         .yc = center.y});
}

TEST(OffsetSegChain, InsideASquareTheLinesAreTrimmedToTheirCrossings) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_EQ(outlineOf(c, {2, 2}, 0.5F),
            (Texts{"1 (0.5, 0.5)-(3.5, 0.5) @10", "1 (3.5, 0.5)-(3.5, 3.5) @10",
                   "1 (3.5, 3.5)-(0.5, 3.5) @10", "1 (0.5, 3.5)-(0.5, 0.5) @10"}));
}

TEST(OffsetSegChain, OutsideASquareArcsGoRoundItsCorners) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  c.store.drawingsaved = true;
  EXPECT_EQ(outlineOf(c, {2, -1}, 0.5F, kIslandOutline),
            (Texts{"1 (0, -0.5)-(4, -0.5) @12", "3 (4, -0.5)-(4.5, 0) c (4, 0) @12",
                   "1 (4.5, 0)-(4.5, 4) @12", "3 (4.5, 4)-(4, 4.5) c (4, 4) @12",
                   "1 (4, 4.5)-(0, 4.5) @12", "3 (0, 4.5)-(-0.5, 4) c (0, 4) @12",
                   "1 (-0.5, 4)-(-0.5, 0) @12", "3 (-0.5, 0)-(0, -0.5) c (0, 0) @12"}));
  EXPECT_FALSE(c.store.drawingsaved);
}

TEST(OffsetSegChain, ParksTheRowsItWasMadeFromAndLogsNothing) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  c.store.segattr[3] = kSelectedRow;
  outlineOf(c, {2, 2}, 0.5F);
  for (int sg = 1; sg <= 4; ++sg) EXPECT_EQ(c.store.segattr[sg], kParkedRow);
  EXPECT_EQ(c.context.changelog.changecount, 0);
}

TEST(OffsetSegChain, ARowThatIsNotSelectedEndsTheWalk) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  c.store.segattr[3] = kOrdinaryClass;
  EXPECT_EQ(outlineOf(c, {2, 2}, 0.5F),
            (Texts{"1 (0, 0.5)-(3.5, 0.5) @10", "1 (3.5, 0.5)-(3.5, 4) @10"}));
  EXPECT_EQ(c.store.segattr[4], kVerifiedRow);
}

// Nearer than the five pixels within which a click would lie on the profile.
TEST(OffsetSegChain, AReferenceHasNoDeadBand) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_EQ(outlineOf(c, {2, 0.0001F}, 0.5F)[0], "1 (0.5, 0.5)-(3.5, 0.5) @10");
}

TEST(OffsetSegChain, AClosedArcTravelsClockwise) {
  RecordedCam c;
  addArc(c, kCounterClockwiseArc, {3, 0}, {3, 0}, {0, 0});
  ChainWalk rows(c.store);
  offsetSegChain(c.cam, rows, {1, {3, 0}, {1.5F, 0}, {1.5F, 0}, kPocketOutline, 0.5F});
  EXPECT_EQ(segmentTexts(c.store)[1], "2 (2.5, 0)-(2.5, 0) c (0, 0) @10");
}

struct ArcSideCase {
  const char* name;
  int type;
  Point start, end;
  Point reference;
  const char* first;
};

// Arcs about the origin with a radius of 2, closed by a line; the distance is 0.5.
const ArcSideCase kArcSides[] = {
    {"half, reference inside", 3, {2, 0}, {-2, 0}, {0, 0.5F}, "3 (1.5, 0)-(-1.5, 0) c (0, 0) @10"},
    {"half, reference outside", 3, {2, 0}, {-2, 0}, {0, 3}, "3 (2.5, 0)-(-2.5, 0) c (0, 0) @10"},
    {"quarter, reference inside",
     2,
     {0, 2},
     {2, 0},
     {0.5F, 0.5F},
     "2 (0, 1.5)-(1.5, 0) c (0, 0) @10"},
    {"three quarters, reference within the radius",
     3,
     {2, 0},
     {0, -2},
     {0.5F, -0.5F},
     "3 (2.5, 0)-(0, -2.5) c (0, 0) @10"},
    {"three quarters clockwise, reference beyond the radius",
     2,
     {2, 0},
     {0, 2},
     {3, 3},
     "2 (1.5, 0)-(0, 1.5) c (0, 0) @10"},
};

TEST(OffsetSegChain, AnArcOfMoreThanHalfACircleTurnsTheReferenceRound) {
  for (const ArcSideCase& test : kArcSides) {
    SCOPED_TRACE(test.name);
    RecordedCam c;
    addArc(c, test.type, test.start, test.end, {0, 0});
    EXPECT_EQ(outlineOf(c, test.reference, 0.5F), Texts{test.first});
  }
}

TEST(OffsetSegChain, AnArcTooSmallForTheToolIsLeftOutAndItsNeighboursMeet) {
  RecordedCam c;
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 0, .x1 = 3.75F});
  addArc(c, kCounterClockwiseArc, {3.75F, 0}, {4, 0.25F}, {3.75F, 0.25F});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 4, .y0 = 0.25F, .x1 = 4, .y1 = 4});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 4, .y0 = 4});
  EXPECT_EQ(outlineOf(c, {2, 1}, 0.5F)[0], "1 (1.2071, 0.5)-(3.5, 0.5) @10");
  EXPECT_EQ(c.store.segattr[2], kParkedRow);
}

TEST(OffsetSegChain, StartAndDirectionInOnePlaceGiveABeepAndNothingElse) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}});
  ChainWalk rows(c.store);
  offsetSegChain(c.cam, rows, {1, {0, 0}, {0, 0}, {2, 1}, kPocketOutline, 0.5F});
  EXPECT_EQ(c.beeps(), 1);
  EXPECT_EQ(c.store.NumSegments, 3);
  EXPECT_EQ(c.store.segattr[1], kVerifiedRow);
}

TEST(OffsetSegChain, AFullTableIsAnOverflow) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  while (c.store.NumSegments < 32765) c.addLine(9, 9, 10, 10);
  EXPECT_EQ(testing::numberOfFailure([&] { outlineOf(c, {2, 2}, 0.5F); }), FailureNumber::Overflow);
}

// ---- Rows in and out

TEST(RestoreParkedRows, MakesThemVerifiedAgainAndTouchesNoOthers) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  c.store.segattr[1] = kParkedRow;
  c.store.segattr[2] = kSelectedRow;
  c.store.segattr[3] = kOrdinaryClass;
  restoreParkedRows(c.cam.changes);
  EXPECT_EQ(c.store.segattr[1], kVerifiedRow);
  EXPECT_EQ(c.store.segattr[2], kSelectedRow);
  EXPECT_EQ(c.store.segattr[3], kOrdinaryClass);
  EXPECT_EQ(c.store.segattr[4], kVerifiedRow);
}

TEST(RemoveWorkingRows, TakesOutEveryRowThatIsNotOrdinary) {
  RecordedCam c;
  for (const int attr : {10, kVerifiedRow, 12, kParkedRow, 8, 30010, kSelectedRow, 9}) {
    c.add({.type = kLine, .attr = attr, .x1 = 1});
  }
  removeWorkingRows(c.cam.changes);
  EXPECT_EQ(segmentTexts(c.store), (Texts{"1 (0, 0)-(1, 0) @30108", "1 (0, 0)-(1, 0) @29108",
                                          "1 (0, 0)-(1, 0)", "1 (0, 0)-(1, 0) @30008"}));
}

// ---- Corners

TEST(PocketCorner, IsTheFirstOfTheLowestEndPoints) {
  RecordedCam c;
  addSelected(c, {{2, 3}, {4, 1}, {6, 1}, {6, 4}});
  const auto corner = pocketCorner(c.store);
  ASSERT_TRUE(corner);
  EXPECT_EQ(corner->sg, 1);
  EXPECT_EQ(corner->at, (Point{4, 1}));
}

TEST(PocketCorner, ALineAtTheSameHeightReplacesAnArcWithItsStart) {
  RecordedCam c;
  addArc(c, kCounterClockwiseArc, {0, 2}, {2, 0}, {2, 2});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 2, .y0 = 0, .x1 = 5, .y1 = 3});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 5, .y0 = 3, .x1 = 0, .y1 = 2});
  EXPECT_EQ(pocketCorner(c.store)->sg, 2);
  EXPECT_EQ(pocketCorner(c.store)->at, (Point{2, 0}));
  // Run the other way, its start is not the lowest point.
  c.store.x0[2] = 5, c.store.y0[2] = 3, c.store.x1[2] = 2, c.store.y1[2] = 0;
  EXPECT_EQ(pocketCorner(c.store)->sg, 2);
  EXPECT_EQ(pocketCorner(c.store)->at, (Point{5, 3}));
}

TEST(PocketCorner, BulgesDoNotCount) {
  RecordedCam c;
  addArc(c, kCounterClockwiseArc, {-1, 0}, {1, 0}, {0, 0});  // down to -1
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 3, .y0 = -0.5F, .x1 = 4, .y1 = 1});
  EXPECT_EQ(pocketCorner(c.store)->sg, 2);
}

TEST(PocketCorner, OnlySelectedRowsBelowAMillionUnitsCount) {
  RecordedCam c;
  c.addLine(0, 0, 1, 0);
  EXPECT_FALSE(pocketCorner(c.store));
  c.add({.type = kLine, .attr = kVerifiedRow, .y0 = 1e6F, .x1 = 1, .y1 = 2e6F});
  EXPECT_FALSE(pocketCorner(c.store));
  EXPECT_TRUE(islandCorners(c.store).empty());
}

TEST(IslandCorners, ComeFromTheLowestUpAndALineIsNotPreferred) {
  RecordedCam c;
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 0, .y0 = 3, .x1 = 1, .y1 = 2});
  addArc(c, kCounterClockwiseArc, {0, 2}, {2, 0}, {2, 2});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 2, .y0 = 0, .x1 = 5, .y1 = 3});
  const std::vector<OutlineCorner> corners = islandCorners(c.store);
  ASSERT_EQ(corners.size(), 3U);
  EXPECT_EQ(corners[0].sg, 2);
  EXPECT_EQ(corners[0].at, (Point{2, 0}));
  EXPECT_EQ(corners[1].sg, 3);
  EXPECT_EQ(corners[2].sg, 1);
  EXPECT_EQ(corners[2].at, (Point{1, 2}));
}

TEST(GuideAt, AtACornerItIsTheAverageOfItsRows) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  ChainWalk rows(c.store);
  const auto guide = guideAt(c.store, rows, {1, {0, 0}});
  ASSERT_TRUE(guide);
  EXPECT_EQ(guide->reference, (Point{1, 1}));
  EXPECT_EQ(guide->direction, (Point{4, 0}));
}

TEST(GuideAt, OnAClosedRowItIsHalfWayToTheCenter) {
  RecordedCam c;
  addArc(c, kClockwiseArc, {3, 0}, {3, 0}, {1, 0});
  ChainWalk rows(c.store);
  const auto guide = guideAt(c.store, rows, {1, {3, 0}});
  ASSERT_TRUE(guide);
  EXPECT_EQ(guide->reference, (Point{2, 0}));
  EXPECT_EQ(guide->direction, (Point{2, 0}));
}

TEST(GuideAt, AnOpenRowAloneHasNone) {
  RecordedCam c;
  c.add({.type = kLine, .attr = kVerifiedRow, .x1 = 3});
  ChainWalk rows(c.store);
  EXPECT_FALSE(guideAt(c.store, rows, {1, {0, 0}}));
  // A working row that came since is a neighbour.
  c.add({.type = kLine, .attr = kPocketOutline, .x0 = 0, .y0 = 0, .x1 = 0, .y1 = 4});
  EXPECT_TRUE(guideAt(c.store, rows, {1, {0, 0}}));
}

TEST(MirroredOut, ReflectsThroughTheNearestPointOfTheRow) {
  RecordedCam c;
  addSelected(c, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_EQ(mirroredOut(c.store, 1, {1, 1}), (Point{1, -1}));
}

}  // namespace
}  // namespace tess
