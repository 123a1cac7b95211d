// Drawings as strokes in their own units, and as SVG.
#include "display/vector_picture.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "display/svg_picture.h"
#include "geometry/float_constants.h"
#include "tests/support/recording_host.h"

namespace tess {
namespace {

struct Vectors : ::testing::Test {
  Vectors() {
    store.units = "M";
    store.endmarkers = 0;
    store.showpaths = 1;
    store.toolradius[0] = 1;
  }
  void add(const SegmentRow& row) { AddSeg(store, row, nullptr); }
  void addPath(const PathRow& row) { addPathSegment(store, row); }
  VectorPicture picture() { return vectorPicture(store, 0.25F, host.prompts); }

  DrawingStore store;
  testing::RecordingHost host;
};

TEST_F(Vectors, ALineIsOneStroke) {
  add({.type = 1, .x0 = 1, .y0 = 2, .x1 = 11, .y1 = 2});
  const VectorPicture all = picture();
  ASSERT_EQ(all.strokes.size(), 1U);
  EXPECT_EQ(all.strokes[0].ends, (WorldBox{1, 2, 11, 2}));
  EXPECT_EQ(all.bounds, (Box{1, 2, 11, 2}));
}

TEST_F(Vectors, AnArcReachesAsFarAsItsSweep) {
  add({.type = 3, .x0 = 10, .y0 = 0, .x1 = -10, .y1 = 0});
  const VectorPicture all = picture();
  ASSERT_EQ(all.strokes.size(), 1U);
  EXPECT_EQ(all.strokes[0].kind, Stroke::Kind::Arc);
  EXPECT_NEAR(all.bounds.minY, 0, 1e-4);
  EXPECT_NEAR(all.bounds.maxY, 10, 1e-4);
}

TEST_F(Vectors, HiddenPathsAreLeftOut) {
  addPath({.type = 1, .x0 = 0, .y0 = 0, .x1 = 3, .y1 = 0});
  store.psvisible[1] = false;
  EXPECT_TRUE(picture().strokes.empty());
  addPath({.type = 1, .x0 = 0, .y0 = 0, .x1 = 3, .y1 = 0});
  EXPECT_FALSE(picture().strokes.empty());
  store.showpaths = 0;
  EXPECT_TRUE(picture().strokes.empty());
}

TEST_F(Vectors, AnEmptyDrawingHasNoBounds) {
  EXPECT_TRUE(picture().bounds.isEmpty());
}

TEST_F(Vectors, WhiteIsBlackOnPaperAndYellowDark) {
  EXPECT_EQ(inkOnPaper(0xFFFFFF), 0);
  EXPECT_EQ(inkOnPaper(0xC0C0C0), 0);
  EXPECT_EQ(inkOnPaper(0x0000FF), 0x0000FF);  // red
  const Rgb yellow = inkOnPaper(0x00FFFF);
  EXPECT_LT(yellow & 0xFF, 180);
  EXPECT_EQ(yellow & 0xFF, yellow >> 8 & 0xFF);
  EXPECT_EQ(yellow >> 16, 0);
}

TEST_F(Vectors, AnSvgHasTheDrawingsOwnSize) {
  add({.type = 1, .x0 = 0, .y0 = 0, .x1 = 40, .y1 = 30});
  EXPECT_EQ(svgPicture(store, host.prompts),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50.000000mm\" "
            "height=\"40.000000mm\" viewBox=\"0 0 50.000000 40.000000\">\n"
            "<g fill=\"none\" stroke-linecap=\"round\" stroke-width=\"0.200000\">\n"
            "<line x1=\"5.000000\" y1=\"35.000000\" x2=\"45.000000\" y2=\"5.000000\" "
            "stroke=\"#000000\"/>\n"
            "</g>\n</svg>\n");
}

TEST_F(Vectors, AnSvgOfInchesIsInMillimetres) {
  store.units = "I";
  add({.type = 5, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0});
  const std::string svg = svgPicture(store, host.prompts);
  EXPECT_NE(svg.find("width=\"60.800000mm\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("<circle cx=\"30.400000\" cy=\"30.400000\" r=\"25.400000\""),
            std::string::npos)
      << svg;
}

TEST_F(Vectors, AnSvgArcTurnsAsInTheDrawing) {
  add({.type = 3, .x0 = 10, .y0 = 0, .x1 = 0, .y1 = -10});
  const std::string svg = svgPicture(store, host.prompts);
  EXPECT_NE(svg.find(" A10.000000 10.000000 0 1 0 "), std::string::npos) << svg;
}

TEST_F(Vectors, AnSvgShowsAnArcThatComesBackToItsStart) {
  add({.type = 3, .x0 = 10, .y0 = 0, .x1 = 10, .y1 = 0});
  EXPECT_NE(svgPicture(store, host.prompts).find("<circle "), std::string::npos);
}

TEST_F(Vectors, AnEmptySvgIsWellFormed) {
  EXPECT_NE(svgPicture(store, host.prompts).find("width=\"10.000000mm\""), std::string::npos);
}

}  // namespace
}  // namespace tess
