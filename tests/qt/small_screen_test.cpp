// The main window on small screens: one of 1366 x 768, and the same at 200 per cent.
#include <QDockWidget>
#include <QToolBar>

#include "tests/qt/running_desktop.h"

namespace tess {
namespace {

// What a window manager leaves of the screen.
constexpr QSize kScreen{1366, 768 - 32};
constexpr QSize kHalfScreen{683, 384 - 16};

class SmallScreen : public testing::RunningDesktop {
 protected:
  SmallScreen() {
    open();
    delete window().findChild<QWidget*>("frmSplash");
  }

  MainWindow& window() { return program->window(); }

  // False when the window cannot be as small.
  bool takes(QSize size) {
    window().showNormal();
    window().resize(size);
    testing::waitFor([&] { return window().width() <= std::max(size.width(), least().width()); });
    QCoreApplication::processEvents();
    settle();
    return window().size() == size;
  }
  QSize least() { return window().minimumSizeHint(); }

  static bool isWhole(const QToolBar& bar) {
    const auto* const more = bar.findChild<QWidget*>("qt_toolbar_ext_button");
    return more == nullptr || !more->isVisible();
  }
};

TEST_F(SmallScreen, EveryBarIsWhole) {
  for (const Band& band : program->application().interaction.tools.bands()) {
    if (band.kind == BandKind::ToolBar) window().toolBars().toolBar(band.name)->show();
  }
  ASSERT_TRUE(takes(kScreen));
  const QList<QToolBar*> bars = window().findChildren<QToolBar*>();
  EXPECT_GT(bars.size(), 3);
  for (const QToolBar* const bar : bars)
    EXPECT_TRUE(isWhole(*bar)) << bar->objectName().toStdString();
}

// A window that asks for more room while it is being maximised is given that, and no more.
TEST_F(SmallScreen, ItFillsTheScreenWhereThatWasTakenBack) {
  window().showAtStart();
  window().showNormal();
  window().resize(least());
  EXPECT_TRUE(testing::waitFor([this] { return window().isMaximized(); }));
}

TEST_F(SmallScreen, AtTwoHundredPerCentItsEdgesStayOnTheScreen) {
  ASSERT_TRUE(takes(kHalfScreen)) << least().width() << " x " << least().height();
  testing::keepScreenshot(window(), "half_screen");
  const GuideBar& bar = window().guideBar();
  EXPECT_TRUE(window().rect().contains(QRect(bar.mapTo(&window(), QPoint()), bar.size())));
  const auto& offer = *program->surface().findChild<QWidget*>("startPanel");
  EXPECT_TRUE(offer.isVisible());
  EXPECT_TRUE(program->surface().rect().contains(offer.geometry()));
}

// Nothing below the drawing lies over anything else there.
TEST_F(SmallScreen, TheAreasBelowTheDrawingLieApart) {
  for (const QSize size : {kScreen, kHalfScreen}) {
    ASSERT_TRUE(takes(size));
    const QList<QWidget*> areas =
        window().guideBar().findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    EXPECT_GT(areas.size(), 10);
    for (const QWidget* const one : areas) {
      for (const QWidget* const other : areas) {
        if (one == other || !one->isVisible() || !other->isVisible()) continue;
        EXPECT_FALSE(one->geometry().intersects(other->geometry()))
            << one->accessibleDescription().toStdString() << " and "
            << other->accessibleDescription().toStdString() << " at " << size.width();
      }
    }
  }
}

TEST_F(SmallScreen, APanelThatFindsNoRoomScrolls) {
  for (const char* const tool : {"miText", "miShowProperties", "miBackplot"}) {
    program->application().clickTool(tool);
    settle();
    ASSERT_TRUE(takes(kHalfScreen)) << tool << ": " << least().width() << " x " << least().height();
    for (const auto* const dock : window().findChildren<QDockWidget*>()) {
      if (!dock->isVisible() || dock->isFloating()) continue;
      EXPECT_TRUE(window().rect().contains(dock->geometry())) << dock->objectName().toStdString();
    }
    testing::keepScreenshot(window(), std::string("half_screen_") + tool);
    program->application().clickTool(tool);
  }
}

}  // namespace
}  // namespace tess
