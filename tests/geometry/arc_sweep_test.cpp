// The signed sweep of arcs.
#include "gtest/gtest.h"

#include "geometry/float_angles.h"

namespace tess {
namespace {

struct SweepCase {
  const char* name;
  float start, end;
  int direction;
  float sweep;
};

constexpr float kTurn = 6.2831855F;

TEST(ArcSweep, IsPositiveCounterClockwiseAndNegativeClockwise) {
  const SweepCase cases[] = {
      {"counter-clockwise within a turn", 1, 3, 3, 2},
      {"counter-clockwise across zero", 3, 1, 3, kTurn - 2},
      {"counter-clockwise full circle", 1, 1, 3, kTurn},
      {"clockwise within a turn", 3, 1, 2, -2},
      {"clockwise across zero", 1, 3, 2, 2 - kTurn},
      {"clockwise full circle", 1, 1, 2, -kTurn},
      {"no direction", 1, 3, 5, 2},
      {"no direction, equal", 1, 1, 5, 0},
      {"two pi and more keeps whole radians only", 7.4F, 3, 3, 2},
      {"two pi itself", kTurn, 1, 3, 1},
      {"a negative angle keeps whole radians only", 1, -1.4F, 3, kTurn - 2},
  };
  for (const SweepCase& c : cases) {
    EXPECT_NEAR(ArcSweep(c.start, c.end, c.direction), c.sweep, 1e-6) << c.name;
  }
}

}  // namespace
}  // namespace tess
