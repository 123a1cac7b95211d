// The surface's mapping and the members of the proxy.
#include "display/drawing_target.h"

#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

class PictureBoxProxyTest : public DisplayBench {
 protected:
  std::string linesDrawn(std::optional<Rgb> color, std::optional<int> box) {
    screen.TraceLine({1, 2, 3, 4}, color, box);
    return log.take();
  }
  std::string circleDrawn(float radius, std::optional<Rgb> color = {},
                          std::optional<float> start = {}, std::optional<float> end = {},
                          std::optional<float> aspect = {}) {
    screen.TraceCircle(1, 2, radius, color, start, end, aspect);
    return log.take();
  }
};

TEST_F(PictureBoxProxyTest, TraceLineDrawsLineOutlineOrFilledBox) {
  EXPECT_EQ(linesDrawn(0x0000FF, {}), "line (1, 2)-(3, 4) #FF0000\n");
  EXPECT_EQ(linesDrawn(0x0000FF, 1), "box (1, 2)-(3, 4) #FF0000\n");
  EXPECT_EQ(linesDrawn(0x0000FF, 2), "filled box (1, 2)-(3, 4) #FF0000\n");
}

TEST_F(PictureBoxProxyTest, AMissingColourIsTheForegroundColour) {
  EXPECT_EQ(linesDrawn({}, {}), "line (1, 2)-(3, 4) #302010\n");
  EXPECT_EQ(linesDrawn({}, 1), "box (1, 2)-(3, 4) #302010\n");
  EXPECT_EQ(circleDrawn(1), "circle (1, 2) r 1 #302010\n");
}

TEST_F(PictureBoxProxyTest, AnyOtherBoxFailsInItsName) {
  for (const int box : {-1, 0, 3}) {
    try {
      screen.TraceLine({}, 0, box);
      ADD_FAILURE() << box;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), FailureNumber::InvalidProcedureCall);
      EXPECT_EQ(failure.source(), "PictureBoxProxy");
    }
  }
  EXPECT_EQ(log.take(), "");
}

TEST_F(PictureBoxProxyTest, TraceCircleStopsAtTheFirstMissingArgument) {
  EXPECT_EQ(circleDrawn(2, 0), "circle (1, 2) r 2 #000000\n");
  EXPECT_EQ(circleDrawn(2, 0, 0.5F), "arc (1, 2) r 2 from 0.5 to 6.2832 #000000\n");
  EXPECT_EQ(circleDrawn(2, 0, 0.5F, 1.5F, 2.0F),
            "arc (1, 2) r 2 from 0.5 to 1.5 aspect 2 #000000\n");
  EXPECT_EQ(circleDrawn(2, {}, 0.5F, 1.5F), "circle (1, 2) r 2 #302010\n");
  EXPECT_EQ(circleDrawn(2, 0, {}, 1.5F), "circle (1, 2) r 2 #000000\n");
  EXPECT_EQ(circleDrawn(2, 0, 0.5F, {}, 2.0F), "arc (1, 2) r 2 from 0.5 to 6.2832 #000000\n");
}

TEST_F(PictureBoxProxyTest, ACircleWithoutRadiusPaintsNothing) {
  EXPECT_EQ(circleDrawn(0, 0), "");
  EXPECT_EQ(circleDrawn(0, 0, 0.5F, 1.5F, 1.0F), "");
}

TEST_F(PictureBoxProxyTest, GrayXIsADiagonalCross) {
  screen.GrayX(1, 1, 4, 0);
  EXPECT_EQ(log.take(), "line (-1, -1)-(3, 3) #000000\nline (3, -1)-(-1, 3) #000000\n");
  screen.GrayX(0, 0, 2);
  EXPECT_EQ(log.take(), "line (-1, -1)-(1, 1) #302010\nline (1, -1)-(-1, 1) #302010\n");
}

TEST_F(PictureBoxProxyTest, LengthsConvertWithTheirSign) {
  EXPECT_FLOAT_EQ(screen.ScaleX(50, ScaleUnit::Pixels, ScaleUnit::User), 0.5F);
  EXPECT_FLOAT_EQ(screen.ScaleX(0.5F, ScaleUnit::User, ScaleUnit::Pixels), 50);
  EXPECT_FLOAT_EQ(screen.ScaleY(50, ScaleUnit::Pixels, ScaleUnit::User), -0.5F);
  EXPECT_FLOAT_EQ(screen.ScaleY(-0.5F, ScaleUnit::User, ScaleUnit::Pixels), 50);
  EXPECT_EQ(screen.ScaleX(7, ScaleUnit::User, ScaleUnit::User), 7);
  EXPECT_EQ(screen.ScaleY(7, ScaleUnit::Pixels, ScaleUnit::Pixels), 7);
}

TEST_F(PictureBoxProxyTest, PixelsPerUnitArePositive) {
  EXPECT_FLOAT_EQ(static_cast<float>(PixelsPerInchX(screen)), 100);
  EXPECT_FLOAT_EQ(static_cast<float>(PixelsPerInchY(screen)), 100);
}

TEST_F(PictureBoxProxyTest, SetScaleGoesInItsOrder) {
  SetScale(-1, -2, 3, 4, screen);
  EXPECT_EQ(log.take(), "ScaleMode 0\nScaleLeft -1\nScaleWidth 4\nScaleTop 4\nScaleHeight -6\n");
  EXPECT_EQ(screen.ScaleMode(), ScaleUnit::User);
  EXPECT_EQ(screen.ScaleLeft(), -1);
  EXPECT_EQ(screen.ScaleWidth(), 4);
  EXPECT_EQ(screen.ScaleTop(), 4);
  EXPECT_EQ(screen.ScaleHeight(), -6);
}

TEST_F(PictureBoxProxyTest, PropertiesReadBackWhatWasSet) {
  screen.setDrawMode(PenMode::NotXor);
  screen.setDrawStyle(PenStyle::Dot);
  screen.setFillStyle(FillMode::Solid);
  screen.setFillColor(5);
  EXPECT_EQ(log.take(), "DrawMode 10\nDrawStyle 2\nFillStyle 0\nFillColor 5\n");
  EXPECT_EQ(screen.DrawMode(), PenMode::NotXor);
  EXPECT_EQ(screen.DrawStyle(), PenStyle::Dot);
  EXPECT_EQ(screen.FillStyle(), FillMode::Solid);
  EXPECT_EQ(screen.FillColor(), 5);
}

TEST_F(PictureBoxProxyTest, WidthAndHeightResizeTheSurfaceWhereItStands) {
  surface.Move({10, 20, 300, 200});
  screen.setWidth(500);
  screen.setHeight(400);
  EXPECT_EQ(log.take(),
            "Move (10, 20) 300 x 200\nMove (10, 20) 500 x 200\nMove (10, 20) 500 x 400\n");
  EXPECT_EQ(screen.Width(), 500);
  EXPECT_EQ(screen.Height(), 400);
}

TEST_F(PictureBoxProxyTest, PointsMapToPixelsAndBack) {
  const PixelPoint corner = surface.toPixels(-5, 4);
  EXPECT_DOUBLE_EQ(corner.x, 0);
  EXPECT_DOUBLE_EQ(corner.y, 0);
  const PixelPoint middle = surface.toPixels(0, 0);
  EXPECT_DOUBLE_EQ(middle.x, 500);
  EXPECT_DOUBLE_EQ(middle.y, 400);
  EXPECT_EQ(surface.toWorld(1000, 800), (Point{5, -4}));
}

TEST_F(PictureBoxProxyTest, InPixelScaleThereIsNothingToMap) {
  surface.setScaleMode(ScaleUnit::Pixels);
  EXPECT_DOUBLE_EQ(surface.toPixels(3, 4).y, 4);
  EXPECT_EQ(surface.toWorld(3, 4), (Point{3, 4}));
}

}  // namespace
}  // namespace tess
