// Keys, wheel and drags in the window of the whole program.
#include <QAction>
#include <QPlainTextEdit>
#include <QWheelEvent>
#include <cmath>
#include <vector>

#include "core/drawing_store.h"
#include "tests/qt/running_desktop.h"

namespace tess {
namespace {

class DesktopNavigation : public testing::RunningDesktop {
 protected:
  DesktopNavigation() { open(); }

  View& view() { return program->application().interaction.view; }
  int pendingaction() { return program->application().interaction.state.pendingaction(); }
  void turn(QPointF at, int eighths) {
    QWheelEvent event(at, program->surface().mapToGlobal(at), {}, {0, eighths}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&program->surface(), &event);
  }
  void drag(QPointF at) { pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, at); }
  void addLines(int count) {
    for (int i = 0; i < count; ++i) {
      const auto at = static_cast<float>(i);
      AddSeg(store(), {.type = 1, .x0 = 0.1F * at, .y0 = 1, .x1 = 2, .y1 = 0.2F * at}, nullptr);
    }
  }
  static void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers,
                    const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &event);
  }
};

TEST_F(DesktopNavigation, TheShippedSetupsHaveTheKeysAndMenusShowThem) {
  EXPECT_TRUE(store().desktopkeys);
  const QAction* save = program->window().toolBars().action("miSave");
  EXPECT_TRUE(save->text().endsWith("\tCtrl+S")) << save->text().toStdString();
  EXPECT_EQ(save->toolTip(), "Save (Ctrl+S)");
}

TEST_F(DesktopNavigation, AFieldKeepsTheKeysOfItsOwn) {
  addLines(3);
  program->application().clickTool("miText");
  settle();
  auto* const field = program->window().findChild<QPlainTextEdit*>("txtText");
  ASSERT_NE(field, nullptr);
  field->setPlainText("abc");
  field->setFocus();
  const std::vector<Int16> before(&store().segattr[1], &store().segattr[1] + 3);
  for (const int letter : {Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z}) {
    press(*field, letter, Qt::ControlModifier);
  }
  for (const auto& [letter, text] : {std::pair{Qt::Key_Minus, "-"}, {Qt::Key_Space, " "}}) {
    press(*field, letter, {}, text);
  }
  press(*field, Qt::Key_Home, {});
  EXPECT_EQ(std::vector<Int16>(&store().segattr[1], &store().segattr[1] + 3), before);
  EXPECT_EQ(store().NumSegments, 3);
  EXPECT_EQ(view().zoomfactor, 1);
  EXPECT_TRUE(field->toPlainText().contains("- ")) << field->toPlainText().toStdString();
}

TEST_F(DesktopNavigation, KeysOfTheSurfaceAct) {
  addLines(2);
  key(Qt::Key_A, "\x01", Qt::ControlModifier);
  EXPECT_EQ(store().segattr[2], 30008);
  key(Qt::Key_Plus, "+");
  EXPECT_FLOAT_EQ(view().zoomfactor, 2);
  key(Qt::Key_Home, {});
  settle();
  EXPECT_FLOAT_EQ(view().zoomfactor, 1);
}

TEST_F(DesktopNavigation, WheelAndMiddleButtonMoveThePicture) {
  const QPointF at(300, 200);
  const Point under = program->surface().drawing().toWorld(at.x(), at.y());
  turn(at, 240);
  QCoreApplication::processEvents();
  EXPECT_NEAR(view().zoomfactor, 1 / 0.64, 1e-4);
  EXPECT_LT(QLineF(pixel(under.x, under.y), at).length(), 0.05);
  pointer(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, at);
  for (const double x : {320, 360, 400}) {
    pointer(QEvent::MouseMove, Qt::NoButton, Qt::MiddleButton, {x, 250});
  }
  pointer(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {400, 250});
  EXPECT_LT(QLineF(pixel(under.x, under.y), {400, 250}).length(), 0.05);
  click(1, 1);  // the surface takes clicks again, and no button seems to be down
  EXPECT_FALSE(program->application().interaction.context.pointer.LeftDown);
}

// The band goes with the picture that it stood in.
TEST_F(DesktopNavigation, ZoomingInADragLeavesNoBandBehind) {
  program->application().clickTool("miLine");
  const Point from{1, 1};
  const auto bandTo = [&](QPointF at, bool zooms) {
    pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, pixel(from.x, from.y));
    drag(at + QPointF(50, 30));
    if (zooms) turn(at, 120);
    QCoreApplication::processEvents();
    drag(at);
    QCoreApplication::processEvents();
    return pictureWithoutLetters();
  };
  const QPointF end = pixel(2, 1.5F);
  const QImage zoomed = bandTo(end, /*zooms=*/true);
  pointer(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, pixel(0, 0));
  settle();
  EXPECT_EQ(store().NumSegments, 0) << "a click on the marker";
  EXPECT_EQ(bandTo(end, /*zooms=*/false), zoomed);
}

// What a drag leaves behind: the picture with the band at its end, and the rows after it.
struct DragResult {
  QImage band;
  std::vector<float> rows;
};

std::vector<float> coordinates(const DrawingStore& store) {
  std::vector<float> all;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    all.insert(all.end(), {store.x0[sg], store.y0[sg], store.x1[sg], store.y1[sg],
                           store.centerx[sg], store.centery[sg], static_cast<float>(attr)});
  }
  return all;
}

class DrawnMotions : public DesktopNavigation, public ::testing::WithParamInterface<const char*> {
 protected:
  DragResult dragged(bool everyMotion) {
    Application& application = program->application();
    store().NumSegments = 0;
    addLines(5);
    store().markerx = store().markery = 0.5F;
    application.clickTool("miUnselectAll");
    application.clickTool("miFullView");
    settle();
    application.clickTool(GetParam());
    pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, pixel(0.25F, 0.25F));
    for (int step = 1; step <= 40; ++step) {
      const double turned = step * 0.3;
      drag(pixel(0.25F, 0.25F) + QPointF(step * 7 + 30 * std::cos(turned), -step * 5));
      if (everyMotion) QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    DragResult result{pictureWithoutLetters(), {}};
    pointer(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton,
            pixel(0.25F, 0.25F) + QPointF(280, -200));
    settle();
    result.rows = coordinates(store());
    return result;
  }
};

TEST_P(DrawnMotions, GiveTheSameAsTheNewestAlone) {
  const DragResult all = dragged(/*everyMotion=*/true);
  const DragResult newest = dragged(/*everyMotion=*/false);
  EXPECT_EQ(all.rows, newest.rows);
  EXPECT_EQ(all.band, newest.band);
}

INSTANTIATE_TEST_SUITE_P(Drags, DrawnMotions,
                         ::testing::Values("miLine", "miRectangle", "miCircleC+1P", "miSelect",
                                           "miZoomWindow", "miMoveEndpoints", "miMeasureDist",
                                           "miMoveProfile"));

}  // namespace
}  // namespace tess
