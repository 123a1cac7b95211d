// The viewer of CNC programs in its window: a file from the call that shows it to its first
// painting, and the painting of a view in the middle of it.
#include <QCoreApplication>
#include <QImage>
#include <QScrollBar>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"
#include "shell/qt/file_text_pane.h"
#include "tests/support/program_lines.h"

namespace tess {
namespace {

struct Shown {
  explicit Shown(int lines) : file(folder.write("part.CNC", testing::programOfLines(lines))) {
    show();
  }
  void show() {
    program.application().guarded(
        "show", [this] { program.application().viewer.showFile(file, /*notice=*/""); });
  }
  FileTextPane& pane() {
    return *dynamic_cast<FileTextPane*>(program.window().findChild<QWidget*>("txtFile"));
  }

  testing::TempFolder folder;
  BenchProgram program;
  std::string file;
};

void ViewerShowsAndPaints(benchmark::State& state) {
  Shown shown(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    shown.show();
    benchmark::DoNotOptimize(shown.pane().grab());
  }
}

void ViewerPaints(benchmark::State& state) {
  Shown shown(static_cast<int>(state.range(0)));
  shown.pane().verticalScrollBar()->setValue(static_cast<int>(state.range(0)) / 2);
  for (auto _ : state) benchmark::DoNotOptimize(shown.pane().grab());
}

BENCHMARK(ViewerShowsAndPaints)->Arg(400)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(ViewerPaints)->Arg(40000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
