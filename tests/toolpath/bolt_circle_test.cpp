// The holes of a bolt circle.
#include "toolpath/bolt_circle.h"

#include "gtest/gtest.h"

#include "tests/support/failure_of.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

TEST(BoltHoles, StandFromTheTopClockwiseAtFourDecimals) {
  const auto holes =
      boltHoles({.holes = 4, .circleDiameter = 2, .holeDiameter = 0.5F, .origin = {5, 5}});
  ASSERT_EQ(holes.size(), 4U);
  EXPECT_EQ(holes[0].place, (Point{5, 6}));
  EXPECT_EQ(holes[1].place, (Point{6, 5}));
  EXPECT_EQ(holes[2].place, (Point{5, 4}));
  EXPECT_EQ(holes[3].place, (Point{4, 5}));
  const auto three = boltHoles({.holes = 3, .circleDiameter = 2});
  EXPECT_EQ(three[1].place, (Point{0.866F, -0.5F}));
  EXPECT_EQ(three[2].place, (Point{-0.866F, -0.5F}));
}

TEST(BoltHoles, LieInThePreviewOnItsFrame) {
  const auto holes = boltHoles({.holes = 4, .degreesOffset = 90, .circleDiameter = 7});
  EXPECT_NEAR(holes[0].px, 1800, 1e-3);
  EXPECT_NEAR(holes[0].py, 0, 1e-3);
  EXPECT_NEAR(holes[1].px, 0, 1e-3);
  EXPECT_NEAR(holes[1].py, -1800, 1e-3);
}

TEST(BoltHoles, OfAnOffsetOfAWholeTurnAreThoseOfNone) {
  const auto none = boltHoles({.holes = 7, .circleDiameter = 3});
  const auto turn = boltHoles({.holes = 7, .degreesOffset = 360, .circleDiameter = 3});
  for (std::size_t n = 0; n < none.size(); ++n) EXPECT_EQ(turn[n].place, none[n].place);
}

// A step as a 64-bit number would put the last of 999 holes elsewhere in the seventh decimal.
TEST(BoltHoles, StepByAThirtyTwoBitAngle) {
  const auto holes = boltHoles({.holes = 999, .circleDiameter = 2});
  const double angle = 998 * static_cast<double>(360.0F / 999.0F) * kPi / 180;
  EXPECT_DOUBLE_EQ(holes.back().x, std::sin(angle));
}

TEST(BoltHoles, SixOnEightAreFourApart) {
  const auto holes = boltHoles({.holes = 6, .circleDiameter = 8});
  EXPECT_NEAR(boltHoleDistance(holes), 4, 1e-6);
}

TEST(BoltHoles, BeyondTheLargestNumberAreNone) {
  EXPECT_EQ(testing::numberOfFailure([] {
              return boltHoles({.holes = 2, .circleDiameter = 3e38F, .origin = {0, 3e38F}});
            }),
            FailureNumber::Overflow);
}

TEST(BoltHoleItem, NamesPlacesByPlainNumbersFromOne) {
  EXPECT_EQ(boltHoleItem(1, {5, 6}), "1 - X=5, Y=6");
  EXPECT_EQ(boltHoleItem(12, {-0.866F, 0.5F}), "12 - X=-0.866, Y=0.5");
}

TEST(FieldOfItem, IsWhatStandsBehindItsNameUpToTheComma) {
  EXPECT_EQ(fieldOfItem("X", "1 - X=5, Y=6"), "5");
  EXPECT_EQ(fieldOfItem("Y", "1 - X=5, Y=6"), "6");
  EXPECT_EQ(fieldOfItem("Z", "1 - X=5, Y=6"), "");
  EXPECT_EQ(fieldOfItem("X", ""), "");
}

}  // namespace
}  // namespace tess
