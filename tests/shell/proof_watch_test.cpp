// The path proof as the operator sees it: the panel, its clicks, the crosshairs and the picture.
#include "shell/proof_watch.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/row_edits.h"
#include "tests/support/judged_square.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;

class WatchedProof : public ::testing::Test, public RunningProgram {
 protected:
  WatchedProof() { store.zstartpos = 1; }

  void openPanel() { tools().openBand("barPathProof"); }
  class frmPathProof& panel() {
    return application.interaction.frmPathProof;
  }
  std::string line() { return panel().cmdProof.caption(); }

  void place() {
    testing::clearSquare(store);
    session().pathJobs.note(store, testing::squareJob());
  }
  Session& session() { return application.session; }
  // As the path editor or a command does.
  void change(int ps, const PathRow& row) {
    application.guarded("test", [&] {
      Change change(context().changes);
      change.paths.replace(ps, row);
      change.keep({.redraws = false});
    });
  }
  void shift(int ps, float by) {
    PathRow row = pathRow(store, ps);
    row.y0 += by;
    row.y1 += by;
    change(ps, row);
  }
  void fillTo(int rows) {
    while (store.NumPathSegments < rows) addPathSegment(store, pathRow(store, 1));
  }

  DrawingStore& store = application.store;
};

TEST_F(WatchedProof, IsCleanForACleanPath) {
  place();
  openPanel();
  shift(1, 0);
  EXPECT_EQ(line(), "In by 0.0000   Left 0.00 %   Rapids 0");
  EXPECT_EQ(panel().cmdProof.color(), 0x50A030);
}

TEST_F(WatchedProof, FollowsEachChangeAtOnce) {
  place();
  openPanel();
  shift(1, -0.125F);
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
  EXPECT_EQ(panel().cmdProof.color(), 0x3C3CE6);
  shift(1, 0.125F);
  EXPECT_EQ(line(), "In by 0.0000   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, NearALimitItIsAmber) {
  place();
  openPanel();
  shift(1, -0.00005F);
  EXPECT_EQ(panel().cmdProof.color(), 0x0082D2);
}

TEST_F(WatchedProof, FollowsUndoAndRedo) {
  place();
  openPanel();
  shift(1, -0.125F);
  application.clickTool("miUndo");
  EXPECT_EQ(line(), "In by 0.0000   Left 0.00 %   Rapids 0");
  application.clickTool("miRedo");
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, FollowsAChangedTool) {
  place();
  openPanel();
  shift(1, 0);
  application.guarded("test", [&] { store.toolradius[0] = 0.75F; });
  EXPECT_EQ(line(), "In by 0.2500   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, OfManyRowsWaitsForRest) {
  place();
  fillTo(1000);
  openPanel();
  pass(300);
  shift(1, -0.125F);
  EXPECT_EQ(line(), "No proof yet");
  pass(200);
  shift(2, 0);
  pass(200);
  EXPECT_EQ(line(), "No proof yet");
  pass(100);
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, OfAPathThatIsGoneNothingIsTold) {
  place();
  openPanel();
  shift(1, -0.125F);
  EXPECT_EQ(panel().cmdProof.color(), 0x3C3CE6);
  application.guarded("test", [&] {
    Change change(context().changes);
    change.paths.erase(1, store.NumPathSegments);
    change.keep();
  });
  EXPECT_EQ(line(), "No proof yet");
  EXPECT_EQ(panel().cmdProof.color(), std::nullopt);
}

TEST_F(WatchedProof, OfAThousandRowsLessOneDoesNotWait) {
  place();
  fillTo(999);
  openPanel();
  shift(1, -0.125F);
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, ThatTakesLongTellsSoAndCanBeCancelled) {
  place();
  openPanel();
  shift(1, -0.125F);
  platform.clock.asking = 10;
  shift(2, 0);
  EXPECT_GT(platform.surroundings.eventsServed, 0);
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
  platform.surroundings.cancelAt = platform.surroundings.eventsServed + 3;
  shift(2, 0);
  EXPECT_EQ(line(), "Not judged");
  EXPECT_EQ(panel().cmdProof.color(), 0x3C3CE6);
  EXPECT_EQ(panel().lblPlace.caption(), "Cancelled. A click judges the path.");
  EXPECT_FALSE(platform.surroundings.isCancellable);
  application.guarded("test", [] {});
  EXPECT_EQ(line(), "Not judged") << "it does not begin again by itself";
  platform.clock.asking = 0;
  panel().cmdProof.press();
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, ThatIsCancelledHoldsTheProgramBack) {
  place();
  store.cfg_true_paths = true;
  EXPECT_EQ(application.cnc.objections(), "");
  platform.clock.asking = 10;
  platform.surroundings.cancelAt = 1;
  EXPECT_EQ(application.cnc.objections(), "The proof was cancelled: the path is not judged.\n");
  EXPECT_EQ(panel().lblPlace.caption(), "") << "nothing is left of its progress";
}

TEST_F(WatchedProof, ShowsItsProgress) {
  place();
  openPanel();
  std::vector<std::string> shown;
  platform.surroundings.onServe = [&] { shown.push_back(panel().lblPlace.caption()); };
  platform.clock.asking = 100;
  shift(1, 0);
  EXPECT_THAT(shown, ::testing::Contains("Proving    0.5 s, Esc ends it"));
}

TEST_F(WatchedProof, ClicksGoToThePlacesInTurn) {
  place();
  openPanel();
  store.NumPathSegments = 6;  // the upper part is left
  shift(1, -0.125F);
  panel().cmdProof.press();
  const View& view = application.interaction.view;
  EXPECT_EQ(view.viewcy, 0.375F);
  EXPECT_EQ(panel().lblPlace.caption().substr(0, 49),
            "Row 1 of group 1 cuts into the part by 0.1250 at ");
  panel().cmdProof.press();
  EXPECT_NEAR(view.viewcx, 2, 0.1);
  EXPECT_NEAR(view.viewcy, 3, 0.3);
  EXPECT_THAT(panel().lblPlace.caption(), ::testing::StartsWith("Group 1: left area 7."));
  const std::size_t places = worstPlaces(application.proofWatch.prove()).size();
  for (std::size_t click = 2; click < places; ++click) panel().cmdProof.press();
  EXPECT_NE(view.viewcy, 0.375F);
  panel().cmdProof.press();
  EXPECT_EQ(view.viewcy, 0.375F);
}

TEST_F(WatchedProof, TellsHowManyRowsItSaysNothingAbout) {
  place();
  openPanel();
  addPathSegment(store, {.type = kLine, .x1 = 1, .z = 0.5F, .code = pathCode(9, 0)});
  shift(1, 0);
  EXPECT_EQ(panel().lblPlace.caption(), "Rows not judged: 1");
}

TEST_F(WatchedProof, NothingIsReckonedWhileNobodyLooks) {
  place();
  shift(1, -0.125F);
  EXPECT_EQ(line(), "No proof yet");
  openPanel();
  shift(2, 0);
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
}

TEST_F(WatchedProof, APanelThatIsOpenedShowsTheProofOfTheRowsAsTheyAre) {
  place();
  shift(1, -0.125F);
  application.clickTool("miPathProof");
  EXPECT_EQ(line(), "In by 0.1250   Left 0.00 %   Rapids 0");
  application.clickTool("miPathProof");
  EXPECT_FALSE(panel().isShown());
}

TEST_F(WatchedProof, ThePictureIsATool) {
  EXPECT_FALSE(tools().isChecked("miShowPathProof"));
  application.clickTool("miShowPathProof");
  EXPECT_TRUE(tools().isChecked("miShowPathProof"));
  application.clickTool("miShowPathProof");
  EXPECT_FALSE(tools().isChecked("miShowPathProof"));
}

// What is painted over a drawing.
struct PaintedMarks : VirtualSurface {
  PaintedMarks() { Move({0, 0, 100, 100}); }
  void line(const WorldBox& /*ends*/, Rgb color) override { ++lines[color]; }
  void box(const WorldBox& corners, Rgb color, bool filled) override {
    if (filled) areas[color] += std::abs((corners.x1 - corners.x0) * (corners.y1 - corners.y0));
  }
  std::map<Rgb, int> lines;
  std::map<Rgb, float> areas;
};

TEST_F(WatchedProof, ThePictureFillsWhatIsLeftAndWhatIsTooDeep) {
  place();
  store.NumPathSegments = 6;
  shift(1, -0.125F);
  application.clickTool("miShowPathProof");
  PaintedMarks surface;
  PictureBoxProxy target(surface);
  application.proofWatch.paint(target);
  // Above 2 all is left but for the end of the last row; a strip of 3 by 0.125, with round ends,
  // lies beyond the wall.
  EXPECT_NEAR(surface.areas[kLeftColor], 7.6, 0.2);
  EXPECT_NEAR(surface.areas[kTooDeepColor], 3 * 0.125, 0.1);
  const PathProof proof = application.proofWatch.prove();
  EXPECT_NEAR(surface.areas[kLeftColor], proof.missed.at(0).atClearance.area, 1e-3);
  EXPECT_EQ(surface.lines[kTooDeepColor], 2 * static_cast<int>(worstPlaces(proof).size()));
}

TEST_F(WatchedProof, OnlyThePanelGivesCrosshairsAlone) {
  place();
  openPanel();
  shift(1, -0.125F);
  PaintedMarks surface;
  PictureBoxProxy target(surface);
  application.proofWatch.paint(target);
  EXPECT_EQ(surface.lines[kTooDeepColor], 2);
  EXPECT_TRUE(surface.areas.empty());
  tools().closeBand("barPathProof");
  PaintedMarks later;
  PictureBoxProxy other(later);
  application.proofWatch.paint(other);
  EXPECT_TRUE(later.lines.empty());
}

}  // namespace
}  // namespace tess
