// Circles from points, and the four ways a line meets a circle.
#include "geometry/circles.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::kTolerence;

constexpr PointPair kUntouched{{-7, -7}, {-7, -7}};

void expectNear(Point actual, Point expected, double tolerance = 1e-5) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

TEST(CircleFrom3Points, FindsTheCentre) {
  Point center;
  EXPECT_TRUE(circleFrom3Points({5, 2}, {2, 5}, {-1, 2}, kTolerence, center));
  expectNear(center, {2, 2});
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
    Point center{-7, -7};
    EXPECT_FALSE(circleFrom3Points(c.p1, c.p2, c.p3, kTolerence, center));
    EXPECT_EQ(center, (Point{-7, -7}));
  }
}

TEST(CircleFrom3Points, TwoIdenticalPointsGiveAVerySteepBisector) {
  // The null chord from (0,0) to (0,0) has the bisector y = -1e6*x; that of (4,4)-(0,0) is
  // y = 4 - x. They meet next to the y axis.
  Point center;
  EXPECT_TRUE(circleFrom3Points({0, 0}, {4, 4}, {0, 0}, kTolerence, center));
  expectNear(center, {-4e-6F, 4}, 1e-5);
}

TEST(CircleFrom3Points, WithoutAToleranceEqualSlopesFailLoudly) {
  Point center;
  EXPECT_THROW(circleFrom3Points({0, 0}, {1, 1}, {3, 3}, /*tolerence=*/0, center), RuntimeFailure);
}

TEST(PerpBisector, ExchangesThePointsWhenTheFirstIsFarther) {
  Point p1{4, 2};
  Point p2{0, 0};
  const Bisector line = perpBisector(p1, p2);
  EXPECT_EQ(p1, (Point{0, 0}));
  EXPECT_EQ(p2, (Point{4, 2}));
  EXPECT_EQ(line.slope, -2);
  EXPECT_EQ(line.intercept, 5);
}

TEST(PerpBisector, VerticalAndHorizontalChordsUseTheStandIn) {
  Point a{1, 0};
  Point b{1, 2};
  EXPECT_DOUBLE_EQ(perpBisector(a, b).slope, -1e-6 / 2);
  Point c{0, 1};
  Point d{2, 1};
  EXPECT_DOUBLE_EQ(perpBisector(c, d).slope, -1e6);
}

TEST(CentersFromChord, EqualYPutsTheCentresAboveAndBelow) {
  PointPair centers;
  EXPECT_TRUE(centersFromChord({0, 1}, {6, 1}, 5, centers));
  EXPECT_EQ(centers, (PointPair{{3, 5}, {3, -3}}));
}

TEST(CentersFromChord, EqualXPutsTheCentresRightAndLeft) {
  PointPair centers;
  EXPECT_TRUE(centersFromChord({1, 0}, {1, 6}, 5, centers));
  EXPECT_EQ(centers, (PointPair{{5, 3}, {-3, 3}}));
}

TEST(CentersFromChord, ASlantedChordUsesItsBisector) {
  PointPair centers;
  EXPECT_TRUE(centersFromChord({0, 0}, {2, 2}, 2, centers));
  expectNear(centers.first, {2, 0});
  expectNear(centers.second, {0, 2});
}

TEST(CentersFromChord, IdenticalPointsEndAsAVerticalChord) {
  PointPair centers;
  EXPECT_TRUE(centersFromChord({1, 2}, {1, 2}, 3, centers));
  EXPECT_EQ(centers, (PointPair{{4, 2}, {-2, 2}}));
}

TEST(CentersFromChord, HalfTheChordIsTheMidpointTwice) {
  PointPair centers;
  EXPECT_TRUE(centersFromChord({0, 1}, {2, 1}, 1, centers));
  EXPECT_EQ(centers, (PointPair{{1, 1}, {1, 1}}));
  EXPECT_TRUE(centersFromChord({1, 0}, {1, 2}, 1, centers));
  EXPECT_EQ(centers, (PointPair{{1, 1}, {1, 1}}));
  EXPECT_TRUE(centersFromChord({0, 0}, {6, 8}, 5, centers));
  expectNear(centers.first, {3, 4}, 1e-3);
  expectNear(centers.second, {3, 4}, 1e-3);
}

TEST(CentersFromChord, AClearlySmallerRadiusFails) {
  for (const Point end : {Point{2, 0}, Point{0, 2}, Point{1.6F, 1.2F}}) {
    PointPair centers = kUntouched;
    EXPECT_FALSE(centersFromChord({0, 0}, end, 0.9F, centers));
    EXPECT_EQ(centers, kUntouched);
  }
}

TEST(CentersFromChord, ARadiusSmallerByRoundingAloneIsTheMidpoint) {
  // The discriminant is -0.0002 and -0.0004, which round to 0.000; -0.0006 does not.
  PointPair centers;
  EXPECT_TRUE(centersFromChord({0, 0}, {2, 0}, 0.9999F, centers));
  EXPECT_EQ(centers, (PointPair{{1, 0}, {1, 0}}));
  EXPECT_TRUE(centersFromChord({0, 0}, {0, 2}, 0.9998F, centers));
  EXPECT_EQ(centers, (PointPair{{0, 1}, {0, 1}}));
  EXPECT_FALSE(centersFromChord({0, 0}, {2, 0}, 0.9997F, centers));
  EXPECT_TRUE(centersFromChord({0, 0}, {1.6F, 1.2F}, 0.99999F, centers));
  expectNear(centers.first, {0.8F, 0.6F});
  EXPECT_EQ(centers.first, centers.second);
}

const Circle kUnit{{0, 0}, 1};

struct LineCase {
  const char* name;
  Point through;
  double slope;
  int code;
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
    PointPair hits = kUntouched;
    EXPECT_EQ(lineCircle(c.through, c.slope, kUnit, kTolerence, hits), c.code);
    if (c.code < 1) {
      EXPECT_EQ(hits, kUntouched);
    } else {
      expectNear(hits.first, c.first, 1e-6);
      expectNear(hits.second, c.second, 1e-6);
    }
  }
}

TEST(LineCircle, ASlopedTangentIsExactWithoutTolerance) {
  // The line y = x + 2 touches the circle of radius sqrt(2) about (0, 0): with the centre at
  // (2, 0) and the line 3*y = 4*x all numbers are exact.
  PointPair hits;
  const Circle circle{{5, 0}, 4};
  EXPECT_EQ(lineCircle({0, 0}, 0.75, {{5, 0}, 3}, kTolerence, hits), kTangent);
  EXPECT_EQ(hits.first, hits.second);
  expectNear(hits.first, {3.2F, 2.4F}, 1e-6);
  EXPECT_EQ(lineCircle({0, 0}, 0.7500001, {{5, 0}, 3}, kTolerence, hits), kNoHit);
  EXPECT_EQ(lineCircle({0, 0}, 0.75, circle, kTolerence, hits), kTwoHits);
}

TEST(LineCircle, ARadiusMustBePositive) {
  PointPair hits = kUntouched;
  float a = -7;
  float b = -7;
  for (const float radius : {0.0F, -1.0F}) {
    const Circle none{{0, 0}, radius};
    EXPECT_EQ(lineCircle({0, 0}, 1, none, kTolerence, hits), kNoRadius);
    EXPECT_EQ(slopeLineCircle(1, 0, none, kTolerence, hits), kNoRadius);
    EXPECT_EQ(horizontalCircle(0, none, kTolerence, a, b), kNoRadius);
    EXPECT_EQ(verticalCircle(0, none, kTolerence, a, b), kNoRadius);
  }
  EXPECT_EQ(hits, kUntouched);
  EXPECT_EQ(a, -7.0F);
  EXPECT_EQ(b, -7.0F);
}

TEST(HorizontalCircle, MeasuresTheToleranceAsADistance) {
  float a = 0;
  float b = 0;
  EXPECT_EQ(horizontalCircle(1.0009F, kUnit, kTolerence, a, b), kTangent);
  EXPECT_EQ(a, 0.0F);
  EXPECT_EQ(b, 0.0F);
  EXPECT_EQ(horizontalCircle(-1.0011F, kUnit, kTolerence, a, b), kNoHit);
  EXPECT_EQ(horizontalCircle(-0.6, kUnit, kTolerence, a, b), kTwoHits);
  EXPECT_EQ(a, 0.8F);
  EXPECT_EQ(b, -0.8F);
}

TEST(VerticalCircle, MeasuresTheToleranceAsASquare) {
  float a = 0;
  float b = 0;
  // 1.0004^2 is 1.0008, within; 1.0006^2 is 1.0012, beyond.
  EXPECT_EQ(verticalCircle(1.0004F, kUnit, kTolerence, a, b), kTangent);
  EXPECT_EQ(a, 0.0F);
  EXPECT_EQ(b, 0.0F);
  EXPECT_EQ(verticalCircle(1.0006F, kUnit, kTolerence, a, b), kNoHit);
  EXPECT_EQ(verticalCircle(-0.6, kUnit, kTolerence, a, b), kTwoHits);
  EXPECT_EQ(a, 0.8F);
  EXPECT_EQ(b, -0.8F);
}

TEST(SlopeLineCircle, EveryCodeOfEveryBranch) {
  const float d = 0.70710678F;
  PointPair hits = kUntouched;
  EXPECT_EQ(slopeLineCircle(1, 9, kUnit, kTolerence, hits), kNoHit);
  EXPECT_EQ(slopeLineCircle(0, 1.5, kUnit, kTolerence, hits), kNoHit);
  EXPECT_EQ(slopeLineCircle(1e6, 4e6, kUnit, kTolerence, hits), kNoHit);
  EXPECT_EQ(hits, kUntouched);
  EXPECT_EQ(slopeLineCircle(1, 0, kUnit, kTolerence, hits), kTwoHits);
  expectNear(hits.first, {d, d}, 1e-6);
  expectNear(hits.second, {-d, -d}, 1e-6);
  EXPECT_EQ(slopeLineCircle(0, 0.6F, kUnit, kTolerence, hits), kTwoHits);
  expectNear(hits.second, {-0.8F, 0.6F}, 1e-6);
  EXPECT_EQ(slopeLineCircle(0, 1, kUnit, kTolerence, hits), kTangent);
  EXPECT_EQ(hits.first, (Point{0, 1}));
}

TEST(SlopeLineCircle, ASteepLineHalvesItsIntercept) {
  PointPair hits;
  EXPECT_EQ(slopeLineCircle(-1e6, 1.2e6, kUnit, kTolerence, hits), kTwoHits);
  expectNear(hits.first, {0.6F, 0.8F}, 1e-6);
  expectNear(hits.second, {0.6F, -0.8F}, 1e-6);
  EXPECT_EQ(slopeLineCircle(-1e6, 2e6, kUnit, kTolerence, hits), kTangent);
  EXPECT_EQ(hits.first, (Point{1, 0}));
}

TEST(SlopeLineCircle, TwoEqualHitsAreATangent) {
  // The discriminant is above 0, but in 32 bits both points are one.
  const Circle far{{1e6F, 1e6F}, 0.01F};
  PointPair hits;
  EXPECT_EQ(slopeLineCircle(1, 0, far, kTolerence, hits), kTangent);
  EXPECT_EQ(hits.first, hits.second);
}

TEST(SlopeLineCircle, AnExactTangentCountsOnce) {
  PointPair hits;
  EXPECT_EQ(slopeLineCircle(0.75, 0, {{5, 0}, 3}, kTolerence, hits), kTangent);
  expectNear(hits.first, {3.2F, 2.4F}, 1e-6);
}

float drawnNumber(int low, int high) {
  return static_cast<float>(*rc::gen::inRange(low, high)) / 16;
}

RC_GTEST_PROP(CirclesProperty, HitsLieOnTheCircleAndOnTheLine, ()) {
  const Circle circle{{drawnNumber(-500, 500), drawnNumber(-500, 500)}, drawnNumber(1, 500)};
  const double slope = drawnNumber(-500, 500);
  const Point through{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  PointPair hits;
  const int code = lineCircle(through, slope, circle, kTolerence, hits);
  RC_PRE(code == kTwoHits);
  for (const Point hit : {hits.first, hits.second}) {
    RC_ASSERT(std::abs(distance(hit, circle.center) - circle.radius) < 2e-3F);
    const double off = (hit.y - through.y) - slope * (hit.x - through.x);
    RC_ASSERT(std::abs(off) / std::sqrt(1 + slope * slope) < 1e-3);
  }
}

RC_GTEST_PROP(CirclesProperty, CentresAreARadiusFromBothPoints, ()) {
  const Point p1{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const Point p2{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  const float radius = distance(p1, p2) / 2 + drawnNumber(1, 500);
  PointPair centers;
  RC_ASSERT(centersFromChord(p1, p2, radius, centers));
  for (const Point center : {centers.first, centers.second}) {
    RC_ASSERT(std::abs(distance(center, p1) - radius) < 1e-2F);
    RC_ASSERT(std::abs(distance(center, p2) - radius) < 1e-2F);
  }
}

RC_GTEST_PROP(CirclesProperty, TheBisectorDoesNotDependOnTheOrder, ()) {
  Point a{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  Point b{drawnNumber(-500, 500), drawnNumber(-500, 500)};
  RC_PRE(distance({}, a) != distance({}, b));
  Point c = b;
  Point d = a;
  const Bisector one = perpBisector(a, b);
  const Bisector other = perpBisector(c, d);
  RC_ASSERT(one.slope == other.slope);
  RC_ASSERT(one.intercept == other.intercept);
  RC_ASSERT(a == c && b == d);
}

}  // namespace
}  // namespace tess
