// Circles from points, and the four ways a line meets a circle.
#include "geometry/float_circles.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::kTolerence;

void expectNear(Point actual, Point expected, double tolerance = 1e-5) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

TEST(CircleFrom3Points, FindsTheCenter) {
  expectNear(circleFrom3Points({5, 2}, {2, 5}, {-1, 2}, kTolerence).value(), {2, 2});
}

TEST(CircleFrom3Points, ThreePointsOfALineAreRefused) {
  const struct {
    const char* name;
    Point p1, p2, p3;
  } cases[] = {
      {"vertical", {1, 0}, {1, 1}, {1, 3}},
      {"horizontal", {0, 1}, {1, 1}, {3, 1}},
      {"slanted", {0, 0}, {1, 1}, {3, 3}},
      {"all one point", {2, 2}, {2, 2}, {2, 2}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(circleFrom3Points(c.p1, c.p2, c.p3, kTolerence));
  }
}

TEST(CircleFrom3Points, TwoIdenticalPointsGiveAVerySteepBisector) {
  // The null chord from (0,0) to (0,0) has the bisector y = -1e6*x; that of (4,4)-(0,0) is
  // y = 4 - x. They meet next to the y axis.
  expectNear(circleFrom3Points({0, 0}, {4, 4}, {0, 0}, kTolerence).value(), {-4e-6F, 4}, 1e-5);
}

TEST(CircleFrom3Points, WithoutAToleranceEqualSlopesFailLoudly) {
  EXPECT_THROW(circleFrom3Points({0, 0}, {1, 1}, {3, 3}, /*tolerence=*/0), RuntimeFailure);
}

TEST(PerpBisector, ExchangesThePointsWhenTheFirstIsFarther) {
  const Bisector line = perpBisector({4, 2}, {0, 0});
  EXPECT_EQ(line.points, (PointPair{{0, 0}, {4, 2}}));
  EXPECT_EQ(line.slope, -2);
  EXPECT_EQ(line.intercept, 5);
}

TEST(PerpBisector, VerticalAndHorizontalChordsUseTheStandIn) {
  EXPECT_DOUBLE_EQ(perpBisector({1, 0}, {1, 2}).slope, -1e-6 / 2);
  EXPECT_DOUBLE_EQ(perpBisector({0, 1}, {2, 1}).slope, -1e6);
}

TEST(CentersFromChord, EqualYPutsTheCentersAboveAndBelow) {
  EXPECT_EQ(centersFromChord({0, 1}, {6, 1}, 5), (PointPair{{3, 5}, {3, -3}}));
}

TEST(CentersFromChord, EqualXPutsTheCentersRightAndLeft) {
  EXPECT_EQ(centersFromChord({1, 0}, {1, 6}, 5), (PointPair{{5, 3}, {-3, 3}}));
}

TEST(CentersFromChord, ASlantedChordUsesItsBisector) {
  const PointPair centers = centersFromChord({0, 0}, {2, 2}, 2).value();
  expectNear(centers.first, {2, 0});
  expectNear(centers.second, {0, 2});
}

TEST(CentersFromChord, IdenticalPointsEndAsAVerticalChord) {
  EXPECT_EQ(centersFromChord({1, 2}, {1, 2}, 3), (PointPair{{4, 2}, {-2, 2}}));
}

TEST(CentersFromChord, HalfTheChordIsTheMidpointTwice) {
  EXPECT_EQ(centersFromChord({0, 1}, {2, 1}, 1), (PointPair{{1, 1}, {1, 1}}));
  EXPECT_EQ(centersFromChord({1, 0}, {1, 2}, 1), (PointPair{{1, 1}, {1, 1}}));
  const PointPair centers = centersFromChord({0, 0}, {6, 8}, 5).value();
  expectNear(centers.first, {3, 4}, 1e-3);
  expectNear(centers.second, {3, 4}, 1e-3);
}

TEST(CentersFromChord, AClearlySmallerRadiusFails) {
  for (const Point end : {Point{2, 0}, Point{0, 2}, Point{1.6F, 1.2F}}) {
    EXPECT_FALSE(centersFromChord({0, 0}, end, 0.9F));
  }
}

TEST(CentersFromChord, ARadiusSmallerByRoundingAloneIsTheMidpoint) {
  // The discriminant is -0.0002 and -0.0004, which round to 0.000; -0.0006 does not.
  EXPECT_EQ(centersFromChord({0, 0}, {2, 0}, 0.9999F), (PointPair{{1, 0}, {1, 0}}));
  EXPECT_EQ(centersFromChord({0, 0}, {0, 2}, 0.9998F), (PointPair{{0, 1}, {0, 1}}));
  EXPECT_FALSE(centersFromChord({0, 0}, {2, 0}, 0.9997F));
  const PointPair centers = centersFromChord({0, 0}, {1.6F, 1.2F}, 0.99999F).value();
  expectNear(centers.first, {0.8F, 0.6F});
  EXPECT_EQ(centers.first, centers.second);
}

const Circle kUnit{{0, 0}, 1};

// What a line may do to a circle, and a name for each in the tables.
struct Meeting {
  Miss miss;
  bool tangent;
  friend bool operator==(Meeting, Meeting) = default;
};
constexpr Meeting kTwoHits{Miss::None, false};
constexpr Meeting kTangent{Miss::None, true};
constexpr Meeting kNoRadius{Miss::NoRadius, false};
constexpr Meeting kNoHit{Miss::NoHit, false};

template <typename Hits>
Meeting meetingOf(const Hits& hits) {
  return {hits.miss, hits.tangent};
}

struct LineCase {
  const char* name;
  Point through;
  double slope;
  Meeting meeting;
  Point first, second;
};

TEST(LineCircle, EveryCodeOfEveryBranch) {
  const float d = 0.70710678F;
  const LineCase cases[] = {
      {"sloped, two hits", {0, 0}, 1, kTwoHits, {d, d}, {-d, -d}},
      {"sloped, none", {0, 5}, 1, kNoHit, {}, {}},
      {"flat, two hits", {9, 0.6F}, 0, kTwoHits, {0.8F, 0.6F}, {-0.8F, 0.6F}},
      {"flat, tangent", {9, 1}, 0, kTangent, {0, 1}, {0, 1}},
      {"flat, tangent by tolerance", {9, 1.0005F}, 0, kTangent, {0, 1.0005F}, {0, 1.0005F}},
      {"flat, none", {9, 1.01F}, 0, kNoHit, {}, {}},
      {"almost flat", {9, 0.6F}, 0.9e-5, kTwoHits, {0.8F, 0.6F}, {-0.8F, 0.6F}},
      {"steep, two hits", {0.6F, 9}, 1e6, kTwoHits, {0.6F, 0.8F}, {0.6F, -0.8F}},
      {"steep downward", {0.6F, 9}, -1e6, kTwoHits, {0.6F, 0.8F}, {0.6F, -0.8F}},
      {"steep, tangent", {1, 9}, 1e6, kTangent, {1, 0}, {1, 0}},
      {"steep, tangent by tolerance", {1.0004F, 9}, 1e6, kTangent, {1.0004F, 0}, {1.0004F, 0}},
      {"steep, none", {1.001F, 9}, 1e6, kNoHit, {}, {}},
  };
  for (const LineCase& c : cases) {
    SCOPED_TRACE(c.name);
    const CircleHits hits = lineCircle(c.through, c.slope, kUnit, kTolerence);
    EXPECT_EQ(meetingOf(hits), c.meeting);
    EXPECT_EQ(static_cast<bool>(hits), c.meeting.miss == Miss::None);
    expectNear(hits.at.first, c.first, 1e-6);
    expectNear(hits.at.second, c.second, 1e-6);
  }
}

TEST(LineCircle, ASlopedTangentIsExactWithoutTolerance) {
  // The line y = x + 2 touches the circle of radius sqrt(2) about (0, 0): with the centre at
  // (2, 0) and the line 3*y = 4*x all numbers are exact.
  const CircleHits hits = lineCircle({0, 0}, 0.75, {{5, 0}, 3}, kTolerence);
  EXPECT_EQ(meetingOf(hits), kTangent);
  EXPECT_EQ(hits.at.first, hits.at.second);
  expectNear(hits.at.first, {3.2F, 2.4F}, 1e-6);
  EXPECT_EQ(meetingOf(lineCircle({0, 0}, 0.7500001, {{5, 0}, 3}, kTolerence)), kNoHit);
  EXPECT_EQ(meetingOf(lineCircle({0, 0}, 0.75, {{5, 0}, 4}, kTolerence)), kTwoHits);
}

TEST(LineCircle, ARadiusMustBePositive) {
  for (const float radius : {0.0F, -1.0F}) {
    const Circle none{{0, 0}, radius};
    for (const CircleHits& hits :
         {lineCircle({0, 0}, 1, none, kTolerence), slopeLineCircle(1, 0, none, kTolerence)}) {
      EXPECT_EQ(meetingOf(hits), kNoRadius);
      EXPECT_EQ(hits.at, PointPair{});
    }
    for (const AxisHits& hits :
         {horizontalCircle(0, none, kTolerence), verticalCircle(0, none, kTolerence)}) {
      EXPECT_EQ(meetingOf(hits), kNoRadius);
      EXPECT_EQ(hits.first, 0.0F);
      EXPECT_EQ(hits.second, 0.0F);
    }
  }
}

void expectHits(const AxisHits& hits, Meeting meeting, float first, float second) {
  EXPECT_EQ(meetingOf(hits), meeting);
  EXPECT_EQ(hits.first, first);
  EXPECT_EQ(hits.second, second);
}

TEST(HorizontalCircle, MeasuresTheToleranceAsADistance) {
  expectHits(horizontalCircle(1.0009F, kUnit, kTolerence), kTangent, 0, 0);
  expectHits(horizontalCircle(-1.0011F, kUnit, kTolerence), kNoHit, 0, 0);
  expectHits(horizontalCircle(-0.6, kUnit, kTolerence), kTwoHits, 0.8F, -0.8F);
}

TEST(VerticalCircle, MeasuresTheToleranceAsASquare) {
  // 1.0004^2 is 1.0008, within; 1.0006^2 is 1.0012, beyond.
  expectHits(verticalCircle(1.0004F, kUnit, kTolerence), kTangent, 0, 0);
  expectHits(verticalCircle(1.0006F, kUnit, kTolerence), kNoHit, 0, 0);
  expectHits(verticalCircle(-0.6, kUnit, kTolerence), kTwoHits, 0.8F, -0.8F);
}

void expectHits(const CircleHits& hits, Meeting meeting, Point first, Point second) {
  EXPECT_EQ(meetingOf(hits), meeting);
  expectNear(hits.at.first, first, 1e-6);
  expectNear(hits.at.second, second, 1e-6);
}

TEST(SlopeLineCircle, EveryCodeOfEveryBranch) {
  const float d = 0.70710678F;
  expectHits(slopeLineCircle(1, 9, kUnit, kTolerence), kNoHit, {}, {});
  expectHits(slopeLineCircle(0, 1.5, kUnit, kTolerence), kNoHit, {}, {});
  expectHits(slopeLineCircle(1e6, 4e6, kUnit, kTolerence), kNoHit, {}, {});
  expectHits(slopeLineCircle(1, 0, kUnit, kTolerence), kTwoHits, {d, d}, {-d, -d});
  expectHits(slopeLineCircle(0, 0.6F, kUnit, kTolerence), kTwoHits, {0.8F, 0.6F}, {-0.8F, 0.6F});
  expectHits(slopeLineCircle(0, 1, kUnit, kTolerence), kTangent, {0, 1}, {0, 1});
}

TEST(SlopeLineCircle, ASteepLineHalvesItsIntercept) {
  const CircleHits hits = slopeLineCircle(-1e6, 1.2e6, kUnit, kTolerence);
  expectHits(hits, kTwoHits, {0.6F, 0.8F}, {0.6F, -0.8F});
  expectHits(slopeLineCircle(-1e6, 2e6, kUnit, kTolerence), kTangent, {1, 0}, {1, 0});
}

TEST(SlopeLineCircle, TwoEqualHitsAreATangent) {
  // The discriminant is above 0, but in 32 bits both points are one.
  const Circle far{{1e6F, 1e6F}, 0.01F};
  const CircleHits hits = slopeLineCircle(1, 0, far, kTolerence);
  EXPECT_EQ(meetingOf(hits), kTangent);
  EXPECT_EQ(hits.at.first, hits.at.second);
}

TEST(SlopeLineCircle, AnExactTangentCountsOnce) {
  expectHits(slopeLineCircle(0.75, 0, {{5, 0}, 3}, kTolerence), kTangent, {3.2F, 2.4F},
             {3.2F, 2.4F});
}

float drawnNumber(int low, int high) {
  return static_cast<float>(*rc::gen::inRange(low, high)) / 16;
}

RC_GTEST_PROP(CirclesProperty, HitsLieOnTheCircleAndOnTheLine, ()) {
  const Circle circle{{drawnNumber(-500, 500), drawnNumber(-500, 500)}, drawnNumber(1, 500)};
  const double slope = drawnNumber(-500, 500);
  const Point through{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const CircleHits hits = lineCircle(through, slope, circle, kTolerence);
  RC_PRE(hits && !hits.tangent);
  for (const Point hit : {hits.at.first, hits.at.second}) {
    RC_ASSERT(std::abs(distance(hit, circle.center) - circle.radius) < 2e-3F);
    const double off = (hit.y - through.y) - slope * (hit.x - through.x);
    RC_ASSERT(std::abs(off) / std::sqrt(1 + slope * slope) < 1e-3);
  }
}

RC_GTEST_PROP(CirclesProperty, CentersAreARadiusFromBothPoints, ()) {
  const Point p1{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const Point p2{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const float radius = distance(p1, p2) / 2 + drawnNumber(1, 500);
  const auto centers = centersFromChord(p1, p2, radius);
  RC_ASSERT(centers.has_value());
  for (const Point center : {centers->first, centers->second}) {
    RC_ASSERT(std::abs(distance(center, p1) - radius) < 1e-2F);
    RC_ASSERT(std::abs(distance(center, p2) - radius) < 1e-2F);
  }
}

RC_GTEST_PROP(CirclesProperty, TheBisectorDoesNotDependOnTheOrder, ()) {
  const Point a{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const Point b{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  RC_PRE(distance({}, a) != distance({}, b));
  const Bisector one = perpBisector(a, b);
  const Bisector other = perpBisector(b, a);
  RC_ASSERT(one.slope == other.slope);
  RC_ASSERT(one.intercept == other.intercept);
  RC_ASSERT(one.points == other.points);
}

}  // namespace
}  // namespace tess
