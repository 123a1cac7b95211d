// The marker's cross and the origin arrows.
#include "display/screen_marks.h"

#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

using ScreenMarks = DisplayBench;

TEST_F(ScreenMarks, TheMarkerCrossIsInverted) {
  DrawMarkerCross({1, 2}, screen);
  EXPECT_EQ(log.take(),
            "DrawMode 10\n"
            "line (0.95, 2.05)-(1.05, 1.95) #000000\n"
            "line (1.05, 2.05)-(0.95, 1.95) #000000\n"
            "DrawMode 13\n");
}

TEST_F(ScreenMarks, OriginArrowsHaveAPenOfDoubleWidthAndTheirLetters) {
  surface.setFontTransparent(false);
  surface.setDrawWidth(3);
  log.take();
  DrawOriginArrows(0x0000FF, screen);
  EXPECT_EQ(log.take(),
            "DrawMode 13\n"
            "DrawStyle 0\n"
            "DrawWidth 6\n"
            "line (0, 0)-(0.25, 0) #FF0000\n"
            "line (0.25, 0)-(0.1534, -0.0259) #FF0000\n"
            "line (0, 0)-(0, 0.25) #FF0000\n"
            "line (0, 0.25)-(-0.0259, 0.1534) #FF0000\n"
            "DrawWidth 3\n"
            "FontTransparent 1\n"
            "text (0.1875, -0.0625) X #FF0000\n"
            "text (-0.125, 0.25) Y #FF0000\n"
            "FontTransparent 0\n");
}

}  // namespace
}  // namespace tess
