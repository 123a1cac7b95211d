// What an operator does on large drawings, in the real program: the pointer with object snap, the
// two selections that look at every row, undo of a long step, opening a file, and the longest time
// for which one event keeps the window from serving the next.
#include <QAction>
#include <QMouseEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "drafting/undo.h"

namespace tess {
namespace {

constexpr int kFullTable = 32767;

PointerEvent eventAt(BenchProgram& program, int button, double x, double y) {
  const Point at = program.surface().drawing().toWorld(x, y);
  return {.Button = button, .X = at.x, .Y = at.y};
}

void checkCount(int found, int expected) {
  if (found != expected) throw std::logic_error("wrong rows: " + std::to_string(found));
}

int selectedRows(const DrawingStore& store) {
  int selected = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) selected += isSelected(store.segattr[sg]) ? 1 : 0;
  return selected;
}

// A line is being drawn; the pointer goes round with the button held and snaps to what is near.
void PointerMoveWithSnap(benchmark::State& state) {
  BenchProgram program;
  drawOutlines(program, kFullTable, 12);
  Application& application = program.application();
  application.clickTool("miLine");
  application.clickTool("OSnap");
  program.settle();
  application.press(eventAt(program, kLeftButton, 800, 500));
  double angle = 0;
  for (auto _ : state) {
    angle += 0.1;
    application.move(
        eventAt(program, kLeftButton, 800 + 400 * std::cos(angle), 500 + 400 * std::sin(angle)));
  }
}

// A text of a hundred letters on a curve hovers; each step of the wheel lays it out anew and paints
// it in the place of the old one.
void WheelOverText(benchmark::State& state) {
  BenchProgram program;
  Application& application = program.application();
  application.clickTool("miText");
  frmText& panel = application.interaction.text;
  panel.cboFont.setText("DejaVu Sans");
  panel.cboFontSize.setText("24");
  panel.cboCurvature.setText("5");
  std::string text;
  while (text.size() < 100) text += "Sphinx of black quartz, 0123456789 ";
  text.resize(100);
  panel.txtText.setText(text);
  program.settle();
  panel.Update();
  application.move(eventAt(program, 0, 400, 700));
  int step = 0;
  for (auto _ : state) {
    panel.Drawing_MouseWheel(step % 2 == 0 ? 1 : -1, kShiftKey);
    ++step;
  }
  if (!application.interaction.context.hoverLines.shown) throw std::logic_error("nothing hovers");
}

// Each selection begins with nothing selected and must take the whole chain.
template <typename Select>
void selectChain(benchmark::State& state, const char* tool, Select select) {
  BenchProgram program;
  drawChain(program, kFullTable);
  Application& application = program.application();
  for (auto _ : state) {
    state.PauseTiming();
    application.clickTool("miUnselectAll");
    application.clickTool(tool);
    program.settle();
    state.ResumeTiming();
    select(program);
    state.PauseTiming();
    program.settle();
    checkCount(selectedRows(program.store()), kFullTable);
    state.ResumeTiming();
  }
}

void WindowSelection(benchmark::State& state) {
  selectChain(state, "miSelect", [](BenchProgram& program) {
    Application& application = program.application();
    application.press(eventAt(program, kLeftButton, -5, -5));
    application.move(eventAt(program, kLeftButton, 1595, 995));
    application.release(eventAt(program, kLeftButton, 1595, 995));
  });
}

void ContiguousSelection(benchmark::State& state) {
  selectChain(state, "miSelectContiguous", [](BenchProgram& program) {
    Application& application = program.application();
    application.press(eventAt(program, kLeftButton, 500, 500));
    application.release(eventAt(program, kLeftButton, 500, 500));
  });
}

// From the click to the picture, as the shipped setups have it.
void SelectAll(benchmark::State& state) {
  constexpr int kRows = 30000;
  BenchProgram program;
  drawOutlines(program, kRows, 12);
  Application& application = program.application();
  for (auto _ : state) {
    state.PauseTiming();
    application.clickTool("miUnselectAll");
    application.interaction.redraw.redrawscreen();
    program.settle();
    checkCount(selectedRows(program.store()), 0);
    state.ResumeTiming();
    application.clickTool("miSelectAll");
    state.PauseTiming();
    checkCount(selectedRows(program.store()), kRows);
    state.ResumeTiming();
  }
}

// The redraw that follows is part of it.
void UndoOfALongStep(benchmark::State& state) {
  constexpr int kRows = 10000;
  BenchProgram program;
  drawOutlines(program, kRows, 12);
  Application& application = program.application();
  DraftingContext& context = application.interaction.context;
  for (int sg = 1; sg <= kRows; ++sg) {
    logSegment(context.changelog, program.store(), sg, "A", /*start=*/sg == 1);
  }
  updateUndoTools(context);
  for (auto _ : state) {
    application.clickTool("miUndo");
    state.PauseTiming();
    program.settle();
    checkCount(program.store().NumSegments, 0);
    application.clickTool("miRedo");
    program.settle();
    checkCount(program.store().NumSegments, kRows);
    state.ResumeTiming();
  }
}

// From the dropped file to the end of the first redraw with its four stages.
void OpenADrawing(benchmark::State& state) {
  constexpr int kRows = 30000;
  BenchProgram program;
  drawOutlines(program, kRows, 12);
  const testing::TempFolder folder;
  const std::array<std::string, 1> file{folder("part.cdm")};
  Session& session = program.application().session;
  program.store().drawingpath = folder();
  program.store().drawingname = "part.cdm";
  save_Drawing(session);
  for (auto _ : state) {
    state.PauseTiming();
    new_drawing(session);
    program.settle();
    checkCount(program.store().NumSegments, 0);
    state.ResumeTiming();
    dropFiles(session, file);
    program.settle();
    checkCount(program.store().NumSegments, kRows);
  }
}

class Operator {
 public:
  explicit Operator(BenchProgram& program) : program_(program) {}

  void tool(const char* name) {
    QAction* action = program_.window().toolBars().action(name);
    QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    program_.settle();
  }
  void drag(QPointF from, QPointF to) {
    send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, from);
    send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, from);
    for (int step = 1; step <= kSteps; ++step) {
      send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, from + (to - from) * step / kSteps);
    }
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, to);
    program_.settle();
  }

 private:
  static constexpr int kSteps = 20;

  void send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPointF at) {
    SurfaceWidget& surface = program_.surface();
    QMouseEvent event(type, at, surface.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&surface, &event);
    QCoreApplication::processEvents();
  }

  BenchProgram& program_;
};

// Draw, zoom, pan, select and undo; `longest` is the longest event in milliseconds.
void OrdinaryWork(benchmark::State& state) {
  BenchProgram program;
  drawOutlines(program, static_cast<int>(state.range(0)), 12);
  Operator hand(program);
  auto& application = static_cast<TimedApplication&>(*qApp);
  double longest = 0;
  for (auto _ : state) {
    application.takeLongest();
    for (const char* mode : {"miLine", "miRectangle", "miCircleC+1P"}) {
      hand.tool(mode);
      hand.drag({300, 300}, {500, 420});
    }
    hand.tool("miZoomIn");
    hand.tool("miPan");
    hand.drag({800, 500}, {700, 450});
    hand.tool("miZoomOut");
    hand.tool("miFullView");
    hand.tool("miSelect");
    hand.drag({200, 200}, {1200, 800});
    hand.tool("miUnselectAll");
    for (int step = 0; step < 3; ++step) hand.tool("miUndo");
    longest = std::max(longest, application.takeLongest());
  }
  state.counters["longest"] = longest;
}

BENCHMARK(PointerMoveWithSnap)->Unit(benchmark::kMicrosecond);
BENCHMARK(WheelOverText)->Unit(benchmark::kMillisecond);
BENCHMARK(WindowSelection)->Unit(benchmark::kMillisecond);
BENCHMARK(ContiguousSelection)->Unit(benchmark::kMillisecond);
BENCHMARK(SelectAll)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoOfALongStep)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenADrawing)->Unit(benchmark::kMillisecond);
BENCHMARK(OrdinaryWork)->Arg(10000)->Arg(kFullTable)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
