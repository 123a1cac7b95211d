// Moving the view by wheel and middle button.
#include "display/view_navigation.h"

#include <climits>
#include <cmath>
#include <limits>

#include "core/pending_action.h"
#include "tests/display/display_bench.h"
#include "tests/display/view_fakes.h"

namespace tess {
namespace {

using testing::DisplayBench;
using testing::FakeAction;
using testing::FakeHost;

class ViewNavigationTest : public DisplayBench {
 protected:
  ViewNavigationTest() { store.desktopkeys = true; }

  // Where a point of the drawing lies on the surface.
  PixelPoint pixelOf(Point at) { return surface.toPixels(at.x, at.y); }
  void expectSamePlace(PixelPoint a, PixelPoint b) {
    EXPECT_NEAR(a.x, b.x, 0.01);
    EXPECT_NEAR(a.y, b.y, 0.01);
  }

  FakeAction armed;
  FakeHost host{log};
  ViewCommands commands{{store, view, redraw, screen, pointer, surroundings, host, armed}};
  ViewNavigation navigation{commands};
};

TEST_F(ViewNavigationTest, TheWheelZoomsAboutThePointer) {
  const Point at{2, -1};
  const PixelPoint before = pixelOf(at);
  for (const int steps : {1, 3, -2, -7, 10}) {
    navigation.turnWheel(steps, at);
    expectSamePlace(pixelOf(at), before);
  }
  EXPECT_NEAR(view.viewspan, 4 * std::pow(0.8, 5), 1e-5);
  EXPECT_NEAR(view.zoomfactor, std::pow(0.8, -5), 1e-4);
  EXPECT_EQ(log.count("Cls"), 5);
}

TEST_F(ViewNavigationTest, TheWheelEndsAtTheLimits) {
  for (int turn = 0; turn < 40; ++turn) navigation.turnWheel(1, {0, 0});
  EXPECT_FLOAT_EQ(view.viewspan, 4.0F / 64);
  log.take();
  navigation.turnWheel(1, {0, 0});
  EXPECT_EQ(log.take(), "") << "there is nothing new to show";
  for (int turn = 0; turn < 80; ++turn) navigation.turnWheel(-1, {0, 0});
  EXPECT_FLOAT_EQ(view.viewspan, 4.0F * 64);
}

TEST_F(ViewNavigationTest, HugeTurnsEndAtTheLimitsToo) {
  navigation.turnWheel(INT_MAX, {1, 1});
  EXPECT_FLOAT_EQ(view.viewspan, 4.0F / 64);
  navigation.turnWheel(INT_MIN, {1, 1});
  EXPECT_FLOAT_EQ(view.viewspan, 4.0F * 64);
}

TEST_F(ViewNavigationTest, AViewBeyondTheLimitsComesBackInItsOwnSteps) {
  view.viewspan = 1e30F;
  navigation.turnWheel(-1, {0, 0});
  EXPECT_EQ(view.viewspan, 1e30F) << "no farther away";
  navigation.turnWheel(1, {0, 0});
  EXPECT_FLOAT_EQ(view.viewspan, 8e29F);
  view.viewspan = 1e-30F;
  navigation.turnWheel(1, {0, 0});
  EXPECT_EQ(view.viewspan, 1e-30F) << "no closer";
  navigation.turnWheel(-1, {0, 0});
  EXPECT_FLOAT_EQ(view.viewspan, 1.25e-30F);
}

TEST_F(ViewNavigationTest, AViewWithoutExtentStaysAsItIs) {
  for (const float span : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    view.viewspan = span;
    navigation.turnWheel(1, {0, 0});
    view.viewspan = 4;
    view.homespan = span;
    navigation.turnWheel(1, {0, 0});
    EXPECT_EQ(view.viewspan, 4);
    view.homespan = 4;
  }
  EXPECT_EQ(log.count("Cls"), 0);
}

TEST_F(ViewNavigationTest, TheWheelIsFreeButForTextsAndOldSetups) {
  EXPECT_TRUE(navigation.wheelZooms());
  armed.pending = static_cast<int>(PendingAction::PlaceText);
  EXPECT_FALSE(navigation.wheelZooms());
  armed.pending = static_cast<int>(PendingAction::Select);
  EXPECT_TRUE(navigation.wheelZooms());
  store.desktopkeys = false;
  EXPECT_FALSE(navigation.wheelZooms());
}

TEST_F(ViewNavigationTest, TheGrabbedPointStaysUnderThePointer) {
  const auto pointerAt = [&](double x, double y) { return surface.toWorld(x, y); };
  const Point grabbed = pointerAt(300, 200);
  navigation.beginPan(grabbed);
  navigation.movePan(pointerAt(350, 220));
  expectSamePlace(pixelOf(grabbed), {350, 220});
  navigation.movePan(pointerAt(100, 700));
  expectSamePlace(pixelOf(grabbed), {100, 700});
  navigation.endPan(pointerAt(110, 690));
  expectSamePlace(pixelOf(grabbed), {110, 690});
  log.take();
  navigation.movePan(pointerAt(0, 0));
  EXPECT_EQ(log.take(), "") << "the drag is over";
}

TEST_F(ViewNavigationTest, AClickOfTheMiddleButtonMovesNothing) {
  navigation.beginPan({1, 1});
  navigation.endPan({1, 1});
  EXPECT_EQ(log.count("Cls"), 0);
}

TEST_F(ViewNavigationTest, WithoutTheKeysNothingIsGrabbed) {
  store.desktopkeys = false;
  navigation.beginPan({1, 1});
  navigation.movePan({2, 2});
  navigation.endPan({3, 3});
  EXPECT_EQ(log.take(), "");
}

TEST_F(ViewNavigationTest, TheSurfaceGoesOnTakingEvents) {
  navigation.turnWheel(1, {0, 0});
  EXPECT_TRUE(surface.Enabled());
  surface.setEnabled(false);
  navigation.turnWheel(1, {0, 0});
  EXPECT_FALSE(surface.Enabled()) << "a redraw before this one has taken the pointer off";
  timers.advance(125);
  EXPECT_TRUE(surface.Enabled());
}

}  // namespace
}  // namespace tess
