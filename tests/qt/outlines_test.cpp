// The edges of what the operator fills in can be seen in both themes: at least three times as light
// or dark as what is round them.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"

namespace tess {
namespace {

double linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(QRgb color) {
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
         0.0722 * linear(qBlue(color));
}

double contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

// How the edge at the left, half-way down, stands out from the window.
double edgeContrast(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  const QRgb ground = widget.palette().color(QPalette::Window).rgb();
  double best = 1;
  for (int x = 0; x < 3; ++x) {
    best = std::max(best, contrast(picture.pixel(x, picture.height() / 2), ground));
  }
  return best;
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

INSTANTIATE_TEST_SUITE_P(Themes, Outlines, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tess
