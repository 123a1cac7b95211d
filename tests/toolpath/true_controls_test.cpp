// What the parts of true paths are there for: without each of them some pocket is spoilt, and the
// sweep sees it.
#include <algorithm>
#include <vector>

#include "gtest/gtest.h"

#include "tests/toolpath/region_checks.h"
#include "toolpath/true_lines.h"
#include "toolpath/true_rings.h"

namespace tess {
namespace {

using namespace tess::testing;
using ToolPath = std::vector<testing::Curve>;

constexpr int kPockets = 60;
constexpr int kCells = 6;  // of the raster, per tool radius

// A pocket with where its tool may go.
struct Field {
  explicit Field(int number)
      : pocket(pocketOf(number)),
        radius(pocket.toolRadius),
        region(regionOfPocket(pocket)),
        offset(fittedOffset(region, radius).region),
        way(region, {radius, radius, false}) {}

  ToolPath path() const {
    ToolPath path;
    for (const auto& run : way.runs()) {
      for (const tess::Curve& curve : run) path.push_back(checkerCurve(curve));
    }
    return path;
  }
  bool leavesSome() const {
    const Coverage coverage = ReachableArea(pocket.part, radius, kCells).coverageOf(path());
    return coverage.share < 0.999 && coverage.rest > 5e-5;
  }

  TestPocket pocket;
  double radius;
  PocketRegion region, offset;
  RoomWay way;
};

int spoiltByLines(bool contours) {
  int spoilt = 0;
  for (int number = 0; number < kPockets; ++number) {
    Field field(number);
    const LineRules rules{ScanStyle::Horizontal, CuttingMode::Bidirectional, field.radius,
                          contours};
    cutLines(field.offset, rules, field.way);
    spoilt += field.leavesSome() ? 1 : 0;
  }
  return spoilt;
}

int spoiltByRings(bool fillsBetween) {
  int spoilt = 0;
  for (int number = 0; number < kPockets; ++number) {
    Field field(number);
    cutRings(field.offset, {field.radius, 2 * field.radius, false, {}, fillsBetween}, field.way);
    spoilt += field.leavesSome() ? 1 : 0;
  }
  return spoilt;
}

TEST(TruePathsNeed, ThePassAlongTheWalls) {
  EXPECT_EQ(spoiltByLines(/*contours=*/true), 0);
  EXPECT_GT(spoiltByLines(/*contours=*/false), kPockets / 20);
}

TEST(TruePathsNeed, WhatLiesBetweenTwoRings) {
  EXPECT_EQ(spoiltByRings(/*fillsBetween=*/true), 0);
  EXPECT_GT(spoiltByRings(/*fillsBetween=*/false), kPockets / 20);
}

TEST(TruePathsNeed, LinksThatAreTested) {
  int untested = 0;
  int tested = 0;
  for (int number = 0; number < kPockets; ++number) {
    Field field(number);
    RoomWay linked(field.region, {field.radius, field.radius, true});
    const LineRules rules{ScanStyle::Horizontal, CuttingMode::Conventional, field.radius, true};
    cutLines(field.offset, rules, field.way);
    cutLines(field.offset, rules, linked);
    ToolPath path = field.path();
    const auto& runs = field.way.runs();
    for (std::size_t k = 1; k < runs.size(); ++k) {
      path.push_back(checkerCurve(tess::lineCurve(runs[k - 1].back().end, runs[k].front().start)));
    }
    if (path.empty()) continue;
    untested += deepestGouge(field.pocket.part, path, field.radius).depth > 1e-4 ? 1 : 0;
    field.way = linked;
    tested += deepestGouge(field.pocket.part, field.path(), field.radius).depth > 1e-4 ? 1 : 0;
  }
  EXPECT_GT(untested, kPockets / 20);
  EXPECT_EQ(tested, 0);
}

}  // namespace
}  // namespace tess
