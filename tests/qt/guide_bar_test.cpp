// What stands below the drawing, in the running window: guide, typed positions, results, armed
// tools, and the keyboard's way between the drawing and the line.
#include "shell/qt/guide_bar.h"

#include <QAccessible>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>

#include "core/drawing_store.h"
#include "tests/qt/running_desktop.h"

namespace tess {
namespace {

class GuideBarTest : public testing::RunningDesktop {
 protected:
  GuideBar& bar() { return program->window().guideBar(); }
  PositionLine& line() { return bar().position(); }
  QString guide() { return bar().label(StatusPanel::Guide).text(); }
  QAction& tool(const char* name) { return *program->window().toolBars().action(name); }

  // A key for whatever has the keyboard.
  void strike(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* const focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(focus, &press);
  }
  // Letter by letter on the drawing.
  void type(const QString& text) {
    for (const QChar letter : text) strike(0, letter);
  }
  void openActive() {
    open();
    program->window().activateWindow();
    ASSERT_TRUE(testing::waitFor([&] { return program->window().isActiveWindow(); }));
    program->surface().setFocus();
  }
};

TEST_F(GuideBarTest, SaysWhatTheButtonsDo) {
  open();
  EXPECT_TRUE(guide().startsWith("Draw by Line (L) or Rectangle (R) from the marker"));
  key(Qt::Key_L, "l");
  EXPECT_TRUE(guide().startsWith("Line: left click next point, right click moves the marker"));
  EXPECT_EQ(bar().label(StatusPanel::Units).text(), "inch");
  EXPECT_EQ(bar().label(StatusPanel::Modified).text(), "Unchanged");
  click(2, 1);
  EXPECT_EQ(bar().label(StatusPanel::Modified).text(), "Modified");
  EXPECT_EQ(bar().answer().text(), "1 row added");
}

TEST_F(GuideBarTest, AnArmedToolShowsPressedInBarAndMenu) {
  open();
  key(Qt::Key_L, "l");
  click(2, 1);
  key(Qt::Key_T, "t");
  EXPECT_TRUE(tool("miTrimEntity").isChecked());
  key(Qt::Key_Escape, "");
  EXPECT_FALSE(tool("miTrimEntity").isChecked());
  EXPECT_FALSE(tool("miTrimEntity").isCheckable()) << "no empty box in the menu";
}

TEST_F(GuideBarTest, ADigitOnTheDrawingBeginsAPosition) {
  openActive();
  strike(Qt::Key_L, "l");
  type("2,25.4/2");
  EXPECT_TRUE(line().hasFocus());
  EXPECT_EQ(line().text(), "2,25.4/2");
  strike(Qt::Key_Return);
  EXPECT_EQ(store().NumSegments, 1);
  EXPECT_EQ(store().x1[1], 2);
  EXPECT_EQ(store().y1[1], 12.7F);
  EXPECT_EQ(line().text(), "");
  EXPECT_TRUE(program->surface().hasFocus()) << "keys are commands again";
  type("@1<90");
  strike(Qt::Key_Enter);
  EXPECT_EQ(store().y1[2], 13.7F);
}

TEST_F(GuideBarTest, LettersStayCommands) {
  openActive();
  strike(Qt::Key_R, "r");
  EXPECT_EQ(program->application().interaction.state.DrawMode(), 6);
  EXPECT_EQ(line().text(), "");
}

TEST_F(GuideBarTest, ATroubleIsToldAndTheTextStays) {
  openActive();
  strike(Qt::Key_L, "l");
  type("1/0,2");
  strike(Qt::Key_Return);
  EXPECT_EQ(bar().answer().text(), "The division at character 2 is by zero.");
  EXPECT_EQ(line().text(), "1/0,2");
  EXPECT_EQ(line().selectedText(), "1/0,2");
  EXPECT_EQ(store().NumSegments, 0);
  type("1");
  EXPECT_EQ(bar().answer().text(), "") << "the trouble goes with the text";
  strike(Qt::Key_Escape);
  EXPECT_EQ(line().text(), "");
  EXPECT_TRUE(program->surface().hasFocus());
}

// The drawing has the keyboard again, as after a click: what was refused is no part of what comes.
TEST_F(GuideBarTest, ADigitOnTheDrawingTakesThePlaceOfARefusedText) {
  openActive();
  type("8");
  strike(Qt::Key_Return);
  EXPECT_EQ(line().text(), "8");
  program->surface().setFocus();
  type("1.5,0.5");
  strike(Qt::Key_Return, {}, Qt::ShiftModifier);
  EXPECT_EQ(store().markerx, 1.5F);
  EXPECT_EQ(store().markery, 0.5F);
  EXPECT_TRUE(program->surface().hasFocus()) << "it was begun there";
}

TEST_F(GuideBarTest, AVeryLongTextIsToldNotCut) {
  openActive();
  strike(Qt::Key_L, "l");
  type("1");
  line().setText(QString(100000, '1'));
  strike(Qt::Key_Return);
  EXPECT_EQ(bar().answer().text(), "The text has 100000 characters, and 200 are the most.");
}

TEST_F(GuideBarTest, OnlyAPositionOfTheClipboardIsOne) {
  openActive();
  strike(Qt::Key_L, "l");
  type("1");
  const auto enterPasted = [this](const QString& text) {
    QApplication::clipboard()->setText(text);
    line().selectAll();
    line().paste();
    strike(Qt::Key_Return);
  };
  for (const QString& text : {QString(3 << 20, '7'), QString("1,2\n3,4"), QString("M30\t%"),
                              QString("1,2").repeated(50) + QChar(0xFFFE), QString("\xC2\xB1")}) {
    enterPasted(text);
    EXPECT_NE(bar().answer().text(), "") << text.left(20).toStdString();
    EXPECT_EQ(store().NumSegments, 0) << text.left(20).toStdString();
  }
  enterPasted("2,1");
  EXPECT_EQ(store().NumSegments, 1);
}

TEST_F(GuideBarTest, ShiftEnterPutsTheMarker) {
  openActive();
  type("1.3,0.7");
  strike(Qt::Key_Return, {}, Qt::ShiftModifier);
  EXPECT_EQ(store().markerx, 1.3F);
  EXPECT_EQ(store().markery, 0.7F);
}

TEST_F(GuideBarTest, TheKeyboardStaysWhileAPositionIsHalfTyped) {
  openActive();
  strike(Qt::Key_L, "l");
  type("2,");
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, pixel(1, 1));
  EXPECT_TRUE(line().hasFocus());
  line().clear();
  settle();
  pointer(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, pixel(1, 2));
  EXPECT_TRUE(testing::waitFor([&] { return program->surface().hasFocus(); }))
      << "an empty line gives it back";
}

TEST_F(GuideBarTest, WhoeverGoesToTheLineStaysThere) {
  openActive();
  strike(Qt::Key_L, "l");
  line().setFocus();
  line().setText("1,1");
  strike(Qt::Key_Return);
  EXPECT_EQ(store().NumSegments, 1);
  EXPECT_TRUE(line().hasFocus());
}

TEST_F(GuideBarTest, ResultsAreListedAndCopied) {
  open();
  bar().resultsButton().click();
  ResultsWindow* const window = bar().resultsWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isVisible());
  key(Qt::Key_L, "l");
  click(2, 1);
  EXPECT_TRUE(window->list().toPlainText().endsWith("  1 row added\n"))
      << window->list().toPlainText().toStdString();
  window->findChild<QPushButton*>("cmdCopyResults")->click();
  EXPECT_EQ(QApplication::clipboard()->text(), window->list().toPlainText());
  testing::keepScreenshot(*window, "results");
}

TEST_F(GuideBarTest, EveryAreaIsReadable) {
  open();
  for (int panel = static_cast<int>(StatusPanel::FileName);
       panel <= static_cast<int>(StatusPanel::Snap); ++panel) {
    QLabel& label = bar().label(static_cast<StatusPanel>(panel));
    QAccessibleInterface* const read = QAccessible::queryAccessibleInterface(&label);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->text(QAccessible::Name), label.text());
    EXPECT_NE(read->text(QAccessible::Description), "") << panel;
  }
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&line())->text(QAccessible::Name), "Position");
}

// At the width of a small screen, and at half of it as at 200 per cent.
TEST_F(GuideBarTest, FindsRoomOnASmallScreen) {
  open();
  key(Qt::Key_L, "l");
  for (const int width : {1366, 960}) {
    program->window().showNormal();
    program->window().resize(width, 540);
    ASSERT_TRUE(testing::waitFor([&] { return program->window().width() == width; }));
    QCoreApplication::processEvents();
    for (const StatusPanel panel :
         {StatusPanel::Snap, StatusPanel::Relative, StatusPanel::Selected, StatusPanel::Units,
          StatusPanel::Modified, StatusPanel::X, StatusPanel::Y, StatusPanel::Tool}) {
      QLabel& label = bar().label(panel);
      const int room = label.contentsRect().width();
      EXPECT_GE(room, label.fontMetrics().horizontalAdvance(label.text()))
          << label.text().toStdString() << " at " << width;
      EXPECT_LE(label.mapTo(&program->window(), QPoint(label.width(), 0)).x(), width);
    }
    testing::keepScreenshot(program->window(), "guide_" + std::to_string(width));
  }
}

}  // namespace
}  // namespace tess
