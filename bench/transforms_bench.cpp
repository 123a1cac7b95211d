// Moving, scaling, mirroring and turning 15000 selected rows of a drawing, or all of a smaller one,
// and the undo of it, against a plain copy of the table: every row read, held as it was, and
// written again. Beside it what none of them can do without: the arithmetic of a turn, and the
// records for undo.
#include <algorithm>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "drafting/change.h"
#include "drafting/change_walk.h"
#include "drafting/mirror.h"
#include "drafting/move_rows.h"
#include "drafting/rotate.h"
#include "drafting/row_images.h"
#include "drafting/scale_drawing.h"

namespace tess {
namespace {

constexpr int kMaxSelected = 15000;

// Chains of lines with an arc after every third, the first rows of them selected.
struct Drawing {
  explicit Drawing(int rows) {
    store.cfg_tolerance = 0.001F;
    for (int row = 0; row < rows; ++row) {
      const int column = row % 200;
      const auto x = static_cast<float>(column), y = static_cast<float>(2 * (row / 200));
      const int attr = row < kMaxSelected ? kSelectedRow : kOrdinaryClass;
      const bool arc = row % 4 == 3;
      AddSeg(store,
             {.type = arc ? kCounterClockwiseArc : kLine,
              .attr = attr,
              .x0 = x,
              .y0 = y + 0.25F * static_cast<float>(column % 3),
              .x1 = x + 1,
              .y1 = y + 0.25F * static_cast<float>((column + 1) % 3),
              .xc = arc ? x + 0.5F : 0,
              .yc = arc ? y : 0},
             nullptr);
    }
  }
  DrawingStore store;
  ChangeLog log;
  Changes changes{store, log};
};

void move(Drawing& d) {
  moveSelected(d.changes, 0.5F, 0.25F);
}
void scale(Drawing& d) {
  scaleSegments(d.changes, 1.0001F, /*selectedOnly=*/true);
}
void mirror(Drawing& d, bool copies) {
  const Mirroring mirroring{.about = {100, 0}};
  addImages(d.changes, {.selectedOnly = true, .copies = copies},
            [&](std::span<SegmentRow> rows) { mirrorRows(rows, mirroring); });
}
void mirrorMove(Drawing& d) {
  mirror(d, /*copies=*/false);
}
void mirrorCopy(Drawing& d) {
  mirror(d, /*copies=*/true);
}
void rotate(Drawing& d) {
  const Turn turn{.about = {100, 0}, .degrees = 30};
  addImages(d.changes, {.selectedOnly = true},
            [&](std::span<SegmentRow> rows) { turnRows(rows, turn); });
}

void plainCopy(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<SegmentRow> held;
    held.reserve(static_cast<std::size_t>(d.store.NumSegments));
    for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
      held.push_back(segmentRow(d.store, sg));
      setSegmentRow(d.store, sg, held.back());
    }
    benchmark::DoNotOptimize(held.data());
  }
}

// The selected rows of a drawing, and the numbers of a turn alone.
void plainTurn(benchmark::State& state) {
  const Drawing d(static_cast<int>(state.range(0)));
  std::vector<SegmentRow> rows;
  for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
    if (d.store.segattr[sg] == kSelectedRow) rows.push_back(segmentRow(d.store, sg));
  }
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<SegmentRow> turned = rows;
    state.ResumeTiming();
    turnRows(turned, {.about = {100, 0}, .degrees = 30});
    benchmark::DoNotOptimize(turned.data());
  }
}

// Two records for each of them into the log.
void plainRecords(benchmark::State& state) {
  const Drawing d(static_cast<int>(state.range(0)));
  ChangeLog log;
  for (auto _ : state) {
    std::vector<clsSegment> records;
    records.reserve(2 * kMaxSelected);
    for (int sg = 1; sg <= std::min<int>(d.store.NumSegments, kMaxSelected); ++sg) {
      const SegmentRow row = segmentRow(d.store, sg);
      records.emplace_back().SetSegment(row, "D", /*start=*/sg == 1);
      records.emplace_back().SetSegment(row, "A", /*start=*/false);
    }
    log.logRecords(records);
  }
}

// Of a drawing that grows with each turn, the rows that came are taken out again.
template <void (*transform)(Drawing&)>
void transformRows(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  Drawing d(rows);
  for (auto _ : state) {
    transform(d);
    if (d.store.NumSegments == rows) continue;
    state.PauseTiming();
    undoStep(d.changes);
    state.ResumeTiming();
  }
}

template <void (*transform)(Drawing&)>
void undoOf(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    transform(d);
    state.ResumeTiming();
    undoStep(d.changes);
  }
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(1000)->Arg(10000)->Arg(30000);
}

BENCHMARK(plainCopy)->Name("Plain/copy of the table")->Apply(sizes);
BENCHMARK(plainTurn)->Name("Plain/turn of the points")->Apply(sizes);
BENCHMARK(plainRecords)->Name("Plain/records")->Apply(sizes);
BENCHMARK(transformRows<move>)->Name("Transform/move")->Apply(sizes);
BENCHMARK(transformRows<scale>)->Name("Transform/scale")->Apply(sizes);
BENCHMARK(transformRows<mirrorMove>)->Name("Transform/mirror")->Apply(sizes);
BENCHMARK(transformRows<mirrorCopy>)->Name("Transform/mirrored copy")->Arg(1000)->Arg(10000);
BENCHMARK(transformRows<rotate>)->Name("Transform/rotate")->Apply(sizes);
BENCHMARK(undoOf<move>)->Name("Transform/undo of move")->Apply(sizes);
BENCHMARK(undoOf<scale>)->Name("Transform/undo of scale")->Apply(sizes);
BENCHMARK(undoOf<mirrorMove>)->Name("Transform/undo of mirror")->Apply(sizes);
BENCHMARK(undoOf<mirrorCopy>)->Name("Transform/undo of mirrored copy")->Arg(1000)->Arg(10000);
BENCHMARK(undoOf<rotate>)->Name("Transform/undo of rotate")->Apply(sizes);

}  // namespace
}  // namespace tess
