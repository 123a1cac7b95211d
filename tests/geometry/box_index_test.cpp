// The grid of boxes against a plain pass over all boxes.
#include "geometry/box_index.h"

#include <cmath>

#include "gtest/gtest.h"

#include "geometry/row_boxes.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using testing::Scene;

std::vector<int> plainOverlaps(const std::vector<Box>& boxes, const Box& query, int after) {
  std::vector<int> rows;
  for (int row = after + 1; row <= static_cast<int>(boxes.size()); ++row) {
    if (overlaps(boxes[static_cast<std::size_t>(row) - 1], query)) rows.push_back(row);
  }
  return rows;
}

Box queryBox(const Scene& scene, Dice& dice) {
  const Point a = testing::queryPoint(scene, dice);
  if (dice.below(8) == 0) return everywhere();
  if (dice.below(3) == 0) return boxOf(a, testing::queryPoint(scene, dice));
  return boxOf(a, testing::nearby(a, 1, dice));
}

TEST(Box, AsConstructedItIsEmpty) {
  EXPECT_TRUE(Box{}.isEmpty());
  EXPECT_FALSE(overlaps(Box{}, everywhere()));
  EXPECT_EQ(extended(Box{}, {1, 2}), boxOf({1, 2}, {1, 2}));
  EXPECT_EQ(grown(Box{}, 5), Box{});
}

TEST(Box, LimitsBelongToIt) {
  EXPECT_TRUE(overlaps({0, 0, 1, 1}, {1, 1, 2, 2}));
  EXPECT_FALSE(overlaps({0, 0, 1, 1}, {std::nextafter(1.0F, 2.0F), 0, 2, 2}));
  EXPECT_FALSE(overlaps({0, 0, 1, 1}, {0, 1.5F, 1, 2}));
}

TEST(Box, GrowsAtLeastByWhatIsAsked) {
  const Box box = grown(boxOf({1000, -1000}, {1000, -1000}), 1e-7);
  EXPECT_LE(box.minX, 1000 - 1e-7);
  EXPECT_GE(box.maxX, 1000 + 1e-7);
  EXPECT_LE(box.minY, -1000 - 1e-7);
  EXPECT_GE(box.maxY, -1000 + 1e-7);
}

TEST(BoxIndex, AnEmptyIndexFindsNothing) {
  const BoxIndex index;
  std::vector<int> rows{1, 2};
  index.rowsOverlapping(everywhere(), 0, rows);
  EXPECT_TRUE(rows.empty());
  EXPECT_TRUE(index.bounds().isEmpty());
  EXPECT_GT(index.cellSize(), 0);
}

TEST(BoxIndex, AnEmptyQueryFindsNothing) {
  const BoxIndex index({boxOf({0, 0}, {1, 1})});
  std::vector<int> rows{1};
  index.rowsOverlapping(Box{}, 0, rows);
  EXPECT_TRUE(rows.empty());
}

TEST(BoxIndex, AnswersAsAPlainPass) {
  long long found = 0;
  for (int number = 0; number < 40 * testing::kSceneKinds; ++number) {
    const Scene scene = testing::sceneOf(number);
    std::vector<Box> boxes = entityBoxes(scene.entities);
    if (number % 7 == 0 && !boxes.empty()) boxes.front() = everywhere();
    if (number % 11 == 0 && !boxes.empty()) boxes.back() = Box{};
    const BoxIndex index(boxes);
    Dice dice(static_cast<std::uint32_t>(number));
    std::vector<int> rows;
    for (int query = 0; query < 25; ++query) {
      const Box box = queryBox(scene, dice);
      const int after = dice.below(3) == 0 ? dice.below(static_cast<int>(boxes.size()) + 1) : 0;
      index.rowsOverlapping(box, after, rows);
      ASSERT_EQ(rows, plainOverlaps(boxes, box, after)) << "scene " << number;
      found += static_cast<long long>(rows.size());
    }
  }
  EXPECT_GT(found, 10000);
}

TEST(BoxIndex, PairsComeInAscendingOrderAsInAPlainPass) {
  for (int number = 0; number < 10 * testing::kSceneKinds; ++number) {
    const std::vector<Box> boxes = entityBoxes(testing::sceneOf(number).entities);
    std::vector<std::pair<int, int>> expected;
    for (int i = 1; i <= static_cast<int>(boxes.size()); ++i) {
      for (const int j : plainOverlaps(boxes, boxes[static_cast<std::size_t>(i) - 1], i))
        expected.emplace_back(i, j);
    }
    std::vector<std::pair<int, int>> pairs;
    BoxIndex(boxes).visitPairs([&](int i, int j) {
      pairs.emplace_back(i, j);
      return true;
    });
    ASSERT_EQ(pairs, expected) << "scene " << number;
  }
}

TEST(BoxIndex, VisitingStopsWhenToldTo) {
  const BoxIndex index({everywhere(), everywhere(), everywhere()});
  int visits = 0;
  index.visitPairs([&](int, int) { return ++visits < 2; });
  EXPECT_EQ(visits, 2);
}

TEST(BoxIndex, UpdatesAnswerAsANewIndex) {
  for (int number = 0; number < 4 * testing::kSceneKinds; ++number) {
    const Scene scene = testing::sceneOf(number);
    const std::vector<Box> supply = entityBoxes(scene.entities);
    if (supply.empty()) continue;
    std::vector<Box> boxes(supply.begin(), supply.begin() + static_cast<long>(supply.size() / 2));
    BoxIndex index(boxes);
    Dice dice(static_cast<std::uint32_t>(number) + 99U);
    std::vector<int> rows;
    for (int step = 0; step < 150; ++step) {
      const int row = 1 + dice.below(static_cast<int>(boxes.size()) + 1);
      const Box box =
          dice.below(5) == 0
              ? Box{}
              : supply[static_cast<std::size_t>(dice.below(static_cast<int>(supply.size())))];
      if (row > static_cast<int>(boxes.size())) boxes.emplace_back();
      boxes[static_cast<std::size_t>(row) - 1] = box;
      index.update(row, box);
      const Box query = queryBox(scene, dice);
      index.rowsOverlapping(query, 0, rows);
      ASSERT_EQ(rows, plainOverlaps(boxes, query, 0)) << "scene " << number << " step " << step;
    }
    EXPECT_EQ(index.rows(), static_cast<int>(boxes.size()));
  }
}

}  // namespace
}  // namespace tess
