// Curves by their boxes: the answers of a plain pass.
#include "geometry/curve_index.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "tests/geometry/random_curves.h"

namespace tess::testing {
namespace {

std::optional<NearCurve> nearestByAPass(const std::vector<Curve>& curves, const Curve& to,
                                        double distance) {
  std::optional<NearCurve> best;
  for (std::size_t k = 0; k < curves.size(); ++k) {
    const CurveGap gap = gapBetween(to, curves[k]);
    if (gap.distance > distance || (best && gap.distance >= best->gap.distance)) continue;
    best = NearCurve{static_cast<int>(k), gap};
  }
  return best;
}

TEST(CurveIndex, WithoutCurvesFindsNothing) {
  const CurveIndex index;
  EXPECT_FALSE(index.nearest(lineCurve({0, 0}, {1, 1}), 100));
  std::vector<int> found{7};
  index.candidates(lineCurve({0, 0}, {1, 1}), 100, found);
  EXPECT_TRUE(found.empty());
}

TEST(CurveIndex, WhatIsJustAsFarIsFoundAndTheLowestOfSeveral) {
  const Curve near = lineCurve({0, 2}, {1, 2});
  const CurveIndex index({lineCurve({5, 5}, {6, 6}), near, near});
  const Curve asked = lineCurve({0, 0}, {1, 0});
  const auto found = index.nearest(asked, 2);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->index, 1);
  EXPECT_EQ(found->gap.distance, 2);
  EXPECT_EQ(found->gap.onFirst.y, 0);
  EXPECT_EQ(found->gap.onSecond.y, 2);
  EXPECT_FALSE(index.nearest(asked, 1.999));
}

TEST(CurveIndex, GivesWhatAPassOverAllCurvesGives) {
  std::mt19937 random(20263);  // NOLINT: the same curves on every run
  for (const int count : {1, 10, 300}) {
    const std::vector<Curve> curves = randomCurves(random, count, 20);
    const CurveIndex index(curves);
    EXPECT_EQ(index.curves(), curves);
    std::vector<int> found;
    for (int run = 0; run < 200; ++run) {
      const Curve asked = randomCurve(random, 6);
      const double distance = 0.25 * static_cast<double>(random() % 12);
      index.candidates(asked, distance, found);
      EXPECT_TRUE(std::ranges::is_sorted(found));
      for (int k = 0; k < count; ++k) {
        if (gapBetween(asked, curves[static_cast<std::size_t>(k)]).distance > distance) continue;
        EXPECT_TRUE(std::ranges::binary_search(found, k));
      }
      const auto nearest = index.nearest(asked, distance);
      const auto expected = nearestByAPass(curves, asked, distance);
      ASSERT_EQ(nearest.has_value(), expected.has_value());
      if (!nearest) continue;
      EXPECT_EQ(nearest->index, expected->index);
      EXPECT_EQ(nearest->gap.distance, expected->gap.distance);
    }
  }
}

}  // namespace
}  // namespace tess::testing
