// The crossing index against a trial of all pairs: no crossing may be missed.
#include "geometry/crossing_index.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "geometry/float_intersections.h"
#include "geometry/row_boxes.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using testing::kTolerence;
using testing::Scene;

bool cross(const Entity& a, const Entity& b, float tolerence) {
  return intersectEntities(a, b, tolerence) || intersectEntities(b, a, tolerence);
}

// The rows of `candidates` that do cross, against those of a trial of all rows above `after`.
void expectAllCrossings(const std::vector<Entity>& entities, const Entity& entity, int self,
                        int after, float tolerence, const std::vector<int>& candidates) {
  ASSERT_TRUE(std::is_sorted(candidates.begin(), candidates.end()));
  ASSERT_TRUE(std::adjacent_find(candidates.begin(), candidates.end()) == candidates.end());
  for (int row = 1; row <= static_cast<int>(entities.size()); ++row) {
    const bool listed = std::binary_search(candidates.begin(), candidates.end(), row);
    if (row == self || row <= after) {
      ASSERT_FALSE(listed) << "row " << row;
      continue;
    }
    if (listed) continue;
    ASSERT_FALSE(cross(entity, entities[static_cast<std::size_t>(row) - 1], tolerence))
        << "row " << row << " with " << self;
  }
}

TEST(CrossingIndex, MissesNoCrossingOfTwoRows) {
  for (int number = 0; number < 30 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    std::vector<Entity> entities = testing::sceneOf(number).entities;
    if (entities.size() > 150) entities.resize(150);
    const float tolerence = number % 4 == 0 ? 0.02F : number % 4 == 1 ? 0 : kTolerence;
    const CrossingIndex index(entities, tolerence);
    std::vector<int> candidates;
    for (int row = 1; row <= static_cast<int>(entities.size()); ++row) {
      const int after = row % 3 == 0 ? row + 1 : 0;
      index.candidates(row, after, candidates);
      expectAllCrossings(entities, entities[static_cast<std::size_t>(row) - 1], row, after,
                         tolerence, candidates);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(CrossingIndex, MissesNoCrossingWithAnEntityOfNoTable) {
  for (int number = 0; number < 20 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const std::vector<Entity> entities = testing::sceneOf(number).entities;
    const std::vector<Entity> others = testing::sceneOf(number + 13 * 1000 + number % 3).entities;
    const CrossingIndex index(entities, kTolerence);
    std::vector<int> candidates;
    for (std::size_t k = 0; k < std::min<std::size_t>(others.size(), 40); ++k) {
      index.candidates(others[k], 0, candidates);
      expectAllCrossings(entities, others[k], 0, 0, kTolerence, candidates);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(CrossingIndex, MissesNoCrossingWithLinesUpToTheMagnitudeNamed) {
  for (int number = 0; number < 20 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const std::vector<Entity> entities = testing::sceneOf(number).entities;
    std::vector<Entity> lines = testing::sceneOf(number + 13 * 1000 + number % 3).entities;
    std::erase_if(lines, [](const Entity& entity) { return entity.type != kLine; });
    if (lines.size() > 40) lines.resize(40);
    double magnitude = 0;
    for (const Entity& line : lines) magnitude = std::max(magnitude, magnitudeOf(line));
    const CrossingIndex index(entities, kTolerence, magnitude);
    std::vector<int> candidates;
    for (const Entity& line : lines) {
      index.candidates(line, 0, candidates);
      expectAllCrossings(entities, line, 0, 0, kTolerence, candidates);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(CrossingIndex, MissesNoCrossingWithEntitiesUpToTheRadiusNamed) {
  for (int number = 0; number < 20 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const std::vector<Entity> entities = testing::sceneOf(number).entities;
    std::vector<Entity> others = testing::sceneOf(number + 13 * 1000 + number % 3).entities;
    if (others.size() > 40) others.resize(40);
    double magnitude = 0;
    double radius = 0;
    for (const Entity& other : others) {
      magnitude = std::max(magnitude, magnitudeOf(other));
      if (isArc(other.type)) radius = std::max(radius, double{radiusOf(other)});
    }
    const CrossingIndex index(entities, kTolerence, magnitude, radius);
    std::vector<int> candidates;
    for (const Entity& other : others) {
      index.candidates(other, 0, candidates);
      expectAllCrossings(entities, other, 0, 0, kTolerence, candidates);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(CrossingIndex, ArcsUpToTheRadiusNamedAreNotTriedWithAll) {
  const std::vector<Entity> walls = {lineEntity({0, 0}, {1, 1}), lineEntity({9, 9}, {9, 8})};
  const Entity arc{kClockwiseArc, {5, 6}, {6, 5}, {5, 5}};
  std::vector<int> candidates;
  CrossingIndex(walls, kTolerence, 9).candidates(arc, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{1, 2}));
  CrossingIndex(walls, kTolerence, 9, 1).candidates(arc, 0, candidates);
  EXPECT_EQ(candidates, std::vector<int>{});
}

TEST(CrossingIndex, LinesUpToTheMagnitudeNamedAreNotTriedWithAll) {
  const std::vector<Entity> walls = {lineEntity({0, 0}, {1, 1}), lineEntity({0, 1}, {1, 0})};
  const Entity outside = lineEntity({5, 5}, {6, 5});
  std::vector<int> candidates;
  CrossingIndex(walls, kTolerence).candidates(outside, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{1, 2}));
  CrossingIndex(walls, kTolerence, 6).candidates(outside, 0, candidates);
  EXPECT_EQ(candidates, std::vector<int>{});
}

Entity closedArc(Point center, float radius) {
  const Point on{center.x + radius, center.y};
  return {kCounterClockwiseArc, on, on, center};
}

TEST(CrossingIndex, KnowsCrossingsThatTheHalvedInterceptInvents) {
  // The centres differ in y by a hair: the radical line, truly at x = 2, is taken at x = 1.
  const std::vector<Entity> arcs{closedArc({1, 0}, 0.5F), closedArc({3, 1e-6F}, 0.5F)};
  ASSERT_TRUE(cross(arcs[0], arcs[1], kTolerence));
  std::vector<int> candidates;
  CrossingIndex(arcs, kTolerence).candidates(1, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{2}));
}

TEST(CrossingIndex, KnowsCrossingsOfNearCentersAtTheSameHeight) {
  // Less than a tenth apart the radical line, truly at x = 0.0475, is taken at x = 0.095.
  const std::vector<Entity> arcs{closedArc({0.09F, 0}, 0.02F), closedArc({0.005F, 0}, 0.02F)};
  ASSERT_TRUE(cross(arcs[0], arcs[1], /*tolerence=*/0));
  std::vector<int> candidates;
  CrossingIndex(arcs, /*tolerence=*/0).candidates(1, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{2}));
}

TEST(CrossingIndex, KnowsCrossingsOfARadicalLineTakenAsLevel) {
  // The small circle hangs 4.2 above the large one, its centre a hair to the left.
  const std::vector<Entity> arcs{
      {kCounterClockwiseArc, {0, 0}, {0, 0}, {1000, 0}},
      closedArc({999.9902F, 1004.3F}, 0.1F),
  };
  ASSERT_TRUE(cross(arcs[0], arcs[1], /*tolerence=*/0));
  std::vector<int> candidates;
  CrossingIndex(arcs, /*tolerence=*/0).candidates(1, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{2}));
}

TEST(CrossingIndex, RowsFarApartAreNoCandidates) {
  std::vector<Entity> entities;
  for (int k = 0; k < 100; ++k) {
    const float x = static_cast<float>(k);
    entities.push_back(lineEntity({x, x}, {x + 0.5F, x + 0.25F}));
    entities.push_back(closedArc({x, -x}, 0.25F));
  }
  const CrossingIndex index(entities, kTolerence);
  std::vector<int> candidates;
  std::size_t all = 0;
  for (int row = 1; row <= 200; ++row) {
    index.candidates(row, 0, candidates);
    all += candidates.size();
  }
  EXPECT_LT(all, 100U);
}

TEST(CrossingIndex, KindsThatPassForLinesAndArcsAreTriedWithAll) {
  const std::vector<Entity> entities{
      {kRapid, {1, 0}, {0, 1}, {0, 0}},
      {21, {-2, 0.6F}, {2, 0.6F}, {}},
      lineEntity({50, 50}, {60, 60}),
  };
  ASSERT_TRUE(intersectEntities(entities[0], entities[1], kTolerence));
  const CrossingIndex index(entities, kTolerence);
  std::vector<int> candidates;
  index.candidates(1, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{2}));
  index.candidates(2, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{1, 3}));
}

TEST(CrossingIndex, TheTablesGiveTheSameCandidates) {
  const std::vector<Entity> entities{lineEntity({0, 0}, {4, 4}), lineEntity({0, 4}, {4, 0})};
  const DrawingStore store = testing::storeWith(entities);
  std::vector<int> candidates;
  segmentCrossingIndex(store).candidates(1, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{2}));
  pathCrossingIndex(store).candidates(2, 0, candidates);
  EXPECT_EQ(candidates, (std::vector<int>{1}));
}

}  // namespace
}  // namespace tess
