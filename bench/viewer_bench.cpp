// What an operator waits for in the viewer of CNC programs: a file of 40000 lines to be shown, a
// search that looks through all of it, and the marks of selected rows. The goal for the first is
// 30 ms with the first painting, which bench/qt measures.
#include <string>

#include "benchmark/benchmark.h"

#include "cnc/copy_program.h"
#include "cnc/dlgMenuHelper.h"
#include "cnc/other_programs.h"
#include "tests/support/program_lines.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

struct Shown {
  explicit Shown(int lines) : file(test.home.write("part.CNC", testing::programOfLines(lines))) {
    form.open(Modality::Modeless);
    form.showFile(file);
  }

  testing::TestSession test;
  NoPrograms others;
  HandOver handOver{test.session, others, "", freeSpaceIn};
  std::string file;
  dlgMenuHelper form{handOver};
};

void ViewerShowsAFile(benchmark::State& state) {
  Shown shown(static_cast<int>(state.range(0)));
  for (auto _ : state) shown.form.showFile(shown.file);
}

void ViewerFindsNothing(benchmark::State& state) {
  Shown shown(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    if (shown.form.txtFile.find("nowhere", /*backwards=*/false)) state.SkipWithError("found");
  }
}

// Every row has a line, and every other one is selected.
void ViewerMarksRows(benchmark::State& state) {
  Shown shown(static_cast<int>(state.range(0)));
  const TextLines& lines = shown.form.txtFile.lines();
  RowPlaces places;
  std::vector<int> rows;
  for (int line = 0; line < lines.count(); ++line) {
    places.rowBegins(lines.placeOf(line));
    if (line % 2 == 0) rows.push_back(line + 1);
  }
  places.rowsEnd(lines.text().size());
  shown.form.linkRows(places);
  for (auto _ : state) {
    shown.form.markRows(rows);
    shown.form.markRows({});
  }
}

BENCHMARK(ViewerShowsAFile)->Arg(400)->Arg(4000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(ViewerFindsNothing)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(ViewerMarksRows)->Arg(30000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
