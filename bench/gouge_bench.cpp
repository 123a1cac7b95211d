// Gouge avoidance over a clean chain, beside a plain uniform-grid search for crossings of the same
// rows: fixed cells, counting sort, boxes, no ties, no updates. It should stay within three times
// of it. Then chains with eleven folds, each cut in a pass of its own.
#include <algorithm>
#include <cmath>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "geometry/float_intersections.h"
#include "geometry/row_boxes.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/gouge_avoidance.h"

namespace tess {
namespace {

using testing::OutlineKind;

// The rows as one path group, on a screen that paints nothing.
struct ChainContext : testing::SilentDrafting {
  explicit ChainContext(const std::vector<Entity>& rows) {
    for (const Entity& row : rows) {
      addPathSegment(store, {row.type, row.start.x, row.start.y, row.end.x, row.end.y, row.center.x,
                             row.center.y, -0.5F, 10, 100});
    }
  }

  CamContext cam{context};
};

std::vector<Entity> cleanChain(const benchmark::State& state) {
  return testing::wavyStar(
      {.rows = static_cast<int>(state.range(0)), .kind = static_cast<OutlineKind>(state.range(1))});
}

void GougePassOverACleanChain(benchmark::State& state) {
  ChainContext d(cleanChain(state));
  for (auto _ : state) removeSelfIntersections(d.cam, 1, ChainKind::Path);
  if (d.store.NumPathSegments != state.range(0)) state.SkipWithError("not clean");
}

// Square cells over the bounds of the rows, as many as rows.
class PlainGrid {
 public:
  explicit PlainGrid(const std::vector<Box>& boxes) : boxes_(boxes) {
    for (const Box& box : boxes)
      bounds_ = extended(extended(bounds_, {box.minX, box.minY}), {box.maxX, box.maxY});
    side_ = std::max(1, static_cast<int>(std::sqrt(static_cast<double>(boxes.size()))));
    start_.resize(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_) + 1);
    fill();
  }

  // Calls visit(i, j) for all pairs of overlapping boxes i < j, each once.
  template <typename Visit>
  void pairs(Visit visit) const {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      cells(boxes_[i], [&](std::size_t cell) {
        for (int at = start_[cell]; at < start_[cell + 1]; ++at) {
          const auto j = static_cast<std::size_t>(items_[static_cast<std::size_t>(at)]);
          if (j <= i || !overlaps(boxes_[i], boxes_[j])) continue;
          if (cellOfOverlap(boxes_[i], boxes_[j]) == cell) visit(i, j);
        }
      });
    }
  }

 private:
  int column(float x) const { return cut((x - bounds_.minX) / (bounds_.maxX - bounds_.minX)); }
  int row(float y) const { return cut((y - bounds_.minY) / (bounds_.maxY - bounds_.minY)); }
  int cut(float share) const {
    return std::clamp(static_cast<int>(share * static_cast<float>(side_)), 0, side_ - 1);
  }
  std::size_t cellAt(int column, int row) const {
    return static_cast<std::size_t>(row * side_ + column);
  }
  std::size_t cellOfOverlap(const Box& a, const Box& b) const {
    return cellAt(column(std::max(a.minX, b.minX)), row(std::max(a.minY, b.minY)));
  }

  template <typename Visit>
  void cells(const Box& box, Visit visit) const {
    const int lastColumn = column(box.maxX);
    const int lastRow = row(box.maxY);
    for (int y = row(box.minY); y <= lastRow; ++y)
      for (int x = column(box.minX); x <= lastColumn; ++x) visit(cellAt(x, y));
  }

  void fill() {
    for (const Box& box : boxes_) cells(box, [&](std::size_t at) { ++start_[at + 1]; });
    for (std::size_t at = 1; at < start_.size(); ++at) start_[at] += start_[at - 1];
    items_.resize(static_cast<std::size_t>(start_.back()));
    std::vector<int> next(start_);
    for (std::size_t k = 0; k < boxes_.size(); ++k)
      cells(boxes_[k], [&](std::size_t at) {
        items_[static_cast<std::size_t>(next[at]++)] = static_cast<int>(k);
      });
  }

  const std::vector<Box>& boxes_;
  Box bounds_;
  int side_ = 1;
  std::vector<int> start_;
  std::vector<int> items_;
};

void CrossingsOfACleanChainByPlainGrid(benchmark::State& state) {
  const ChainContext d(cleanChain(state));
  int crossings = 0;
  for (auto _ : state) {
    const std::vector<Entity> rows = pathEntities(d.store);
    const std::vector<Box> boxes = entityBoxes(rows);
    const PlainGrid grid(boxes);
    grid.pairs([&](std::size_t i, std::size_t j) {
      if (j == i + 1) return;
      if (intersectEntities(rows[i], rows[j], d.store.cfg_tolerance)) ++crossings;
    });
    benchmark::DoNotOptimize(crossings);
  }
}

constexpr int kFolds = 11;  // what one call cuts at most

// A loop in front of a line, ahead, aside and back across the way.
void addLoop(std::vector<Entity>& rows, const Entity& line) {
  const float dx = line.end.x - line.start.x;
  const float dy = line.end.y - line.start.y;
  const auto at = [&](float ahead, float aside) {
    return Point{line.start.x + ahead * dx - aside * dy, line.start.y + ahead * dy + aside * dx};
  };
  rows.push_back(lineEntity(at(0, 0), at(0.4F, 0)));
  rows.push_back(lineEntity(at(0.4F, 0), at(0.4F, 0.3F)));
  rows.push_back(lineEntity(at(0.4F, 0.3F), at(0.2F, -0.1F)));
  rows.push_back(lineEntity(at(0.2F, -0.1F), line.end));
}

std::vector<Entity> foldedChain(const benchmark::State& state) {
  const std::vector<Entity> clean = cleanChain(state);
  const std::size_t apart = clean.size() / (kFolds + 1) / 2 * 2;  // at lines
  std::vector<Entity> rows;
  for (std::size_t k = 0; k < clean.size(); ++k) {
    const bool folds = k % apart == 0 && k > 0 && k <= kFolds * apart;
    folds ? addLoop(rows, clean[k]) : rows.push_back(clean[k]);
  }
  return rows;
}

// All passes of one call.
void GougeAvoidanceOfElevenFolds(benchmark::State& state) {
  ChainContext d(foldedChain(state));
  const DrawingStore folded = d.store;
  for (auto _ : state) {
    state.PauseTiming();
    d.store = folded;
    state.ResumeTiming();
    removeSelfIntersections(d.cam, 1, ChainKind::Path);
  }
  if (d.store.NumPathSegments != folded.NumPathSegments - kFolds) state.SkipWithError("not cut");
}

void everyChain(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  for (const int kind : {0, 1}) {
    for (const int rows : {100, 1000, 10000, 30000}) bench->Args({rows, kind});
  }
}

BENCHMARK(GougePassOverACleanChain)->Apply(everyChain);
BENCHMARK(CrossingsOfACleanChainByPlainGrid)->Apply(everyChain);
BENCHMARK(GougeAvoidanceOfElevenFolds)->Apply(everyChain);

}  // namespace
}  // namespace tess
