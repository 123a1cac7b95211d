// Pointer events: guards, the snapped position, drags, warps and clicks by keyboard.
#include "drafting/pointer_events.h"

#include <fstream>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/measure.h"
#include "drafting/selection.h"
#include "tests/support/drafting_desk.h"

namespace tess {
namespace {

using testing::RecordedDesk;
using Texts = std::vector<std::string>;

// ---- Menu guard

bool pressIsTaken(int msAfterMenu) {
  RecordedDesk d;
  d.pass(5000);
  armMenuGuard(d.desk);
  d.pass(msAfterMenu);
  d.press(1, 1, 1);
  return d.desk.pointer.LeftDown;
}

TEST(MenuGuard, APressIsIgnoredForTheFirstFifthOfASecond) {
  EXPECT_FALSE(pressIsTaken(0));
  EXPECT_FALSE(pressIsTaken(199));
  EXPECT_TRUE(pressIsTaken(200));
}

bool releaseIsTaken(int msAfterMenu, int start) {
  RecordedDesk d;
  d.desk.state.setPendingaction(9);
  d.press(1, 1, 1);
  d.pass(start);
  armMenuGuard(d.desk);
  d.pass(msAfterMenu);
  d.release(1, 1, 1);
  return d.pending() == 0;
}

TEST(MenuGuard, AReleaseAfter290MillisecondsIsIgnoredAndOneAfter300IsNot) {
  for (const int start : {0, 100, 1100, 123457}) {
    SCOPED_TRACE(start);
    EXPECT_FALSE(releaseIsTaken(290, start));
    EXPECT_FALSE(releaseIsTaken(299, start));
    EXPECT_TRUE(releaseIsTaken(300, start));
  }
}

TEST(MenuGuard, IsUsedUpByTheReleaseThatItSwallows) {
  RecordedDesk d;
  d.desk.state.setPendingaction(9);
  d.press(1, 1, 1);
  armMenuGuard(d.desk);
  d.release(1, 1, 1);
  EXPECT_EQ(d.pending(), 9);
  d.press(1, 1, 1);
  d.release(1, 1, 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(MenuGuard, WhileSetSwallowsOnePressAndOneRelease) {
  RecordedDesk d;
  d.desk.pointer.MenuGuard = true;
  d.press(1, 1, 1);
  EXPECT_FALSE(d.desk.pointer.LeftDown);
  EXPECT_FALSE(d.desk.pointer.MenuGuard);
  d.press(1, 1, 1);
  EXPECT_TRUE(d.desk.pointer.LeftDown);
  d.desk.pointer.MenuGuard = true;
  d.release(1, 1, 1);
  EXPECT_TRUE(d.desk.pointer.LeftDown);
  d.release(1, 1, 1);
  EXPECT_FALSE(d.desk.pointer.LeftDown);
}

TEST(MenuGuard, HoldsNoRightPress) {
  RecordedDesk d;
  armMenuGuard(d.desk);
  d.press(2, 1, 1);
  EXPECT_TRUE(d.desk.pointer.RightDown);
}

// ---- Press

TEST(Press, TakesTheLeftButtonsPlaceForThePressAndTheBand) {
  RecordedDesk d;
  d.press(1, 1.25F, -2);
  EXPECT_TRUE(d.desk.pointer.LeftDown);
  EXPECT_EQ((Point{d.desk.pointer.MouseDownX, d.desk.pointer.MouseDownY}), (Point{1.25F, -2}));
  EXPECT_EQ((Point{d.desk.pointer.MouseMoveX, d.desk.pointer.MouseMoveY}), (Point{1.25F, -2}));
}

TEST(Press, WithControlIsNoPress) {
  RecordedDesk d;
  d.press(1, 1, 1, 2);
  d.press(2, 1, 1, 2);
  EXPECT_FALSE(d.desk.pointer.LeftDown);
  EXPECT_FALSE(d.desk.pointer.RightDown);
}

TEST(Press, OfAnotherButtonIsNone) {
  RecordedDesk d;
  d.press(4, 1, 1);
  EXPECT_FALSE(d.desk.pointer.LeftDown);
  EXPECT_FALSE(d.desk.pointer.RightDown);
}

TEST(Press, WhilePlacingTextResetsTheTextDrag) {
  RecordedDesk d;
  d.desk.state.setPendingaction(30);
  d.press(1, 1, 1);
  EXPECT_EQ(d.textEvents, Texts{"drag reset"});
}

// ---- Position

TEST(PointerPosition, FollowsTheEventAndShowsInThePanels) {
  RecordedDesk d;
  d.move(0, 1.23456F, -2);
  EXPECT_EQ(d.mouse(), (Point{1.23456F, -2}));
  EXPECT_EQ(d.panel(StatusPanel::X), "X: 1.2346");
  EXPECT_EQ(d.panel(StatusPanel::Y), "Y: -2.0000");
}

struct GridCase {
  float at, snapped;
};

TEST(PointerPosition, SnapsToTheCursorGridHalvesUpward) {
  RecordedDesk d;
  d.store.cursorgrid = 0.25F;
  d.store.cursorgridf = 1;
  constexpr GridCase kCases[] = {{0.125F, 0.25F},  {-0.125F, 0},    {0.12F, 0},
                                 {-0.13F, -0.25F}, {1.374F, 1.25F}, {1.375F, 1.5F}};
  for (const GridCase& row : kCases) {
    d.move(0, row.at, 0);
    EXPECT_EQ(d.mouse().x, row.snapped) << row.at;
    d.move(0, 0.6F, row.at);
    EXPECT_EQ(d.mouse().y, row.snapped) << row.at;
  }
}

TEST(PointerPosition, AGridWithoutSpacingSnapsNothing) {
  RecordedDesk d;
  d.store.cursorgridf = 1;
  d.move(0, 0.3F, 0);
  EXPECT_EQ(d.mouse().x, 0.3F);
}

TEST(PointerPosition, AnEventAtTheSamePlaceToSixDecimalsLeavesIt) {
  RecordedDesk d;
  d.move(0, 0.5F, 0.5F);
  d.desk.pointer.MouseX = 3;
  d.move(0, 0.5000001F, 0.5F);
  EXPECT_EQ(d.mouse().x, 3);
  d.move(0, 0.500002F, 0.5F);
  EXPECT_EQ(d.mouse().x, 0.500002F);
}

TEST(PointerPosition, AReleaseSnapsToTheGrid) {
  RecordedDesk d;
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  d.desk.state.setPendingaction(9);
  d.press(1, 0, 0);
  d.release(1, 0.8F, 0.2F);
  EXPECT_EQ(d.mouse(), (Point{1, 0}));
}

TEST(PointerPosition, AReleaseOnAFeatureIgnoresTheGrid) {
  RecordedDesk d;
  d.addLine(0.6F, 0.1F, 3, 3);
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  d.desk.state.UpdateOSnapFeature(/*once=*/true, 1);
  mnuDrawLine_Click(d.desk);
  d.desk.state.UpdateOSnapFeature(/*once=*/true, 1);
  d.press(1, 0.8F, 0.2F);
  d.move(1, 0.7F, 0.2F);
  ASSERT_TRUE(d.desk.state.FeaturePoint());
  d.release(1, 0.7F, 0.2F);
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(0.6, 0.1)");
}

TEST(PointerPosition, AReleaseExactlyOnAFeatureIgnoresTheGridToo) {
  RecordedDesk d;
  d.addLine(0.6F, 0.1F, 3, 3);
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  mnuDrawLine_Click(d.desk);
  d.desk.state.UpdateOSnapFeature(/*once=*/true, 1);
  d.drag({0.8F, 0.2F}, {0.6F, 0.1F});
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(0.6, 0.1)");
}

// ---- Focus and capture

TEST(Move, GivesTheSurfaceTheKeyboardUnlessTextIsPlaced) {
  RecordedDesk d;
  d.log.take();
  d.move(0, 1, 1);
  EXPECT_EQ(d.log.take(), "focusSurface\n");
  d.desk.state.setPendingaction(30);
  d.move(0, 2, 1);
  EXPECT_EQ(d.log.take(), "");
  EXPECT_EQ(d.textEvents, Texts{"pointer 0 0 (2, 1)"});
}

TEST(Release, WhilePlacingTextPassesTheEventOnAndEnds) {
  RecordedDesk d;
  d.desk.state.setPendingaction(30);
  d.press(1, 1, 1);
  d.log.take();
  d.release(1, 2, 1, 1);
  EXPECT_EQ(d.textEvents, (Texts{"drag reset", "pointer 1 1 (2, 1)"}));
  EXPECT_EQ(d.pending(), 30);
  EXPECT_FALSE(d.desk.pointer.LeftDown);
  EXPECT_EQ(d.log.take(), "MousePointer 0\nreleaseCapture\n");
}

// ---- Pan with the control key

TEST(ControlDrag, MovesTheViewWithTheGrabbedPoint) {
  RecordedDesk d;
  std::ofstream(d.appfolder() + "pansmall.ico") << "icon";
  d.press(1, 1, 1, 2);
  d.move(1, 2, 3, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-1, -2}));
  EXPECT_EQ(d.pointer.MousePointer(), kCustomShape);
  d.move(1, 2, 1, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-2, -2}));
  d.release(1, 1, 1, 2);
  EXPECT_EQ(d.pointer.MousePointer(), kDefaultShape);
}

TEST(ControlDrag, FollowsThePointerWithinTheTolerance) {
  RecordedDesk d;
  d.press(1, 1, 1, 2);
  d.move(1, 1.0005F, 1, 2);
  EXPECT_NEAR(d.view.viewcx, -0.0005, 1e-7);
}

TEST(ControlDrag, MayBeStatedInUnitsOfTheViewAtItsPress) {
  RecordedDesk d;
  d.press(1, 1, 1, 2);
  for (const float x : {2.0F, 3.0F}) {
    picDrawing_MouseMove(d.desk, inPresentView(d.desk, {1, 2, x, 1}));
  }
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-2, 0}));
}

TEST(ControlDrag, LeavesTheViewWhileAnActionIsArmed) {
  RecordedDesk d;
  d.desk.state.setPendingaction(9);
  d.press(1, 1, 1, 2);
  d.move(1, 2, 3, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{0, 0}));
}

TEST(ControlDrag, LeavesTheViewWhileABandIsOnTheScreen) {
  RecordedDesk d;
  mnuDrawLine_Click(d.desk);
  d.press(1, 1, 1);
  d.move(1, 2, 3, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{0, 0}));
  EXPECT_EQ(d.desk.pointer.RubberKind, 1);
}

// ---- Pointer warp

TEST(GridSnapTimer, WarpsThePointerToTheGridAfterAPauseInADrag) {
  RecordedDesk d;
  d.store.cursorgrid = 1;
  d.store.cursorgridf = 1;
  d.press(1, 0, 0);
  d.move(1, 1.8F, 1.1F);
  d.log.take();
  d.pass(374);
  EXPECT_EQ(d.log.count("warp"), 0);
  d.pass(1);
  EXPECT_EQ(d.log.take(), "warp (700, 300)\nfocusSurface\n");
  d.pass(1000);
  EXPECT_EQ(d.log.count("warp"), 0);
}

TEST(GridSnapTimer, StartsAnewWithEachMoveOfADrag) {
  RecordedDesk d;
  d.store.cursorgrid = 1;
  d.store.cursorgridf = 1;
  d.press(1, 0, 0);
  d.move(1, 1.8F, 1.1F);
  d.pass(300);
  d.move(1, 1.9F, 1.1F);
  d.log.take();
  d.pass(374);
  EXPECT_EQ(d.log.count("warp"), 0);
  d.pass(1);
  EXPECT_EQ(d.log.count("warp"), 1);
}

TEST(GridSnapTimer, RunsNeitherWithAModifierNorWithoutAButtonNorAfterTheRelease) {
  RecordedDesk d;
  d.press(1, 0, 0);
  d.move(1, 1, 1);
  d.move(1, 2, 1, 1);
  d.pass(400);
  d.move(1, 1, 1);
  d.move(0, 2, 1);
  d.pass(400);
  d.move(1, 1, 1);
  d.release(1, 1, 1);
  d.pass(400);
  EXPECT_EQ(d.log.count("warp"), 0);
}

TEST(GridSnapTimer, LeavesAPointerThatIsElsewhere) {
  RecordedDesk d;
  d.pointer.overSurface = false;
  d.press(1, 0, 0);
  d.move(1, 1, 1);
  d.pass(400);
  EXPECT_EQ(d.log.count("warp"), 0);
}

TEST(Msetpos, PutsThePointerOnTheNearestPixel) {
  RecordedDesk d;
  d.log.take();
  msetpos(d.desk, 1.004F, -2.006F);
  EXPECT_EQ(d.log.take(), "warp (600, 601)\n");
}

// ---- Selection drags

TEST(SelectionDrag, OfNinePixelsBothWaysIsAClick) {
  RecordedDesk d;
  d.addLine(3, 3, 4, 3);
  mnuDrawSelect_Click(d.desk);
  d.drag({0, 0}, {0.09F, 0.09F});
  EXPECT_EQ(d.store.segattr[1], 30008);
}

TEST(SelectionDrag, WhosePressAMenuSwallowedPicksNothing) {
  RecordedDesk d;
  d.addLine(1, 1, 2, 1);
  mnuDrawSelect_Click(d.desk);
  d.drag({3, 3}, {0, 0});
  mnuDrawUnselect_Click(d.desk);
  armMenuGuard(d.desk);
  d.pass(100);
  d.press(1, 4, 4);
  d.move(1, 4.5F, 4);
  d.pass(250);
  d.release(1, 4.5F, 4);
  EXPECT_EQ(d.store.segattr[1], 30008);
  EXPECT_EQ(d.pending(), 25);
}

TEST(SelectionDrag, OfTenPixelsInOneAxisIsAWindow) {
  for (const Point to : {Point{0.1F, 0}, Point{0, -0.1F}}) {
    RecordedDesk d;
    d.addLine(3, 3, 4, 3);
    mnuDrawSelect_Click(d.desk);
    d.drag({0, 0}, to);
    EXPECT_EQ(d.store.segattr[1], 8);
    EXPECT_FALSE(d.desk.pointer.LeftDown);
    EXPECT_EQ(d.pending(), 24);
  }
}

TEST(SelectionDrag, ShowsADottedInvertedBoxAndTakesItAway) {
  RecordedDesk d;
  mnuDrawSelect_Click(d.desk);
  d.press(1, 0, 0);
  d.log.take();
  d.move(1, 1, 1);
  d.move(1, 2, 1);
  d.release(1, 2, 1);
  Texts boxes;
  for (const std::string& line : d.log.lines) {
    if (line.starts_with("box") || line.starts_with("Draw")) boxes.push_back(line);
  }
  const Texts pen = {"DrawMode 10", "DrawStyle 2"};
  const Texts plain = {"DrawMode 13", "DrawStyle 0"};
  Texts expected;
  for (const char* const box : {"box (0, 0)-(1, 1) #000000", "box (0, 0)-(1, 1) #000000",
                                "box (0, 0)-(2, 1) #000000", "box (0, 0)-(2, 1) #000000"}) {
    expected.insert(expected.end(), pen.begin(), pen.end());
    expected.emplace_back(box);
    expected.insert(expected.end(), plain.begin(), plain.end());
  }
  EXPECT_EQ(boxes, expected);
}

TEST(Release, WhileSelectingShowsTheNearestEntityInThePropertyWindow) {
  RecordedDesk d;
  d.addLine(3, 3, 4, 3);
  d.addLine(0, 0, 1, 0);
  mnuDrawSelect_Click(d.desk);
  d.click(0.5F, 0.1F);
  EXPECT_EQ(d.entitiesShown, std::vector<int>{2});
  d.desk.command.EditPaths = true;
  d.click(0.6F, 0.1F);
  EXPECT_EQ(d.entitiesShown, std::vector<int>{2});
}

TEST(Release, RefreshesThePropertyWindow) {
  RecordedDesk d;
  d.click(1, 1);
  EXPECT_EQ(d.propertyRefreshes, 1);
}

// ---- Clicks by keyboard

TEST(KeyboardClick, CompletesAnActionAtThePresentPosition) {
  RecordedDesk d;
  d.move(0, 2, 1);
  mnuDrawLine_Click(d.desk);
  keyboardClick(d.desk, kLeftButton);
  EXPECT_EQ(testing::segmentTexts(d.store), Texts{"1 (0, 0)-(2, 1)"});
}

TEST(KeyboardClick, WithTheRightButtonMovesTheMarker) {
  RecordedDesk d;
  d.move(0, 2, 1);
  keyboardClick(d.desk, kRightButton);
  EXPECT_EQ(d.marker(), (Point{2, 1}));
}

TEST(KeyboardClick, KeepsAPositionThatIsOffTheGrid) {
  RecordedDesk d;
  d.move(0, 2.3F, 1.2F);
  d.store.cursorgrid = 1;
  d.store.cursorgridf = 1;
  keyboardClick(d.desk, kRightButton);
  EXPECT_EQ(d.marker(), (Point{2.3F, 1.2F}));
  EXPECT_FALSE(d.desk.pointer.SkipPointerUpdate);
}

// ---- Wheel

TEST(MouseWheel, MattersOnlyWhilePlacingText) {
  RecordedDesk d;
  MouseWheel1_MouseWheel(d.desk, 1, 0);
  EXPECT_EQ(d.textEvents, Texts{});
  d.desk.state.setPendingaction(30);
  MouseWheel1_MouseWheel(d.desk, -1, 2);
  EXPECT_EQ(d.textEvents, Texts{"wheel -1 2"});
}

TEST(MouseWheel, PassesAnEventOnFiftyMillisecondsAfterTheLast) {
  RecordedDesk d;
  d.desk.state.setPendingaction(30);
  MouseWheel1_MouseWheel(d.desk, 1, 0);
  d.pass(49);
  MouseWheel1_MouseWheel(d.desk, 2, 0);
  d.pass(1);
  MouseWheel1_MouseWheel(d.desk, 3, 0);
  EXPECT_EQ(d.textEvents, (Texts{"wheel 1 0", "wheel 3 0"}));
}

}  // namespace
}  // namespace tess
