// The edges of what the operator fills in can be seen in both themes: at least three times as light
// or dark as what is round them.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyle>
#include <gtest/gtest.h>

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
