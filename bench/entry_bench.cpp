// Roughing of a wavy star pocket with four islands by true paths, with each way into the material:
// what an entry adds to the command. The goal is a tenth of the command without it. Lines that are
// not connected are the hardest, since every line is a piece of its own. And by rings that are kept
// below a share of the cutter's width.
#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

struct StarPocket : testing::SilentDrafting {
  explicit StarPocket(const benchmark::State& run) {
    for (const auto& outline : testing::starWithIslands(static_cast<int>(run.range(0)),
                                                        testing::OutlineKind::LinesAndArcs)) {
      testing::addOutline(store, outline, kVerifiedRow);
    }
    store.selectedtool = 0;
    store.toolradius[0] = 0.125F;
    store.cfg_true_paths = true;
    store.cfg_tool_spacing = 50;
    store.cfg_cut_width_type = choiceNumber(StepOver::ByPercent);
    store.cfg_cutting_mode = choiceNumber(CuttingMode::Conventional);
    store.cfg_final_depth = 0.4F;
    store.cfg_z_cut_per_pass = 0.2F;
    store.cfg_entry_kind = static_cast<std::int16_t>(run.range(1));
    store.cfg_entry_angle = 3;
  }

  CamContext cam{context};
};

void report(benchmark::State& state, const StarPocket& pocket) {
  state.counters["rows"] = int{pocket.store.NumPathSegments};
}

void EnteredRings(benchmark::State& state) {
  StarPocket pocket(state);
  pocket.store.cfg_connect_pocketing_paths = true;
  pocket.store.cfg_pocketing_style = choiceNumber(PocketingStyle::ParallelSpiral);
  for (auto _ : state) {
    pocket.store.NumPathSegments = 0;
    ringTruePocket(pocket.cam, {0, 0});
  }
  report(state, pocket);
}
BENCHMARK(EnteredRings)->ArgsProduct({{100, 1000}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

// The second argument is the engagement limit in percent; 0 for plain rings.
void LimitedRings(benchmark::State& state) {
  StarPocket pocket(state);
  pocket.store.cfg_entry_kind = choiceNumber(EntryKind::Helix);
  pocket.store.cfg_connect_pocketing_paths = true;
  pocket.store.cfg_pocketing_style = choiceNumber(PocketingStyle::ParallelSpiral);
  pocket.store.cfg_engagement_limit = static_cast<float>(state.range(1));
  for (auto _ : state) {
    pocket.store.NumPathSegments = 0;
    ringTruePocket(pocket.cam, {0, 0});
  }
  report(state, pocket);
}
BENCHMARK(LimitedRings)->ArgsProduct({{100}, {0, 60, 40, 25}})->Unit(benchmark::kMillisecond);

void EnteredLines(benchmark::State& state) {
  StarPocket pocket(state);
  pocket.store.cfg_pocketing_style = choiceNumber(PocketingStyle::Horizontal);
  for (auto _ : state) {
    pocket.store.NumPathSegments = 0;
    roughTruePocket(pocket.cam);
  }
  report(state, pocket);
}
BENCHMARK(EnteredLines)->ArgsProduct({{100, 1000}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
