// Palettes and style sheet.
#include "shell/qt/theme.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>

namespace tess {

namespace {

struct Shades {
  const char* window;  // bars, panels, dialogs
  const char* base;    // fields and lists
  const char* raised;  // buttons
  const char* text;
  const char* muted;  // of what is disabled, and of hints
  const char* border;
  const char* hover;
  const char* pressed;
  const char* accent;
  const char* onAccent;  // text on the accent
  const char* iconAccent;
  const char* iconPath;
};

constexpr Shades kLight{"#f4f5f7", "#ffffff", "#fcfcfd", "#1d2430", "#98a1ad", "#d3d8df",
                        "#e4e9f0", "#d6e4f5", "#1f6fc4", "#ffffff", "#1f6fc4", "#d9661f"};
constexpr Shades kDark{"#25282d", "#1b1d21", "#31353b", "#e3e6ea", "#777e88", "#3d4249",
                       "#363b43", "#2c4766", "#3d8fe0", "#ffffff", "#5aa9f5", "#f2924f"};

const Shades& shadesOf(bool dark) {
  return dark ? kDark : kLight;
}

QPalette paletteOf(const Shades& shades) {
  const QColor text(shades.text);
  QPalette palette(text, QColor(shades.raised), QColor(shades.base), QColor(shades.border),
                   QColor(shades.border), text, QColor(shades.accent), QColor(shades.base),
                   QColor(shades.window));
  palette.setColor(QPalette::AlternateBase, QColor(shades.window));
  palette.setColor(QPalette::Highlight, QColor(shades.accent));
  palette.setColor(QPalette::HighlightedText, QColor(shades.onAccent));
  palette.setColor(QPalette::Link, QColor(shades.accent));
  palette.setColor(QPalette::ToolTipBase, QColor(shades.raised));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, QColor(shades.muted));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
    palette.setColor(QPalette::Disabled, role, QColor(shades.muted));
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.border));
  return palette;
}

// %1 window, %2 base, %3 border, %4 hover, %5 pressed, %6 accent, %7 muted, %8 text
constexpr const char* kSheet = R"(
QMainWindow::separator { background: %3; width: 1px; height: 1px; }
QMenuBar { background: %1; padding: 2px 4px; border-bottom: 1px solid %3; }
QMenuBar::item { padding: 4px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: %4; }
QMenu { background: %2; border: 1px solid %3; padding: 5px; }
QMenu::item { padding: 5px 26px 5px 8px; border-radius: 4px; }
QMenu::item:selected { background: %4; color: %8; }
QMenu::item:disabled { color: %7; }
QMenu::icon { padding-left: 6px; }
QMenu::icon:checked { background: %5; border-radius: 4px; }
QMenu::separator { height: 1px; background: %3; margin: 5px 6px; }
QToolBar { background: %1; border: 0; padding: 3px; spacing: 1px; }
QToolBar::separator { background: %3; width: 1px; height: 1px; margin: 4px; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 5px; padding: 3px; }
QToolBar QToolButton:hover { background: %4; }
QToolBar QToolButton:pressed { background: %5; }
QToolBar QToolButton:checked { background: %5; border-color: %6; }
QToolBar QToolButton[popupMode="1"] { padding-right: 14px; }
QToolBar QToolButton::menu-button { border: 0; width: 12px; }
QStatusBar { background: %1; border-top: 1px solid %3; }
QStatusBar::item { border: 0; }
QToolTip { background: %2; color: %8; border: 1px solid %3; padding: 4px 6px; }
QDockWidget::title { background: %1; padding: 6px 8px; border-bottom: 1px solid %3; }
)";

QString sheetOf(const Shades& shades) {
  return QString(kSheet).arg(shades.window, shades.base, shades.border, shades.hover,
                             shades.pressed, shades.accent, shades.muted, shades.text);
}

// Room between things, the same everywhere.
class SpaciousStyle : public QProxyStyle {
 public:
  SpaciousStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    switch (metric) {
      case PM_LayoutLeftMargin:
      case PM_LayoutRightMargin:
      case PM_LayoutTopMargin:
      case PM_LayoutBottomMargin:
        return 12;
      case PM_LayoutHorizontalSpacing:
      case PM_LayoutVerticalSpacing:
        return 8;
      case PM_ToolBarIconSize:
        return 22;
      case PM_SmallIconSize:
        return 18;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton) return plain.expandedTo({84, 30});
    if (type == CT_LineEdit || type == CT_ComboBox) return plain.expandedTo({0, 28});
    return plain;
  }
};

}  // namespace

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

bool systemPrefersDark(const QPalette& system) {
  const QByteArray wished = qgetenv("TESSIMO_THEME").toLower();
  if (wished == "dark" || wished == "light") return wished == "dark";
  return isDark(system);
}

void applyTheme(QApplication& application, bool dark) {
  const Shades& shades = shadesOf(dark);
  application.setStyle(new SpaciousStyle);
  application.setPalette(paletteOf(shades));
  application.setStyleSheet(sheetOf(shades));
}

IconColors iconColors(const QPalette& palette) {
  const Shades& shades = shadesOf(isDark(palette));
  return {QColor(shades.text), QColor(shades.iconAccent), QColor(shades.iconPath)};
}

}  // namespace tess
