// Menus and tool bars.
#include "shell/qt/tool_bars.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>
#include <array>
#include <string_view>
#include <utility>

#include "shell/qt/icons.h"
#include "shell/qt/menu_groups.h"

namespace tess {

namespace {

QString shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr char kFold[] = "fold";  // the property of a submenu made of a part of its menu

// Where tool bars lie at first, and which begin a row of their own.
struct Place {
  std::string_view band;
  Qt::ToolBarArea area;
};

constexpr std::array kPlaces{Place{"barDraw", Qt::LeftToolBarArea},
                             Place{"barCAM", Qt::RightToolBarArea}};

Qt::ToolBarArea firstArea(const std::string& band) {
  for (const Place& place : kPlaces) {
    if (place.band == band) return place.area;
  }
  return Qt::TopToolBarArea;
}

// A path, of whose folders a menu that is no wider than a screen shows what it has room for.
QString pathText(const QString& caption) {
  constexpr int kLetters = 70;
  const QFontMetrics metrics(QApplication::font("QMenu"));
  const int room = kLetters * metrics.averageCharWidth();
  const qsizetype name = caption.lastIndexOf('/') + 1;
  const int left = room - metrics.horizontalAdvance(caption.mid(name));
  const bool nameFits = left > room / 4;
  const QString text =
      nameFits ? metrics.elidedText(caption.left(name), Qt::ElideMiddle, left) + caption.mid(name)
               : metrics.elidedText(caption, Qt::ElideMiddle, room);
  return QString(text).replace('&', "&&");
}

// A menu shows the key beside the caption; the key itself is served by the drawing surface.
QString menuText(const Tool& tool) {
  const QString caption = shown(tool.caption).trimmed();
  if (tool.name.starts_with("miRecentFile")) return pathText(caption);
  return tool.key.empty() ? caption : caption + '\t' + shown(tool.key);
}

QString plainText(const Tool& tool) {
  return shown(tool.caption).trimmed().remove('&').remove("...");
}

QString hintText(const Tool& tool) {
  return tool.hint.empty() ? plainText(tool) : shown(tool.hint);
}

}  // namespace

ToolBars::ToolBars(ToolHost& host, Gateway& gateway, QMainWindow& window)
    : host_(host), gateway_(gateway), window_(window), subscription_(host.observe(*this)) {
  for (const std::string& name : host_.toolNames()) actions_[name] = makeAction(*host_.tool(name));
  for (const Band& band : host_.bands()) {
    if (band.kind == BandKind::Menu || band.kind == BandKind::PopUp) makeMenu(band);
    if (band.kind == BandKind::ToolBar) makeToolBar(band);
  }
  addDropDowns();
}

QAction* ToolBars::action(const std::string& tool) const {
  const auto found = actions_.find(tool);
  return found == actions_.end() ? nullptr : found->second;
}

QToolBar* ToolBars::toolBar(const std::string& band) const {
  const auto found = bars_.find(band);
  return found == bars_.end() ? nullptr : found->second;
}

QMenu* ToolBars::menu(const std::string& band) const {
  const auto found = menus_.find(band);
  return found == menus_.end() ? nullptr : found->second;
}

QAction* ToolBars::makeAction(const Tool& tool) {
  auto* action = new QAction(toolIcon(tool), menuText(tool), &window_);
  action->setObjectName(shown(tool.name));
  action->setIconText(plainText(tool));
  action->setToolTip(hintText(tool));
  action->setEnabled(tool.enabled);
  action->setVisible(tool.visible);
  action->setMenuRole(QAction::NoRole);
  action->setCheckable(tool.toggles || tool.checked || tool.armed);
  action->setChecked(tool.checked || tool.armed);
  QObject::connect(action, &QAction::triggered, &window_,
                   [this, name = tool.name] { click(name); });
  return action;
}

// The toolkit has turned its own check mark over by now; the model alone decides.
void ToolBars::click(const std::string& tool) {
  const bool byMenu = std::exchange(menuCloses_, false);
  gateway_.enter("frmMain.abMain_ToolClick(tool)", [&] { host_.click(tool); });
  if (const Tool* clicked = host_.tool(tool)) showChecked(*clicked);
  if (byMenu && onMenuCommand) onMenuCommand();
}

// The toolkit closes a menu right before its command runs, and tells the menu of commands that were
// given elsewhere too: a command belongs to the menu that is closing.
void ToolBars::menuCloses(QMenu& menu) {
  menuCloses_ = true;
  QTimer::singleShot(0, &menu, [this] { menuCloses_ = false; });
}

// Only a toggle is checkable for good, or every entry of a menu would have an empty box. A tool
// whose action is armed shows pressed like one that is checked.
void ToolBars::showChecked(const Tool& tool) {
  QAction* action = actions_.at(tool.name);
  const bool pressed = tool.checked || tool.armed;
  action->setCheckable(tool.toggles || pressed);
  action->setChecked(pressed);
}

void ToolBars::makeMenu(const Band& band) {
  auto* menu = new QMenu(shown(band.caption), &window_);
  menu->setObjectName(shown(band.name));
  if (band.kind == BandKind::Menu) window_.menuBar()->addMenu(menu);
  menu->setToolTipsVisible(false);
  fill(*menu, band);
  QObject::connect(menu, &QMenu::aboutToShow, menu,
                   [this, name = band.name] { setOpen(name, true); });
  QObject::connect(menu, &QMenu::aboutToHide, menu, [this, menu, name = band.name] {
    setOpen(name, false);
    menuCloses(*menu);
  });
  menus_[band.name] = menu;
}

void ToolBars::makeToolBar(const Band& band) {
  auto* bar = new QToolBar(shown(band.caption).remove('&'), &window_);
  bar->setObjectName(shown(band.name));
  window_.addToolBar(firstArea(band.name), bar);
  fill(*bar, band);
  bar->setVisible(band.open);
  bars_[band.name] = bar;
}

void ToolBars::fill(QToolBar& bar, const Band& band) {
  for (QAction* old : bar.actions()) {
    bar.removeAction(old);
    if (old->isSeparator()) old->deleteLater();
  }
  for (const std::string& name : band.tools) {
    if (QAction* known = action(name)) bar.addAction(known);
    if (name.empty()) bar.addSeparator();
  }
}

// Neighbouring submenus stand together.
void ToolBars::fill(QMenu& menu, const Band& band) {
  for (QAction* old : menu.actions()) {
    menu.removeAction(old);
    if (old->isSeparator()) old->deleteLater();
    if (old->menu() != nullptr && old->menu()->property(kFold).toBool()) old->menu()->deleteLater();
  }
  bool folded = false;
  for (const MenuPart& part : menuParts(band)) {
    const bool folds = !part.caption.empty();
    if (!menu.isEmpty() && !(folds && folded)) menu.addSeparator();
    QMenu* place = folds ? menu.addMenu(shown(part.caption)) : &menu;
    if (folds) place->setProperty(kFold, true);
    for (const std::string& name : part.tools) {
      if (QAction* known = action(name)) place->addAction(known);
    }
    folded = folds;
  }
  const auto guest = guests_.find(band.name);
  if (guest == guests_.end()) return;
  menu.addSeparator();
  menu.addMenu(guest->second);
}

void ToolBars::addSubmenu(const std::string& band, QMenu& submenu) {
  guests_[band] = &submenu;
  fill(*menus_.at(band), *host_.band(band));
}

// Buttons of tools that have a pop-up get an arrow for it.
void ToolBars::addDropDowns() {
  for (const auto& [name, action] : actions_) {
    QMenu* popUp = menu(host_.tool(name)->popUp);
    if (popUp == nullptr) continue;
    for (const auto& [band, bar] : bars_) {
      auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
      if (button == nullptr) continue;
      button->setMenu(popUp);
      button->setPopupMode(QToolButton::MenuButtonPopup);
    }
  }
}

void ToolBars::setOpen(const std::string& band, bool open) {
  gateway_.enter(open ? "frmMain.abMain_BandOpen(band)" : "frmMain.abMain_BandClose(band)", [&] {
    if (open) {
      host_.openBand(band);
    } else {
      host_.closeBand(band);
    }
  });
}

void ToolBars::showOpenBands() {
  for (const auto& [name, bar] : bars_) bar->setVisible(host_.band(name)->open);
}

void ToolBars::toolChanged(const Tool& tool, ToolProperty property) {
  QAction* action = this->action(tool.name);
  if (action == nullptr) return;
  switch (property) {
    case ToolProperty::Caption:
      action->setText(menuText(tool));
      action->setIconText(plainText(tool));
      return;
    case ToolProperty::Key:
      action->setText(menuText(tool));
      action->setToolTip(hintText(tool));
      return;
    case ToolProperty::Enabled:
      return action->setEnabled(tool.enabled);
    case ToolProperty::Visible:
      return action->setVisible(tool.visible);
    case ToolProperty::Checked:
    case ToolProperty::Armed:
      return showChecked(tool);
  }
}

void ToolBars::bandChanged(const Band& band, BandProperty property) {
  QToolBar* bar = toolBar(band.name);
  if (property == BandProperty::Open && bar != nullptr) bar->setVisible(band.open);
  if (property != BandProperty::Tools) return;
  if (bar != nullptr) fill(*bar, band);
  if (QMenu* list = menu(band.name)) fill(*list, band);
  addDropDowns();
}

}  // namespace tess
