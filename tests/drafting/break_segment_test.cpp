// Breaking a row in two.
#include "drafting/break_segment.h"

#include "gtest/gtest.h"

#include "drafting/selection.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

struct BreakContext : RecordedDrafting {
  void breakAt(float x, float y) {
    mnuEditBreakSeg_Click(context);
    click(x, y);
  }
};

TEST(Break, PartsALineAtTheNearestPointOfIt) {
  BreakContext d;
  d.addLine(0, 0, 4, 0);
  d.addLine(0, 3, 4, 3);
  expectOneStep(d, [&d] { d.breakAt(1, 0.5F); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 3)-(4, 3)", "1 (0, 0)-(1, 0)", "1 (1, 0)-(4, 0)"}));
  EXPECT_EQ(d.context.changelog.changecount, 3);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(Break, KeepsTheFirstPartInItsRowAndPutsTheSecondAtTheEnd) {
  BreakContext d;
  d.addLine(0, 0, 4, 0);
  d.addLine(0, 3, 4, 3);
  d.breakAt(1, 0);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0)", "1 (0, 3)-(4, 3)", "1 (1, 0)-(4, 0)"}));
}

TEST(Break, OfAnArcKeepsKindCenterAndClass) {
  BreakContext d;
  d.add({.type = 3, .attr = 10, .x0 = 2, .y0 = 0, .x1 = -2, .y1 = 0});
  expectOneStep(d, [&d] { d.breakAt(0, 3); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"3 (2, 0)-(0, 2) c (0, 0) @10", "3 (0, 2)-(-2, 0) c (0, 0) @10"}));
}

TEST(Break, OfACircleMakesTwoClockwiseArcs) {
  BreakContext d;
  d.add({.type = 5, .x0 = 2, .x1 = 2});
  expectOneStep(d, [&d] { d.breakAt(0, 3); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"2 (2, 0)-(0, 2) c (0, 0)", "2 (0, 2)-(2, 0) c (0, 0)"}));
}

TEST(Break, OfADrawnCircleMakesTwoArcs) {
  BreakContext d;
  d.add({.type = 2, .x0 = 2, .x1 = 2});
  expectOneStep(d, [&d] { d.breakAt(-3, 0); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"2 (2, 0)-(-2, 0) c (0, 0)", "2 (-2, 0)-(2, 0) c (0, 0)"}));
}

TEST(Break, AtAnEndPointBeepsAndCancels) {
  BreakContext d;
  d.addLine(0, 0, 4, 0);
  for (const Point at : {Point{0, 0}, Point{4, 0}, Point{-1, 1}, Point{3.9995F, 0}}) {
    const int before = d.beeps();
    expectNoStep(d, [&] { d.breakAt(at.x, at.y); });
    EXPECT_EQ(d.beeps(), before + 1);
    EXPECT_EQ(d.pending(), 0);
    EXPECT_TRUE(d.messages().empty());
  }
}

TEST(Break, OfARowWithoutLengthOrABarePointBeeps) {
  for (const int type : {kLine, kPoint}) {
    BreakContext d;
    d.add({.type = type, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1});
    expectNoStep(d, [&d] { d.breakAt(2, 2); });
    EXPECT_EQ(d.beeps(), 1);
  }
}

TEST(Break, WithoutRowsEndsSilently) {
  BreakContext d;
  expectNoStep(d, [&d] { d.breakAt(1, 1); });
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_EQ(d.pending(), 0);
}

TEST(Break, UnmarksAllRows) {
  BreakContext d;
  d.addLine(0, 0, 4, 0);
  d.addLine(0, 3, 4, 3);
  d.store.segattr[1] = d.store.segattr[2] = 30008;
  collectSelected(d.context);
  expectOneStep(d, [&d] { d.breakAt(1, 0); });
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{2})) << "as it was logged";
}

TEST(Break, ThatFailsLeavesTheMarks) {
  BreakContext d;
  d.addLine(0, 0, 4, 0);
  d.store.segattr[1] = 30008;
  d.breakAt(0, 0);
  EXPECT_EQ(d.store.segattr[1], 30008);
}

TEST(Break, OfAPathRowPutsTheRestRightBehindIt) {
  BreakContext d;
  addPathSegment(d.store, {.type = 1, .x1 = 4, .z = -0.5F, .feed = 12, .code = 203});
  addPathSegment(d.store, {.type = 1, .x0 = 4, .x1 = 4, .y1 = 4, .z = -1, .feed = 9, .code = 100});
  d.store.lastplacedgroup = 7;
  d.context.command.EditPaths = true;
  expectOneStep(d, [&d] { d.breakAt(1, 1); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @203 z -0.5 f 12", "1 (1, 0)-(4, 0) @203 z -0.5 f 12",
                   "1 (4, 0)-(4, 4) @100 z -1 f 9"}));
  EXPECT_EQ(d.store.lastplacedgroup, 7) << "nothing was placed";
}

TEST(Break, OfAPathArcKeepsItsCenter) {
  BreakContext d;
  addPathSegment(d.store, {.type = 2, .x0 = -2, .x1 = 2, .z = -1, .code = 100});
  d.context.command.EditPaths = true;
  expectOneStep(d, [&d] { d.breakAt(0, 3); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"2 (-2, 0)-(0, 2) c (0, 0) @100 z -1", "2 (0, 2)-(2, 0) c (0, 0) @100 z -1"}));
}

TEST(Break, OfAMachineCycleBeeps) {
  BreakContext d;
  addPathSegment(d.store, {.type = 81, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1, .code = 100});
  d.context.command.EditPaths = true;
  expectNoStep(d, [&d] { d.breakAt(2, 2); });
  EXPECT_EQ(d.beeps(), 1);
}

TEST(Break, InAFullTableLeavesTheRowWhole) {
  BreakContext d;
  while (d.store.NumSegments < 32767) d.addLine(0, 0, 4, 0);
  const RuntimeFailure failure = testing::failureOf([&d] { d.breakAt(1, 0); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(d.store.x1[1], 4);
  EXPECT_EQ(d.store.NumSegments, 32767);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

// ---- The routine

TEST(BreakSegment, TellsWhyItDidNot) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  EXPECT_EQ(breakSegment(d.context.changes, 0, {1, 0}), BreakResult::NoRow);
  EXPECT_EQ(breakSegment(d.context.changes, 2, {1, 0}), BreakResult::NoRow);
  EXPECT_EQ(breakSegment(d.context.changes, 1, {4, 0}), BreakResult::AtEnd);
  EXPECT_EQ(breakPathSegment(d.context.changes, 1, {4, 0}), BreakResult::NoRow);
  EXPECT_EQ(breakSegment(d.context.changes, 1, {1, 0}), BreakResult::Broken);
}

}  // namespace
}  // namespace tess
