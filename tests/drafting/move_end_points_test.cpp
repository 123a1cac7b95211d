// Moving an end point, with all rows that end there.
#include "drafting/move_end_points.h"

#include <cmath>

#include "gtest/gtest.h"

#include "drafting/edit_paths.h"
#include "drafting/selection.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

struct MoveContext : RecordedDrafting {
  void moveEnd(Point from, Point to, int shift = 0) {
    mnuEditMoveEnd_Click(context);
    drag(from, to, shift);
  }
};

// Two lines that meet in (2, 0), and one that does not.
struct Bend : MoveContext {
  Bend() {
    addLine(0, 0, 2, 0);
    addLine(2, 0, 2, 2);
    addLine(0, 3, 2, 3);
  }
};

TEST(MoveEndPoint, MovesAllRowsThatEndThere) {
  Bend d;
  mnuEditMoveEnd_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near end point to move, then drag the endpoint.");
  d.drag({2.1F, 0.1F}, {3, 1});
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(3, 1)", "1 (3, 1)-(2, 2)", "1 (0, 3)-(2, 3)"}));
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.changelog.changecount, 4);
}

TEST(MoveEndPoint, IsOneStep) {
  Bend d;
  expectOneStep(d, [&d] { d.moveEnd({2.1F, 0.1F}, {3, 1}); });
}

TEST(MoveEndPoint, TakesEndsWithinTheTolerance) {
  MoveContext d;
  d.addLine(0, 0, 2, 0);
  d.addLine(2.0009F, 0, 2, 2);
  d.addLine(2.0021F, 0, 2, 2);
  d.moveEnd({2, 0}, {3, 1});
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(3, 1)", "1 (3, 1)-(2, 2)", "1 (2.0021, 0)-(2, 2)"}));
}

TEST(MoveEndPoint, WithoutADragLeavesAllAsItIs) {
  Bend d;
  expectNoStep(d, [&d] { d.moveEnd({2, 0}, {2, 0}); });
  EXPECT_EQ(d.pending(), 0);
}

TEST(MoveEndPoint, RemovesLinesThatComeToHaveNoLength) {
  Bend d;
  expectOneStep(d, [&d] { d.moveEnd({2, 2}, {2.0005F, 0}); });
  EXPECT_EQ(d.store.NumSegments, 2);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(2, 0)", "1 (0, 3)-(2, 3)"}));
}

TEST(MoveEndPoint, KeepsTheCollectionToTheRowsThatAreMarked) {
  Bend d;
  d.store.segattr[2] = d.store.segattr[3] = 30008;
  collectSelected(d.context);
  d.moveEnd({2, 2}, {2, 0});
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{2}));
}

TEST(MoveEndPoint, RemovesManyLinesInTheirPlaces) {
  MoveContext d;
  for (int row = 0; row < 5; ++row) {
    d.addLine(0, 0, 1, 0);
    d.addLine(0, 2, static_cast<float>(row), 3);
  }
  expectOneStep(d, [&d] { d.moveEnd({1, 0}, {0, 0}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 2)-(0, 3)", "1 (0, 2)-(1, 3)", "1 (0, 2)-(2, 3)",
                                          "1 (0, 2)-(3, 3)", "1 (0, 2)-(4, 3)"}));
}

// ---- Arcs

TEST(MoveArcEnd, KeepsTheRadiusAndTakesTheNearerCenter) {
  MoveContext d;
  d.add({.type = 3, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0});
  expectOneStep(d, [&d] { d.moveEnd({-1, 0}, {0, 1}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (1, 0)-(0, 1) c (0, 0)"}));
}

TEST(MoveArcEnd, MovesItsStartToo) {
  MoveContext d;
  d.add({.type = 2, .x0 = 3, .y0 = 4, .x1 = 0, .y1 = 5});
  d.moveEnd({3, 4}, {4, 3});
  EXPECT_EQ(d.store.x0[1], 4);
  EXPECT_EQ(d.store.y0[1], 3);
  EXPECT_NEAR(d.store.centerx[1], 0, 2e-6);
  EXPECT_NEAR(d.store.centery[1], 0, 2e-6);
  EXPECT_EQ(d.store.segtype[1], 2);
}

TEST(MoveArcEnd, BeyondTwiceTheRadiusLeavesItAsItIs) {
  MoveContext d;
  d.add({.type = 3, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0});
  expectNoStep(d, [&d] { d.moveEnd({-1, 0}, {-1.1F, 0}); });
  EXPECT_EQ(d.beeps(), 0);
}

TEST(MoveArcEnd, ThatDoesNotReachLetsTheLinesGo) {
  MoveContext d;
  d.add({.type = 3, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0});
  d.addLine(-1, 0, -1, 2);
  expectOneStep(d, [&d] { d.moveEnd({-1, 0}, {-3, 0}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (1, 0)-(-1, 0) c (0, 0)", "1 (-3, 0)-(-1, 2)"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
}

TEST(MoveArcEnd, OntoItsOtherEndLeavesItAsItIs) {
  MoveContext d;
  d.add({.type = 3, .x0 = 1, .y0 = 1, .x1 = -1, .y1 = 1, .yc = 1});
  expectNoStep(d, [&d] { d.moveEnd({-1, 1}, {1, 1}); });
}

TEST(MoveArcEnd, OfAFullCircleLeavesItAsItIs) {
  for (const int type : {2, 3, 5}) {
    MoveContext d;
    d.add({.type = type, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0});
    expectNoStep(d, [&d] { d.moveEnd({1, 0}, {2, 1}); });
  }
}

// ---- Other kinds

TEST(MoveEndPoint, MovesTheCornerOfARectangle) {
  MoveContext d;
  d.add({.type = 6, .x0 = 0, .y0 = 0, .x1 = 2, .y1 = 1});
  expectOneStep(d, [&d] { d.moveEnd({2, 1}, {3, 3}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"6 (0, 0)-(3, 3)"}));
}

// ---- Path rows

struct PathContext : MoveContext {
  PathContext() { context.command.EditPaths = true; }
  void add(const PathRow& row) { addPathSegment(store, row); }
};

TEST(MovePathEnd, MovesRowsOfAllKindsThatEndThere) {
  PathContext d;
  d.add({.type = 0, .x0 = -2, .x1 = 0, .z = 1, .code = 100});
  d.add({.type = 1, .x0 = 0, .x1 = 2, .z = -1, .feed = 10, .code = 100});
  d.addLine(0, 0, 1, 1);
  expectOneStep(d, [&d] { d.moveEnd({0, 0}, {0, 1}); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"0 (-2, 0)-(0, 1) @100 z 1", "1 (0, 1)-(2, 0) @100 z -1 f 10"}));
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 1)"}));
}

TEST(MovePathEnd, OfAMachineCycleMovesBothEnds) {
  PathContext d;
  d.add(
      {.type = 81, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1, .xc = 0.1F, .yc = 2, .z = -1, .code = 100});
  expectOneStep(d, [&d] { d.moveEnd({1, 1}, {2, 3}); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"81 (2, 3)-(2, 3) c (0.1, 2) @100 z -1"}));
}

TEST(MovePathEnd, OfASlotMovesItAsAWhole) {
  PathContext d;
  d.add({.type = 79, .x0 = 1, .y0 = 1, .x1 = 3, .y1 = 1, .z = -1, .code = 100});
  d.moveEnd({3, 1}, {4, 3});
  EXPECT_EQ(pathTexts(d.store), (Texts{"79 (2, 3)-(4, 3) @100 z -1"}));
}

TEST(MovePathEnd, RemovesLinesAloneThatComeToHaveNoLength) {
  PathContext d;
  d.add({.type = 0, .x0 = 0, .x1 = 2, .code = 100});
  d.add({.type = 1, .x0 = 2, .x1 = 0, .code = 100});
  expectOneStep(d, [&d] { d.moveEnd({2, 0}, {0, 0}); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"0 (0, 0)-(0, 0) @100 z 0"}));
}

TEST(MovePathEnd, LeavesHiddenRowsWhereTheyAre) {
  PathContext d;
  d.add({.type = 1, .x1 = 2, .code = 100});
  d.add({.type = 1, .x0 = 2, .x1 = 4, .code = 200});
  d.store.psvisible[2] = false;
  d.moveEnd({2, 0}, {2, 1});
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (0, 0)-(2, 1) @100 z 0", "1 (2, 0)-(4, 0) @200 z 0"}));
}

// ---- Where the end goes

TEST(MoveEndPoint, GoesToTheGrid) {
  Bend d;
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  d.moveEnd({2, 0}, {3.1F, 0.9F});
  EXPECT_EQ(segmentTexts(d.store)[0], "1 (0, 0)-(3, 1)");
}

TEST(MoveEndPoint, GoesToASnapFeatureBeforeTheGrid) {
  Bend d;
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.7F;
  d.context.state.OSnapOn = true;
  mnuEditMoveEnd_Click(d.context);
  d.context.state.RevertOSnapFeatures();
  d.drag({2, 0}, {0.05F, 2.95F});
  EXPECT_EQ(segmentTexts(d.store)[0], "1 (0, 0)-(0, 3)");
}

TEST(MoveEndPoint, ThatEscCancelledLeavesAllAsItIs) {
  Bend d;
  mnuEditMoveEnd_Click(d.context);
  d.press(kLeftButton, 2, 0);
  d.move(kLeftButton, 3, 1);
  Handle_esc(d.context);
  expectNoStep(d, [&d] { d.release(kLeftButton, 3, 1); });
  mnuEditMoveEnd_Click(d.context);
  expectNoStep(d, [&d] { d.release(kLeftButton, 3, 1); });
}

TEST(MoveEndPoint, TakenUpInTheOtherTableMovesNothing) {
  Bend d;
  d.addPathLine(0, 0, 2, 0);
  mnuEditMoveEnd_Click(d.context);
  d.press(kLeftButton, 2, 0);
  toggleEditPaths(d.context);
  expectNoStep(d, [&d] { d.release(kLeftButton, 3, 1); });
}

TEST(MoveEndPoint, WhosePressAMenuSwallowedMovesNothing) {
  Bend d;
  mnuEditMoveEnd_Click(d.context);
  d.context.pointer.MenuGuard = true;
  d.press(kLeftButton, 2, 0);
  expectNoStep(d, [&d] { d.release(kLeftButton, 3, 1); });
}

TEST(MoveEndPoint, OfMoreRowsThanTheLogHoldsAsksAndCancelLeavesAll) {
  MoveContext d;
  for (int row = 0; row < 16384; ++row) d.addLine(0, 0, 1, static_cast<float>(row));
  d.test.recording.prompts.answers.push_back(Answer::Cancel);
  expectNoStep(d, [&d] { d.moveEnd({0, 0}, {-1, 0}); });
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].title, "Undo");
  EXPECT_EQ(d.pending(), 0);
}

TEST(MoveEndpoints, MovesWhatEndsAtThePointGiven) {
  Bend d;
  moveEndpoints(d.context.changes, {9, 9}, {3, 1});
  EXPECT_EQ(d.context.changelog.changecount, 0);
  moveEndpoints(d.context.changes, {2, 2}, {3, 1});
  EXPECT_EQ(segmentTexts(d.store)[1], "1 (2, 0)-(3, 1)");
}

}  // namespace
}  // namespace tess
