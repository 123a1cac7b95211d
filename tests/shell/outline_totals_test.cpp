// Length and area of closed outlines.
#include "shell/outline_totals.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "gtest/gtest.h"

#include "core/drawing_rows.h"
#include "core/drawing_store.h"
#include "geometry/float_constants.h"

namespace tess {
namespace {

constexpr double kClose = 1e-4;

class Outline : public ::testing::Test {
 protected:
  void add(const SegmentRow& row) {
    AddSeg(store, row, nullptr);
    rows.push_back(store.NumSegments);
  }
  void addLine(float x0, float y0, float x1, float y1) {
    add({.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1});
  }
  void expectTotals(double length, double area) {
    const auto totals = totalsOfOutline(store, rows);
    ASSERT_TRUE(totals);
    EXPECT_NEAR(totals->length, length, kClose);
    EXPECT_NEAR(totals->area, area, kClose);
  }
  void expectNone() { EXPECT_FALSE(totalsOfOutline(store, rows)); }

  DrawingStore store;
  std::vector<int> rows;
};

TEST_F(Outline, OfLinesInAnyOrderAndDirection) {
  addLine(0, 0, 3, 0);
  addLine(3, 2, 0, 2);
  addLine(3, 2, 3, 0);
  addLine(0, 0, 0, 2);
  expectTotals(10, 6);
  std::mt19937 random(7);
  for (int n = 0; n < 20; ++n) {
    std::shuffle(rows.begin(), rows.end(), random);
    expectTotals(10, 6);
  }
}

TEST_F(Outline, OfArcsBothWays) {
  // A slot: 4 by 2 with half circles at its ends.
  addLine(0, 0, 4, 0);
  add({.type = kCounterClockwiseArc, .x0 = 4, .y0 = 0, .x1 = 4, .y1 = 2, .xc = 4, .yc = 1});
  addLine(0, 2, 4, 2);
  add({.type = kClockwiseArc, .x0 = 0, .y0 = 0, .x1 = 0, .y1 = 2, .xc = 0, .yc = 1});
  expectTotals(8 + 2 * kPi, 8 + kPi);
}

TEST_F(Outline, OfTwoArcsWithTheSameEnds) {
  add({.type = kCounterClockwiseArc, .x0 = 1, .x1 = -1});
  add({.type = kClockwiseArc, .x0 = 1, .x1 = -1});
  expectTotals(2 * kPi, kPi);
}

TEST_F(Outline, OfAnArcOfMoreThanHalfATurn) {
  add({.type = kCounterClockwiseArc, .x0 = 0, .y0 = 1, .x1 = 1, .y1 = 0});
  addLine(1, 0, 0, 0);
  addLine(0, 0, 0, 1);
  expectTotals(1.5 * kPi + 2, 0.75 * kPi);
}

TEST_F(Outline, OfACircleAndOfAnArcAllRound) {
  add({.type = kCircle, .x0 = 3, .x1 = 3, .xc = 1});
  expectTotals(4 * kPi, 4 * kPi);
  rows.clear();
  add({.type = kClockwiseArc, .x0 = 1, .x1 = 1});
  expectTotals(2 * kPi, kPi);
}

TEST_F(Outline, EndsMeetWithinTheTolerence) {
  store.cfg_tolerance = 0.01F;
  addLine(0, 0, 1, 0);
  addLine(1.005F, 0, 1, 1);
  addLine(1, 1, 0, 0.005F);
  EXPECT_TRUE(totalsOfOutline(store, rows));
  store.cfg_tolerance = 0.001F;
  expectNone();
}

TEST_F(Outline, OpenRowsHaveNone) {
  expectNone();
  addLine(0, 0, 1, 0);
  expectNone();
  addLine(1, 0, 1, 1);
  addLine(1, 1, 0, 1);
  expectNone();
}

TEST_F(Outline, ABranchHasNone) {
  addLine(0, 0, 1, 0);
  addLine(1, 0, 1, 1);
  addLine(1, 1, 0, 0);
  EXPECT_TRUE(totalsOfOutline(store, rows));
  addLine(1, 1, 2, 2);
  expectNone();
}

TEST_F(Outline, TwoOutlinesAreNotOne) {
  for (const float x : {0.0F, 5.0F}) {
    addLine(x, 0, x + 1, 0);
    addLine(x + 1, 0, x + 1, 1);
    addLine(x + 1, 1, x, 0);
  }
  expectNone();
}

TEST_F(Outline, OtherKindsAmongTheRowsHaveNone) {
  add({.type = kRectangle, .x1 = 1, .y1 = 1});
  expectNone();
  addLine(0, 0, 1, 0);
  addLine(1, 0, 0, 0);
  expectNone();
}

TEST_F(Outline, RowsWithoutLengthHaveNone) {
  addLine(1, 1, 1, 1);
  expectNone();
  addLine(1, 1, 1, 1);
  expectNone();
}

}  // namespace
}  // namespace tess
