// How far the picture is behind the hand: the view is dragged by a mouse that reports a thousand
// times a second, faster than the drawing can follow, and then held still. The time is that of the
// clock on the wall from the last report to the end of the last paint. Goal: 100 ms.
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"

namespace tess {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kReports = 500;
constexpr auto kBetween = std::chrono::milliseconds(1);
constexpr auto kStill = std::chrono::milliseconds(400);  // no paint comes that late

// Notes when the surface was painted last, and how often.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& surface) : surface_(surface) { surface.installEventFilter(this); }

  Clock::time_point last;
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Paint || inPaint_) return false;
    inPaint_ = true;
    QCoreApplication::sendEvent(&surface_, event);
    inPaint_ = false;
    last = Clock::now();
    ++paints;
    return true;
  }

 private:
  QWidget& surface_;
  bool inPaint_ = false;
};

// A drag with one button held, as a device reports it.
class Drag {
 public:
  Drag(QWidget& surface, Qt::MouseButton button) : surface_(surface), button_(button) {}

  void press() { post(QEvent::MouseButtonPress, button_, 0); }
  void release() { post(QEvent::MouseButtonRelease, Qt::NoButton, kReports); }
  // From a thread of its own, so that it does not wait for the program.
  void move() {
    for (int report = 1; report <= kReports; ++report) {
      std::this_thread::sleep_for(kBetween);
      post(QEvent::MouseMove, button_, report);
      last = Clock::now();
    }
  }

  Clock::time_point last;

 private:
  void post(QEvent::Type type, Qt::MouseButtons held, int report) {
    constexpr double kAcross = 0.4;  // pixels between two reports
    const QPointF at(700 + kAcross * report, 500 + 0.5 * kAcross * report);
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : button_;
    QCoreApplication::postEvent(&surface_,
                                new QMouseEvent(type, at, at, button, held, Qt::NoModifier));
  }

  QWidget& surface_;
  Qt::MouseButton button_;
};

// Serves events until some moment, and then until nothing has been painted for a while.
void serveUntil(Clock::time_point end, const PaintWatch& watch) {
  while (Clock::now() < std::max(end, watch.last + kStill)) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    std::this_thread::sleep_for(std::chrono::microseconds(50));
  }
}

// Milliseconds between the last report and the last paint.
double drag(BenchProgram& program, Qt::MouseButton button, PaintWatch& watch) {
  Drag hand(program.surface(), button);
  hand.press();
  std::thread mover([&hand] { hand.move(); });
  serveUntil(Clock::now() + kReports * kBetween + kStill, watch);
  mover.join();
  const std::chrono::duration<double, std::milli> behind = watch.last - hand.last;
  hand.release();
  QCoreApplication::processEvents();
  program.settle();
  return std::max(0.0, behind.count());
}

void pan(benchmark::State& state, Qt::MouseButton button) {
  BenchProgram program;
  drawOutlines(program, static_cast<int>(state.range(0)), 12);
  Application& application = program.application();
  if (button == Qt::LeftButton) application.clickTool("miPan");
  program.settle();
  PaintWatch watch(program.surface());
  serveUntil(Clock::now() + 2 * kStill, watch);  // what starting has left to paint
  double worst = 0;
  for (auto _ : state) {
    watch.paints = 0;
    const double behind = drag(program, button, watch);
    if (watch.paints < 2) throw std::logic_error("the view did not follow");
    state.SetIterationTime(behind / 1000);
    worst = std::max(worst, behind);
  }
  state.counters["worst"] = worst;
  state.counters["frames"] = watch.paints;
}

void PanByMiddleButton(benchmark::State& state) {
  pan(state, Qt::MiddleButton);
}
void PanByTool(benchmark::State& state) {
  pan(state, Qt::LeftButton);
}

BENCHMARK(PanByMiddleButton)
    ->Arg(30000)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PanByTool)->Arg(30000)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
