// The raster's shares of the width, where they are plain.
#include "tests/support/engagement_checker.h"

#include "gtest/gtest.h"

namespace tess::testing {
namespace {

TEST(EngagementChecker, OfASlotIsTheWholeWidth) {
  const CheckedEngagement found = largestEngagement({lineCurve({0, 0}, {4, 0})}, 0.5, {true});
  EXPECT_EQ(found.share, 1);
  EXPECT_EQ(found.curve, 0U);
}

TEST(EngagementChecker, BesideACutIsTheStep) {
  for (const double step : {0.125, 0.25, 0.5, 0.75}) {
    const std::vector<Curve> path{lineCurve({-1, 0}, {6, 0}), lineCurve({0, step}, {4, step})};
    EXPECT_NEAR(largestEngagement(path, 0.5, {false, true}).share, step, 0.09) << step;
  }
}

TEST(EngagementChecker, WhereAllIsTakenIsNone) {
  const std::vector<Curve> path{lineCurve({0, 0}, {4, 0}), lineCurve({3, 0}, {1, 0})};
  EXPECT_EQ(largestEngagement(path, 0.5, {false, true}).share, 0);
}

}  // namespace
}  // namespace tess::testing
