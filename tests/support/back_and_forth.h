// A command's change taken back and done again, compared bit by bit. Rows that undo brings back
// come to the end of the table, so that their order does not count; that of path rows does.
// Owns: RowBits, Marks, TableBits, expectBackAndForth.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"

namespace tess::testing {

using RowBits = std::array<std::uint32_t, 10>;

// Whether it counts which rows are selected: undo brings a row back as it was logged.
enum class Marks { Count, Ignore };

struct TableBits {
  explicit TableBits(const DrawingStore& store, Marks marks = Marks::Count) {
    const bool counts = marks == Marks::Count;
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      const SegmentRow row = segmentRow(store, sg);
      drawn.push_back(bitsOf(row.type, counts ? row.attr : entityClass(row.attr),
                             {row.x0, row.y0, row.x1, row.y1, row.xc, row.yc}));
    }
    std::sort(drawn.begin(), drawn.end());
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      const PathRow row = pathRow(store, ps);
      placed.push_back(bitsOf(row.type, counts ? row.code : withoutSelection(row.code),
                              {row.x0, row.y0, row.x1, row.y1, row.xc, row.yc, row.z, row.feed}));
    }
  }
  friend bool operator==(const TableBits&, const TableBits&) = default;

  std::vector<RowBits> drawn, placed;

 private:
  static RowBits bitsOf(int type, int code, const std::vector<float>& numbers) {
    RowBits bits{static_cast<std::uint32_t>(type), static_cast<std::uint32_t>(code)};
    std::transform(numbers.begin(), numbers.end(), bits.begin() + 2,
                   [](float number) { return std::bit_cast<std::uint32_t>(number); });
    return bits;
  }
};

// Undo, `steps` times, leads to `before`, and redo back to where things stand.
template <class AnyContext>
void expectBackAndForth(AnyContext& d, const TableBits& before, int steps = 1,
                        Marks marks = Marks::Count) {
  const TableBits after(d.store, marks);
  for (int turn = 0; turn < 2; ++turn) {
    for (int step = 0; step < steps; ++step) Undo_Last_Change(d.context);
    EXPECT_TRUE(TableBits(d.store, marks) == before) << "undo, turn " << turn;
    for (int step = 0; step < steps; ++step) RedoLastChange(d.context);
    EXPECT_TRUE(TableBits(d.store, marks) == after) << "redo, turn " << turn;
  }
}

}  // namespace tess::testing
