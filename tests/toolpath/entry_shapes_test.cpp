// Stairs of ramps and helices: no step is too high, no slope too steep, and they end where they
// began.
#include "toolpath/entry_shapes.h"

#include <cmath>
#include <numbers>

#include "gtest/gtest.h"

#include "toolpath/true_links.h"

namespace tess {
namespace {

double slopeOf(double degrees) {
  return std::tan(degrees * std::numbers::pi / 180);
}

void expectChain(const std::vector<EntryStair>& stairs, PlanePoint start) {
  PlanePoint at = start;
  for (const EntryStair& stair : stairs) {
    for (const Curve& curve : stair.curves) {
      EXPECT_NEAR(lengthOf(curve.start - at), 0, 1e-9);
      at = curve.end;
    }
  }
  EXPECT_NEAR(lengthOf(at - start), 0, 1e-9);
}

// The stairs fall by equal steps, from the top to one step above `last`.
void expectEvenSteps(const std::vector<EntryStair>& stairs, std::size_t count,
                     const EntryDrop& drop) {
  const double step = drop.depth() / static_cast<double>(count + 1);
  EXPECT_LE(step, drop.step + 1e-9);
  for (std::size_t k = 0; k < count; ++k) {
    EXPECT_NEAR(stairs[k].z, drop.top - step * static_cast<double>(k + 1), 1e-9);
  }
}

TEST(EntryRamp, GoesToAndFroAndNeverFallsFasterThanItsAngle) {
  for (const double degrees : {0.5, 3.0, 20.0, 45.0}) {
    for (const double length : {0.05, 0.4, 3.0, 40.0}) {
      for (const double depth : {0.011, 0.25, 1.3}) {
        const EntryDrop drop{-0.1, -0.1 - depth, 0.01, slopeOf(degrees)};
        const std::vector<Curve> way{lineCurve({1, 1}, {1 + length, 1})};
        const auto stairs = rampStairs(way, drop);
        ASSERT_EQ(static_cast<double>(stairs.size()), rampRows(length, drop));
        expectChain(stairs, {1, 1});
        expectEvenSteps(stairs, stairs.size(), drop);
        double total = 0;
        for (const EntryStair& stair : stairs) {
          total += lengthOfWay(stair.curves);
          for (const Curve& curve : stair.curves) {
            EXPECT_GE(curve.end.x, 1 - 1e-9);
            EXPECT_LE(curve.end.x, 1 + length + 1e-9);
          }
        }
        const double fall = depth - depth / static_cast<double>(stairs.size() + 1);
        EXPECT_LE(fall, total * drop.slope * (1 + 1e-9)) << degrees << " " << length;
      }
    }
  }
}

TEST(EntryRamp, FollowsRowsRoundACorner) {
  const EntryDrop drop{0, -0.1, 0.01, slopeOf(3)};
  const std::vector<Curve> way{lineCurve({0, 0}, {0.2, 0}), lineCurve({0.2, 0}, {0.2, 1}),
                               arcCurve({0.2, 1}, {0, 1.2}, {0, 1}, 1)};
  const auto stairs = rampStairs(way, drop);
  expectChain(stairs, {0, 0});
  expectEvenSteps(stairs, stairs.size(), drop);
  bool hasCorner = false;
  for (const EntryStair& stair : stairs) hasCorner |= stair.curves.size() > 1;
  EXPECT_TRUE(hasCorner);
}

TEST(EntryHelix, GoesRoundAndItsLastTurnIsFlat) {
  for (const int turn : {1, -1}) {
    for (const double depth : {0.02, 0.3, 2.0}) {
      const EntryDrop drop{0, -depth, 0.01, slopeOf(4)};
      const PlanePoint start{2, 0};
      const PlanePoint center{2, 0.225};
      const auto stairs = helixStairs(start, center, turn, drop);
      expectChain(stairs, start);
      expectEvenSteps(stairs, stairs.size() - 1, drop);
      EXPECT_EQ(static_cast<double>(stairs.size()) + 1, helixRows(0.225, drop));
      EXPECT_EQ(stairs.back().z, -depth);
      EXPECT_EQ(stairs.back().curves.size(), 2U);
      double total = 0;
      for (const EntryStair& stair : stairs) {
        for (const Curve& curve : stair.curves) {
          EXPECT_EQ(curve.turn, turn);
          EXPECT_NEAR(curve.radius, 0.225, 1e-9);
          EXPECT_LE(sweepOf(curve), std::numbers::pi + 1e-6);
          total += lengthOf(curve);
        }
      }
      const double flat = 2 * std::numbers::pi * 0.225;
      EXPECT_LE(depth * (1 - 1 / static_cast<double>(stairs.size())),
                (total - flat) * drop.slope * (1 + 1e-9));
    }
  }
}

// A thousandth of a degree over a mile: told, and not made.
TEST(EntryShapes, TellHowManyRowsTheyWouldHave) {
  const EntryDrop drop{0, -1000, 0.01, slopeOf(0.1)};
  EXPECT_GT(rampRows(0.01, drop), 1e7);
  EXPECT_GT(helixRows(0.001, drop), 1e6);
}

}  // namespace
}  // namespace tess
