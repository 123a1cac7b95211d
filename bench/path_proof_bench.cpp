// The proof of rings in a wavy star pocket, every other wall an arc: rings at half the tool's
// radius and links between them, cut level by level until there are as many rows as asked for. The
// goals are 100 ms for 1000 rows and 1 s for 30000; twice the rows may take three times as long.
#include <algorithm>
#include <cmath>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "tests/support/outlines.h"
#include "tests/support/proof_of.h"
#include "toolpath/engagement.h"
#include "toolpath/job_walls.h"
#include "toolpath/proof_groups.h"
#include "toolpath/region_offset.h"

namespace tess {
namespace {

constexpr double kRadius = 0.125;
constexpr int kMostLevels = 8;

PocketRegion starPocket(int walls) {
  std::vector<Entity> rows;
  for (const auto& outline : testing::starWithIslands(walls, testing::OutlineKind::LinesAndArcs)) {
    rows.insert(rows.end(), outline.begin(), outline.end());
  }
  return regionOf(rows, 0.0001F).region;
}

// Rings have about as many rows as the pocket has walls, and the more rings the larger it is.
int wallsFor(int rows) {
  return std::max(60, static_cast<int>(5.1 * std::sqrt(rows)));
}

// Which group the rows on the walls are of, which cut with the whole width of the tool.
enum class Slots { OfTheGroup, Apart };

// A pocket that is cleared, of at most so many rows.
struct ClearedStar {
  ClearedStar(int rows, int levels, Slots slots = Slots::OfTheGroup) : slots_(slots) {
    store.toolradius[0] = static_cast<float>(kRadius);
    const PocketRegion pocket = starPocket(wallsFor(rows / levels));
    jobs.add({.group = 1,
              .kind = JobKind::Clearing,
              .toolRadius = kRadius,
              .distance = kRadius,
              .loops = jobLoops(wallsOf(pocket))});
    for (int level = 1; level <= levels; ++level) cutRings(pocket, level, rows / levels);
  }

  void cutRings(const PocketRegion& pocket, int level, int rows) {
    const int first = int{store.NumPathSegments};
    for (double distance = kRadius;; distance += kRadius / 2) {
      const PocketRegion ring = offsetRegion(pocket, distance).region;
      if (ring.isEmpty()) return;
      for (const Curve& curve : ring.walls()) {
        if (store.NumPathSegments - first == rows) return;
        const bool isSlot = slots_ == Slots::Apart && distance == kRadius;
        add(curve, -0.125F * static_cast<float>(level), isSlot ? 2 : 1);
      }
    }
  }

  void add(const Curve& curve, float z, int group) {
    const auto number = [](double value) { return static_cast<float>(value); };
    const int types[] = {kClockwiseArc, kLine, kCounterClockwiseArc};
    addPathSegment(store, {.type = types[curve.turn + 1],
                           .x0 = number(curve.start.x),
                           .y0 = number(curve.start.y),
                           .x1 = number(curve.end.x),
                           .y1 = number(curve.end.y),
                           .xc = number(curve.center.x),
                           .yc = number(curve.center.y),
                           .z = z,
                           .code = pathCode(group, 0)});
  }

  DrawingStore store;
  PathJobs jobs;
  Slots slots_;
};

void report(benchmark::State& state, const DrawingStore& store, const PathProof& proof) {
  state.counters["rows"] = int{store.NumPathSegments};
  state.counters["in by"] = proof.gouge.depth;
  state.counters["left %"] = 100 * proof.share();
  state.SetItemsProcessed(state.iterations() * int{store.NumPathSegments});
}

void ProofByRecord(benchmark::State& state) {
  const ClearedStar star(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  PathProof proof;
  for (auto _ : state) proof = testing::proofOf(star.store, star.jobs);
  report(state, star.store, proof);
}
BENCHMARK(ProofByRecord)
    ->ArgsProduct({{1000, 2000, 4000, 8000, 16000, 30000}, {1, kMostLevels}})
    ->Unit(benchmark::kMillisecond);

// How much of the tool is in material, all of which is looked at: a slot would end the search.
void EngagementOfRings(benchmark::State& state) {
  const ClearedStar star(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                         Slots::Apart);
  const std::vector<ProofGroup> groups = proofGroups(star.store, star.jobs);
  std::vector<Engagement> found;
  for (auto _ : state) found = groupEngagements(star.store, groups);
  state.counters["rows"] = int{star.store.NumPathSegments};
  state.counters["%"] = 100 * found.front().share;
}
BENCHMARK(EngagementOfRings)
    ->ArgsProduct({{1000, 30000}, {1, kMostLevels}})
    ->Unit(benchmark::kMillisecond);

// The same rows without a job, beside their outlines in the drawing.
void ProofByRows(benchmark::State& state) {
  ClearedStar star(static_cast<int>(state.range(0)), kMostLevels);
  const int walls = wallsFor(static_cast<int>(state.range(0)) / kMostLevels);
  for (const auto& outline : testing::starWithIslands(walls, testing::OutlineKind::LinesAndArcs)) {
    testing::addOutline(star.store, outline);
  }
  PathProof proof;
  for (auto _ : state) proof = testing::proofOf(star.store);
  report(state, star.store, proof);
}
BENCHMARK(ProofByRows)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
