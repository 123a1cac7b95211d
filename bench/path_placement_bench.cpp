// Placing path rows: quick placing of an engraving of short strokes (every stroke a chain of its
// own) and of one long outline, linking of spans with islands in the way, level copies, and taking
// the last placement back. Growth is to stay linear; 30000 rows are all that a table and its log
// hold.
#include <cmath>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/path_placement.h"
#include "toolpath/quick_place.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

using testing::RecordedCam;

constexpr int kPerLine = 200;

Point onGrid(int row) {
  return {static_cast<float>(row % kPerLine), static_cast<float>(row / kPerLine)};
}

void addStrokes(DrawingStore& store, int rows) {
  for (int row = 0; row < rows; ++row) {
    const Point at = onGrid(row);
    AddSeg(store, {kLine, kSelectedRow, at.x, at.y, at.x + 0.5F, at.y + 0.5F}, nullptr);
  }
}

void addWavyOutline(DrawingStore& store, int rows) {
  const auto corner = [rows](int row) {
    const double angle = 2 * 3.14159265358979 * (row % rows) / rows;
    const double radius = 100 + 10 * std::sin(20 * angle);
    return Point{static_cast<float>(radius * std::cos(angle)),
                 static_cast<float>(radius * std::sin(angle))};
  };
  for (int row = 0; row < rows; ++row) {
    const Point from = corner(row);
    const Point to = corner(row + 1);
    AddSeg(store, {kLine, kSelectedRow, from.x, from.y, to.x, to.y}, nullptr);
  }
}

void addSpans(DrawingStore& store, int rows) {
  for (int row = 0; row < rows; ++row) {
    const Point at = onGrid(row);
    addPathSegment(store, {kLine, at.x, at.y, at.x + 0.5F, at.y, 0, 0, -0.5F, 20, 100});
  }
}

// A wall in every tenth gap.
void addIslands(DrawingStore& store, int spans) {
  for (int span = 0; span < spans; span += 10) {
    const Point at = onGrid(span);
    AddSeg(store, {kLine, kIslandOutline, at.x + 0.75F, at.y - 0.25F, at.x + 0.8F, at.y + 0.25F},
           nullptr);
  }
}

void forgetPaths(RecordedCam& d) {
  d.store.NumPathSegments = 0;
  d.store.lastplacedgroup = 0;
  d.context.changelog.clear();
}

template <typename Prepare, typename Work>
void measure(benchmark::State& state, Prepare prepare, Work work) {
  RecordedCam d;
  for (auto _ : state) {
    state.PauseTiming();
    forgetPaths(d);
    prepare(d);
    state.ResumeTiming();
    work(d);
  }
  state.SetComplexityN(state.range(0));
}

void quickPlaceStrokes(benchmark::State& state) {
  measure(
      state,
      [&](RecordedCam& d) {
        if (d.store.NumSegments == 0) addStrokes(d.store, static_cast<int>(state.range(0)));
      },
      [](RecordedCam& d) { quickPlacePaths(d.cam); });
}

void quickPlaceOutline(benchmark::State& state) {
  measure(
      state,
      [&](RecordedCam& d) {
        if (d.store.NumSegments == 0) addWavyOutline(d.store, static_cast<int>(state.range(0)));
      },
      [](RecordedCam& d) { quickPlacePaths(d.cam); });
}

void linkSpansRoundIslands(benchmark::State& state) {
  const int spans = static_cast<int>(state.range(0));
  measure(
      state,
      [spans](RecordedCam& d) {
        if (d.store.NumSegments == 0) addIslands(d.store, spans);
        addSpans(d.store, spans);
      },
      [spans](RecordedCam& d) { connectPathSegs(d.cam, 1, spans); });
}

void copyLevel(benchmark::State& state) {
  measure(
      state, [&](RecordedCam& d) { addSpans(d.store, static_cast<int>(state.range(0))); },
      [](RecordedCam& d) { replicatePathAtZ(d.cam, -1, 20); });
}

void undoLastPlace(benchmark::State& state) {
  measure(
      state, [&](RecordedCam& d) { addSpans(d.store, static_cast<int>(state.range(0))); },
      [](RecordedCam& d) { mnuCAMUndoLastPlace_Click(d.cam); });
}

void upTo(benchmark::internal::Benchmark* bench, int most) {
  for (const int rows : {100, 1000, 10000}) bench->Arg(rows);
  bench->Arg(most)->Unit(benchmark::kMillisecond);
}

BENCHMARK(quickPlaceStrokes)->Apply([](auto* bench) { upTo(bench, 30000); });
BENCHMARK(quickPlaceOutline)->Apply([](auto* bench) { upTo(bench, 30000); });
BENCHMARK(linkSpansRoundIslands)->Apply([](auto* bench) { upTo(bench, 16000); });
BENCHMARK(copyLevel)->Apply([](auto* bench) { upTo(bench, 16000); });
BENCHMARK(undoLastPlace)->Apply([](auto* bench) { upTo(bench, 30000); });

}  // namespace
}  // namespace tess
