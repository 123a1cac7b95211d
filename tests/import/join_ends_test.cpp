// The joining of ends: what meets, what stays apart, and what becomes of arcs and short rows.
#include "import/join_ends.h"

#include <cmath>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

namespace tess {
namespace {

constexpr float kTolerence = 0.001F;

PlacedRow line(double x0, double y0, double x1, double y1) {
  return {{.x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1}, nullptr};
}

PlacedRow arc(int type, double x0, double y0, double x1, double y1, double xc, double yc) {
  return {{.type = type, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1, .xc = xc, .yc = yc}, nullptr};
}

std::vector<DxfRow> joined(std::vector<PlacedRow> rows, float tolerence = kTolerence) {
  joinEnds(rows, tolerence);
  std::vector<DxfRow> plain;
  for (const PlacedRow& placed : rows) plain.push_back(placed.row);
  return plain;
}

double radiusMismatch(const DxfRow& row) {
  return std::abs(std::hypot(row.x0 - row.xc, row.y0 - row.yc) -
                  std::hypot(row.x1 - row.xc, row.y1 - row.yc));
}

TEST(JoinEnds, TheFirstOfTwoEndsStays) {
  const auto rows = joined({line(0, 0, 1, 0), line(1.0009, 0, 1, 5)});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].x1, 1);
  EXPECT_EQ(rows[1].x0, 1);
}

TEST(JoinEnds, EndsBeyondTheToleranceStayApart) {
  const auto rows = joined({line(0, 0, 1, 0), line(1.0011, 0, 1, 5)});
  EXPECT_EQ(rows[1].x0, static_cast<float>(1.0011));
}

// Of two lines the end of the first at (0, 0) and the start of the second at `apart`.
bool meet(PlanePoint apart, float tolerence) {
  const auto rows = joined({line(-5, -3, 0, 0), line(apart.x, apart.y, 9, -4)}, tolerence);
  return rows[0].x1 == rows[1].x0 && rows[0].y1 == rows[1].y0;
}

TEST(JoinEnds, AGapOfTheToleranceIsClosedAndAHairMoreIsNot) {
  for (const float tolerence : {0.001F, 0.125F, 3e-5F}) {
    const float more = std::nextafter(tolerence, 1.0F);
    for (const float sign : {1.0F, -1.0F}) {
      const float gap = sign * tolerence;
      EXPECT_TRUE(meet({gap, 0}, tolerence)) << gap;
      EXPECT_TRUE(meet({0, gap}, tolerence)) << gap;
      EXPECT_TRUE(meet({gap, -gap}, tolerence)) << gap << ", each axis counts for itself";
      EXPECT_FALSE(meet({sign * more, 0}, tolerence)) << gap;
      EXPECT_FALSE(meet({0, sign * more}, tolerence)) << gap;
      EXPECT_FALSE(meet({gap, sign * more}, tolerence)) << gap;
    }
  }
}

// Each lies a tolerance from the next; the last one would make the group wider than two.
TEST(JoinEnds, AGroupOfTwoTolerancesIsOneAndAWiderOneIsNot) {
  constexpr float kStep = 0.125F;
  const auto three =
      joined({line(0, 0, 0, 9), line(kStep, 0, 4, 9), line(2 * kStep, 0, 8, 9)}, kStep);
  EXPECT_EQ(three[0].x0, kStep) << "the end in the middle stays";
  EXPECT_EQ(three[1].x0, kStep);
  EXPECT_EQ(three[2].x0, kStep);
  const auto four = joined(
      {line(0, 0, 0, 9), line(kStep, 0, 4, 9), line(2 * kStep, 0, 8, 9), line(3 * kStep, 0, 12, 9)},
      kStep);
  EXPECT_EQ(four[0].x0, four[1].x0);
  EXPECT_NE(four[0].x0, four[3].x0);
}

TEST(JoinEnds, AnArcFollowsWithItsCenter) {
  const auto rows = joined({line(0, 0.0006, 0, 9), arc(kCounterClockwiseArc, 2, 0, 0, 0, 1, 0)});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1].y1, rows[0].y0);
  EXPECT_LT(radiusMismatch(rows[1]), 1e-12);
  EXPECT_NEAR(rows[1].xc, 1, 1e-6);
  EXPECT_NEAR(rows[1].yc, 0, 1e-6);
}

TEST(JoinEnds, NearlyWholeCircleBecomesOne) {
  const auto rows = joined({arc(kCounterClockwiseArc, 1, 0, 1, -0.0005, 0, 0)});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].type, kCounterClockwiseArc);
  EXPECT_EQ(rows[0].x0, rows[0].x1);
  EXPECT_EQ(rows[0].y0, rows[0].y1);
}

TEST(JoinEnds, NearlyWholeCircleWithAWiderGapKeepsItsCenter) {
  const auto rows = joined({arc(kClockwiseArc, 1, 0, 1, 0.0018, 0, 0), line(1, 0.0025, 5, 5)});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].xc, 0);
  EXPECT_EQ(rows[0].yc, 0);
}

TEST(JoinEnds, TinyArcIsNoCircle) {
  EXPECT_TRUE(joined({arc(kCounterClockwiseArc, 1, 0, 1, 0.0005, 0, 0)}).empty());
}

TEST(JoinEnds, ShortArcThatOthersHoldApartIsALine) {
  // Its ends lie within the tolerance, but those of its neighbours stretch the group too far.
  const auto rows = joined({line(-5, 0, -0.0009, 0), line(-0.0009, 5, -0.00005, 0),
                            arc(kCounterClockwiseArc, 0, 0, 0.0009, 0, 0.00045, 0.001),
                            line(0.0009, 0, 0.0018, 0), line(0.0018, 0, 9, 9)});
  for (const DxfRow& row : rows) {
    const bool passes = std::abs(row.x1 - row.x0) <= 0.001 && std::abs(row.y1 - row.y0) <= 0.001;
    EXPECT_TRUE(!passes || row.type == kLine);
  }
}

TEST(JoinEnds, WholeCirclesAndNumbersBeyondTheTablesStay) {
  const auto rows =
      joined({arc(kClockwiseArc, 1.00000001, 0, 1.00000001, 0, 0, 0), line(1e300, 0, 1.0005, 0)});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].x0, 1.00000001);
  EXPECT_EQ(rows[1].x0, 1e300);
  EXPECT_EQ(rows[1].x1, 1.0005);
}

TEST(JoinEnds, WithoutAToleranceOnlyTheSameEndsMeet) {
  const auto rows = joined({line(0, 0, 1, 0), line(1.000001, 0, 1, 5)}, 0);
  EXPECT_NE(rows[0].x1, rows[1].x0);
}

// A run of rows much shorter than the tolerance, straight on: it must not shrink to a point, and
// must still go from its start to its end without a gap.
TEST(JoinEnds, RunOfTinyRowsIsThinnedAndNotLost) {
  std::vector<PlacedRow> run;
  for (int k = 0; k < 1000; ++k) run.push_back(line(k * 0.0001, 0, (k + 1) * 0.0001, 0));
  const auto rows = joined(run);
  ASSERT_GT(rows.size(), 30U);
  ASSERT_LT(rows.size(), 200U);
  EXPECT_NEAR(rows.front().x0, 0, 0.002);
  EXPECT_NEAR(rows.back().x1, 0.1, 0.002);
  for (std::size_t k = 1; k < rows.size(); ++k) EXPECT_EQ(rows[k].x0, rows[k - 1].x1);
}

RC_GTEST_PROP(JoinEnds, JitteredPolygonsClose, ()) {
  const int count = *rc::gen::inRange(3, 40);
  const auto jitter = [] { return (*rc::gen::inRange(0, 1001) - 500) * 0.9e-6; };
  std::vector<PlacedRow> rows;
  for (int k = 0; k < count; ++k) {
    const double from = 6.283185307179586 * k / count;
    const double to = 6.283185307179586 * (k + 1) / count;
    rows.push_back(line(5 * std::cos(from) + jitter(), 5 * std::sin(from) + jitter(),
                        5 * std::cos(to) + jitter(), 5 * std::sin(to) + jitter()));
  }
  const auto closed = joined(rows);
  RC_ASSERT(closed.size() == static_cast<std::size_t>(count));
  for (std::size_t k = 0; k < closed.size(); ++k) {
    const DxfRow& next = closed[(k + 1) % closed.size()];
    RC_ASSERT(closed[k].x1 == next.x0);
    RC_ASSERT(closed[k].y1 == next.y0);
  }
}

}  // namespace
}  // namespace tess
