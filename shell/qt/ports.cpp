// The ports of the desktop.
#include "shell/qt/ports.h"

#include <QApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QFile>
#include <QKeyEvent>
#include <QPointer>
#include <QThread>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

#include "core/file_dialog.h"
#include "core/file_system.h"
#include "core/form.h"
#include "shell/qt/form_window.h"
#include "shell/qt/message_box.h"

namespace tess {

namespace {

constexpr int kToldEnough = 3;
constexpr qint64 kRightBehind = 100;  // milliseconds; no operator gives a command in that time
constexpr qint64 kServeEvery = 8;     // milliseconds
constexpr int kServeAtMost = 20;      // milliseconds
constexpr int kHourglassDelay = 200;  // milliseconds

// Milliseconds by the system's clock of ticks, a few of them apart: reading the exact one for every
// row would be a tenth of a redraw.
qint64 roughTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return qint64{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

}  // namespace

// One that outlives the box: a splash or a panel may go while it is open.
QWidget* DesktopPrompts::owner() const {
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr) return modal;
  return dialog_ != nullptr ? dialog_.data() : window_.data();
}

// A file of another kind may have a message for each of its thousands of rows, at every redraw:
// nobody could get to the command that leaves it.
bool DesktopPrompts::wasToldEnough(const Message& message) {
  if (message.buttons != MessageButtons::Ok) return false;
  if (!sinceTold_.isValid() || sinceTold_.elapsed() > kRightBehind) told_.clear();
  sinceTold_.start();
  return ++told_[message.text] > kToldEnough;
}

Answer DesktopPrompts::showMessage(const Message& message) {
  if (wasToldEnough(message)) return Answer::Ok;
  QMessageBox box(owner());
  fillMessageBox(box, message);
  const Answer answer = answerOf(box.exec());
  sinceTold_.start();
  return answer;
}

std::optional<std::string> DesktopPrompts::chooseFile(const FileRequest& request) {
  const std::unique_ptr<FileDialog> dialog = fileDialogFor(request);
  showModal(*dialog);
  return dialog->chosen();
}

void DesktopPrompts::showModal(Form& form) {
  FormWindow window(form, gateway_, owner());
  const QPointer<QWidget> before = std::exchange(dialog_, &window);
  window.runModal();
  dialog_ = before;
}

DateTime DesktopClock::now() {
  const QDateTime now = QDateTime::currentDateTime();
  return {.year = now.date().year(),
          .month = now.date().month(),
          .day = now.date().day(),
          .hour = now.time().hour(),
          .minute = now.time().minute(),
          .second = now.time().second()};
}

double DesktopClock::elapsedMilliseconds() {
  return static_cast<double>(elapsed_.nsecsElapsed()) / 1e6;
}

void DesktopClock::sleep(double milliseconds) {
  QThread::usleep(static_cast<unsigned long>(milliseconds * 1000));
}

// Keeps what the operator does while the long work itself serves events, but for Esc, which is
// meant for the work. A box that is opened meanwhile, by the work or by a timer, hears all of it.
class InputHold : public QObject {
 public:
  InputHold() { QCoreApplication::instance()->installEventFilter(this); }
  // What was kept comes now, unless the operator ended the work that it was meant to follow.
  ~InputHold() override {
    QCoreApplication::instance()->removeEventFilter(this);
    for (auto& [receiver, event] : held_) {
      if (receiver != nullptr && !cancelled_)
        QCoreApplication::postEvent(receiver, event.release());
    }
  }
  bool isCancelled() const { return cancelled_; }

  // Work within work has the same hold.
  void enter() { ++works_; }
  bool leave() { return --works_ == 0; }

  void serve(int milliseconds) {
    const int around = std::exchange(loopLevel_, QThread::currentThread()->loopLevel());
    QCoreApplication::processEvents(QEventLoop::AllEvents, milliseconds);
    loopLevel_ = around;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!isServing() || !isInput(event->type())) return QObject::eventFilter(watched, event);
    if (isEscape(*event)) {
      cancelled_ = true;
    } else {
      held_.emplace_back(watched, event->clone());
    }
    return true;
  }

 private:
  static constexpr int kNotServing = -1;

  // A box runs an event loop of its own.
  bool isServing() const { return QThread::currentThread()->loopLevel() == loopLevel_; }
  static bool isInput(QEvent::Type type) {
    switch (type) {
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
        return true;
      default:
        return false;
    }
  }
  static bool isEscape(const QEvent& event) {
    return event.type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
  }

  std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> held_;
  int works_ = 0;
  int loopLevel_ = kNotServing;  // of the event loop in which events are served
  bool cancelled_ = false;
};

DesktopSurroundings::DesktopSurroundings(const Gateway& gateway) : gateway_(gateway) {}
DesktopSurroundings::~DesktopSurroundings() = default;

void DesktopSurroundings::setCancellable(bool on) {
  if (on) {
    if (!hold_) hold_ = std::make_unique<InputHold>();
    hold_->enter();
  } else if (hold_->leave()) {
    hold_.reset();
  }
}

bool DesktopSurroundings::isCancelled() const {
  return hold_ && hold_->isCancelled();
}

// The operator's input waits while a command of his is under way; it is not lost.
void DesktopSurroundings::serveEvents() {
  if (roughTime() - served_ < kServeEvery) return;
  if (hold_) {
    hold_->serve(kServeAtMost);
  } else {
    const auto kept =
        gateway_.isBusy() ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
    QCoreApplication::processEvents(kept, kServeAtMost);
  }
  served_ = roughTime();
}

void DesktopSurroundings::beep() {
  QApplication::beep();
}

Trash DesktopSurroundings::moveToTrash(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.moveToTrash() ? Trash::Taken : Trash::Failed;
}

namespace {

// Hears the next key of the program's windows before they do.
class KeyWait : public QObject {
 public:
  void wait() {
    QApplication::instance()->installEventFilter(this);
    loop_.exec();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Close) loop_.quit();
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    loop_.quit();
    return true;
  }

 private:
  QEventLoop loop_;
};

}  // namespace

void DesktopSurroundings::waitForKey() {
  KeyWait().wait();
}

void DesktopSurroundings::printOnMainWindow(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  if (onPrint) onPrint(text);
}

namespace {

class DesktopTimer : public Timer {
 public:
  DesktopTimer(TimerSpec spec, std::function<void()> tick, Gateway& gateway)
      : spec_(std::move(spec)), tick_(std::move(tick)), gateway_(gateway) {
    timer_.setInterval(spec_.intervalMs);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { fire(); });
  }

  const std::string& name() const override { return spec_.name; }
  bool enabled() const override { return timer_.isActive(); }
  void setEnabled(bool on) override {
    if (!on) timer_.stop();
    if (on && !timer_.isActive()) timer_.start();
  }

 private:
  // A tick may destroy the timer.
  void fire() {
    if (spec_.oneShot) timer_.stop();
    const std::function<void()> tick = tick_;
    gateway_.pass(spec_.name + "_Timer", tick);
  }

  TimerSpec spec_;
  std::function<void()> tick_;
  Gateway& gateway_;
  QTimer timer_;
};

}  // namespace

std::unique_ptr<Timer> DesktopTimers::create(const TimerSpec& spec, std::function<void()> tick) {
  return std::make_unique<DesktopTimer>(spec, std::move(tick), gateway_);
}

DesktopPointer::DesktopPointer(SurfaceWidget& surface)
    : surface_(surface), icon_(Qt::OpenHandCursor) {
  hourglassDelay_.setSingleShot(true);
  hourglassDelay_.setInterval(kHourglassDelay);
  QObject::connect(&hourglassDelay_, &QTimer::timeout, &surface_, [this] { showShape(); });
}

void DesktopPointer::setMousePointer(int shape) {
  if (shape == shape_) return;
  shape_ = shape;
  if (shape == kHourglassShape) {
    hourglassDelay_.start();
  } else {
    hourglassDelay_.stop();
    showShape();
  }
}

void DesktopPointer::showShape() {
  if (shape_ == kCustomShape) {
    surface_.setCursor(icon_);
  } else if (shape_ == kHourglassShape) {
    surface_.setCursor(Qt::WaitCursor);
  } else {
    surface_.unsetCursor();
  }
}

void DesktopPointer::setMouseIcon(const std::string& path) {
  const QPixmap picture(QString::fromStdString(resolvePath(path)));
  icon_ = picture.isNull() ? QCursor(Qt::OpenHandCursor) : QCursor(picture);
  showShape();
}

void DesktopPointer::warp(int pixelX, int pixelY) {
  QCursor::setPos(surface_.mapToGlobal(QPoint(pixelX, pixelY)));
}

bool DesktopPointer::isOverSurface() const {
  return QApplication::widgetAt(QCursor::pos()) == &surface_;
}

void DesktopPointer::releaseCapture() {
  if (QWidget::mouseGrabber() == &surface_) surface_.releaseMouse();
}

void DesktopPointer::focusSurface() {
  if (mayTakeFocus && !mayTakeFocus()) return;
  if (surface_.window()->isActiveWindow() && !surface_.hasFocus()) {
    surface_.setFocus(Qt::OtherFocusReason);
  }
}

}  // namespace tess
