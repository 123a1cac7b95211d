// The whole program in its window, worked by pointer and keys like an operator's.
#include "shell/qt/desktop_program.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/qt/theme.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/qt/running_desktop.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

using DesktopProgramTest = testing::RunningDesktop;

// Does something with the modal dialog as soon as there is one.
class WhenAsked {
 public:
  explicit WhenAsked(std::function<void(QWidget&)> act) : act_(std::move(act)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
    timer_.start(kPollMilliseconds);
  }
  bool asked() const { return asked_; }

 private:
  static constexpr int kPollMilliseconds = 5;

  void look() {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;
    timer_.stop();
    asked_ = true;
    act_(*dialog);
  }

  std::function<void(QWidget&)> act_;
  QTimer timer_;
  bool asked_ = false;
};

TEST_F(DesktopProgramTest, AFirstStartAsksOnceForTheControl) {
  testing::writeFile(folder("FirstStart.txt"), "");
  const WhenAsked answer([](QWidget& dialog) {
    auto* const list = dialog.findChild<QListWidget*>("lstControl");
    list->setCurrentItem(list->findItems("LinuxCNC mill", Qt::MatchExactly).at(0));
    dialog.findChild<QPushButton*>("cmdAccept")->click();
  });
  ASSERT_TRUE(program->open("", /*firstStart=*/true));
  EXPECT_TRUE(answer.asked());
  EXPECT_EQ(program->application().session.setupname, "linuxcnc_mill_inch.msu");
  EXPECT_FALSE(folder.has("FirstStart.txt"));
}

TEST_F(DesktopProgramTest, AFirstStartThatIsClosedDoesNotAskAgain) {
  testing::writeFile(folder("FirstStart.txt"), "");
  const WhenAsked answer([](QWidget& dialog) { dialog.close(); });
  ASSERT_TRUE(program->open("", /*firstStart=*/true));
  EXPECT_TRUE(answer.asked());
  EXPECT_EQ(program->application().session.setupname, "mill_inch.msu");
  EXPECT_FALSE(folder.has("FirstStart.txt"));
}

TEST_F(DesktopProgramTest, ComesUpEmptyWithItsCaption) {
  open();
  EXPECT_TRUE(program->window().windowTitle().startsWith("Tessimo Mill - Version "));
  EXPECT_EQ(program->window().statusLabel(StatusPanel::FileName).text(), "Drawing:<Untitled>");
  EXPECT_EQ(store().NumSegments, 0);
  testing::keepScreenshot(program->window(), "program_empty");
}

TEST_F(DesktopProgramTest, LinesAreDrawnByKeyAndPointer) {
  open();
  key(Qt::Key_L, "l");
  EXPECT_TRUE(program->window().toolBars().action("miLine")->isChecked());
  click(2, 1);
  click(2, 2);
  EXPECT_EQ(store().NumSegments, 2);
  EXPECT_NEAR(store().x1[2], 2, 0.02);
  EXPECT_NEAR(store().y1[2], 2, 0.02);
  testing::keepScreenshot(program->window(), "program_lines");
}

TEST_F(DesktopProgramTest, ARubberBandVanishesWithTheRelease) {
  open();
  key(Qt::Key_R, "r");
  settle();
  const QImage before = pictureWithoutLetters();
  pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, pixel(1, 1));
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, pixel(3, 2));
  EXPECT_NE(pictureWithoutLetters(), before);
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, pixel(0, 0));
  pointer(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, pixel(0, 0));
  settle();
  EXPECT_EQ(store().NumSegments, 0) << "released on the marker";
  EXPECT_EQ(pictureWithoutLetters(), before);
}

TEST_F(DesktopProgramTest, ClosingAsksAboutUnsavedWork) {
  open();
  key(Qt::Key_L, "l");
  click(2, 1);
  std::string asked;
  testing::whenModal([&](QWidget& box) {
    auto& message = dynamic_cast<QMessageBox&>(box);
    asked = message.text().toStdString();
    message.button(QMessageBox::Cancel)->click();
  });
  EXPECT_FALSE(program->window().close());
  EXPECT_EQ(asked, "Drawing not saved! Save now?");
  EXPECT_EQ(store().NumSegments, 1);
}

// What it says then may be about a disk that is full: it must not go with the window.
TEST_F(DesktopProgramTest, WhatFailsAtTheEndIsTold) {
  open();
  std::filesystem::create_directory(folder("Layout.tb3"));
  std::string told;
  bool stayed = false;
  const QPointer<QWindow> shown = program->window().windowHandle();
  testing::whenModal([&](QWidget& report) {
    // What the closing itself has asked for comes behind this.
    QMetaObject::invokeMethod(
        &report,
        [&] {
          stayed = shown && shown->handle() != nullptr;
          told = report.findChild<QPlainTextEdit*>("txtError")->toPlainText().toStdString();
          report.close();
        },
        Qt::QueuedConnection);
  });
  // As from a button of its frame.
  QCloseEvent close;
  QApplication::sendEvent(program->window().windowHandle(), &close);
  EXPECT_TRUE(close.isAccepted());
  EXPECT_TRUE(stayed);
  EXPECT_THAT(told, ::testing::HasSubstr("Source: " + folder("Layout.tb3")));
}

// As when the pointer is over the window while that is taken away.
TEST_F(DesktopProgramTest, EventsOfTheLastMomentReachNothing) {
  open();
  int reached = 0;
  program->application().onSettled = [&reached] { ++reached; };
  QEvent leave(QEvent::Leave);
  SurfaceWidget& surface = program->surface();
  QApplication::sendEvent(&surface, &leave);
  EXPECT_EQ(reached, 1);
  QObject::connect(&program->window(), &QObject::destroyed, &surface,
                   [&] { QApplication::sendEvent(&surface, &leave); });
  program.reset();
  EXPECT_EQ(reached, 1);
}

TEST_F(DesktopProgramTest, TheLayoutIsKeptFromOneRunToTheNext) {
  open();
  program->application().interaction.tools.closeBand("barCAM");
  EXPECT_TRUE(program->window().close());
  program = std::make_unique<DesktopProgram>(folder());
  open();
  EXPECT_FALSE(program->window().toolBars().toolBar("barCAM")->isVisible());
  EXPECT_TRUE(program->window().toolBars().toolBar("barDraw")->isVisible());
}

TEST_F(DesktopProgramTest, TheGridDialogShowsAndTakesTheSpacing) {
  open();
  testing::whenModal([](QWidget& dialog) {
    testing::keepScreenshot(dialog, "grid_setup");
    dialog.findChild<QLineEdit*>("txtvgrid")->setFocus();
    dialog.findChild<QLineEdit*>("txtvgrid")->clear();
    for (const char letter : std::string("0.75")) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
      QApplication::sendEvent(dialog.findChild<QLineEdit*>("txtvgrid"), &press);
    }
    dialog.findChild<QPushButton*>("cmdAccept")->click();
  });
  program->window().toolBars().action("miGrid/SnapSelections")->trigger();
  EXPECT_FLOAT_EQ(store().visualgrid, 0.75F);
}

TEST_F(DesktopProgramTest, TheStatisticsPanelCounts) {
  open();
  program->application().interaction.tools.openBand("barStatistics");
  key(Qt::Key_L, "l");
  click(2, 1);
  auto* count = program->window().findChild<QLabel*>("lblEntities");
  ASSERT_NE(count, nullptr);
  EXPECT_EQ(count->text(), "1");
}

TEST_F(DesktopProgramTest, ResizingKeepsTheView) {
  open();
  const float span = program->application().interaction.view.viewspan;
  program->window().setWindowState(Qt::WindowNoState);
  program->window().resize(900, 700);
  settle();
  EXPECT_EQ(program->application().interaction.view.viewspan, span);
  EXPECT_EQ(program->surface().size(), QSize(program->application().interaction.view.picwidth,
                                             program->application().interaction.view.picheight));
}

}  // namespace
}  // namespace tess
