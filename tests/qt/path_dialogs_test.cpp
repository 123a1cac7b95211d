// The path editor and the map of the path in their windows: their layouts have a place for every
// control, and they follow the hand.
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <filesystem>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

using testing::expectWholeLayout;
using testing::whenModal;
using testing::widgetIn;

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
    EXPECT_EQ(widgetIn<QLabel>(editor, "lblTotalSegments").text().toStdString(),
              "Total Segments : " + std::to_string(rows));
    testing::keepScreenshot(editor, "path_editor");
    widgetIn<QPushButton>(editor, "cmdNext").click();
    EXPECT_EQ(widgetIn<QLineEdit>(editor, "txtps").text(), "2");
    widgetIn<QRadioButton>(editor, "optApplyToGroup").click();
    EXPECT_FALSE(widgetIn<QLineEdit>(editor, "txtpsx0").isEnabled());
    testing::keepScreenshot(editor, "path_editor_group");
    whenModal([&](QWidget& map) {
      EXPECT_EQ(map.windowTitle(), "Path Segments");
      auto& list = widgetIn<QListView>(map, "lstPathSegments");
      const auto choose = [&](int row) { list.setCurrentIndex(list.model()->index(row, 0)); };
      choose(1);
      EXPECT_EQ(widgetIn<QLabel>(map, "lblPathOrSeg").text(), "Path Segment");
      testing::keepScreenshot(map, "path_map");
      const auto text = [&](int row) { return list.model()->index(row, 0).data().toString(); };
      int lastGroup = list.model()->rowCount() - 1;
      while (!text(lastGroup).startsWith("Path Group #")) --lastGroup;
      choose(lastGroup);
      while (list.currentIndex().row() > 0) widgetIn<QPushButton>(map, "cmdPromote").click();
      EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(0, 0)));
      widgetIn<QPushButton>(map, "cmdApply").click();
    });
    widgetIn<QPushButton>(editor, "cmdOrderPaths").click();
    widgetIn<QPushButton>(editor, "cmdExit").click();
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
    EXPECT_TRUE(widgetIn<QLineEdit>(editor, "txtIncrDepth").isVisible());
    EXPECT_FALSE(widgetIn<QLineEdit>(editor, "txtpsxc").isVisible());
    EXPECT_EQ(widgetIn<QLabel>(editor, "lblCycleCode").text(), "Cycle Code : G83");
    testing::keepScreenshot(editor, "path_editor_cycle");
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
}

}  // namespace
}  // namespace tess
