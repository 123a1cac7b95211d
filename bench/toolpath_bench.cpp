// Verification of a wavy star outline, and of one with four islands of a tenth of the rows each,
// outline by outline. The yardstick walks the same rows by a hash of their exact starts, knows that
// all of them run the same way, looks for no copies, and paints them through the same surface.
#include <bit>
#include <cstdint>
#include <span>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/verification.h"

namespace tess {
namespace {

using testing::OutlineKind;

struct RowRange {
  int first = 0, last = 0;
};

// Drawn rows on a screen that paints nothing; which of them make an outline each.
struct OutlineContext : testing::SilentDrafting {
  OutlineContext(int rows, OutlineKind kind, bool islands) {
    if (!islands) addRows(testing::wavyStar({.rows = rows, .kind = kind}));
    if (islands) {
      for (const auto& outline : testing::starWithIslands(rows, kind)) addRows(outline);
    }
  }

  void addRows(const std::vector<Entity>& outline) {
    const int first = testing::addOutline(store, outline);
    outlines.push_back({first, store.NumSegments});
  }

  void unselectRows() {
    for (int sg = 1; sg <= store.NumSegments; ++sg) store.segattr[sg] = kOrdinaryClass;
  }

  CamContext cam{context};
  std::vector<RowRange> outlines;
};

void verifyAll(OutlineContext& d) {
  d.unselectRows();
  for (const RowRange& outline : d.outlines) {
    testing::selectRows(d.store, outline.first, outline.last);
    benchmark::DoNotOptimize(verifypocket(d.cam));
  }
}

// Rows by their exact starts, by open addressing.
class StartTable {
 public:
  explicit StartTable(int rows)
      : slots_(std::bit_ceil(2 * static_cast<std::size_t>(rows) + 2)), mask_(slots_.size() - 1) {}

  void add(int row, Point start) {
    std::size_t at = slotOf(start);
    while (slots_[at].row != 0) at = (at + 1) & mask_;
    slots_[at] = {start, row};
  }

  int rowAt(Point start) const {
    std::size_t at = slotOf(start);
    while (slots_[at].row != 0 && slots_[at].start != start) at = (at + 1) & mask_;
    return slots_[at].row;
  }

 private:
  struct Slot {
    Point start;
    int row = 0;
  };

  std::size_t slotOf(Point p) const {
    const std::uint64_t bits =
        std::uint64_t{std::bit_cast<std::uint32_t>(p.x)} << 32U | std::bit_cast<std::uint32_t>(p.y);
    return (bits * 0x9E3779B97F4A7C15ULL) >> 32U & mask_;
  }

  std::vector<Slot> slots_;
  std::size_t mask_;
};

void walkBarely(DrawingStore& store, const RowRange& outline) {
  StartTable starts(outline.last - outline.first + 1);
  const std::span<const float> x0 = store.x0.rows();
  const std::span<const float> y0 = store.y0.rows();
  const std::span<const float> x1 = store.x1.rows();
  const std::span<const float> y1 = store.y1.rows();
  for (int sg = outline.first; sg <= outline.last; ++sg) {
    const auto k = static_cast<std::size_t>(sg);
    starts.add(sg, {x0[k], y0[k]});
  }
  int row = outline.first;
  do {
    store.segattr.rows()[static_cast<std::size_t>(row)] = kVerifiedRow;
    const auto k = static_cast<std::size_t>(row);
    row = starts.rowAt({x1[k], y1[k]});
  } while (row != outline.first);
}

void paintBarely(DrawingStore& store, DrawingSurface& surface) {
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Rgb color = store.segattr[sg] > kVerified ? 12 : 10;
    surface.line({store.x0[sg], store.y0[sg], store.x1[sg], store.y1[sg]}, color);
  }
}

void verifyBarely(OutlineContext& d) {
  d.unselectRows();
  for (const RowRange& outline : d.outlines) {
    walkBarely(d.store, outline);
    paintBarely(d.store, d.surface);
  }
}

template <typename Work>
void timeOutlines(benchmark::State& state, bool islands, Work work) {
  const auto kind = static_cast<OutlineKind>(state.range(1));
  OutlineContext d(static_cast<int>(state.range(0)), kind, islands);
  for (auto _ : state) work(d);
  if (!isVerified(d.store.segattr[d.store.NumSegments])) state.SkipWithError("not verified");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Verify(benchmark::State& state) {
  timeOutlines(state, /*islands=*/false, verifyAll);
}
void VerifyBarely(benchmark::State& state) {
  timeOutlines(state, /*islands=*/false, verifyBarely);
}
void VerifyWithIslands(benchmark::State& state) {
  timeOutlines(state, /*islands=*/true, verifyAll);
}
void VerifyWithIslandsBarely(benchmark::State& state) {
  timeOutlines(state, /*islands=*/true, verifyBarely);
}

void everyOutline(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "arcs"})->Unit(benchmark::kMicrosecond);
  for (const int kind : {0, 1}) {
    for (const int rows : {100, 1000, 10000, 30000}) bench->Args({rows, kind});
  }
}

BENCHMARK(Verify)->Apply(everyOutline);
BENCHMARK(VerifyBarely)->Apply(everyOutline);
BENCHMARK(VerifyWithIslands)->Apply(everyOutline);
BENCHMARK(VerifyWithIslandsBarely)->Apply(everyOutline);

}  // namespace
}  // namespace tess
