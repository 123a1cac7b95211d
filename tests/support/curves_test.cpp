// The plane geometry of the checks: by hand, and against dense samples.
#include "tests/support/curves.h"

#include <cmath>
#include <limits>

#include "gtest/gtest.h"

#include "tests/geometry/scenes.h"

namespace tess::testing {
namespace {

// The arc about `center` from one angle to another, in degrees.
Curve arcAt(Vec center, double radius, double from, double to, bool clockwise = false) {
  const double unit = kFullTurn / 360;
  return arcCurve(onCircle(center, radius, from * unit), onCircle(center, radius, to * unit),
                  center, clockwise);
}

TEST(Curves, LengthAndPointsFollowTheSense) {
  const Curve quarter = arcAt({1, 0}, 2, 0, 90);
  EXPECT_NEAR(lengthOf(quarter), kFullTurn / 2, 1e-12);
  EXPECT_NEAR(pointOn(quarter, 0.5).x, 1 + std::sqrt(2), 1e-12);
  const Curve rest = arcAt({1, 0}, 2, 0, 90, /*clockwise=*/true);
  EXPECT_NEAR(lengthOf(rest), 3 * kFullTurn / 2, 1e-12);
  EXPECT_NEAR(pointOn(rest, 1.0 / 3).y, -2, 1e-12);
  EXPECT_NEAR(lengthOf(circleCurve({0, 0}, 1)), kFullTurn, 1e-12);
  EXPECT_EQ(pointOn(lineCurve({0, 0}, {4, 2}), 0.25), (Vec{1, 0.5}));
}

TEST(Curves, DistancesByHand) {
  const Curve base = lineCurve({0, 0}, {4, 0});
  const Curve half = arcAt({0, 0}, 2, 0, 180);
  const struct {
    const char* name;
    Curve a, b;
    double expected;
  } cases[] = {
      {"parallel lines", base, lineCurve({1, 3}, {9, 3}), 3},
      {"lines that cross", base, lineCurve({2, -1}, {3, 1}), 0},
      {"a line that ends on another", base, lineCurve({2, 0}, {3, 1}), 0},
      {"an end above a line", base, lineCurve({2, 1.5}, {3, 4}), 1.5},
      {"end to end", base, lineCurve({7, 4}, {9, 9}), 5},
      {"lines on one carrier", base, lineCurve({6, 0}, {9, 0}), 2},
      {"a point on a line", base, lineCurve({3, 0}, {3, 0}), 0},
      {"a line over an arc", half, lineCurve({-5, 5}, {5, 5}), 3},
      {"a line that touches an arc", half, lineCurve({-5, 2}, {5, 2}), 0},
      {"a line under the open side", half, lineCurve({-5, -1}, {5, -1}), 1},
      {"a chord inside", half, lineCurve({-1, 0.5}, {1, 0.5}), 2 - std::sqrt(1.25)},
      {"a line through the centre", half, lineCurve({0, -9}, {0, 9}), 0},
      {"a short line at the centre", half, lineCurve({-0.5, 0}, {0.5, 0}), 1.5},
      {"a line that crosses the missing half", half, lineCurve({0.5, -1}, {0.5, -3}),
       std::hypot(1.5, 1)},
      {"arcs side by side", half, arcAt({7, 0}, 2, 90, 270), 3},
      {"an arc within another", circleCurve({0, 0}, 5), circleCurve({1, 0}, 2), 2},
      {"circles that cross", circleCurve({0, 0}, 2), circleCurve({3, 0}, 2), 0},
      {"circles that touch", circleCurve({0, 0}, 2), circleCurve({4, 0}, 2), 0},
      {"rings of one centre", half, arcAt({0, 0}, 3.5, 45, 90), 1.5},
      {"rings of one centre, sweeps apart", half, arcAt({0, 0}, 4, 225, 315),
       std::sqrt(4 + 16 - 16 * std::cos(kFullTurn / 8))},
      {"arcs whose circles cross beyond their sweeps", half, arcAt({3, 0}, 2, 200, 340),
       std::hypot(2 - (3 + 2 * std::cos(200 * kFullTurn / 360)),
                  2 * std::sin(200 * kFullTurn / 360))},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(distanceBetween(c.a, c.b), c.expected, 1e-9) << c.name;
    EXPECT_NEAR(distanceBetween(c.b, c.a), c.expected, 1e-9) << c.name;
  }
  EXPECT_NEAR(distanceBetween(half, Vec{0, 0}), 2, 1e-12);
  EXPECT_NEAR(distanceBetween(half, Vec{0, -2}), std::sqrt(8), 1e-12);
}

Vec anywhere(Dice& dice) {
  return {4 * dice.unit(), 4 * dice.unit()};
}

Curve anyCurve(Dice& dice) {
  if (dice.below(2) == 0) return lineCurve(anywhere(dice), anywhere(dice));
  const double from = 360 * dice.unit();
  return arcAt(anywhere(dice), 2.01 + 2 * dice.unit(), from, from + 180 + 179 * dice.unit(),
               dice.below(2) == 0);
}

// No sample may be nearer than the distance, and one is nearly as near.
TEST(Curves, DistancesAgreeWithDenseSamples) {
  constexpr int kSteps = 400;
  Dice dice(1);
  int apart = 0;
  for (int number = 0; number < 2000; ++number) {
    const Curve a = anyCurve(dice);
    const Curve b = anyCurve(dice);
    const double exact = distanceBetween(a, b);
    double sampled = std::numeric_limits<double>::infinity();
    for (int step = 0; step <= kSteps; ++step) {
      sampled = std::min(sampled, distanceBetween(b, pointOn(a, 1.0 * step / kSteps)));
    }
    EXPECT_LE(exact, sampled + 1e-9) << number;
    EXPECT_GE(exact, sampled - lengthOf(a) / kSteps) << number;
    apart += exact > 0 ? 1 : 0;
  }
  EXPECT_GT(apart, 500);
  EXPECT_LT(apart, 1800);
}

TEST(Curves, PointDistancesAgreeWithDenseSamples) {
  constexpr int kSteps = 2000;
  Dice dice(2);
  for (int number = 0; number < 1000; ++number) {
    const Curve curve = anyCurve(dice);
    const Vec at = anywhere(dice);
    const double exact = distanceBetween(curve, at);
    double sampled = std::numeric_limits<double>::infinity();
    for (int step = 0; step <= kSteps; ++step) {
      sampled = std::min(sampled, lengthOf(at - pointOn(curve, 1.0 * step / kSteps)));
    }
    EXPECT_LE(exact, sampled + 1e-9) << number;
    EXPECT_GE(exact, sampled - lengthOf(curve) / kSteps) << number;
  }
}

TEST(WindingNumber, CountsTheTurnsRoundAPoint) {
  const Loop square{lineCurve({0, 0}, {4, 0}), lineCurve({4, 0}, {4, 4}), lineCurve({4, 4}, {0, 4}),
                    lineCurve({0, 4}, {0, 0})};
  const Loop backward{lineCurve({0, 4}, {4, 4}), lineCurve({4, 4}, {4, 0}),
                      lineCurve({4, 0}, {0, 0}), lineCurve({0, 0}, {0, 4})};
  // A half disc below its diameter, one above it, and three quarters of a disc with a notch.
  const Loop below{arcAt({0, 0}, 2, 180, 0), lineCurve({2, 0}, {-2, 0})};
  const Loop above{lineCurve({-2, 0}, {2, 0}), arcAt({0, 0}, 2, 0, 180)};
  const Loop notched{arcAt({0, 0}, 2, 0, 270), lineCurve({0, -2}, {0, 0}),
                     lineCurve({0, 0}, {2, 0})};
  // A square whose upper side is an arc that comes down into it, clockwise about (0, 3).
  const Loop dented{lineCurve({-2, 0}, {2, 0}), lineCurve({2, 0}, {2, 3}),
                    arcAt({0, 3}, 2, 0, 180, /*clockwise=*/true), lineCurve({-2, 3}, {-2, 0})};
  const struct {
    const char* name;
    const Loop& loop;
    Vec point;
    int expected;
  } cases[] = {
      {"in the square", square, {1, 3}, 1},
      {"right of the square", square, {5, 2}, 0},
      {"on the carrier of a side", square, {6, 0}, 0},
      {"in the square the other way", backward, {1, 3}, -1},
      {"in the lower half disc", below, {0, -1}, 1},
      {"above the lower half disc", below, {0, 1}, 0},
      {"in the upper half disc", above, {1, 1}, 1},
      {"below the upper half disc", above, {1, -1}, 0},
      {"beside the upper half disc", above, {1.9, 1.9}, 0},
      {"in the notched disc", notched, {-1, -1}, 1},
      {"on the chord of the notched disc", notched, {-0.5, 0.5}, 1},
      {"in the notch", notched, {0.4, -0.4}, 0},
      {"in the notch, on the arc's chord", notched, {1, -1}, 0},
      {"under the dent", dented, {0, 0.5}, 1},
      {"in the dent", dented, {0, 2}, 0},
      {"in the dent, on its chord's height", dented, {0.5, 3}, 0},
      {"beside the dent", dented, {1.9, 1}, 1},
  };
  for (const auto& c : cases) EXPECT_EQ(windingNumber(c.loop, c.point), c.expected) << c.name;
  EXPECT_EQ(windingNumber({circleCurve({1, 1}, 2)}, {2, 2}), 1);
  EXPECT_EQ(windingNumber({circleCurve({1, 1}, 2)}, {4, 1}), 0);
  EXPECT_EQ(windingNumber({arcCurve({3, 1}, {3, 1}, {1, 1}, /*clockwise=*/true)}, {1, 1}), -1);
}

// The same loop as short chords, whose number is a plain sum of angles.
int sampledWinding(const Loop& loop, Vec point) {
  constexpr int kSteps = 500;
  double angle = 0;
  for (const Curve& curve : loop) {
    for (int step = 0; step < kSteps; ++step) {
      const Vec a = pointOn(curve, 1.0 * step / kSteps) - point;
      const Vec b = pointOn(curve, (step + 1.0) / kSteps) - point;
      angle += std::atan2(cross(a, b), dot(a, b));
    }
  }
  return static_cast<int>(std::lround(angle / kFullTurn));
}

TEST(WindingNumber, AgreesWithDenseChords) {
  Dice dice(3);
  int inside = 0;
  int outside = 0;
  for (int number = 0; number < 300; ++number) {
    // Corners anywhere, joined by lines and half circles of either sense: loops that cross
    // themselves have numbers beyond 1.
    std::vector<Vec> corners;
    for (int corner = 3 + dice.below(4); corner > 0; --corner) corners.push_back(anywhere(dice));
    Loop loop;
    for (std::size_t k = 0; k < corners.size(); ++k) {
      const Vec a = corners[k];
      const Vec b = corners[(k + 1) % corners.size()];
      const bool round = dice.below(2) == 0;
      loop.push_back(round ? arcCurve(a, b, 0.5 * (a + b), dice.below(2) == 0) : lineCurve(a, b));
    }
    for (int query = 0; query < 20; ++query) {
      const Vec point = anywhere(dice);
      double nearest = 1;
      for (const Curve& curve : loop) nearest = std::min(nearest, distanceBetween(curve, point));
      if (nearest < 0.01) continue;
      const int turns = windingNumber(loop, point);
      EXPECT_EQ(turns, sampledWinding(loop, point)) << number;
      ++(turns == 0 ? outside : inside);
    }
  }
  EXPECT_GT(inside, 1000);
  EXPECT_GT(outside, 1000);
}

TEST(CurveOf, ReadsDrawingAndPathRows) {
  const Curve circle = curveOf(SegmentRow{.type = kCircle, .x0 = 3, .y0 = 1, .xc = 1, .yc = 1});
  EXPECT_EQ(circle.radius, 2);
  EXPECT_EQ(circle.sweep, kFullTurn);
  const Curve arc = curveOf(PathRow{.type = kClockwiseArc, .x0 = 1, .y1 = 1});
  EXPECT_NEAR(arc.sweep, -0.75 * kFullTurn, 1e-12);
  const Curve line = curveOf(PathRow{.type = kLine, .x0 = 1, .y1 = 1});
  EXPECT_FALSE(line.isArc);
  EXPECT_EQ(line.end, (Vec{0, 1}));
  EXPECT_THROW(curveOf(PathRow{.type = 81}), std::invalid_argument);
  EXPECT_THROW(curveOf(SegmentRow{.type = kRectangle}), std::invalid_argument);
}

TEST(ArcMismatch, IsTheDifferenceOfTheRadii) {
  const PathRow arc{.type = kClockwiseArc, .x0 = 1, .y1 = 1.25F};
  EXPECT_EQ(arcMismatch(arc), 0.25);
  EXPECT_EQ(arcMismatch({.type = kLine, .x0 = 1, .y1 = 1.25F}), 0);
}

}  // namespace
}  // namespace tess::testing
