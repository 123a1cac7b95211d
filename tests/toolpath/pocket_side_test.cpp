// On which side of an edge the inside lies.
#include "toolpath/pocket_side.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::addSegment;

struct PocketSide : ::testing::Test {
  PocketSide() { store.cfg_tolerance = testing::kTolerence; }
  void line(Point from, Point to, int attr = kSelectedRow) {
    addSegment(store, lineEntity(from, to), attr);
  }
  void outline(const std::vector<Point>& corners, int attr = kSelectedRow) {
    for (std::size_t k = 0; k < corners.size(); ++k) {
      line(corners[k], corners[(k + 1) % corners.size()], attr);
    }
  }
  // Row `sg` the way it was drawn, and the other way.
  Side sideAlong(int sg) const {
    const Entity row = segmentEntity(store, sg);
    return pocketSideOf(store, row.start, row.end);
  }
  Side sideAgainst(int sg) const {
    const Entity row = segmentEntity(store, sg);
    return pocketSideOf(store, row.end, row.start);
  }

  DrawingStore store;
};

TEST_F(PocketSide, OfASquareIsLeftOfEveryEdgeOfACounterClockwiseOne) {
  outline({{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  for (int sg = 1; sg <= 4; ++sg) {
    EXPECT_EQ(sideAlong(sg), Side::Left) << sg;
    EXPECT_EQ(sideAgainst(sg), Side::Right) << sg;
  }
}

// All directions but the one of exactly 135 degrees, which has a test of its own.
TEST_F(PocketSide, OfARegularOutlineIsLeftOfEveryEdge) {
  std::vector<Point> corners;
  constexpr int kEdges = 24;
  for (int k = 0; k < kEdges; ++k) {
    const double angle = (k + 0.3) * 2 * kPi / kEdges;
    corners.push_back(
        {static_cast<float>(3 * std::cos(angle)), static_cast<float>(3 * std::sin(angle))});
  }
  outline(corners);
  for (int sg = 1; sg <= kEdges; ++sg) {
    EXPECT_EQ(sideAlong(sg), Side::Left) << sg;
    EXPECT_EQ(sideAgainst(sg), Side::Right) << sg;
  }
}

// At exactly 135 degrees the probes are taken for one another: the formula turns only beyond it.
TEST_F(PocketSide, OfAnEdgeAtExactly135DegreesIsTheWrongOne) {
  outline({{0, 0}, {4, 0}, {4, 2}, {2, 4}, {0, 4}});
  EXPECT_EQ(polarOf({4, 2}, {2, 4}).degrees, 135);
  EXPECT_EQ(sideAlong(3), Side::Right);
  // At -45 degrees it is right.
  EXPECT_EQ(sideAgainst(3), Side::Right);
}

TEST_F(PocketSide, ArcsCountOnceOrTwice) {
  // A slot: two lines and two half circles; the probes of an end run through both arcs.
  line({0, 0}, {4, 0});
  addSegment(store, {kCounterClockwiseArc, {4, 0}, {4, 2}, {4, 1}}, kSelectedRow);
  line({4, 2}, {0, 2});
  addSegment(store, {kCounterClockwiseArc, {0, 2}, {0, 0}, {0, 1}}, kSelectedRow);
  EXPECT_EQ(sideAlong(1), Side::Left);
  EXPECT_EQ(sideAlong(3), Side::Left);
  EXPECT_EQ(sideAgainst(3), Side::Right);
}

TEST_F(PocketSide, AnIslandIsCrossedTwiceAndDoesNotMatter) {
  outline({{0, 0}, {6, 0}, {6, 6}, {0, 6}}, kVerifiedRow);
  outline({{2, 2}, {4, 2}, {4, 4}, {2, 4}}, kVerifiedRow);
  EXPECT_EQ(sideAlong(1), Side::Left);
  // The material of an island lies on its own inside, the pocket on the other side.
  EXPECT_EQ(sideAlong(5), Side::Right);
}

TEST_F(PocketSide, UnselectedRowsAndCirclesDoNotCount) {
  outline({{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  line({-1, 1}, {3, 1}, kOrdinaryClass);
  line({-1, -1}, {3, -1}, kParkedRow);
  addSegment(store, {kCircle, {1.5F, 1}, {1.5F, 1}, {1, 1}}, kSelectedRow);
  EXPECT_EQ(sideAlong(1), Side::Left);
}

// Neither probe reaches a wall.
TEST_F(PocketSide, OfAPocketMuchWiderThanTheProbesIsUndecided) {
  outline({{0, 0}, {400, 0}, {400, 400}, {0, 400}});
  EXPECT_EQ(sideAlong(1), Side::On);
}

// The fallback compares the counts as they are: a count that is even on both sides.
TEST_F(PocketSide, WithEvenCountsTheSmallerRightCountSaysLeft) {
  line({0, 0}, {2, 0});
  line({-1, 1}, {3, 1});
  line({-1, 2}, {3, 2});
  EXPECT_EQ(sideAlong(1), Side::Left);
  EXPECT_EQ(sideAgainst(1), Side::Right);
}

TEST_F(PocketSide, WithoutRowsBothProbesCountMinusOne) {
  EXPECT_EQ(pocketSideOf(store, {0, 0}, {1, 0}), Side::Left);
}

}  // namespace
}  // namespace tess
