// The path editor and the map of the path in their windows, on 30000 rows: from the command until
// all of the window is painted for the first time.
#include <QElapsedTimer>
#include <QTimer>
#include <stdexcept>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

constexpr int kRows = 30000;
constexpr int kRowsInGroup = 200;

void addPaths(DrawingStore& store) {
  for (int ps = 0; ps < kRows; ++ps) {
    const auto x = static_cast<float>(ps % kRowsInGroup) / 50;
    const auto y = static_cast<float>(ps / kRowsInGroup) / 50;
    addPathSegment(store, {.type = kLine,
                           .x0 = x,
                           .y0 = y,
                           .x1 = x + 0.02F,
                           .y1 = y,
                           .z = -0.5F,
                           .feed = 10,
                           .code = pathCode(1 + ps / kRowsInGroup, 0)});
  }
}

FormWindow& openWindow() {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    auto* const window = dynamic_cast<FormWindow*>(widget);
    if (window != nullptr && window->isVisible()) return *window;
  }
  throw std::logic_error("no window is open");
}

// Seconds until what `open` opens has been painted; it is closed then.
template <class Open>
double timeToPaint(Open open) {
  double seconds = 0;
  QElapsedTimer time;
  QTimer::singleShot(0, [&] {
    QCoreApplication::processEvents();
    seconds = static_cast<double>(time.nsecsElapsed()) / 1e9;
    openWindow().view().form()->close();
  });
  time.start();
  open();
  return seconds;
}

void firstPaintOfEditor(benchmark::State& state) {
  BenchProgram program;
  addPaths(program.store());
  CamContext& cam = program.application().interaction.cam;
  for (auto _ : state) {
    state.SetIterationTime(timeToPaint([&] { mnuCAMEditPathCycle_Click(cam); }));
    program.settle();
  }
}

void firstPaintOfMap(benchmark::State& state) {
  BenchProgram program;
  addPaths(program.store());
  CamContext& cam = program.application().interaction.cam;
  for (auto _ : state) {
    state.SetIterationTime(timeToPaint([&] {
      frmPathMap map(cam);
      cam.context.session.host.prompts.showModal(map);
    }));
    program.settle();
  }
}

// While a form is open: what one press of a button takes until the window is painted again.
template <class Press>
void pressAndPaint(benchmark::State& state, Press press) {
  for (auto _ : state) {
    press();
    QCoreApplication::processEvents();
  }
  openWindow().view().form()->close();
}

// To and fro, so that there always is a next row.
void nextRowPainted(benchmark::State& state) {
  BenchProgram program;
  addPaths(program.store());
  QTimer::singleShot(0, [&] {
    auto& editor = dynamic_cast<dlgEditPath&>(*openWindow().view().form());
    editor.lstRows.setIndex(kRows / 2);
    bool down = false;
    pressAndPaint(state, [&] {
      down = !down;
      (down ? editor.cmdNext : editor.cmdPrev).press();
    });
  });
  mnuCAMEditPathCycle_Click(program.application().interaction.cam);
}

void rowMovedPainted(benchmark::State& state) {
  BenchProgram program;
  addPaths(program.store());
  CamContext& cam = program.application().interaction.cam;
  QTimer::singleShot(0, [&] {
    auto& map = dynamic_cast<frmPathMap&>(*openWindow().view().form());
    map.lstPathSegments.setIndex(kRows / 2);
    bool up = false;
    pressAndPaint(state, [&] {
      up = !up;
      (up ? map.cmdPromote : map.cmdDemote).press();
    });
  });
  frmPathMap map(cam);
  cam.context.session.host.prompts.showModal(map);
}

BENCHMARK(nextRowPainted)->Name("PathEditor/next row, painted")->Unit(benchmark::kMillisecond);
BENCHMARK(rowMovedPainted)->Name("PathMap/row moved, painted")->Unit(benchmark::kMillisecond);
BENCHMARK(firstPaintOfEditor)
    ->Name("PathEditor/first paint")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(firstPaintOfMap)
    ->Name("PathMap/first paint")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
