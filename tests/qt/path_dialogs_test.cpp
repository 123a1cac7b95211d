// The path editor and the map of the path in their windows: their layouts have a place for every
// control, and they follow the hand.
#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>
#include <QWindow>
#include <filesystem>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/qt/plate_program.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

using testing::expectWholeLayout;
using testing::whenModal;
using testing::widgetIn;

class PathDialogsTest : public testing::PlateProgram {
 protected:
  // The operator's pointer and keys.
  static void press(QWidget& target, QPointF at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, target.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                        Qt::NoModifier);
      QApplication::sendEvent(&target, &event);
    }
  }
  static void key(QWidget& target, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
  }
  // The middle of a path row, on the surface.
  QPointF placeOf(int ps) {
    const PixelPoint at = program->surface().drawing().toPixels(
        (store().psx0[ps] + store().psx1[ps]) / 2, (store().psy0[ps] + store().psy1[ps]) / 2);
    return {at.x, at.y};
  }

  CamContext& cam() { return program->application().interaction.cam; }
  DrawingStore& store() { return program->application().store; }
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

TEST_F(PathDialogsTest, TheTableShowsItsRowsInColumns) {
  whenModal([&](QWidget& editor) {
    auto& table = widgetIn<QTableView>(editor, "lstRows");
    const QAbstractItemModel& rows = *table.model();
    EXPECT_EQ(rows.rowCount(), static_cast<int>(store().NumPathSegments));
    ASSERT_EQ(rows.columnCount(), 8);
    EXPECT_EQ(rows.headerData(4, Qt::Horizontal).toString(), "End X");
    EXPECT_EQ(rows.index(0, 0).data().toString(), "1");
    EXPECT_EQ(rows.index(0, 3).data().toString(), "Cycle 81");
    EXPECT_EQ(rows.index(0, 7).data().toString(), "8");
    EXPECT_EQ(table.currentIndex().row(), 0);
    table.setCurrentIndex(rows.index(200, 2));
    EXPECT_EQ(widgetIn<QLineEdit>(editor, "txtps").text(), "201");
    widgetIn<QPushButton>(editor, "cmdPrev").click();
    EXPECT_EQ(table.currentIndex().row(), 199);
    EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(table.currentIndex())));
    widgetIn<QPushButton>(editor, "cmdDel").click();
    EXPECT_EQ(rows.rowCount(), static_cast<int>(store().NumPathSegments));
    EXPECT_EQ(table.currentIndex().row(), 199);
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  const int before = store().NumPathSegments;
  mnuCAMEditPathCycle_Click(cam());
  EXPECT_EQ(store().NumPathSegments, before - 1);
}

TEST_F(PathDialogsTest, PageKeysGoFromRowToRow) {
  whenModal([&](QWidget& editor) {
    auto& depth = widgetIn<QLineEdit>(editor, "txtpsz");
    depth.setFocus();
    key(depth, Qt::Key_PageDown);
    key(depth, Qt::Key_PageDown);
    EXPECT_EQ(widgetIn<QLineEdit>(editor, "txtps").text(), "3");
    EXPECT_TRUE(depth.hasFocus());
    key(depth, Qt::Key_PageUp);
    EXPECT_EQ(widgetIn<QLineEdit>(editor, "txtps").text(), "2");
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
}

TEST_F(PathDialogsTest, AClickInTheDrawingGoesToARow) {
  addPathSegment(store(), {.type = kLine, .x0 = 0.05F, .y0 = 0.3F, .x1 = 0.35F, .y1 = 0.3F});
  const int row = store().NumPathSegments;
  whenModal([&](QWidget& editor) {
    // A redraw swallows the clicks of its time.
    ASSERT_TRUE(testing::waitFor([&] { return program->surface().drawing().Enabled(); }));
    press(program->surface(), placeOf(row));
    EXPECT_EQ(widgetIn<QLineEdit>(editor, "txtps").text().toInt(), row);
    EXPECT_EQ(widgetIn<QTableView>(editor, "lstRows").currentIndex().row(), row - 1);
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
}

TEST_F(PathDialogsTest, NothingButTheDrawingIsInReachBesideTheEditor) {
  const QPoint middle(12, 12);
  whenModal([&](QWidget& editor) {
    QWidget& window = *program->surface().window();
    const int before = cam().context.state.pendingaction();
    key(program->surface(), Qt::Key_L);
    auto* tool = window.findChild<QToolButton*>();
    ASSERT_NE(tool, nullptr);
    press(*tool, middle);
    EXPECT_FALSE(tool->isDown());
    EXPECT_EQ(cam().context.state.pendingaction(), before);
    EXPECT_FALSE(cam().context.state.DrawMode() == 1) << "L draws lines elsewhere";
    QCloseEvent close;  // as the window manager's
    QApplication::sendEvent(window.windowHandle(), &close);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(editor.isVisible());
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
  key(program->surface(), Qt::Key_L);
  EXPECT_EQ(cam().context.state.DrawMode(), 1) << "all is in reach again";
}

// Its boxes and the map are above it, not above the main window.
TEST_F(PathDialogsTest, WhatTheEditorOpensBelongsToIt) {
  whenModal([&](QWidget& editor) {
    widgetIn<QLineEdit>(editor, "txtFind").setText("none");
    whenModal([&](QWidget& box) {
      EXPECT_EQ(box.parentWidget(), &editor);
      box.close();
    });
    widgetIn<QPushButton>(editor, "cmdFindNext").click();
    whenModal([&](QWidget& map) {
      EXPECT_EQ(map.parentWidget(), &editor);
      widgetIn<QPushButton>(map, "cmdExit").click();
    });
    widgetIn<QPushButton>(editor, "cmdOrderPaths").click();
    widgetIn<QPushButton>(editor, "cmdExit").click();
  });
  mnuCAMEditPathCycle_Click(cam());
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
