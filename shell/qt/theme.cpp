// Palettes and style sheet.
#include "shell/qt/theme.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <array>
#include <utility>

#include "shell/qt/icons.h"

namespace tess {

namespace {

struct Shades {
  const char* window;  // bars, panels, dialogs
  const char* base;    // fields, lists and menus
  const char* raised;  // buttons
  const char* text;
  const char* muted;  // what is disabled: seen, but not in the way
  const char* hint;   // units and examples in fields, to be read
  const char* border;
  const char* outline;  // of fields and boxes: three times as light or dark as what is round it
  const char* hover;
  const char* pressed;
  const char* edge;  // of what is pressed in
  const char* accent;
  const char* bright;  // the accent under the pointer
  const char* onAccent;
  const char* iconPath;
};

constexpr Shades kLight{.window = "#f4f5f7",
                        .base = "#ffffff",
                        .raised = "#ffffff",
                        .text = "#1d2430",
                        .muted = "#838c99",
                        .hint = "#687280",
                        .border = "#d0d6dd",
                        .outline = "#7d8794",
                        .hover = "#e4e9f0",
                        .pressed = "#d6e4f5",
                        .edge = "#86b3e3",
                        .accent = "#1f6fc4",
                        .bright = "#3683d6",
                        .onAccent = "#ffffff",
                        .iconPath = "#d9661f"};
constexpr Shades kDark{.window = "#25282d",
                       .base = "#1b1d21",
                       .raised = "#33373e",
                       .text = "#e3e6ea",
                       .muted = "#777e88",
                       .hint = "#979faa",
                       .border = "#41464e",
                       .outline = "#8a929e",
                       .hover = "#373c44",
                       .pressed = "#2c4766",
                       .edge = "#3f6fa3",
                       .accent = "#5aa9f5",
                       .bright = "#78baf8",
                       .onAccent = "#10233a",
                       .iconPath = "#f2924f"};

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
  palette.setColor(QPalette::PlaceholderText, QColor(shades.hint));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                         QPalette::HighlightedText, QPalette::PlaceholderText}) {
    palette.setColor(QPalette::Disabled, role, QColor(shades.muted));
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.border));
  return palette;
}

// Words that begin with @ stand for shades.
constexpr const char* kSheet = R"(
QMainWindow::separator { background: @border; width: 1px; height: 1px; }
QMenuBar { background: @window; padding: 2px 4px; border-bottom: 1px solid @border; }
QMenuBar::item { padding: 4px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @hover; }
QMenu { background: @base; border: 1px solid @border; padding: 5px; }
QMenu::item { padding: 5px 26px 5px 8px; min-height: 18px; border-radius: 4px; }
QMenu::item:selected { background: @hover; color: @text; }
QMenu::item:disabled { color: @muted; }
QMenu::icon { padding-left: 6px; }
QMenu::icon:checked { background: @pressed; border-radius: 4px; }
QMenu::separator { height: 1px; background: @border; margin: 5px 6px; }
QToolBar { background: @window; border: 0; padding: 3px; spacing: 1px; }
QToolBar::separator { background: @border; width: 1px; height: 1px; margin: 4px; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 5px; padding: 3px; }
QToolBar QToolButton:hover { background: @hover; }
QToolBar QToolButton:pressed { background: @pressed; }
QToolBar QToolButton:checked { background: @pressed; border-color: @edge; }
QToolBar QToolButton[popupMode="1"] { padding-right: 14px; }
QToolBar QToolButton::menu-button { border: 0; width: 12px; }
QStatusBar { background: @window; border-top: 1px solid @border; }
QStatusBar::item { border: 0; }
QToolTip { background: @base; color: @text; border: 1px solid @border; padding: 4px 6px; }
QDockWidget::title { background: @window; padding: 3px 8px; border-bottom: 1px solid @border; }
QGroupBox { border: 1px solid @border; border-radius: 6px; margin-top: 9px; padding-top: 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 9px; padding: 0 4px; }
QGroupBox:disabled { color: @muted; }
QPushButton { background: @raised; border: 1px solid @outline; border-radius: 5px;
  padding: 5px 16px; min-height: 18px; outline: none; }
QDialogButtonBox QPushButton { min-width: 50px; }
QPushButton:hover { background: @hover; }
QPushButton:focus { border: 2px solid @accent; padding: 4px 15px; }
QPushButton:pressed { background: @pressed; }
QPushButton:default { background: @accent; border-color: @accent; color: @onAccent; }
QPushButton:default:focus { border-color: @text; }
QPushButton:default:hover { background: @bright; }
QPushButton:default:pressed { background: @edge; }
QPushButton:disabled { background: @window; border-color: @border; color: @muted; }
QScrollBar { background: @window; border: 0; }
QScrollBar:vertical { width: 14px; }
QScrollBar:horizontal { height: 14px; }
QScrollBar::handle { background: @outline; border-radius: 4px; margin: 3px; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::handle:hover, QScrollBar::handle:pressed { background: @accent; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QSlider:horizontal { min-height: 22px; }
QSlider::groove:horizontal { background: @outline; height: 4px; border-radius: 2px; }
QSlider::sub-page:horizontal { background: @accent; height: 4px; border-radius: 2px; }
QSlider::handle:horizontal { background: @raised; border: 2px solid @outline; border-radius: 7px;
  width: 12px; margin: -6px 0; }
QSlider::handle:horizontal:hover, QSlider::handle:horizontal:focus { border-color: @accent; }
QSlider::handle:horizontal:disabled { border-color: @border; }
#cmdResults { padding: 1px 10px; min-height: 14px; }
#cmdResults:focus { padding: 0 9px; }
#startPanel { background: @window; border: 1px solid @outline; border-radius: 8px; }
#startPanel QPushButton { background: @raised; border-color: @border; color: @text;
  padding: 6px 12px; min-width: 200px; text-align: left; }
#startPanel QPushButton:hover { background: @hover; }
#startPanel QPushButton:focus { background: @pressed; border-color: @accent; padding: 5px 11px; }
)";

QString sheetOf(const Shades& shades) {
  const std::array<std::pair<const char*, const char*>, 13> words{{{"@window", shades.window},
                                                                   {"@base", shades.base},
                                                                   {"@raised", shades.raised},
                                                                   {"@text", shades.text},
                                                                   {"@muted", shades.muted},
                                                                   {"@border", shades.border},
                                                                   {"@outline", shades.outline},
                                                                   {"@hover", shades.hover},
                                                                   {"@pressed", shades.pressed},
                                                                   {"@edge", shades.edge},
                                                                   {"@accent", shades.accent},
                                                                   {"@bright", shades.bright},
                                                                   {"@onAccent", shades.onAccent}}};
  QString sheet(kSheet);
  for (const auto& [word, shade] : words) sheet.replace(word, shade);
  return sheet;
}

constexpr int kMessageIcon = 40;  // pixels

// Icons of the toolkit's own boxes and docks that ours replace.
constexpr std::array<std::pair<QStyle::StandardPixmap, const char*>, 8> kStandardIcons{
    {{QStyle::SP_MessageBoxInformation, "message_information"},
     {QStyle::SP_MessageBoxWarning, "message_warning"},
     {QStyle::SP_MessageBoxCritical, "message_error"},
     {QStyle::SP_MessageBoxQuestion, "message_question"},
     {QStyle::SP_TitleBarCloseButton, "dock_close"},
     {QStyle::SP_TitleBarNormalButton, "dock_float"},
     {QStyle::SP_ToolBarHorizontalExtensionButton, "bar_more"},
     {QStyle::SP_ToolBarVerticalExtensionButton, "bar_more_below"}}};

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
      case PM_ToolBarExtensionExtent:
        return 18;
      case PM_MessageBoxIconSize:
        return kMessageIcon;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  // The style darkens the window's colour for an edge, which nobody sees in the dark theme.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    switch (element) {
      case PE_FrameLineEdit:
        if ((option->state & State_HasFocus) == 0) outline(*option, *painter, edge, kFieldCorner);
        return;
      case PE_IndicatorCheckBox:
      case PE_Frame:
        return outline(*option, *painter, edge, 0);
      case PE_IndicatorRadioButton:
        return outline(*option, *painter, edge, edge.height() / 2);
      default:
        return;
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control != CC_ComboBox || (option->state & State_HasFocus) != 0) return;
    outline(*option, *painter, QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), kFieldCorner);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    // A menu that is higher than the screen would get columns that no screen has room for.
    if (hint == SH_Menu_Scrollable) return 1;
    return QProxyStyle::styleHint(hint, option, widget, answer);
  }

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override {
    for (const auto& [known, name] : kStandardIcons) {
      if (known == which) return namedIcon(name);
    }
    return QProxyStyle::standardIcon(which, option, widget);
  }

  QPixmap standardPixmap(StandardPixmap which, const QStyleOption* option,
                         const QWidget* widget) const override {
    for (const auto& [known, name] : kStandardIcons) {
      if (known == which) return namedIcon(name).pixmap(kMessageIcon);
    }
    return QProxyStyle::standardPixmap(which, option, widget);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_LineEdit || type == CT_ComboBox) return plain.expandedTo({0, 28});
    if (type == CT_ItemViewItem) return plain + QSize(0, kRowGap);
    return plain;
  }

 private:
  static constexpr double kFieldCorner = 2;  // pixels
  static constexpr int kRowGap = 4;          // between the rows of a list

  static void outline(const QStyleOption& option, QPainter& painter, const QRectF& edge,
                      double corner) {
    const Shades& shades = shadesOf(isDark(option.palette));
    const bool enabled = (option.state & State_Enabled) != 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, corner > 0);
    painter.setPen(QColor(enabled ? shades.outline : shades.border));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(edge, corner, corner);
    painter.restore();
  }
};

bool systemIsDark = false;  // as the system's palette was before it had ours

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

void startTheme(QApplication& application) {
  systemIsDark = systemPrefersDark(QApplication::palette());
  applyTheme(application, systemIsDark);
}

void applyTheme(QApplication& application, ThemeChoice choice) {
  applyTheme(application,
             choice == ThemeChoice::System ? systemIsDark : choice == ThemeChoice::Dark);
}

void applyTheme(QApplication& application, bool dark) {
  const Shades& shades = shadesOf(dark);
  application.setStyle(new SpaciousStyle);
  application.setPalette(paletteOf(shades));
  application.setStyleSheet(sheetOf(shades));
}

IconColors iconColors(const QPalette& palette) {
  const Shades& shades = shadesOf(isDark(palette));
  return {QColor(shades.text), QColor(shades.accent), QColor(shades.iconPath)};
}

}  // namespace tess
