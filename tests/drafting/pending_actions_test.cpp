// The numbered pending actions: prompts, how a release completes them, and how they are cancelled.
#include "drafting/pending_actions.h"

#include <fstream>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/break_segment.h"
#include "drafting/entity_creation.h"
#include "drafting/selection.h"
#include "drafting/trim.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using Texts = std::vector<std::string>;

TEST(PendingPrompt, AnUnknownNumberShowsItself) {
  RecordedDrafting d;
  d.context.state.setPendingaction(99);
  EXPECT_EQ(d.prompt(), "Pending Function #99");
}

TEST(PendingPrompt, MovingSaysWhatWillMove) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.store.segattr[1] = 30008;
  d.context.state.setPendingaction(7);
  EXPECT_EQ(d.prompt(),
            "Click at new position to move.  Only selected drawing segments will be moved.");
}

TEST(RefreshStatus, BlanksTheLineAndShowsCountsZoomPromptAndCoordinates) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addPathLine(0, 0, 1, 0);
  d.addPathLine(1, 0, 2, 0);
  d.view.viewspan = 1;
  d.store.cfg_final_depth = 0.25F;
  d.context.state.setPendingaction(9);
  EXPECT_EQ(d.statusLog, (Texts{"", "Click on segment to break"}));
  EXPECT_EQ(d.statistics, "1 2  4");
  EXPECT_EQ(d.panel(StatusPanel::Zoom), " 4");
  EXPECT_EQ(d.panel(StatusPanel::X), "X: 0.0000");
  EXPECT_EQ(d.panel(StatusPanel::Y), "Y: 0.0000");
  EXPECT_EQ(d.panel(StatusPanel::Z), "Z: -0.2500");
}

TEST(RefreshStatus, ShowsTheDepthBelowZeroWhateverItsSign) {
  RecordedDrafting d;
  d.store.cfg_final_depth = -0.5F;
  refreshCoordinates(d.context);
  EXPECT_EQ(d.panel(StatusPanel::Z), "Z: -0.5000");
}

TEST(PendingactionSetting, EndsASingleUseOfSnapAndDropsTheFeature) {
  RecordedDrafting d;
  d.context.state.UpdateOSnapFeature(/*once=*/true, 3);
  d.context.state.setFeaturePoint(CFeaturePoint{.X = 1, .Y = 1});
  d.context.state.setPendingaction(9);
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
  EXPECT_FALSE(d.context.state.FeaturePoint());
}

TEST(DrawModeSetting, ADrawingModeReplacesThePendingAction) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.context.state.setDrawMode(6);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.prompt(), "");
}

TEST(DrawModeSetting, SelectingAndNoneLeaveThePendingAction) {
  RecordedDrafting d;
  for (const int mode : {-1, 0}) {
    d.context.state.setPendingaction(24);
    d.context.state.setDrawMode(mode);
    EXPECT_EQ(d.pending(), 24) << mode;
  }
}

struct ModeCase {
  int mode;
  int action;
  Texts pressed;
};

TEST(DrawModeSetting, PressesTheToolOfTheMode) {
  const ModeCase cases[] = {
      {0, 0, {}},
      {1, 0, {"miLine"}},
      {2, 0, {"miArc3P"}},
      {3, 0, {"miArcC+2P"}},
      {5, 0, {"miCircle3P"}},
      {6, 0, {"miRectangle"}},
      {7, 0, {"miCircleC+1P"}},
      {-1, 24, {"miSelect"}},
      {-1, 31, {"miSelect"}},
      {-1, 25, {"miUnselect"}},
      {-1, 32, {"miUnselect"}},
      {4, 0, {}},
  };
  RecordedDrafting d;
  for (const ModeCase& row : cases) {
    SCOPED_TRACE(row.mode);
    d.tools.setChecked("miPan", true);
    d.pointer.setMousePointer(kCustomShape);
    d.context.state.setPendingaction(row.action);
    d.context.state.setDrawMode(row.mode);
    EXPECT_EQ(d.pressedTools(), row.pressed);
    EXPECT_EQ(d.pointer.MousePointer(), kDefaultShape);
  }
}

// ---- Completing an action

// A context whose click on action 9 is counted.
struct CountedClicks : RecordedDrafting {
  CountedClicks() {
    for (auto& click : context.clickActions) click = [this](DraftingContext&) { ++clicks; };
  }
  int clicks = 0;
};

TEST(CompletingAnAction, OneShotActionsEndAndOthersStay) {
  for (int action = 1; action <= 47; ++action) {
    const bool elsewhere = action == 10 || (action >= 28 && action <= 30) || action == 36;
    if (elsewhere) continue;
    SCOPED_TRACE(action);
    CountedClicks d;
    d.context.state.setPendingaction(action);
    d.click(1, 1);
    EXPECT_EQ(d.clicks, 1);
    const bool stays = action == 1 || action == 24 || action == 25 || action == 31 || action == 32;
    EXPECT_EQ(d.pending(), stays ? action : 0);
  }
}

TEST(CompletingAnAction, ANumberAbove47DoesNothingAndEnds) {
  CountedClicks d;
  d.context.state.setPendingaction(48);
  d.click(1, 1);
  EXPECT_EQ(d.clicks, 0);
  EXPECT_EQ(d.pending(), 0);
}

TEST(CompletingAnAction, AStepThatGoesOnPromptsForTheNextOne) {
  RecordedDrafting d;
  d.context.clickActions[16] = [](DraftingContext& context) {
    context.state.setPendingaction(goOnWith(PendingAction::TrimBy));
  };
  mnuEditTrimEntity_Click(d.context);
  d.statusLog.clear();
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 17);
  EXPECT_EQ(d.prompt(), "Click on trimming entity.");
  for (const std::string& text : d.statusLog) EXPECT_NE(text, "Click on end point to trim.");
}

TEST(CompletingAnAction, ANegativeNumberSurvivesTheRedraw) {
  RecordedDrafting d;
  int duringRedraw = 0;
  d.context.clickActions[18] = [](DraftingContext& context) {
    context.state.setPendingaction(goOnWith(PendingAction::JoinSecond));
  };
  d.context.state.setPendingaction(18);
  d.redraw.onPainted = [&] { duringRedraw = d.pending(); };
  d.click(1, 1);
  EXPECT_EQ(duringRedraw, -19);
  EXPECT_EQ(d.pending(), 19);
}

TEST(CompletingAnAction, OneThatReturnsWithoutAStepEnds) {
  RecordedDrafting d;  // trimming finds nothing, or has found fault
  d.context.state.setPendingaction(17);
  d.context.clickActions[17] = [](DraftingContext& context) {
    context.session.host.surroundings.beep();
  };
  d.click(1, 1);
  EXPECT_EQ(d.beeps(), 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(CompletingAnAction, AfterATrimThatBeepedTheOperatorStartsAgain) {
  RecordedDrafting d;
  d.context.clickActions[16] = [](DraftingContext& context) {
    context.state.setPendingaction(goOnWith(PendingAction::TrimBy));
  };
  d.context.clickActions[17] = [](DraftingContext& context) {
    context.session.host.surroundings.beep();
  };
  mnuEditTrimEntity_Click(d.context);
  d.click(1, 1);
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 0);
  mnuEditTrimEntity_Click(d.context);
  EXPECT_EQ(d.pending(), 16);
}

TEST(CompletingAnAction, RunsAtTheRoundedPosition) {
  RecordedDrafting d;
  Point at;
  d.context.clickActions[9] = [&at](DraftingContext& context) {
    at = {context.pointer.MouseX, context.pointer.MouseY};
  };
  d.context.state.setPendingaction(9);
  d.press(1, 0, 0);
  d.release(1, 0.12345678F, -0.1234564F);
  EXPECT_EQ(at, (Point{0.123457F, -0.123456F}));
}

TEST(CompletingAnAction, ReleasingAButtonThatWasNotPressedDoesNothing) {
  CountedClicks d;
  d.context.state.setPendingaction(9);
  d.release(1, 1, 1);
  EXPECT_EQ(d.clicks, 0);
  EXPECT_EQ(d.pending(), 9);
}

TEST(CompletingAnAction, AClickExactlyOnTheMarkerDrawsNothing) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 1);
  ASSERT_EQ(d.store.NumSegments, 1);
  d.click(1, 1);
  EXPECT_EQ(d.store.NumSegments, 1);
  EXPECT_FALSE(d.context.pointer.LeftDown);
}

TEST(CompletingAnAction, AClickExactlyOnTheMarkerRunsAPendingAction) {
  CountedClicks d;
  d.context.state.setPendingaction(9);
  d.click(0, 0);
  EXPECT_EQ(d.clicks, 1);
}

TEST(CompletingAnAction, MovingAnEndPointEndsWithTheRelease) {
  CountedClicks d;
  d.context.state.setPendingaction(10);
  d.log.take();
  d.drag({0, 0}, {1, 1});
  EXPECT_EQ(d.clicks, 0);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.log.count("Cls"), 1);
}

TEST(CompletingAnAction, ANewStartPositionIsWhereTheClickWas) {
  RecordedDrafting d;
  d.context.state.setPendingaction(12);
  d.click(1.5F, -2);
  EXPECT_EQ(d.store.xstartpos, 1.5F);
  EXPECT_EQ(d.store.ystartpos, -2);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.pending(), 0);
}

TEST(CompletingAnAction, ActionsWithoutAnEffectEndAllTheSame) {
  for (const int action : {11, 26, 27}) {
    RecordedDrafting d;
    d.context.state.setPendingaction(action);
    d.click(1, 1);
    EXPECT_EQ(d.pending(), 0) << action;
    EXPECT_TRUE(d.store.drawingsaved) << action;
  }
}

// ---- The right button

TEST(RightButton, CancelsWhatIsArmedThenMovesTheMarker) {
  RecordedDrafting d;
  mnuDrawSelect_Click(d.context);
  d.rightClick(2, 1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.marker(), (Point{0, 0}));
  d.rightClick(2, 1);
  EXPECT_EQ(d.marker(), (Point{2, 1}));
  EXPECT_EQ(d.context.command.prevmarkerx, 0);
  d.rightClick(3, 1);
  EXPECT_EQ(d.marker(), (Point{3, 1}));
  EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{2, 1}));
  EXPECT_FALSE(d.context.pointer.RightDown);
}

TEST(RightButton, MovesTheMarkersCrossByInverting) {
  RecordedDrafting d;
  d.move(0, 2, 1);
  d.press(2, 2, 1);
  d.log.take();
  d.release(2, 2, 1);
  EXPECT_EQ(d.log.take(),
            "MousePointer 0\n"
            "DrawMode 10\n"
            "line (-0.05, 0.05)-(0.05, -0.05) #000000\n"
            "line (0.05, 0.05)-(-0.05, -0.05) #000000\n"
            "DrawMode 13\n"
            "DrawMode 10\n"
            "line (1.95, 1.05)-(2.05, 0.95) #000000\n"
            "line (2.05, 1.05)-(1.95, 0.95) #000000\n"
            "DrawMode 13\n");
}

TEST(RightButton, EndsASingleUseOfSnap) {
  RecordedDrafting d;
  d.context.state.UpdateOSnapFeature(/*once=*/true, 1);
  d.rightClick(2, 1);
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
}

TEST(RightButton, DropsAHalfDoneThreePointCommand) {
  RecordedDrafting d;
  mnuDrawArc3P_Click(d.context);
  d.click(2, 0);
  ASSERT_EQ(d.context.command.clickstage, 1);
  d.rightClick(1, 1);
  EXPECT_EQ(d.context.command.clickstage, 0);
  EXPECT_EQ(d.mode(), 2);
}

// ---- Esc

TEST(HandleEsc, CancelsThePendingActionAndLeavesTheDrawingMode) {
  RecordedDrafting d;
  d.context.state.setDrawMode(-1);
  d.context.state.setPendingaction(9);
  Handle_esc(d.context);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.mode(), -1);
}

TEST(HandleEsc, WithoutAnActionADrawingModeStays) {
  RecordedDrafting d;
  mnuDrawRect_Click(d.context);
  d.press(1, 1, 1);
  d.log.take();
  Handle_esc(d.context);
  EXPECT_EQ(d.mode(), 6);
  EXPECT_TRUE(d.context.pointer.LeftDown);
  EXPECT_EQ(d.log.take(), "");
}

TEST(HandleEsc, InAStepForgetsTheFirstClick) {
  RecordedDrafting d;
  d.context.clickActions[16] = [](DraftingContext& context) {
    context.command.PendingSeg1 = 3;
    context.command.PendingSeg2 = 2;
    context.state.setPendingaction(goOnWith(PendingAction::TrimBy));
  };
  mnuEditTrimEntity_Click(d.context);
  d.click(1, 1);
  ASSERT_EQ(d.pending(), 17);
  ASSERT_EQ(d.context.command.PendingSeg1, 3);
  Handle_esc(d.context);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.command.PendingSeg1, 0);
  EXPECT_EQ(d.context.command.PendingSeg2, 0);
}

TEST(HandleEsc, RedrawsWhereABandMayBeOnTheScreenAndEndsTheDrag) {
  for (const int action : {24, 25, 28, 30}) {
    SCOPED_TRACE(action);
    RecordedDrafting d;
    d.context.state.setPendingaction(action);
    d.press(1, 0, 0);
    d.log.take();
    Handle_esc(d.context);
    EXPECT_EQ(d.log.count("Cls"), 1);
    EXPECT_FALSE(d.context.pointer.LeftDown);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(HandleEsc, OtherActionsNeedNoRedraw) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.press(1, 0, 0);
  d.log.take();
  Handle_esc(d.context);
  EXPECT_EQ(d.log.count("Cls"), 0);
  EXPECT_TRUE(d.context.pointer.LeftDown);
}

// ---- Zoom window and pan as interruptions

TEST(ZoomWindow, ShowsTheWindowAndRestoresSelecting) {
  RecordedDrafting d;
  mnuDrawUnselect_Click(d.context);
  d.viewCommands.mnuViewZoomWindow_Click();
  EXPECT_EQ(d.prompt(), "Select zoom window with mouse.");
  d.drag({0, 0}, {2.5F, 2});
  EXPECT_EQ(d.view.viewspan, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{1.25F, 1}));
  EXPECT_EQ(d.pending(), 25);
  EXPECT_EQ(d.mode(), -1);
  EXPECT_EQ(d.prompt(), "Click on entity or drag to unselect.");
}

TEST(ZoomWindow, LeavesADrawingModeAndItsHalfDoneCommand) {
  RecordedDrafting d;
  mnuDrawArc3P_Click(d.context);
  d.click(2, 0);
  d.viewCommands.mnuViewZoomWindow_Click();
  d.drag({0, 0}, {2.5F, 2});
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.mode(), 2);
  EXPECT_EQ(d.context.command.clickstage, 1);
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(ZoomWindow, ForgetsAPendingActionWithoutADrawingMode) {
  RecordedDrafting d;
  mnuEditBreakSeg_Click(d.context);
  d.viewCommands.mnuViewZoomWindow_Click();
  d.drag({0, 0}, {2.5F, 2});
  EXPECT_EQ(d.pending(), 0);
}

TEST(ZoomWindow, WithoutWidthTakesTheRatioOfItsHeightAlone) {
  RecordedDrafting d;
  d.viewCommands.mnuViewZoomWindow_Click();
  d.drag({1, 0}, {1, 2});
  EXPECT_EQ(d.view.viewspan, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{1, 1}));
}

TEST(ZoomWindow, WithoutHeightTakesTheRatioOfItsWidthAlone) {
  RecordedDrafting d;
  d.viewCommands.mnuViewZoomWindow_Click();
  d.drag({0, 1}, {5, 1});
  EXPECT_EQ(d.view.viewspan, 2);
}

TEST(ZoomWindow, ThatIsAPointOnlyRecenters) {
  RecordedDrafting d;
  d.viewCommands.mnuViewZoomWindow_Click();
  d.click(1, 2);
  EXPECT_EQ(d.view.viewspan, 4);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{1, 2}));
  EXPECT_EQ(d.pending(), 0);
}

TEST(Pan, MovesTheViewWithTheGrabbedPoint) {
  RecordedDrafting d;
  std::ofstream(d.appfolder() + "pansmall.ico") << "icon";
  d.viewCommands.mnuViewPan_Click();
  EXPECT_EQ(d.pressedTools(), Texts{"miPan"});
  EXPECT_EQ(d.pointer.MousePointer(), kCustomShape);
  d.press(1, 1, 1);
  d.move(1, 2, 1);  // the view follows: the pointer is on its grabbed point again
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, 0}));
  d.move(1, 1, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, 0}));
  d.release(1, 1, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, 0}));
  EXPECT_EQ(d.pending(), 29);
  EXPECT_EQ(d.pointer.MousePointer(), kCustomShape);
}

TEST(Pan, WithoutItsIconLeavesThePointer) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  EXPECT_EQ(d.pointer.MousePointer(), kDefaultShape);
}

TEST(Pan, AWholeDragIsInUnitsOfTheViewAtItsPress) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  d.press(1, 1, 1);
  for (const float x : {1.5F, 2.0F, 3.0F}) {
    picDrawing_MouseMove(d.context, inPresentView(d.context, {1, 0, x, 1}));
    EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{1 - x, 0}));
  }
  picDrawing_MouseUp(d.context, inPresentView(d.context, {1, 0, 3, 1}));
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-2, 0}));
  EXPECT_EQ(inPresentView(d.context, {0, 0, 3, 1}).X, 3);
}

TEST(Pan, AReleaseElsewhereMovesTheViewByTheWholeDrag) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  d.press(1, 1, 1);
  d.release(1, 1.5F, 0);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-0.5F, 1}));
  EXPECT_FALSE(d.context.pointer.LeftDown);
}

TEST(Pan, AMoveWithinTheToleranceLeavesTheView) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  d.press(1, 1, 1);
  d.move(1, 1.0005F, 1);
  EXPECT_EQ(d.view.viewcx, 0);
  d.move(1, 1.0015F, 1);
  EXPECT_NEAR(d.view.viewcx, -0.0015, 1e-7);
}

TEST(Pan, AClickLeavesTheViewAsItIs) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  d.click(1, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{0, 0}));
  EXPECT_EQ(d.pending(), 29);
}

TEST(Pan, ALostReleaseEndsTheDrag) {
  RecordedDrafting d;
  d.viewCommands.mnuViewPan_Click();
  d.press(1, 1, 1);
  d.move(0, 2, 1);
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, 0}));
  d.move(0, 3, 1);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, 0}));
}

TEST(Pan, SwitchedOffBringsBackTheInterruptedCommand) {
  RecordedDrafting d;
  mnuDrawSelect_Click(d.context);
  d.viewCommands.mnuViewPan_Click();
  d.viewCommands.mnuViewPan_Click();
  EXPECT_EQ(d.pending(), 24);
  EXPECT_EQ(d.mode(), -1);
  EXPECT_EQ(d.pressedTools(), Texts{"miSelect"});
}

TEST(Pan, SwitchedOffWithoutAnInterruptedModeArmsNothing) {
  RecordedDrafting d;
  mnuEditBreakSeg_Click(d.context);
  d.viewCommands.mnuViewPan_Click();
  d.viewCommands.mnuViewPan_Click();
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.pressedTools(), Texts{});
}

}  // namespace
}  // namespace tess
