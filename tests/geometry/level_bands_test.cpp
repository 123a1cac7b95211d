// Loops by height: the crossings of a level against a plain pass over all curves.
#include "geometry/level_bands.h"

#include <algorithm>
#include <numbers>
#include <random>

#include "gtest/gtest.h"

namespace tess {
namespace {

std::vector<Curve> square(double low, double high) {
  const PlanePoint corners[] = {{low, low}, {high, low}, {high, high}, {low, high}};
  std::vector<Curve> loop;
  for (int k = 0; k < 4; ++k) loop.push_back(lineCurve(corners[k], corners[(k + 1) % 4]));
  return loop;
}

std::vector<Curve> circle(PlanePoint center, double radius, int turn) {
  const PlanePoint a{center.x + radius, center.y};
  const PlanePoint b{center.x - radius, center.y};
  return {{a, b, center, radius, turn}, {b, a, center, radius, turn}};
}

std::vector<double> crossings(const LevelBands& bands, double y) {
  std::vector<LevelCrossing> found;
  bands.crossingsAt(y, found);
  std::vector<double> x;
  for (const LevelCrossing& crossing : found) x.push_back(crossing.x);
  std::sort(x.begin(), x.end());
  return x;
}

TEST(LevelBands, CrossASquareTwiceThroughItsCornersToo) {
  const LevelBands bands(square(0, 2));
  EXPECT_EQ(crossings(bands, 1), (std::vector<double>{0, 2}));
  EXPECT_EQ(crossings(bands, 0), (std::vector<double>{0, 2}));
  EXPECT_TRUE(crossings(bands, 2).empty()) << "the upper end is not above the level";
  EXPECT_TRUE(crossings(bands, 2.5).empty());
  EXPECT_TRUE(crossings(bands, -0.5).empty());
}

TEST(LevelBands, CrossACircleWhereItIs) {
  for (const int turn : {1, -1}) {
    const LevelBands bands(circle({3, 1}, 2, turn));
    const std::vector<double> x = crossings(bands, 1 + 2 * std::sin(0.7));
    ASSERT_EQ(x.size(), 2U);
    EXPECT_NEAR(x[0], 3 - 2 * std::cos(0.7), 1e-12);
    EXPECT_NEAR(x[1], 3 + 2 * std::cos(0.7), 1e-12);
  }
}

TEST(LevelBands, AreEvenThroughEveryPlaceOfRandomLoops) {
  std::mt19937 random(11);
  const auto number = [&] { return std::uniform_real_distribution<double>(-3, 3)(random); };
  for (int round = 0; round < 200; ++round) {
    std::vector<Curve> loop;
    std::vector<PlanePoint> corners(static_cast<std::size_t>(3 + random() % 20));
    for (PlanePoint& corner : corners) {
      corner = {number(), random() % 3 == 0 ? std::round(number()) : number()};
    }
    for (std::size_t k = 0; k < corners.size(); ++k) {
      const PlanePoint to = corners[(k + 1) % corners.size()];
      const int turn = static_cast<int>(random() % 3) - 1;
      const PlanePoint center = 0.5 * (corners[k] + to) + turn * leftOf(to - corners[k]);
      loop.push_back(turn == 0 ? lineCurve(corners[k], to)
                               : arcCurve(corners[k], to, center, turn));
    }
    const LevelBands bands(loop);
    for (const PlanePoint corner : corners) {
      const std::vector<double> x = crossings(bands, corner.y);
      EXPECT_EQ(x.size() % 2, 0U);
      const PlanePoint at{number(), corner.y};
      std::vector<int> left;
      bands.crossedLeftOf(at, left);
      EXPECT_EQ(static_cast<long>(left.size()),
                std::count_if(x.begin(), x.end(), [&](double cross) { return cross < at.x; }));
    }
  }
}

TEST(LevelBands, OfNothingCrossNothing) {
  EXPECT_TRUE(crossings(LevelBands(), 0).empty());
  const std::vector<Curve> level{lineCurve({0, 1}, {2, 1}), lineCurve({2, 1}, {0, 1})};
  EXPECT_TRUE(crossings(LevelBands(level), 1).empty());
}

}  // namespace
}  // namespace tess
