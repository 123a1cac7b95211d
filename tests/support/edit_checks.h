// Edits of a drafting desk as steps of undo: what one must leave, and that there was none.
// Owns: Tables, expectOneStep, expectNoStep.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/drafting_desk.h"

namespace tess::testing {

// All rows bit by bit: drawing rows in any order, path rows in theirs. Which of them are selected
// is no part of it, since undo brings a row back as it was logged.
struct Tables {
  using Bits = std::array<std::uint32_t, 10>;
  std::vector<Bits> drawn, placed;

  explicit Tables(const DrawingStore& store) {
    for (int sg = 1; sg <= store.NumSegments; ++sg) drawn.push_back(bitsOf(segmentRow(store, sg)));
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      placed.push_back(bitsOf(pathRow(store, ps)));
    }
    std::sort(drawn.begin(), drawn.end());
  }
  friend bool operator==(const Tables&, const Tables&) = default;

 private:
  static std::uint32_t bits(float value) { return std::bit_cast<std::uint32_t>(value); }
  static std::uint32_t bits(int value) { return static_cast<std::uint32_t>(value); }
  static Bits bitsOf(const SegmentRow& row) {
    return {bits(row.type), bits(entityClass(row.attr)),
            bits(row.x0),   bits(row.y0),
            bits(row.x1),   bits(row.y1),
            bits(row.xc),   bits(row.yc)};
  }
  static Bits bitsOf(const PathRow& row) {
    return {bits(row.type), bits(row.code % kSelected),
            bits(row.x0),   bits(row.y0),
            bits(row.x1),   bits(row.y1),
            bits(row.xc),   bits(row.yc),
            bits(row.z),    bits(row.feed)};
  }
};

// Runs `edit`, which must change rows in one step that undo takes back and redo does again.
template <class Desk, class Edit>
void expectOneStep(Desk& d, Edit edit) {
  const Tables before(d.store);
  const int records = d.desk.changelog.changecount;
  edit();
  const Tables after(d.store);
  EXPECT_FALSE(after == before) << "nothing has changed";
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  Undo_Last_Change(d.desk);
  EXPECT_TRUE(Tables(d.store) == before);
  EXPECT_EQ(d.desk.changelog.changecount, records);
  RedoLastChange(d.desk);
  EXPECT_TRUE(Tables(d.store) == after);
}

// Runs `edit`, which must leave rows and log alone.
template <class Desk, class Edit>
void expectNoStep(Desk& d, Edit edit) {
  const Tables before(d.store);
  const int records = d.desk.changelog.changecount;
  d.store.drawingsaved = true;
  edit();
  EXPECT_TRUE(Tables(d.store) == before);
  EXPECT_EQ(d.desk.changelog.changecount, records);
  EXPECT_TRUE(d.store.drawingsaved);
}

}  // namespace tess::testing
