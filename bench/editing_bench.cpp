// The edit tools by click, in drawings and in paths of 1000 to 30000 rows: all that happens between
// the press of the button and its release, but for the painting of pixels. Each time the last click
// of a tool is measured, which finds the row, changes it, logs the step and redraws; undo brings
// the rows back, and is measured as well. Beside them stands the redraw that every step ends with.
#include <functional>

#include "benchmark/benchmark.h"

#include "drafting/break_segment.h"
#include "drafting/delete_rows.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/fillet.h"
#include "drafting/flip_arc.h"
#include "drafting/join_ends.h"
#include "drafting/move_end_points.h"
#include "drafting/remove_vertex.h"
#include "drafting/trim.h"
#include "drafting/undo.h"
#include "tests/support/silent_surface.h"

namespace tess {
namespace {

constexpr float kCell = 4;
constexpr int kRowsInCell = 4;

// Cells in a square, and in each a corner of two lines, a wall across one of them, and an arc.
struct Parts : testing::SilentDrafting {
  Parts(int rows, bool paths) {
    const int cells = rows / kRowsInCell;
    side_ = static_cast<int>(std::sqrt(cells));
    for (int cell = 0; cell < cells; ++cell) {
      addCell(kCell * static_cast<float>(cell % side_), kCell * static_cast<float>(cell / side_));
    }
    context.command.EditPaths = paths;
    test.recording.prompts.onForm = [](Form& form) {
      auto& dialog = dynamic_cast<dlgEditRadius&>(form);
      dialog.txtradius.setText("0.25");
      dialog.cmdAccept.click();
    };
  }

  // In the cell in the middle.
  void clickInCell(float x, float y) {
    const float middle = kCell * static_cast<float>(side_ / 2);
    click(middle + x, middle + y);
  }

 private:
  void addCell(float x, float y) {
    addRow({.type = kLine, .x0 = x + 2, .y0 = y, .x1 = x, .y1 = y});
    addRow({.type = kLine, .x0 = x, .y0 = y, .x1 = x, .y1 = y + 2});
    addRow({.type = kLine, .x0 = x + 1, .y0 = y - 0.5F, .x1 = x + 1, .y1 = y + 0.5F});
    addRow({.type = kCounterClockwiseArc,
            .x0 = x + 2,
            .y0 = y + 1,
            .x1 = x + 1,
            .y1 = y + 2,
            .xc = x + 1,
            .yc = y + 1});
  }
  void addRow(const SegmentRow& row) {
    add(row);
    addPathSegment(store, {.type = row.type,
                           .x0 = row.x0,
                           .y0 = row.y0,
                           .x1 = row.x1,
                           .y1 = row.y1,
                           .xc = row.xc,
                           .yc = row.yc,
                           .z = -1,
                           .feed = 10,
                           .code = 100});
  }

  int side_ = 0;
};

// A tool, its clicks before the last, and the last one.
struct ToolCase {
  const char* name;
  void (*command)(DraftingContext&);
  std::vector<Point> before;
  Point last;
};

const std::vector<ToolCase>& toolCases() {
  static const std::vector<ToolCase> kCases = {
      {"delete", mnuEditDelete_Click, {}, {1.5F, 0.1F}},
      {"break", mnuEditBreakSeg_Click, {}, {1.5F, 0.1F}},
      {"trim", mnuEditTrimEntity_Click, {{1.7F, 0.1F}}, {1, 0.4F}},
      {"flip arc", mnuEditFlipArc_Click, {}, {1.8F, 1.8F}},
      {"fillet", mnuAddFillet_Click, {{1.7F, 0.1F}}, {0, 1.7F}},
      {"join", mnuEditJoinEnd_Click, {{2, 0}}, {2, 1}},
      {"join by arc", mnuEditJoinEndPtsArc, {{2, 0}, {2, 1}}, {2.2F, 0.5F}},
      {"remove vertex", mnuDeleteVertex_Click, {}, {0.1F, 0.1F}},
      {"move end points", mnuEditMoveEnd_Click, {}, {2, 0.1F}},
  };
  return kCases;
}

void startTool(Parts& parts, const ToolCase& tool) {
  tool.command(parts.context);
  for (const Point at : tool.before) parts.clickInCell(at.x, at.y);
}

void lastClick(benchmark::State& state, const ToolCase& tool, bool paths) {
  Parts parts(static_cast<int>(state.range(0)), paths);
  for (auto _ : state) {
    state.PauseTiming();
    startTool(parts, tool);
    const int before = parts.context.changelog.changecount;
    state.ResumeTiming();
    parts.clickInCell(tool.last.x, tool.last.y);
    state.PauseTiming();
    if (parts.context.changelog.changecount == before) state.SkipWithError("nothing has changed");
    Undo_Last_Change(parts.context);
    state.ResumeTiming();
  }
}

void undoOfClick(benchmark::State& state, const ToolCase& tool, bool paths) {
  Parts parts(static_cast<int>(state.range(0)), paths);
  for (auto _ : state) {
    state.PauseTiming();
    startTool(parts, tool);
    parts.clickInCell(tool.last.x, tool.last.y);
    state.ResumeTiming();
    Undo_Last_Change(parts.context);
  }
}

void redraw(benchmark::State& state) {
  Parts parts(static_cast<int>(state.range(0)), /*paths=*/false);
  for (auto _ : state) parts.redraw.redrawscreen();
}

using Measure = void (*)(benchmark::State&, const ToolCase&, bool);

void addSizes(const std::string& name, const std::function<void(benchmark::State&)>& run) {
  auto* const bench = benchmark::RegisterBenchmark(name.c_str(), run);
  for (const int rows : {1000, 10000, 30000}) bench->Arg(rows);
  bench->Unit(benchmark::kMicrosecond);
}

int addAll() {
  addSizes("Editing/redraw", redraw);
  const std::pair<const char*, Measure> kMeasures[] = {{"click", lastClick}, {"undo", undoOfClick}};
  for (const auto& [what, measure] : kMeasures) {
    for (const ToolCase& tool : toolCases()) {
      for (const bool paths : {false, true}) {
        const std::string name =
            std::string("Editing/") + (paths ? "path " : "") + tool.name + " " + what;
        addSizes(name, [measure = measure, &tool, paths](benchmark::State& state) {
          measure(state, tool, paths);
        });
      }
    }
  }
  return 0;
}

const int kAdded = addAll();

}  // namespace
}  // namespace tess
