// What can be seen of an arc is the same whether all of it is looked at or only what is near.
#include "shell/qt/stepped_arc.h"

#include <cmath>
#include <random>

#include "gtest/gtest.h"

#include "geometry/float_constants.h"

namespace tess {
namespace {

const QRectF kPicture(-16, -16, 1032, 832);

// Step by step.
std::vector<QPolygonF> plainRuns(const QPolygonF& points, const QRectF& bounds) {
  std::vector<QPolygonF> runs;
  bool inRun = false;
  for (qsizetype at = 1; at < points.size(); ++at) {
    const bool visible = clipped({points[at - 1], points[at]}, bounds).has_value();
    if (visible && !inRun) runs.emplace_back(QPolygonF{points[at - 1]});
    if (visible) runs.back() << points[at];
    inRun = visible;
  }
  return runs;
}

TEST(SteppedArc, WhatIsVisibleIsTheSameAsStepByStep) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> exponent(0, 7);
  std::uniform_real_distribution<double> angle(0, kTwoPi);
  std::uniform_real_distribution<double> place(-200, 1200);
  int seen = 0;
  int cut = 0;
  for (int round = 0; round < 400; ++round) {
    const double radius = std::pow(10.0, exponent(random));
    const double towards = angle(random);
    const QPointF on(place(random), place(random));
    const QPointF center = on - radius * QPointF(std::cos(towards), -std::sin(towards));
    const double flat = round % 3 == 0 ? 0.3 : 1;
    const SteppedArc arc(center, {radius, flat * radius}, angle(random), angle(random));
    const std::vector<QPolygonF> plain = plainRuns(allPoints(arc), kPicture);
    EXPECT_EQ(visibleRuns(arc, kPicture), plain) << round;
    if (!plain.empty()) ++seen;
    if (!plain.empty() && plain.front().size() <= arc.steps()) ++cut;
  }
  EXPECT_GT(seen, 100);
  EXPECT_GT(cut, 50);
}

TEST(SteppedArc, ALargeCircleCostsWhatIsSeenOfIt) {
  const double radius = 1e8;
  int points = 0;
  const SteppedArc circle({500 - radius, 400}, {radius, radius}, 1, kTwoPi);
  EXPECT_EQ(circle.steps(), 20000);
  EXPECT_EQ(visibleRuns(circle, kPicture, &points).size(), 1U);
  EXPECT_LT(points, 400);
  const SteppedArc elsewhere({500 - radius, 400 - radius}, {radius, radius}, 0, kTwoPi);
  EXPECT_EQ(visibleRuns(elsewhere, kPicture, &points).size(), 0U);
  EXPECT_LT(points, 400);
}

}  // namespace
}  // namespace tess
