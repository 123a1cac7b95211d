// Pointer events: guards, the snapped position, drags, warps and clicks by keyboard.
#include "drafting/pointer_events.h"

#include <fstream>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/measure.h"
#include "drafting/selection.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using Texts = std::vector<std::string>;

// ---- Menu guard

bool pressIsTaken(int msAfterMenu) {
  RecordedDrafting d;
  d.pass(5000);
  armMenuGuard(d.context);
  d.pass(msAfterMenu);
  d.press(1, 1, 1);
  return d.context.pointer.LeftDown;
}

TEST(MenuGuard, APressIsIgnoredForTheFirstFifthOfASecond) {
  EXPECT_FALSE(pressIsTaken(0));
  EXPECT_FALSE(pressIsTaken(199));
  EXPECT_TRUE(pressIsTaken(200));
}

bool releaseIsTaken(int msAfterMenu, int start) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.press(1, 1, 1);
  d.pass(start);
  armMenuGuard(d.context);
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
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.press(1, 1, 1);
  armMenuGuard(d.context);
  d.release(1, 1, 1);
  EXPECT_EQ(d.pending(), 9);
  d.press(1, 1, 1);
  d.release(1, 1, 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(MenuGuard, WhileSetSwallowsOnePressAndOneRelease) {
  RecordedDrafting d;
  d.context.pointer.MenuGuard = true;
  d.press(1, 1, 1);
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_FALSE(d.context.pointer.MenuGuard);
  d.press(1, 1, 1);
  EXPECT_TRUE(d.context.pointer.LeftDown);
  d.context.pointer.MenuGuard = true;
  d.release(1, 1, 1);
  EXPECT_TRUE(d.context.pointer.LeftDown);
  d.release(1, 1, 1);
  EXPECT_FALSE(d.context.pointer.LeftDown);
}

TEST(MenuGuard, HoldsNoRightPress) {
  RecordedDrafting d;
  armMenuGuard(d.context);
  d.press(2, 1, 1);
  EXPECT_TRUE(d.context.pointer.RightDown);
}

// ---- Press

TEST(Press, TakesTheLeftButtonsPlaceForThePressAndTheBand) {
  RecordedDrafting d;
  d.press(1, 1.25F, -2);
  EXPECT_TRUE(d.context.pointer.LeftDown);
  EXPECT_EQ((Point{d.context.pointer.MouseDownX, d.context.pointer.MouseDownY}),
            (Point{1.25F, -2}));
  EXPECT_EQ((Point{d.context.pointer.MouseMoveX, d.context.pointer.MouseMoveY}),
            (Point{1.25F, -2}));
}

TEST(Press, WithControlIsNoPress) {
  RecordedDrafting d;
  d.press(1, 1, 1, 2);
  d.press(2, 1, 1, 2);
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_FALSE(d.context.pointer.RightDown);
}

TEST(Press, OfAnotherButtonIsNone) {
  RecordedDrafting d;
  d.press(4, 1, 1);
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_FALSE(d.context.pointer.RightDown);
}

TEST(Press, WhilePlacingTextResetsTheTextDrag) {
  RecordedDrafting d;
  d.context.state.setPendingaction(30);
  d.press(1, 1, 1);
  EXPECT_EQ(d.textEvents, Texts{"drag reset"});
}

// ---- Position

TEST(PointerPosition, FollowsTheEventAndShowsInThePanels) {
  RecordedDrafting d;
  d.move(0, 1.23456F, -2);
  EXPECT_EQ(d.mouse(), (Point{1.23456F, -2}));
  EXPECT_EQ(d.panel(StatusPanel::X), "X: 1.2346");
  EXPECT_EQ(d.panel(StatusPanel::Y), "Y: -2.0000");
}

struct GridCase {
  float at, snapped;
};

TEST(PointerPosition, SnapsToTheCursorGridHalvesUpward) {
  RecordedDrafting d;
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
  RecordedDrafting d;
  d.store.cursorgridf = 1;
  d.move(0, 0.3F, 0);
  EXPECT_EQ(d.mouse().x, 0.3F);
}

TEST(PointerPosition, AnEventAtTheSamePlaceToSixDecimalsLeavesIt) {
  RecordedDrafting d;
  d.move(0, 0.5F, 0.5F);
  d.context.pointer.MouseX = 3;
  d.move(0, 0.5000001F, 0.5F);
  EXPECT_EQ(d.mouse().x, 3);
  d.move(0, 0.500002F, 0.5F);
  EXPECT_EQ(d.mouse().x, 0.500002F);
}

TEST(PointerPosition, AReleaseSnapsToTheGrid) {
  RecordedDrafting d;
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  d.context.state.setPendingaction(9);
  d.press(1, 0, 0);
  d.release(1, 0.8F, 0.2F);
  EXPECT_EQ(d.mouse(), (Point{1, 0}));
}

TEST(PointerPosition, AReleaseOnAFeatureIgnoresTheGrid) {
  RecordedDrafting d;
  d.addLine(0.6F, 0.1F, 3, 3);
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  d.context.state.UpdateOSnapFeature(/*once=*/true, 1);
  mnuDrawLine_Click(d.context);
  d.context.state.UpdateOSnapFeature(/*once=*/true, 1);
  d.press(1, 0.8F, 0.2F);
  d.move(1, 0.7F, 0.2F);
  ASSERT_TRUE(d.context.state.FeaturePoint());
  d.release(1, 0.7F, 0.2F);
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(0.6, 0.1)");
}

TEST(PointerPosition, AReleaseExactlyOnAFeatureIgnoresTheGridToo) {
  RecordedDrafting d;
  d.addLine(0.6F, 0.1F, 3, 3);
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  mnuDrawLine_Click(d.context);
  d.context.state.UpdateOSnapFeature(/*once=*/true, 1);
  d.drag({0.8F, 0.2F}, {0.6F, 0.1F});
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(0.6, 0.1)");
}

// ---- Focus and capture

TEST(Move, GivesTheSurfaceTheKeyboardUnlessTextIsPlaced) {
  RecordedDrafting d;
  d.log.take();
  d.move(0, 1, 1);
  EXPECT_EQ(d.log.take(), "focusSurface\n");
  d.context.state.setPendingaction(30);
  d.move(0, 2, 1);
  EXPECT_EQ(d.log.take(), "");
  EXPECT_EQ(d.textEvents, Texts{"pointer 0 0 (2, 1)"});
}

TEST(Release, WhilePlacingTextPassesTheEventOnAndEnds) {
  RecordedDrafting d;
  d.context.state.setPendingaction(30);
  d.press(1, 1, 1);
  d.log.take();
  d.release(1, 2, 1, 1);
  EXPECT_EQ(d.textEvents, (Texts{"drag reset", "release 1 1 (2, 1)"}));
  EXPECT_EQ(d.pending(), 30);
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_EQ(d.log.take(), "MousePointer 0\nreleaseCapture\n");
}

// ---- Pan with the control key

TEST(ControlDrag, MovesTheViewWithTheGrabbedPoint) {
  RecordedDrafting d;
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
  RecordedDrafting d;
  d.press(1, 1, 1, 2);
  d.move(1, 1.0005F, 1, 2);
  EXPECT_NEAR(d.view.viewcx, -0.0005, 1e-7);
}

TEST(ControlDrag, MayBeStatedInUnitsOfTheViewAtItsPress) {
  RecordedDrafting d;
  d.press(1, 1, 1, 2);
  for (const float x : {2.0F, 3.0F}) {
    picDrawing_MouseMove(d.context, inPresentView(d.context, {1, 2, x, 1}));
  }
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{-2, 0}));
}

TEST(ControlDrag, LeavesTheViewWhileAnActionIsArmed) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.press(1, 1, 1, 2);
  d.move(1, 2, 3, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{0, 0}));
}

TEST(ControlDrag, LeavesTheViewWhileABandIsOnTheScreen) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.press(1, 1, 1);
  d.move(1, 2, 3, 2);
  EXPECT_EQ((Point{d.view.viewcx, d.view.viewcy}), (Point{0, 0}));
  EXPECT_EQ(d.context.pointer.RubberKind, 1);
}

// ---- Pointer warp

TEST(GridSnapTimer, WarpsThePointerToTheGridAfterAPauseInADrag) {
  RecordedDrafting d;
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
  RecordedDrafting d;
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
  RecordedDrafting d;
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
  RecordedDrafting d;
  d.pointer.overSurface = false;
  d.press(1, 0, 0);
  d.move(1, 1, 1);
  d.pass(400);
  EXPECT_EQ(d.log.count("warp"), 0);
}

TEST(Msetpos, PutsThePointerOnTheNearestPixel) {
  RecordedDrafting d;
  d.log.take();
  msetpos(d.context, 1.004F, -2.006F);
  EXPECT_EQ(d.log.take(), "warp (600, 601)\n");
}

// ---- Selection drags

TEST(SelectionDrag, OfNinePixelsBothWaysIsAClick) {
  RecordedDrafting d;
  d.addLine(3, 3, 4, 3);
  mnuDrawSelect_Click(d.context);
  d.drag({0, 0}, {0.09F, 0.09F});
  EXPECT_EQ(d.store.segattr[1], 30008);
}

TEST(SelectionDrag, WhosePressAMenuSwallowedPicksNothing) {
  RecordedDrafting d;
  d.addLine(1, 1, 2, 1);
  mnuDrawSelect_Click(d.context);
  d.drag({3, 3}, {0, 0});
  mnuDrawUnselect_Click(d.context);
  armMenuGuard(d.context);
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
    RecordedDrafting d;
    d.addLine(3, 3, 4, 3);
    mnuDrawSelect_Click(d.context);
    d.drag({0, 0}, to);
    EXPECT_EQ(d.store.segattr[1], 8);
    EXPECT_FALSE(d.context.pointer.LeftDown);
    EXPECT_EQ(d.pending(), 24);
  }
}

TEST(SelectionDrag, ShowsADottedInvertedBoxAndTakesItAway) {
  RecordedDrafting d;
  mnuDrawSelect_Click(d.context);
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
  RecordedDrafting d;
  d.addLine(3, 3, 4, 3);
  d.addLine(0, 0, 1, 0);
  mnuDrawSelect_Click(d.context);
  d.click(0.5F, 0.1F);
  EXPECT_EQ(d.entitiesShown, std::vector<int>{2});
  d.context.command.EditPaths = true;
  d.click(0.6F, 0.1F);
  EXPECT_EQ(d.entitiesShown, std::vector<int>{2});
}

TEST(Release, RefreshesThePropertyWindow) {
  RecordedDrafting d;
  d.click(1, 1);
  EXPECT_EQ(d.propertyRefreshes, 1);
}

// ---- Clicks by keyboard

TEST(KeyboardClick, CompletesAnActionAtThePresentPosition) {
  RecordedDrafting d;
  d.move(0, 2, 1);
  mnuDrawLine_Click(d.context);
  keyboardClick(d.context, kLeftButton);
  EXPECT_EQ(testing::segmentTexts(d.store), Texts{"1 (0, 0)-(2, 1)"});
}

TEST(KeyboardClick, WithTheRightButtonMovesTheMarker) {
  RecordedDrafting d;
  d.move(0, 2, 1);
  keyboardClick(d.context, kRightButton);
  EXPECT_EQ(d.marker(), (Point{2, 1}));
}

TEST(KeyboardClick, KeepsAPositionThatIsOffTheGrid) {
  RecordedDrafting d;
  d.move(0, 2.3F, 1.2F);
  d.store.cursorgrid = 1;
  d.store.cursorgridf = 1;
  keyboardClick(d.context, kRightButton);
  EXPECT_EQ(d.marker(), (Point{2.3F, 1.2F}));
  EXPECT_FALSE(d.context.pointer.SkipPointerUpdate);
}

// ---- A form that picks

TEST(FormClick, HasTheLeftPressAndLeavesTheRestAlone) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  std::vector<Point> clicks;
  d.context.onFormClick = [&clicks](Point at) { clicks.push_back(at); };
  d.click(1, 2);
  d.rightClick(3, 3);
  d.drag({0, 0}, {2, 2});
  EXPECT_EQ(clicks, (std::vector<Point>{{1, 2}, {0, 0}}));
  EXPECT_EQ(d.pending(), 9);
  EXPECT_EQ(d.mouse(), Point{});
  EXPECT_FALSE(d.context.pointer.LeftDown);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(FormClick, IsFollowedByTheDragUntilTheRelease) {
  RecordedDrafting d;
  std::vector<Point> drags;
  d.context.onFormClick = [](Point) {};
  d.context.onFormDrag = [&drags](Point to) { drags.push_back(to); };
  d.move(0, 3, 3);
  d.drag({0, 0}, {2, 2});
  d.move(0, 4, 4);
  d.press(kRightButton, 1, 1);
  d.move(kRightButton, 2, 1);
  EXPECT_EQ(drags, (std::vector<Point>{{1, 1}, {2, 2}}));
}

TEST(FormClick, EndsWithTheReleaseOfThePressThatTheFormTook) {
  RecordedDrafting d;
  d.context.state.setPendingaction(9);
  d.context.onFormClick = [&d](Point) { d.context.onFormClick = nullptr; };
  d.press(kLeftButton, 1, 1);
  d.move(kLeftButton, 2, 2);
  EXPECT_EQ(d.mouse(), Point{});
  d.release(kLeftButton, 2, 2);
  EXPECT_EQ(d.pending(), 9);
  d.move(0, 2, 2);
  EXPECT_EQ(d.mouse(), (Point{2, 2}));
  d.press(kLeftButton, 2, 2);
  d.release(kLeftButton, 2, 2);
  EXPECT_EQ(d.pending(), 0);
}

// ---- Wheel

TEST(MouseWheel, MattersOnlyWhilePlacingText) {
  RecordedDrafting d;
  MouseWheel1_MouseWheel(d.context, 1, 0);
  EXPECT_EQ(d.textEvents, Texts{});
  d.context.state.setPendingaction(30);
  MouseWheel1_MouseWheel(d.context, -1, 2);
  EXPECT_EQ(d.textEvents, Texts{"wheel -1 2"});
}

TEST(MouseWheel, PassesAnEventOnFiftyMillisecondsAfterTheLast) {
  RecordedDrafting d;
  d.context.state.setPendingaction(30);
  MouseWheel1_MouseWheel(d.context, 1, 0);
  d.pass(49);
  MouseWheel1_MouseWheel(d.context, 2, 0);
  d.pass(1);
  MouseWheel1_MouseWheel(d.context, 3, 0);
  EXPECT_EQ(d.textEvents, (Texts{"wheel 1 0", "wheel 3 0"}));
}

}  // namespace
}  // namespace tess
