// The script's time, its stage, and the window around them.
#include "shell/qt/script_player.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "shell/automation/script_hand.h"
#include "shell/automation/script_stage.h"
#include "shell/qt/form_window.h"
#include "shell/qt/message_box.h"
#include "shell/qt/operator_input.h"

namespace tess {

namespace {

constexpr std::int64_t kSlice = 10;  // of virtual time between two looks at the window
constexpr int kGlideSteps = 12;
constexpr int kSettlingAtMost = 2000;  // milliseconds until the window has its size

}  // namespace

// Virtual time that passes no faster than the real one.
class ScriptPlayer::Time : public ScriptTime {
 public:
  explicit Time(ScriptPlayer& player) : player_(player) {}

  void pass(std::int64_t ms) override {
    for (std::int64_t left = ms; left > 0; left -= kSlice) {
      const std::int64_t slice = std::min(left, kSlice);
      player_.timers_.advance(slice);
      player_.rest(static_cast<double>(slice) * player_.pace_.millisecond);
    }
  }

 private:
  ScriptPlayer& player_;
};

// The window of a modal form while the script works it. It is not modal itself: the script waits
// for it anyway, and the main window can still be closed.
class ScriptPlayer::ShownForm {
 public:
  ShownForm(Form& form, ScriptPlayer& player)
      : window_(std::make_unique<FormWindow>(form, player.gateway_, &player.window_)) {}

 private:
  std::unique_ptr<FormWindow> window_;
};

class ScriptPlayer::Stage : public ClosingStage {
 public:
  explicit Stage(ScriptPlayer& player) : ClosingStage(player.application_), player_(player) {}

  void stepDone() override {
    ClosingStage::stepDone();
    player_.rest(player_.pace_.step);
  }

  void pointerGoes(float x, float y, bool pressed) override {
    const PixelPoint at = player_.surface_.drawing().toPixels(x, y);
    const QPointF target(at.x, at.y);
    const QPointF from = player_.arrow_.isVisible() ? player_.arrow_.tip() : target;
    const bool near = (target - from).manhattanLength() < kGlideSteps;
    for (int step = near ? kGlideSteps : 1; step < kGlideSteps; ++step) {
      player_.arrow_.point(from + (target - from) * step / kGlideSteps, pressed);
      player_.rest(static_cast<double>(player_.pace_.glide) / kGlideSteps);
    }
    player_.arrow_.point(target, pressed);
  }

  void controlWorked() override { player_.rest(player_.pace_.control); }

  std::shared_ptr<void> showing(Form& form) override {
    return std::make_shared<ShownForm>(form, player_);
  }

  void shown() override { player_.rest(player_.pace_.dialog); }

  // The button that the script chose is the one that stands out.
  void answered(const Message& message, Answer answer) override {
    QMessageBox box(&player_.window_);
    fillMessageBox(box, message);
    box.setDefaultButton(buttonOf(answer));
    box.setWindowModality(Qt::NonModal);
    box.show();
    player_.rest(player_.pace_.dialog);
  }

  void breathe() override { player_.rest(0); }

 private:
  ScriptPlayer& player_;
};

ScriptPlayer::ScriptPlayer(const ScriptJob& job, PictureWriter writePicture, const Pace& pace)
    : job_(job),
      writePicture_(std::move(writePicture)),
      pace_(pace),
      folders_(foldersOf(job)),
      gateway_([this](std::string_view entry, const std::function<void()>& run) {
        return host_.reporting.guarded(entry, run);
      }),
      application_(
          {host_.host,
           host_.reporting,
           {surface_.drawing(), pointer_, timers_, {0, 0, job.size.width, job.size.height}},
           job.jetReader,
           /*colors=*/nullptr,
           &host_.programs,
           job.userfolder,
           job.paper}),
      window_({application_.interaction.tools, application_.interaction.statusBar,
               application_.interaction.forms, gateway_, surface_}) {
  host_.reporting.setFolder(job.appfolder);
  wire();
}

ScriptPlayer::~ScriptPlayer() {
  qApp->removeEventFilter(this);
}

void ScriptPlayer::wire() {
  surroundings_.onPrint = [this](const std::string& line) { window_.print(line); };
  pointer_.onArrival = [this](int x, int y) { deliverArrival(application_, x, y); };
  surface_.onPictureLost = [this] {
    gateway_.enter("redraw", [this] { application_.interaction.redraw.redrawscreen(); });
  };
  application_.onCaptionChanged = [this] {
    window_.setWindowTitle(QString::fromStdString(application_.caption()));
  };
  window_.onQueryClose = [this] {
    stopped_ = playing_;
    return !playing_;
  };
  qApp->installEventFilter(this);
}

// The surface gets the size that it has without a window, as far as the screen allows, so that
// distances in pixels are the same. The panel that opens at the start takes its room before that.
void ScriptPlayer::showWindow() {
  application_.interaction.tools.openBand("barStatistics");
  window_.setWindowTitle(QString::fromStdString(application_.caption()));
  window_.show();
  QElapsedTimer time;
  time.start();
  const QSize wanted(job_.size.width, job_.size.height);
  while (surface_.size() != wanted && time.elapsed() < kSettlingAtMost) {
    window_.resize(window_.size() + wanted - surface_.size());
    serveEvents(20);
  }
}

ExitStatus ScriptPlayer::play(std::string_view text, std::ostream& out, std::ostream& err) {
  playing_ = true;
  showWindow();
  Time time(*this);
  Stage stage(*this);
  const ScriptParts parts{.application = application_,
                          .host = host_,
                          .time = time,
                          .stage = stage,
                          .writePicture = writePicture_,
                          .folders = folders_,
                          .start = [this] { application_.start(/*drawing=*/"", job_.appfolder); }};
  const ExitStatus status = runScriptOn(parts, job_, text, out, err);
  application_.onCloseMainWindow = nullptr;
  arrow_.hide();
  if (!stopped_) serveEvents(pace_.last);
  playing_ = false;
  return status;
}

void ScriptPlayer::serveEvents(double milliseconds) {
  if (milliseconds < 1) {
    QCoreApplication::processEvents();
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(std::lround(milliseconds)), Qt::PreciseTimer, &loop,
                     &QEventLoop::quit);
  loop.exec();
}

void ScriptPlayer::rest(double milliseconds) {
  serveEvents(milliseconds);
  if (stopped_) throw EndProgram("the window was closed before the script had ended");
  host_.surroundings.pause();
}

// A dialog is closed by the script alone.
bool ScriptPlayer::eventFilter(QObject* watched, QEvent* event) {
  if (!playing_) return false;
  const bool closesDialog = event->type() == QEvent::Close && event->spontaneous() &&
                            watched->isWidgetType() && watched != &window_;
  if (closesDialog) event->ignore();
  return closesDialog || isOperatorInput(event->type());
}

}  // namespace tess
