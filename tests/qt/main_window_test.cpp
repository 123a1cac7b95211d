// The main window: tools, tool bars, panels, status bar, layout and closing.
#include "shell/qt/main_window.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QLayout>
#include <QMimeData>
#include <QToolButton>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/qt/customize_dialog.h"
#include "shell/qt/icons.h"
#include "shell/qt/ports.h"
#include "shell/qt/theme.h"
#include "shell/tool_bands.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"

namespace tess {
namespace {

class frmStatisticsLike : public Form {
 public:
  frmStatisticsLike() : Form("frmStatistics", "Statistics") {}
  Label lblEntities{*this, "lblEntities"};
};

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() {
    applyTheme(testing::toolkit(), /*dark=*/false);
    fillToolHost(tools);
    surface = std::make_unique<SurfaceWidget>();
    window = std::make_unique<MainWindow>(MainWindowParts{tools, status, forms, gateway, *surface});
    tools.onToolClick = [this](const std::string& tool) { clicked.push_back(tool); };
    tools.onClientAreaChanged = [this] {
      const Bounds& area = tools.clientArea();
      surface->drawing().Move({static_cast<float>(area.left), static_cast<float>(area.top),
                               static_cast<float>(area.width), static_cast<float>(area.height)});
    };
    window->resize(1200, 800);
    window->show();
    QCoreApplication::processEvents();
  }

  Gateway gateway{testing::passThrough()};
  ToolHost tools;
  StatusBar status;
  FormHost forms;
  std::unique_ptr<SurfaceWidget> surface;
  std::unique_ptr<MainWindow> window;
  std::vector<std::string> clicked;
};

TEST_F(MainWindowTest, EveryToolHasAnActionAndAnIcon) {
  for (const std::string& name : tools.toolNames()) {
    ASSERT_NE(window->toolBars().action(name), nullptr) << name;
    if (name.starts_with("miRecentFile")) continue;
    EXPECT_TRUE(QFile::exists(iconFile(*tools.tool(name)))) << name;
    EXPECT_FALSE(window->toolBars().action(name)->icon().isNull()) << name;
  }
  testing::keepScreenshot(*window, "main_window");
}

TEST_F(MainWindowTest, AClickRunsTheToolOnce) {
  window->toolBars().action("miLine")->trigger();
  EXPECT_EQ(clicked, std::vector<std::string>{"miLine"});
}

TEST_F(MainWindowTest, ActionsFollowTheStateOfTheirTools) {
  QAction& action = *window->toolBars().action("miLine");
  EXPECT_FALSE(action.isCheckable());
  tools.setChecked("miLine", true);
  EXPECT_TRUE(action.isChecked());
  tools.setChecked("miLine", false);
  EXPECT_FALSE(action.isCheckable());
  tools.setEnabled("miLine", false);
  EXPECT_FALSE(action.isEnabled());
  tools.setVisible("miLine", false);
  EXPECT_FALSE(action.isVisible());
  tools.setCaption("miLine", "&Straight...");
  EXPECT_EQ(action.text(), "&Straight...\tL");
  EXPECT_EQ(action.iconText(), "Straight");
}

TEST_F(MainWindowTest, AClickOnACheckedToolLeavesTheMarkToTheProgram) {
  tools.setChecked("miPan", true);
  window->toolBars().action("miPan")->trigger();
  EXPECT_TRUE(window->toolBars().action("miPan")->isChecked());
}

TEST_F(MainWindowTest, HintsNameTheKey) {
  EXPECT_EQ(window->toolBars().action("miLine")->toolTip(), "Line (L)");
  EXPECT_EQ(window->toolBars().action("miLine")->text(), "&Line\tL");
  EXPECT_TRUE(window->toolBars().action("miLine")->shortcut().isEmpty())
      << "the surface serves the keys, so that fields can have their letters";
}

TEST_F(MainWindowTest, MenusOpenAndCloseTheirBands) {
  std::vector<std::string> told;
  tools.onBandOpen = [&](const std::string& band) { told.push_back("open " + band); };
  tools.onBandClose = [&](const std::string& band) { told.push_back("close " + band); };
  QMenu& menu = *window->toolBars().menu("miEdit");
  menu.popup({100, 100});
  menu.hide();
  EXPECT_EQ(told, (std::vector<std::string>{"open miEdit", "close miEdit"}));
}

TEST_F(MainWindowTest, AMenuCommandIsToldWhenItHasEnded) {
  std::vector<std::string> told;
  window->toolBars().onMenuCommand = [&] { told = clicked; };
  QMenu& menu = *window->toolBars().menu("miDraw");
  menu.popup({100, 100});
  menu.setActiveAction(window->toolBars().action("miLine"));
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&menu, &enter);
  EXPECT_EQ(told, std::vector<std::string>{"miLine"});
}

TEST_F(MainWindowTest, ACommandOfAToolBarIsNoMenuCommand) {
  int told = 0;
  window->toolBars().onMenuCommand = [&] { ++told; };
  QToolBar& bar = *window->toolBars().toolBar("barDraw");
  auto* button =
      qobject_cast<QToolButton*>(bar.widgetForAction(window->toolBars().action("miLine")));
  ASSERT_NE(button, nullptr);
  QMenu& menu = *window->toolBars().menu("miDraw");
  menu.popup({100, 100});
  menu.hide();  // without a command
  QCoreApplication::processEvents();
  button->click();
  EXPECT_EQ(clicked, std::vector<std::string>{"miLine"});
  EXPECT_EQ(told, 0);
}

TEST_F(MainWindowTest, ACommandOfAPopUpIsAMenuCommand) {
  int told = 0;
  window->toolBars().onMenuCommand = [&] { ++told; };
  QMenu& menu = *window->toolBars().menu("OSnapMenu");
  menu.popup({100, 100});
  menu.setActiveAction(window->toolBars().action("miOSnapCenter"));
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&menu, &enter);
  EXPECT_EQ(clicked, std::vector<std::string>{"miOSnapCenter"});
  EXPECT_EQ(told, 1);
}

TEST_F(MainWindowTest, ToolBarsShowWhileTheirBandsAreOpen) {
  QToolBar& bar = *window->toolBars().toolBar("barDraw");
  EXPECT_TRUE(bar.isVisible());
  tools.closeBand("barDraw");
  EXPECT_FALSE(bar.isVisible());
  tools.openBand("barDraw");
  EXPECT_TRUE(bar.isVisible());
}

TEST_F(MainWindowTest, TheSnapButtonDropsItsMenu) {
  QToolBar& bar = *window->toolBars().toolBar("Options");
  auto* button =
      qobject_cast<QToolButton*>(bar.widgetForAction(window->toolBars().action("OSnap")));
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->menu(), window->toolBars().menu("OSnapMenu"));
}

TEST_F(MainWindowTest, TheContextMenuOpensAndClosesBars) {
  std::unique_ptr<QMenu> menu(window->createPopupMenu());
  for (QAction* entry : menu->actions()) {
    if (entry->text() == "Draw") entry->trigger();
  }
  EXPECT_FALSE(tools.band("barDraw")->open);
}

TEST_F(MainWindowTest, TheSurfaceFillsWhatTheBarsLeave) {
  const Bounds before = tools.clientArea();
  EXPECT_EQ(surface->size(), QSize(before.width, before.height));
  EXPECT_EQ(surface->mapTo(window.get(), QPoint()), QPoint(before.left, before.top));
  tools.closeBand("barDraw");
  QCoreApplication::processEvents();
  EXPECT_GT(tools.clientArea().width, before.width);
  EXPECT_EQ(surface->width(), tools.clientArea().width);
}

TEST_F(MainWindowTest, TheStatusBarShowsItsPanels) {
  status.setText("Click near item to delete.");
  status.setPanel(StatusPanel::FileName, "Drawing:PART.CDM");
  status.setPanel(StatusPanel::X, "X: 1.0000");
  status.setPanel(StatusPanel::Zoom, " 4");
  status.setPanel(StatusPanel::Tool, "Tool 3: end mill, 0.2500 in");
  EXPECT_EQ(window->statusLabel(StatusPanel::Prompt).text(), "Click near item to delete.");
  EXPECT_EQ(window->statusLabel(StatusPanel::FileName).text(), "Drawing:PART.CDM");
  EXPECT_EQ(window->statusLabel(StatusPanel::X).text(), "X: 1.0000");
  EXPECT_EQ(window->statusLabel(StatusPanel::Zoom).text(), "Zoom: 4");
  EXPECT_EQ(window->statusLabel(StatusPanel::Tool).text(), "Tool 3: end mill, 0.2500 in");
}

TEST_F(MainWindowTest, APanelShowsItsFormWhileBothAreOpen) {
  frmStatisticsLike form;
  tools.onBandOpen = [&](const std::string& band) {
    if (band == "barStatistics") forms.show(form);
  };
  tools.onBandClose = [&](const std::string& band) {
    if (band == "barStatistics") form.close();
  };
  form.lblEntities.setCaption("12");
  tools.openBand("barStatistics");
  QDockWidget& dock = *window->panels().dock("barStatistics");
  ASSERT_TRUE(dock.isVisible());
  EXPECT_EQ(dock.findChild<QLabel*>("lblEntities")->text(), "12");
  testing::keepScreenshot(*window, "statistics_panel");
  dock.close();
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(tools.band("barStatistics")->open);
  EXPECT_FALSE(dock.isVisible());
}

TEST_F(MainWindowTest, TheLabelsOfTheStatisticsSpreadWithTheirFrame) {
  frmStatisticsLike form;
  forms.show(form);
  auto* frame = window->panels().dock("barStatistics")->findChild<QFrame*>("fraStats");
  ASSERT_NE(frame, nullptr);
  const auto places = [frame](const QSize& size) {
    frame->resize(size);
    frame->layout()->activate();
    std::vector<QPoint> at;
    for (const QLabel* label : frame->findChildren<QLabel*>()) at.push_back(label->pos());
    return at;
  };
  const std::vector<QPoint> small = places({300, 54});
  const std::vector<QPoint> large = places({600, 108});
  ASSERT_EQ(small.size(), 6U);
  for (std::size_t n = 0; n < small.size(); ++n) EXPECT_EQ(large[n], 2 * small[n]) << n;
}

TEST_F(MainWindowTest, KeysOfAPanelAreNoCommands) {
  std::vector<int> keys;
  surface->onKey = [&](const QKeyEvent& key) {
    keys.push_back(key.key());
    return true;
  };
  frmStatisticsLike form;
  forms.show(form);
  QWidget& dock = *window->panels().dock("barStatistics");
  for (const int key : {Qt::Key_L, Qt::Key_Return, Qt::Key_F3}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&dock, &press);
  }
  EXPECT_EQ(keys, std::vector<int>{Qt::Key_F3});
}

TEST_F(MainWindowTest, AFormThatOpensByItselfOpensItsPanel) {
  frmStatisticsLike form;
  forms.show(form);
  EXPECT_TRUE(tools.band("barStatistics")->open);
  form.close();
  EXPECT_FALSE(tools.band("barStatistics")->open);
}

TEST_F(MainWindowTest, TheLayoutComesBack) {
  window->addToolBar(Qt::BottomToolBarArea, window->toolBars().toolBar("barView"));
  window->setIconSize(QSize(28, 28));
  tools.closeBand("barCAM");
  const std::string layout = tools.layoutText();
  window->addToolBar(Qt::LeftToolBarArea, window->toolBars().toolBar("barView"));
  window->setIconSize(QSize(18, 18));
  tools.openBand("barCAM");
  ASSERT_TRUE(tools.loadLayoutText(layout));
  EXPECT_EQ(window->toolBarArea(window->toolBars().toolBar("barView")), Qt::BottomToolBarArea);
  EXPECT_EQ(window->iconSize(), QSize(28, 28));
  EXPECT_FALSE(window->toolBars().toolBar("barCAM")->isVisible());
  EXPECT_TRUE(window->toolBars().toolBar("barFile")->isVisible());
}

TEST_F(MainWindowTest, TheCustomisingDialogOpensAndClosesBars) {
  testing::whenModal([](QWidget& dialog) {
    testing::keepScreenshot(dialog, "customize");
    for (QCheckBox* mark : dialog.findChildren<QCheckBox*>()) {
      if (mark->text() == "View" || mark->text() == "Statistics") mark->click();
    }
    dialog.close();
  });
  customizeWindow(*window, gateway);
  EXPECT_FALSE(tools.band("barView")->open);
  EXPECT_TRUE(tools.band("barStatistics")->open);
}

TEST_F(MainWindowTest, ADamagedArrangementChangesNothing) {
  ASSERT_TRUE(tools.loadLayoutText("Tessimo layout 1\narrangement 22 0 nonsense\n"));
  ASSERT_TRUE(tools.loadLayoutText("Tessimo layout 1\narrangement\n"));
  EXPECT_TRUE(window->toolBars().toolBar("barDraw")->isVisible());
}

TEST_F(MainWindowTest, ClosingAsksOnceAndMayBeRefused) {
  int asked = 0;
  int closed = 0;
  bool agrees = false;
  window->onQueryClose = [&] {
    ++asked;
    window->close();  // as the program does when nothing is unsaved
    return agrees;
  };
  window->onClosed = [&] { ++closed; };
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  agrees = true;
  EXPECT_TRUE(window->close());
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(closed, 1);
}

TEST_F(MainWindowTest, DroppedFilesArriveAsPaths) {
  std::vector<std::string> dropped;
  window->onFilesDropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/parts/a b.cdm"), QUrl("http://example.org/x.cdm"),
                QUrl::fromLocalFile("/parts/c.dxf")});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.get(), &drop);
  EXPECT_EQ(dropped, (std::vector<std::string>{"/parts/a b.cdm", "/parts/c.dxf"}));
}

TEST_F(MainWindowTest, IconsFollowTheTheme) {
  const QImage light = toolIcon(*tools.tool("miExit")).pixmap(24, 24).toImage();
  applyTheme(testing::toolkit(), /*dark=*/true);
  const QImage dark = toolIcon(*tools.tool("miExit")).pixmap(24, 24).toImage();
  testing::keepScreenshot(*window, "main_window_dark");
  EXPECT_NE(light, dark);
}

TEST_F(MainWindowTest, SingleUseSnapToolsShareTheIconOfTheirTwins) {
  EXPECT_EQ(iconFile(*tools.tool("miOSnapCenterSingle")), ":/icons/miOSnapCenter.svg");
  EXPECT_EQ(iconFile(*tools.tool("miVerify/AcceptPocket")), ":/icons/miVerify_AcceptPocket.svg");
  Tool unknown;
  unknown.name = "miUnknown";
  EXPECT_TRUE(toolIcon(unknown).isNull());
}

}  // namespace
}  // namespace tess
