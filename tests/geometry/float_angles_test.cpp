// Angles of vectors and arcs.
#include "geometry/float_angles.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/conventions.h"
#include "tests/geometry/arcs.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

constexpr float kPiF = 3.1415927F;
constexpr float kTwoPiF = 6.2831855F;

TEST(VectorAngle, AllDirections) {
  const struct {
    Point to;
    float angle;
  } cases[] = {
      {{1, 0}, 0},
      {{1, 1}, 0.7853982F},
      {{0, 1}, kPiF / 2},
      {{-1, 1}, 2.3561945F},
      {{-1, 0}, kPiF},
      {{-1, -1}, 3.926991F},
      {{0, -1}, 9.424778F / 2},
      {{1, -1}, 5.4977875F},
      {{1, -1e-9F}, kTwoPiF},
  };
  for (const auto& c : cases) EXPECT_FLOAT_EQ(vectorAngle({0, 0}, c.to), c.angle);
}

TEST(VectorAngle, ANullVectorPointsUp) {
  EXPECT_EQ(vectorAngle({3, 4}, {3, 4}), kPiF / 2);
}

TEST(VectorAngle, QuarterTurnsAreTheExactConstants) {
  EXPECT_EQ(vectorAngle({1, 1}, {1, 9}), kPiF / 2);
  EXPECT_EQ(vectorAngle({1, 1}, {1, -9}), 9.424778F / 2);
  EXPECT_EQ(vectorAngle({1, 1}, {-5, 1}), kPiF);
}

TEST(ArcRadiusAndAngles, RadiusIsThatOfTheStart) {
  const ArcAngles arc = arcRadiusAndAngles({3, 0}, {0, 2}, {0, 0});
  EXPECT_EQ(arc.radius, 3.0F);
  EXPECT_EQ(arc.start, 0.0F);
  EXPECT_EQ(arc.end, kPiF / 2);
}

TEST(ArcRadiusAndAngles, AFullTurnBecomesZero) {
  EXPECT_EQ(arcRadiusAndAngles({1, -1e-9F}, {-1, 0}, {0, 0}).start, 0.0F);
}

TEST(AngleInSweep, TableOfArcs) {
  for (const testing::ArcCase& c : testing::kArcCases) {
    SCOPED_TRACE(c.name);
    const float a = vectorAngle({0, 0}, testing::onUnitCircle(c.start));
    const float b = vectorAngle({0, 0}, testing::onUnitCircle(c.end));
    EXPECT_TRUE(angleInSweep(a, a, b, c.type));
    EXPECT_TRUE(angleInSweep(b, a, b, c.type));
    EXPECT_TRUE(angleInSweep(vectorAngle({0, 0}, testing::onUnitCircle(c.inside)), a, b, c.type));
    if (c.outside >= 0) {
      EXPECT_FALSE(
          angleInSweep(vectorAngle({0, 0}, testing::onUnitCircle(c.outside)), a, b, c.type));
    }
  }
}

TEST(AngleInSweep, EqualAnglesAreTheWholeCircleForBothSenses) {
  for (const float a : {0.0F, 1.0F, kPiF, 6.0F}) {
    for (float theta = 0; theta <= kTwoPiF; theta += 0.1F) {
      EXPECT_TRUE(angleInSweep(theta, a, a, kClockwiseArc));
      EXPECT_TRUE(angleInSweep(theta, a, a, kCounterClockwiseArc));
    }
  }
}

TEST(AngleInSweep, AnotherDirectionTakesTheRangeBetween) {
  EXPECT_TRUE(angleInSweep(2, 3, 1, kCircle));
  EXPECT_TRUE(angleInSweep(2, 1, 3, 0));
  EXPECT_FALSE(angleInSweep(0.5F, 1, 3, kCircle));
  EXPECT_FALSE(angleInSweep(2, 1, 1, kCircle));
}

TEST(AngleInSweep, ComparisonIsExact) {
  const float next = std::nextafter(2.0F, 3.0F);
  EXPECT_TRUE(angleInSweep(2.0F, 1, 2, kCounterClockwiseArc));
  EXPECT_FALSE(angleInSweep(next, 1, 2, kCounterClockwiseArc));
}

TEST(AngleInSweep, AFullTurnCountsAsAngleZero) {
  EXPECT_TRUE(angleInSweep(0.5F, kTwoPiF, 1, kCounterClockwiseArc));
  EXPECT_FALSE(angleInSweep(1.5F, kTwoPiF, 1, kCounterClockwiseArc));
}

TEST(AngleInSweep, AnglesBeyondATurnTakeTheWholeNumberRemainder) {
  // 7 becomes 1, where a floating remainder would give 0.717.
  EXPECT_TRUE(angleInSweep(1.0F, 7, 2, kCounterClockwiseArc));
  EXPECT_FALSE(angleInSweep(0.9F, 7, 2, kCounterClockwiseArc));
  // -1 becomes -1 + two pi; -0.4 rounds to 0 and becomes two pi.
  EXPECT_TRUE(angleInSweep(5.284F, -1, 6, kCounterClockwiseArc));
  EXPECT_FALSE(angleInSweep(5.28F, -1, 6, kCounterClockwiseArc));
  EXPECT_TRUE(angleInSweep(6.2F, -0.4F, 6, kClockwiseArc));
  EXPECT_FALSE(angleInSweep(5.9F, -0.4F, 6, kClockwiseArc));
  // The second angle alike: 8 becomes 2.
  EXPECT_TRUE(angleInSweep(2.0F, 1, 8, kCounterClockwiseArc));
  EXPECT_FALSE(angleInSweep(2.1F, 1, 8, kCounterClockwiseArc));
}

TEST(PolarOf, TheFourthQuadrantStaysNegative) {
  const struct {
    Point to;
    float degrees;
  } cases[] = {
      {{1, 0}, 0},     {{1, 1}, 45},   {{0, 1}, 90},   {{-1, 1}, 135}, {{-1, 0}, 180},
      {{-1, -1}, 225}, {{0, -1}, -90}, {{1, -1}, -45}, {{0, 0}, 0},
  };
  for (const auto& c : cases) EXPECT_EQ(polarOf({0, 0}, c.to).degrees, c.degrees);
}

TEST(PolarOf, BothResultsAreRoundedToFourPlaces) {
  const Polar polar = polarOf({0, 0}, {3, 1});
  EXPECT_EQ(polar.degrees, 18.4349F);
  EXPECT_EQ(polar.length, 3.1623F);
}

TEST(PointAlong, GoesByTheRoundedAngle) {
  const Point p = pointAlong({0, 0}, {3, 1}, 1000);
  const double angle = 18.4349F * 3.1415927F / 180;
  EXPECT_NEAR(p.x, 1000 * std::cos(angle), 1e-3);
  EXPECT_NEAR(p.y, 1000 * std::sin(angle), 1e-3);
  EXPECT_GT(std::abs(p.y - p.x / 3), 1e-5);  // not on the line
}

TEST(PointAlong, AxesComeOutExactly) {
  EXPECT_EQ(pointAlong({1, 1}, {5, 1}, 2), (Point{3, 1}));
  EXPECT_EQ(pointAlong({1, 1}, {1, 5}, 2).y, 3.0F);
  EXPECT_EQ(pointAlong({1, 1}, {-5, 1}, 2).x, -1.0F);
}

Point drawnPoint() {
  return {static_cast<float>(*rc::gen::inRange(-1000, 1000)) / 8,
          static_cast<float>(*rc::gen::inRange(-1000, 1000)) / 8};
}

RC_GTEST_PROP(AnglesProperty, AVectorAngleStaysInOneTurn, ()) {
  const float angle = vectorAngle(drawnPoint(), drawnPoint());
  RC_ASSERT(angle >= 0);
  RC_ASSERT(angle <= kTwoPiF);
}

RC_GTEST_PROP(AnglesProperty, TheTwoSensesShareTheEndsAndCoverTheTurn, ()) {
  const float a = vectorAngle({0, 0}, drawnPoint());
  const float b = vectorAngle({0, 0}, drawnPoint());
  const float theta = vectorAngle({0, 0}, drawnPoint());
  const bool falling = angleInSweep(theta, a, b, kClockwiseArc);
  const bool rising = angleInSweep(theta, a, b, kCounterClockwiseArc);
  RC_ASSERT(falling || rising);
  if (a != b) RC_ASSERT((falling && rising) == (theta == a || theta == b));
  // Run backwards, an arc of the other sense is the same arc.
  RC_ASSERT(rising == angleInSweep(theta, b, a, kClockwiseArc));
}

RC_GTEST_PROP(AnglesProperty, PointAlongByTheWholeLengthIsTheTarget, ()) {
  const Point from = drawnPoint();
  const Point to = drawnPoint();
  RC_ASSERT(distance(pointAlong(from, to, polarOf(from, to).length), to) < 2e-3F);
}

}  // namespace
}  // namespace tess
