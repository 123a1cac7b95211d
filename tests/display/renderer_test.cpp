// Single entities on a target: calls, colours, symbols and messages.
#include "display/renderer.h"

#include <cmath>

#include "core/drawing_store.h"
#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

using RendererTest = DisplayBench;

const SegmentRow kLineRow{1, 8, 1, 2, 3, 4};

TEST_F(RendererTest, ALineIsDrawnTwiceInTheCopyPen) {
  EXPECT_EQ(drawn(addSegment(kLineRow)),
            "DrawMode 13\n"
            "DrawStyle 0\n"
            "line (1, 2)-(3, 4) #000000\n"
            "line (1, 2)-(3, 4) #000000\n");
}

TEST_F(RendererTest, OnPaperThePenIsLeftAlone) {
  renderer.DrawSegment(addSegment(kLineRow), paper);
  EXPECT_EQ(log.take(), "line (1, 2)-(3, 4) #000000\nline (1, 2)-(3, 4) #000000\n");
}

TEST_F(RendererTest, ARectangleIsFourLinesFromOneRow) {
  renderer.DrawSegment(addSegment({6, 8, 0, 0, 2, 1}), paper);
  EXPECT_EQ(log.take(),
            "line (0, 0)-(2, 0) #000000\nline (0, 0)-(2, 0) #000000\n"
            "line (2, 0)-(2, 1) #000000\nline (2, 0)-(2, 1) #000000\n"
            "line (2, 1)-(0, 1) #000000\nline (2, 1)-(0, 1) #000000\n"
            "line (0, 1)-(0, 0) #000000\nline (0, 1)-(0, 0) #000000\n");
}

struct ArcCase {
  const char* name;
  SegmentRow row;
  const char* call;
};

TEST_F(RendererTest, ArcsSweepCounterClockwiseOnTheTarget) {
  const ArcCase cases[] = {
      {"counter-clockwise", {3, 8, 1, 0, 0, 1}, "arc (0, 0) r 1 from 0 to 1.5708 #000000\n"},
      {"clockwise", {2, 8, 1, 0, 0, 1}, "arc (0, 0) r 1 from 1.5708 to 0 #000000\n"},
      {"circle", {5, 8, 1, 0, 1, 0}, "circle (0, 0) r 1 #000000\n"},
      {"circle whose ends differ", {5, 8, 1, 0, 9, 9}, "circle (0, 0) r 1 #000000\n"},
      {"equal angles", {3, 8, 1, 0, 2, 0}, "arc (0, 0) r 1 from 0 to 6.2832 #000000\n"},
      {"equal angles, clockwise", {2, 8, 1, 0, 2, 0}, "arc (0, 0) r 1 from 0 to 6.2832 #000000\n"},
  };
  for (const ArcCase& c : cases) EXPECT_EQ(drawn(addSegment(c.row)), c.call) << c.name;
}

TEST_F(RendererTest, AnArcWithStartEqualToEndIsAFullCircleWhateverItsType) {
  EXPECT_EQ(drawn(addSegment({2, 8, 2, 1, 2, 1, 1, 1})), "circle (1, 1) r 1 #000000\n");
  EXPECT_EQ(drawn(addSegment({3, 8, 2, 1, 2, 1, 1, 1})), "circle (1, 1) r 1 #000000\n");
}

TEST_F(RendererTest, ACircleWithoutRadiusPaintsNothing) {
  EXPECT_EQ(drawn(addSegment({5, 8, 1, 1, 1, 1, 1, 1})), "");
}

struct AttributeCase {
  int attr;
  const char* color;  // as recorded
};

TEST_F(RendererTest, TheAttributeGivesTheColour) {
  const AttributeCase cases[] = {
      {8, "#000000"},     {10, "#000000"},    {99, "#000000"},    {-5, "#000000"},
      {30000, "#FF0000"}, {30008, "#FF0000"}, {30100, "#FF0000"}, {30101, "#008000"},
      {30108, "#008000"}, {29108, "#008000"},
  };
  for (const AttributeCase& c : cases) {
    renderer.DrawSegment(addSegment({5, c.attr, 1, 0, 1, 0}), paper);
    EXPECT_EQ(log.lines.back(), std::string("circle (0, 0) r 1 ") + c.color) << c.attr;
  }
  EXPECT_EQ(log.count("message"), 0);
}

TEST_F(RendererTest, ABadAttributeGivesItsMessageAndTheDrawColour) {
  for (const int attr : {100, 108, 29107, 29109, 29999}) {
    EXPECT_EQ(drawn(addSegment({5, attr, 1, 0, 1, 0})),
              "message \"Bad Entity Attribute error in DrawSegment\"\n"
              "circle (0, 0) r 1 #000000\n")
        << attr;
  }
}

TEST_F(RendererTest, ASegmentOfTypeZeroOrFourGivesItsMessageOnEveryRedraw) {
  for (const int type : {0, 4, 7, -1}) {
    const int sg = addSegment({type, 8, 1, 0, 1, 0});
    for (int redraws = 0; redraws < 2; ++redraws) {
      EXPECT_EQ(drawn(sg), "message \"Bad Entity Type error in DrawSegment\"\n") << type;
    }
  }
}

TEST_F(RendererTest, AChangeOfColourIsAnnouncedByALineWithoutLength) {
  const int plain = addSegment({5, 8, 1, 0, 1, 0});
  const int selected = addSegment({5, 30008, 1, 0, 1, 0});
  EXPECT_EQ(drawn(plain), "circle (0, 0) r 1 #000000\n");
  EXPECT_EQ(drawn(selected), "circle (0, 0) r 1 #FF0000\n");
  EXPECT_EQ(drawn(plain), "line (0, 0)-(0, 0) #FF0000\ncircle (0, 0) r 1 #000000\n");
  EXPECT_EQ(drawn(plain), "line (0, 0)-(0, 0) #000000\ncircle (0, 0) r 1 #000000\n");
  EXPECT_EQ(drawn(plain), "circle (0, 0) r 1 #000000\n");
}

TEST_F(RendererTest, ABlinkingEntityHasTheCallersColourAndLeavesNoTrace) {
  const int plain = addSegment({5, 100, 1, 0, 1, 0});
  renderer.DrawSegment(plain, screen, 0x00FF00);
  EXPECT_EQ(log.take(), "circle (0, 0) r 1 #00FF00\n");
}

TEST_F(RendererTest, EndMarkersOfLinesAreTwoPixelBoxesInTheMarkerColour) {
  store.endmarkers = 1;
  EXPECT_EQ(drawn(addSegment(kLineRow)),
            "DrawMode 13\n"
            "DrawStyle 0\n"
            "line (1, 2)-(3, 4) #000000\n"
            "line (1, 2)-(3, 4) #000000\n"
            "filled box (0.98, 1.98)-(1.02, 2.02) #000080\n"
            "filled box (2.98, 3.98)-(3.02, 4.02) #000080\n");
}

TEST_F(RendererTest, EndMarkersOfArcsHaveTheForegroundColour) {
  store.endmarkers = 1;
  EXPECT_EQ(drawn(addSegment({3, 8, 1, 0, 0, 1})),
            "arc (0, 0) r 1 from 0 to 1.5708 #000000\n"
            "filled box (0.98, -0.02)-(1.02, 0.02) #302010\n"
            "filled box (-0.02, 0.98)-(0.02, 1.02) #302010\n");
}

TEST_F(RendererTest, OnPaperOnlyLinesGetEndMarkers) {
  store.endmarkers = 1;
  SetScale(-5, -4, 5, 4, paper);
  log.take();
  renderer.DrawSegment(addSegment({3, 8, 1, 0, 0, 1}), paper);
  EXPECT_EQ(log.count("filled box"), 0);
  renderer.DrawSegment(addSegment(kLineRow), paper);
  EXPECT_EQ(log.count("filled box"), 2);
}

TEST_F(RendererTest, EndMarkersNeverAppearOnPathRows) {
  store.endmarkers = 1;
  addPath({1, 0, 0, 1, 0});
  addPath({3, 1, 0, 0, 1});
  drawnPath(1);
  renderer.drawtoolpath(1, screen);
  renderer.drawtoolpath(2, screen);
  EXPECT_EQ(log.count("filled box"), 0);
  EXPECT_FALSE(renderer.pathdrawing);
}

TEST_F(RendererTest, SegmentPainterShowsAppendedRows) {
  SegmentPainter painter(renderer, screen);
  AddSeg(store, {5, 8, 1, 0, 1, 0}, &painter);
  EXPECT_EQ(log.take(), "circle (0, 0) r 1 #000000\n");
}

class PathRendererTest : public DisplayBench {
 protected:
  PathRendererTest() {
    store.toolradius[2] = 0.1F;
    store.toolcolor[2] = 5;
  }
  PathRow row(int type, float x0, float y0, float x1, float y1, float xc = 0, float yc = 0) {
    PathRow path{type, x0, y0, x1, y1, xc, yc};
    path.code = 102;
    return path;
  }
};

TEST_F(PathRendererTest, AHiddenRowIsNotPainted) {
  const int ps = addPath(row(1, 0, 0, 1, 0));
  store.psvisible[ps] = false;
  EXPECT_EQ(drawnPath(ps), "");
}

TEST_F(PathRendererTest, ALineMoveEndsInAnArrow) {
  EXPECT_EQ(drawnPath(addPath(row(1, 0, 0, 1, 0))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "DrawMode 13\n"
            "DrawStyle 0\n"
            "line (0, 0)-(1, 0) #800080\n"
            "line (0, 0)-(1, 0) #800080\n"
            "line (1, 0)-(0.9034, -0.0259) #800080\n"
            "line (1, 0)-(0.9034, 0.0259) #800080\n");
}

TEST_F(PathRendererTest, ALineShorterThanThirtyPixelsHasNoArrowUntilItIsZoomed) {
  const int ps = addPath(row(1, 0, 0, 0.25F, 0));
  renderer.drawtoolpath(ps, screen);
  EXPECT_EQ(log.count("line"), 2);
  log.take();
  SetScale(-2.5F, -2, 2.5F, 2, screen);
  renderer.drawtoolpath(ps, screen);
  EXPECT_EQ(log.count("line"), 4);
}

TEST_F(PathRendererTest, ThirtyPixelsAreEnoughForAnArrow) {
  SetScale(0, 0, 1024, 800, screen);
  surface.Move({0, 0, 1024, 800});
  log.take();
  renderer.drawtoolpath(addPath(row(1, 0, 0, 30, 0)), screen);
  EXPECT_EQ(log.count("line"), 4);
  log.take();
  renderer.drawtoolpath(addPath(row(1, 0, 0, 29.9F, 0)), screen);
  EXPECT_EQ(log.count("line"), 2);
}

TEST_F(PathRendererTest, ArcMovesEndInAnArrowThatFollowsTheCurve) {
  // Radius 1: the size is 1.5708 units, so the head is turned by the arcsine of 8/157.08.
  EXPECT_EQ(drawnPath(addPath(row(3, 1, 0, 0, 1))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "arc (0, 0) r 1 from 0 to 1.5708 #800080\n"
            "line (0, 1)-(0.0978, 1.0209) #800080\n"
            "line (0, 1)-(0.0951, 0.9692) #800080\n");
  EXPECT_EQ(drawnPath(addPath(row(2, 1, 0, 0, -1))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "arc (0, 0) r 1 from 4.7124 to 0 #800080\n"
            "line (0, -1)-(0.0951, -0.9692) #800080\n"
            "line (0, -1)-(0.0978, -1.0209) #800080\n");
}

TEST_F(PathRendererTest, AnArcShorterThanThirtyPixelsHasNoArrow) {
  const float a = 0.29F;
  renderer.drawtoolpath(addPath(row(3, 1, 0, std::cos(a), std::sin(a))), screen);
  EXPECT_EQ(log.count("line"), 0);
  const float b = 0.31F;
  renderer.drawtoolpath(addPath(row(3, 1, 0, std::cos(b), std::sin(b))), screen);
  EXPECT_EQ(log.count("line"), 2);
}

TEST_F(PathRendererTest, TheArrowOfATightArcGoesByItsDiameter) {
  // Almost three quarters of a circle of 14 pixels radius: long enough, but only 28 pixels wide.
  renderer.drawtoolpath(addPath(row(3, 0.14F, 0, 0, -0.14F)), screen);
  EXPECT_EQ(log.count("line"), 0);
  renderer.drawtoolpath(addPath(row(3, 0.16F, 0, 0, -0.16F)), screen);
  EXPECT_EQ(log.count("line"), 2);
}

TEST_F(PathRendererTest, WithToolOutlineALineIsARowOfDiscs) {
  store.tooloutline = 1;
  // 1 * 1.25 / 0.5 + 1 = 3.5 steps: three discs, the last one short of the end.
  store.toolradius[2] = 0.5F;
  EXPECT_EQ(drawnPath(addPath(row(1, 0, 0, 1, 0))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "circle (0.2857, 0) r 0.5 #800080\n"
            "circle (0.5714, 0) r 0.5 #800080\n"
            "circle (0.8571, 0) r 0.5 #800080\n");
}

TEST_F(PathRendererTest, WithToolOutlineALineWithoutLengthIsOneDisc) {
  store.tooloutline = 1;
  EXPECT_EQ(drawnPath(addPath(row(1, 2, 1, 2, 1))),
            "DrawStyle 0\nDrawMode 13\ncircle (2, 1) r 0.1 #800080\n");
}

TEST_F(PathRendererTest, WithToolOutlineAnArcIsARowOfDiscs) {
  store.tooloutline = 1;
  store.toolradius[2] = 1;
  // 1.5708 * 1.25 + 1 is below three: three steps of 30 degrees.
  EXPECT_EQ(drawnPath(addPath(row(3, 1, 0, 0, 1))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "circle (0.866, 0.5) r 1 #800080\n"
            "circle (0.5, 0.866) r 1 #800080\n"
            "circle (0, 1) r 1 #800080\n");
  EXPECT_EQ(drawnPath(addPath(row(2, 0, 1, 1, 0))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "circle (0.5, 0.866) r 1 #800080\n"
            "circle (0.866, 0.5) r 1 #800080\n"
            "circle (1, 0) r 1 #800080\n");
}

TEST_F(PathRendererTest, AFullCircleIsSurroundedByDiscs) {
  store.tooloutline = 1;
  store.toolradius[2] = 0.5F;
  renderer.drawtoolpath(addPath(row(3, 1, 0, 1, 0)), screen);
  EXPECT_EQ(log.count("circle"), 16);  // 6.2832 * 1.25 / 0.5 + 1 = 16.7
}

TEST(DiscSteps, WithoutASweepAreThreeOfSizeZero) {
  const DiscSteps discs = discSteps(0, 5, 0.5);
  EXPECT_EQ(discs.count, 3);
  EXPECT_EQ(discs.step, 0);
}

TEST(DiscSteps, TooManyToCountOverflow) {
  EXPECT_THROW(discSteps(1, 1e30, 1e-3), RuntimeFailure);
}

TEST_F(PathRendererTest, AFullCircleWithoutRadiusHasItsThreeDiscsAtTheStartPoint) {
  store.tooloutline = 1;
  EXPECT_EQ(drawnPath(addPath(row(3, 2, 1, 2, 1, 2, 1))),
            "DrawStyle 0\n"
            "DrawMode 13\n"
            "circle (2, 1) r 0.1 #800080\n"
            "circle (2, 1) r 0.1 #800080\n"
            "circle (2, 1) r 0.1 #800080\n");
}

TEST_F(PathRendererTest, AToolWithoutRadiusHasNoOutline) {
  store.tooloutline = 1;
  store.toolradius[2] = 0;
  const struct {
    const char* name;
    PathRow row;
    FailureNumber number;
  } cases[] = {
      {"line", row(1, 0, 0, 1, 0), FailureNumber::DivisionByZero},
      {"line without length", row(1, 1, 0, 1, 0), FailureNumber::Overflow},
      {"arc", row(3, 1, 0, 0, 1), FailureNumber::DivisionByZero},
  };
  for (const auto& c : cases) {
    try {
      renderer.drawtoolpath(addPath(c.row), screen);
      ADD_FAILURE() << c.name;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), c.number) << c.name;
    }
  }
}

const char* const kHoleAtOneTwo =
    "DrawStyle 0\n"
    "DrawMode 13\n"
    "line (1.1, 2)-(0.9, 2) #800080\n"
    "line (1, 2.1)-(1, 1.9) #800080\n"
    "circle (1, 2) r 0.033 #800080\n"
    "circle (1, 2) r 0.066 #800080\n"
    "circle (1, 2) r 0.1 #800080\n";

TEST_F(PathRendererTest, CyclesShowAHoleSymbol) {
  EXPECT_EQ(drawnPath(addPath(row(81, 1, 2, 1, 2))), kHoleAtOneTwo);
}

TEST_F(PathRendererTest, RapidRowsShowAHoleSymbolAtTheirStartAndNoLine) {
  EXPECT_EQ(drawnPath(addPath(row(0, 1, 2, 4, 4))), kHoleAtOneTwo);
}

TEST_F(PathRendererTest, ASlotShowsTwoHolesAndThreeLines) {
  const std::string slot = drawnPath(addPath(row(79, 1, 2, 3, 2)));
  EXPECT_EQ(slot, std::string(kHoleAtOneTwo) +
                      "line (3.1, 2)-(2.9, 2) #800080\n"
                      "line (3, 2.1)-(3, 1.9) #800080\n"
                      "circle (3, 2) r 0.033 #800080\n"
                      "circle (3, 2) r 0.066 #800080\n"
                      "circle (3, 2) r 0.1 #800080\n"
                      "line (1, 2)-(3, 2) #800080\n"
                      "line (1, 2.1)-(3, 2.1) #800080\n"
                      "line (1, 1.9)-(3, 1.9) #800080\n");
}

TEST_F(PathRendererTest, AVerticalSlotIsShiftedAcross) {
  drawnPath(addPath(row(79, 1, 2, 1, 4)));
  renderer.drawtoolpath(1, screen);
  const auto n = log.lines.size();
  EXPECT_EQ(log.lines[n - 3], "line (1, 2)-(1, 4) #800080");
  EXPECT_EQ(log.lines[n - 2], "line (0.9, 2)-(0.9, 4) #800080");
  EXPECT_EQ(log.lines[n - 1], "line (1.1, 2)-(1.1, 4) #800080");
}

TEST_F(PathRendererTest, ASelectedRowHasTheSelectColourAndABlinkingOneTheCallers) {
  PathRow selected = row(81, 1, 2, 1, 2);
  selected.code = 30102;
  const int ps = addPath(selected);
  renderer.drawtoolpath(ps, screen);
  EXPECT_EQ(log.lines.back(), "circle (1, 2) r 0.1 #FF0000");
  renderer.drawtoolpath(ps, screen, 0x00FF00);
  EXPECT_EQ(log.lines.back(), "circle (1, 2) r 0.1 #00FF00");
}

TEST_F(PathRendererTest, OnPaperTheRowIsTheSame) {
  renderer.drawtoolpath(addPath(row(81, 1, 2, 1, 2)), paper);
  EXPECT_EQ("DrawStyle 0\nDrawMode 13\n" + log.take(), kHoleAtOneTwo);
}

class GridTest : public DisplayBench {
 protected:
  std::string gridOf(float spacing, DrawingTarget& target) {
    store.visualgrid = spacing;
    log.take();
    renderer.DisplayGrid(target);
    return log.take();
  }
};

TEST_F(GridTest, LinesGoDownThenUpThenRightThenLeftFromZero) {
  SetScale(-1, -2, 2, 1, screen);
  EXPECT_EQ(gridOf(1, screen),
            "DrawMode 13\n"
            "DrawStyle 2\nline (-1, 0)-(2, 0) #808080\nevents\n"
            "DrawStyle 2\nline (-1, -1)-(2, -1) #808080\nevents\n"
            "DrawStyle 2\nline (-1, -2)-(2, -2) #808080\nevents\n"
            "DrawStyle 2\nline (-1, 0)-(2, 0) #808080\nevents\n"
            "DrawStyle 2\nline (-1, 1)-(2, 1) #808080\nevents\n"
            "DrawStyle 2\nline (0, 1)-(0, -2) #808080\nevents\n"
            "DrawStyle 2\nline (1, 1)-(1, -2) #808080\nevents\n"
            "DrawStyle 2\nline (2, 1)-(2, -2) #808080\nevents\n"
            "DrawStyle 2\nline (0, 1)-(0, -2) #808080\nevents\n"
            "DrawStyle 2\nline (-1, 1)-(-1, -2) #808080\nevents\n"
            "DrawStyle 0\n");
}

TEST_F(GridTest, WithZeroOutsideTheViewTheLinesRunFromZeroTowardIt) {
  SetScale(2, 2, 3, 3, screen);
  EXPECT_EQ(gridOf(1, screen),
            "DrawMode 13\n"
            "DrawStyle 2\nline (2, 0)-(3, 0) #808080\nevents\n"
            "DrawStyle 2\nline (2, 1)-(3, 1) #808080\nevents\n"
            "DrawStyle 2\nline (2, 2)-(3, 2) #808080\nevents\n"
            "DrawStyle 2\nline (2, 3)-(3, 3) #808080\nevents\n"
            "DrawStyle 2\nline (0, 3)-(0, 2) #808080\nevents\n"
            "DrawStyle 2\nline (1, 3)-(1, 2) #808080\nevents\n"
            "DrawStyle 2\nline (2, 3)-(2, 2) #808080\nevents\n"
            "DrawStyle 2\nline (3, 3)-(3, 2) #808080\nevents\n"
            "DrawStyle 0\n");
}

TEST_F(GridTest, PaperHasNone) {
  EXPECT_EQ(gridOf(1, paper), "");
}

TEST_F(GridTest, ASpacingThatIsNoneDrawsNoLines) {
  EXPECT_EQ(gridOf(0, screen), "DrawMode 13\nDrawStyle 0\n");
  EXPECT_EQ(gridOf(-1, screen), "DrawMode 13\nDrawStyle 0\n");
}

}  // namespace
}  // namespace tess
