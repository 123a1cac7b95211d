// Trimming and extending.
#include "drafting/trim.h"

#include "gtest/gtest.h"

#include "drafting/edit_paths.h"
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

struct TrimContext : RecordedDrafting {
  void trim(Point pick, Point trimmer) {
    mnuEditTrimEntity_Click(context);
    click(pick.x, pick.y);
    click(trimmer.x, trimmer.y);
  }
  std::string first() const { return segmentTexts(store).at(0); }
};

// A level line with a wall across it.
struct CrossedLine : TrimContext {
  CrossedLine() {
    addLine(0, 0, 4, 0);
    addLine(1, -2, 1, 2);
  }
};

// ---- Clicks and state

TEST(TrimClicks, AskForTheRowThenForTheOneThatTrims) {
  CrossedLine d;
  mnuEditTrimEntity_Click(d.context);
  EXPECT_EQ(d.pending(), 16);
  EXPECT_EQ(d.prompt(), "Click on end point to trim.");
  d.click(3, 0.1F);
  EXPECT_EQ(d.pending(), 17);
  EXPECT_EQ(d.prompt(), "Click on trimming entity.");
  EXPECT_EQ(d.context.command.PendingSeg1, 1);
  EXPECT_EQ(d.context.command.PendingPt1, (Point{3, 0.1F}));
  d.click(1, 1.5F);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.command.PendingSeg2, 2);
}

TEST(TrimClicks, OnOneRowTwiceBeepAndEnd) {
  CrossedLine d;
  expectNoStep(d, [&d] { d.trim({3, 0}, {3.5F, 0}); });
  EXPECT_EQ(d.beeps(), 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(TrimClicks, WithoutRowsEndAtTheFirstSilently) {
  TrimContext d;
  mnuEditTrimEntity_Click(d.context);
  expectNoStep(d, [&d] { d.click(1, 1); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(TrimClicks, EscInTheSecondStepForgetsTheRow) {
  CrossedLine d;
  mnuEditTrimEntity_Click(d.context);
  d.click(3, 0);
  Handle_esc(d.context);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.command.PendingSeg1, 0);
  expectNoStep(d, [&d] { d.click(1, 1.5F); });
}

TEST(TrimClicks, BeepWhenTheRowIsAnotherOneByTheSecond) {
  CrossedLine d;
  d.trim({3, 0}, {1, 1});  // rows 1 and 2 change places by undo and redo
  mnuEditTrimEntity_Click(d.context);
  d.click(0.5F, 0);
  Undo_Last_Change(d.context);
  expectNoStep(d, [&d] { d.click(1, 1.5F); });
  EXPECT_EQ(d.beeps(), 1);
}

TEST(TrimClicks, BeepWhenTheRowStandsInTheOtherTable) {
  CrossedLine d;
  d.addPathLine(0, 3, 1, 3);
  d.addPathLine(1, -2, 1, 2);
  mnuEditTrimEntity_Click(d.context);
  d.click(3, 0);
  toggleEditPaths(d.context);
  expectNoStep(d, [&d] { d.click(1, 1.5F); });
  EXPECT_EQ(d.beeps(), 1);
}

TEST(TrimClicks, RedrawOnceWhenTheyAreDone) {
  CrossedLine d;
  mnuEditTrimEntity_Click(d.context);
  d.click(3, 0);
  d.log.take();
  d.click(1, 1);
  EXPECT_EQ(d.log.count("Cls"), 1);
  EXPECT_EQ(d.first(), "1 (0, 0)-(1, 0)");
}

TEST(TrimClicks, TakeNoSnapFeature) {
  CrossedLine d;
  d.context.state.OSnapOn = true;
  d.context.state.RevertOSnapFeatures();
  mnuEditTrimEntity_Click(d.context);
  d.drag({3.8F, 0.05F}, {3.9F, 0.05F});
  EXPECT_EQ(d.context.command.PendingPt1, (Point{3.9F, 0.05F}));
}

// ---- Lines

TEST(TrimLine, CutsOffTheSideOfTheClick) {
  CrossedLine d;
  expectOneStep(d, [&d] { d.trim({3, 0}, {1, 1}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (1, -2)-(1, 2)", "1 (0, 0)-(1, 0)"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  CrossedLine other;
  other.trim({0.25F, 0}, {1, 1});
  EXPECT_EQ(other.first(), "1 (1, 0)-(4, 0)");
}

TEST(TrimLine, KeepsItsRowItsClassAndItsMark) {
  CrossedLine d;
  d.store.segattr[1] = 30108;
  d.trim({3, 0}, {1, 1});
  EXPECT_EQ(d.first(), "1 (0, 0)-(1, 0) @30108");
}

TEST(TrimLine, ByAnArcThatCrossesTwiceTakesTheCrossingNearerTheClick) {
  for (const bool atLeft : {true, false}) {
    TrimContext d;
    d.addLine(-4, 0, 4, 0);
    d.add({.type = 2, .x0 = 0, .y0 = 2, .x1 = 0, .y1 = 2});
    d.trim({atLeft ? -3.0F : 3.0F, 0}, {0, 2});
    EXPECT_EQ(d.first(), atLeft ? "1 (-2, 0)-(4, 0)" : "1 (-4, 0)-(2, 0)");
  }
}

TEST(TrimLine, ByAnArcOnATieTakesTheFirstCrossing) {
  TrimContext d;
  d.addLine(-4, 0, 4, 0);
  d.add({.type = 2, .x0 = 0, .y0 = 2, .x1 = 0, .y1 = 2});
  d.trim({0, 0}, {0, 2});
  EXPECT_EQ(d.first(), "1 (2, 0)-(4, 0)") << "the first hit of a level line is the right one";
}

TEST(TrimLine, WhereOneCrossingAloneLiesOnTheArcTakesThat) {
  TrimContext d;
  d.addLine(-4, 0, 4, 0);
  d.add({.type = 3, .x0 = 0, .y0 = 2, .x1 = 0, .y1 = -2});  // the left half
  d.trim({3, 0}, {-1.5F, 1.5F});
  EXPECT_EQ(d.first(), "1 (-4, 0)-(-2, 0)");
}

// ---- Extending

TEST(ExtendLine, TakesTheEndNearerToThePlace) {
  TrimContext d;
  d.addLine(0, 0, 1, 0);
  d.addLine(3, -2, 3, 2);
  expectOneStep(d, [&d] { d.trim({0.1F, 0}, {3, 1}); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (3, -2)-(3, 2)", "1 (0, 0)-(3, 0)"}));
  TrimContext other;
  other.addLine(1, 0, 0, 0);
  other.addLine(3, -2, 3, 2);
  other.trim({0.1F, 0}, {3, 1});
  EXPECT_EQ(other.first(), "1 (3, 0)-(0, 0)");
}

TEST(ExtendLine, ReachesAHundredLengthsAndNoFarther) {
  for (const float x : {100.0F, 101.0F}) {
    TrimContext d;
    d.addLine(-0.5F, 0, 0.5F, 0);
    d.addLine(x, -200, x, 200);
    mnuEditTrimEntity_Click(d.context);
    d.click(0, 0);
    const auto second = [&d, x] { d.click(x, 1); };
    if (x == 100) {
      expectOneStep(d, second);
      EXPECT_EQ(segmentTexts(d.store)[1], "1 (-0.5, 0)-(100, 0)");
    } else {
      expectNoStep(d, second);
      EXPECT_EQ(d.beeps(), 0) << "silently";
      EXPECT_EQ(d.store.NumSegments, 2);
    }
  }
}

TEST(ExtendLine, ToTheLineThroughTheTrimmerIsNoMeeting) {
  TrimContext d;
  d.addLine(0, 0, 1, 0);
  d.addLine(3, 1, 3, 2);
  expectNoStep(d, [&d] { d.trim({0.5F, 0}, {3, 1}); });
  EXPECT_EQ(d.beeps(), 0);
}

TEST(ExtendLine, OfParallelsNeverMeets) {
  TrimContext d;
  d.addLine(0, 0, 2, 1);
  d.addLine(0, 1, 2, 2);
  expectNoStep(d, [&d] { d.trim({1, 0.5F}, {1, 1.5F}); });
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_EQ(d.pending(), 0);
}

TEST(ExtendLine, WithoutLengthGoesNowhere) {
  TrimContext d;
  d.addLine(0, 0, 0, 0);
  d.addLine(3, -2, 3, 2);
  expectNoStep(d, [&d] { d.trim({0, 0}, {3, 1}); });
}

// ---- Arcs

TEST(TrimArc, CutsOffTheSideOfTheClickByAngle) {
  for (const bool nearEnd : {true, false}) {
    TrimContext d;
    d.add({.type = 3, .x0 = 2, .y0 = 0, .x1 = -2, .y1 = 0});
    d.addLine(0, 0, 0, 4);
    const float x = nearEnd ? -1.5F : 1.5F;
    expectOneStep(d, [&d, x] { d.trim({x, 1.5F}, {0, 3.5F}); });
    EXPECT_EQ(segmentTexts(d.store)[1],
              nearEnd ? "3 (2, 0)-(0, 2) c (0, 0)" : "3 (0, 2)-(-2, 0) c (0, 0)");
  }
}

TEST(TrimArc, ClockwiseByAnArc) {
  TrimContext d;
  d.add({.type = 2, .x0 = -2, .y0 = 0, .x1 = 2, .y1 = 0});
  d.add({.type = 2, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0, .xc = 2});
  d.trim({1.8F, 0.9F}, {2, 2.1F});
  EXPECT_EQ(d.store.NumSegments, 2);
  EXPECT_NEAR(d.store.x1[1], 1, 1e-5);
  EXPECT_NEAR(d.store.y1[1], 1.7320508, 1e-5);
  EXPECT_EQ(d.store.x0[1], -2);
  EXPECT_EQ(d.store.centerx[1], 0);
}

TEST(ExtendArc, RoundItsCircleTakesTheNearerEnd) {
  TrimContext d;
  d.add({.type = 3, .x0 = 2, .y0 = 0, .x1 = 0, .y1 = 2});
  d.addLine(-4, 0, -1, 0);
  expectOneStep(d, [&d] { d.trim({1.5F, 1.5F}, {-3, 0}); });
  EXPECT_EQ(segmentTexts(d.store)[1], "3 (2, 0)-(-2, 0) c (0, 0)");
}

TEST(TrimOtherKinds, NeverMeetAndStaySilently) {
  for (const SegmentRow& row : {SegmentRow{.type = 5, .x0 = 2, .x1 = 2},
                                SegmentRow{.type = 6, .x0 = -2, .y0 = -2, .x1 = 2, .y1 = 2}}) {
    TrimContext d;
    d.add(row);
    d.addLine(-4, 1, 4, 1);
    expectNoStep(d, [&d] { d.trim({2, -0.1F}, {-3.5F, 1}); });
    expectNoStep(d, [&d] { d.trim({-3.5F, 1}, {2, -0.1F}); });
    EXPECT_EQ(d.beeps(), 0);
  }
}

// ---- Path rows

TEST(TrimPath, KeepsToolDepthFeedAndPlace) {
  TrimContext d;
  addPathSegment(d.store, {.type = 1, .x1 = 4, .z = -0.5F, .feed = 12, .code = 203});
  addPathSegment(d.store, {.type = 1, .x0 = 1, .y0 = -2, .x1 = 1, .y1 = 2, .code = 100});
  d.context.command.EditPaths = true;
  expectOneStep(d, [&d] { d.trim({3, 0}, {1, 1}); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @203 z -0.5 f 12", "1 (1, -2)-(1, 2) @100 z 0"}));
}

TEST(TrimPath, PassesOverHiddenRows) {
  TrimContext d;
  d.addPathLine(0, 0, 4, 0);
  d.addPathLine(1, -2, 1, 2);
  d.store.psvisible[2] = false;
  d.context.command.EditPaths = true;
  expectNoStep(d, [&d] { d.trim({3, 0}, {1, 1}); });
  EXPECT_EQ(d.beeps(), 1);
}

// ---- The routines

TEST(TrimSegment, TellsWhetherTheRowsMeet) {
  CrossedLine d;
  d.addLine(0, 3, 4, 3);
  EXPECT_TRUE(trimSegment(d.context.changes, 1, 2, {3, 0}));
  EXPECT_FALSE(trimSegment(d.context.changes, 1, 3, {3, 0}));
  EXPECT_FALSE(trimSegment(d.context.changes, 1, 1, {3, 0}));
  EXPECT_FALSE(trimSegment(d.context.changes, 0, 1, {3, 0}));
  EXPECT_FALSE(trimSegment(d.context.changes, 1, 4, {3, 0}));
  EXPECT_FALSE(trimPathSegment(d.context.changes, 1, 2, {3, 0}));
}

}  // namespace
}  // namespace tess
