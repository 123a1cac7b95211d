// The looks of the surface in the window of the whole program.
#include <QImage>

#include "core/drawing_store.h"
#include "display/paper.h"
#include "shell/qt/theme.h"
#include "tests/qt/running_desktop.h"

namespace tess {
namespace {

using testing::RunningDesktop;

class ScreenLookTest : public RunningDesktop {
 protected:
  ScreenLookTest() { open(); }
  ~ScreenLookTest() override { applyTheme(testing::toolkit(), /*dark=*/false); }

  ScreenLook& look() { return program->application().interaction.renderer.look; }

  QColor colorAt(QPointF pixel) {
    return program->surface().drawing().picture().pixelColor(pixel.toPoint());
  }
  static QColor asColor(Rgb color) { return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF}; }
  // Sloped rows, which have smooth edges.
  void addStar() {
    for (int ray = 1; ray <= 9; ++ray) {
      const auto at = static_cast<float>(ray);
      AddSeg(store(), {.type = 1, .x0 = 0.2F, .y0 = 0.1F * at, .x1 = 3.3F, .y1 = 0.29F * at},
             nullptr);
    }
  }
  // Until what is soiled has been painted anew.
  void repainted(const std::function<void()>& change) {
    int redraws = 0;
    RedrawSequence& redraw = program->application().interaction.redraw;
    const auto before = redraw.onPainted;
    redraw.onPainted = [&] {
      ++redraws;
      before();
    };
    change();
    EXPECT_TRUE(testing::waitFor([&] { return redraws > 0; }));
    redraw.onPainted = before;
    settle();
  }
};

TEST_F(ScreenLookTest, TheShippedSetupsFollowTheTheme) {
  EXPECT_EQ(look().tone(), ScreenTone::Light);
  EXPECT_EQ(colorAt({2, 2}), asColor(look().background()));
  repainted([] { applyTheme(testing::toolkit(), /*dark=*/true); });
  EXPECT_EQ(look().tone(), ScreenTone::Dark);
  EXPECT_EQ(colorAt({2, 2}), asColor(look().background()));
  testing::keepScreenshot(program->window(), "soft_dark");
}

TEST_F(ScreenLookTest, AThemeSwitchedInADragLeavesNoBandBehind) {
  addStar();
  program->application().clickTool("miSelect");
  repainted([&] { program->application().interaction.redraw.redrawscreen(); });
  const QPointF from = pixel(1, 1);
  pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, from);
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, from + QPointF(90, 60));
  repainted([] { applyTheme(testing::toolkit(), /*dark=*/true); });
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, from + QPointF(40, 30));
  QCoreApplication::processEvents();
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, from + QPointF(2, 2));
  QCoreApplication::processEvents();
  program->application().key({.ascii = 27});
  settle();
  const QImage after = pictureWithoutLetters();
  program->application().interaction.redraw.redrawscreen();
  EXPECT_EQ(pictureWithoutLetters(), after);
}

TEST_F(ScreenLookTest, NothingIsLeftOfASelection) {
  addStar();
  program->application().interaction.redraw.redrawscreen();
  const QImage before = pictureWithoutLetters();
  repainted([this] { program->application().clickTool("miSelectAll"); });
  EXPECT_NE(pictureWithoutLetters(), before);
  repainted([this] { program->application().clickTool("miUnselectAll"); });
  EXPECT_EQ(pictureWithoutLetters(), before);
}

TEST_F(ScreenLookTest, PaperHasTheColoursOfTheNumbers) {
  EXPECT_EQ(look().tone(), ScreenTone::Light);
  const QImage page = QImage::fromData(
      QByteArray::fromStdString(program->application().paper->screenShot()), "BMP");
  EXPECT_EQ(page.size(), program->surface().drawing().picture().size());
  EXPECT_EQ(page.pixelColor(2, 2), QColor(Qt::black));
}

TEST_F(ScreenLookTest, SurvivesAScreenOfAnotherDensity) {
  addStar();
  program->surface().drawing().setDensity(2);
  repainted([this] { program->surface().onPictureLost(); });
  EXPECT_EQ(colorAt({3, 3}), asColor(look().background()));
}

}  // namespace
}  // namespace tess
