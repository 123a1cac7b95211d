// Undo and redo of drawing rows, against the walk that looks through the whole table for each
// record.
#include "drafting/change_walk.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "drafting/mirror.h"
#include "drafting/move_rows.h"
#include "drafting/row_images.h"
#include "drafting/scale_drawing.h"
#include "geometry/entity.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using Rows = std::vector<SegmentRow>;

Rows rowsOf(const DrawingStore& store) {
  Rows rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) rows.push_back(segmentRow(store, sg));
  return rows;
}

// What counts first: a row near by, then one of another class, then one that a save has rounded.
int differenceOf(const clsSegment& record, const SegmentRow& row) {
  int difference = entityClass(record.SegAttr) == entityClass(row.attr) ? 0 : 2;
  const auto compare = [&difference](float was, float is) {
    if (was == is) return;
    difference |= roundTo(was, kCoordinateDecimals) == roundTo(is, kCoordinateDecimals) ? 1 : 4;
  };
  compare(record.x0, row.x0), compare(record.y0, row.y0);
  compare(record.x1, row.x1), compare(record.y1, row.y1);
  if (isRound(row.type)) compare(record.CenterX, row.xc), compare(record.CenterY, row.yc);
  return difference;
}

void plainlyTakeAway(Rows& rows, const clsSegment& record, float tolerence) {
  int least = 8;
  std::size_t best = rows.size();
  for (std::size_t place = rows.size(); place > 0; --place) {
    const SegmentRow& row = rows[place - 1];
    if (!isSameRow(record, row, tolerence) || differenceOf(record, row) >= least) continue;
    least = differenceOf(record, row);
    best = place - 1;
  }
  if (best < rows.size()) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(best));
}

void plainlyWalk(Rows& rows, const clsSegment& record, bool takes, float tolerence) {
  if (takes) return plainlyTakeAway(rows, record, tolerence);
  rows.push_back({.type = record.SegType,
                  .attr = record.SegAttr,
                  .x0 = record.x0,
                  .y0 = record.y0,
                  .x1 = record.x1,
                  .y1 = record.y1,
                  .xc = record.CenterX,
                  .yc = record.CenterY});
}

struct Drawing {
  void undo() {
    Rows expected = rowsOf(store);
    for (int n = log.changecount; n > 0; --n) {
      const clsSegment& record = log.record(n - 1);
      plainlyWalk(expected, record, record.added(), store.cfg_tolerance);
      if (record.StartOfSegment) break;
    }
    undoStep(changes);
    EXPECT_EQ(rowsOf(store), expected);
  }
  void redo() {
    Rows expected = rowsOf(store);
    for (int n = log.changecount; n < log.changetop; ++n) {
      const clsSegment& record = log.record(n);
      if (n > log.changecount && record.StartOfSegment) break;
      plainlyWalk(expected, record, !record.added(), store.cfg_tolerance);
    }
    redoStep(changes);
    EXPECT_EQ(rowsOf(store), expected);
  }

  DrawingStore store;
  ChangeLog log;
  Changes changes{store, log};
};

// Few places, so that rows lie on one another and on the places where others come from.
void fill(DrawingStore& store, Dice& dice, int rows) {
  const auto coordinate = [&dice] {
    return static_cast<float>(dice.below(4)) + (dice.below(5) == 0 ? 0.00041F : 0);
  };
  for (int row = 0; row < rows; ++row) {
    AddSeg(store,
           {.type = 1 + dice.below(3),
            .attr = dice.below(2) == 0 ? kSelectedRow : kOrdinaryClass,
            .x0 = coordinate(),
            .y0 = dice.below(6) == 0 ? -0.0F : coordinate(),
            .x1 = coordinate(),
            .y1 = coordinate(),
            .xc = coordinate()},
           nullptr);
  }
}

void change(Drawing& d, Dice& dice) {
  switch (dice.below(5)) {
    case 0:
      return moveSelected(d.changes, 1, 0);  // onto others
    case 1:
      return scaleSegments(d.changes, 2, /*selectedOnly=*/true);
    case 2: {
      const Mirroring mirroring{.about = {1.5F, 0}};
      addImages(d.changes, {.selectedOnly = dice.below(2) == 0},
                [&](std::span<SegmentRow> rows) { mirrorRows(rows, mirroring); });
      return;
    }
    case 3: {
      Change erasing(d.changes);
      erasing.segments.eraseWhere([&dice](int /*sg*/) { return dice.below(4) == 0; });
      erasing.keep();
      return;
    }
    default: {
      Change rounding(d.changes);  // as a save does, behind the back of the records
      rounding.roundall();
      rounding.keep();
    }
  }
}

TEST(ChangeWalk, GivesTheRowsOfThePlainWalkInTheirOrder) {
  Dice dice(97);
  for (const int rows : {1, 6, 60, 300}) {
    for (int run = 0; run < 8; ++run) {
      Drawing d;
      d.store.cfg_tolerance = run % 3 == 0 ? 0.0F : 0.001F;
      fill(d.store, dice, rows);
      for (int step = 0; step < 4; ++step) change(d, dice);
      for (int turn = 0; turn < 2; ++turn) {
        while (d.log.canUndo()) d.undo();
        while (d.log.canRedo()) d.redo();
      }
      change(d, dice);
      if (d.log.canUndo()) d.undo();
    }
  }
}

TEST(ChangeWalk, OfRowsApartGivesThemInTheOrderOfThePlainWalk) {
  Drawing d;
  d.store.cfg_tolerance = 0.001F;
  for (int row = 0; row < 400; ++row) {
    const auto x = static_cast<float>(3 * row);
    AddSeg(d.store,
           {.type = 1 + row % 3, .attr = row % 4 == 0 ? 8 : 30008, .x0 = x, .x1 = x + 1, .xc = x},
           nullptr);
  }
  moveSelected(d.changes, 0.5F, 0.25F);
  scaleSegments(d.changes, 1.5F, /*selectedOnly=*/false);
  addImages(d.changes, {.selectedOnly = true}, [](std::span<SegmentRow> rows) {
    mirrorRows(rows, {.about = {-7, 0}});
  });
  for (int turn = 0; turn < 2; ++turn) {
    while (d.log.canUndo()) d.undo();
    while (d.log.canRedo()) d.redo();
  }
}

// Two rows that are the same but for the mark of a selection: which one goes is the plain walk's
// choice.
TEST(ChangeWalk, TakesTheLastOfRowsThatAreTheSame) {
  Drawing d;
  AddSeg(d.store, {.type = kLine, .attr = 30008, .x0 = 0, .x1 = 1}, nullptr);
  AddSeg(d.store, {.type = kLine, .attr = 8, .x0 = 1, .x1 = 2}, nullptr);
  moveSelected(d.changes, 1, 0);  // onto the second
  d.undo();
  EXPECT_EQ(d.store.NumSegments, 2);
  EXPECT_EQ(d.store.segattr[1], 30008) << "the copy in front stays";
  EXPECT_EQ(d.store.x0[1], 1);
  EXPECT_EQ(d.store.x0[2], 0);
}

}  // namespace
}  // namespace tess
