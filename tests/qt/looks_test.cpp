// How the program looks, in both themes: pictures for the eye of the window with its menus, docks
// and dialogs, and that no text is cut off and every icon can be seen.
#include <QCheckBox>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "shell/frmRestore.h"
#include "shell/program_folder.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/icons.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class Looks : public ::testing::TestWithParam<bool> {
 protected:
  Looks() {
    applyTheme(testing::toolkit(), isDarkTheme());
    const auto environment = [this](const char* name) -> std::optional<std::string> {
      if (std::string_view(name) == "XDG_DATA_HOME") return folder();
      return {};
    };
    program = std::make_unique<DesktopProgram>(
        programFolder({.home = {}, .executableFolder = {}, .environment = environment}));
    // A copy of its own: what other processes have open is told of, and somebody has to answer.
    for (const char* const name : {"bracket.cdm", "BRACKET.TPM"}) {
      std::filesystem::copy(std::string(TESSIMO_SOURCE_DIR "/examples/") + name, folder(name));
    }
    program->open(folder("bracket.cdm"));
    window().setWindowState(Qt::WindowNoState);
    window().resize(1280, 800);
    delete window().findChild<QWidget*>("frmSplash");
    waitUntil([this] { return isDrawn(); });
  }
  ~Looks() override { applyTheme(testing::toolkit(), /*dark=*/false); }

  static bool isDarkTheme() { return GetParam(); }
  MainWindow& window() { return program->window(); }
  bool isDrawn() {
    return program->application().interaction.redraw.TaskQueueState() == 0 &&
           program->surface().drawing().Enabled();
  }

  static void waitUntil(const std::function<bool()>& condition) {
    ASSERT_TRUE(testing::waitFor(condition));
  }

  static void keep(QWidget& widget, const std::string& name) {
    testing::keepScreenshot(widget, name + (isDarkTheme() ? "_dark" : "_light"));
  }

  // The dialog that `open` opens, looked at while it is open.
  void lookAt(const std::string& name, const std::function<void()>& open) {
    bool looked = false;
    testing::whenModal([&](QWidget& dialog) {
      keep(dialog, name);
      expectTextsFit(dialog);
      looked = true;
      dialog.close();
    });
    open();
    EXPECT_TRUE(looked) << name;
  }
  void lookAtDialog(const std::string& tool, const std::string& name) {
    lookAt(name, [&] { window().toolBars().action(tool)->trigger(); });
  }

  static void expectTextsFit(QWidget& root) {
    for (const auto* label : root.findChildren<QLabel*>()) {
      if (!label->isVisible() || label->text().isEmpty()) continue;
      if (label->wordWrap()) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width()))
            << label->text().toStdString();
        continue;
      }
      const int needed = label->fontMetrics().size(Qt::TextShowMnemonic, label->text()).width();
      EXPECT_GE(label->contentsRect().width(), needed) << label->text().toStdString();
    }
    for (const auto* button : root.findChildren<QPushButton*>()) {
      if (!button->isVisible()) continue;
      const int needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
      EXPECT_GT(button->width(), needed) << button->text().toStdString();
    }
  }

  testing::TempFolder folder;
  std::unique_ptr<DesktopProgram> program;
};

// The picture as a whole is as light or dark as its theme.
int meanGrey(const QImage& picture) {
  const QImage one = picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return qGray(one.pixel(0, 0));
}

TEST_P(Looks, TheWindow) {
  keep(window(), "window");
  expectTextsFit(*window().statusBar());
  const int grey = meanGrey(window().menuBar()->grab().toImage());
  EXPECT_EQ(grey < 128, isDarkTheme()) << grey;
}

TEST_P(Looks, EveryMenu) {
  for (const auto* entry : window().menuBar()->actions()) {
    QMenu& menu = *entry->menu();
    menu.popup(window().mapToGlobal(QPoint(20, 40)));
    waitUntil([&] { return menu.isVisible(); });
    keep(menu, "menu_" + menu.objectName().toStdString());
    for (const QAction* tool : menu.actions()) {
      const QRect place = menu.actionGeometry(const_cast<QAction*>(tool));
      // A long menu on a small screen scrolls; it is never too narrow.
      EXPECT_TRUE(!tool->isVisible() || place.right() < menu.width()) << tool->text().toStdString();
    }
    EXPECT_EQ(meanGrey(menu.grab().toImage()) < 128, isDarkTheme());
    menu.close();
  }
}

TEST_P(Looks, DockedAtEverySide) {
  program->application().interaction.tools.openBand("barStatistics");
  QDockWidget& dock = *window().panels().dock("barStatistics");
  struct Side {
    const char* name;
    Qt::DockWidgetArea area;
    QRect place;  // where the dock's middle comes to lie
  };
  const int width = window().width();
  const int height = window().height();
  const Side sides[] = {
      {"left", Qt::LeftDockWidgetArea, {0, 0, width / 3, height}},
      {"bottom", Qt::BottomDockWidgetArea, {0, 2 * height / 3, width, height / 3}},
      {"right", Qt::RightDockWidgetArea, {2 * width / 3, 0, width / 3, height}}};
  for (const auto& [name, area, place] : sides) {
    window().addDockWidget(area, &dock);
    waitUntil([&] { return place.contains(dock.geometry().center()) && isDrawn(); });
    keep(window(), std::string("docked_") + name);
    expectTextsFit(dock);
    EXPECT_TRUE(window().rect().contains(dock.geometry()));
  }
}

// A text that hovers over the sample, beside its panel at the side and at the bottom.
TEST_P(Looks, TextPanelAndHover) {
  Interaction& interaction = program->application().interaction;
  interaction.tools.click("miText");
  QDockWidget& dock = *window().panels().dock("barText");
  struct Side {
    const char* name;
    Qt::DockWidgetArea area;
    bool liesDown;
  };
  const Side sides[] = {{"right", Qt::RightDockWidgetArea, false},
                        {"bottom", Qt::BottomDockWidgetArea, true}};
  for (const auto& [name, area, liesDown] : sides) {
    window().addDockWidget(area, &dock);
    waitUntil([&] {
      const bool fits =
          liesDown ? dock.height() <= window().height() / 2 : dock.width() <= window().width() / 2;
      return (dock.width() > dock.height()) == liesDown && fits && isDrawn();
    });
    EXPECT_EQ(interaction.text.liesDown(), liesDown);
    frmText& text = interaction.text;
    text.cboFont.setText("DejaVu Sans");
    text.cboFontSize.setText("36");
    text.cboCurvature.setText("4");
    text.txtText.setText("Tessimo 82%");
    text.cmdPlaceText.click();
    program->application().move({.Button = 0, .Shift = 0, .X = 0.5F, .Y = 1});
    EXPECT_TRUE(interaction.context.hoverLines.shown);
    keep(window(), std::string("text_") + name);
    expectTextsFit(dock);
    EXPECT_TRUE(window().rect().contains(dock.geometry()));
    text.cmdCancel.click();
  }
}

TEST_P(Looks, ToolBarsAtTheBottomWithNames) {
  window().setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  window().addToolBar(Qt::BottomToolBarArea, window().toolBars().toolBar("barDraw"));
  waitUntil([&] { return window().toolBars().toolBar("barDraw")->y() > 400 && isDrawn(); });
  keep(window(), "bars_with_names");
}

TEST_P(Looks, Dialogs) {
  lookAtDialog("miGrid/SnapSelections", "dialog_grids");
  lookAtDialog("miEnterPosition", "dialog_position");
  lookAtDialog("miAboutTessimoMill", "dialog_about");
  lookAtDialog("miSelectTool", "dialog_tool_chest");
  lookAtDialog("miDrawingTitleBlock", "dialog_title_block");
  lookAtDialog("miCustomize", "dialog_customize");
  lookAtDialog("miScaleDrawing", "dialog_scale");
  lookAtDialog("miMirror", "dialog_mirror");
  lookAtDialog("miRotate", "dialog_rotate");
  lookAt("dialog_radius", [this] {
    Application& application = program->application();
    application.clickTool("miChangeRadius");
    application.move({.Button = 0, .X = 1, .Y = 1});
    application.press({.Button = kLeftButton, .X = 1, .Y = 1});
    application.release({.Button = kLeftButton, .X = 1, .Y = 1});
  });
}

// With its holes computed, in the picture and in the drawing behind it.
TEST_P(Looks, BoltCircle) {
  bool looked = false;
  testing::whenModal([&](QWidget& dialog) {
    const std::pair<const char*, const char*> fields[] = {{"txtNumberOfHoles", "6"},
                                                          {"txtBoltCircleDiameter", "2.5"},
                                                          {"txtBoltHoleDiameter", "0.375"}};
    for (const auto& [name, text] : fields) {
      auto* field = dialog.findChild<QLineEdit*>(name);
      field->setText(text);
      emit field->textEdited(text);
    }
    dialog.findChild<QPushButton*>("cmdCompute")->click();
    dialog.findChild<QCheckBox*>("chkDisplayCoordinates")->click();
    dialog.findChild<QListWidget*>("lstBoltHoleResults")->setCurrentRow(1);
    keep(dialog, "dialog_bolt_circle");
    keep(window(), "window_bolt_circle");
    expectTextsFit(dialog);
    EXPECT_EQ(dialog.findChild<QListWidget*>("lstBoltHoleResults")->count(), 6);
    const QImage picture = dialog.findChild<QWidget*>("Picture1")->grab().toImage();
    EXPECT_NE(picture.pixel(picture.width() / 2, picture.height() / 8), picture.pixel(1, 1))
        << "the first hole is marked at the top";
    looked = true;
    dialog.close();
  });
  window().toolBars().action("miBoltCircle")->trigger();
  EXPECT_TRUE(looked);
}

// With the group that stands out in the drawing behind it, and its map.
TEST_P(Looks, PathEditor) {
  bool looked = false;
  const QImage plain = program->surface().drawing().picture().copy();
  testing::whenModal([&](QWidget& editor) {
    testing::widgetIn<QRadioButton>(editor, "optApplyToGroup").click();
    EXPECT_NE(program->surface().drawing().picture(), plain);
    keep(editor, "dialog_path_editor");
    keep(window(), "window_path_editor");
    expectTextsFit(editor);
    lookAt("dialog_path_map",
           [&] { testing::widgetIn<QPushButton>(editor, "cmdOrderPaths").click(); });
    looked = true;
    editor.close();
  });
  window().toolBars().action("miEditPath/Cycle")->trigger();
  EXPECT_TRUE(looked);
  EXPECT_LE(testing::largestDifference(program->surface().drawing().picture(), plain),
            testing::kSmoothing);
}

TEST_P(Looks, UnsavedWork) {
  std::vector<UnsavedWork> work;
  for (const char* const name : {"gear housing.cdm", ""}) {
    std::ofstream(folder("1.record"));
    auto journal = AbandonedFile::claim(folder("1.record"));
    ASSERT_TRUE(journal);
    work.push_back({std::move(*journal),
                    *name == '\0' ? "" : "/home/ada/parts/" + std::string(name),
                    "03/09/2026 14:05:09", 412, 1730});
    std::filesystem::remove(folder("1.record"));
  }
  lookAt("unsaved_work", [&] {
    frmRestore form(work);
    program->application().session.host.prompts.showModal(form);
    EXPECT_EQ(form.choice(), frmRestore::Choice::Later);
  });
}

TEST_P(Looks, TheChoiceOfTheControl) {
  lookAtDialog("miControl", "control_and_units");
}

TEST_P(Looks, EveryIconCanBeSeenInEverySize) {
  const int ground = qGray(testing::toolkit().palette().color(QPalette::Window).rgb());
  const ToolHost& tools = program->application().interaction.tools;
  for (const std::string& tool : tools.toolNames()) {
    if (tool.starts_with("miRecentFile")) continue;
    for (const int size : {16, 22, 32}) {
      const QImage icon = toolIcon(*tools.tool(tool)).pixmap(QSize(size, size)).toImage();
      int seen = 0;
      for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
          const QRgb pixel = icon.pixel(x, y);
          if (qAlpha(pixel) > 128 && std::abs(qGray(pixel) - ground) > 60) ++seen;
        }
      }
      EXPECT_GT(seen, icon.width() / 2) << tool << " at " << size;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, Looks, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tess
