// The table scans by row count, and the indexes against a plain uniform grid written here: fixed
// cells, counting sort, no updates, no far coordinates, nothing for ties. An index should stay
// within one and a half times of it.
#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "geometry/crossing_index.h"
#include "geometry/end_point_index.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/nearest_index.h"
#include "geometry/row_boxes.h"

namespace tess {
namespace {

constexpr double kSide = 100;

class Dice {
 public:
  double upTo(double limit) { return limit * static_cast<double>(engine_()) / 4294967296.0; }

 private:
  std::mt19937 engine_{2718};
};

Point onto(double x, double y) {
  return {static_cast<float>(x), static_cast<float>(y)};
}

// Short lines all over the square. At 30000 rows their length makes about 1300 crossings.
std::vector<Entity> scatteredLines(int rows, double length) {
  Dice dice;
  std::vector<Entity> lines;
  for (int row = 0; row < rows; ++row) {
    const double x = dice.upTo(kSide);
    const double y = dice.upTo(kSide);
    const double angle = dice.upTo(6.283);
    lines.push_back(
        lineEntity(onto(x, y), onto(x + length * std::cos(angle), y + length * std::sin(angle))));
  }
  return lines;
}
constexpr double kCrossingLength = 0.213;

// Closed outlines of 20 lines each, their rows shuffled: what chain walks go through.
std::vector<Entity> outlines(int rows) {
  Dice dice;
  std::vector<Entity> lines;
  constexpr int kSides = 20;
  for (int row = 0; row < rows; row += kSides) {
    const double x = dice.upTo(kSide);
    const double y = dice.upTo(kSide);
    const auto corner = [&](int k) {
      const double angle = 6.283185307 * (k % kSides) / kSides;
      return onto(x + 0.5 * std::cos(angle), y + 0.5 * std::sin(angle));
    };
    for (int k = 0; k < kSides && row + k < rows; ++k)
      lines.push_back(lineEntity(corner(k), corner(k + 1)));
  }
  for (std::size_t k = lines.size(); k > 1; --k)
    std::swap(lines[k - 1], lines[static_cast<std::size_t>(dice.upTo(static_cast<double>(k)))]);
  return lines;
}

// Half lines, a quarter arcs of either sense, the rest circles and rectangles.
DrawingStore mixedStore(int rows) {
  Dice dice;
  DrawingStore store;
  store.cfg_tolerance = 0.001F;
  constexpr int kKinds[] = {1, 2, 1, 3, 1, 5, 1, 6};
  for (int row = 0; row < rows; ++row) {
    const Point center = onto(dice.upTo(kSide), dice.upTo(kSide));
    const double a = dice.upTo(6.283);
    const double b = dice.upTo(6.283);
    const Point start = onto(center.x + std::cos(a), center.y + std::sin(a));
    const Point end = onto(center.x + std::cos(b), center.y + std::sin(b));
    const int type = kKinds[row % 8];
    const int attr = row % 4 == 0 ? kVerifiedRow : kOrdinaryClass;
    AddSeg(store, {type, attr, start.x, start.y, end.x, end.y, center.x, center.y}, nullptr);
    addPathSegment(store, {type > 3 ? 81 : type, start.x, start.y, end.x, end.y, center.x, center.y,
                           0, 0, 100});
  }
  return store;
}

template <typename Scan>
void timeScan(benchmark::State& state, Scan scan) {
  const DrawingStore store = mixedStore(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(scan(store, Point{31, 41}));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void everyRowCount(benchmark::internal::Benchmark* bench) {
  for (const int rows : {100, 1000, 10000, 32767}) bench->Arg(rows);
}

#define TESSIMO_SCAN(name, call)                                        \
  void name(benchmark::State& state) {                                  \
    timeScan(state, [](const DrawingStore& store, Point at) { call; }); \
  }                                                                     \
  BENCHMARK(name)->Apply(everyRowCount)

TESSIMO_SCAN(ScanLineSeg, return nearestLineSeg(store, at));
TESSIMO_SCAN(ScanArcSeg, return nearestArcSeg(store, at));
TESSIMO_SCAN(ScanRoundSeg, return nearestRoundSeg(store, at));
TESSIMO_SCAN(ScanSeg, return nearestSeg(store, at));
TESSIMO_SCAN(ScanSelectedSeg, return nearestSelectedSeg(store, at));
TESSIMO_SCAN(ScanPathSeg, return nearestPathSeg(store, at, /*group=*/0));
TESSIMO_SCAN(ScanPathChord, return nearestPathChord(store, at));
TESSIMO_SCAN(ScanSegEndpoint, return nearestSegEndpoint(store, at));
TESSIMO_SCAN(ScanPathEndpoint, return nearestPathEndpoint(store, at));
#undef TESSIMO_SCAN

// The plain grid: square cells over the known square, items sorted by cell.
class PlainGrid {
 public:
  explicit PlainGrid(std::size_t items)
      : side_(std::max(1, static_cast<int>(std::sqrt(static_cast<double>(items))))),
        start_(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_) + 1) {}

  int cell(float at) const {
    return std::clamp(static_cast<int>(at * (side_ / kSide)), 0, side_ - 1);
  }

  // Calls visit(cell number) for the cells of a box.
  template <typename Visit>
  void cells(const Box& box, Visit visit) const {
    const int lastColumn = cell(box.maxX);
    const int lastRow = cell(box.maxY);
    for (int row = cell(box.minY); row <= lastRow; ++row)
      for (int column = cell(box.minX); column <= lastColumn; ++column)
        visit(static_cast<std::size_t>(row * side_ + column));
  }

  void fill(const std::vector<Box>& boxes) {
    for (const Box& box : boxes) cells(box, [&](std::size_t at) { ++start_[at + 1]; });
    for (std::size_t at = 1; at < start_.size(); ++at) start_[at] += start_[at - 1];
    items_.resize(static_cast<std::size_t>(start_.back()));
    std::vector<int> next(start_);
    for (std::size_t k = 0; k < boxes.size(); ++k)
      cells(boxes[k], [&](std::size_t at) {
        items_[static_cast<std::size_t>(next[at]++)] = static_cast<int>(k);
      });
  }

  template <typename Visit>
  void items(std::size_t cellNumber, Visit visit) const {
    for (int at = start_[cellNumber]; at < start_[cellNumber + 1]; ++at)
      visit(items_[static_cast<std::size_t>(at)]);
  }

  std::size_t cellOf(float x, float y) const {
    return static_cast<std::size_t>(cell(y) * side_ + cell(x));
  }

 private:
  int side_;
  std::vector<int> start_;
  std::vector<int> items_;
};

// All crossings of all lines, index or grid built anew each time.
void CrossingsByPlainGrid(benchmark::State& state) {
  const auto lines = scatteredLines(static_cast<int>(state.range(0)), kCrossingLength);
  int crossings = 0;
  for (auto _ : state) {
    crossings = 0;
    const std::vector<Box> boxes = entityBoxes(lines);
    PlainGrid grid(boxes.size());
    grid.fill(boxes);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      grid.cells(boxes[i], [&](std::size_t cell) {
        grid.items(cell, [&](int item) {
          const auto j = static_cast<std::size_t>(item);
          if (j <= i || !overlaps(boxes[i], boxes[j])) return;
          const float x = std::max(boxes[i].minX, boxes[j].minX);
          const float y = std::max(boxes[i].minY, boxes[j].minY);
          if (grid.cellOf(x, y) == cell && intersectLines(lines[i], lines[j])) ++crossings;
        });
      });
    }
  }
  state.counters["crossings"] = crossings;
}

void CrossingsByBoxIndex(benchmark::State& state) {
  const auto lines = scatteredLines(static_cast<int>(state.range(0)), kCrossingLength);
  int crossings = 0;
  for (auto _ : state) {
    crossings = 0;
    const BoxIndex index(entityBoxes(lines));
    index.visitPairs([&](int i, int j) {
      const auto& a = lines[static_cast<std::size_t>(i) - 1];
      const auto& b = lines[static_cast<std::size_t>(j) - 1];
      if (intersectLines(a, b)) ++crossings;
      return true;
    });
  }
  state.counters["crossings"] = crossings;
}

void CrossingsByCrossingIndex(benchmark::State& state) {
  const auto lines = scatteredLines(static_cast<int>(state.range(0)), kCrossingLength);
  int crossings = 0;
  for (auto _ : state) {
    crossings = 0;
    const CrossingIndex index(lines, /*tolerence=*/0.001F);
    std::vector<int> rows;
    for (int i = 1; i <= static_cast<int>(lines.size()); ++i) {
      index.candidates(i, i, rows);
      for (const int j : rows) {
        const auto& a = lines[static_cast<std::size_t>(i) - 1];
        const auto& b = lines[static_cast<std::size_t>(j) - 1];
        if (intersectLines(a, b)) ++crossings;
      }
    }
  }
  state.counters["crossings"] = crossings;
}

BENCHMARK(CrossingsByPlainGrid)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CrossingsByBoxIndex)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CrossingsByCrossingIndex)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMicrosecond);

// Each row asks once which rows meet its end, index or grid built anew each time.
void MeetingEndsByPlainGrid(benchmark::State& state) {
  const auto lines = outlines(static_cast<int>(state.range(0)));
  const float tolerence = 0.001F;
  long long meetings = 0;
  for (auto _ : state) {
    meetings = 0;
    std::vector<Box> ends;
    for (const Entity& line : lines) {
      ends.push_back(boxOf(line.start, line.start));
      ends.push_back(boxOf(line.end, line.end));
    }
    PlainGrid grid(ends.size());
    grid.fill(ends);
    std::vector<int> rows;
    for (const Entity& line : lines) {
      rows.clear();
      grid.cells(grown(boxOf(line.end, line.end), tolerence), [&](std::size_t cell) {
        grid.items(cell, [&](int item) {
          const auto end = static_cast<std::size_t>(item);
          if (samePoint({ends[end].minX, ends[end].minY}, line.end, tolerence))
            rows.push_back(item / 2);
        });
      });
      std::sort(rows.begin(), rows.end());
      meetings += static_cast<long long>(rows.size());
    }
  }
  state.counters["meetings"] = static_cast<double>(meetings);
}

void MeetingEndsByEndPointIndex(benchmark::State& state) {
  const auto lines = outlines(static_cast<int>(state.range(0)));
  long long meetings = 0;
  for (auto _ : state) {
    meetings = 0;
    EndPointIndex index(/*tolerence=*/0.001F);
    index.reserve(static_cast<int>(lines.size()));
    for (std::size_t k = lines.size(); k-- > 0;)
      index.update(static_cast<int>(k) + 1, lines[k].start, lines[k].end);
    std::vector<EndMatch> matches;
    for (const Entity& line : lines) {
      index.rowsAt(line.end, matches);
      meetings += static_cast<long long>(matches.size());
    }
  }
  state.counters["meetings"] = static_cast<double>(meetings);
}

BENCHMARK(MeetingEndsByPlainGrid)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(MeetingEndsByEndPointIndex)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMicrosecond);

// One question to an index that stands: the nearest row and end of a mixed drawing.
void NearestSegByIndex(benchmark::State& state) {
  const DrawingStore store = mixedStore(static_cast<int>(state.range(0)));
  const NearestSegIndex index(store);
  Dice dice;
  for (auto _ : state)
    benchmark::DoNotOptimize(index.nearestSeg(onto(dice.upTo(kSide), dice.upTo(kSide))));
}

void NearestEndByIndex(benchmark::State& state) {
  const DrawingStore store = mixedStore(static_cast<int>(state.range(0)));
  const NearestSegIndex index(store);
  Dice dice;
  for (auto _ : state)
    benchmark::DoNotOptimize(index.nearestSegEndpoint(onto(dice.upTo(kSide), dice.upTo(kSide))));
}

BENCHMARK(NearestSegByIndex)->Apply(everyRowCount);
BENCHMARK(NearestEndByIndex)->Apply(everyRowCount);

}  // namespace
}  // namespace tess
