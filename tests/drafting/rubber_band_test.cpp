// Bands and marks vanish exactly: pictures compared pixel by pixel.
#include "drafting/rubber_band.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/enter_position.h"
#include "drafting/entity_creation.h"
#include "drafting/measure.h"
#include "drafting/object_snap.h"
#include "drafting/selection.h"
#include "tests/support/drafting_desk.h"
#include "tests/support/raster_surface.h"

namespace tess {
namespace {

using testing::RasterSurface;
using RasterDesk = testing::DraftingDesk<RasterSurface>;
using Picture = std::vector<std::int32_t>;

// A desk with something on it, so that bands cross ink as well as ground.
struct Scene : RasterDesk {
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
  void (*command)(Desk&);
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
  mode.command(scene.desk);
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
    EXPECT_EQ(scene.desk.pointer.RubberKind, scene.mode());
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
    eraseRubberBand(scene.desk);
    EXPECT_EQ(scene.differences(before), 0);
    EXPECT_EQ(scene.desk.pointer.RubberKind, 0);
    eraseRubberBand(scene.desk);
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
    EXPECT_EQ(scene.desk.pointer.RubberKind, 0);
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
  EXPECT_EQ(scene.desk.pointer.RubberKind, 0);
}

TEST(RubberBand, OfAnotherModeIsErasedAsItWasDrawn) {
  for (const ModeCase& mode : kModes) {
    SCOPED_TRACE(mode.name);
    Scene scene;
    startMode(scene, mode);
    scene.press(1, 0.3F, 1.5F);
    scene.move(1, 2.5F, -1);
    mnuDrawRect_Click(scene.desk);  // by its key, with the button held
    scene.move(1, 3, 1);
    eraseRubberBand(scene.desk);
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
  }
}

TEST(RubberBand, HasNoneWhereAThreePointCommandWaitsForItsSecondPoint) {
  for (const ModeCase& mode : kModes) {
    if (!mode.threePoints) continue;
    SCOPED_TRACE(mode.name);
    Scene scene;
    mode.command(scene.desk);
    const Picture before = scene.freshPicture();
    scene.press(1, 1, 1);
    scene.move(1, 2, 1);
    EXPECT_EQ(scene.differences(before), 0);
    EXPECT_EQ(scene.desk.pointer.RubberKind, 0);
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
    command(scene.desk);
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
  miMeasureDist_Click(scene.desk);
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

// ---- Marks and crosses

TEST(FeatureMark, VanishesWhereNoFeatureIsNear) {
  Scene scene;
  OSnap_ButtonClick(scene.desk);
  miMeasureDist_Click(scene.desk);
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
  scene.desk.typedPosition = Point{2, 1};
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
    mode.command(scene.desk);
    const Picture before = scene.freshPicture();
    scene.click(2, -2);
    EXPECT_GT(scene.differences(before), 0);
    scene.redraw.redrawscreen();
    EXPECT_GT(scene.differences(before), 0);
    mnuDrawLine_Click(scene.desk);
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
    mode.command(scene.desk);
    scene.rightClick(-3, -3.5F);
    scene.click(-1, -3.5F);
    scene.click(-2, -2.8F);
    ASSERT_EQ(scene.store.NumSegments, 3);
    EXPECT_EQ(scene.differences(scene.freshPicture()), 0);
  }
}

}  // namespace
}  // namespace tess
