// The edges of what the operator fills in can be seen in both themes: at least three times as light
// or dark as what is round them.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <gtest/gtest.h>

#include "shell/qt/bolt_pane.h"
#include "shell/qt/rows_pane.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/seen_contrast.h"

namespace tess {
namespace {

// How the edge at the left, half-way down, stands out from the window.
double edgeContrast(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  const QRgb ground = widget.palette().color(QPalette::Window).rgb();
  return testing::bestContrast(picture, {0, picture.height() / 2, 3, 1}, ground);
}

class Outlines : public ::testing::TestWithParam<bool> {
 protected:
  Outlines() { applyTheme(testing::toolkit(), GetParam()); }
  ~Outlines() override { applyTheme(testing::toolkit(), /*dark=*/false); }

  template <class Shown>
  static void expectEdge() {
    Shown widget;
    widget.resize(widget.sizeHint());
    EXPECT_GE(edgeContrast(widget), 3) << widget.metaObject()->className();
  }
};

TEST_P(Outlines, StandOutFromTheWindow) {
  expectEdge<QLineEdit>();
  expectEdge<QComboBox>();
  expectEdge<QCheckBox>();
  expectEdge<QRadioButton>();
  expectEdge<QListWidget>();
  expectEdge<QPlainTextEdit>();
  expectEdge<QPushButton>();
}

// Pictures in a form are as large as their layout lets them be.
TEST_P(Outlines, OfPicturesStandOutFromTheWindow) {
  RowsPane rows(nullptr);
  BoltPane holes(nullptr);
  for (QWidget* pane : {static_cast<QWidget*>(&rows), static_cast<QWidget*>(&holes)}) {
    pane->resize(120, 80);
    EXPECT_GE(edgeContrast(*pane), 3);
  }
}

// What is dragged can be seen on what it is dragged along.
TEST_P(Outlines, OfWhatIsDraggedStandOut) {
  const QRgb ground = testing::toolkit().palette().color(QPalette::Window).rgb();
  for (const Qt::Orientation way : {Qt::Horizontal, Qt::Vertical}) {
    QScrollBar bar(way);
    bar.resize(way == Qt::Horizontal ? QSize(200, 14) : QSize(14, 200));
    bar.setRange(0, 100);
    bar.setPageStep(50);
    EXPECT_GE(testing::bestContrast(bar.grab().toImage(), bar.rect(), ground), 3);
  }
  QSlider slider(Qt::Horizontal);
  slider.resize(200, 22);
  slider.setValue(50);
  const QImage picture = slider.grab().toImage();
  EXPECT_GE(testing::bestContrast(picture, {85, 0, 30, picture.height()}, ground), 3) << "handle";
  EXPECT_GE(testing::bestContrast(picture, {150, 0, 30, picture.height()}, ground), 3) << "groove";
}

// A button that has the keyboard is told from one that has not by more than a shade.
TEST_P(Outlines, OfAButtonWithTheKeyboardAreTwiceAsWide) {
  QWidget window;
  QPushButton with("Clear", &window);
  QPushButton without("Close", &window);
  without.move(0, 60);
  window.show();
  QApplication::setActiveWindow(&window);
  with.setFocus();
  const QRgb ground = window.palette().color(QPalette::Button).rgb();
  const auto edge = [&](QPushButton& button, int x) {
    const QImage picture = button.grab().toImage();
    return testing::contrast(picture.pixel(x, picture.height() / 2), ground);
  };
  EXPECT_EQ(with.size(), with.sizeHint().expandedTo(with.size()));
  EXPECT_EQ(with.sizeHint().height(), without.sizeHint().height());
  EXPECT_GE(edge(with, 1), 3);
  EXPECT_LT(edge(without, 1), 1.2);
}

TEST_P(Outlines, OfWhatIsDisabledStayBack) {
  QLineEdit line;
  line.setEnabled(false);
  EXPECT_LT(edgeContrast(line), 3);
}

// Units and examples are to be read, not only seen.
TEST_P(Outlines, HintsInFieldsAreLegible) {
  const QPalette palette = testing::toolkit().palette();
  EXPECT_GE(testing::contrast(palette.color(QPalette::PlaceholderText).rgb(),
                              palette.color(QPalette::Base).rgb()),
            4.5);
}

// What is off can still be made out.
TEST_P(Outlines, WordsThatAreOffCanBeMadeOut) {
  const QPalette palette = testing::toolkit().palette();
  for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base}) {
    EXPECT_GE(testing::contrast(palette.color(QPalette::Disabled, QPalette::WindowText).rgb(),
                                palette.color(ground).rgb()),
              3);
  }
}

// What tells that a bar has more than it shows.
TEST_P(Outlines, TheSignOfMoreToolsStandsOut) {
  const QRgb ground = testing::toolkit().palette().color(QPalette::Window).rgb();
  for (const QStyle::StandardPixmap sign :
       {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton}) {
    const QImage picture = testing::toolkit().style()->standardIcon(sign).pixmap(18, 18).toImage();
    EXPECT_GE(testing::bestContrast(picture, picture.rect(), ground), 4.5) << sign;
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, Outlines, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tess
