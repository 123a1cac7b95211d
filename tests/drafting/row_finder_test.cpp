// Finding rows by both ends, against the plain search.
#include "drafting/row_finder.h"

#include <limits>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;

clsSegment recordOf(const SegmentRow& row) {
  clsSegment record;
  record.SetSegment(row, "D", /*start=*/false);
  return record;
}

// A table and the finder of its rows; what is taken goes from both.
class Found {
  auto rowAt() const {
    return [this](std::size_t place) -> const SegmentRow& { return rows[place]; };
  }
  static int numberOf(std::size_t place) {
    return place == RowFinder::kNone ? -1 : static_cast<int>(place) + 1;
  }

 public:
  explicit Found(float tolerence) : finder(tolerence, 16) { store.cfg_tolerance = tolerence; }

  void add(const SegmentRow& row) {
    finder.add(rows.size(), row);
    rows.push_back(row);
    AddSeg(store, row, nullptr);
  }
  int takeLast(const SegmentRow& row) { return numberOf(finder.takeLast(recordOf(row), rowAt())); }
  int takeClosest(const SegmentRow& row) {
    return numberOf(finder.takeClosest(recordOf(row), rowAt()));
  }
  int plain(const SegmentRow& row) const { return findSegment(store, recordOf(row)); }

  DrawingStore store;
  std::vector<SegmentRow> rows;
  RowFinder finder;
};

constexpr float kTolerence = 0.001F;

TEST(RowFinder, TakesTheLastOfRowsThatMatch) {
  Found found(kTolerence);
  for (int n = 0; n < 3; ++n) found.add({.type = 1, .x1 = 1});
  const SegmentRow row{.type = 1, .x1 = 1.0005F};
  EXPECT_EQ(found.takeLast(row), 3);
  EXPECT_EQ(found.takeLast(row), 2);
  EXPECT_EQ(found.takeLast(row), 1);
  EXPECT_EQ(found.takeLast(row), -1);
}

TEST(RowFinder, TellsTypesCentersAndDirectionsApart) {
  Found found(kTolerence);
  found.add({.type = 2, .x0 = 1, .x1 = -1});
  found.add({.type = 2, .x0 = 1, .x1 = -1, .yc = 0.5F});
  found.add({.type = 3, .x0 = 1, .x1 = -1});
  found.add({.type = 2, .x0 = -1, .x1 = 1});
  EXPECT_EQ(found.takeLast({.type = 2, .x0 = 1, .x1 = -1}), 1);
  EXPECT_EQ(found.takeLast({.type = 1, .x0 = 1, .x1 = -1}), -1);
}

TEST(RowFinder, TakesTheRowItselfBeforeALaterOneWithinTheTolerance) {
  Found found(kTolerence);
  found.add({.type = 1, .x1 = 1});
  found.add({.type = 1, .x1 = 1.000004F});  // a save makes 1 of it
  found.add({.type = 1, .x1 = 1.0001F});
  const SegmentRow row{.type = 1, .x1 = 1};
  EXPECT_EQ(found.takeClosest(row), 1);
  EXPECT_EQ(found.takeClosest(row), 2);
  EXPECT_EQ(found.takeClosest(row), 3);
  EXPECT_EQ(found.takeClosest(row), -1);
}

TEST(RowFinder, TakesTheRowOfTheRecordsClassFirst) {
  Found found(kTolerence);
  found.add({.type = 1, .attr = 8, .x1 = 1});
  found.add({.type = 1, .attr = 30012, .x1 = 1});
  found.add({.type = 1, .attr = 30008, .x1 = 1.0001F});
  EXPECT_EQ(found.takeClosest({.type = 1, .attr = 30108, .x1 = 1}), 1) << "selected or not";
  EXPECT_EQ(found.takeClosest({.type = 1, .attr = 8, .x1 = 1}), 2);
  EXPECT_EQ(found.takeClosest({.type = 1, .attr = 8, .x1 = 1}), 3);
}

// Coordinates on a lattice of half a tolerance, so that rows match across the edges of all cells.
TEST(RowFinder, GivesTheRowsOfThePlainSearch) {
  Dice dice(4711);
  for (const float tolerence : {0.0F, kTolerence, 0.5F}) {
    for (int run = 0; run < 20; ++run) {
      Found found(tolerence);
      const auto coordinate = [&] {
        return static_cast<float>(dice.below(4)) * (tolerence / 2 + 1e-5F) +
               static_cast<float>(64 * (dice.below(5) - 2)) * tolerence;
      };
      const auto anyRow = [&] {
        return SegmentRow{.type = 1 + dice.below(3),
                          .x0 = coordinate(),
                          .y0 = coordinate(),
                          .x1 = coordinate(),
                          .y1 = coordinate()};
      };
      for (int n = 0; n < 300; ++n) found.add(anyRow());
      for (int n = 0; n < 200; ++n) {
        const SegmentRow row =
            dice.below(2) == 0 ? anyRow() : found.rows[static_cast<std::size_t>(dice.below(300))];
        const int expected = found.plain(row);
        EXPECT_EQ(found.takeLast(row), expected);
        if (expected > 0) found.store.segtype[expected] = 99;  // it matches nothing any more
      }
    }
  }
}

TEST(RowFinder, FindsRowsHoweverFarOut) {
  for (const float far : {1e4F, 1.7e4F, 3e6F, 1e12F, 1e20F, 1e30F, 3e38F}) {
    for (const float tolerence : {0.0F, kTolerence}) {
      Found found(tolerence);
      const SegmentRow row{.type = 1, .x0 = -far, .y0 = far / 3, .x1 = far, .y1 = 1};
      found.add(row);
      EXPECT_EQ(found.takeClosest(row), 1) << far;
    }
  }
}

TEST(RowFinder, FindsNothingForWhatIsNoNumberOrEndless) {
  for (const float far :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    Found found(kTolerence);
    const SegmentRow row{.type = 1, .x1 = far};
    found.add(row);
    found.add({.type = 1, .x1 = 1});
    EXPECT_EQ(found.takeClosest(row), -1) << far;
    EXPECT_EQ(found.takeLast(row), -1) << far;
    EXPECT_EQ(found.takeLast({.type = 1, .x1 = 1}), 2) << far;
  }
}

// Pairs of a row and its copy a thousand rows deep: each is found at once.
TEST(RowFinder, IsNotSlowedDownByRowsOnOneAnother) {
  Found found(kTolerence);
  constexpr int kRows = 30000;
  for (int n = 0; n < kRows; ++n) found.add({.type = 1, .x1 = 1});
  for (int n = kRows; n > 0; --n) ASSERT_EQ(found.takeLast({.type = 1, .x1 = 1}), n);
}

}  // namespace
}  // namespace tess
