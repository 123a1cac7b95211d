// Offsets of regions: every place is right, on pockets of all kinds, and identities that must hold.
#include "toolpath/region_offset.h"

#include <cmath>
#include <functional>

#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"

namespace tess {
namespace {

using namespace tess::testing;

TEST(OffsetOfARegion, IsTheDistanceFromTheNearestWallEverywhere) {
  int loops = 0;
  for (int number = 0; number < 600; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion region = regionOfPocket(pocket);
    ASSERT_EQ(region.loops().size(), 1 + pocket.islands.size());
    for (const double factor : {0.3, 1.0, 1.7}) {
      const double distance = factor * pocket.toolRadius;
      const RegionOffset offset = fittedOffset(region, distance);
      EXPECT_TRUE(offset.lost.empty());
      expectTrueOffset(pocket.part, offset.region, distance, 0.0000201);
      loops += static_cast<int>(offset.region.loops().size());
    }
    if (::testing::Test::HasFailure()) break;
  }
  EXPECT_GT(loops, 600);
}

TEST(OffsetOfARegion, InTwoStepsIsTheOffsetInOne) {
  for (int number = 0; number < 150; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion region = regionOfPocket(pocket);
    const double a = 0.4 * pocket.toolRadius;
    const double b = 0.8 * pocket.toolRadius;
    const PocketRegion inSteps = offsetRegion(offsetRegion(region, a).region, b).region;
    const PocketRegion atOnce = offsetRegion(region, a + b).region;
    EXPECT_NEAR(inSteps.area(), atOnce.area(), 1e-7);
    EXPECT_EQ(inSteps.loops().size(), atOnce.loops().size());
  }
}

// All rows of a pocket.
std::vector<Entity> rowsOf(const TestPocket& pocket) {
  std::vector<Entity> rows = entitiesOf(pocket.outline);
  for (const auto& island : pocket.islands) {
    const std::vector<Entity> more = entitiesOf(island);
    rows.insert(rows.end(), more.begin(), more.end());
  }
  return rows;
}

double offsetArea(const std::vector<Entity>& rows, double distance) {
  return offsetRegion(regionOf(rows, kTestTolerence).region, distance).region.area();
}

Point moved(Point p, const std::function<PlanePoint(PlanePoint)>& move) {
  const PlanePoint at = move({p.x, p.y});
  return {static_cast<float>(at.x), static_cast<float>(at.y)};
}

std::vector<Entity> moved(std::vector<Entity> rows,
                          const std::function<PlanePoint(PlanePoint)>& move) {
  for (Entity& row : rows) {
    row.start = moved(row.start, move);
    row.end = moved(row.end, move);
    row.center = moved(row.center, move);
  }
  return rows;
}

// Lines in two; a line's middle is rounded to 32 bits, so that the pocket itself changes by that.
std::vector<Entity> halved(const std::vector<Entity>& rows) {
  std::vector<Entity> halves;
  for (const Entity& row : rows) {
    if (row.type != kLine) {
      halves.push_back(row);
      continue;
    }
    const Point middle{(row.start.x + row.end.x) / 2, (row.start.y + row.end.y) / 2};
    halves.push_back(lineEntity(row.start, middle));
    halves.push_back(lineEntity(middle, row.end));
  }
  return halves;
}

TEST(OffsetOfARegion, DoesNotDependOnHowTheRowsAreSplitTurnedOrPlaced) {
  for (int number = 0; number < 90; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const std::vector<Entity> rows = rowsOf(pocket);
    const double radius = pocket.toolRadius;
    const double area = offsetArea(rows, radius);
    EXPECT_NEAR(offsetArea(halved(rows), radius), area, 1e-4);
    const auto turn = [](PlanePoint p) { return std::cos(0.7) * p + std::sin(0.7) * leftOf(p); };
    EXPECT_NEAR(offsetArea(moved(rows, turn), radius), area, 1e-4);
    const auto shift = [](PlanePoint p) { return p + PlanePoint{1000, 1000}; };
    EXPECT_NEAR(offsetArea(moved(rows, shift), radius), area, 1e-2);
    const auto toMillimetres = [](PlanePoint p) { return 25.4 * p; };
    EXPECT_NEAR(offsetArea(moved(rows, toMillimetres), 25.4 * radius) / (25.4 * 25.4), area, 1e-4);
  }
}

TEST(OffsetOfARegion, ShrinksAtTheRateOfItsLength) {
  constexpr double kStep = 1e-5;
  for (int number = 0; number < 150; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    const PocketRegion region = regionOfPocket(pocket);
    const PocketRegion offset = offsetRegion(region, pocket.toolRadius).region;
    const PocketRegion smaller = offsetRegion(region, pocket.toolRadius + kStep).region;
    double length = 0;
    for (const RegionLoop& loop : offset.loops()) {
      for (const tess::Curve& curve : loop.curves) length += lengthOf(curve);
    }
    EXPECT_NEAR((offset.area() - smaller.area()) / kStep, length, 1e-3 * (1 + length));
  }
}

// Rounded to five decimals a slot is of the tool's width, or narrower by a hair.
std::vector<Entity> slotOf(double width, double angle) {
  const PlanePoint along{std::cos(angle), std::sin(angle)};
  const PlanePoint aside = (width / 2) * leftOf(along);
  const auto at = [](PlanePoint p) {
    return Point{static_cast<float>(std::round(p.x * 1e5) / 1e5),
                 static_cast<float>(std::round(p.y * 1e5) / 1e5)};
  };
  const Point end = at(2.0 * along);
  return {lineEntity(at(-1.0 * aside), at(2.0 * along - aside)),
          {kCounterClockwiseArc, at(2.0 * along - aside), at(2.0 * along + aside), end},
          lineEntity(at(2.0 * along + aside), at(aside)),
          {kCounterClockwiseArc, at(aside), at(-1.0 * aside), {0, 0}}};
}

TEST(FittedOffset, TakesSlotsAndHolesOfExactlyTheToolsSize) {
  int lost = 0;
  for (int step = 0; step < 60; ++step) {
    SCOPED_TRACE(step);
    const PocketRegion slot = regionOf(slotOf(0.5, 0.05 * step), kTestTolerence).region;
    const PocketRegion fitted = fittedOffset(slot, 0.25).region;
    lost += offsetRegion(slot, 0.25).region.isEmpty() ? 1 : 0;
    ASSERT_FALSE(fitted.isEmpty());
    double length = 0;
    for (const RegionLoop& loop : fitted.loops()) {
      for (const tess::Curve& curve : loop.curves) {
        length += lengthOf(curve);
        EXPECT_TRUE(slot.isClear(curve, 0.25 - 0.000021));
      }
    }
    EXPECT_NEAR(length, 4, 0.02) << "there and back";
  }
  EXPECT_GT(lost, 5) << "without the hair";
  const Entity hole{kCircle, {0.2499F, 0}, {0.2499F, 0}, {0, 0}};
  EXPECT_TRUE(
      fittedOffset(regionOf(std::vector{hole}, kTestTolerence).region, 0.25).region.isEmpty());
  const Entity fitting{kCircle, {0.249995F, 0}, {0.249995F, 0}, {0, 0}};
  EXPECT_FALSE(
      fittedOffset(regionOf(std::vector{fitting}, kTestTolerence).region, 0.25).region.isEmpty());
}

// Two rooms with a passage of exactly the tool's width between them.
TEST(FittedOffset, PassesANeckOfExactlyTheToolsWidth) {
  const std::vector<PlanePoint> corners{{0, 0}, {2, 0}, {2, 0.75}, {4, 0.75}, {4, 0}, {6, 0},
                                        {6, 2}, {4, 2}, {4, 1.25}, {2, 1.25}, {2, 2}, {0, 2}};
  int parted = 0;
  for (int step = 0; step < 60; ++step) {
    SCOPED_TRACE(step);
    const double angle = 0.05 * step;
    std::vector<Point> turned;
    for (const PlanePoint corner : corners) {
      const PlanePoint at = std::cos(angle) * corner + std::sin(angle) * leftOf(corner);
      turned.push_back({static_cast<float>(std::round(at.x * 1e5) / 1e5),
                        static_cast<float>(std::round(at.y * 1e5) / 1e5)});
    }
    const PocketRegion region = regionOfRows(polygonRows(turned)).region;
    parted += offsetRegion(region, 0.25).region.loops().size() > 1 ? 1 : 0;
    const PocketRegion fitted = fittedOffset(region, 0.25).region;
    for (double x = 2; x <= 4; x += 0.05) {
      const PlanePoint along{x, 1};
      const PlanePoint at = std::cos(angle) * along + std::sin(angle) * leftOf(along);
      EXPECT_TRUE(fitted.index().nearest(tess::lineCurve(at, at), 0.02).has_value()) << x;
    }
  }
  EXPECT_GT(parted, 5) << "without the hair";
}

// A large room and a square of that width at the end of a neck, turned and moved.
PocketRegion roomAndSquare(float width, float sine, float moved) {
  const float cosine = std::sqrt(1 - sine * sine);
  const float low = 1 - width / 2;
  const float high = 1 + width / 2;
  std::vector<Point> corners{{0, 0},
                             {3, 0},
                             {3, 0.9F},
                             {3.5F, 0.9F},
                             {3.5F, low},
                             {3.5F + width, low},
                             {3.5F + width, high},
                             {3.5F, high},
                             {3.5F, 1.1F},
                             {3, 1.1F},
                             {3, 2},
                             {0, 2}};
  for (Point& corner : corners) {
    corner = {cosine * corner.x - sine * corner.y + moved, sine * corner.x + cosine * corner.y};
  }
  return regionOfRows(polygonRows(corners)).region;
}

TEST(FittedOffset, TakesARoomInWhichTheToolStandsAtASinglePlace) {
  for (const float sine : {0.0F, 0.6F, 0.28F}) {
    for (const float moved : {0.0F, 0.1F, 1.7F, 12.3F}) {
      SCOPED_TRACE(sine);
      SCOPED_TRACE(moved);
      const PocketRegion region = roomAndSquare(0.5F, sine, moved);
      const RegionOffset offset = fittedOffset(region, 0.25);
      EXPECT_EQ(roomsOf(offset.region).size(), 2U);
      EXPECT_TRUE(offset.lost.empty());
      EXPECT_EQ(roomsOf(fittedOffset(region, 0.25005).region).size(), 1U) << "a hair too narrow";
    }
  }
}

TEST(OffsetOfAChain, KeepsToItsLeftAndItsOrder) {
  const std::vector<tess::Curve> chain{tess::lineCurve({0, 0}, {2, 0}),
                                       tess::lineCurve({2, 0}, {2, 2}),
                                       tess::lineCurve({2, 2}, {4, 2})};
  const ChainOffset offset = chainOffset(chain, 0.25);
  ASSERT_EQ(offset.stretches.size(), 1U);
  const std::vector<tess::Curve>& way = offset.stretches[0];
  ASSERT_EQ(way.size(), 4U);
  EXPECT_EQ(way.front().start, (PlanePoint{0, 0.25}));
  EXPECT_EQ(way.back().end, (PlanePoint{4, 2.25}));
  EXPECT_NEAR(way[0].end.x, 1.75, 1e-9);
  EXPECT_EQ(way[2].turn, -1) << "round the corner";
}

}  // namespace
}  // namespace tess
