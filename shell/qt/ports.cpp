// The ports of the desktop.
#include "shell/qt/ports.h"

#include <QApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QMessageBox>
#include <array>
#include <cstdio>
#include <ctime>
#include <utility>

#include "core/file_system.h"
#include "core/form.h"
#include "core/version.h"
#include "shell/qt/form_window.h"

namespace tess {

namespace {

constexpr qint64 kServeEvery = 8;     // milliseconds
constexpr int kServeAtMost = 20;      // milliseconds
constexpr int kHourglassDelay = 200;  // milliseconds

struct ButtonSet {
  MessageButtons buttons;
  QMessageBox::StandardButtons shown;
  QMessageBox::StandardButton first;
  QMessageBox::StandardButton escape;  // of the Esc key and the closing button
};

constexpr std::array kButtonSets{
    ButtonSet{MessageButtons::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    ButtonSet{MessageButtons::OkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok,
              QMessageBox::Cancel},
    ButtonSet{MessageButtons::YesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes,
              QMessageBox::NoButton},
    ButtonSet{MessageButtons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
              QMessageBox::Yes, QMessageBox::Cancel},
};

const ButtonSet& buttonSet(MessageButtons buttons) {
  for (const ButtonSet& set : kButtonSets) {
    if (set.buttons == buttons) return set;
  }
  return kButtonSets.front();
}

QMessageBox::Icon boxIcon(MessageIcon icon) {
  constexpr std::array<std::pair<MessageIcon, QMessageBox::Icon>, 4> kIcons{
      {{MessageIcon::Information, QMessageBox::Information},
       {MessageIcon::Warning, QMessageBox::Warning},
       {MessageIcon::Error, QMessageBox::Critical},
       {MessageIcon::Question, QMessageBox::Question}}};
  for (const auto& [known, shown] : kIcons) {
    if (known == icon) return shown;
  }
  return QMessageBox::NoIcon;
}

Answer answerOf(int button) {
  constexpr std::array<std::pair<int, Answer>, 3> kAnswers{{{QMessageBox::Yes, Answer::Yes},
                                                            {QMessageBox::No, Answer::No},
                                                            {QMessageBox::Cancel, Answer::Cancel}}};
  for (const auto& [known, answer] : kAnswers) {
    if (known == button) return answer;
  }
  return Answer::Ok;
}

// "*.*" means every file, also one without a dot.
QString eitherCase(const QString& pattern) {
  QStringList globs;
  for (const QString& glob : pattern.split(';', Qt::SkipEmptyParts)) {
    const QString plain = glob.trimmed();
    if (plain == "*.*") return "*";
    globs << plain.toLower() << plain.toUpper();
  }
  globs.removeDuplicates();
  return globs.join(' ');
}

// The ending of the first pattern without its dot, "" when any will do.
QString firstEnding(const std::string& pattern) {
  const QString text = QString::fromStdString(pattern);
  const QString glob = text.section('|', text.contains('|') ? 1 : 0, text.contains('|') ? 1 : 0)
                           .section(';', 0, 0)
                           .trimmed();
  const QString ending = glob.section('.', -1);
  return ending.contains('*') ? QString() : ending.toLower();
}

// Milliseconds by the system's clock of ticks, a few of them apart: reading the exact one for every
// row would be a tenth of a redraw.
qint64 roughTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return qint64{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

}  // namespace

QStringList fileFilters(const std::string& pattern) {
  const QStringList parts = QString::fromStdString(pattern).split('|', Qt::SkipEmptyParts);
  if (parts.size() < 2) {
    const QString globs = eitherCase(parts.value(0, "*"));
    return {QString("%1 (%2)").arg(parts.value(0, "*"), globs)};
  }
  QStringList filters;
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    const QString title = parts[at].section('(', 0, 0).trimmed();
    filters << QString("%1 (%2)").arg(title, eitherCase(parts[at + 1]));
  }
  return filters;
}

QWidget* DesktopPrompts::owner() const {
  QWidget* active = QApplication::activeModalWidget();
  if (active == nullptr) active = QApplication::activeWindow();
  return active != nullptr ? active : window_.data();
}

Answer DesktopPrompts::showMessage(const Message& message) {
  const ButtonSet& set = buttonSet(message.buttons);
  const std::string title = message.title.empty() ? std::string(kProductName) : message.title;
  QMessageBox box(boxIcon(message.icon), QString::fromStdString(title),
                  QString::fromStdString(message.text), set.shown, owner());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(set.first);
  if (set.escape != QMessageBox::NoButton) box.setEscapeButton(set.escape);
  return answerOf(box.exec());
}

std::optional<std::string> DesktopPrompts::chooseFile(const FileRequest& request) {
  QFileDialog dialog(owner(), QString::fromStdString(request.title));
  dialog.setAcceptMode(request.forSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.forSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(fileFilters(request.pattern));
  // So that the question whether to replace a file is asked about the name that will be written.
  if (request.forSaving) dialog.setDefaultSuffix(firstEnding(request.pattern));
  if (!request.folder.empty()) {
    dialog.setDirectory(QString::fromStdString(resolvePath(request.folder)));
  }
  if (!request.name.empty()) dialog.selectFile(QString::fromStdString(request.name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

void DesktopPrompts::showModal(Form& form) {
  FormWindow window(form, gateway_, owner());
  window.runModal();
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

// The operator's input waits while a command of his is under way; it is not lost.
void DesktopSurroundings::serveEvents() {
  if (roughTime() - served_ < kServeEvery) return;
  QCoreApplication::processEvents(
      gateway_.isBusy() ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents, kServeAtMost);
  served_ = roughTime();
}

void DesktopSurroundings::beep() {
  QApplication::beep();
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
  if (surface_.window()->isActiveWindow() && !surface_.hasFocus()) {
    surface_.setFocus(Qt::OtherFocusReason);
  }
}

}  // namespace tess
