// The program that the benchmarks of the desktop share, and their main function.
#include "bench/qt/desktop_bench_support.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "benchmark/benchmark.h"

#include "core/lifecycle.h"
#include "shell/program_folder.h"
#include "shell/qt/theme.h"

namespace tess {

namespace {

double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// A program's folder inside another, filled as at the first start.
std::string freshProgramFolder(const std::string& folder) {
  const auto environment = [&](const char* name) -> std::optional<std::string> {
    if (std::string_view(name) == "XDG_DATA_HOME") return folder;
    return {};
  };
  return programFolder({.home = {}, .executableFolder = {}, .environment = environment});
}

}  // namespace

bool TimedApplication::notify(QObject* receiver, QEvent* event) {
  if (depth_ > 0) return QApplication::notify(receiver, event);
  const double start = processorTime();
  ++depth_;
  const bool taken = QApplication::notify(receiver, event);
  --depth_;
  longest_ = std::max(longest_, processorTime() - start);
  return taken;
}

double TimedApplication::takeLongest() {
  return std::exchange(longest_, 0);
}

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

namespace {

constexpr double kTurn = 6.283185307;

class Dice {
 public:
  double upTo(double limit) { return limit * static_cast<double>(engine_()) / 4294967296.0; }

 private:
  std::mt19937 engine_{2718};
};

void addLine(BenchProgram& program, QPointF from, QPointF to) {
  const DrawingSurface& surface = program.surface().drawing();
  const Point start = surface.toWorld(from.x(), from.y());
  const Point end = surface.toWorld(to.x(), to.y());
  AddSeg(program.store(), {.type = kLine, .x0 = start.x, .y0 = start.y, .x1 = end.x, .y1 = end.y},
         /*drawing=*/nullptr);
}

void emptyDrawing(BenchProgram& program) {
  new_drawing(program.application().session);
  program.settle();
}

}  // namespace

void drawOutlines(BenchProgram& program, int rows, double pixels) {
  constexpr int kSides = 20;
  const double radius = pixels / 2 / std::sin(kTurn / 2 / kSides);
  Dice dice;
  emptyDrawing(program);
  QPointF center;
  const auto corner = [&](int side) {
    const double angle = kTurn * (side + 0.3) / kSides;
    return center + radius * QPointF(std::cos(angle), std::sin(angle));
  };
  for (int row = 0; row < rows; ++row) {
    if (row % kSides == 0) center = {dice.upTo(kBenchWidth), dice.upTo(kBenchHeight)};
    addLine(program, corner(row), corner(row + 1));
  }
}

void scatterLines(BenchProgram& program, int rows, double pixels) {
  Dice dice;
  emptyDrawing(program);
  for (int row = 0; row < rows; ++row) {
    const QPointF from(dice.upTo(kBenchWidth), dice.upTo(kBenchHeight));
    const double angle = dice.upTo(kTurn);
    addLine(program, from, from + pixels * QPointF(std::cos(angle), std::sin(angle)));
  }
}

void drawChain(BenchProgram& program, int rows) {
  const int across = static_cast<int>(std::ceil(std::sqrt(rows)));
  const double step = static_cast<double>(kBenchHeight) / (across + 1);
  const auto corner = [&](int number) {
    const int line = number / across;
    const int place = number % across;
    const int column = line % 2 == 0 ? place : across - 1 - place;
    return QPointF(column * step, line * step);
  };
  emptyDrawing(program);
  for (int row = 0; row < rows; ++row) addLine(program, corner(row), corner(row + 1));
}

}  // namespace tess

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  tess::TimedApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
