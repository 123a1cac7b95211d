// Leads of true paths: their form, and as long as they are clear.
#include "toolpath/true_leads.h"

#include <cmath>

#include "gtest/gtest.h"

#include "geometry/curve_distance.h"

namespace tess {
namespace {

constexpr double kFine = 1e-12;

TEST(LeadsOfTruePaths, ComeFromTheFreeSideAtTheAngle) {
  const Curve row = lineCurve({0, 0}, {4, 0});
  const LeadPair left = leadsAt(row, row, /*freeLeft=*/true, {false, 30, 2});
  EXPECT_NEAR(left.in.start.x, -std::sqrt(3.0), kFine);
  EXPECT_NEAR(left.in.start.y, 1, kFine);
  EXPECT_EQ(left.in.end, row.start);
  EXPECT_EQ(left.out.start, row.end);
  EXPECT_NEAR(left.out.end.x, 4 + std::sqrt(3.0), kFine);
  EXPECT_NEAR(left.out.end.y, 1, kFine);
  const LeadPair right = leadsAt(row, row, /*freeLeft=*/false, {false, 30, 2});
  EXPECT_NEAR(right.in.start.y, -1, kFine);
  EXPECT_NEAR(right.out.end.y, -1, kFine);
}

TEST(LeadsOfTruePaths, AreArcsRoundTheFreeSide) {
  const Curve row = lineCurve({0, 0}, {4, 0});
  for (const bool freeLeft : {true, false}) {
    const LeadPair leads = leadsAt(row, row, freeLeft, {true, 60, 1});
    for (const Curve& lead : {leads.in, leads.out}) {
      EXPECT_EQ(lead.turn, freeLeft ? 1 : -1);
      EXPECT_NEAR(normOf(lead.start - lead.center), lead.radius, kFine);
      EXPECT_NEAR(normOf(lead.end - lead.start), 1, kFine) << "the chord";
      EXPECT_GT(lead.center.y * (freeLeft ? 1 : -1), 0);
    }
  }
}

TEST(LeadsOfTruePaths, AreAsLongAsTheyAreClear) {
  const Curve row = lineCurve({0, 0}, {4, 0});
  const Curve wall = lineCurve({-9, 1}, {9, 1});
  const auto isClear = [&wall](const Curve& lead) {
    return gapBetween(lead, wall).distance >= 0.25;
  };
  const LeadShape shape{false, 30, 9};
  const double length = clearLeadLength(row, row, true, shape, isClear);
  EXPECT_NEAR(length, 1.5, 1e-4);
  EXPECT_LE(length, 1.5);
  EXPECT_EQ(clearLeadLength(row, row, false, shape, isClear), 9);
  EXPECT_EQ(clearLeadLength(row, row, true, shape, [](const Curve&) { return false; }), 0);
}

}  // namespace
}  // namespace tess
