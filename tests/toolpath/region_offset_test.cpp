// Offsets of regions: every place is right, on pockets of all kinds, and identities that must hold.
#include "toolpath/region_offset.h"

#include <cmath>
#include <numbers>
#include <random>

#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"

namespace tess {
namespace {

using namespace tess::testing;

TEST(OffsetOfARegion, IsTheDistanceFromTheNearestWallEverywhere) {
  int loops = 0;
  for (int number = 0; number < 600; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion region = regionOfPocket(pocket);
    ASSERT_EQ(region.loops().size(), 1 + pocket.islands.size());
    for (const double factor : {0.3, 1.0, 1.7}) {
      const double distance = factor * pocket.toolRadius;
      const RegionOffset offset = fittedOffset(region, distance);
      EXPECT_TRUE(offset.lost.empty());
      expectTrueOffset(pocket.part, offset.region, distance, 0.0000201);
      loops += static_cast<int>(offset.region.loops().size());
    }
    if (::testing::Test::HasFailure()) break;
  }
  EXPECT_GT(loops, 600);
}

TEST(OffsetOfARegion, InTwoStepsIsTheOffsetInOne) {
  for (int number = 0; number < 150; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion region = regionOfPocket(pocket);
    const double a = 0.4 * pocket.toolRadius;
    const double b = 0.8 * pocket.toolRadius;
    const PocketRegion inSteps = offsetRegion(offsetRegion(region, a).region, b).region;
    const PocketRegion atOnce = offsetRegion(region, a + b).region;
    EXPECT_NEAR(inSteps.area(), atOnce.area(), 1e-7);
    EXPECT_EQ(inSteps.loops().size(), atOnce.loops().size());
  }
}

}  // namespace
}  // namespace tess
