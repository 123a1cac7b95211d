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
#include "tests/qt/seen_contrast.h"
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

// The entry that has the keyboard is coloured: its picture and its letters show on that.
TEST_P(StartPanelTest, TheChosenEntryIsLegible) {
  ASSERT_TRUE(testing::waitFor([&] { return button("miNew").hasFocus(); }));
  const QImage picture = button("miNew").grab().toImage();
  const int middle = picture.height() / 2;
  const QRgb ground = picture.pixel(picture.width() - 8, middle);
  EXPECT_NE(ground, button("miOpen").grab().toImage().pixel(picture.width() - 8, middle));
  const QRect icon(10, middle - 8, 26, 16);
  const QRect letters(icon.right() + 1, middle - 8, 40, 16);
  EXPECT_GE(testing::bestContrast(picture, icon, ground), 4.5);
  EXPECT_GE(testing::bestContrast(picture, letters, ground), 4.5);
}

// Low windows have it in two columns, lower ones without what the menu offers too.
TEST_P(StartPanelTest, FindsRoomOnALowSurface) {
  for (const int height : {700, 260, 110}) {
    program->surface().resize(600, height);
    EXPECT_TRUE(program->surface().rect().contains(panel().geometry())) << height;
    EXPECT_TRUE(button("miExamples").isVisible());
    EXPECT_EQ(button("miRecentFile1").isVisible(), height > 200);
    const bool oneColumn = button("miOpen").x() == button("miNew").x();
    EXPECT_EQ(oneColumn, height > 600);
  }
  button("miExamples").setFocus();
  press(*program->window().focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(program->window().focusWidget(), &button("miNew")) << "what is hidden is passed over";
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
