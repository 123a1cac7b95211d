// Changes of the drawing against the bare work on the tables: a move of rows as one step of undo,
// rows that come, go, or come in between, steps in a log that is full, and the fixed cost of a
// change of one row. The yardsticks keep no log and check nothing; the first one still holds the
// old rows, as anything must that can be taken back.
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "drafting/change.h"
#include "drafting/change_walk.h"

namespace tess {
namespace {

SegmentRow lineAt(int row) {
  const auto x = static_cast<float>(row);
  return {.type = kLine, .x0 = x, .y0 = 1, .x1 = x + 1, .y1 = 2};
}

struct Drawing {
  explicit Drawing(int rows) {
    for (int row = 0; row < rows; ++row) AddSeg(store, lineAt(row), nullptr);
    for (int row = 0; row < rows; ++row) {
      const auto x = static_cast<float>(row);
      addPathSegment(store, {.type = kLine, .x0 = x, .x1 = x + 1, .z = -1, .code = 100});
    }
  }
  DrawingStore store;
  ChangeLog log;
  Changes changes{store, log};
};

bool move(int /*sg*/, SegmentRow& row) {
  row.x0 += 1;
  row.y0 += 1;
  row.x1 += 1;
  row.y1 += 1;
  return true;
}

void countRows(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// ---- A step of replaced rows

void replaceRows(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Change change(d.changes);
    change.segments.replaceWhere(move);
    change.keep();
  }
  countRows(state);
}

void replaceRowByRow(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Change change(d.changes);
    for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
      SegmentRow row = segmentRow(d.store, sg);
      move(sg, row);
      change.segments.replace(sg, row);
    }
    change.keep();
  }
  countRows(state);
}

struct Follower : ChangeListener {
  void changed(const KeptChange& change) override { rows += change.segments.front().rows.size(); }
  void rewritten() override {}
  std::size_t rows = 0;
};

void replaceRowsFollowed(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  Follower follower;
  const Subscription subscription = d.changes.listen(follower);
  for (auto _ : state) {
    Change change(d.changes);
    change.segments.replaceWhere(move);
    change.keep();
  }
  benchmark::DoNotOptimize(follower.rows);
  countRows(state);
}

void replaceAndTakeBack(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Change change(d.changes);
    change.segments.replaceWhere(move);
  }
  countRows(state);
}

void plainReplace(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<SegmentRow> before;
    before.reserve(static_cast<std::size_t>(d.store.NumSegments));
    for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
      before.push_back(segmentRow(d.store, sg));
      SegmentRow row = before.back();
      move(sg, row);
      setSegmentRow(d.store, sg, row);
    }
    benchmark::DoNotOptimize(before.data());
  }
  countRows(state);
}

BENCHMARK(replaceRows)->Name("Change/replaced rows")->Arg(100)->Arg(1000)->Arg(15000);
BENCHMARK(replaceRowByRow)->Name("Change/replaced row by row")->Arg(100)->Arg(1000)->Arg(15000);
BENCHMARK(replaceRowsFollowed)->Name("Change/replaced, followed")->Arg(15000);
BENCHMARK(replaceAndTakeBack)->Name("Change/replaced, taken back")->Arg(15000);
BENCHMARK(plainReplace)->Name("Plain/replaced rows")->Arg(100)->Arg(1000)->Arg(15000);

void undoReplaced(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    {
      Change change(d.changes);
      change.segments.replaceWhere(move);
      change.keep();
    }
    state.ResumeTiming();
    undoStep(d.changes);
  }
  countRows(state);
}
BENCHMARK(undoReplaced)->Name("Change/undo of replaced rows")->Arg(15000);

// ---- Rows that come and go

void appendRows(benchmark::State& state) {
  for (auto _ : state) {
    Drawing d(0);
    Change change(d.changes);
    for (int row = 0; row < state.range(0); ++row) change.segments.append(lineAt(row));
    change.keep();
    benchmark::DoNotOptimize(d.store.x0[1]);
  }
  countRows(state);
}

void plainAppend(benchmark::State& state) {
  for (auto _ : state) {
    Drawing d(0);
    for (int row = 0; row < state.range(0); ++row) AddSeg(d.store, lineAt(row), nullptr);
    benchmark::DoNotOptimize(d.store.x0[1]);
  }
  countRows(state);
}

// Every second path row goes, and comes back when it is taken back.
void eraseRows(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Change change(d.changes);
    change.paths.eraseWhere([](int ps) { return ps % 2 == 0; });
  }
  countRows(state);
}

void plainErase(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  const int rows = d.store.NumPathSegments;
  for (auto _ : state) {
    std::vector<PathRow> all;
    all.reserve(static_cast<std::size_t>(rows));
    for (int ps = 1; ps <= rows; ++ps) all.push_back(pathRow(d.store, ps));
    int kept = 0;
    for (int ps = 1; ps <= rows; ++ps) {
      if (ps % 2 != 0) setPathRow(d.store, ++kept, all[static_cast<std::size_t>(ps) - 1]);
    }
    for (int ps = 1; ps <= rows; ++ps) {
      setPathRow(d.store, ps, all[static_cast<std::size_t>(ps) - 1]);
    }
  }
  countRows(state);
}

BENCHMARK(appendRows)->Name("Change/appended rows")->Arg(30000);
BENCHMARK(plainAppend)->Name("Plain/appended rows")->Arg(30000);
BENCHMARK(eraseRows)->Name("Change/every second row gone and back")->Arg(30000);
BENCHMARK(plainErase)->Name("Plain/every second row gone and back")->Arg(30000);

// ---- One row at a time, in a drawing of so many

void oneLine(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  const int rows = d.store.NumSegments;
  for (auto _ : state) {
    Change change(d.changes);
    change.segments.append(lineAt(rows));
    change.segments.erase(rows + 1, Entry::Unlogged);
    change.keep();
  }
}
// In a log that is full, so that a step gives way each time.
void oneLineInAFullLog(benchmark::State& state) {
  Drawing d(static_cast<int>(state.range(0)));
  clsSegment record;
  record.StartOfSegment = true;
  for (int at = 0; at < kMaxRecords; ++at) d.log.logRecord(record, /*cutRedo=*/true);
  const int rows = d.store.NumSegments;
  for (auto _ : state) {
    Change change(d.changes);
    change.segments.append(lineAt(rows));
    change.segments.erase(rows + 1, Entry::Unlogged);
    change.keep();
  }
}
BENCHMARK(oneLine)->Name("Change/one line")->Arg(100)->Arg(30000);
BENCHMARK(oneLineInAFullLog)->Name("Change/one line, full log")->Arg(100)->Arg(30000);

}  // namespace
}  // namespace tess
