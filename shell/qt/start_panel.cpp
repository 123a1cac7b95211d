// The offer of an empty window.
#include "shell/qt/start_panel.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "shell/qt/icons.h"

namespace tess {
namespace {

constexpr int kMargin = 22;
constexpr int kButtonWidth = 260;
constexpr int kIcon = 22;

bool isRecent(const StartOffer::Entry& entry) {
  return entry.tool.starts_with("miRecentFile");
}

}  // namespace

StartPanel::StartPanel(StartOffer& offer, QWidget& surface)
    : QFrame(&surface), offer_(offer), surface_(surface), column_(new QVBoxLayout(this)) {
  setObjectName("startPanel");
  setAccessibleName("Begin with");
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setAttribute(Qt::WA_NoMousePropagation);
  setCursor(Qt::ArrowCursor);
  column_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
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
  centre();
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
  bool recentBegan = false;
  for (const StartOffer::Entry& entry : entries_) {
    if (isRecent(entry) && !recentBegan) column_->addWidget(new QLabel("Recent", this));
    recentBegan = recentBegan || isRecent(entry);
    addEntry(entry, isRecent(entry));
  }
  adjustSize();
}

void StartPanel::addEntry(const StartOffer::Entry& entry, bool recent) {
  QString caption = QString::fromStdString(entry.caption);
  // A letter of the menus would be theirs and this button's; in a file's name it is a character.
  recent ? caption.replace('&', "&&") : caption.remove('&');
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromStdString(entry.tool));
  button->setToolTip(QString::fromStdString(entry.hint));
  button->setMinimumWidth(kButtonWidth);
  button->setAutoDefault(true);  // Enter presses it
  button->setIconSize({kIcon, kIcon});
  Tool tool;
  tool.name = recent ? "miOpen" : entry.tool;
  button->setIcon(toolIcon(tool));
  connect(button, &QPushButton::clicked, this, [this, name = entry.tool] {
    if (onChosen) onChosen(name);
  });
  column_->addWidget(button);
  button->show();  // what is to have the keyboard must be there
}

void StartPanel::centre() {
  move((surface_.width() - width()) / 2, (surface_.height() - height()) / 2);
}

bool StartPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &surface_ && event->type() == QEvent::Resize) centre();
  return QFrame::eventFilter(watched, event);
}

// Round its own buttons: on the surface the key is a command.
bool StartPanel::focusNextPrevChild(bool next) {
  const QList<QPushButton*> buttons = findChildren<QPushButton*>();
  const qsizetype at = buttons.indexOf(qobject_cast<QPushButton*>(window()->focusWidget()));
  const qsizetype count = buttons.size();
  if (count == 0) return false;
  buttons[(at + (next ? 1 : count - 1)) % count]->setFocus(next ? Qt::TabFocusReason
                                                                : Qt::BacktabFocusReason);
  return true;
}

}  // namespace tess
