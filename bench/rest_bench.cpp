// Rest roughing: a wavy star pocket with four islands that a larger tool has cleared is roughed
// again with a smaller one, in each style. The goal is 300 ms for 1000 wall rows.
#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/change.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/job_walls.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

struct ClearedPocket : testing::SilentDrafting {
  ClearedPocket(int rows, PocketingStyle style) {
    for (const auto& outline : testing::starWithIslands(rows, testing::OutlineKind::LinesAndArcs)) {
      testing::addOutline(store, outline, kVerifiedRow);
    }
    store.cfg_true_paths = true;
    store.cfg_cutting_mode = choiceNumber(CuttingMode::Bidirectional);
    store.cfg_pocketing_style = choiceNumber(style);
    store.cfg_tool_spacing = 60;
    store.cfg_cut_width_type = choiceNumber(StepOver::ByPercent);
    store.cfg_final_depth = 0.5F;
    store.cfg_z_cut_per_pass = 0.5F;
    store.toolradius[0] = 0.5F;
    store.toolradius[1] = 0.2F;
    store.selectedtool = 0;
    if (style == PocketingStyle::ParallelSpiral) {
      ringTruePocket(cam, {0, 0});
    } else {
      roughTruePocket(cam);
    }
    noteRoughing(cam);
    rowsBefore = store.NumPathSegments;
    store.selectedtool = 1;
  }

  CamContext cam{context};
  int rowsBefore = 0;
};

void RoughWhatIsLeft(benchmark::State& state) {
  ClearedPocket pocket(static_cast<int>(state.range(0)),
                       static_cast<PocketingStyle>(state.range(1)));
  int placed = 0;
  for (auto _ : state) {
    roughTrueRest(pocket.cam, "Rough What Is Left");
    state.PauseTiming();
    placed = pocket.store.NumPathSegments - pocket.rowsBefore;
    Change change(pocket.cam.changes);
    change.paths.erase(pocket.rowsBefore + 1, pocket.store.NumPathSegments);
    change.keep({.redraws = false});
    state.ResumeTiming();
  }
  state.counters["rows before"] = pocket.rowsBefore;
  state.counters["rows"] = placed;
}
BENCHMARK(RoughWhatIsLeft)->ArgsProduct({{1000}, {1, 2, 3}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
