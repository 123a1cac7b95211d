// What changes round the surface while the operator drags on it: the theme, and the density of the
// screen. Neither leaves anything of a band behind.
#include <functional>

#include "tests/qt/running_desktop.h"

namespace tess {
namespace {

struct Disturbance {
  const char* name;
  std::function<void(DesktopProgram&)> happens;
};

void switchTheme(DesktopProgram& program) {
  applyTheme(testing::toolkit(), /*dark=*/true);
  EXPECT_TRUE(program.application().interaction.renderer.look.darkTheme);
}

// The next paint finds that the picture is not of the screen's density.
void changeDensity(DesktopProgram& program) {
  program.surface().drawing().setDensity(2);
  program.surface().repaint();
}

void resizeWindow(DesktopProgram& program) {
  program.window().resize(program.window().size() - QSize(120, 90));
}

class MidDrag : public testing::RunningDesktop, public ::testing::WithParamInterface<Disturbance> {
 protected:
  void SetUp() override {
    open();
    key(Qt::Key_R, "r");
    click(3, 2);
    ASSERT_EQ(store().NumSegments, 4);
  }
  void TearDown() override { applyTheme(testing::toolkit(), /*dark=*/false); }
  void move(float x, float y, Qt::MouseButton held) {
    pointer(QEvent::MouseMove, Qt::NoButton, held, pixel(x, y));
    QCoreApplication::processEvents();
  }
  // What was asked for meanwhile has begun: the call that comes with the next events, and the frame
  // that this asks for.
  void settleAll() {
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
    settle();
  }
  // The picture as it stands against one that is drawn anew.
  void expectNothingLeftBehind() {
    settleAll();
    const QImage stands = program->surface().drawing().picture().copy();
    program->application().interaction.redraw.redrawscreen();
    settle();
    EXPECT_LE(testing::largestDifference(stands, program->surface().drawing().picture()),
              testing::kSmoothing);
  }
};

TEST_P(MidDrag, LeavesNoBandBehind) {
  key(Qt::Key_L, "l");
  settle();
  pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, pixel(1, 1));
  move(2, 1.5F, Qt::LeftButton);
  GetParam().happens(*program);
  move(2.5F, 1, Qt::LeftButton);
  settleAll();
  move(1, 0.5F, Qt::LeftButton);
  const float x = store().markerx, y = store().markery;
  move(x, y, Qt::LeftButton);
  pointer(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, pixel(x, y));
  EXPECT_EQ(store().NumSegments, 4) << "released on the marker";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&program->surface(), &leave);
  expectNothingLeftBehind();
}

TEST_P(MidDrag, LeavesTheViewWhereThePanBroughtIt) {
  pointer(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, pixel(1, 1));
  move(2, 1.5F, Qt::MiddleButton);
  GetParam().happens(*program);
  settleAll();
  pointer(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, pixel(2, 1.5F));
  expectNothingLeftBehind();
  key(Qt::Key_L, "l");
  click(4, 1);
  EXPECT_EQ(store().NumSegments, 5);
}

const Disturbance kDisturbances[] = {
    {"Theme", switchTheme}, {"Density", changeDensity}, {"Size", resizeWindow}};

INSTANTIATE_TEST_SUITE_P(Disturbed, MidDrag, ::testing::ValuesIn(kDisturbances),
                         [](const auto& disturbance) { return disturbance.param.name; });

}  // namespace
}  // namespace tess
