// Ways with a limit of the engagement, one by one: they come to their end, whatever they end with.
#include "toolpath/limited_way.h"

#include <stdexcept>

#include "gtest/gtest.h"

#include "core/drawing_rows.h"

namespace tess {
namespace {

constexpr double kRadius = 0.25;
constexpr int kManyLooks = 1000;

PocketRegion room() {
  std::vector<Entity> rows;
  const Point corners[] = {{-2, -2}, {8, -2}, {8, 2}, {-2, 2}};
  for (int k = 0; k < 4; ++k) rows.push_back({kLine, corners[k], corners[(k + 1) % 4], {}});
  return regionOf(rows, 0.001F).region;
}

// A row shorter than what is asked before its end, behind one of any length: half of what is left
// may be nothing in 64 bits.
TEST(LimitedWay, ComesToItsEndBehindATinyLastRow) {
  const PocketRegion region = room();
  for (int k = 0; k < 40; ++k) {
    const PlanePoint joint{1 + 0.0317 * k, 0};
    const PlanePoint end = joint + PlanePoint{0.001 * kRadius, 0};
    const std::vector<Curve> way{lineCurve({0, 0}, joint), lineCurve(joint, end)};
    int looks = 0;
    EngagementLimiter limiter({.radius = kRadius, .share = 0.4, .turn = 1, .mostCurves = 100},
                              {{lineCurve({0, 0}, end), 2 * kRadius}}, [&looks] {
                                if (++looks > kManyLooks) throw std::runtime_error("no end");
                              });
    std::vector<Curve> made;
    ASSERT_NO_THROW(made = limiter.limited(region, kRadius, way)) << k;
    ASSERT_FALSE(made.empty());
    EXPECT_EQ(made.back().end, end);
  }
}

}  // namespace
}  // namespace tess
