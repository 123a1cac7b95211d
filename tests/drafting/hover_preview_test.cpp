// What is shown before a button is down: with the setup's key alone, taken off without a trace, and
// never other rows than a click with a motion makes.
#include "drafting/hover_preview.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/raster_surface.h"

namespace tess {
namespace {

using testing::DraftingTest;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

struct Hovering : RecordedDrafting {
  Hovering() {
    store.hoverpreview = true;
    addLine(2, 1, 4, 1);
    log.take();
  }
  void snapOn() {
    context.state.OSnapOn = true;
    context.state.RevertOSnapFeatures();
  }
  void snapTo(FeatureKind kind) {
    context.state.OSnapOn = true;
    context.state.OSnapFeatures = {};
    context.state.OSnapFeatures[static_cast<std::size_t>(kind)] = true;
    context.state.RevertOSnapFeatures();
  }
};

TEST(HoverPreview, WithoutTheKeyNothingIsShown) {
  Hovering d;
  d.store.hoverpreview = false;
  d.snapOn();
  mnuDrawLine_Click(d.context);
  d.log.take();
  d.move(0, 2.1F, 1.1F);
  EXPECT_EQ(d.log.take(), "focusSurface\n");
  EXPECT_FALSE(d.context.state.FeaturePoint());
  EXPECT_EQ(d.context.pointer.RubberKind, 0);
}

TEST(HoverPreview, TheBandRunsFromTheMarkerToTheSnappedPlace) {
  Hovering d;
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  mnuDrawLine_Click(d.context);
  d.move(0, 1.1F, -0.9F);
  EXPECT_EQ(hoverPoint(d.context), (Point{1, -1}));
  EXPECT_EQ(d.context.pointer.RubberKind, 1);
}

TEST(HoverPreview, TheMarkFollowsThePointerAndIsNamed) {
  Hovering d;
  struct Row {
    FeatureKind kind;
    Point at;
    const char* name;
  };
  const Row rows[] = {{FeatureKind::EndPoint, {2.1F, 1.1F}, "end point"},
                      {FeatureKind::Midpoint, {3.1F, 1.1F}, "midpoint"},
                      {FeatureKind::Center, {-2, -2.1F}, "center"},
                      {FeatureKind::Quadrant, {-1.1F, -2}, "quadrant"},
                      {FeatureKind::Perpendicular, {0.1F, 1.1F}, "perpendicular"}};
  d.add({.type = kCircle, .x0 = -1, .y0 = -2, .x1 = -1, .y1 = -2, .xc = -2, .yc = -2});
  d.addLine(-1, 1, 1, 1);
  for (const Row& row : rows) {
    d.snapTo(row.kind);
    d.move(0, row.at.x, row.at.y);
    ASSERT_TRUE(d.context.state.FeaturePoint()) << row.name;
    EXPECT_EQ(d.context.state.FeaturePoint()->PointType, row.kind);
    EXPECT_EQ(snapName(d.context), row.name);
  }
}

TEST(HoverPreview, TheGridIsNamedWhereNoFeatureIs) {
  Hovering d;
  EXPECT_EQ(snapName(d.context), "");
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  EXPECT_EQ(snapName(d.context), "grid");
  d.store.cursorgrid = 0;
  EXPECT_EQ(snapName(d.context), "") << "a grid without a spacing snaps nothing";
}

TEST(HoverPreview, AClickTakesWhatIsMarked) {
  Hovering d;
  d.snapOn();
  mnuDrawLine_Click(d.context);
  d.click(2.1F, 1.1F);
  EXPECT_EQ(segmentTexts(d.store).back(), "1 (0, 0)-(2, 1)");
  d.rightClick(4.1F, 1.1F);
  EXPECT_EQ(d.marker(), (Point{4, 1}));
}

TEST(HoverPreview, ShiftTurnsTheSnapOver) {
  Hovering d;
  d.snapOn();
  mnuDrawLine_Click(d.context);
  d.move(0, 2.1F, 1.1F, kShiftKey);
  EXPECT_FALSE(d.context.state.FeaturePoint());
  d.click(2.1F, 1.1F, kShiftKey);
  EXPECT_EQ(segmentTexts(d.store).back(), "1 (0, 0)-(2.1, 1.1)");
}

TEST(HoverPreview, AnArmedActionShowsWhatItWouldMake) {
  Hovering d;
  arm(d.context, PendingAction::Move);
  d.move(0, 1, 1);
  ASSERT_EQ(d.context.hovering.size(), 1U);
  EXPECT_EQ(d.context.hovering[0].x0, 3);
  EXPECT_EQ(d.context.hovering[0].y0, 2);
}

TEST(HoverPreview, ADragsBandWaitsForItsPress) {
  Hovering d;
  for (const PendingAction action :
       {PendingAction::Select, PendingAction::ZoomWindow, PendingAction::Measure,
        PendingAction::MoveEndPoint, PendingAction::Pan}) {
    arm(d.context, action);
    d.log.take();
    d.move(0, 1, 1);
    EXPECT_EQ(d.context.pointer.DragBand, 0) << static_cast<int>(action);
  }
}

TEST(HoverPreview, AFormThatPicksHasThePointerToItself) {
  Hovering d;
  mnuDrawLine_Click(d.context);
  d.context.onFormClick = [](Point) {};
  d.move(0, 1, 1);
  EXPECT_EQ(d.context.pointer.RubberKind, 0);
}

TEST(HoverPreview, PanningByControlFindsNoBand) {
  Hovering d;
  mnuDrawLine_Click(d.context);
  d.move(0, 1, 1);
  d.press(kLeftButton, 1, 1, kControlKey);
  EXPECT_EQ(d.context.pointer.RubberKind, 0);
  const float before = d.view.viewcx;
  d.move(kLeftButton, 2, 1, kControlKey);
  EXPECT_NE(d.view.viewcx, before);
}

// ---- On a picture

struct Pictured : DraftingTest<testing::RasterSurface> {
  Pictured() {
    store.hoverpreview = true;
    addLine(-3, -2, 3, -1);
    context.state.OSnapOn = true;
    context.state.RevertOSnapFeatures();
    redraw.redrawscreen();
    pass(1000);
  }
};

// In each mode and action, wherever the pointer passes, the picture is the same afterwards.
TEST(HoverPicture, NothingIsLeftBehind) {
  for (const auto& start : std::vector<std::function<void(DraftingContext&)>>{
           mnuDrawLine_Click, mnuDrawRect_Click, mnuDrawCircleC1P_Click,
           [](DraftingContext& context) { arm(context, PendingAction::Move); },
           [](DraftingContext& context) { arm(context, PendingAction::Delete); }}) {
    Pictured d;
    start(d.context);
    const auto before = d.surface.picture();
    int shown = 0;
    for (int n = 0; n < 20; ++n) {
      d.move(0, -3 + 0.3F * static_cast<float>(n), -2 + 0.1F * static_cast<float>(n));
      if (d.surface.differences(before) > 0) ++shown;
    }
    EXPECT_GE(shown, 10);
    endHoverPreview(d.context);
    EXPECT_EQ(d.surface.differences(before), 0);
  }
}

TEST(HoverPicture, OnTheMarkerThereIsNoBand) {
  Pictured d;
  d.context.state.OSnapOn = false;
  d.context.state.RevertOSnapFeatures();
  mnuDrawLine_Click(d.context);
  const auto before = d.surface.picture();
  d.move(0, 1, 1);
  EXPECT_GT(d.surface.differences(before), 0);
  d.move(0, 0, 0);
  EXPECT_EQ(d.surface.differences(before), 0);
}

TEST(HoverPicture, AnotherModeTakesTheBandAlong) {
  Pictured d;
  mnuDrawLine_Click(d.context);
  const auto before = d.surface.picture();
  d.move(0, 2, 2);
  mnuDrawRect_Click(d.context);
  d.move(0, 1, 2);
  endHoverPreview(d.context);
  EXPECT_EQ(d.surface.differences(before), 0);
}

TEST(HoverPicture, ARedrawBeneathLeavesNoGhost) {
  Pictured d;
  mnuDrawLine_Click(d.context);
  d.move(0, 2, 2);
  d.redraw.redrawscreen();
  d.pass(1000);
  const auto before = d.surface.picture();
  d.move(0, 1, 2);
  endHoverPreview(d.context);
  EXPECT_EQ(d.surface.differences(before), 0);
}

TEST(HoverPicture, TheSecondPointOfAnArcHoversFreely) {
  Pictured d;
  mnuDrawArc3P_Click(d.context);
  d.click(2, 0);
  const auto before = d.surface.picture();
  d.move(0, 1, 1);
  EXPECT_GT(d.surface.differences(before), 0);
  endHoverPreview(d.context);
  EXPECT_EQ(d.surface.differences(before), 0);
}

}  // namespace
}  // namespace tess
