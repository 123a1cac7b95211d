// True offsets of outlines of lines, of lines and arcs, and rings round islands, against the
// polygon offsetter with round joints at an arc tolerance of 0.005 mm. Before it is timed each
// result must have the area of the other's, so that nobody is fast by leaving something out.
#include <cmath>
#include <vector>

#include "benchmark/benchmark.h"

#include "bench/polygon_offsetter.h"
#include "tests/support/outlines.h"
#include "toolpath/region_offset.h"

namespace tess {
namespace {

using testing::OutlineKind;

constexpr double kDistance = 0.25;
constexpr double kRingStep = 0.1;
constexpr int kRings = 100;

std::vector<std::vector<Entity>> starOf(const benchmark::State& state) {
  const auto kind = static_cast<OutlineKind>(state.range(1));
  return {
      testing::wavyStar({.rows = static_cast<int>(state.range(0)), .kind = kind, .center = {}})};
}

std::vector<Entity> rowsOf(const std::vector<std::vector<Entity>>& outlines) {
  std::vector<Entity> rows;
  for (const auto& outline : outlines) rows.insert(rows.end(), outline.begin(), outline.end());
  return rows;
}

PocketRegion regionOfOutlines(const std::vector<std::vector<Entity>>& outlines) {
  return regionOf(rowsOf(outlines), 0.0001F).region;
}

bool isSameArea(double a, double b) {
  return std::abs(a - b) <= 0.001 * b;
}

void offsetByRegion(benchmark::State& state) {
  const PocketRegion region = regionOfOutlines(starOf(state));
  const double area = fittedOffset(region, kDistance).region.area();
  if (!isSameArea(area, bench::areaOf(bench::insetRound(bench::flattened(region), kDistance)))) {
    state.SkipWithError("another area than the polygon offsetter's");
  }
  for (auto _ : state) benchmark::DoNotOptimize(fittedOffset(region, kDistance));
}

void offsetFromRows(benchmark::State& state) {
  const std::vector<Entity> rows = rowsOf(starOf(state));
  for (auto _ : state) {
    benchmark::DoNotOptimize(fittedOffset(regionOf(rows, 0.0001F).region, kDistance));
  }
}

void offsetByPolygonOffsetter(benchmark::State& state) {
  const bench::OffsetterPaths outline = bench::flattened(regionOfOutlines(starOf(state)));
  for (auto _ : state) benchmark::DoNotOptimize(bench::insetRound(outline, kDistance));
}

// ---- Rings

double ringsByRegion(const PocketRegion& part) {
  double area = 0;
  PocketRegion ring = fittedOffset(part, kDistance).region;
  for (int k = 0; k < kRings; ++k) {
    area += ring.area();
    ring = offsetRegion(ring, kRingStep).region;
  }
  return area;
}

// Ring by ring from the one before, its corners would multiply; so each is made from the outline.
double ringsByPolygonOffsetter(const bench::OffsetterPaths& part) {
  double area = 0;
  for (int k = 0; k < kRings; ++k) {
    area += bench::areaOf(bench::insetRound(part, kDistance + k * kRingStep));
  }
  return area;
}

PocketRegion ringPart() {
  return regionOfOutlines(testing::starWithIslands(1000, OutlineKind::Lines));
}

void rings(benchmark::State& state) {
  const PocketRegion part = ringPart();
  if (!isSameArea(ringsByRegion(part), ringsByPolygonOffsetter(bench::flattened(part)))) {
    state.SkipWithError("other areas than the polygon offsetter's");
  }
  for (auto _ : state) benchmark::DoNotOptimize(ringsByRegion(part));
}

void ringsByOffsetter(benchmark::State& state) {
  const bench::OffsetterPaths part = bench::flattened(ringPart());
  for (auto _ : state) benchmark::DoNotOptimize(ringsByPolygonOffsetter(part));
}

void everyOutline(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  for (const int kind : {0, 1}) {
    for (const int rows : {1000, 2000, 10000, 20000}) bench->Args({rows, kind});
  }
}

BENCHMARK(offsetByRegion)->Name("TrueOffset")->Apply(everyOutline);
BENCHMARK(offsetFromRows)->Name("TrueOffsetFromRows")->Apply(everyOutline);
BENCHMARK(offsetByPolygonOffsetter)->Name("TrueOffsetByPolygonOffsetter")->Apply(everyOutline);
BENCHMARK(rings)->Name("TrueRings")->Unit(benchmark::kMillisecond);
BENCHMARK(ringsByOffsetter)->Name("TrueRingsByPolygonOffsetter")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
