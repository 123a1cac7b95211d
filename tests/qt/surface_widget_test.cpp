// Pointer events and keys of the drawing surface.
#include "shell/qt/surface_widget.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/qt/key_strokes.h"
#include "tests/qt/desktop_test_support.h"

namespace tess {
namespace {

class SurfaceWidgetTest : public ::testing::Test {
 protected:
  SurfaceWidgetTest() {
    surface = std::make_unique<SurfaceWidget>();
    surface->resize(200, 100);
    RasterSurface& drawing = surface->drawing();
    drawing.Move({0, 0, 200, 100});
    drawing.setScaleMode(ScaleUnit::User);
    drawing.setScaleLeft(0);
    drawing.setScaleWidth(20);
    drawing.setScaleTop(10);
    drawing.setScaleHeight(-10);
    surface->onPress = recorder("press");
    surface->onMove = recorder("move");
    surface->onRelease = recorder("release");
  }

  SurfaceWidget::PointerHandler recorder(const char* name) {
    return [this, name](int button, int shift, float x, float y) {
      events.push_back(std::string(name) + " " + std::to_string(button) + " " +
                       std::to_string(shift) + " " + std::to_string(std::lround(x * 10)) + " " +
                       std::to_string(std::lround(y * 10)));
    };
  }

  void send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPointF at,
            Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, at, surface->mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(surface.get(), &event);
  }

  std::unique_ptr<SurfaceWidget> surface;
  std::vector<std::string> events;
};

TEST_F(SurfaceWidgetTest, ReportsPositionsInDrawingUnitsWithYUpward) {
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {50, 20});
  send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, {60, 30});
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {60, 30});
  EXPECT_EQ(events,
            (std::vector<std::string>{"press 1 0 50 80", "move 1 0 60 70", "release 1 0 60 70"}));
}

TEST_F(SurfaceWidgetTest, AFrameComesOnceTheEventIsOver) {
  EXPECT_FALSE(surface->drawing().requestFrame());  // nobody waits for it
  surface->onFrame = [this] { events.emplace_back("frame"); };
  EXPECT_FALSE(surface->drawing().requestFrame());  // and nothing is to be seen
  surface->show();
  EXPECT_TRUE(surface->drawing().requestFrame());
  EXPECT_EQ(events, std::vector<std::string>{});
  QCoreApplication::processEvents();
  EXPECT_EQ(events, std::vector<std::string>{"frame"});
  QCoreApplication::processEvents();
  EXPECT_EQ(events, std::vector<std::string>{"frame"});
}

TEST_F(SurfaceWidgetTest, NumbersButtonsAndModifiers) {
  send(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, {0, 0}, Qt::ShiftModifier);
  send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton, {0, 0},
       Qt::ControlModifier);
  send(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, {0, 0},
       Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(events,
            (std::vector<std::string>{"press 2 1 0 100", "move 3 2 0 100", "release 2 3 0 100"}));
}

TEST_F(SurfaceWidgetTest, TheMiddleButtonIsNotReported) {
  send(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, {0, 0});
  send(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {0, 0});
  EXPECT_TRUE(events.empty());
}

TEST_F(SurfaceWidgetTest, TheSecondPressOfADoubleClickIsAPress) {
  send(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, {0, 0});
  EXPECT_EQ(events, std::vector<std::string>{"press 1 0 0 100"});
}

TEST_F(SurfaceWidgetTest, ADisabledSurfaceSwallowsPressesAndIdleMoves) {
  surface->drawing().setEnabled(false);
  send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {50, 20});
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {50, 20});
  send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, {60, 20});
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {60, 20});
  EXPECT_TRUE(events.empty());
}

TEST_F(SurfaceWidgetTest, ADragThatBeganBeforeTheSurfaceWasDisabledEnds) {
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {50, 20});
  surface->drawing().setEnabled(false);
  send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, {60, 20});
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {60, 20});
  send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {70, 20});
  EXPECT_EQ(events.size(), 3U);
}

TEST_F(SurfaceWidgetTest, ADragOfTwoButtonsEndsWithTheSecondOne) {
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {50, 20});
  send(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton, {50, 20});
  surface->drawing().setEnabled(false);
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::RightButton, {60, 20});
  send(QEvent::MouseMove, Qt::NoButton, Qt::RightButton, {70, 20});
  send(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, {70, 20});
  send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {80, 20});
  EXPECT_EQ(events,
            (std::vector<std::string>{"press 1 0 50 80", "press 2 0 50 80", "release 1 0 60 80",
                                      "move 2 0 70 80", "release 2 0 70 80"}));
}

TEST_F(SurfaceWidgetTest, TheWheelCountsWholeSteps) {
  std::vector<int> steps;
  surface->onWheel = [&](int turned, int /*shift*/, Point /*at*/) { steps.push_back(turned); };
  const auto turn = [&](int eighths) {
    QWheelEvent event({10, 10}, {10, 10}, {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(surface.get(), &event);
  };
  for (const int eighths : {120, 60, 60, -240}) turn(eighths);
  EXPECT_EQ(steps, (std::vector<int>{1, 1, -2}));
}

TEST_F(SurfaceWidgetTest, ShowsThePictureUnderTheDensityOfTheScreen) {
  surface->grab();  // which is known from the first painting on
  surface->drawing().setBackColor(0x00FF00);
  surface->drawing().Cls();
  surface->drawing().box({5, 5, 6, 6}, 0x0000FF, /*filled=*/true);
  const QImage shown = surface->grab().toImage();
  const auto colorAt = [&shown](double x, double y) {
    return shown.pixelColor((QPointF(x, y) * shown.devicePixelRatio()).toPoint());
  };
  EXPECT_EQ(colorAt(55, 45), QColor(255, 0, 0));
  EXPECT_EQ(colorAt(20, 20), QColor(0, 255, 0));
}

struct KeyCase {
  const char* name;
  int key;
  Qt::KeyboardModifiers modifiers;
  const char* text;
  char ascii;
  SpecialKey special;
};

TEST(KeyStrokes, NameKeysAsCommandsKnowThem) {
  const KeyCase cases[] = {
      {"letter", Qt::Key_L, {}, "l", 'L', SpecialKey::None},
      {"capital", Qt::Key_L, Qt::ShiftModifier, "L", 'L', SpecialKey::None},
      {"control letter", Qt::Key_M, Qt::ControlModifier, "\r", 13, SpecialKey::None},
      {"tab", Qt::Key_Tab, {}, "\t", 9, SpecialKey::None},
      {"escape", Qt::Key_Escape, {}, "\x1b", 27, SpecialKey::None},
      {"enter", Qt::Key_Return, {}, "\r", 0, SpecialKey::Enter},
      {"keypad enter", Qt::Key_Enter, Qt::KeypadModifier, "\r", 0, SpecialKey::Enter},
      {"delete", Qt::Key_Delete, {}, "\x7f", 0, SpecialKey::Delete},
      {"insert", Qt::Key_Insert, {}, "", 0, SpecialKey::Insert},
      {"repeat", Qt::Key_F3, {}, "", 0, SpecialKey::F3},
      {"arrow", Qt::Key_Left, {}, "", 0, SpecialKey::Left},
      {"digit", Qt::Key_5, {}, "5", '5', SpecialKey::None},
  };
  for (const KeyCase& row : cases) {
    SCOPED_TRACE(row.name);
    const auto stroke = keyStroke(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers, row.text));
    ASSERT_TRUE(stroke.has_value());
    EXPECT_EQ(stroke->ascii, row.ascii);
    EXPECT_EQ(stroke->special, row.special);
    EXPECT_EQ(stroke->control, row.modifiers.testFlag(Qt::ControlModifier));
    EXPECT_EQ(stroke->shift, row.modifiers.testFlag(Qt::ShiftModifier));
  }
}

TEST(KeyStrokes, LeaveModifiersAndMenuKeysAlone) {
  EXPECT_FALSE(keyStroke(QKeyEvent(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier)));
  EXPECT_FALSE(keyStroke(QKeyEvent(QEvent::KeyPress, Qt::Key_F, Qt::AltModifier, "f")));
  EXPECT_FALSE(keyStroke(QKeyEvent(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier)));
}

}  // namespace
}  // namespace tess
