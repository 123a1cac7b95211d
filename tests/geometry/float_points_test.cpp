// Points: distances, coincidence, boxes of segments, midpoints.
#include "geometry/float_points.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/rounding.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

TEST(Points, DistanceSquaresInSixtyFourBits) {
  EXPECT_EQ(distance({0, 0}, {3, 4}), 5.0F);
  EXPECT_EQ(distance({-1, -1}, {-1, -1}), 0.0F);
  EXPECT_EQ(distance({0, 0}, {3e30F, 4e30F}), 5e30F);
}

TEST(Points, ADistanceBeyondTheFloatRangeOverflows) {
  try {
    distance({-3e38F, 0}, {3e38F, 0});
    FAIL();
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  }
}

TEST(Points, WhatIsNoNumberOverflows) {
  EXPECT_THROW(narrow(std::numeric_limits<double>::quiet_NaN()), RuntimeFailure);
  EXPECT_THROW(narrow(-1e39), RuntimeFailure);
  EXPECT_EQ(narrow(0.1), 0.1F);
}

TEST(Points, NonZeroReplacesExactlyZeroAlone) {
  EXPECT_EQ(nonZero(0), 1e-6);
  EXPECT_EQ(nonZero(-0.0), 1e-6);
  EXPECT_EQ(nonZero(1e-30), 1e-30);
  EXPECT_EQ(nonZero(-2), -2);
}

TEST(Points, RoundingHalvesGoesUpForNegativeValuesToo) {
  EXPECT_EQ(roundTo(2.5, 0), 3.0F);
  EXPECT_EQ(roundTo(-2.5, 0), -2.0F);
  EXPECT_EQ(roundTo(-0.125, 2), -0.12F);
  EXPECT_EQ(roundTo(1250, -2), 1300.0F);
}

TEST(Points, SwapValuesExchanges) {
  float a = 1;
  float b = 2;
  swapValues(a, b);
  EXPECT_EQ(a, 2.0F);
  EXPECT_EQ(b, 1.0F);
}

TEST(Points, SamePointIsInclusiveInEachAxis) {
  const float tolerence = 0.25F;
  EXPECT_TRUE(samePoint({1, 1}, {1.25F, 0.75F}, tolerence));
  EXPECT_FALSE(samePoint({1, 1}, {1.2500001F, 1}, tolerence));
  EXPECT_FALSE(samePoint({1, 1}, {1, 0.7499999F}, tolerence));
  EXPECT_TRUE(samePoint({1, 1}, {1, 1}, /*tolerence=*/0));
  EXPECT_FALSE(samePoint({1, 1}, {1, 1}, /*tolerence=*/-1));
}

TEST(Points, SegmentBoxTakesInFifteenTenThousandthsInInchAndMillimetre) {
  for (const float size : {1.0F, 25.4F, 100.0F}) {
    const Point start{size, size};
    const Point end{0, 0};  // corners in any order
    for (const auto& [near, far] :
         {std::pair{size + 0.0015F, size + 0.0016F}, std::pair{-0.0015F, -0.0016F}}) {
      EXPECT_TRUE(pointInSegBox({near, size / 2}, start, end)) << size;
      EXPECT_TRUE(pointInSegBox({size / 2, near}, start, end)) << size;
      EXPECT_FALSE(pointInSegBox({far, size / 2}, start, end)) << size;
      EXPECT_FALSE(pointInSegBox({size / 2, far}, start, end)) << size;
    }
  }
}

TEST(Points, MidpointAndSlopeOfASlantAndOfAVertical) {
  const MidpointSlope slant = midpointAndSlope({1, 2}, {5, 4});
  EXPECT_EQ(slant.middle, (Point{3, 3}));
  EXPECT_EQ(slant.slope, 0.5);
  const MidpointSlope vertical = midpointAndSlope({1, 2}, {1, 4});
  EXPECT_EQ(vertical.middle, (Point{1, 3}));
  EXPECT_EQ(vertical.slope, 999999.0);
}

TEST(Points, ReflectionGoesThroughTheMidpoint) {
  EXPECT_EQ(reflectThroughMidpoint({0, 0}, {4, 2}, {1, 1}), (Point{3, 1}));
}

Point drawnPoint() {
  return {static_cast<float>(*rc::gen::inRange(-100000, 100000)) / 1000,
          static_cast<float>(*rc::gen::inRange(-100000, 100000)) / 1000};
}

RC_GTEST_PROP(PointsProperty, ReflectingTwiceComesBack, ()) {
  const Point a = drawnPoint();
  const Point b = drawnPoint();
  const Point p = drawnPoint();
  const Point back = reflectThroughMidpoint(a, b, reflectThroughMidpoint(a, b, p));
  RC_ASSERT(distance(p, back) < 1e-4F);
}

RC_GTEST_PROP(PointsProperty, DistanceIsSymmetricAndKeepsTheTriangle, ()) {
  const Point a = drawnPoint();
  const Point b = drawnPoint();
  const Point c = drawnPoint();
  RC_ASSERT(distance(a, b) == distance(b, a));
  RC_ASSERT(distance(a, c) <= distance(a, b) + distance(b, c) + 1e-4F);
}

}  // namespace
}  // namespace tess
