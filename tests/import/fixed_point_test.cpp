// The fixed-point numbers of the font interface.
#include "import/fixed_point.h"

#include <cmath>
#include <numbers>

#include "gtest/gtest.h"

#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::numberOfFailure;

TEST(FixedNumber, HoldsSixteenBitsOfEitherSide) {
  clsFixed number(2.5);
  EXPECT_EQ(number.AsLong(), 163840);
  EXPECT_EQ(number.AsDouble(), 2.5);
  EXPECT_EQ(number.AsFIXED(), (FIXED{.fract = 32768, .value = 2}));
  number.AsDouble(-0.25);
  EXPECT_EQ(number.AsLong(), -16384);
  EXPECT_EQ(number.AsFIXED(), (FIXED{.fract = 49152, .value = -1}));
}

TEST(FixedNumber, LoadsTwoHalves) {
  clsFixed number;
  number.Load(-3, 16384);
  EXPECT_EQ(number.AsDouble(), -2.75);
  EXPECT_EQ(LoWord(number.AsLong()), 16384);
  EXPECT_EQ(HiWord(number.AsLong()), -3);
  number.Load(32767, 65535);
  EXPECT_EQ(number.AsLong(), 0x7FFFFFFF);
}

TEST(FixedNumber, IsRoundedToTheNearestThatItHolds) {
  EXPECT_EQ(clsFixed(1.0 / 3).AsLong(), 21845);
  EXPECT_EQ(clsFixed(2.0 / 3).AsLong(), 43691);
}

TEST(FixedNumber, RefusesWhatDoesNotFit) {
  EXPECT_EQ(numberOfFailure([] { clsFixed number(32768); }), FailureNumber::Overflow);
  EXPECT_EQ(numberOfFailure([] { clsFixed number(-32769); }), FailureNumber::Overflow);
  EXPECT_EQ(numberOfFailure([] { clsFixed number(std::nan("")); }), FailureNumber::Overflow);
}

TEST(FixedNumber, TheAverageOfTheLargestIsItself) {
  clsFixed largest;
  largest.Load(32767, 65535);
  EXPECT_EQ(clsFixed::Average(largest, largest), largest);
  EXPECT_EQ(clsFixed::Average(clsFixed(1), clsFixed(-2)).AsDouble(), -0.5);
}

TEST(FixedPoint, HasAMiddleAndADistance) {
  clsFixedPoint a;
  a.Load(1, 32768, -2, 0);
  const clsFixedPoint b{clsFixed(4.5), clsFixed(2)};
  EXPECT_EQ(clsFixedPoint::MidPoint(a, b), (clsFixedPoint{clsFixed(3), clsFixed(0)}));
  EXPECT_DOUBLE_EQ(a.DistanceTo(b), 5);
}

MAT2 matrixOf(double xToX, double xToY, double yToX, double yToY) {
  return {clsFixed(xToX).AsFIXED(), clsFixed(xToY).AsFIXED(), clsFixed(yToX).AsFIXED(),
          clsFixed(yToY).AsFIXED()};
}

TEST(FixedMatrix, IsTheIdentityUntilItIsChanged) {
  clsFixedMatrix matrix;
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(1, 0, 0, 1));
  matrix.ApplyRotation(1);
  matrix.SetToIdentity();
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(1, 0, 0, 1));
}

TEST(FixedMatrix, MirrorsTheAxesWhoseFlagIsSet) {
  clsFixedMatrix matrix;
  matrix.Mirror(true, false);
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(-1, 0, 0, 1));
  matrix.Mirror(true, true);
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(1, 0, 0, -1));
}

TEST(FixedMatrix, TurnsCounterClockwise) {
  clsFixedMatrix matrix;
  matrix.ApplyRotation(std::numbers::pi / 2);
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(0, 1, -1, 0));
}

TEST(FixedMatrix, MirrorsBeforeItTurns) {
  clsFixedMatrix matrix;
  matrix.Mirror(true, false);
  matrix.ApplyRotation(std::numbers::pi / 2);
  EXPECT_EQ(matrix.AsMAT2(), matrixOf(0, -1, -1, 0));
}

}  // namespace
}  // namespace tess
