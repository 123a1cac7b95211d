// Bounding boxes of rows, arcs above all.
#include "geometry/row_boxes.h"

#include "gtest/gtest.h"

#include "geometry/float_angles.h"
#include "tests/geometry/arcs.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

TEST(ArcBox, TableOfArcs) {
  for (const testing::ArcCase& c : testing::kArcCases) {
    SCOPED_TRACE(c.name);
    const Box box = arcBox(testing::arcOf(c));
    EXPECT_FLOAT_EQ(box.minX, c.box.minX);
    EXPECT_FLOAT_EQ(box.minY, c.box.minY);
    EXPECT_FLOAT_EQ(box.maxX, c.box.maxX);
    EXPECT_FLOAT_EQ(box.maxY, c.box.maxY);
  }
}

TEST(ArcBox, QuarterTurnsAreExact) {
  const Entity arc{kCounterClockwiseArc, {7, 2}, {4, -1}, {4, 2}};
  EXPECT_EQ(arcBox(arc), (Box{1, -1, 7, 5}));
}

TEST(ArcBox, WithoutARadiusItIsAPoint) {
  const Entity arc{kClockwiseArc, {1, 2}, {1, 2}, {1, 2}};
  EXPECT_EQ(arcBox(arc), boxOf({1, 2}, {1, 2}));
}

TEST(ArcBox, UnevenEndsTakeInTheSweepAtBothRadii) {
  const Entity arc{kCounterClockwiseArc, {1, 0}, {0, 3}, {0, 0}};
  EXPECT_EQ(arcBox(arc), (Box{0, 0, 3, 3}));
  EXPECT_EQ(arcBox({kCounterClockwiseArc, {3, 0}, {-1, 0}, {0, 0}}), (Box{-3, 0, 3, 3}));
  // The sweep at the start's radius ends left of the stored end.
  EXPECT_FLOAT_EQ(arcBox({kCounterClockwiseArc, {-1, 1}, {-4, -4}, {0, 0}}).maxY, 4);
}

TEST(ArcBox, HoldsEverySampleOfTheSweepAndNoMore) {
  testing::Dice dice(4711);
  for (int round = 0; round < 400; ++round) {
    const Entity arc = testing::arcAbout({static_cast<float>(dice.unit()), 2}, 3, dice);
    if (std::abs(distance(arc.end, arc.center) - 3) > 1e-4F) continue;  // uneven
    const float a = vectorAngle(arc.center, arc.start);
    const float b = vectorAngle(arc.center, arc.end);
    Box sampled = boxOf(arc.start, arc.end);
    for (int step = 0; step < 20000; ++step) {
      const float angle = static_cast<float>(step) * 6.2831855F / 20000;
      if (!angleInSweep(angle, a, b, arc.type)) continue;
      sampled = extended(sampled,
                         {arc.center.x + 3 * std::cos(angle), arc.center.y + 3 * std::sin(angle)});
    }
    const Box box = arcBox(arc);
    EXPECT_NEAR(box.minX, sampled.minX, 2e-6);
    EXPECT_NEAR(box.minY, sampled.minY, 2e-6);
    EXPECT_NEAR(box.maxX, sampled.maxX, 2e-6);
    EXPECT_NEAR(box.maxY, sampled.maxY, 2e-6);
  }
}

TEST(EntityBox, OtherKinds) {
  EXPECT_EQ(entityBox(lineEntity({3, 1}, {2, 5})), (Box{2, 1, 3, 5}));
  EXPECT_EQ(entityBox({kRectangle, {3, 1}, {2, 5}, {}}), (Box{2, 1, 3, 5}));
  EXPECT_EQ(entityBox({kCircle, {3, 1}, {3, 1}, {1, 1}}), (Box{-1, -1, 3, 3}));
  EXPECT_EQ(entityBox({81, {3, 1}, {3, 1}, {}}), boxOf({3, 1}, {3, 1}));
}

TEST(MagnitudeOf, TakesInCentersAndRadiiOfRoundKinds) {
  EXPECT_EQ(magnitudeOf(lineEntity({3, -7}, {2, 5})), 7);
  EXPECT_EQ(magnitudeOf({kLine, {3, -7}, {2, 5}, {100, 0}}), 7);
  EXPECT_EQ(magnitudeOf({kClockwiseArc, {1, 0}, {0, 1}, {0, -9}}), 10);
  EXPECT_EQ(magnitudeOf({kCircle, {6, 0}, {6, 0}, {-2, 0}}), 8);
}

TEST(RowEntities, FollowTheTables) {
  const std::vector<Entity> entities{lineEntity({3, 1}, {2, 5}), {kCircle, {3, 1}, {3, 1}, {1, 1}}};
  const DrawingStore store = testing::storeWith(entities);
  for (const std::vector<Entity>& rows : {segmentEntities(store), pathEntities(store)}) {
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].end, (Point{2, 5}));
    EXPECT_EQ(rows[1].type, kCircle);
    EXPECT_EQ(rows[1].center, (Point{1, 1}));
  }
}

}  // namespace
}  // namespace tess
