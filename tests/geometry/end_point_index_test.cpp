// The hashed end points against a plain pass with samePoint.
#include "geometry/end_point_index.h"

#include <cmath>

#include "gtest/gtest.h"

#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using testing::Scene;

struct RowEnds {
  bool present = false;
  Point start, end;
};

std::vector<EndMatch> plainMatches(const std::vector<RowEnds>& rows, Point at, float tolerence) {
  std::vector<EndMatch> matches;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const bool atStart = rows[k].present && samePoint(rows[k].start, at, tolerence);
    const bool atEnd = rows[k].present && samePoint(rows[k].end, at, tolerence);
    if (atStart || atEnd) matches.push_back({static_cast<int>(k) + 1, atStart, atEnd});
  }
  return matches;
}

std::vector<RowEnds> endsOf(const Scene& scene) {
  std::vector<RowEnds> rows;
  for (const Entity& entity : scene.entities) rows.push_back({true, entity.start, entity.end});
  return rows;
}

// A point at the very rim of what is the same, on either side of it.
Point rimPoint(Point p, float tolerence, Dice& dice) {
  const auto moved = [&](float value) {
    float at = value + static_cast<float>(dice.below(3) - 1) * tolerence;
    if (dice.below(3) == 0) at = std::nextafter(at, dice.below(2) == 0 ? 1e38F : -1e38F);
    return at;
  };
  return {moved(p.x), moved(p.y)};
}

constexpr float kTolerences[] = {0.001F, 0, 0.5F, 1e-7F, 1e9F, -1};

TEST(EndPointIndex, AnswersAsAPlainPass) {
  std::size_t found = 0;
  for (int number = 0; number < 30 * testing::kSceneKinds; ++number) {
    const Scene scene = testing::sceneOf(number);
    const std::vector<RowEnds> rows = endsOf(scene);
    const float tolerence = kTolerences[number % 6];
    const DrawingStore store = testing::storeWith(scene.entities, tolerence);
    const EndPointIndex segments = segmentEndIndex(store);
    const EndPointIndex paths = pathEndIndex(store);
    Dice dice(static_cast<std::uint32_t>(number) + 5U);
    std::vector<EndMatch> matches;
    for (int query = 0; query < 40; ++query) {
      const Point at = rimPoint(testing::queryPoint(scene, dice), tolerence, dice);
      const std::vector<EndMatch> expected = plainMatches(rows, at, tolerence);
      segments.rowsAt(at, matches);
      ASSERT_EQ(matches, expected) << "scene " << number;
      paths.rowsAt(at, matches);
      ASSERT_EQ(matches, expected) << "scene " << number;
      found += matches.size();
    }
  }
  EXPECT_GT(found, 10000U);
}

TEST(EndPointIndex, UpdatesAnswerAsAPlainPass) {
  for (int number = 0; number < 4 * testing::kSceneKinds; ++number) {
    const Scene scene = testing::sceneOf(number);
    if (scene.entities.empty()) continue;
    std::vector<RowEnds> rows(60);
    EndPointIndex index(/*tolerence=*/0.01F);
    Dice dice(static_cast<std::uint32_t>(number) + 55U);
    std::vector<EndMatch> matches;
    for (int step = 0; step < 300; ++step) {
      const int row = 1 + dice.below(60);
      RowEnds& ends = rows[static_cast<std::size_t>(row) - 1];
      ends = {dice.below(4) != 0, testing::queryPoint(scene, dice),
              testing::queryPoint(scene, dice)};
      if (ends.present) {
        index.update(row, ends.start, ends.end);
      } else {
        index.remove(row);
      }
      const Point at = dice.below(2) == 0 ? ends.start : testing::queryPoint(scene, dice);
      index.rowsAt(at, matches);
      ASSERT_EQ(matches, plainMatches(rows, at, 0.01F)) << "scene " << number << " step " << step;
    }
  }
}

TEST(EndPointIndex, AnEmptyIndexFindsNothing) {
  const EndPointIndex index(0.001F);
  std::vector<EndMatch> matches{{1, true, true}};
  index.rowsAt({0, 0}, matches);
  EXPECT_TRUE(matches.empty());
}

TEST(EndPointIndex, RemovingAnAbsentRowDoesNothing) {
  EndPointIndex index(0.001F);
  index.remove(5);
  index.update(3, {1, 1}, {2, 2});
  index.remove(2);
  index.remove(3);
  index.remove(3);
  std::vector<EndMatch> matches;
  index.rowsAt({1, 1}, matches);
  EXPECT_TRUE(matches.empty());
}

TEST(EndPointIndex, AClosedRowMatchesAtBothEnds) {
  EndPointIndex index(0.001F);
  index.update(4, {1, 1}, {1.0005F, 1});
  std::vector<EndMatch> matches;
  index.rowsAt({1, 1}, matches);
  EXPECT_EQ(matches, (std::vector<EndMatch>{{4, true, true}}));
}

TEST(EndPointIndex, WithoutAToleranceBothZerosAreOne) {
  EndPointIndex index(/*tolerence=*/0);
  index.update(1, {0.0F, 1}, {2, -0.0F});
  std::vector<EndMatch> matches;
  index.rowsAt({-0.0F, 1}, matches);
  EXPECT_EQ(matches, (std::vector<EndMatch>{{1, true, false}}));
  index.rowsAt({2, 0.0F}, matches);
  EXPECT_EQ(matches, (std::vector<EndMatch>{{1, false, true}}));
  index.rowsAt({2, 1e-30F}, matches);
  EXPECT_TRUE(matches.empty());
}

}  // namespace
}  // namespace tess
