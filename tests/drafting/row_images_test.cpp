// Images of rows, against the walk that looks through the whole table for each.
#include "drafting/row_images.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/mirror.h"
#include "drafting/rotate.h"
#include "drafting/selection.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using Rows = std::vector<SegmentRow>;

// A row of the table and which one it was, 0 of an image.
struct Held {
  SegmentRow row;
  int number = 0;
};

bool takesPart(const SegmentRow& row, bool selectedOnly) {
  return !selectedOnly || isSelectedOrdinary(row.attr);
}

// The place of the last row that matches.
std::size_t plainMatch(const std::vector<Held>& table, const SegmentRow& row, float tolerence) {
  clsSegment record;
  record.SetSegment(row, "D", /*start=*/false);
  for (std::size_t place = table.size(); place > 0; --place) {
    if (isSameRow(record, table[place - 1].row, tolerence)) return place - 1;
  }
  return table.size();
}

// Each row in its turn: the last one that matches goes, the image comes to the end.
std::vector<Held> plainExchange(const DrawingStore& store, bool selectedOnly,
                                const RowImage& image) {
  std::vector<Held> table;
  for (int sg = 1; sg <= store.NumSegments; ++sg) table.push_back({segmentRow(store, sg), sg});
  const auto placeOf = [&table](int sg) {
    return std::find_if(table.begin(), table.end(), [sg](const Held& h) { return h.number == sg; });
  };
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!takesPart(segmentRow(store, sg), selectedOnly)) continue;
    for (auto at = placeOf(sg); at != table.end(); at = placeOf(sg)) {
      SegmentRow row = at->row;
      std::size_t match = plainMatch(table, row, store.cfg_tolerance);
      if (match == table.size()) match = static_cast<std::size_t>(at - table.begin());
      const Held went = table[match];
      table.erase(table.begin() + static_cast<std::ptrdiff_t>(match));
      image({&row, 1});
      table.push_back({row});
      if (went.number == 0 || !takesPart(went.row, selectedOnly)) break;
    }
  }
  return table;
}

// Coordinates on a coarse lattice, some of them a hair beside it, so that rows lie on one another
// and on images.
void fillWithTwins(DrawingStore& store, Dice& dice, int rows) {
  const auto coordinate = [&dice] {
    const float beside = dice.below(4) == 0 ? 0.0004F * static_cast<float>(dice.below(3)) : 0;
    return static_cast<float>(dice.below(5) - 2) + beside;
  };
  constexpr int kTypes[] = {kLine, kLine, kClockwiseArc, kCounterClockwiseArc, kCircle, kRectangle};
  constexpr int kAttributes[] = {kOrdinaryClass, kSelectedRow, kSelectedRow, kVerifiedRow};
  for (int row = 0; row < rows; ++row) {
    AddSeg(store,
           {.type = kTypes[dice.below(6)],
            .attr = kAttributes[dice.below(4)],
            .x0 = coordinate(),
            .y0 = coordinate(),
            .x1 = coordinate(),
            .y1 = coordinate(),
            .xc = static_cast<float>(dice.below(2)),
            .yc = 0},
           nullptr);
  }
}

Rows rowsOf(const DrawingStore& store) {
  Rows rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) rows.push_back(segmentRow(store, sg));
  return rows;
}

Rows rowsOf(const std::vector<Held>& table) {
  Rows rows;
  for (const Held& held : table) rows.push_back(held.row);
  return rows;
}

// The records of rows that went, in their order, each with an image.
void expectRecords(const ChangeLog& log, const Rows& before, const std::vector<Held>& after) {
  const int end = static_cast<int>(before.size());
  int went = 0, stayed = 0, image = 0;
  while (image < end && after[static_cast<std::size_t>(image)].number != 0) ++image;
  for (int sg = 1; sg <= end; ++sg) {
    const auto place = static_cast<std::size_t>(stayed);
    if (place < after.size() && after[place].number == sg) {
      ++stayed;
      continue;
    }
    clsSegment gone, come;
    gone.SetSegment(before[static_cast<std::size_t>(sg) - 1], "D", /*start=*/went == 0);
    gone.row = sg - went;
    come.SetSegment(after[static_cast<std::size_t>(image + went)].row, "A", /*start=*/false);
    come.row = end;
    for (const clsSegment& expected : {gone, come}) {
      const int n = 2 * went + (expected.added() ? 1 : 0);
      ASSERT_LT(n, log.changecount);
      const clsSegment& record = log.record(n);
      EXPECT_EQ(record.x0, expected.x0);
      EXPECT_EQ(record.y1, expected.y1);
      EXPECT_EQ(record.CenterX, expected.CenterX);
      EXPECT_EQ(record.SegType, expected.SegType);
      EXPECT_EQ(record.SegAttr, expected.SegAttr);
      EXPECT_TRUE(record.AddOrDelete == std::string_view(expected.AddOrDelete));
      EXPECT_EQ(record.StartOfSegment, expected.StartOfSegment);
      EXPECT_EQ(record.row, expected.row);
    }
    ++went;
  }
  EXPECT_EQ(log.changecount, 2 * went);
}

void expectPlainExchange(const DrawingStore& drawing, bool selectedOnly, const RowImage& image) {
  DrawingStore store = drawing;
  ChangeLog log;
  Changes changes(store, log);
  const std::vector<Held> expected = plainExchange(store, selectedOnly, image);
  ASSERT_TRUE(addImages(changes, {.selectedOnly = selectedOnly}, image));
  EXPECT_EQ(rowsOf(store), rowsOf(expected));
  expectRecords(log, rowsOf(drawing), expected);
}

TEST(RowImages, AreThoseOfThePlainWalkWhereRowsLieOnOneAnother) {
  Dice dice(31);
  for (const int rows : {1, 5, 40, 400}) {
    for (int run = 0; run < 12; ++run) {
      DrawingStore store;
      store.cfg_tolerance = run % 3 == 0 ? 0.0F : 0.001F;
      fillWithTwins(store, dice, rows);
      const Point about{static_cast<float>(dice.below(3)), static_cast<float>(dice.below(2))};
      const Mirroring mirroring{about, run % 2 == 0, run % 4 < 2};
      const Turn turn{about, 90.0F * static_cast<float>(dice.below(5))};
      for (const bool selectedOnly : {false, true}) {
        expectPlainExchange(store, selectedOnly,
                            [&](std::span<SegmentRow> all) { mirrorRows(all, mirroring); });
        expectPlainExchange(store, selectedOnly,
                            [&](std::span<SegmentRow> all) { turnRows(all, turn); });
      }
    }
  }
}

TEST(RowImages, AreThoseOfThePlainWalkWhereNoneDo) {
  DrawingStore store;
  store.cfg_tolerance = 0.001F;
  for (int row = 0; row < 500; ++row) {
    const auto x = static_cast<float>(row);
    const int attr = row % 3 == 0 ? kOrdinaryClass : kSelectedRow;
    AddSeg(store, {.type = kLine, .attr = attr, .x0 = x, .y0 = x / 3, .x1 = x + 1}, nullptr);
  }
  const Turn turn{{1000, 7}, 33.3F};
  for (const bool selectedOnly : {false, true}) {
    expectPlainExchange(store, selectedOnly,
                        [&](std::span<SegmentRow> all) { turnRows(all, turn); });
  }
}

// Ends that rows share are turned once, and are the points that each alone gives.
TEST(RowImages, OfTurnedRowsHaveThePointsOfRotatePoint) {
  Dice dice(5);
  Rows rows;
  Point at{1, 2};
  for (int n = 0; n < 300; ++n) {
    const Point to{narrow(5 * dice.unit()), narrow(-7 * dice.unit())};
    rows.push_back({.type = n % 4 == 0 ? kCircle : 1 + dice.below(3),
                    .x0 = at.x,
                    .y0 = at.y,
                    .x1 = to.x,
                    .y1 = to.y,
                    .xc = 3,
                    .yc = -0.0F});
    if (dice.below(3) != 0) at = to;
  }
  const Turn turn{{0.5F, -1}, 77.7F};
  Rows turned = rows;
  turnRows(turned, turn);
  for (std::size_t n = 0; n < rows.size(); ++n) {
    const auto point = [&turn](float x, float y) {
      return rotatePoint(turn.about, {x, y}, turn.degrees);
    };
    EXPECT_EQ((Point{turned[n].x0, turned[n].y0}), point(rows[n].x0, rows[n].y0));
    EXPECT_EQ((Point{turned[n].x1, turned[n].y1}), point(rows[n].x1, rows[n].y1));
    const bool round = rows[n].type != kLine;
    EXPECT_EQ((Point{turned[n].xc, turned[n].yc}),
              round ? point(rows[n].xc, rows[n].yc) : (Point{rows[n].xc, rows[n].yc}));
  }
}

}  // namespace
}  // namespace tess
