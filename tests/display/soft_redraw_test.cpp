// What a redraw shows in the soft looks.
#include "tests/display/display_bench.h"
#include "tests/support/golden.h"

namespace tess {
namespace {

using testing::DisplayBench;

class SoftRedraw : public DisplayBench {
 protected:
  SoftRedraw() {
    store.screenlook = static_cast<int>(LookChoice::Dark);
    store.visualgridf = 1;
    store.visualgrid = 0.5F;
  }
  std::string redrawn() {
    log.take();
    redraw.redrawscreen();
    return log.take();
  }
};

TEST_F(SoftRedraw, TheGridSaysItsPitch) {
  EXPECT_NE(redrawn().find(" Grid 0.5 in #"), std::string::npos) << redrawn();
  store.units = "M";
  store.visualgrid = 0.01F;  // a pixel
  EXPECT_NE(redrawn().find(" Grid 0.1 mm #"), std::string::npos);
}

TEST_F(SoftRedraw, WithoutLinesItSaysNothing) {
  store.visualgridf = 0;
  EXPECT_EQ(redrawn().find("Grid"), std::string::npos);
  store.visualgridf = 1;
  for (const float spacing : {0.0F, -1.0F, -1e9F}) {
    store.visualgrid = spacing;
    EXPECT_EQ(redrawn().find("Grid"), std::string::npos) << spacing;
  }
}

TEST_F(SoftRedraw, APitchBeyondTheViewIsSaidToo) {
  store.visualgrid = 1e9F;
  EXPECT_NE(redrawn().find("Grid 1"), std::string::npos);
}

TEST_F(SoftRedraw, TheClassicLookSaysNothing) {
  store.screenlook = 0;
  EXPECT_EQ(redrawn().find("Grid"), std::string::npos);
}

TEST_F(SoftRedraw, WhatIsSoiledIsRedrawnOnceAndSoon) {
  log.take();
  redraw.soil();
  redraw.soil();
  EXPECT_EQ(log.count("Cls"), 0);
  timers.advance(1);
  EXPECT_EQ(log.count("Cls"), 1);
  timers.advance(1000);
  EXPECT_EQ(log.count("Cls"), 1);
}

TEST_F(SoftRedraw, ARedrawInTheMeantimeIsEnough) {
  redraw.soil();
  redraw.redrawscreen();
  log.take();
  timers.advance(1000);
  EXPECT_EQ(log.count("Cls"), 0);
}

TEST_F(SoftRedraw, WhatIsSoiledTakesTheNextFrameWhereThereAreAny) {
  surface.hasFrames = true;
  log.take();
  redraw.soil();
  redraw.redrawSoon();
  redraw.soil();
  EXPECT_EQ(log.take(), "frame requested\n");
  timers.advance(1000);
  EXPECT_EQ(log.count("Cls"), 0);
  redraw.paintFrame();
  EXPECT_EQ(log.count("Cls"), 1);
  timers.advance(1000);
  redraw.paintFrame();
  EXPECT_EQ(log.count("Cls"), 1);
}

TEST_F(SoftRedraw, PaperTakesWhatIsSoiledAsItWillBe) {
  redraw.soil();
  log.take();
  redraw.redrawscreen(&paper, true, true, true);
  EXPECT_EQ(log.count("Cls"), 1);
  timers.advance(1000);
  EXPECT_EQ(log.count("Cls"), 1);
}

class SoftPicture : public SoftRedraw, public ::testing::WithParamInterface<LookChoice> {};

// One of each: rows by state, marks of lines and arcs, a path of two groups with its rapids.
TEST_P(SoftPicture, GoldenOfASmallDrawing) {
  store.screenlook = static_cast<int>(GetParam());
  store.parttemplate = store.endmarkers = store.showpaths = 1;
  store.pathdirection = store.pathcolors = 1;
  store.visualgrid = 2;
  store.partdimx = store.partdimy = 4;
  store.toolradius[0] = 0.125F;
  addSegment({1, 8, -2, -1, 2, -1});
  addSegment({2, 30008, 2, -1, 2, 1, 2, 0});
  addSegment({3, 30108, 2, 1, 0, 1, 1, 1});
  addPath({1, -2, -1, 2, -1, 0, 0, -0.25F, 10, 100});
  addPath({3, 2, -1, 2, 1, 2, 0, -0.25F, 10, 100});
  addPath({1, 3, 1, 3.5F, 1, 0, 0, -0.25F, 10, 200});
  addPath({83, 0, -1, 0, -1, 0.1F, 0, -0.5F, 5, 200});
  const bool dark = GetParam() == LookChoice::Dark;
  testing::expectGolden(dark ? "display/golden/soft_dark.txt" : "display/golden/soft_light.txt",
                        redrawn());
}

INSTANTIATE_TEST_SUITE_P(Looks, SoftPicture,
                         ::testing::Values(LookChoice::Dark, LookChoice::Light));

}  // namespace
}  // namespace tess
