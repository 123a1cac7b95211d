// Bands and marks vanish exactly: pictures compared pixel by pixel.
#include "drafting/rubber_band.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/edit_paths.h"
#include "drafting/enter_position.h"
#include "drafting/entity_creation.h"
#include "drafting/flip_arc.h"
#include "drafting/join_ends.h"
#include "drafting/measure.h"
#include "drafting/move_end_points.h"
#include "drafting/object_snap.h"
#include "drafting/selection.h"
#include "drafting/trim.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/raster_surface.h"

namespace tess {
namespace {

using testing::RasterSurface;
using RasterContext = testing::DraftingTest<RasterSurface>;
using Picture = std::vector<std::int32_t>;

// A context with something on it, so that bands cross ink as well as ground.
struct Scene : RasterContext {
  Scene() {
    addLine(-4, -3, 4, 3);
    add({.type = 2, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0});
    store.parttemplate = 1;
    redraw.redrawscreen();
  }
  Picture freshPicture() {
    redraw.redrawscreen();
    return surface.picture();
  }
  int differences(const Picture& other) const { return surface.differences(other); }
};

struct ModeCase {
  const char* name;
  void (*command)(DraftingContext&);
  bool threePoints;
};

constexpr ModeCase kModes[] = {
    {"line", mnuDrawLine_Click, false},
    {"rectangle", mnuDrawRect_Click, false},
    {"circle about the marker", mnuDrawCircleC1P_Click, false},
    {"arc through three points", mnuDrawArc3P_Click, true},
    {"arc about a centre", mnuDrawArcC2P_Click, true},
    {"circle through three points", mnuDrawCircle3P_Click, true},
};

void startMode(Scene& scene, const ModeCase& mode) {
  mode.command(scene.context);
  scene.rightClick(-1, 0.5F);
  if (mode.threePoints) scene.click(2, 1);
  scene.redraw.redrawscreen();
}

TEST(RubberBand, IsOnTheScreenWhileItIsDragged) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene;
    startMode(scene, mode);
    const Picture before = scene.freshPicture();
    scene.press(1, 0.3F, 1.5F);
    EXPECT_GT(scene.differences(before), 0);
    EXPECT_EQ(scene.context.pointer.RubberKind, scene.mode());
  }
}

TEST(RubberBand, MovedLeavesOnlyItsLastShape) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene, other;
    startMode(scene, mode);
    startMode(other, mode);
    scene.press(1, 0.3F, 1.5F);
    for (const Point to : {Point{1, 1.6F}, Point{-2, 3}, Point{2.5F, -1}, Point{3, 1}}) {
      scene.move(1, to.x, to.y);
    }
    other.press(1, 3, 1);
    EXPECT_EQ(scene.differences(other.surface.picture()), 0);
  }
}

TEST(RubberBand, ErasedLeavesTheFreshPicture) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene;
    startMode(scene, mode);
    const Picture before = scene.freshPicture();
    scene.press(1, 0.3F, 1.5F);
    scene.move(1, 2.5F, -1);
    eraseRubberBand(scene.context);
    EXPECT_EQ(scene.differences(before), 0);
    EXPECT_EQ(scene.context.pointer.RubberKind, 0);
    eraseRubberBand(scene.context);
    EXPECT_EQ(scene.differences(before), 0);
  }
}

TEST(RubberBand, AfterPressMoveReleaseAndRedrawThePictureIsAFreshOne) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene;
    startMode(scene, mode);
    scene.drag({0.3F, 1.5F}, {2.5F, -1});
    scene.redraw.redrawscreen();
    const Picture after = scene.surface.picture();
    Scene fresh;
    fresh.store = scene.store;
    EXPECT_EQ(scene.surface.differences(fresh.freshPicture()), 0);
    EXPECT_EQ(after, fresh.surface.picture());
  }
}

TEST(RubberBand, ARedrawInBetweenClearsIt) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene, other;
    startMode(scene, mode);
    startMode(other, mode);
    scene.press(1, 0.3F, 1.5F);
    scene.redraw.redrawscreen();
    EXPECT_EQ(scene.context.pointer.RubberKind, 0);
    scene.move(1, 3, 1);
    other.press(1, 3, 1);
    EXPECT_EQ(scene.differences(other.surface.picture()), 0);
  }
}

TEST(RubberBand, TheStagedRedrawClearsItToo) {
  Scene scene;
  startMode(scene, kModes[0]);
  scene.press(1, 0.3F, 1.5F);
  scene.redraw.setTaskQueueState(1);
  scene.pass(50);
  EXPECT_EQ(scene.context.pointer.RubberKind, 0);
}

TEST(RubberBand, OfAnotherModeIsErasedAsItWasDrawn) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene;
    startMode(scene, mode);
    scene.press(1, 0.3F, 1.5F);
    scene.move(1, 2.5F, -1);
    mnuDrawRect_Click(scene.context);  // by its key, with the button held
    scene.move(1, 3, 1);
    eraseRubberBand(scene.context);
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
  }
}

TEST(RubberBand, HasNoneWhereAThreePointCommandWaitsForItsSecondPoint) {
  for (const ModeCase& mode : kModes) {
    if (!mode.threePoints) continue;
    SCOPED_TRACE(mode.name);
    Scene scene;
    mode.command(scene.context);
    const Picture before = scene.freshPicture();
    scene.press(1, 1, 1);
    scene.move(1, 2, 1);
    EXPECT_EQ(scene.differences(before), 0);
    EXPECT_EQ(scene.context.pointer.RubberKind, 0);
  }
}

TEST(RubberBand, WithoutADrawingModeThereIsNone) {
  Scene scene;
  const Picture before = scene.surface.picture();
  scene.press(1, 1, 1);
  scene.move(1, 2, 1);
  EXPECT_EQ(scene.differences(before), 0);
}

// ---- Bands of pending actions

TEST(SelectionBox, LeavesThePictureAsItWasAfterAWindowThatPicksNothing) {
  for (const auto command : {mnuDrawSelect_Click, mnuDrawUnselect_Click}) {
    Scene scene;
    command(scene.context);
    const Picture before = scene.freshPicture();
    scene.press(1, -4.5F, 3.8F);
    scene.move(1, -3, 3);
    scene.move(1, -4, 3.5F);
    EXPECT_GT(scene.differences(before), 0);
    scene.release(1, -4, 3.5F);
    EXPECT_EQ(scene.differences(before), 0);
  }
}

TEST(ZoomBox, LeavesThePictureAsItWasWhereTheWindowIsRefused) {
  Scene scene;
  scene.viewCommands.mnuViewZoomWindow_Click();
  const Picture before = scene.freshPicture();
  scene.press(1, -4.5F, 3.8F);
  EXPECT_EQ(scene.differences(before), 0);
  scene.move(1, 3, 3);
  EXPECT_GT(scene.differences(before), 0);
  scene.move(1, 7, -7);
  scene.release(1, 7, -7);
  EXPECT_EQ(scene.view.viewspan, 4);
  EXPECT_EQ(scene.differences(before), 0);
}

TEST(ZoomBox, WipedByARedrawLeavesNothingEither) {
  Scene scene;
  scene.viewCommands.mnuViewZoomWindow_Click();
  const Picture before = scene.freshPicture();
  scene.press(1, -4.5F, 3.8F);
  scene.move(1, 7, -7);
  scene.redraw.redrawscreen();
  scene.release(1, 7, -7);
  EXPECT_EQ(scene.differences(before), 0);
}

TEST(MeasureBand, IsErasedBeforeTheRelease) {
  Scene scene;
  miMeasureDist_Click(scene.context);
  const Picture before = scene.freshPicture();
  scene.press(1, -2, 1);
  scene.move(1, 3, 3);
  EXPECT_GT(scene.differences(before), 0);
  scene.move(1, -2, 1);
  EXPECT_EQ(scene.differences(before), 0);
  scene.move(1, 2, 1);
  scene.redraw.redrawscreen();
  scene.move(1, 3, 3);
  scene.move(1, -2, 1);
  EXPECT_EQ(scene.differences(before), 0);
}

// ---- Rows that hover

// A tool up to the click before the last, and where the last one makes or leaves something.
struct HoverCase {
  const char* name;
  void (*command)(DraftingContext&);
  std::vector<Point> clicks;
  Point at;
};

const std::vector<HoverCase>& hoverCases() {
  static const std::vector<HoverCase> kCases = {
      {"trim", mnuEditTrimEntity_Click, {{3, 2.2F}}, {1, -1}},
      {"flip", mnuEditFlipArc_Click, {}, {-3, 2}},
      {"reverse", mnuEditRevArc_Click, {}, {-3, 2}},
      {"join", mnuEditJoinEnd_Click, {{4, 3}}, {-3, 1}},
      {"join by arc", mnuEditJoinEndPtsArc, {{4, 3}, {-3, 1}}, {0, 3}},
  };
  return kCases;
}

// The scene with rows for the tools; the same rows as paths or as a drawing.
struct EditScene : Scene {
  explicit EditScene(bool paths) {
    const SegmentRow kRows[] = {
        {.type = 3, .x0 = -2, .y0 = 2, .x1 = -3, .y1 = 1, .xc = -3, .yc = 2},
        {.type = 1, .x0 = 1, .y0 = -2, .x1 = 1, .y1 = 2},
    };
    for (const SegmentRow& row : kRows) {
      add(row);
      addPathSegment(store, {row.type, row.x0, row.y0, row.x1, row.y1, row.xc, row.yc});
    }
    addPathLine(-4, -3, 4, 3);
    context.command.EditPaths = paths;
    redraw.redrawscreen();
  }
  void start(const HoverCase& tool) {
    tool.command(context);
    for (const Point at : tool.clicks) click(at.x, at.y);
  }
};

TEST(HoveringRows, AreOnTheScreenWhileTheButtonIsDownAndThenGone) {
  for (const bool paths : {false, true}) {
    for (const HoverCase& tool : hoverCases()) {
      SCOPED_TRACE(std::string(tool.name) + (paths ? ", paths" : ""));
      EditScene scene(paths);
      scene.start(tool);
      const Picture before = scene.freshPicture();
      scene.press(1, tool.at.x, tool.at.y);
      EXPECT_GT(scene.differences(before), 0);
      EXPECT_FALSE(scene.context.hovering.empty());
      scene.move(1, tool.at.x + 0.1F, tool.at.y);
      eraseDragBand(scene.context);
      EXPECT_EQ(scene.differences(before), 0);
      EXPECT_TRUE(scene.context.hovering.empty());
    }
  }
}

TEST(HoveringRows, AreThoseThatTheReleaseMakes) {
  for (const HoverCase& tool : hoverCases()) {
    SCOPED_TRACE(tool.name);
    EditScene scene(/*paths=*/false);
    scene.start(tool);
    scene.press(1, tool.at.x, tool.at.y);
    ASSERT_EQ(scene.context.hovering.size(), 1U);
    const std::string hovering = testing::segmentText(scene.context.hovering[0]);
    scene.release(1, tool.at.x, tool.at.y);
    const auto rows = testing::segmentTexts(scene.store);
    EXPECT_NE(std::find(rows.begin(), rows.end(), hovering), rows.end()) << hovering;
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
  }
}

TEST(HoveringRows, VanishWithEsc) {
  for (const HoverCase& tool : hoverCases()) {
    SCOPED_TRACE(tool.name);
    EditScene scene(/*paths=*/false);
    scene.start(tool);
    const Picture before = scene.freshPicture();
    scene.press(1, tool.at.x, tool.at.y);
    Handle_esc(scene.context);
    EXPECT_EQ(scene.differences(before), 0);
  }
}

TEST(HoveringRows, VanishWhenEditingTurnsToTheOtherTable) {
  EditScene scene(/*paths=*/false);
  scene.start(hoverCases()[0]);
  const Picture before = scene.freshPicture();
  scene.press(1, 1, -1);
  toggleEditPaths(scene.context);
  EXPECT_EQ(scene.differences(before), 0);
}

TEST(HoveringRows, OfAnotherToolAreErasedAsTheyWereDrawn) {
  EditScene scene(/*paths=*/false);
  scene.start(hoverCases()[0]);
  scene.press(1, 1, -1);
  mnuEditMoveEnd_Click(scene.context);  // by its key, with the button held
  scene.move(1, 2, -1);
  eraseDragBand(scene.context);
  EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
}

TEST(HoveringRows, AreNoneWhereNothingWouldCome) {
  EditScene scene(/*paths=*/false);
  scene.start(hoverCases()[0]);
  const Picture before = scene.freshPicture();
  scene.press(1, 3, 2.3F);  // the row itself
  EXPECT_EQ(scene.differences(before), 0);
}

TEST(HoveringRows, GoWithTheRowsOfAnEndThatIsMoved) {
  for (const bool paths : {false, true}) {
    EditScene scene(paths);
    mnuEditMoveEnd_Click(scene.context);
    const Picture before = scene.freshPicture();
    scene.press(1, 1, 2.1F);
    EXPECT_GT(scene.differences(before), 0);
    scene.move(1, 2, 3.5F);
    ASSERT_EQ(scene.context.hovering.size(), 1U);
    EXPECT_EQ(testing::segmentText(scene.context.hovering[0]), "1 (1, -2)-(2, 3.5)");
    scene.move(1, 3, 1.5F);
    scene.release(1, 3, 1.5F);
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
    EXPECT_EQ(paths ? scene.store.psx1[2] : scene.store.x1[4], 3);
  }
}

TEST(HoveringRows, ShowAnArcThatDoesNotReachAsItIs) {
  EditScene scene(/*paths=*/false);
  mnuEditMoveEnd_Click(scene.context);
  scene.press(1, -2, 2);
  scene.move(1, 4, -2);
  ASSERT_EQ(scene.context.hovering.size(), 1U);
  EXPECT_EQ(testing::segmentText(scene.context.hovering[0]), "3 (-2, 2)-(-3, 1) c (-3, 2)");
}

TEST(HoveringRows, FollowTheGrid) {
  EditScene scene(/*paths=*/false);
  scene.store.cursorgridf = 1;
  scene.store.cursorgrid = 0.5F;
  mnuEditMoveEnd_Click(scene.context);
  scene.press(1, 1, 2);
  scene.move(1, 2.1F, 2.9F);
  EXPECT_EQ(testing::segmentText(scene.context.hovering.at(0)), "1 (1, -2)-(2, 3)");
}

// ---- Marks and crosses

TEST(FeatureMark, VanishesWhereNoFeatureIsNear) {
  Scene scene;
  OSnap_ButtonClick(scene.context);
  miMeasureDist_Click(scene.context);
  const Picture before = scene.freshPicture();
  for (const Point near : {Point{-3.9F, -3}, Point{0.1F, 0.1F}, Point{4, 2.8F}}) {
    scene.press(2, near.x, near.y);
    scene.move(2, near.x, near.y);
    EXPECT_GT(scene.differences(before), 0);
    scene.move(2, -4, 3);
    EXPECT_EQ(scene.differences(before), 0);
  }
}

TEST(FeatureMark, OfATypedPositionVanishesToo) {
  Scene scene;
  const Picture before = scene.freshPicture();
  scene.context.typedPosition = Point{2, 1};
  scene.press(2, 2, 1);
  scene.move(2, 2.1F, 1);
  EXPECT_GT(scene.differences(before), 0);
  scene.move(2, -4, 3);
  EXPECT_EQ(scene.differences(before), 0);
}

TEST(Crosses, OfMarkerAndSecondPointComeAndGo) {
  for (const ModeCase& mode : kModes) {
    if (!mode.threePoints) continue;
    SCOPED_TRACE(mode.name);
    Scene scene;
    mode.command(scene.context);
    const Picture before = scene.freshPicture();
    scene.click(2, -2);
    EXPECT_GT(scene.differences(before), 0);
    scene.redraw.redrawscreen();
    EXPECT_GT(scene.differences(before), 0);
    mnuDrawLine_Click(scene.context);
    EXPECT_EQ(scene.differences(before), 0);
    scene.rightClick(1.5F, -2);
    scene.rightClick(0, 0);
    EXPECT_EQ(scene.differences(before), 0);
  }
}

TEST(Crosses, SurviveARedrawAtOnceBetweenTheStagesOfAnother) {
  Scene scene;
  scene.rightClick(2, -2);  // where no row is painted over it
  const Picture fresh = scene.freshPicture();
  for (const int stages : {1, 2, 3}) {
    scene.redraw.setTaskQueueState(1);
    scene.pass(50 * stages);
    scene.redraw.redrawscreen();
    scene.pass(200);
    EXPECT_EQ(scene.differences(fresh), 0) << stages;
  }
}

TEST(Crosses, OfAMarkerThatMovesBetweenTheStagesComeWithTheLast) {
  Scene scene, other;
  other.rightClick(2, -2);
  scene.redraw.setTaskQueueState(1);
  scene.pass(50);
  scene.rightClick(2, -2);
  scene.pass(200);
  EXPECT_EQ(scene.differences(other.freshPicture()), 0);
}

TEST(Crosses, AfterAThreePointCommandOnlyTheMarkersIsLeft) {
  for (const ModeCase& mode : kModes) {
    if (!mode.threePoints) continue;
    SCOPED_TRACE(mode.name);
    Scene scene;
    mode.command(scene.context);
    scene.rightClick(-3, -3.5F);
    scene.click(-1, -3.5F);
    scene.click(-2, -2.8F);
    ASSERT_EQ(scene.store.NumSegments, 3);
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
  }
}

TEST(RubberBand, LeavesTheScreenWithItsMode) {
  testing::RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.press(1, 1, 1);
  d.log.take();
  eraseRubberBand(d.context);
  const std::string erased = d.log.take();
  showRubberBand(d.context);
  ASSERT_EQ(d.context.pointer.RubberKind, 1);
  d.log.take();
  mnuDrawSelect_Click(d.context);
  EXPECT_EQ(d.context.pointer.RubberKind, 0);
  EXPECT_NE(d.log.take().find(erased), std::string::npos);
}

}  // namespace
}  // namespace tess
