// Offsetting a wavy star outline, of lines alone and of lines and arcs, without leads. The
// yardstick takes the rows in the order in which they stand, displaces each, joins it to the one
// before by the same crossing and appends it: it neither looks for the next row nor logs. With the
// folds cut off, on an outline with waves, the polygon offsetter is the other one.
#include <vector>

#include "benchmark/benchmark.h"

#include "bench/polygon_offsetter.h"
#include "core/drawing_store.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/contour_offset.h"
#include "toolpath/element_offset.h"
#include "toolpath/gouge_avoidance.h"

namespace tess {
namespace {

using testing::OutlineKind;

constexpr float kRadius = 0.01F;  // below the row length, so that no element collapses

// Lines turn inward at every joint; arcs that bulge make them turn outward.
constexpr Side sideOf(OutlineKind kind) {
  return kind == OutlineKind::Lines ? Side::Left : Side::Right;
}

struct StarContext : testing::SilentDrafting {
  StarContext(const std::vector<Entity>& outline, Side sideOfPath) : side(sideOfPath) {
    store.toolradius[0] = kRadius;
    testing::addOutline(store, outline);
  }
  void forgetPaths() {
    store.NumPathSegments = 0;
    context.changelog.changecount = 0;
    context.changelog.changetop = 0;
  }

  CamContext cam{context};
  Side side;
};

void offsetStar(StarContext& d) {
  const Entity first = segmentEntity(d.store, 1);
  OffsetRequest request;
  request.sg = 1;
  request.start = first.start;
  request.direction = first.end;
  request.click = {d.side == Side::Left ? 0 : 2 * first.start.x, 0};
  offsetPathChain(d.cam, request);
}

Entity displaced(const StarContext& d, int sg) {
  return offsetElement(segmentEntity(d.store, sg), d.side, kRadius).value_or(Entity{});
}

void offsetBarely(StarContext& d) {
  DrawingStore& store = d.store;
  std::vector<Entity> elements;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    elements.push_back(displaced(d, sg));
    if (sg == 1) continue;
    Entity& later = elements.back();
    Entity& earlier = elements[elements.size() - 2];
    const Crossing crossing = intersectEntities(earlier, later, store.cfg_tolerance);
    if (!crossing) continue;
    earlier.end = later.start = crossing.at.first;
  }
  for (const Entity& e : elements) {
    addPathSegment(store, {e.type, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y});
  }
}

template <typename Work>
void timeStar(benchmark::State& state, Work work) {
  const auto kind = static_cast<OutlineKind>(state.range(1));
  const int rows = static_cast<int>(state.range(0));
  StarContext d(testing::wavyStar({.rows = rows, .kind = kind, .center = {}, .depth = 0}),
                sideOf(kind));
  for (auto _ : state) {
    d.forgetPaths();
    work(d);
  }
  if (d.store.NumPathSegments < state.range(0)) state.SkipWithError("not all the way round");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Offset(benchmark::State& state) {
  timeStar(state, offsetStar);
}
void OffsetBarely(benchmark::State& state) {
  timeStar(state, offsetBarely);
}

std::vector<Entity> wavyOutline(const benchmark::State& state) {
  return testing::wavyStar({.rows = static_cast<int>(state.range(0)), .center = {}});
}

void OffsetWithoutFolds(benchmark::State& state) {
  StarContext d(wavyOutline(state), sideOf(OutlineKind::Lines));
  for (auto _ : state) {
    d.forgetPaths();
    offsetStar(d);
    removeSelfIntersections(d.cam, 1, ChainKind::Path);
  }
  if (d.store.NumPathSegments < state.range(0)) state.SkipWithError("not all the way round");
}

void OffsetByPolygonOffsetter(benchmark::State& state) {
  const bench::OffsetterPath outline = bench::offsetterPath(wavyOutline(state));
  for (auto _ : state) benchmark::DoNotOptimize(bench::insetCorners(outline, double{kRadius}));
}

void everyStar(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  for (const int kind : {0, 1}) {
    for (const int rows : {100, 1000, 10000, 30000}) bench->Args({rows, kind});
  }
}

BENCHMARK(Offset)->Apply(everyStar);
BENCHMARK(OffsetBarely)->Apply(everyStar);
BENCHMARK(OffsetWithoutFolds)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(OffsetByPolygonOffsetter)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tess
