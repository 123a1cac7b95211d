// The viewer of CNC programs and its companions in their windows: what is painted, and the hand on
// keys and pointer.
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <filesystem>
#include <gtest/gtest.h>

#include "cnc/dlgGcodeGen.h"
#include "cnc/dlgMenuHelper.h"
#include "cnc/dlgSendProgram.h"
#include "core/drawing_store.h"
#include "drafting/selection.h"
#include "shell/qt/file_text_pane.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/qt/plate_program.h"
#include "tests/support/stand_in_program.h"

namespace tess {
namespace {

using testing::expectWholeLayout;
using testing::whenModal;
using testing::widgetIn;

class HandOverDialogs : public testing::PlateProgram {
 protected:
  Application& application() { return program->application(); }
  dlgMenuHelper& form() { return application().viewer.form; }
  QWidget& window() { return widgetIn<QWidget>(program->window(), "dlgMenuHelper"); }
  FileTextPane& pane() {
    return *dynamic_cast<FileTextPane*>(&widgetIn<QWidget>(window(), "txtFile"));
  }

  void show(const std::string& content) {
    const std::string file = home.write("CNC/shown.CNC", content);
    application().guarded("show", [&] { application().viewer.showFile(file, ""); });
    QCoreApplication::processEvents();
  }

  static void press(QWidget& target, int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, held);
    QApplication::sendEvent(&target, &event);
  }

  // A press, and moves with the button held, on the middles of these lines of the view.
  void drag(std::initializer_list<int> lines, Qt::KeyboardModifiers held = Qt::NoModifier) {
    const int height = pane().viewport()->height() / pane().linesInView();
    QEvent::Type type = QEvent::MouseButtonPress;
    for (const int line : lines) {
      const QPointF at(120, (line + 0.3) * height);
      QMouseEvent event(type, at, pane().viewport()->mapToGlobal(at), Qt::LeftButton,
                        Qt::LeftButton, held);
      QApplication::sendEvent(pane().viewport(), &event);
      type = QEvent::MouseMove;
    }
  }

  static std::string numbered(int lines) {
    std::string text;
    for (int line = 1; line <= lines; ++line) text += "N" + std::to_string(line) + " G01\r\n";
    return text;
  }
};

TEST_F(HandOverDialogs, LayoutsHaveEveryControl) {
  const HandOver& handOver = application().handOver;
  expectWholeLayout(dlgMenuHelper(handOver));
  expectWholeLayout(dlgSendProgram(handOver));
  expectWholeLayout(dlgGcodeGen(handOver));
}

TEST_F(HandOverDialogs, TheProgramOfAPlateIsShownSearchedAndCopied) {
  application().clickTool("miMakeCNCFile");
  ASSERT_TRUE(form().isShown());
  EXPECT_EQ(window().windowTitle().toStdString(), "View File - " + home("CNC/plate.cnc"));
  EXPECT_FALSE(window().isModal());
  testing::keepScreenshot(window(), "viewer");
  auto& find = widgetIn<QLineEdit>(window(), "txtFind");
  find.setFocus();
  for (const QChar letter : QString("m06")) {
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QApplication::sendEvent(&find, &event);
  }
  const int first = form().txtFile.match().line;
  EXPECT_GT(first, 0);
  EXPECT_GE(first, pane().firstLine());
  EXPECT_LT(first, pane().firstLine() + pane().linesInView());
  press(window(), Qt::Key_Return);
  EXPECT_GT(form().txtFile.match().line, first);
  EXPECT_EQ(widgetIn<QLabel>(window(), "lblPlace").text().toStdString(), form().lblPlace.caption());
  testing::keepScreenshot(window(), "viewer_search");
  widgetIn<QPushButton>(window(), "cmdCopy").click();
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("M06 T"));
  press(window(), Qt::Key_Escape);
  EXPECT_FALSE(form().isShown());
}

TEST_F(HandOverDialogs, ThePaneScrollsToWhatIsChosenAndBack) {
  show(numbered(1000));
  const int view = pane().linesInView();
  EXPECT_GT(view, 10);
  EXPECT_EQ(pane().verticalScrollBar()->maximum(), 1000 - view);
  pane().setFocus();
  press(pane(), Qt::Key_End);
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{999, 1}));
  EXPECT_EQ(pane().firstLine(), 1000 - view);
  press(pane(), Qt::Key_PageUp);
  EXPECT_EQ(form().txtFile.chosenLast(), 999 - (view - 1));
  press(pane(), Qt::Key_Home);
  EXPECT_EQ(pane().firstLine(), 0);
  press(pane(), Qt::Key_Down);
  press(pane(), Qt::Key_Down, Qt::ShiftModifier);
  press(pane(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{1, 3}));
  press(pane(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "N2 G01\nN3 G01\nN4 G01\n");
  press(pane(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{0, 1000}));
  press(pane(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(form().txtFind.hasFocus());
  show("G90\r\n");
  EXPECT_EQ(pane().firstLine(), 0);
  EXPECT_EQ(pane().verticalScrollBar()->maximum(), 0);
}

TEST_F(HandOverDialogs, LinesAreChosenByThePointer) {
  show(numbered(1000));
  drag({3});
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{3, 1}));
  drag({5, 6, 8});
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{5, 4}));
  drag({2}, Qt::ShiftModifier);
  EXPECT_EQ(form().txtFile.chosen(), (LineSpan{2, 4}));
  const int view = pane().linesInView();
  drag({0, view + 2});
  EXPECT_GT(pane().firstLine(), 0) << "beyond the edge the text moves on";
}

TEST_F(HandOverDialogs, AClickOnALineSelectsItsRowInTheDrawing) {
  application().clickTool("miMakeCNCFile");
  const DrawingStore& store = application().store;
  int row = 5;
  application().guarded("test", [&] { selectOnlyPath(application().interaction.context, row); });
  ASSERT_FALSE(form().txtFile.marked().empty());
  const int line = form().txtFile.marked().front().first;
  EXPECT_GE(line, pane().firstLine());
  EXPECT_LT(line, pane().firstLine() + pane().linesInView());
  testing::keepScreenshot(window(), "viewer_row");
  pane().verticalScrollBar()->setValue(line + 20);
  drag({2});
  row = 0;
  int selected = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (!hasSelectionMark(store.pscode[ps])) continue;
    row = ps;
    ++selected;
  }
  EXPECT_EQ(selected, 1);
  EXPECT_GT(row, 5);
  EXPECT_TRUE(form().txtFile.isMarked(form().txtFile.chosenLast()));
}

TEST_F(HandOverDialogs, OddTextsArePainted) {
  show(std::string("\0\x1B[2J\t\xFF\x7F\tM30", 12) + std::string(300000, 'W'));
  EXPECT_GT(pane().horizontalScrollBar()->maximum(), 0);
  EXPECT_FALSE(window().grab().isNull());
  testing::keepScreenshot(window(), "viewer_odd_bytes");
  EXPECT_TRUE(widgetIn<QLabel>(window(), "lblNotice").isVisible());
  form().txtFile.find("m30", /*backwards=*/false);
  EXPECT_FALSE(window().grab().isNull());
  show("");
  EXPECT_FALSE(window().grab().isNull());
  press(pane(), Qt::Key_Down);
  drag({0, 3});
}

TEST_F(HandOverDialogs, AMatchFarToTheRightComesIntoView) {
  show(std::string(2000, '.') + "M30\r\n");
  EXPECT_EQ(pane().horizontalScrollBar()->value(), 0);
  form().txtFile.find("M30", /*backwards=*/false);
  EXPECT_GT(pane().horizontalScrollBar()->value(), 0);
}

TEST_F(HandOverDialogs, AFileIsSentToTheProgramThatTheOperatorHasNamed) {
  const testing::StandInProgram receiver;
  application().clickTool("miMakeCNCFile");
  whenModal([&](QWidget& choice) {
    EXPECT_EQ(choice.windowTitle(), "Send To");
    widgetIn<QLineEdit>(choice, "txtProgram").setText("receiver");
    auto& field = widgetIn<QLineEdit>(choice, "txtProgram");
    emit field.textEdited(QString::fromStdString(receiver.path()));
    testing::keepScreenshot(choice, "send_to");
    whenModal([](QWidget& question) {
      testing::keepScreenshot(question, "send_question");
      press(question, Qt::Key_Return);
    });
    widgetIn<QPushButton>(choice, "cmdAccept").click();
  });
  widgetIn<QPushButton>(window(), "cmdSend").click();
  EXPECT_EQ(receiver.arguments(), std::vector<std::string>{home("CNC/plate.CNC")});
  EXPECT_TRUE(user.has("send_program"));
}

TEST_F(HandOverDialogs, TransferStartsTheControl) {
  const testing::StandInProgram control;
  home.write("GTX_LOC.DAT", control.path() + "\r\n");
  application().clickTool("miMakeCNCFile");
  auto& transfer = widgetIn<QPushButton>(window(), "cmdAutoLoad2GTXFW");
  ASSERT_TRUE(transfer.isEnabled());
  transfer.click();
  EXPECT_EQ(control.arguments(), std::vector<std::string>{home("CNC/plate.CNC")});
}

TEST_F(HandOverDialogs, TheSetupFollowsTheHand) {
  whenModal([this](QWidget& setup) {
    EXPECT_EQ(setup.windowTitle(), "G-code Control Setup");
    testing::keepScreenshot(setup, "gcode_setup");
    applyTheme(testing::toolkit(), /*dark=*/true);
    testing::keepScreenshot(setup, "gcode_setup_dark");
    emit widgetIn<QLineEdit>(setup, "txtcncpath").textEdited("d");
    widgetIn<QPushButton>(setup, "cmdAccept").click();
  });
  application().clickTool("miG-codeControlSetup");
  EXPECT_EQ(application().store.cncoutputpath, "D:");
}

TEST_F(HandOverDialogs, ItLooksTheSameInTheDark) {
  applyTheme(testing::toolkit(), /*dark=*/true);
  application().clickTool("miMakeCNCFile");
  form().txtFile.find("g01", /*backwards=*/false);
  testing::keepScreenshot(window(), "viewer_dark");
  const QImage picture = window().grab().toImage();
  EXPECT_LT(picture.pixelColor(picture.width() / 2, 10).lightness(), 100);
}

TEST_F(HandOverDialogs, TheProgramEndsWithTheViewerOpen) {
  application().clickTool("miMakeCNCFile");
  EXPECT_TRUE(program->window().close());
  program.reset();
}

}  // namespace
}  // namespace tess
