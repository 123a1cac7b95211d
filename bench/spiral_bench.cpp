// The parallel spiral of about a hundred rings in a round pocket, with joints, clean-up, barrier
// and log, beside the same insets by the polygon offsetter of the distribution, which takes the
// finished polygon and gives back polygons. A path table holds 32767 rows, so the outlines are
// short.
#include "benchmark/benchmark.h"

#include "bench/polygon_offsetter.h"
#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/parallel_spiral.h"

namespace tess {
namespace {

constexpr int kRings = 100;

std::vector<Entity> roundOutline(int rows) {
  return testing::wavyStar({.rows = rows, .depth = 0});
}

struct RoundPocket : testing::SilentDrafting {
  explicit RoundPocket(int rows) {
    testing::addOutline(store, roundOutline(rows), kVerifiedRow);
    radius = static_cast<float>(testing::starRadius(rows));
    cam.PocketXDim = cam.PocketYDim = 2 * radius;
    cam.roughFloor = -0.5F;
    store.cfg_final_depth = 0.5F;
    store.cfg_z_cut_per_pass = 0.5F;
    store.cfg_cutting_mode = choiceNumber(CuttingMode::Climb);
    store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
    store.cfg_tool_spacing_distance = step();
    store.cfg_pocket_dist_from_center = step();
    store.toolradius[0] = step();
  }
  float step() const { return radius / kRings; }

  CamContext cam{context};
  float radius = 0;
};

void ParallelSpiral(benchmark::State& state) {
  RoundPocket d(static_cast<int>(state.range(0)));
  d.store.cfg_gouge_avoidance = state.range(1) != 0;
  for (auto _ : state) {
    d.store.NumPathSegments = 0;
    d.context.changelog.clear();
    parallelSpiralPocket(d.cam, 1);
  }
  state.counters["path rows"] = static_cast<double>(d.store.NumPathSegments);
}

void SpiralInsetsByPolygonOffsetter(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  const RoundPocket d(rows);
  const bench::OffsetterPath outline = bench::offsetterPath(roundOutline(rows));
  std::size_t corners = 0;
  for (auto _ : state) {
    corners = 0;
    for (int ring = 1; ring < kRings; ++ring) {
      corners += bench::insetCorners(outline, double{d.step()} * ring);
    }
  }
  state.counters["corners"] = static_cast<double>(corners);
}

BENCHMARK(ParallelSpiral)
    ->ArgNames({"rows", "avoidance"})
    ->ArgsProduct({{100, 300}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SpiralInsetsByPolygonOffsetter)
    ->ArgName("rows")
    ->Arg(100)
    ->Arg(300)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
