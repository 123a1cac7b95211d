// The tool chest, the title block and the choice of a colour in their windows: their layouts have a
// place for every control, and they follow the hand.
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <filesystem>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

using testing::expectWholeLayout;
using testing::whenModal;
using testing::widgetIn;

class ToolDialogsTest : public ::testing::Test {
 protected:
  ToolDialogsTest() {
    applyTheme(testing::toolkit(), /*dark=*/false);
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", "");
    program = std::make_unique<DesktopProgram>(home());
    program->open("");
  }

  Session& session() { return program->application().session; }
  DrawingStore& store() { return program->application().store; }

  // As by the keyboard, over what is there.
  static void type(QWidget& dialog, const char* name, const std::string& text) {
    auto& field = widgetIn<QLineEdit>(dialog, name);
    field.setFocus();
    field.selectAll();
    for (const char letter : text) {
      QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar::fromLatin1(letter)));
      QApplication::sendEvent(&field, &event);
    }
  }
  static void choose(QWidget& dialog, const char* name, const char* text) {
    auto& box = widgetIn<QComboBox>(dialog, name);
    const int row = box.findText(text);
    EXPECT_GE(row, 0) << text;
    box.setCurrentIndex(row);
    emit box.activated(row);
  }
  static std::string textOf(QWidget& dialog, const char* label) {
    return widgetIn<QLabel>(dialog, label).text().toStdString();
  }

  testing::TempFolder home;
  std::unique_ptr<DesktopProgram> program;
  SpeedsFeeds database;
};

TEST_F(ToolDialogsTest, LayoutsHaveEveryControl) {
  FormColorDialog colors(session().host.prompts);
  expectWholeLayout(dlgToolPrms({session(), database, colors}, 0));
  DraftingContext& context = program->application().interaction.context;
  expectWholeLayout(dlgTitleBlock({session(), database, context.viewCommands, context.changes}));
  expectWholeLayout(dlgColor(0));
}

TEST_F(ToolDialogsTest, TheChestFollowsTheHand) {
  FormColorDialog colors(session().host.prompts);
  store().toolradius[1] = 0.125F;
  whenModal([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Tool Select & Definition");
    auto& list = widgetIn<QListWidget>(dialog, "List1");
    EXPECT_EQ(list.item(1)->text().toStdString(), " 2: 1/4 end mill 2fl");
    list.setCurrentRow(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(textOf(dialog, "lbltool"), "Tool #2:");
    EXPECT_EQ(textOf(dialog, "lblCuttingSpeed"), "300");
    EXPECT_NE(textOf(dialog, "lblAdvice").find("Spindle: 4584 rpm"), std::string::npos);
    testing::keepScreenshot(dialog, "tool_chest");
    const QColor normal =
        widgetIn<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText);
    type(dialog, "txtNumberFlutes", "none");
    EXPECT_EQ(widgetIn<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText),
              QColor(223, 0, 0));
    testing::keepScreenshot(dialog, "tool_chest_invalid");
    type(dialog, "txtNumberFlutes", "4");
    EXPECT_EQ(widgetIn<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText),
              normal);
    widgetIn<QSlider>(dialog, "Slider1").setValue(5);
    EXPECT_EQ(store().toolcolor[1], 5);
    EXPECT_EQ(widgetIn<QWidget>(dialog, "picColor").palette().color(QPalette::Window),
              QColor(128, 0, 128));
    widgetIn<QPushButton>(dialog, "cmdAccept").click();
  });
  mnuCAMSelectTool_Click({session(), database, colors});
  EXPECT_EQ(store().selectedtool, 1);
  EXPECT_EQ(store().toolflutes[1], 4);
}

TEST_F(ToolDialogsTest, AColorIsChosenFromTheChest) {
  FormColorDialog colors(session().host.prompts);
  whenModal([&](QWidget& chest) {
    whenModal([](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Color");
      type(dialog, "txtRed", "10");
      type(dialog, "txtGreen", "160");
      type(dialog, "txtBlue", "90");
      testing::keepScreenshot(dialog, "color");
      widgetIn<QPushButton>(dialog, "cmdAccept").click();
    });
    widgetIn<QPushButton>(chest, "cmdColorPalette").click();
    widgetIn<QPushButton>(chest, "cmdExit").click();
  });
  mnuCAMSelectTool_Click({session(), database, colors});
  EXPECT_EQ(store().toolcolor[store().selectedtool], 10 | 160 << 8 | 90 << 16);
}

TEST_F(ToolDialogsTest, TheTitleBlockFollowsTheHand) {
  applyTheme(testing::toolkit(), /*dark=*/true);
  whenModal([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Drawing Title Block");
    EXPECT_TRUE(widgetIn<QRadioButton>(dialog, "optStockMaterial").isChecked());
    EXPECT_FALSE(widgetIn<QLineEdit>(dialog, "txtMaterial").isEnabled());
    testing::keepScreenshot(dialog, "title_block_dark");
    widgetIn<QRadioButton>(dialog, "optMM").click();
    widgetIn<QRadioButton>(dialog, "optRoundStock").click();
    EXPECT_TRUE(widgetIn<QLineEdit>(dialog, "txtPartWidth").isHidden());
    EXPECT_EQ(textOf(dialog, "lblPartLength"), "Diameter");
    choose(dialog, "cmbMaterialCategory", "Plastics and Laminates");
    choose(dialog, "cmbMaterial", "Polycarbonate");
    EXPECT_TRUE(widgetIn<QComboBox>(dialog, "cmbHardness").isHidden());
    testing::keepScreenshot(dialog, "title_block_round_dark");
    widgetIn<QPushButton>(dialog, "cmdAccept").click();
  });
  DraftingContext& context = program->application().interaction.context;
  mnuOptionsDrawTitleBlock_Click({session(), database, context.viewCommands, context.changes});
  EXPECT_EQ(store().units, "M");
  EXPECT_EQ(store().roundstock.raw(), -1);
  EXPECT_EQ(store().partmaterial, "Polycarbonate");
  EXPECT_EQ(store().materialcategory, "Plastics and Laminates");
}

}  // namespace
}  // namespace tess
