// Scan-line roughing of a wavy star pocket with four islands, at about 150 scan lines. The scan
// part stands beside a bare scan fill of the same edges: each edge is put on the lines that it
// crosses, and each line is sorted. It knows nothing of tangents, vertices and tolerances. The
// whole command follows, with working outlines, placing and clean-up.
#include <algorithm>
#include <cmath>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/rough_pocket.h"
#include "toolpath/scan_points.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

using testing::OutlineKind;

constexpr int kLines = 150;

Box boundsOf(const DrawingStore& store) {
  Box box;
  for (const Entity& row : segmentEntities(store)) {
    box = extended(extended(box, row.start), row.end);
  }
  return box;
}

struct Pocket : testing::SilentDrafting {
  Pocket(int rows, OutlineKind kind, int pocketState, int islandState) {
    int attr = pocketState;
    for (const auto& outline : testing::starWithIslands(rows, kind)) {
      testing::addOutline(store, outline, attr);
      attr = islandState;
    }
    const Box box = boundsOf(store);
    spacing = (box.maxY - box.minY) / kLines;
    store.cfg_tool_spacing_distance = spacing;
    store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
    store.cfg_cutting_mode = choiceNumber(CuttingMode::Bidirectional);
    store.cfg_pocketing_style = choiceNumber(PocketingStyle::Horizontal);
    store.cfg_final_depth = 0.5F;
    store.cfg_z_cut_per_pass = 0.5F;
    store.toolradius[0] = 0.02F;
  }

  CamContext cam{context};
  float spacing = 0;
};

void countRows(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Scan(benchmark::State& state) {
  const Pocket pocket(static_cast<int>(state.range(0)), static_cast<OutlineKind>(state.range(1)),
                      kPocketOutline, kIslandOutline);
  int count = 0;
  for (auto _ : state) {
    const auto bound = lowestWorkingPoint(pocket.store, ScanStyle::Horizontal);
    ScanPoints points = collectScanPoints(pocket.store, ScanStyle::Horizontal, bound->fixed,
                                          pocket.spacing, [](int, int) {});
    sortScanPoints(points);
    count = points.count();
  }
  state.counters["points"] = count;
  countRows(state);
}

// The crossings of one scan line each.
using Fill = std::vector<std::vector<float>>;

struct FillLines {
  float first, spacing;
  int lineAbove(float y) const {
    return std::clamp(static_cast<int>(std::ceil((y - first) / spacing)), 0, kLines);
  }
  float height(int line) const { return first + static_cast<float>(line) * spacing; }
};

void fillLine(const Entity& edge, const FillLines& lines, Fill& fill) {
  const auto [low, high] = std::minmax({edge.start.y, edge.end.y});
  const float slope = (edge.end.x - edge.start.x) / (edge.end.y - edge.start.y);
  for (int line = lines.lineAbove(low); line < lines.lineAbove(high); ++line) {
    fill[static_cast<std::size_t>(line)].push_back(edge.start.x +
                                                   (lines.height(line) - edge.start.y) * slope);
  }
}

// All arcs here are counter-clockwise and shorter than half a circle: their points lie right of the
// chord.
void fillArc(const Entity& arc, const FillLines& lines, Fill& fill) {
  const float radius = distance(arc.start, arc.center);
  const float dx = arc.end.x - arc.start.x;
  const float dy = arc.end.y - arc.start.y;
  const Box box = arcBox(arc);
  for (int line = lines.lineAbove(box.minY); line < lines.lineAbove(box.maxY); ++line) {
    const float y = lines.height(line);
    const float reach = std::sqrt(radius * radius - (y - arc.center.y) * (y - arc.center.y));
    for (const float x : {arc.center.x - reach, arc.center.x + reach}) {
      const bool isOnArc = dx * (y - arc.start.y) < dy * (x - arc.start.x);
      if (isOnArc) fill[static_cast<std::size_t>(line)].push_back(x);
    }
  }
}

std::size_t fillBarely(const DrawingStore& store, const FillLines& lines) {
  Fill fill(kLines);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Entity edge = segmentEntity(store, sg);
    edge.type == kLine ? fillLine(edge, lines, fill) : fillArc(edge, lines, fill);
  }
  std::size_t points = 0;
  for (std::vector<float>& line : fill) {
    std::sort(line.begin(), line.end());
    points += line.size();
  }
  return points;
}

void ScanBarely(benchmark::State& state) {
  const Pocket pocket(static_cast<int>(state.range(0)), static_cast<OutlineKind>(state.range(1)),
                      kPocketOutline, kIslandOutline);
  std::size_t count = 0;
  for (auto _ : state) {
    const float bottom = boundsOf(pocket.store).minY;
    count = fillBarely(pocket.store, {bottom + pocket.spacing / 2, pocket.spacing});
  }
  state.counters["points"] = static_cast<double>(count);
  countRows(state);
}

void RoughCut(benchmark::State& state) {
  Pocket pocket(static_cast<int>(state.range(0)), static_cast<OutlineKind>(state.range(1)),
                kVerifiedRow, kVerifiedRow);
  for (auto _ : state) {
    pocket.store.NumPathSegments = 0;
    pocket.context.changelog.clear();
    mnuCAMRoughCutPocket_Click(pocket.cam);
  }
  if (pocket.store.NumPathSegments == 0) state.SkipWithError("nothing was cut");
  state.counters["paths"] = static_cast<int>(pocket.store.NumPathSegments);
  countRows(state);
}

void everyPocket(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  for (const int kind : {0, 1}) {
    for (const int rows : {100, 1000, 10000, 30000}) bench->Args({rows, kind});
  }
}

void everyRoughing(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  // Working rows need room beside the drawing in the same table.
  for (const int kind : {0, 1}) {
    for (const int rows : {100, 1000, 10000}) bench->Args({rows, kind});
  }
}

BENCHMARK(Scan)->Apply(everyPocket);
BENCHMARK(ScanBarely)->Apply(everyPocket);
BENCHMARK(RoughCut)->Apply(everyRoughing);

}  // namespace
}  // namespace tess
