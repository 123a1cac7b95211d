// A full redraw of a large drawing against a bare loop: one drawLine for each row, into an image of
// the same size and with the same pen. The redraw does all that it does for an operator: it
// clears, looks up colours, draws each line twice, serves events after each row, draws the marks
// and refreshes the status bar and the window. Goal: no longer than the bare loop.
#include <QPainter>
#include <vector>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"
#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr int kRows = 30000;

// Sides of so many pixels; negative, each in a place of its own.
void fill(BenchProgram& program, const benchmark::State& state) {
  const auto pixels = static_cast<double>(state.range(0));
  pixels > 0 ? drawOutlines(program, kRows, pixels) : scatterLines(program, kRows, -pixels);
}

// The lines of the drawing in pixels of the surface.
std::vector<QLineF> screenLines(BenchProgram& program) {
  const DrawingStore& store = program.store();
  const DrawingSurface& surface = program.surface().drawing();
  std::vector<QLineF> lines;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const PixelPoint from = surface.toPixels(store.x0[sg], store.y0[sg]);
    const PixelPoint to = surface.toPixels(store.x1[sg], store.y1[sg]);
    lines.emplace_back(from.x, from.y, to.x, to.y);
  }
  return lines;
}

void bareLoop(benchmark::State& state, bool smooth) {
  BenchProgram program;
  fill(program, state);
  const std::vector<QLineF> lines = screenLines(program);
  QImage image(kBenchWidth, kBenchHeight, QImage::Format_RGB32);
  for (auto _ : state) {
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    for (const QLineF& line : lines) painter.drawLine(line);
  }
}

void BareLoop(benchmark::State& state) {
  bareLoop(state, /*smooth=*/false);
}
void BareSmoothLoop(benchmark::State& state) {
  bareLoop(state, /*smooth=*/true);
}

void redraw(benchmark::State& state, bool endMarkers) {
  BenchProgram program;
  fill(program, state);
  program.store().endmarkers = endMarkers ? 1 : 0;
  RedrawSequence& sequence = program.application().interaction.redraw;
  for (auto _ : state) {
    sequence.redrawscreen();
    state.PauseTiming();
    program.settle();
    state.ResumeTiming();
  }
}

void Redraw(benchmark::State& state) {
  redraw(state, /*endMarkers=*/false);
}
void RedrawWithEndMarkers(benchmark::State& state) {
  redraw(state, /*endMarkers=*/true);
}

void everyLength(benchmark::internal::Benchmark* bench) {
  for (const int pixels : {4, 12, 40, -12}) bench->Arg(pixels);
  bench->Unit(benchmark::kMillisecond);
}

// What a redraw costs beside its rows: clearing, marks, and bringing the picture to the window.
void RedrawOfNothing(benchmark::State& state) {
  BenchProgram program;
  program.store().endmarkers = 0;
  RedrawSequence& sequence = program.application().interaction.redraw;
  for (auto _ : state) {
    sequence.redrawscreen();
    state.PauseTiming();
    program.settle();
    state.ResumeTiming();
  }
}

BENCHMARK(RedrawOfNothing)->Unit(benchmark::kMillisecond);
BENCHMARK(BareLoop)->Apply(everyLength);
BENCHMARK(BareSmoothLoop)->Apply(everyLength);
BENCHMARK(Redraw)->Apply(everyLength);
BENCHMARK(RedrawWithEndMarkers)->Apply(everyLength);

}  // namespace
}  // namespace tess
