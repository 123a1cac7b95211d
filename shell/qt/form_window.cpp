// Windows of forms.
#include "shell/qt/form_window.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "shell/qt/drawing_reach.h"
#include "shell/qt/tab_order.h"

namespace tess {

namespace {

// What a window manager puts round a window, in pixels.
constexpr int kFrame = 4;
constexpr int kTitleBar = 32;
constexpr int kButtonGap = 8;
constexpr int kTightGap = 2;  // where the screen is too narrow for that

}  // namespace

FormWindow::FormWindow(Form& form, Gateway& gateway, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowCloseButtonHint),
      view_(form, gateway, *this) {
  setObjectName(QString::fromStdString(form.name()));
  layOut();
  setWindowTitle(view_.root().windowTitle());
  showTitle();
  subscription_ = form.observe(*this);
  if (form.isShown()) present();
}

// The buttons that end a form stay in sight however little of it the screen can show.
void FormWindow::layOut() {
  QWidget& root = view_.root();
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  const QMargins margins = root.layout() == nullptr ? QMargins() : root.layout()->contentsMargins();
  buttons_ = takeButtonRow(*view_.form(), root);
  content_ = new ContentArea(root);
  whole->addWidget(content_);
  if (buttons_ != nullptr) {
    const QMargins own = buttons_->contentsMargins();
    buttons_->setContentsMargins(std::max(margins.left(), own.left()), 0,
                                 std::max(margins.right(), own.right()), margins.bottom());
    buttons_->setSpacing(kButtonGap);
    whole->addLayout(buttons_);
  }
  arrangeTabOrder(*this);
  view_.measure(*this);
}

// What the screen leaves for the part that can scroll.
void FormWindow::fitToScreen() {
  QSize room = screen()->availableSize() - QSize(kFrame, kFrame + kTitleBar);
  if (buttons_ != nullptr) {
    if (buttons_->sizeHint().width() > room.width()) moveButtonsTogether();
    room.rheight() -= buttons_->sizeHint().height();
  }
  content_->setRoom(room);
}

void FormWindow::moveButtonsTogether() {
  const QMargins margins = buttons_->contentsMargins();
  buttons_->setContentsMargins(kTightGap, 0, kTightGap, margins.bottom());
  buttons_->setSpacing(kTightGap);
}

void FormWindow::showTitle() {
  if (!view_.form()->caption().empty()) {
    setWindowTitle(QString::fromStdString(view_.form()->caption()));
  }
}

// The form has been filled by now, so the window takes the size of what it shows.
void FormWindow::present() {
  if (!isVisible()) takeSizeAnew();
  if (!isVisible() && view_.form()->leavesDrawingInReach) standAside();
  show();
  raise();
  activateWindow();
}

void FormWindow::takeSizeAnew() {
  fitToScreen();
  takeWantedSize();
}

// As wide as the toolkit would have it, which is two thirds of the screen at most, and as high as
// it has to be then: the toolkit's own way stops at two thirds there too.
void FormWindow::takeWantedSize() {
  // A frame whose contents were hidden while nobody saw it remembers how large it was with them.
  const QList<QWidget*> parts = content_->widget()->findChildren<QWidget*>();
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    if ((*part)->layout() == nullptr) continue;
    (*part)->layout()->invalidate();
    (*part)->layout()->activate();
  }
  content_->widget()->layout()->activate();
  layout()->activate();
  QSize wanted = layout()->totalSizeHint();
  const int broad = screen()->availableSize().width() * 2 / 3;
  const int least = layout()->totalMinimumSize().width();
  wanted.setWidth(std::min(wanted.width(), std::max(broad, least)));
  if (layout()->hasHeightForWidth()) {
    wanted.setHeight(layout()->totalHeightForWidth(wanted.width()));
  }
  resize(wanted);
}

// In the lower right corner, where most of the drawing stays in sight.
void FormWindow::standAside() {
  if (parentWidget() == nullptr) return;
  const QRect around = parentWidget()->window()->frameGeometry();
  QRect place(QPoint(), frameGeometry().size());
  place.moveBottomRight(around.bottomRight());
  const QPoint corner = screen()->availableGeometry().topLeft();
  move(std::max(place.left(), corner.x()), std::max(place.top(), corner.y()));
}

void FormWindow::runModal() {
  std::optional<DrawingReach> reach;
  if (view_.form()->leavesDrawingInReach) {
    reach.emplace(*this);
  } else {
    setWindowModality(Qt::ApplicationModal);
  }
  view_.form()->open(Modality::Modal);
  QEventLoop loop;
  connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
  if (view_.form() != nullptr && view_.form()->isShown()) loop.exec();
}

void FormWindow::formChanged(Form& form, FormProperty property) {
  switch (property) {
    case FormProperty::Caption:
      return showTitle();
    case FormProperty::Shown:
      view_.showAll();
      present();
      return view_.showFocus();
    case FormProperty::Raised:
      return present();
    case FormProperty::Hidden:
    case FormProperty::Closed:
      hide();
      emit finished(form.accepted() ? Accepted : Rejected);
      return;
    case FormProperty::Size:
    case FormProperty::Focus:
      return;
  }
}

void FormWindow::formGone() {
  hide();
  emit finished(Rejected);
}

void FormWindow::reject() {
  view_.actions().run("Form_Escape", [this] { view_.form()->pressCancel(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  view_.actions().run("Form_QueryUnload", [this] { view_.form()->close(CloseReason::Operator); });
  event->setAccepted(view_.form() == nullptr || !view_.form()->isShown());
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    view_.actions().run("Form_Enter", [this] { view_.form()->pressDefault(); });
  } else if (key == Qt::Key_F1) {
    view_.actions().help();
  } else if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
    view_.actions().run("Form_Page", [&] { view_.form()->pressPage(key == Qt::Key_PageDown); });
  } else {
    QDialog::keyPressEvent(event);
  }
}

FormWindows::FormWindows(FormHost& host, Gateway& gateway, QWidget& owner)
    : gateway_(gateway), owner_(owner), subscription_(host.observe(*this)) {}

void FormWindows::formOpened(Form& form) {
  if (isDocked && isDocked(form)) return;
  QPointer<FormWindow>& window = windows_[form.name()];
  if (window != nullptr) window->deleteLater();
  window = new FormWindow(form, gateway_, &owner_);
  window->setWindowModality(Qt::NonModal);
}

// The window may be in the middle of an event of its own.
void FormWindows::formClosed(const std::string& name) {
  const auto found = windows_.find(name);
  if (found == windows_.end()) return;
  if (found->second != nullptr) found->second->deleteLater();
  windows_.erase(found);
}

}  // namespace tess
