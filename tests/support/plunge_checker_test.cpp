// The raster of heights sees what goes straight down, and nothing else.
#include "tests/support/plunge_checker.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess::testing {
namespace {

struct PlungeChecker : ::testing::Test {
  PlungeChecker() {
    store.toolradius[0] = 0.25F;
    store.zstartpos = 0.1F;
  }
  void line(float x0, float y0, float x1, float y1, float z) {
    addPathSegment(
        store,
        {.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1, .z = z, .code = pathCode(1, 0)});
  }

  DrawingStore store;
};

TEST_F(PlungeChecker, TheFirstRowGoesDownIntoTheSolid) {
  line(0, 0, 1, 0, -0.3F);
  const auto plunges = plungesOf(store, 0.01);
  ASSERT_EQ(plunges.size(), 1U);
  EXPECT_EQ(plunges[0].row, 1);
  EXPECT_NEAR(plunges[0].depth, 0.3, 1e-6);
}

TEST_F(PlungeChecker, StairsAreNoPlungeAndAStepTooDeepIsOne) {
  for (int k = 1; k <= 20; ++k) {
    const bool back = k % 2 == 0;
    line(back ? 1.0F : 0.0F, 0, back ? 0.0F : 1.0F, 0, -0.01F * static_cast<float>(k));
  }
  EXPECT_TRUE(plungesOf(store, 0.0101).empty());
  line(0, 0, 1, 0, -0.25F);
  ASSERT_EQ(plungesOf(store, 0.0101).size(), 1U);
  EXPECT_NEAR(plungesOf(store, 0.0101)[0].depth, 0.05, 1e-6);
}

TEST_F(PlungeChecker, ClearedGroundIsNoneHalfClearedIs) {
  line(0, 0, 1, 0, -0.3F);
  line(0.5F, 0, 0.5F, 1, -0.3F);
  EXPECT_EQ(plungesOf(store, 0.01).size(), 1U);
  line(1, 0.1F, 2, 0.1F, -0.3F);
  ASSERT_EQ(plungesOf(store, 0.01).size(), 2U);
  EXPECT_EQ(plungesOf(store, 0.01)[1].row, 3);
}

TEST_F(PlungeChecker, AHoleCountsAsItIsWideAndDeep) {
  store.toolradius[1] = 0.25F;
  addPathSegment(store, {.type = 81, .x1 = 0, .y1 = 0, .z = 0.3F, .code = pathCode(1, 1)});
  line(0, 0, 1, 0, -0.3F);
  EXPECT_TRUE(plungesOf(store, 0.01).empty());
  store.psz[1] = 0.2F;
  ASSERT_EQ(plungesOf(store, 0.01).size(), 1U);
  EXPECT_NEAR(plungesOf(store, 0.01)[0].depth, 0.1, 1e-6);
  store.psz[1] = 0.3F;
  store.toolradius[1] = 0.1F;
  EXPECT_EQ(plungesOf(store, 0.01).size(), 1U);
}

}  // namespace
}  // namespace tess::testing
