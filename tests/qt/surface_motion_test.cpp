// Motions and turns of the wheel that come faster than they are carried out.
#include <QMouseEvent>
#include <QWheelEvent>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "shell/qt/surface_widget.h"
#include "tests/qt/desktop_test_support.h"

namespace tess {
namespace {

using Events = std::vector<std::string>;

class SurfaceMotion : public ::testing::Test {
 protected:
  SurfaceMotion() {
    surface.resize(200, 100);
    surface.drawing().Move({0, 0, 200, 100});
    surface.onPress = recorder("press");
    surface.onMove = recorder("move");
    surface.onRelease = recorder("release");
    surface.onWheel = [this](int steps, int /*shift*/, Point at) {
      note("wheel " + std::to_string(steps), at);
    };
    surface.onPan = [this](PanPhase phase, Point at) {
      note("pan " + std::to_string(static_cast<int>(phase)), at);
    };
  }

  SurfaceWidget::PointerHandler recorder(const char* name) {
    return [this, name](int button, int /*shift*/, float x, float y) {
      note(std::string(name) + " " + std::to_string(button), {x, y});
    };
  }
  void note(const std::string& what, Point at) {
    events.push_back(what + " at " + std::to_string(std::lround(at.x)));
  }

  void send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, double x) {
    QMouseEvent event(type, {x, 20}, surface.mapToGlobal(QPointF{x, 20}), button, held, {});
    QApplication::sendEvent(&surface, &event);
  }
  void moveTo(double x, Qt::MouseButtons held = {}) {
    send(QEvent::MouseMove, Qt::NoButton, held, x);
  }
  void turn(int eighths, double x = 10) {
    QWheelEvent event({x, 10}, {x, 10}, {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&surface, &event);
  }
  Events taken() { return std::exchange(events, {}); }
  Events settled() {
    QCoreApplication::processEvents();
    return taken();
  }

  SurfaceWidget surface;
  Events events;
};

TEST_F(SurfaceMotion, TheFirstIsReportedAtOnceAndOfTheOthersTheNewest) {
  for (const int x : {10, 20, 30, 40}) moveTo(x, Qt::LeftButton);
  EXPECT_EQ(taken(), Events{"move 1 at 10"});
  EXPECT_EQ(settled(), Events{"move 1 at 40"});
  EXPECT_EQ(settled(), Events{});
  moveTo(50);
  EXPECT_EQ(taken(), Events{"move 0 at 50"});
}

TEST_F(SurfaceMotion, WhatFollowsComesAfterTheNewest) {
  for (const int x : {10, 20, 30}) moveTo(x, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, 30);
  EXPECT_EQ(taken(), (Events{"move 1 at 10", "move 1 at 30", "release 1 at 30"}));
  for (const int x : {40, 50}) moveTo(x);
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, 60);
  EXPECT_EQ(taken(), (Events{"move 0 at 50", "press 1 at 60"}));
}

TEST_F(SurfaceMotion, AKeyComesAfterTheNewest) {
  surface.onKey = [this](const QKeyEvent&) {
    events.emplace_back("key");
    return true;
  };
  for (const int x : {10, 20, 30}) moveTo(x);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_L, {}, "l");
  QApplication::sendEvent(&surface, &key);
  EXPECT_EQ(taken(), (Events{"move 0 at 10", "move 0 at 30", "key"}));
}

TEST_F(SurfaceMotion, APointerThatLeavesHasBeenFollowedToTheEdge) {
  for (const int x : {10, 20, 190}) moveTo(x);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&surface, &leave);
  EXPECT_EQ(taken(), (Events{"move 0 at 10", "move 0 at 190"}));
}

TEST_F(SurfaceMotion, OneThatHasAMeaningOfItsOwnIsReported) {
  int left = 2;
  surface.wantsEachMotion = [&] { return left-- > 0; };
  for (const int x : {10, 20, 30, 40, 50}) moveTo(x);
  EXPECT_EQ(taken(), (Events{"move 0 at 10", "move 0 at 20", "move 0 at 30"}));
  EXPECT_EQ(settled(), Events{"move 0 at 50"});
}

TEST_F(SurfaceMotion, WhileACommandRunsTheNewestWaits) {
  bool busy = false;
  surface.isBusy = [&] { return busy; };
  for (const int x : {10, 20}) moveTo(x);
  taken();
  busy = true;
  EXPECT_EQ(settled(), Events{});
  busy = false;
  EXPECT_TRUE(testing::waitFor([this] { return !events.empty(); }));
  EXPECT_EQ(taken(), Events{"move 0 at 20"});
}

// The handler serves events itself, as a redraw does.
TEST_F(SurfaceMotion, OneIsCarriedOutToItsEndBeforeTheNext) {
  bool inside = false;
  surface.isBusy = [&] { return inside; };
  surface.onMove = [&](int /*button*/, int /*shift*/, float x, float y) {
    EXPECT_FALSE(inside);
    inside = true;
    note("move", {x, y});
    if (x < 15) moveTo(20), moveTo(30);
    QCoreApplication::processEvents();
    inside = false;
  };
  moveTo(10);
  EXPECT_TRUE(testing::waitFor([this] { return events.size() >= 2; }));
  EXPECT_EQ(taken(), (Events{"move at 10", "move at 30"}));
}

TEST_F(SurfaceMotion, TurnsOfTheWheelAreAddedUpWhereThatIsWanted) {
  for (int turns = 0; turns < 3; ++turns) turn(120);
  EXPECT_EQ(taken(), (Events{"wheel 1 at 10", "wheel 1 at 10", "wheel 1 at 10"}));
  surface.sumsTurns = [] { return true; };
  settled();
  turn(120, 10);
  turn(240, 20);
  turn(-120, 30);
  turn(360, 40);
  EXPECT_EQ(taken(), Events{"wheel 1 at 10"});
  EXPECT_EQ(settled(), Events{"wheel 4 at 40"});
}

TEST_F(SurfaceMotion, TurnsAndMotionsKeepTheirOrder) {
  surface.sumsTurns = [] { return true; };
  moveTo(10);
  turn(120, 10);
  moveTo(20);
  turn(120, 20);
  EXPECT_EQ(taken(), (Events{"move 0 at 10", "wheel 1 at 10", "move 0 at 20"}));
  EXPECT_EQ(settled(), Events{"wheel 1 at 20"});
}

TEST_F(SurfaceMotion, HugeTurnsDoNotOverflow) {
  surface.sumsTurns = [] { return true; };
  for (int turns = 0; turns < 5; ++turns) turn(INT_MAX);
  for (int turns = 0; turns < 5; ++turns) turn(INT_MIN);
  EXPECT_EQ(taken(), Events{"wheel 1000 at 10"});
  EXPECT_EQ(settled(), Events{"wheel -1000 at 10"});
}

TEST_F(SurfaceMotion, TheMiddleButtonPans) {
  send(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, 10);
  for (const int x : {20, 30, 40}) moveTo(x, Qt::MiddleButton);
  send(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, 45);
  moveTo(50);
  EXPECT_EQ(taken(), (Events{"pan 0 at 10", "pan 1 at 20", "pan 1 at 40", "pan 2 at 45"}));
  EXPECT_EQ(settled(), Events{"move 0 at 50"});
}

TEST_F(SurfaceMotion, APanWhoseReleaseGotLostEndsWithTheNextMotion) {
  send(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, 10);
  moveTo(20);
  EXPECT_EQ(taken(), (Events{"pan 0 at 10", "pan 2 at 20"}));
  send(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, 30);
  EXPECT_EQ(settled(), Events{});
}

TEST_F(SurfaceMotion, APanGoesOnOverADisabledSurface) {
  send(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, 10);
  surface.drawing().setEnabled(false);
  moveTo(20, Qt::MiddleButton);
  EXPECT_EQ(taken(), (Events{"pan 0 at 10", "pan 1 at 20"}));
}

}  // namespace
}  // namespace tess
