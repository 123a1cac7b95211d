// Barbs and rubber-band arrows.
#include "display/arrowheads.h"

#include <numbers>

#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

using Arrowheads = DisplayBench;

TEST_F(Arrowheads, AHalfArrowheadHasOneBarb) {
  DrawHalfArrowhead({{0, 0}, 0}, 0, screen, 1);
  EXPECT_EQ(log.take(), "line (0, 0)-(-0.0966, -0.0259) #000000\n");
  DrawHalfArrowhead({{0, 0}, 0}, 0, screen, 2);
  EXPECT_EQ(log.take(), "line (0, 0)-(-0.0966, 0.0259) #000000\n");
}

TEST_F(Arrowheads, APolarLineGoesItsLengthAlongItsAngle) {
  PolarLine({{1, 1}, std::numbers::pi_v<float> / 2}, 2, 0, screen);
  EXPECT_EQ(log.take(), "line (1, 1)-(1, 3) #000000\n");
}

TEST_F(Arrowheads, TheRubberBandArrowIsInverted) {
  TraceArrowhead({0, 0, 0, -2}, 0, screen);
  EXPECT_EQ(log.take(),
            "DrawMode 10\n"
            "line (0, -2)-(-0.0259, -1.9034) #000000\n"
            "line (0, -2)-(0.0259, -1.9034) #000000\n"
            "DrawMode 13\n");
}

}  // namespace
}  // namespace tess
