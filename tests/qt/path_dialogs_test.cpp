// The path editor and the map of the path in their windows: their layouts have a place for every
// control, and they follow the hand.
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/form_layout.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

class PathDialogsTest : public ::testing::Test {
 protected:
  PathDialogsTest() {
    applyTheme(testing::toolkit(), /*dark=*/false);
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", "");
    for (const char* const file : {"plate.cdm", "PLATE.TPM"}) {
      std::filesystem::copy(std::filesystem::path(TESSIMO_SOURCE_DIR "/examples") / file,
                            home(std::string("CNC/") + file));
    }
    program = std::make_unique<DesktopProgram>(home());
    program->open(home("CNC/plate.cdm"));
  }

  CamContext& cam() { return program->application().interaction.cam; }
  DrawingStore& store() { return program->application().store; }

  static void whenModal(const std::function<void(QWidget&)>& act) {
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
};

TEST_F(PathDialogsTest, LayoutsHaveEveryControl) {
  expectWholeLayout(dlgEditPath(cam()));
  expectWholeLayout(frmPathMap(cam()));
}

TEST_F(PathDialogsTest, TheEditorAndItsMapFollowTheHand) {
  const int rows = store().NumPathSegments;
  ASSERT_GT(rows, 10);
  const int lastCode = store().pscode[rows];
  whenModal([&](QWidget& editor) {
    EXPECT_EQ(editor.windowTitle(), "View/Edit Path Segments");
    EXPECT_EQ(in<QLabel>(editor, "lblTotalSegments").text().toStdString(),
              "Total Segments : " + std::to_string(rows));
    testing::keepScreenshot(editor, "path_editor");
    in<QPushButton>(editor, "cmdNext").click();
    EXPECT_EQ(in<QLineEdit>(editor, "txtps").text(), "2");
    in<QRadioButton>(editor, "optApplyToGroup").click();
    EXPECT_FALSE(in<QLineEdit>(editor, "txtpsx0").isEnabled());
    testing::keepScreenshot(editor, "path_editor_group");
    whenModal([&](QWidget& map) {
      EXPECT_EQ(map.windowTitle(), "Path Segments");
      auto& list = in<QListWidget>(map, "lstPathSegments");
      list.setCurrentRow(1);
      EXPECT_EQ(in<QLabel>(map, "lblPathOrSeg").text(), "Path Segment");
      testing::keepScreenshot(map, "path_map");
      int lastGroup = list.count() - 1;
      while (!list.item(lastGroup)->text().startsWith("Path Group #")) --lastGroup;
      list.setCurrentRow(lastGroup);
      while (list.currentRow() > 0) in<QPushButton>(map, "cmdPromote").click();
      EXPECT_TRUE(list.item(0)->isSelected());
      in<QPushButton>(map, "cmdApply").click();
    });
    in<QPushButton>(editor, "cmdOrderPaths").click();
    in<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
  EXPECT_EQ(store().pscode[1], lastCode);
  EXPECT_EQ(store().NumPathSegments, rows);
}

TEST_F(PathDialogsTest, ACycleHasFieldsOfItsOwn) {
  {
    Change change(cam().changes);
    change.paths.insert(1, {.type = 83, .xc = 0.1F, .z = -1, .feed = 4, .code = 100});
    change.keep();
  }
  whenModal([](QWidget& editor) {
    EXPECT_TRUE(in<QLineEdit>(editor, "txtIncrDepth").isVisible());
    EXPECT_FALSE(in<QLineEdit>(editor, "txtpsxc").isVisible());
    EXPECT_EQ(in<QLabel>(editor, "lblCycleCode").text(), "Cycle Code : G83");
    testing::keepScreenshot(editor, "path_editor_cycle");
    in<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
}

}  // namespace
}  // namespace tess
