// What offsets of regions must be, measured without the routines that make them.
// Owns: kTestTolerence, entitiesOf, regionOfRows, regionOfPocket, checkerCurve, nearestWall,
//       expectTrueOffset.
#pragma once

#include <algorithm>
#include <limits>
#include <vector>

#include "gtest/gtest.h"

#include "tests/support/curves.h"
#include "tests/support/pockets.h"
#include "toolpath/region_offset.h"

namespace tess::testing {

inline constexpr float kTestTolerence = 0.0001F;

inline std::vector<Entity> entitiesOf(const std::vector<SegmentRow>& rows) {
  std::vector<Entity> entities;
  for (const SegmentRow& row : rows) {
    entities.push_back({row.type, {row.x0, row.y0}, {row.x1, row.y1}, {row.xc, row.yc}});
  }
  return entities;
}

inline OutlineRegion regionOfRows(const std::vector<SegmentRow>& rows) {
  return regionOf(entitiesOf(rows), kTestTolerence);
}

inline PocketRegion regionOfPocket(const TestPocket& pocket) {
  std::vector<SegmentRow> rows = pocket.outline;
  for (const auto& island : pocket.islands) rows.insert(rows.end(), island.begin(), island.end());
  return regionOfRows(rows).region;
}

// The same curve for the checker.
inline testing::Curve checkerCurve(const tess::Curve& curve) {
  const Vec start{curve.start.x, curve.start.y};
  const Vec end{curve.end.x, curve.end.y};
  if (!curve.isArc()) return lineCurve(start, end);
  return arcCurve(start, end, {curve.center.x, curve.center.y}, curve.turn < 0);
}

inline double nearestWall(const PartShape& part, const testing::Curve& curve) {
  double least = std::numeric_limits<double>::infinity();
  const auto look = [&](const Loop& loop) {
    for (const testing::Curve& wall : loop) least = std::min(least, distanceBetween(curve, wall));
  };
  look(part.pocket);
  for (const Loop& island : part.islands) look(island);
  return least;
}

// Every place is as far from the nearest wall as the distance, and free; loops are closed exactly.
inline void expectTrueOffset(const PartShape& part, const PocketRegion& offset, double distance,
                             double slack) {
  for (const RegionLoop& loop : offset.loops()) {
    ASSERT_GE(loop.curves.size(), 2U);
    EXPECT_EQ(loop.curves.front().start, loop.curves.back().end);
    for (std::size_t k = 0; k < loop.curves.size(); ++k) {
      if (k > 0) {
        EXPECT_EQ(loop.curves[k].start, loop.curves[k - 1].end);
      }
      const testing::Curve curve = checkerCurve(loop.curves[k]);
      EXPECT_GE(nearestWall(part, curve), distance - slack);
      for (const double share : {0.1, 0.5, 0.9}) {
        const Vec at = pointOn(curve, share);
        EXPECT_NEAR(clearance(part, at), distance, slack) << at.x << ", " << at.y;
      }
    }
  }
}

}  // namespace tess::testing
