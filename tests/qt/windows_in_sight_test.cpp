// Windows that a change of the screens leaves out of sight.
#include "shell/qt/windows_in_sight.h"

#include <QDialog>
#include <QDockWidget>

#include "tests/qt/desktop_test_support.h"
#include "tests/qt/plate_program.h"

namespace tess {
namespace {

using testing::waitFor;

TEST(PlaceInSight, MovesAsLittleAsItTakes) {
  const QRect room(100, 50, 1000, 700);
  EXPECT_EQ(placeInSight({200, 100, 300, 200}, room), QRect(200, 100, 300, 200));
  EXPECT_EQ(placeInSight({900, 700, 300, 200}, room), QRect(800, 550, 300, 200));
  EXPECT_EQ(placeInSight({-500, 0, 300, 200}, room), QRect(100, 50, 300, 200));
  EXPECT_EQ(placeInSight({5000, 100, 300, 200}, room), QRect(800, 100, 300, 200));
}

TEST(PlaceInSight, MakesSmallerWhatDoesNotFit) {
  EXPECT_EQ(placeInSight({50, 50, 3000, 200}, {0, 0, 800, 600}), QRect(0, 50, 800, 200));
  EXPECT_EQ(placeInSight({900, 900, 3000, 2000}, {10, 20, 800, 600}), QRect(10, 20, 800, 600));
}

class ScreenThatChanges : public ::testing::Test {
 protected:
  ScreenThatChanges() { testing::toolkit(); }
  static QRect room() { return QGuiApplication::primaryScreen()->availableGeometry(); }
  static void change() {
    QScreen* const screen = QGuiApplication::primaryScreen();
    emit screen->availableGeometryChanged(screen->availableGeometry());
  }
  static bool isInSight(const QWidget& window) { return room().contains(window.frameGeometry()); }

  WindowsInSight inSight;
};

TEST_F(ScreenThatChanges, BringsADialogBack) {
  QDialog dialog;
  dialog.resize(300, 200);
  dialog.show();
  dialog.move(room().right() - 100, room().bottom() + 4000);
  change();
  EXPECT_TRUE(waitFor([&] { return isInSight(dialog); }));
  EXPECT_EQ(dialog.size(), QSize(300, 200));
}

TEST_F(ScreenThatChanges, LeavesWhatIsInSight) {
  QDialog inside, outside;
  for (QDialog* const dialog : {&inside, &outside}) {
    dialog->resize(300, 200);
    dialog->show();
  }
  inside.move(room().left() + 17, room().top() + 29);
  const QRect before = inside.frameGeometry();
  outside.move(room().right() + 4000, 0);
  change();
  EXPECT_TRUE(waitFor([&] { return isInSight(outside); }));
  EXPECT_EQ(inside.frameGeometry(), before);
}

TEST_F(ScreenThatChanges, MakesALargeDialogFit) {
  QDialog dialog;
  dialog.show();
  dialog.resize(room().width() + 500, 200);
  change();
  EXPECT_TRUE(waitFor([&] { return isInSight(dialog); }));
}

using ProgramOnAScreenThatChanges = testing::PlateProgram;

TEST_F(ProgramOnAScreenThatChanges, HasItsFloatingPanelsBack) {
  auto* const panel = program->window().findChild<QDockWidget*>("barStatistics");
  ASSERT_NE(panel, nullptr);
  panel->setFloating(true);
  panel->show();
  panel->move(50000, 30000);
  QScreen* const screen = QGuiApplication::primaryScreen();
  emit screen->availableGeometryChanged(screen->availableGeometry());
  EXPECT_TRUE(
      waitFor([&] { return screen->availableGeometry().contains(panel->frameGeometry()); }));
}

}  // namespace
}  // namespace tess
