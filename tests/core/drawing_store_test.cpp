// Appending, growing and rounding of the drawing tables, and the composite codes of their rows.
#include "core/drawing_store.h"

#include <vector>

#include "gtest/gtest.h"

#include "core/runtime_failure.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::numberOfFailure;

class NotingTarget : public SegmentDrawing {
 public:
  explicit NotingTarget(const DrawingStore& store) : store_(store) {}
  void DrawSegment(int sg) override {
    drawn.push_back(sg);
    countWhenDrawn.push_back(store_.NumSegments);
  }

  std::vector<int> drawn;
  std::vector<int> countWhenDrawn;

 private:
  const DrawingStore& store_;
};

SegmentRow line(float x1) {
  return {.type = kLine, .x0 = 1, .y0 = 2, .x1 = x1, .y1 = 4};
}

TEST(DrawingStore, StartsWithTablesOfUpperBoundTen) {
  const DrawingStore store;
  EXPECT_EQ(store.x0.upperBound(), 10);
  EXPECT_EQ(store.psvisible.upperBound(), 10);
  EXPECT_EQ(store.cycletext.upperBound(), 10);
  EXPECT_EQ(store.pathgroupname.upperBound(), 10);
  EXPECT_EQ(store.toolname.upperBound(), 99);
  EXPECT_EQ(store.colortable.upperBound(), 7);
  EXPECT_TRUE(isConsistent(store));
}

TEST(DrawingStore, StartsWithTheOriginsOfAFileThatLacksThem) {
  const DrawingStore store;
  EXPECT_EQ(store.xorigin, 1);
  EXPECT_EQ(store.yorigin, 1);
  EXPECT_EQ(store.zorigin, -1);
  EXPECT_EQ(store.defaults.xorigin, 1);
}

TEST(DrawingStore, IndexOutsideATableIsASubscriptFailure) {
  DrawingStore store;
  EXPECT_EQ(numberOfFailure([&] { store.x0[11] = 1; }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { store.toolname[100] = "x"; }),
            FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { store.x0[-1] = 1; }), FailureNumber::SubscriptOutOfRange);
}

TEST(AddSeg, StoresTheRowThenDrawsIt) {
  DrawingStore store;
  store.drawingsaved = true;
  NotingTarget target(store);
  const SegmentRow arc{.type = 2, .attr = 8, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6};
  AddSeg(store, arc, &target);
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.segtype[1], 2);
  EXPECT_EQ(store.segattr[1], 8);
  EXPECT_EQ(store.x0[1], 1);
  EXPECT_EQ(store.y0[1], 2);
  EXPECT_EQ(store.x1[1], 3);
  EXPECT_EQ(store.y1[1], 4);
  EXPECT_EQ(store.centerx[1], 5);
  EXPECT_EQ(store.centery[1], 6);
  EXPECT_EQ(target.drawn, std::vector<int>{1});
  EXPECT_EQ(target.countWhenDrawn, std::vector<int>{1});
  EXPECT_TRUE(store.drawingsaved) << "marking the change is the caller's part";
}

TEST(AddSeg, FullTableTakesOneMoreRowAndKeepsTheEarlierOnes) {
  DrawingStore store;
  for (int row = 1; row <= 21; ++row) AddSeg(store, line(static_cast<float>(row)), nullptr);
  ASSERT_EQ(store.NumSegments, store.x0.upperBound());
  AddSeg(store, line(22), nullptr);
  EXPECT_EQ(store.NumSegments, 22);
  for (int row = 1; row <= 22; ++row) EXPECT_EQ(store.x1[row], static_cast<float>(row));
  EXPECT_TRUE(isConsistent(store));
}

TEST(AddSeg, RowPastTheCounterIsOverflow) {
  DrawingStore store;
  ensureSegmentCapacity(store, 32767);
  store.NumSegments = 32767;
  EXPECT_EQ(numberOfFailure([&] { AddSeg(store, line(1), nullptr); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumSegments, 32767);
}

TEST(AddSegLine, TakesYBeforeXAndStoresThemInTheirColumns) {
  DrawingStore store;
  NotingTarget target(store);
  AddSegLine(store, kLine, 8, /*y0=*/10, /*x0=*/20, /*y1=*/30, /*x1=*/40, &target);
  EXPECT_EQ(store.y0[1], 10);
  EXPECT_EQ(store.x0[1], 20);
  EXPECT_EQ(store.y1[1], 30);
  EXPECT_EQ(store.x1[1], 40);
  EXPECT_EQ(store.centerx[1], 0);
  EXPECT_EQ(store.centery[1], 0);
  EXPECT_EQ(target.drawn, std::vector<int>{1});
}

TEST(EnsureSegmentCapacity, FirstCallCountsTheBoundAsZero) {
  DrawingStore store;
  ensureSegmentCapacity(store, 2);
  EXPECT_EQ(store.x0.upperBound(), 22);
  EXPECT_EQ(store.segattr.upperBound(), 22);
}

TEST(EnsureSegmentCapacity, GrowsByTwentyPastTheRowAndNeverShrinks) {
  DrawingStore store;
  ensureSegmentCapacity(store, 2);
  ensureSegmentCapacity(store, 22);
  EXPECT_EQ(store.x0.upperBound(), 22);
  ensureSegmentCapacity(store, 23);
  EXPECT_EQ(store.x0.upperBound(), 43);
  ensureSegmentCapacity(store, 1);
  EXPECT_EQ(store.x0.upperBound(), 43);
}

TEST(EnsurePathCapacity, GrowsByAHundredPastTheRow) {
  DrawingStore store;
  ensurePathCapacity(store, 10);
  EXPECT_EQ(store.psx0.upperBound(), 10);
  ensurePathCapacity(store, 11);
  EXPECT_EQ(store.psx0.upperBound(), 111);
  EXPECT_EQ(store.psvisible.upperBound(), 111);
}

TEST(AddPathSegment, StoresAVisibleRowAndMarksTheDrawingChanged) {
  DrawingStore store;
  store.drawingsaved = true;
  addPathSegment(store, {.type = 3,
                         .x0 = 1,
                         .y0 = 2,
                         .x1 = 3,
                         .y1 = 4,
                         .xc = 5,
                         .yc = 6,
                         .z = -0.5F,
                         .feed = 9,
                         .code = 1203,
                         .visible = false});
  EXPECT_EQ(store.NumPathSegments, 1);
  EXPECT_EQ(store.pstype[1], 3);
  EXPECT_EQ(store.psx0[1], 1);
  EXPECT_EQ(store.psy0[1], 2);
  EXPECT_EQ(store.psx1[1], 3);
  EXPECT_EQ(store.psy1[1], 4);
  EXPECT_EQ(store.psxc[1], 5);
  EXPECT_EQ(store.psyc[1], 6);
  EXPECT_EQ(store.psz[1], -0.5F);
  EXPECT_EQ(store.psfeed[1], 9);
  EXPECT_EQ(store.pscode[1], 1203);
  EXPECT_TRUE(store.psvisible[1]);
  EXPECT_EQ(store.lastplacedgroup, 12);
  EXPECT_FALSE(store.drawingsaved);
}

TEST(AddPathSegment, RowPastTheCounterIsOverflow) {
  DrawingStore store;
  ensurePathCapacity(store, 32767);
  store.NumPathSegments = 32767;
  EXPECT_EQ(numberOfFailure([&] { addPathSegment(store, {}); }), FailureNumber::Overflow);
}

TEST(AddPathSegment, CycleRowKeepsDepthAndDwellInTheCenter) {
  DrawingStore store;
  const PathRow cycle{.type = 81,
                      .x0 = 2,
                      .y0 = 3,
                      .x1 = 2,
                      .y1 = 3,
                      .xc = 0.1F,
                      .yc = 1.5F,
                      .z = -0.75F,
                      .feed = 6,
                      .code = 200};
  addPathSegment(store, cycle);
  EXPECT_EQ(store.pstype[1], 81);
  EXPECT_EQ(store.psxc[1], 0.1F);
  EXPECT_EQ(store.psyc[1], 1.5F);
  EXPECT_EQ(store.psz[1], -0.75F);
}

TEST(NextPathGroup, IsOneWithoutRows) {
  EXPECT_EQ(nextPathGroup(DrawingStore()), 1);
}

TEST(NextPathGroup, FollowsTheLargestGroupSelectedOrNot) {
  DrawingStore store;
  for (const int code : {304, 30000 + 512, 101}) addPathSegment(store, {.code = code});
  EXPECT_EQ(nextPathGroup(store), 6);
}

TEST(NextPathGroup, ToolIndexAboveFiftyCountsAsTheNextGroup) {
  DrawingStore store;
  addPathSegment(store, {.code = 250});
  EXPECT_EQ(store.lastplacedgroup, 2) << "a tie goes to the even group";
  addPathSegment(store, {.code = 251});
  EXPECT_EQ(store.lastplacedgroup, 3);
  EXPECT_EQ(nextPathGroup(store), 4);
}

TEST(PathCode, HoldsGroupToolAndSelection) {
  for (const int code : {1203, 31203}) {
    EXPECT_EQ(groupCutOff(code), 12) << code;
    EXPECT_EQ(groupRounded(code), 12) << code;
    EXPECT_EQ(toolIndex(code), 3) << code;
    EXPECT_EQ(toolIndex(code) + 1, 4) << "as the operator sees it";
  }
  EXPECT_FALSE(isSelected(1203));
  EXPECT_TRUE(isSelected(31203));
  EXPECT_EQ(groupCutOff(251), 2);
  EXPECT_EQ(groupCutOff(30000), 300) << "30000 itself is not selected";
  EXPECT_EQ(pathCode(12, 3), 1203);
}

TEST(SelectionMark, CountsThirtyThousandThatIsNotSelected) {
  EXPECT_FALSE(hasSelectionMark(29999));
  EXPECT_TRUE(hasSelectionMark(30000));
  EXPECT_TRUE(hasSelectionMark(30108));
  EXPECT_EQ(withoutSelection(30000), 30000);
  EXPECT_EQ(withoutSelection(31203), 1203);
  EXPECT_EQ(withoutSelection(1203), 1203);
}

TEST(SegmentAttribute, SelectingAndUnselectingKeepsTheClass) {
  const int selected = entityClass(8) + kSelected;
  EXPECT_EQ(selected, 30008);
  EXPECT_EQ(entityClass(selected), 8);
  const int working = entityClass(12) + kSelected;
  EXPECT_EQ(entityClass(working), 12);
}

struct AttributeCase {
  int segattr;
  bool selected, unverified, verified;
};

TEST(SegmentAttribute, RangesTellSelectedFromVerified) {
  const AttributeCase cases[] = {
      {8, false, false, false},   {29108, false, false, false}, {30000, false, false, false},
      {30001, true, true, false}, {30008, true, true, false},   {30009, true, true, false},
      {30099, true, true, false}, {30100, true, false, true},   {30108, true, false, true},
  };
  for (const AttributeCase& c : cases) {
    EXPECT_EQ(isSelected(c.segattr), c.selected) << c.segattr;
    EXPECT_EQ(isSelectedUnverified(c.segattr), c.unverified) << c.segattr;
    EXPECT_EQ(isVerified(c.segattr), c.verified) << c.segattr;
  }
  EXPECT_EQ(kSelectedRow, kSelected + kOrdinaryClass);
  EXPECT_EQ(entityClass(kVerifiedRow), 8);
  EXPECT_EQ(entityClass(kParkedRow), 8);
}

TEST(Roundall, RoundsTheSixCoordinatesOfEveryRowToFiveDecimals) {
  DrawingStore store;
  AddSeg(store,
         {.type = 2,
          .x0 = 1.000004F,
          .y0 = 2.12345678F,
          .x1 = -0.000006F,
          .y1 = 0.1234549F,
          .xc = 12.345678F,
          .yc = -1.5F},
         nullptr);
  store.x0[2] = 1.000004F;
  roundall(store);
  EXPECT_EQ(store.x0[1], 1.0F);
  EXPECT_EQ(store.y0[1], 2.12346F);
  EXPECT_EQ(store.x1[1], -0.00001F);
  EXPECT_EQ(store.y1[1], 0.12345F);
  EXPECT_EQ(store.centerx[1], 12.34568F);
  EXPECT_EQ(store.centery[1], -1.5F);
  EXPECT_EQ(store.x0[2], 1.000004F) << "a row behind the last one is none";
}

TEST(ResizeCycles, TakesTheCountExactlyAndKeepsContents) {
  DrawingStore store;
  store.cycletext[0] = "G81";
  resizeCycles(store, 3);
  EXPECT_EQ(store.cycletext.upperBound(), 2);
  EXPECT_EQ(store.cyclefeedrate.upperBound(), 2);
  EXPECT_EQ(store.cycletext[0], "G81");
  resizeCycles(store, 0);
  EXPECT_EQ(store.cycletext.upperBound(), 0) << "row 0 is always there to be read into";
}

TEST(Rows, ComeOutAsTheyWentIn) {
  DrawingStore store;
  AddSeg(store, line(3), nullptr);
  SegmentRow row = segmentRow(store, 1);
  EXPECT_EQ(row.x1, 3);
  row.attr = 30008;
  setSegmentRow(store, 1, row);
  EXPECT_EQ(store.segattr[1], 30008);
  addPathSegment(store, {.type = 1, .z = -1, .feed = 3, .code = 105});
  PathRow path = pathRow(store, 1);
  EXPECT_EQ(path.z, -1);
  EXPECT_EQ(path.feed, 3);
  EXPECT_TRUE(path.visible);
  path.visible = false;
  setPathRow(store, 1, path);
  EXPECT_FALSE(store.psvisible[1]);
}

TEST(IsConsistent, FindsColumnsOfUnequalLength) {
  DrawingStore store;
  store.psz.resize(3);
  EXPECT_FALSE(isConsistent(store));
  DrawingStore counted;
  counted.NumSegments = 11;
  EXPECT_FALSE(isConsistent(counted));
}

TEST(Units, OnlyTheLetterMIsMetric) {
  DrawingStore store;
  EXPECT_FALSE(isMetric(store)) << "a blank is taken as inch";
  store.units = "I";
  EXPECT_FALSE(isMetric(store));
  store.units = "M";
  EXPECT_TRUE(isMetric(store));
}

}  // namespace
}  // namespace tess
