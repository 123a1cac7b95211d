// The offer of an empty window: seen, reached by keys, gone with the first row, and in no picture.
#include "shell/qt/start_panel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class StartPanelTest : public ::testing::TestWithParam<bool> {
 protected:
  StartPanelTest() {
    applyTheme(testing::toolkit(), /*dark=*/GetParam());
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", home("CNC/a & b.cdm") + "\r\n");
    home.write("CNC/a & b.cdm", "");
    program = std::make_unique<DesktopProgram>(home());
    program->open("");
    program->window().activateWindow();
  }
  ~StartPanelTest() override { applyTheme(testing::toolkit(), /*dark=*/false); }

  QWidget& panel() { return *program->surface().findChild<QWidget*>("startPanel"); }
  QPushButton& button(const char* name) { return *panel().findChild<QPushButton*>(name); }

  static void press(QWidget& target, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&target, &event);
  }

  testing::TempFolder home;
  std::unique_ptr<DesktopProgram> program;
};

TEST_P(StartPanelTest, LiesInTheMiddleAndKeepsTo) {
  ASSERT_TRUE(panel().isVisible());
  const QPoint middle = panel().geometry().center() - program->surface().rect().center();
  EXPECT_LE(std::abs(middle.x()) + std::abs(middle.y()), 2);
  program->surface().resize(900, 700);
  EXPECT_LE(std::abs(panel().geometry().center().x() - 450), 1);
  delete program->window().findChild<QWidget*>("frmSplash");
  testing::keepScreenshot(program->window(), GetParam() ? "start_panel_dark" : "start_panel");
}

TEST_P(StartPanelTest, NamesOfFilesKeepTheirCharacters) {
  EXPECT_EQ(button("miRecentFile1").text(), "a && b.cdm");
  EXPECT_EQ(button("miOpen").text(), "Open...");
}

TEST_P(StartPanelTest, TabGoesRoundAndEnterPresses) {
  EXPECT_EQ(program->window().focusWidget(), &button("miNew"));
  for (const char* const name :
       {"miOpen", "miImportDXFfile", "miExamples", "miRecentFile1", "miNew"}) {
    press(*program->window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(program->window().focusWidget(), &button(name)) << name;
  }
  press(button("miNew"), Qt::Key_Return);
  EXPECT_FALSE(panel().isVisible());
  EXPECT_EQ(program->window().focusWidget(), &program->surface());
}

TEST_P(StartPanelTest, KeysOfCommandsGoToTheDrawing) {
  press(button("miNew"), Qt::Key_L, "l");
  EXPECT_EQ(program->application().interaction.state.DrawMode(), 1);
  EXPECT_FALSE(panel().isVisible());
}

TEST_P(StartPanelTest, ARowEndsItAndAnEmptyDrawingBringsItBack) {
  Application& application = program->application();
  application.guarded("test",
                      [&] { AddSeg(application.store, {.type = kLine, .x1 = 1}, nullptr); });
  EXPECT_FALSE(panel().isVisible());
  application.guarded("test", [&] { application.store.NumSegments = 0; });
  EXPECT_TRUE(panel().isVisible());
}

TEST_P(StartPanelTest, ThePictureOfTheDrawingHasNothingOfIt) {
  const QImage with = program->surface().drawing().picture().copy();
  press(button("miNew"), Qt::Key_Return);
  EXPECT_EQ(program->surface().drawing().picture(), with);
}

INSTANTIATE_TEST_SUITE_P(Themes, StartPanelTest, ::testing::Bool());

}  // namespace
}  // namespace tess
