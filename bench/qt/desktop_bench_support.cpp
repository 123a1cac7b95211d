// The program that the benchmarks of the desktop share, and their main function.
#include "bench/qt/desktop_bench_support.h"

#include <QApplication>
#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "benchmark/benchmark.h"

#include "core/lifecycle.h"
#include "shell/program_folder.h"
#include "shell/qt/theme.h"

namespace tess {

namespace {

// A program's folder inside another, filled as at the first start.
std::string freshProgramFolder(const std::string& folder) {
  const auto environment = [&](const char* name) -> std::optional<std::string> {
    if (std::string_view(name) == "XDG_DATA_HOME") return folder;
    return {};
  };
  return programFolder({.home = {}, .executableFolder = {}, .environment = environment});
}

}  // namespace

BenchProgram::BenchProgram() {
  applyTheme(*qApp, /*dark=*/false);
  program_ = std::make_unique<DesktopProgram>(freshProgramFolder(folder_()));
  program_->open({});
  settle();
  application().interaction.tools.setClientArea({0, 0, kBenchWidth, kBenchHeight});
  settle();
}

void BenchProgram::settle() {
  while (application().interaction.redraw.TaskQueueState() != 0 || !surface().drawing().Enabled()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
}

void scatterLines(BenchProgram& program, int rows, double pixels) {
  constexpr double kTurn = 6.283185307;
  std::mt19937 engine(2718);
  const auto upTo = [&](double limit) {
    return limit * static_cast<double>(engine()) / 4294967296.0;
  };
  new_drawing(program.application().session);
  program.settle();
  DrawingSurface& surface = program.surface().drawing();
  for (int row = 0; row < rows; ++row) {
    const double x = upTo(kBenchWidth);
    const double y = upTo(kBenchHeight);
    const double angle = upTo(kTurn);
    const Point from = surface.toWorld(x, y);
    const Point to = surface.toWorld(x + pixels * std::cos(angle), y + pixels * std::sin(angle));
    AddSeg(program.store(), {.type = kLine, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y},
           /*drawing=*/nullptr);
  }
}

}  // namespace tess

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
