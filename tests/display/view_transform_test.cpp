// The view as plain calculations.
#include "display/view_transform.h"

#include "core/drawing_store.h"
#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

DrawingStore stockOf(float x, float y, int xorigin = 1, int yorigin = 1) {
  DrawingStore store;
  store.partdimx = x;
  store.partdimy = y;
  store.xorigin = xorigin;
  store.yorigin = yorigin;
  return store;
}

View viewOf(int width, int height) {
  View view;
  view.picwidth = width;
  view.picheight = height;
  return view;
}

TEST(VisibleRectangle, LiesRoundTheCenterWithSquareUnits) {
  View view;
  view.viewcx = 1;
  view.viewcy = 2;
  view.aspectx = 1.25F;
  const WorldRect visible = visibleRectangle(view, 4);
  EXPECT_EQ(visible.left, -4);
  EXPECT_EQ(visible.right, 6);
  EXPECT_EQ(visible.bottom, -2);
  EXPECT_EQ(visible.top, 6);
}

TEST(VisibleRectangle, BeyondThirtyTwoBitsOverflows) {
  View view;
  view.aspectx = 2;
  EXPECT_THROW(visibleRectangle(view, 3e38F), RuntimeFailure);
}

struct StockCase {
  const char* name;
  int xorigin, yorigin;
  WorldRect rect;
};

TEST(StockRectangle, LiesOnTheSideThatTheOriginWordsSay) {
  const StockCase cases[] = {
      {"both positive", 1, 1, {0, 0, 4, 2}},
      {"both negative", -1, -1, {-4, -2, 0, 0}},
      {"both zero", 0, 0, {-2, -1, 2, 1}},
      {"only the sign counts", 7, -30, {0, -2, 4, 0}},
  };
  for (const StockCase& c : cases) {
    const WorldRect stock = stockRectangle(stockOf(4, 2, c.xorigin, c.yorigin));
    EXPECT_EQ(stock.left, c.rect.left) << c.name;
    EXPECT_EQ(stock.bottom, c.rect.bottom) << c.name;
    EXPECT_EQ(stock.right, c.rect.right) << c.name;
    EXPECT_EQ(stock.top, c.rect.top) << c.name;
  }
}

TEST(FitAspects, TheSideThatTheStockFillsMoreIsFitted) {
  View view = viewOf(1000, 800);
  EXPECT_EQ(fitAspects(view, stockOf(4, 4)), FittedSide::Height);
  EXPECT_EQ(view.aspecty, 1);
  EXPECT_EQ(view.aspectx, 1.25F);
  EXPECT_EQ(fitAspects(view, stockOf(8, 4)), FittedSide::Width);
  EXPECT_EQ(view.aspectx, 1);
  EXPECT_EQ(view.aspecty, 0.8F);
}

TEST(FitAspects, AStockOfTheSurfacesShapeIsFittedByHeight) {
  View view = viewOf(1000, 800);
  EXPECT_EQ(fitAspects(view, stockOf(5, 4)), FittedSide::Height);
}

TEST(FitAspects, ASurfaceWithoutExtentFails) {
  const struct {
    const char* name;
    View view;
    float stock;
    FailureNumber number;
  } cases[] = {
      {"no width", viewOf(0, 800), 4, FailureNumber::DivisionByZero},
      {"no height", viewOf(1000, 0), 4, FailureNumber::DivisionByZero},
      {"nothing by nothing", viewOf(0, 0), 0, FailureNumber::Overflow},
  };
  for (auto c : cases) {
    try {
      fitAspects(c.view, stockOf(c.stock, c.stock));
      ADD_FAILURE() << c.name;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), c.number) << c.name;
    }
  }
}

TEST(ResetToFullView, ShowsTheStockAtOnePointThreeOfTheFittedSide) {
  View view;
  resetToFullView(view, stockOf(6, 4, 1, -1), FittedSide::Height);
  EXPECT_EQ(view.viewspan, 2.6F);
  EXPECT_EQ(view.homespan, 2.6F);
  EXPECT_EQ(view.homecx, 3);
  EXPECT_EQ(view.homecy, -2);
  EXPECT_EQ(view.viewcx, 3);
  EXPECT_EQ(view.viewcy, -2);
  resetToFullView(view, stockOf(6, 4), FittedSide::Width);
  EXPECT_EQ(view.viewspan, 3.9F);
}

TEST(ResetToFullView, RoundStockLiesAboutZero) {
  DrawingStore store = stockOf(6, 6);
  store.roundstock = true;
  View view;
  view.viewcx = 9;
  resetToFullView(view, store, FittedSide::Height);
  EXPECT_EQ(view.viewcx, 0);
  EXPECT_EQ(view.viewcy, 0);
}

TEST(ResetToFullView, ANegativeStockHasAPositiveSpan) {
  View view;
  resetToFullView(view, stockOf(-4, -4), FittedSide::Height);
  EXPECT_EQ(view.viewspan, 2.6F);
}

TEST(SetPicSize, RoundsToWholePixels) {
  View view;
  setPicSize(view, {0, 0, 640.6F, 480.4F});
  EXPECT_EQ(view.picwidth, 641);
  EXPECT_EQ(view.picheight, 480);
  EXPECT_THROW(setPicSize(view, {0, 0, 40000, 1}), RuntimeFailure);
}

class SpanFraction : public DisplayBench {};

TEST_F(SpanFraction, TakesTheAxisThatTheWindowFillsMore) {
  EXPECT_DOUBLE_EQ(spanFraction(screen, 5, 2), 0.5);  // of 10 by 8
  EXPECT_DOUBLE_EQ(spanFraction(screen, 1, 4), 0.5);
  EXPECT_DOUBLE_EQ(spanFraction(screen, 20, 4), 2);
}

TEST_F(SpanFraction, AnAxisWithoutExtentHasNoSay) {
  EXPECT_DOUBLE_EQ(spanFraction(screen, 0, 2), 0.25);
  EXPECT_DOUBLE_EQ(spanFraction(screen, 2, 0), 0.2);
  EXPECT_DOUBLE_EQ(spanFraction(screen, 0, 0), 1);
}

TEST(ZoomFactor, SpansNotAboveZeroBecomeOnePointThree) {
  View view;
  view.homespan = 0;
  view.viewspan = -2;
  updateZoomFactor(view);
  EXPECT_EQ(view.homespan, 1.3F);
  EXPECT_EQ(view.viewspan, 1.3F);
  EXPECT_EQ(view.zoomfactor, 1);
  view.homespan = 2.6F;
  updateZoomFactor(view);
  EXPECT_EQ(view.zoomfactor, 2);
}

TEST(ZoomFactor, WithoutTheGuardAViewWithoutSpanFails) {
  View view;
  view.homespan = 1;
  EXPECT_THROW(magnification(view), RuntimeFailure);
}

struct ZoomTextCase {
  float zoomfactor;
  const char* text;
};

TEST(ZoomText, IsTheWholeFactorOrItsWholeReciprocal) {
  const ZoomTextCase cases[] = {
      {1, " 1"},
      {4, " 4"},
      {64, " 64"},
      {1.4F, " 1"},
      {1.5F, " 2"},
      {0.5F, "1 / 2"},
      {0.25F, "1 / 4"},
      {0.9F, "1 / 1"},
      {0.39F, "1 / 3"},
      {0.125F, "1 / 8"},
      {1.0F / 1024, "1 / 1024"},
  };
  for (const ZoomTextCase& c : cases) EXPECT_EQ(zoomText(c.zoomfactor), c.text) << c.zoomfactor;
}

TEST(ZoomText, AViewZoomedOutWithoutEndStillHasAText) {
  EXPECT_EQ(zoomText(1.0F / 4294967296.0F), "1 / 4294967296");
}

}  // namespace
}  // namespace tess
