// The commands that change the view.
#include "display/view_commands.h"

#include <cmath>

#include "core/drawing_store.h"
#include "tests/display/display_bench.h"
#include "tests/display/view_fakes.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::DisplayBench;
using testing::FakeAction;
using testing::FakeHost;

class ViewCommandsTest : public DisplayBench {
 protected:
  ViewCommandsTest() {
    store.partdimx = 4;
    store.partdimy = 4;
    store.xorigin = 1;
    store.yorigin = 1;
  }

  void expectCenter(float x, float y) {
    EXPECT_FLOAT_EQ(view.viewcx, x);
    EXPECT_FLOAT_EQ(view.viewcy, y);
  }
  bool redrawnAtOnce() { return log.count("Cls") > 0; }

  FakeAction armed;
  FakeHost host{log};
  ViewCommands commands{{store, view, redraw, screen, pointer, surroundings, host, armed}};
};

TEST_F(ViewCommandsTest, FitviewShowsTheStockAndQueuesARedraw) {
  commands.fitview(/*keepview=*/false);
  EXPECT_EQ(log.take(), "Move (0, 50) 1000 x 800\n");
  EXPECT_EQ(view.picwidth, 1000);
  EXPECT_EQ(view.picheight, 800);
  EXPECT_EQ(view.viewspan, 2.6F);
  EXPECT_EQ(view.homespan, 2.6F);
  expectCenter(2, 2);
  EXPECT_EQ(redraw.TaskQueueState(), 1);
  timers.advance(50);
  EXPECT_TRUE(redrawnAtOnce());
}

TEST_F(ViewCommandsTest, ResizingKeepsCenterAndSpan) {
  commands.fitview(/*keepview=*/false);
  view.viewcx = 7;
  view.viewspan = 1;
  host.area = {0, 0, 500, 800};
  commands.fitview(/*keepview=*/true);
  expectCenter(7, 2);
  EXPECT_EQ(view.viewspan, 1);
  EXPECT_EQ(view.homespan, 2.6F);
  EXPECT_EQ(redraw.TaskQueueState(), 1);
}

TEST_F(ViewCommandsTest, ResizingSwitchesTheAspectByTheStockAndNotByTheZoom) {
  host.area = {0, 0, 1600, 800};
  commands.fitview(/*keepview=*/false);
  EXPECT_EQ(view.aspecty, 1);
  EXPECT_EQ(view.aspectx, 2);
  view.viewspan = 0.1F;
  host.area = {0, 0, 800, 800};
  commands.fitview(/*keepview=*/true);
  EXPECT_EQ(view.aspectx, 1);
  EXPECT_EQ(view.aspecty, 1);
  host.area = {0, 0, 400, 800};
  commands.fitview(/*keepview=*/true);
  EXPECT_EQ(view.aspectx, 1);
  EXPECT_EQ(view.aspecty, 2);
}

TEST_F(ViewCommandsTest, AStockWiderThanTheSurfaceIsFittedByWidth) {
  store.partdimx = 10;
  commands.fitview(/*keepview=*/false);
  EXPECT_EQ(view.viewspan, 6.5F);
  EXPECT_EQ(view.aspectx, 1);
}

TEST_F(ViewCommandsTest, ASurfaceWithoutExtentFails) {
  host.area = {0, 0, 0, 0};
  EXPECT_THROW(commands.fitview(/*keepview=*/false), RuntimeFailure);
  takeCallChain();
}

TEST_F(ViewCommandsTest, RecoverTakesTheSizeAnew) {
  surface.Move({0, 0, 640, 480});
  view.zoomfactor = 8;
  commands.recover();
  EXPECT_EQ(view.picwidth, 640);
  EXPECT_EQ(view.picheight, 480);
  EXPECT_EQ(view.zoomfactor, 1);
}

TEST_F(ViewCommandsTest, SetviewKeepsAMissingCoordinate) {
  commands.setview(2, {});
  expectCenter(2, 0);
  commands.setview({}, 3);
  expectCenter(2, 3);
  commands.setview();
  expectCenter(2, 3);
  EXPECT_EQ(log.count("Cls"), 3);
}

TEST_F(ViewCommandsTest, SetviewComputesTheZoomFactor) {
  view.viewspan = 1;
  commands.setview();
  EXPECT_EQ(view.zoomfactor, 4);
}

TEST_F(ViewCommandsTest, SetviewWithoutSpanFails) {
  view.viewspan = 0;
  EXPECT_THROW(commands.setview(), RuntimeFailure);
  takeCallChain();
}

TEST_F(ViewCommandsTest, ZoomInHalvesTheSpanAboutThePoint) {
  commands.Zoom_In(1, -2);
  EXPECT_EQ(view.viewspan, 2);
  EXPECT_EQ(view.zoomfactor, 2);
  expectCenter(1, -2);
}

TEST_F(ViewCommandsTest, ZoomInReachesSixtyFourAndIsThenRefused) {
  view.viewspan = view.homespan / 32;
  commands.Zoom_In(0, 0);
  EXPECT_EQ(view.zoomfactor, 64);
  log.take();
  commands.Zoom_In(1, 1);
  EXPECT_EQ(view.viewspan, view.homespan / 64);
  expectCenter(0, 0);
  EXPECT_EQ(log.take(), "");
}

TEST_F(ViewCommandsTest, ZoomInAtZeroNeverRecenters) {
  view.viewcx = 3;
  view.viewcy = 2;
  commands.Zoom_In(0, 0);
  expectCenter(3, 2);
  commands.Zoom_In(0, 1);  // not both zero
  expectCenter(0, 1);
}

TEST_F(ViewCommandsTest, ZoomOutIsUnbounded) {
  for (int i = 0; i < 100; ++i) commands.Zoom_out(0, 0);
  EXPECT_EQ(view.viewspan, std::ldexp(4.0F, 100));
  EXPECT_EQ(view.zoomfactor, std::ldexp(1.0F, -100));
  commands.Zoom_out(5, 6);
  expectCenter(5, 6);
}

TEST_F(ViewCommandsTest, ZoomOutBeyondTheNumbersOverflows) {
  view.viewspan = 3e38F;
  EXPECT_THROW(commands.Zoom_out(0, 0), RuntimeFailure);
  takeCallChain();
  EXPECT_EQ(view.viewspan, 3e38F);
}

TEST_F(ViewCommandsTest, WhileTextIsPlacedTheZoomStepsAreInert) {
  armed.pending = 30;
  commands.Zoom_In(1, 1);
  commands.Zoom_out(1, 1);
  commands.mnuViewZoomIn_Click();
  commands.mnuViewZoomOut_Click();
  EXPECT_EQ(view.viewspan, 4);
  EXPECT_EQ(log.take(), "");
}

struct WindowCase {
  const char* name;
  double x0, y0, x1, y1;
  float viewspan, cx, cy;
};

// The view is 10 by 8 with a span of 4.
TEST_F(ViewCommandsTest, AZoomWindowBecomesTheView) {
  const WindowCase cases[] = {
      {"the wider side decides", 0, 0, 5, 1, 2, 2.5F, 0.5F},
      {"the higher side decides", 0, 0, 1, -4, 2, 0.5F, -2},
      {"corners in any order", 3, 3, 1, 2, 0.8F, 2, 2.5F},
      {"without width the height alone", 1, 0, 1, 2, 1, 1, 1},
      {"without height the width alone", 0, 1, 5, 1, 2, 2.5F, 1},
      {"without any extent it only recentres", 1, 2, 1, 2, 4, 1, 2},
      {"tiny ones stop at 64", 0, 0, 0.001, 0.001, 0.0625F, 0.0005F, 0.0005F},
      {"as large as the view", -5, -4, 5, 4, 4, 0, 0},
  };
  for (const WindowCase& c : cases) {
    view.viewcx = view.viewcy = 0;
    view.viewspan = 4;
    SetScale(-5, -4, 5, 4, screen);
    commands.zoomwindow(c.x0, c.y0, c.x1, c.y1, /*force=*/false);
    EXPECT_FLOAT_EQ(view.viewspan, c.viewspan) << c.name;
    EXPECT_FLOAT_EQ(view.viewcx, c.cx) << c.name;
    EXPECT_FLOAT_EQ(view.viewcy, c.cy) << c.name;
  }
}

TEST_F(ViewCommandsTest, AWindowLargerThanTheViewIsIgnoredUnlessForced) {
  commands.zoomwindow(-10, -1, 10, 1, /*force=*/false);
  EXPECT_EQ(log.take(), "");
  EXPECT_EQ(view.viewspan, 4);
  commands.zoomwindow(-10, -1, 10, 1, /*force=*/true);
  EXPECT_EQ(view.viewspan, 8);
  EXPECT_TRUE(redrawnAtOnce());
}

TEST_F(ViewCommandsTest, ZoomExtentsMayZoomOut) {
  addSegment({1, 8, 0, 0, 20, 10});
  commands.ZoomExtents();
  expectCenter(10, 5);
  EXPECT_FLOAT_EQ(view.viewspan, 8.8F);  // 22 wide in a view of 10
}

TEST_F(ViewCommandsTest, ZoomExtentsMayZoomIn) {
  addSegment({1, 8, 1, 1, 2, 3});
  commands.ZoomExtents();
  expectCenter(1.5F, 2);
  EXPECT_FLOAT_EQ(view.viewspan, 1.1F);  // 2.2 high in a view of 8
}

TEST_F(ViewCommandsTest, ZoomExtentsOfAnUprightLineLeavesTheView) {
  addSegment({1, 8, 1, 1, 1, 3});
  commands.ZoomExtents();
  expectCenter(0, 0);
  EXPECT_EQ(log.take(), "");
}

TEST_F(ViewCommandsTest, TheMenuEntriesLeadToTheirCommands) {
  store.markerx = 1;
  store.markery = 2;
  commands.mnuViewCenter_Click();
  expectCenter(1, 2);
  commands.mnuViewZoomIn_Click();
  EXPECT_EQ(view.viewspan, 2);
  commands.mnuViewZoomOut_Click();
  EXPECT_EQ(view.viewspan, 4);
  commands.mnuViewFullView_Click();
  EXPECT_EQ(view.viewspan, 2.6F);
  log.take();
  commands.mnuViewReDraw_Click();
  EXPECT_TRUE(redrawnAtOnce());
}

TEST_F(ViewCommandsTest, TheTogglesFlipBetweenZeroAndOneAndRedraw) {
  const struct {
    void (ViewCommands::*click)();
    Int16 DrawingStore::*flag;
  } toggles[] = {
      {&ViewCommands::mnuViewShowPartTemp_Click, &DrawingStore::parttemplate},
      {&ViewCommands::mnuViewShowEndMark_Click, &DrawingStore::endmarkers},
      {&ViewCommands::mnuViewShowToolPath_Click, &DrawingStore::showpaths},
      {&ViewCommands::mnuViewToolRadOutline_Click, &DrawingStore::tooloutline},
  };
  for (const auto& toggle : toggles) {
    (commands.*toggle.click)();
    EXPECT_EQ(store.*toggle.flag, 1);
    EXPECT_EQ(log.lines[0], "Update_menu_checks");
    EXPECT_TRUE(redrawnAtOnce());
    log.take();
    (commands.*toggle.click)();
    EXPECT_EQ(store.*toggle.flag, 0);
    log.take();
  }
}

using ZoomWindowByPointer = ViewCommandsTest;

TEST_F(ZoomWindowByPointer, ArmsItsActionAndKeepsTheMode) {
  armed.pending = 16;
  armed.mode = -1;
  commands.mnuViewZoomWindow_Click();
  EXPECT_EQ(armed.pending, 28);
  EXPECT_EQ(armed.mode, -1);
  EXPECT_EQ(commands.interrupted().SavedPending, 16);
  EXPECT_EQ(commands.interrupted().SavedDrawMode, -1);
}

TEST_F(ZoomWindowByPointer, TheBoxIsErasedAndDrawnAnewInTheInvertingDashedPen) {
  commands.dragZoomBox({0, 0, 1, 1}, {0, 0, 2, 2});
  EXPECT_EQ(log.take(),
            "DrawMode 10\n"
            "DrawStyle 1\n"
            "box (0, 0)-(1, 1) #302010\n"
            "box (0, 0)-(2, 2) #302010\n"
            "DrawMode 13\n"
            "DrawStyle 0\n");
}

TEST_F(ZoomWindowByPointer, TheReleaseErasesTheBoxServesEventsAndZooms) {
  commands.mnuViewZoomWindow_Click();
  commands.releaseZoomBox({0, 0, 5, 4});
  EXPECT_EQ(armed.pending, 0);
  EXPECT_EQ(view.viewspan, 2);
  expectCenter(2.5F, 2);
  const std::vector<std::string> first(log.lines.begin(), log.lines.begin() + 6);
  EXPECT_EQ(first,
            (std::vector<std::string>{"DrawMode 10", "DrawStyle 1", "box (0, 0)-(5, 4) #302010",
                                      "DrawMode 13", "DrawStyle 0", "events"}));
}

TEST_F(ZoomWindowByPointer, WithoutAModeNothingIsRestored) {
  armed.pending = 16;
  commands.mnuViewZoomWindow_Click();
  commands.releaseZoomBox({0, 0, 5, 4});
  EXPECT_EQ(armed.pending, 0);
}

TEST_F(ZoomWindowByPointer, ASelectingModeIsRestoredWithItsAction) {
  armed.pending = 24;
  armed.mode = -1;
  commands.mnuViewZoomWindow_Click();
  armed.mode = 0;
  commands.releaseZoomBox({0, 0, 5, 4});
  EXPECT_EQ(armed.pending, 24);
  EXPECT_EQ(armed.mode, -1);
}

TEST_F(ZoomWindowByPointer, AnInterruptedPanComesBackWithoutItsMode) {
  armed.pending = 29;
  armed.mode = 1;
  commands.mnuViewZoomWindow_Click();
  armed.mode = 0;
  commands.releaseZoomBox({0, 0, 5, 4});
  EXPECT_EQ(armed.pending, 29);
  EXPECT_EQ(armed.mode, 0);
}

using Pan = ViewCommandsTest;

TEST_F(Pan, TogglesItsToolAndAction) {
  armed.mode = 1;
  commands.mnuViewPan_Click();
  EXPECT_TRUE(host.toolChecked("miPan"));
  EXPECT_EQ(armed.pending, 29);
  EXPECT_EQ(pointer.MousePointer(), kDefaultShape);  // without the icon's file
  armed.mode = 0;
  commands.mnuViewPan_Click();
  EXPECT_FALSE(host.toolChecked("miPan"));
  EXPECT_EQ(armed.pending, 0);
  EXPECT_EQ(armed.mode, 1);
}

TEST_F(Pan, WithoutAModeTheInterruptedActionIsGone) {
  armed.pending = 16;
  commands.mnuViewPan_Click();
  commands.mnuViewPan_Click();
  EXPECT_EQ(armed.pending, 0);
}

TEST_F(Pan, ShowsItsIconWhenThatStandsBesideTheProgram) {
  const testing::TempFolder folder;
  host.folder = folder();
  const std::string icon = folder.write("pansmall.ico", "icon");
  commands.mnuViewPan_Click();
  EXPECT_EQ(log.take(), "MouseIcon " + icon + "\nMousePointer 99\n");
  commands.mnuViewPan_Click();
  EXPECT_EQ(pointer.MousePointer(), kDefaultShape);
}

TEST_F(Pan, TheGrabbedPointStaysUnderThePointer) {
  PanDrag drag = commands.beginPan({1, 1});
  // The pointer goes 50 pixels right and 100 up: in the view of that moment to (1.5, 2).
  commands.movePan(drag, {1.5F, 2});
  expectCenter(-0.5F, -1);
  EXPECT_EQ(surface.toWorld(650, 200), (Point{1, 1}));
  // And 100 pixels right again: the view has moved, so this is (2, 1).
  commands.movePan(drag, {2, 1});
  expectCenter(-1.5F, -1);
  EXPECT_EQ(surface.toWorld(750, 200), (Point{1, 1}));
  commands.endPan(drag, {1, 1});
  expectCenter(-1.5F, -1);
}

TEST_F(Pan, AClickWithoutMovementLeavesTheView) {
  PanDrag drag = commands.beginPan({1, 1});
  commands.movePan(drag, {1, 1});
  EXPECT_EQ(log.take(), "");
  commands.endPan(drag, {1, 1});
  expectCenter(0, 0);
}

TEST_F(Pan, AReleaseFartherOnMovesTheRestOfTheWay) {
  PanDrag drag = commands.beginPan({1, 1});
  commands.movePan(drag, {1.5F, 1});
  commands.endPan(drag, {1.25F, 1});
  expectCenter(-0.75F, 0);
}

TEST_F(Pan, ADragStatedInUnitsOfThePressMovesOnce) {
  PanDrag drag = commands.beginPan({0, 0});
  commands.movePan(drag, commands.inPresentView(drag, {0.5F, 0}));
  commands.movePan(drag, commands.inPresentView(drag, {1, 0}));
  commands.endPan(drag, commands.inPresentView(drag, {1, 0}));
  expectCenter(-1, 0);
}

}  // namespace
}  // namespace tess
