// The offer of an empty window.
#include "shell/qt/start_panel.h"

#include <QEvent>
#include <algorithm>
#include <utility>

#include "shell/qt/icons.h"

namespace tess {
namespace {

constexpr int kMargin = 18;
constexpr int kLowMargin = 6;  // where it has several columns
constexpr int kMostColumns = 2;
constexpr int kIcon = 22;

bool isRecent(const StartOffer::Entry& entry) {
  return entry.tool.starts_with("miRecentFile");
}

}  // namespace

StartPanel::StartPanel(StartOffer& offer, QWidget& surface)
    : QFrame(&surface), offer_(offer), surface_(surface), grid_(new QGridLayout(this)) {
  setObjectName("startPanel");
  setAccessibleName("Begin with");
  setAttribute(Qt::WA_NoMousePropagation);
  setCursor(Qt::ArrowCursor);
  surface.installEventFilter(this);
  hide();
}

void StartPanel::settle() {
  if (!offer_.isOpen()) return leave();
  std::vector<StartOffer::Entry> entries = offer_.entries();
  if (isVisibleTo(&surface_) && entries == entries_) return;
  entries_ = std::move(entries);
  fill();
  show();
  raise();
  arrange();
  findChild<QPushButton*>()->setFocus();
}

void StartPanel::leave() {
  if (!isVisibleTo(&surface_)) return;
  const bool hadKeyboard = isAncestorOf(window()->focusWidget());
  hide();
  if (hadKeyboard) surface_.setFocus();
}

void StartPanel::fill() {
  // One of them may be in the middle of its click.
  for (QWidget* const old : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    old->setParent(nullptr);
    old->deleteLater();
  }
  buttons_.clear();
  recent_ = nullptr;
  for (const StartOffer::Entry& entry : entries_) {
    const bool recent = isRecent(entry);
    if (recent && recent_ == nullptr) recent_ = new QLabel("Recent", this);
    buttons_.push_back(makeButton(entry, recent));
  }
}

QPushButton* StartPanel::makeButton(const StartOffer::Entry& entry, bool recent) {
  QString caption = QString::fromStdString(entry.caption);
  // A letter of the menus would be theirs and this button's; in a file's name it is a character.
  recent ? caption.replace('&', "&&") : caption.remove('&');
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromStdString(entry.tool));
  button->setToolTip(QString::fromStdString(entry.hint));
  button->setAutoDefault(true);  // Enter presses it
  button->setIconSize({kIcon, kIcon});
  Tool tool;
  tool.name = recent ? "miOpen" : entry.tool;
  button->setIcon(toolIcon(tool));
  connect(button, &QPushButton::clicked, this, [this, name = entry.tool] {
    if (onChosen) onChosen(name);
  });
  button->show();  // what is to have the keyboard must be there
  return button;
}

// What does not fit below one another stands side by side; the menu has the drawings used last too.
void StartPanel::arrange() {
  for (int columns = 1; columns <= kMostColumns; ++columns) {
    place(columns, /*withRecent=*/true);
    if (sizeHint().height() <= surface_.height()) return centre();
  }
  place(kMostColumns, /*withRecent=*/false);
  centre();
}

void StartPanel::place(int columns, bool withRecent) {
  while (QLayoutItem* const item = grid_->takeAt(0)) delete item;
  const int margin = columns == 1 ? kMargin : kLowMargin;
  grid_->setContentsMargins(margin, margin, margin, margin);
  int row = placeButtons(0, /*recent=*/false, columns);
  if (recent_ != nullptr) recent_->setVisible(withRecent);
  if (recent_ != nullptr && withRecent) grid_->addWidget(recent_, row++, 0, 1, columns);
  for (std::size_t at = 0; at < buttons_.size(); ++at) {
    if (isRecent(entries_[at])) buttons_[at]->setVisible(withRecent);
  }
  if (withRecent) placeButtons(row, /*recent=*/true, columns);
}

// Gives the row below them.
int StartPanel::placeButtons(int row, bool recent, int columns) {
  int column = 0;
  for (std::size_t at = 0; at < buttons_.size(); ++at) {
    if (isRecent(entries_[at]) != recent) continue;
    grid_->addWidget(buttons_[at], row + column / columns, column % columns);
    ++column;
  }
  return row + (column + columns - 1) / columns;
}

void StartPanel::centre() {
  adjustSize();
  move(std::max(0, (surface_.width() - width()) / 2),
       std::max(0, (surface_.height() - height()) / 2));
}

bool StartPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &surface_ && event->type() == QEvent::Resize && isVisibleTo(&surface_)) arrange();
  return QFrame::eventFilter(watched, event);
}

// Round its own buttons: on the surface the key is a command.
bool StartPanel::focusNextPrevChild(bool next) {
  QList<QPushButton*> buttons = findChildren<QPushButton*>();
  buttons.removeIf([this](const QPushButton* button) { return !button->isVisibleTo(this); });
  const qsizetype at = buttons.indexOf(qobject_cast<QPushButton*>(window()->focusWidget()));
  const qsizetype count = buttons.size();
  if (count == 0) return false;
  buttons[(at + (next ? 1 : count - 1)) % count]->setFocus(next ? Qt::TabFocusReason
                                                                : Qt::BacktabFocusReason);
  return true;
}

}  // namespace tess
