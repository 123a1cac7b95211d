// The tool chest, the title block and the choice of a colour in their windows: their layouts have a
// place for every control, and they follow the hand.
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/form_layout.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

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

  void whenModal(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, [act] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      QApplication::setActiveWindow(dialog);
      QCoreApplication::processEvents();
      act(*dialog);
    });
  }
  template <class Kind>
  static Kind& in(QWidget& dialog, const char* name) {
    auto* const found = dialog.findChild<Kind*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  // As by the keyboard, over what is there.
  static void type(QWidget& dialog, const char* name, const std::string& text) {
    auto& field = in<QLineEdit>(dialog, name);
    field.setFocus();
    field.selectAll();
    for (const char letter : text) {
      QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar::fromLatin1(letter)));
      QApplication::sendEvent(&field, &event);
    }
  }
  static void choose(QWidget& dialog, const char* name, const char* text) {
    auto& box = in<QComboBox>(dialog, name);
    const int row = box.findText(text);
    EXPECT_GE(row, 0) << text;
    box.setCurrentIndex(row);
    emit box.activated(row);
  }
  static std::string textOf(QWidget& dialog, const char* label) {
    return in<QLabel>(dialog, label).text().toStdString();
  }

  // Every control stands in the layout file itself, not below it.
  static void expectWholeLayout(const Form& form) {
    QFile file(QString(":/forms/%1.ui").arg(QString::fromStdString(form.name())));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << form.name();
    const QString layout = QString::fromUtf8(file.readAll());
    for (const Control* control : form.controls()) {
      const QString name = QString("name=\"%1\"").arg(widgetName(*control));
      EXPECT_TRUE(layout.contains(name)) << control->name();
    }
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
    auto& list = in<QListWidget>(dialog, "List1");
    EXPECT_EQ(list.item(1)->text().toStdString(), " 2: 1/4 end mill 2fl");
    list.setCurrentRow(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(textOf(dialog, "lbltool"), "Tool #2:");
    EXPECT_EQ(textOf(dialog, "lblCuttingSpeed"), "300");
    EXPECT_NE(textOf(dialog, "lblAdvice").find("Spindle: 4584 rpm"), std::string::npos);
    testing::keepScreenshot(dialog, "tool_chest");
    const QColor normal = in<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText);
    type(dialog, "txtNumberFlutes", "none");
    EXPECT_EQ(in<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText),
              QColor(255, 0, 0));
    testing::keepScreenshot(dialog, "tool_chest_invalid");
    type(dialog, "txtNumberFlutes", "4");
    EXPECT_EQ(in<QLabel>(dialog, "lblMaterial").palette().color(QPalette::WindowText), normal);
    in<QSlider>(dialog, "Slider1").setValue(5);
    EXPECT_EQ(store().toolcolor[1], 5);
    EXPECT_EQ(in<QWidget>(dialog, "picColor").palette().color(QPalette::Window),
              QColor(128, 0, 128));
    in<QPushButton>(dialog, "cmdAccept").click();
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
      in<QPushButton>(dialog, "cmdAccept").click();
    });
    in<QPushButton>(chest, "cmdColorPalette").click();
    in<QPushButton>(chest, "cmdExit").click();
  });
  mnuCAMSelectTool_Click({session(), database, colors});
  EXPECT_EQ(store().toolcolor[store().selectedtool], 10 | 160 << 8 | 90 << 16);
}

TEST_F(ToolDialogsTest, TheTitleBlockFollowsTheHand) {
  applyTheme(testing::toolkit(), /*dark=*/true);
  whenModal([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Drawing Title Block");
    EXPECT_TRUE(in<QRadioButton>(dialog, "optStockMaterial").isChecked());
    EXPECT_FALSE(in<QLineEdit>(dialog, "txtMaterial").isEnabled());
    testing::keepScreenshot(dialog, "title_block_dark");
    in<QRadioButton>(dialog, "optMM").click();
    in<QRadioButton>(dialog, "optRoundStock").click();
    EXPECT_TRUE(in<QLineEdit>(dialog, "txtPartWidth").isHidden());
    EXPECT_EQ(textOf(dialog, "lblPartLength"), "Diameter");
    choose(dialog, "cmbMaterialCategory", "Plastics and Laminates");
    choose(dialog, "cmbMaterial", "Polycarbonate");
    EXPECT_TRUE(in<QComboBox>(dialog, "cmbHardness").isHidden());
    testing::keepScreenshot(dialog, "title_block_round_dark");
    in<QPushButton>(dialog, "cmdAccept").click();
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
