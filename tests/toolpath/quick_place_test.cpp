// Quick Place: paths on the profile itself, for everything that is selected.
#include "toolpath/quick_place.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/geometry/rows.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/path_placement.h"

namespace tess {
namespace {

using testing::addPath;
using testing::addSegment;
using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

Entity line(float x0, float y0, float x1, float y1) {
  return lineEntity({x0, y0}, {x1, y1});
}

void addSquare(RecordedCam& d, float x, int attr = kSelectedRow) {
  addSegment(d.store, line(x, 0, x + 1, 0), attr);
  addSegment(d.store, line(x + 1, 0, x + 1, 1), attr);
  addSegment(d.store, line(x + 1, 1, x, 1), attr);
  addSegment(d.store, line(x, 1, x, 0), attr);
}

Texts squareAt(const std::string& z, const std::string& feed) {
  const std::string tail = " @100 z " + z + " f " + feed;
  return {"1 (0, 0)-(1, 0)" + tail, "1 (1, 0)-(1, 1)" + tail, "1 (1, 1)-(0, 1)" + tail,
          "1 (0, 1)-(0, 0)" + tail};
}

Texts joined(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(QuickPlace, OfAClosedSquareAddsOneChainOfFourRows) {
  RecordedCam d;
  addSquare(d, 0);
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store), squareAt("-0.5", "10"));
  EXPECT_EQ(d.store.showpaths, 1);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.store.currentpathgroup, 1);
  EXPECT_EQ(d.store.lastplacedgroup, 1);
  EXPECT_EQ(d.test.listener.take(), Texts{"Update_menu_checks"});
}

TEST(QuickPlace, OfARowWithAPathOnItAddsNothing) {
  RecordedCam d;
  addSegment(d.store, line(0, 0, 1, 0), kSelectedRow);
  addSegment(d.store, {kClockwiseArc, {3, 1}, {4, 0}, {3, 0}}, kSelectedRow);
  addPath(d.store, line(1, 0, 0, 0));
  addPath(d.store, {kCounterClockwiseArc, {4, 0}, {3, 1}, {3, 0}});
  d.store.cfg_z_cut_per_pass = 0.25F;
  quickPlacePaths(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 2);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(QuickPlace, TakesPlainlySelectedRowsAlone) {
  RecordedCam d;
  int x = 0;
  for (const int attr : {8, 30108, 30010, 29108, 30009}) {
    addSegment(d.store, line(static_cast<float>(x), 0, static_cast<float>(x), 1), attr);
    ++x;
  }
  quickPlacePaths(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

TEST(QuickPlace, PutsAllChainsIntoOneGroup) {
  RecordedCam d;
  addPath(d.store, line(9, 9, 8, 9), 304);
  d.store.selectedtool = 2;
  addSegment(d.store, line(0, 0, 1, 0), kSelectedRow);
  addSegment(d.store, {kClockwiseArc, {3, 1}, {4, 0}, {3, 0}}, kSelectedRow);
  addSegment(d.store, line(2, 1, 1, 0), kSelectedRow);
  const Texts before = pathTexts(d.store);
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store),
            joined(before, {"1 (0, 0)-(1, 0) @402 z -0.5 f 10", "1 (1, 0)-(2, 1) @402 z -0.5 f 10",
                            "2 (3, 1)-(4, 0) c (3, 0) @402 z -0.5 f 10"}));
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), before);
  RedoLastChange(d.context);
  EXPECT_EQ(d.store.NumPathSegments, 4);
}

TEST(QuickPlace, GoesDownInLevels) {
  RecordedCam d;
  addSquare(d, 0);
  d.store.cfg_z_cut_per_pass = 0.25F;
  d.store.cfg_final_depth = 0.75F;
  d.store.cfg_min_z_finish = 0.125F;
  quickPlacePaths(d.cam);
  Texts expected = joined(squareAt("-0.25", "10"), squareAt("-0.5", "20"));
  expected = joined(joined(expected, squareAt("-0.625", "20")), squareAt("-0.75", "10"));
  EXPECT_EQ(pathTexts(d.store), expected);
  for (const int rows : {12, 8, 4, 0}) {  // each level is a step
    Undo_Last_Change(d.context);
    EXPECT_EQ(d.store.NumPathSegments, rows);
  }
  for (int step = 0; step < 4; ++step) RedoLastChange(d.context);
  EXPECT_EQ(pathTexts(d.store), expected);
}

TEST(QuickPlace, BelowTheFloorPlacesOneLevel) {
  RecordedCam d;
  addSquare(d, 0);
  d.store.cfg_start_depth = 0.75F;
  d.store.cfg_final_depth = -0.5F;
  d.store.cfg_z_cut_per_pass = 0.125F;
  d.store.cfg_min_z_finish = 0.125F;
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store), squareAt("-0.5", "10"));
}

TEST(QuickPlace, FromTheFloorItselfPlacesOneLevelAndTheFloorFinish) {
  RecordedCam d;
  addSquare(d, 0);
  d.store.cfg_start_depth = 0.375F;
  d.store.cfg_min_z_finish = 0.125F;
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store), joined(squareAt("-0.375", "10"), squareAt("-0.5", "10")));
}

TEST(QuickPlace, WithNothingSelectedCopiesNoLevels) {
  RecordedCam d;
  addPath(d.store, line(0, 0, 1, 0));
  d.store.cfg_z_cut_per_pass = 0.125F;
  d.store.cfg_min_z_finish = 0.125F;
  quickPlacePaths(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 1);
  EXPECT_EQ(d.store.showpaths, 1);
}

TEST(QuickPlace, InsertsBeforeAGroupAndIsTakenBackByItsOwn) {
  RecordedCam d;
  addPath(d.store, line(5, 5, 6, 5), 100);
  addPath(d.store, line(6, 5, 7, 5), 200);
  const Texts before = pathTexts(d.store);
  d.cam.pathInsertMode = PathInsertMode::BeforeGroup;
  d.cam.pathInsertGroup = 2;
  addSegment(d.store, line(0, 0, 1, 0), kSelectedRow);
  addSegment(d.store, line(3, 0, 4, 0), kSelectedRow);
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store), (Texts{before[0], "1 (0, 0)-(1, 0) @300 z -0.5 f 10",
                                       "1 (3, 0)-(4, 0) @300 z -0.5 f 10", before[1]}));
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(pathTexts(d.store), before);
  Undo_Last_Change(d.context);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), before);
}

// The copies are made of what ends the table, whatever was inserted elsewhere.
TEST(QuickPlace, InsertedBeforeAGroupCopiesTheLevelsOfAnotherPath) {
  RecordedCam d;
  addPath(d.store, line(6, 5, 7, 5), 200);
  d.cam.pathInsertMode = PathInsertMode::BeforeGroup;
  d.cam.pathInsertGroup = 2;
  d.store.cfg_z_cut_per_pass = 0.25F;
  addSegment(d.store, line(0, 0, 1, 0), kSelectedRow);
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @300 z -0.25 f 10", "1 (6, 5)-(7, 5) @200 z 0",
                   "1 (6, 5)-(7, 5) @200 z -0.5 f 20"}));
}

TEST(QuickPlace, BehindAGroupPutsTheLaterChainFirst) {
  RecordedCam d;
  addPath(d.store, line(5, 5, 6, 5), 100);
  addPath(d.store, line(6, 5, 7, 5), 200);
  d.cam.pathInsertMode = PathInsertMode::AfterGroup;
  d.cam.pathInsertGroup = 1;
  addSegment(d.store, line(0, 0, 1, 0), kSelectedRow);
  addSegment(d.store, line(3, 0, 4, 0), kSelectedRow);
  quickPlacePaths(d.cam);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (5, 5)-(6, 5) @100 z 0", "1 (3, 0)-(4, 0) @300 z -0.5 f 10",
                   "1 (0, 0)-(1, 0) @300 z -0.5 f 10", "1 (6, 5)-(7, 5) @200 z 0"}));
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (5, 5)-(6, 5) @100 z 0", "1 (6, 5)-(7, 5) @200 z 0"}));
  RedoLastChange(d.context);
  EXPECT_EQ(d.store.psx0[2], 3);
}

TEST(QuickPlace, AStepThatDoesNotGoDownPlacesNothing) {
  for (const float cut : {0.0F, -0.25F, 1e-7F}) {
    RecordedCam d;
    addSquare(d, 0);
    d.store.cfg_start_depth = 0.125F;
    d.store.cfg_z_cut_per_pass = cut;
    d.store.currentpathgroup = 7;
    quickPlacePaths(d.cam);
    EXPECT_EQ(d.store.NumPathSegments, 0);
    EXPECT_EQ(d.store.currentpathgroup, 7);
    EXPECT_EQ(d.cam.changes.log.changecount, 0);
    ASSERT_EQ(d.messages().size(), 1U);
    EXPECT_EQ(d.messages()[0].title, "Quick Place");
    EXPECT_TRUE(d.messages()[0].text.starts_with("The Depth Per Pass, Z, is ")) << cut;
  }
}

TEST(QuickPlace, OnTheSurfaceNoStepIsNeeded) {
  RecordedCam d;
  addSquare(d, 0);
  d.store.cfg_final_depth = 0;
  d.store.cfg_z_cut_per_pass = 0;
  quickPlacePaths(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 4);
  EXPECT_TRUE(d.messages().empty());
}

}  // namespace
}  // namespace tess
