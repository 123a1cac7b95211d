// Outlines that do not close, counted.
#include "geometry/open_outlines.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

struct Drawing {
  Drawing() { store.cfg_tolerance = 0.001F; }
  Drawing& line(float x0, float y0, float x1, float y1) {
    AddSeg(store, {.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1}, nullptr);
    return *this;
  }
  int open(int first = 1) { return openOutlines(store, first, store.NumSegments); }

  DrawingStore store;
};

TEST(OpenOutlines, OfNothingAreNone) {
  EXPECT_EQ(Drawing().open(), 0);
}

TEST(OpenOutlines, AClosedOneIsNone) {
  EXPECT_EQ(Drawing().line(0, 0, 1, 0).line(1, 1, 1, 0).line(1, 1, 0, 0).open(), 0);
}

TEST(OpenOutlines, AChainCountsOnceHoweverLong) {
  EXPECT_EQ(Drawing().line(0, 0, 1, 0).line(2, 0, 1, 0).line(2, 0, 3, 0).open(), 1);
}

TEST(OpenOutlines, EachChainCounts) {
  EXPECT_EQ(Drawing().line(0, 0, 1, 0).line(5, 0, 6, 0).line(6, 0.0005F, 7, 0).open(), 2);
}

TEST(OpenOutlines, AGapWiderThanTheToleranceOpensOne) {
  EXPECT_EQ(Drawing().line(0, 0, 1, 0).line(1, 0, 1, 1).line(1, 1, 0, 0.01F).open(), 1);
}

TEST(OpenOutlines, ATailOpensTheOutlineThatItHangsOn) {
  EXPECT_EQ(Drawing().line(0, 0, 1, 0).line(1, 0, 1, 1).line(1, 1, 0, 0).line(1, 1, 2, 2).open(),
            1);
}

TEST(OpenOutlines, CirclesAndRectanglesHaveNoEnds) {
  Drawing d;
  AddSeg(d.store, {.type = kCircle, .x0 = 1, .x1 = 1}, nullptr);
  AddSeg(d.store, {.type = kClockwiseArc, .x0 = 1, .x1 = 1}, nullptr);
  AddSeg(d.store, {.type = kRectangle, .x1 = 1, .y1 = 1}, nullptr);
  EXPECT_EQ(d.open(), 0);
}

TEST(OpenOutlines, RowsBeforeTheFirstAreNoPartOfIt) {
  Drawing d;
  d.line(0, 0, 1, 0).line(1, 0, 2, 0);
  EXPECT_EQ(d.open(2), 1);
  EXPECT_EQ(openOutlines(d.store, 3, 2), 0);
}

}  // namespace
}  // namespace tess
