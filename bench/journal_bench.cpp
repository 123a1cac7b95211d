// What the journal of unsaved work costs: a session of many commands, one command that changes most
// of the tables, and a start that finds nothing. Each is done with the journal and, as the
// yardstick, without. The screen is a virtual one, on which drawing costs next to nothing: in the
// window the journal's share is smaller still.
#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "shell/edit_journal.h"
#include "shell/recovery.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

constexpr int kCommands = 10000;
constexpr int kRows = 30000;

using testing::RunningProgram;

struct SessionProgram : RunningProgram {
  explicit SessionProgram(bool journal) {
    if (journal) application.keepJournal();
  }
  // A line, a rectangle or a circle, or the last of them taken back.
  void command(int number) {
    constexpr const char* kModes[] = {"miLine", "miRectangle", "miCircleC+1P"};
    if (number % 4 == 3) {
      application.clickTool("miUndo");
      return;
    }
    application.clickTool(kModes[number % 4]);
    click({static_cast<float>(number % 97), static_cast<float>(number % 89)});
  }
};

void session(benchmark::State& state, bool journal) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      SessionProgram program(journal);
      state.ResumeTiming();
      for (int number = 0; number < kCommands; ++number) program.command(number);
      state.PauseTiming();
      if (program.application.store.NumSegments < kCommands) state.SkipWithError("nothing drawn");
    }
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kCommands);
}

// Short commands on a drawing that stays small, so that the journal's part can be told from chance.
void rectangleAndUndo(benchmark::State& state, bool journal) {
  SessionProgram program(journal);
  for (auto _ : state) {
    program.command(5);
    program.command(7);
  }
  program.command(5);
  if (program.application.store.NumSegments == 0) state.SkipWithError("nothing drawn");
}

// One command moves every row of the drawing.
void changeOfManyRows(benchmark::State& state, bool journal) {
  SessionProgram program(journal);
  for (int row = 0; row < kRows; ++row) {
    AddSeg(program.application.store, {.type = kLine, .x1 = static_cast<float>(row)}, nullptr);
  }
  program.context().changes.tellRewritten();
  for (auto _ : state) {
    program.application.guarded("move", [&] {
      Change change(program.context().changes);
      change.segments.replaceWhere([](int /*sg*/, SegmentRow& row) {
        row.x0 += 1;
        return true;
      });
      change.keep({.redraws = false});
    });
  }
}

void startWithoutLeftovers(benchmark::State& state) {
  SessionProgram program(/*journal=*/true);
  if (state.range(0) != 0) program.command(0);  // there is a folder, and a living journal in it
  for (auto _ : state) {
    benchmark::DoNotOptimize(findUnsavedWork(program.application.session).size());
  }
}

BENCHMARK_CAPTURE(session, kept, true)->Name("Journal/session")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(session, none, false)
    ->Name("Journal/session without")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rectangleAndUndo, kept, true)
    ->Name("Journal/rectangle and undo")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rectangleAndUndo, none, false)
    ->Name("Journal/rectangle and undo without")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeOfManyRows, kept, true)
    ->Name("Journal/change of 30000 rows")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(changeOfManyRows, none, false)
    ->Name("Journal/change of 30000 rows without")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(startWithoutLeftovers)
    ->Name("Journal/start without leftovers")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tess
