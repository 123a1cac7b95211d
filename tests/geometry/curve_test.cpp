// Lines and arcs in 64 bits: places, measures and what becomes of rows.
#include "geometry/curve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "gtest/gtest.h"

#include "tests/geometry/arcs.h"

namespace tess::testing {
namespace {

constexpr double kHalfTurn = std::numbers::pi;
constexpr double kFine = 1e-12;

PlanePoint polar(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

// About the origin.
Curve arcBetween(double radius, double from, double to) {
  return arcCurve(polar(radius, from), polar(radius, to), {0, 0}, to > from ? 1 : -1);
}

void expectNear(PlanePoint actual, PlanePoint expected, double within = kFine) {
  EXPECT_NEAR(actual.x, expected.x, within);
  EXPECT_NEAR(actual.y, expected.y, within);
}

std::vector<Curve> curvesOf(const Entity& row) {
  std::vector<Curve> curves;
  appendCurves(row, curves);
  return curves;
}

double wholeLength(const std::vector<Curve>& curves) {
  double length = 0;
  for (const Curve& curve : curves) length += lengthOf(curve);
  return length;
}

double degreesBetween(const ArcCase& c) {
  const int rising = c.type == kCounterClockwiseArc ? c.end - c.start : c.start - c.end;
  return rising > 0 ? rising : rising + 360;
}

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

TEST(Curve, RowsOfArcsBecomeCurvesOfHalfATurnAtMost) {
  for (const ArcCase& c : kArcCases) {
    SCOPED_TRACE(c.name);
    const std::vector<Curve> curves = curvesOf(arcOf(c));
    const double sweep = degreesBetween(c) * kHalfTurn / 180;
    ASSERT_EQ(curves.size(), sweep > kHalfTurn + 1e-6 ? 2U : 1U);
    EXPECT_EQ(curves.front().start, placeOf(onUnitCircle(c.start)));
    EXPECT_EQ(curves.back().end, placeOf(onUnitCircle(c.end)));
    EXPECT_EQ(curves.front().end == curves.back().start, curves.size() == 2);
    EXPECT_NEAR(wholeLength(curves), sweep, 1e-6);
    for (const Curve& curve : curves) {
      EXPECT_EQ(curve.turn, c.type == kCounterClockwiseArc ? 1 : -1);
      EXPECT_LE(sweepOf(curve), kHalfTurn + 1e-6);
    }
  }
}

TEST(Curve, IsBesideWhatLiesInItsSweep) {
  for (const ArcCase& c : kArcCases) {
    SCOPED_TRACE(c.name);
    const auto besideOne = [curves = curvesOf(arcOf(c))](int degrees) {
      const PlanePoint far = 3 * placeOf(onUnitCircle(degrees));
      return std::ranges::any_of(curves,
                                 [far](const Curve& curve) { return isBeside(curve, far); });
    };
    EXPECT_TRUE(besideOne(c.inside));
    EXPECT_FALSE(c.outside >= 0 && besideOne(c.outside));
  }
}

TEST(Curve, BoxHoldsTheSweepAndLittleMore) {
  for (const ArcCase& c : kArcCases) {
    SCOPED_TRACE(c.name);
    Box box;
    for (const Curve& curve : curvesOf(arcOf(c))) {
      const Box part = boxOf(curve);
      box = extended(extended(box, {part.minX, part.minY}), {part.maxX, part.maxY});
      for (int k = 0; k <= 64; ++k) {
        const PlanePoint at = pointAt(curve, k / 64.0);
        EXPECT_TRUE(at.x >= part.minX && at.x <= part.maxX && at.y >= part.minY &&
                    at.y <= part.maxY);
      }
    }
    EXPECT_NEAR(box.minX, c.box.minX, 1e-6);
    EXPECT_NEAR(box.minY, c.box.minY, 1e-6);
    EXPECT_NEAR(box.maxX, c.box.maxX, 1e-6);
    EXPECT_NEAR(box.maxY, c.box.maxY, 1e-6);
  }
}

TEST(Curve, BoxOfALineHoldsEndsThatTheTablesRound) {
  const Curve line = lineCurve({0.1, 7}, {0.3, -0.7});
  const Box box = boxOf(line);
  EXPECT_LE(box.minX, 0.1);
  EXPECT_LE(box.minY, -0.7);
  EXPECT_GE(box.maxX, 0.3);
  EXPECT_GE(box.maxY, 7.0);
  EXPECT_NEAR(box.maxY - box.minY, 7.7, 1e-5);
}

TEST(Curve, BoxBeyondTheTablesHasNoEndThere) {
  const Box box = boxAround({-1e300, 0}, {5, 1e300});
  EXPECT_TRUE(overlaps(box, boxOf({-std::numeric_limits<float>::max(), 1}, {0, 1})));
  EXPECT_TRUE(overlaps(grown(box, 1), box));
  EXPECT_FALSE(overlaps(box, boxOf({6, 1}, {6, 1})));
}

TEST(Curve, PointsRunFromStartToEndByLength) {
  const Curve line = lineCurve({1, 2}, {4, 6});
  EXPECT_EQ(pointAt(line, 0), (PlanePoint{1, 2}));
  EXPECT_EQ(pointAt(line, 1), (PlanePoint{4, 6}));
  expectNear(pointAt(line, 0.5), {2.5, 4});
  EXPECT_DOUBLE_EQ(lengthOf(line), 5);
  for (const double sweep : {0.01, 1.0, 3.0, kHalfTurn, -0.01, -1.0, -3.0, -kHalfTurn}) {
    const Curve arc = arcBetween(2, 0.3, 0.3 + sweep);
    EXPECT_NEAR(sweepOf(arc), std::abs(sweep), kFine);
    EXPECT_NEAR(lengthOf(arc), 2 * std::abs(sweep), kFine);
    for (const double share : {0.0, 0.25, 0.5, 0.9, 1.0}) {
      expectNear(pointAt(arc, share), polar(2, 0.3 + share * sweep));
      const double heading = 0.3 + share * sweep + (sweep > 0 ? 1 : -1) * kHalfTurn / 2;
      expectNear(directionAt(arc, share), polar(1, heading));
      EXPECT_NEAR(shareOf(arc, polar(2, 0.3 + share * sweep)), share, kFine);
    }
  }
}

TEST(Curve, BeyondItsEndsThereAreTheEnds) {
  const Curve line = lineCurve({0, 0}, {2, 0});
  const Curve arc = arcBetween(1, 0, 1);
  EXPECT_EQ(pointAt(line, -0.5), line.start);
  EXPECT_EQ(pointAt(line, 1.5), line.end);
  EXPECT_EQ(pointAt(arc, -0.5), arc.start);
  EXPECT_EQ(pointAt(arc, 1.5), arc.end);
  EXPECT_EQ(shareOf(line, {-1, 0}), 0);
  EXPECT_EQ(shareOf(line, {9, 0}), 1);
  EXPECT_EQ(shareOf(arc, polar(1, -0.001)), 0);
  EXPECT_EQ(shareOf(arc, polar(1, 1.001)), 1);
}

TEST(Curve, LineWithoutLengthHasNoDirection) {
  const Curve spot = lineCurve({3, 4}, {3, 4});
  EXPECT_EQ(lengthOf(spot), 0);
  EXPECT_EQ(pointAt(spot, 0.5), spot.start);
  EXPECT_EQ(directionAt(spot, 0.5), PlanePoint{});
  EXPECT_EQ(shareOf(spot, {3, 4}), 0);
}

// A centre far away takes no digits from the points: they are reckoned along the chord.
TEST(Curve, FlatArcKeepsItsPlaces) {
  const double radius = 1e7;
  const Curve arc = arcCurve({-1, 0}, {1, 0}, {0, -radius}, -1);
  const double rise = 1 / (2 * radius);
  EXPECT_NEAR(pointAt(arc, 0.5).x, 0, 1e-12);
  EXPECT_NEAR(pointAt(arc, 0.5).y, rise, 1e-12);
  EXPECT_NEAR(lengthOf(arc), 2, 1e-9);
}

// Rounded ends may put the centre of a half circle a hair on the other side of its chord.
TEST(Curve, HalfCircleABitTooLongIsAsGood) {
  const Curve arc = arcCurve({1, 0}, {-1, 0}, {0, -1e-7}, -1);
  EXPECT_NEAR(sweepOf(arc), kHalfTurn + 2e-7, 1e-12);
  expectNear(pointAt(arc, 0.999999999), arc.end, 1e-8);
  expectNear(pointAt(arc, 0.5), {0, -1 - 1e-7}, 1e-12);
  EXPECT_TRUE(isBeside(arc, {-1, -0.5e-7}));
  EXPECT_FALSE(isBeside(arc, {0, 1}));
}

TEST(Curve, CenterGoesWhereBothEndsAreAsFar) {
  expectNear(evenCenter({0, 0}, {2, 0}, {1.25, 3}), {1, 3});
  const Curve arc = arcCurve({1, 0}, {0, 1.001}, {0, 0}, 1);
  EXPECT_EQ(arc.start, (PlanePoint{1, 0}));
  EXPECT_EQ(arc.end, (PlanePoint{0, 1.001}));
  EXPECT_NEAR(lengthOf(arc.end - arc.center), arc.radius, kFine);
  EXPECT_NEAR(lengthOf(arc.center), 0, 0.001);
}

TEST(Curve, ReversedRunsTheSameWayBack) {
  for (const Curve& curve : {lineCurve({0, 1}, {2, 3}), arcBetween(2, 1, 3), arcBetween(2, 3, 1)}) {
    const Curve back = reversed(curve);
    EXPECT_EQ(lengthOf(back), lengthOf(curve));
    for (const double share : {0.0, 0.3, 1.0}) {
      expectNear(pointAt(back, share), pointAt(curve, 1 - share));
      expectNear(directionAt(back, share), -1 * directionAt(curve, 1 - share));
    }
    EXPECT_EQ(reversed(back), curve);
  }
}

TEST(Curve, PartsMeetWhereTheyWereCut) {
  for (const Curve& curve : {lineCurve({0, 1}, {2, 3}), arcBetween(2, 1, 3), arcBetween(2, 3, 1)}) {
    const Curve first = partOf(curve, 0, 0.4);
    const Curve second = partOf(curve, 0.4, 1);
    EXPECT_EQ(first.start, curve.start);
    EXPECT_EQ(first.end, second.start);
    EXPECT_EQ(second.end, curve.end);
    EXPECT_NEAR(lengthOf(first), 0.4 * lengthOf(curve), kFine);
    expectNear(pointAt(second, 0.5), pointAt(curve, 0.7));
  }
}

TEST(Curve, AreaOfLoopsIsSignedByTheirSense) {
  const Entity rectangle{kRectangle, {1, 1}, {4, 3}, {}};
  EXPECT_NEAR(areaOf(curvesOf(rectangle)), 6, kFine);
  const Entity circle{kCircle, {3, 0}, {3, 0}, {1, 0}};
  EXPECT_NEAR(areaOf(curvesOf(circle)), 4 * kHalfTurn, kFine);
  const Entity clockwise{kClockwiseArc, {3, 0}, {3, 0}, {1, 0}};
  EXPECT_NEAR(areaOf(curvesOf(clockwise)), -4 * kHalfTurn, kFine);
  const std::vector<Curve> lens{arcBetween(1, 0, kHalfTurn / 2), lineCurve({0, 1}, {1, 0})};
  EXPECT_NEAR(areaOf(lens), kHalfTurn / 4 - 0.5, kFine);
  EXPECT_EQ(areaOf({}), 0);
}

TEST(Curve, AreaKeepsItsDigitsFarFromTheOriginAndOnFlatArcs) {
  const Entity far{kRectangle, {1e6F, 1e6F}, {1e6F + 0.5F, 1e6F + 0.25F}, {}};
  EXPECT_NEAR(areaOf(curvesOf(far)), 0.125, 1e-12);
  // Below the parabola of rise h over the chord c there are 2/3 h c.
  const double radius = 1e6;
  const std::vector<Curve> flat{lineCurve({-1, 0}, {1, 0}),
                                arcCurve({1, 0}, {-1, 0}, {0, -radius}, 1)};
  EXPECT_NEAR(areaOf(flat), 2.0 / 3 / (2 * radius) * 2, 1e-12);
}

struct MeetingCase {
  const char* name;
  Curve curve;
  std::vector<double> shares;
};

void expectShares(const Shares& actual, const MeetingCase& c) {
  SCOPED_TRACE(c.name);
  ASSERT_EQ(actual.count(), static_cast<int>(c.shares.size()));
  std::vector<double> sorted(actual.begin(), actual.end());
  std::ranges::sort(sorted);
  for (std::size_t k = 0; k < sorted.size(); ++k) EXPECT_NEAR(sorted[k], c.shares[k], 1e-9);
}

TEST(Curve, NeverMeetsALineWithoutDirection) {
  EXPECT_EQ(sharesOnLine(lineCurve({0, 0}, {2, 0}), {1, 0}, {0, 0}).count(), 0);
  EXPECT_EQ(sharesOnLine(arcBetween(2, 0, 1), {1, 0}, {0, 0}).count(), 0);
}

// The line is y = 1.
TEST(Curve, MeetsALine) {
  const double third = kHalfTurn / 6;
  for (const MeetingCase& c : {
           MeetingCase{"line across", lineCurve({0, 0}, {0, 4}), {0.25}},
           MeetingCase{"line across at its end", lineCurve({0, 0}, {3, 1}), {1}},
           MeetingCase{"line that ends before it", lineCurve({0, 0}, {0, 0.9}), {}},
           MeetingCase{"line beside", lineCurve({0, 0}, {5, 0}), {}},
           MeetingCase{"line upon it", lineCurve({0, 1}, {5, 1}), {}},
           MeetingCase{"arc twice", arcBetween(2, 0, kHalfTurn), {1.0 / 6, 5.0 / 6}},
           MeetingCase{"arc twice, clockwise", arcBetween(2, kHalfTurn, 0), {1.0 / 6, 5.0 / 6}},
           MeetingCase{"arc once", arcBetween(2, 0, 2 * third), {0.5}},
           MeetingCase{"arc that touches", arcBetween(1, 0, kHalfTurn), {0.5}},
           MeetingCase{"arc below", arcBetween(0.9, 0, kHalfTurn), {}},
           MeetingCase{"arc on the other side", arcBetween(2, 0, -kHalfTurn), {}},
       }) {
    expectShares(sharesOnLine(c.curve, {-7, 1}, {3, 0}), c);
    expectShares(sharesOnLine(c.curve, {7, 1}, {-0.1, 0}), c);
  }
}

// The circle has radius 2 about the origin.
TEST(Curve, MeetsACircle) {
  const Curve besideIt = arcCurve({4, 0}, {0, 0}, {2, 0}, 1);  // the upper half about (2, 0)
  const Curve around = arcCurve({1, 3}, {1, -3}, {1, 0}, 1);   // the left half about (1, 0)
  for (const MeetingCase& c : {
           MeetingCase{"line through", lineCurve({-4, 0}, {4, 0}), {0.25, 0.75}},
           MeetingCase{"line into it", lineCurve({-4, 0}, {0, 0}), {0.5}},
           MeetingCase{"line within", lineCurve({-1, 0}, {1, 1}), {}},
           MeetingCase{"line that touches", lineCurve({-4, 2}, {4, 2}), {0.5}},
           MeetingCase{"line that passes", lineCurve({-4, 2.001}, {4, 2.001}), {}},
           MeetingCase{"line of no length", lineCurve({2, 0}, {2, 0}), {}},
           MeetingCase{"arc across", besideIt, {2.0 / 3}},
           MeetingCase{"arc of its own", arcBetween(2, 0, 1), {}},
           MeetingCase{"arc about the same centre", arcBetween(1, 0, 1), {}},
           MeetingCase{"arc that touches", around, {0.5}},
           MeetingCase{"arc that stays away", arcCurve({9, 0}, {5, 0}, {7, 0}, 1), {}},
       }) {
    expectShares(sharesOnCircle(c.curve, {0, 0}, 2), c);
  }
}

TEST(Curve, RectangleRowIsFourLinesInOneSense) {
  const std::vector<Curve> curves = curvesOf({kRectangle, {4, 3}, {1, 1}, {}});
  ASSERT_EQ(curves.size(), 4U);
  EXPECT_EQ(curves[0], lineCurve({4, 3}, {1, 3}));
  EXPECT_EQ(curves[1], lineCurve({1, 3}, {1, 1}));
  EXPECT_EQ(curves[2], lineCurve({1, 1}, {4, 1}));
  EXPECT_EQ(curves[3], lineCurve({4, 1}, {4, 3}));
}

TEST(Curve, FlatRectangleRowIsTwoLines) {
  EXPECT_EQ(curvesOf({kRectangle, {1, 1}, {4, 1}, {}}).size(), 2U);
}

TEST(Curve, RowsWithoutLengthGiveNothing) {
  EXPECT_TRUE(curvesOf({kLine, {1, 1}, {1, 1}, {}}).empty());
  EXPECT_TRUE(curvesOf({kCircle, {1, 1}, {1, 1}, {1, 1}}).empty());
  EXPECT_TRUE(curvesOf({kClockwiseArc, {1, 1}, {2, 1}, {1, 1}}).empty());
  EXPECT_TRUE(curvesOf({kPoint, {1, 1}, {2, 2}, {}}).empty());
  EXPECT_TRUE(curvesOf({81, {1, 1}, {1, 1}, {0.1F, 0}}).empty());
}

// The end of this arc lies off the circle of its start, and its chord is short: halved first, it
// keeps to its circle.
TEST(Curve, LongArcWithRoundedEndsKeepsToItsCircle) {
  const Entity row{kCounterClockwiseArc, {1, 0}, {1.00001F, -0.01F}, {0, 0}};
  const std::vector<Curve> curves = curvesOf(row);
  ASSERT_EQ(curves.size(), 2U);
  for (const Curve& curve : curves) {
    for (const double share : {0.1, 0.5, 0.9}) {
      EXPECT_NEAR(lengthOf(pointAt(curve, share)), 1, 1e-4);
    }
  }
}

}  // namespace
}  // namespace tess::testing
