// Rough pocketing: levels, working outlines of pockets and islands, and the drawing afterwards.
#include "toolpath/rough_pocket.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "tests/support/failure_of.h"
#include "tests/toolpath/working_outline_rows.h"
#include "toolpath/path_placement.h"

namespace tess {
namespace {

using testing::addWorkingBox;
using testing::addWorkingPolygon;
using testing::pathEnds;
using testing::pathTexts;
using testing::RecordedCam;
using testing::segmentTexts;
using testing::setSpacing;
using Texts = std::vector<std::string>;

// A tool of radius 0.25, a step of 1, no clearance: the working outline stands 0.25 inside.
struct RoughCam : RecordedCam {
  RoughCam() { setSpacing(store, 1); }

  void addOutline(Point low, Point high) { addWorkingBox(store, low, high, kVerifiedRow); }
};

// ---- One level

TEST(RoughCutPocket, ClearsASquareAndLeavesTheDrawingAsItWas) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  const Texts drawing = segmentTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathTexts(c.store), (Texts{"1 (0.25, 0.75)-(2.75, 0.75) @100 z -0.5 f 20",
                                       "1 (0.25, 1.75)-(2.75, 1.75) @100 z -0.5 f 20"}));
  EXPECT_EQ(segmentTexts(c.store), drawing);
  EXPECT_EQ(c.store.showpaths, 1);
  EXPECT_TRUE(c.tools.isEnabled("miUndo"));
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(c.pending(), 0);
}

TEST(RoughCutPocket, TheVerticalStyleRunsAlongY) {
  RoughCam c;
  c.store.cfg_pocketing_style = choiceNumber(PocketingStyle::Vertical);
  c.addOutline({0, 0}, {3, 2});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0.75, 1.75)-(0.75, 0.25)", "(1.75, 1.75)-(1.75, 0.25)"}));
}

TEST(RoughCutPocket, TheClearanceAddsToTheRadius) {
  RoughCam c;
  c.store.cfg_min_rough_clearance = 0.125F;
  c.addOutline({0, 0}, {3, 2});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store)[0], "(0.375, 0.875)-(2.625, 0.875)");
}

TEST(RoughCutPocket, ACircleOfTwoHalvesIsClearedInside) {
  RoughCam c;
  testing::addWorkingCircle(c.store, {0, 0}, 2.25F, kVerifiedRow);
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store),
            (Texts{"(-1.3229, -1.5)-(1.3229, -1.5)", "(-1.9365, -0.5)-(1.9365, -0.5)",
                   "(-1.9365, 0.5)-(1.9365, 0.5)", "(-1.3229, 1.5)-(1.3229, 1.5)"}));
}

TEST(RoughCutPocket, AClosedArcRowIsClearedInside) {
  RoughCam c;
  c.add({.type = kCounterClockwiseArc, .attr = kVerifiedRow, .x0 = 2.25F, .x1 = 2.25F});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.store.NumPathSegments, 4);
  EXPECT_EQ(pathEnds(c.store)[0], "(-1.3229, -1.5)-(1.3229, -1.5)");
}

// Nothing computes a circle's offset: the row has no length, and no style takes it.
TEST(RoughCutPocket, ACircleEntityGivesNoWorkingRowsThatCanBeScanned) {
  RoughCam c;
  c.add({.type = kCircle, .attr = kVerifiedRow, .x0 = 2, .x1 = 2});
  const Texts drawing = segmentTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  ASSERT_EQ(c.messages().size(), 1U);
  EXPECT_EQ(c.messages()[0].text, "No pocketing segments available!");
  EXPECT_EQ(segmentTexts(c.store), drawing);
}

TEST(RoughCutPocket, RoundsTheDrawingFirst) {
  RoughCam c;
  c.addOutline({0, 0}, {3.000004F, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.store.x1[1], 3);
}

// ---- Levels

struct LevelCase {
  const char* name;
  float start, final, perPass, floorFinish;
  std::vector<std::pair<float, float>> levels;  // depth and feed
};

const LevelCase kLevels[] = {
    {"three passes and the floor finish",
     0,
     1,
     0.3F,
     0.02F,
     {{-0.3F, 20}, {-0.6F, 20}, {-0.9F, 20}, {-0.98F, 20}, {-1, 10}}},
    {"depths of either sign are the same",
     0,
     -1,
     0.5F,
     -0.02F,
     {{-0.5F, 20}, {-0.98F, 20}, {-1, 10}}},
    {"no floor finish", 0, 1, 0.5F, 0, {{-0.5F, 20}, {-1, 20}}},
    {"a start below the top", 0.5F, 1, 0.25F, 0, {{-0.75F, 20}, {-1, 20}}},
    {"one pass is deep enough", 0, 0.5F, 2, 0, {{-0.5F, 20}}},
    {"a start beyond the floor is one level at the finishing feed", 2, 1, 0.3F, 0.25F, {{-1, 10}}},
    {"a start exactly on the floor takes the branch of several levels",
     0.75F,
     1,
     0.25F,
     0.25F,
     {{-0.75F, 20}, {-1, 10}}},
    {"no step is needed for a level on the floor", 1, 1, 0, 0, {{-1, 20}}},
    {"nor one downward for a pass that is deep enough", 0, 0.5F, -0.5F, 0, {{-0.5F, 20}}},
};

TEST(RoughCutPocket, LevelsGoDownInStepsToTheFloor) {
  for (const LevelCase& test : kLevels) {
    SCOPED_TRACE(test.name);
    RoughCam c;
    c.store.cfg_start_depth = test.start;
    c.store.cfg_final_depth = test.final;
    c.store.cfg_z_cut_per_pass = test.perPass;
    c.store.cfg_min_z_finish = test.floorFinish;
    c.addOutline({0, 0}, {3, 3});
    mnuCAMRoughCutPocket_Click(c.cam);
    ASSERT_EQ(c.store.NumPathSegments, 2 * static_cast<int>(test.levels.size()));
    for (int ps = 1; ps <= c.store.NumPathSegments; ++ps) {
      const auto& [z, feed] = test.levels[static_cast<std::size_t>(ps - 1) / 2];
      EXPECT_FLOAT_EQ(c.store.psz[ps], z);
      EXPECT_EQ(c.store.psfeed[ps], feed);
      EXPECT_EQ(c.store.psx0[ps], c.store.psx0[2 - ps % 2]) << "a copy of the first level";
      EXPECT_EQ(c.store.pscode[ps], 100);
    }
    EXPECT_FLOAT_EQ(c.cam.currentZ, test.levels.back().first);
  }
}

// The levels between would be left out, and a floor finish cut the full depth at once.
TEST(RoughCutPocket, AStepThatDoesNotGoDownPlacesNothing) {
  const struct {
    float perPass;
    const char* fault;
  } cases[] = {
      {0, "0.  It must be above 0 for the levels from 0 to -0.75."},
      {-0.25F, "-0.25.  It must be above 0 for the levels from -0.25 to -0.75."},
      {1e-6F, "0.000001.  That is too small for the levels from -0.000001 to -0.75."},
  };
  for (const auto& test : cases) {
    RoughCam c;
    c.store.cfg_final_depth = 1;
    c.store.cfg_min_z_finish = 0.25F;
    c.store.cfg_z_cut_per_pass = test.perPass;
    c.addOutline({0, 0}, {3, 3});
    const Texts drawing = segmentTexts(c.store);
    mnuCAMRoughCutPocket_Click(c.cam);
    EXPECT_EQ(c.store.NumPathSegments, 0);
    EXPECT_EQ(segmentTexts(c.store), drawing);
    EXPECT_EQ(c.store.segattr[1], kVerifiedRow);
    EXPECT_FALSE(c.cam.changes.log.canUndo());
    ASSERT_EQ(c.messages().size(), 1U);
    EXPECT_EQ(c.messages()[0].text,
              std::string("The Depth Per Pass, Z, is ") + test.fault +
                  "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
    EXPECT_EQ(c.messages()[0].title, "Rough Cut Pocket");
  }
}

// 32767 levels at most: each has a row.
TEST(RoughCutPocket, LevelsThatFitTheTableArePlaced) {
  RoughCam c;
  c.store.cfg_final_depth = 1;
  c.store.cfg_z_cut_per_pass = 0.001F;
  c.addOutline({0, 0}, {3, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_TRUE(c.messages().empty());
  EXPECT_NEAR(c.store.NumPathSegments, 2 * 1000, 2);
}

// Far down, a small step gets lost in the digits of the depth.
TEST(RoughCutPocket, AStepThatIsLostInTheDepthPlacesNothing) {
  RoughCam c;
  c.store.cfg_start_depth = 1e6F;
  c.store.cfg_final_depth = 1e6F + 1;
  c.store.cfg_z_cut_per_pass = 0.001F;
  c.addOutline({0, 0}, {3, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  ASSERT_EQ(c.messages().size(), 1U);
  EXPECT_EQ(c.messages()[0].text,
            "The Depth Per Pass, Z, is 0.001.  That is too small for the levels from -1000000 to "
            "-1000001.\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
}

TEST(RoughCutPocket, ALatheCutNeedsNoStep) {
  RoughCam c;
  c.store.cfg_lathe_style_pocketing = true;
  c.store.cfg_final_depth = 1;
  c.store.cfg_z_cut_per_pass = 0;
  c.store.partdimy = 4;
  c.addOutline({0, 0}, {3, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_TRUE(c.messages().empty());
  EXPECT_GT(int(c.store.NumPathSegments), 0);
}

TEST(RoughCutPocket, KeepsTheDeepestRoughingLevel) {
  RoughCam c;
  c.store.cfg_final_depth = -1;
  c.store.cfg_min_z_finish = 0.25F;
  c.addOutline({0, 0}, {3, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.cam.roughFloor, -0.75F);
}

// The lines run half a step up from a bound far below the arc, and give up before they reach it.
TEST(RoughCutPocket, ARunWithoutRowsCopiesNoEarlierPath) {
  RoughCam c;
  c.addPathLine(0, 0, 1, 0);
  c.store.cfg_final_depth = 1;
  setSpacing(c.store, 0.0001F);
  // A flat arc on a radius of 1000 and its chord: the circle reaches 2000 down.
  c.add({.type = kCounterClockwiseArc,
         .attr = kVerifiedRow,
         .x0 = 60,
         .y0 = 998.1984F,
         .x1 = -60,
         .y1 = 998.1984F});
  c.add(
      {.type = kLine, .attr = kVerifiedRow, .x0 = -60, .y0 = 998.1984F, .x1 = 60, .y1 = 998.1984F});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 0)-(1, 0)"}));
}

TEST(RoughCutPocket, ALatheCutHasNoLevelsWhateverTheDepths) {
  RoughCam c;
  c.store.cfg_lathe_style_pocketing = true;
  c.store.cfg_start_depth = 0.25F;
  c.store.cfg_final_depth = 3;
  c.store.cfg_z_cut_per_pass = 0.5F;
  c.store.cfg_min_z_finish = 0.125F;
  c.store.cfg_min_rough_clearance = 0.5F;
  c.store.partdimy = 4;
  c.addOutline({0, 0}, {4, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  // The outline stands off by the clearance alone.
  EXPECT_EQ(pathTexts(c.store),
            (Texts{"1 (0.5, 2)-(3.5, 2) @100 z 0 f 10", "1 (3.5, 2)-(3.5, 2.5) @100 z -99 f 10",
                   "1 (3.5, 2.5)-(0.5, 2.5) @100 z -99 f 10", "1 (0.5, 2.5)-(0.5, 1) @100 z 0 f 10",
                   "1 (0.5, 1)-(3.5, 1) @100 z 0 f 10", "1 (3.5, 1)-(3.5, 2.5) @100 z -99 f 10"}));
}

TEST(RoughCutPocket, LatheStyleCountsOnlyWithHorizontalLines) {
  RoughCam c;
  c.store.cfg_lathe_style_pocketing = true;
  c.store.cfg_pocketing_style = choiceNumber(PocketingStyle::Vertical);
  c.addOutline({0, 0}, {3, 2});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathTexts(c.store)[0], "1 (0.75, 1.75)-(0.75, 0.25) @100 z -0.5 f 20");
}

TEST(RoughCutPocket, TheSpiralAsksForAClickAndPlacesNothingYet) {
  RoughCam c;
  c.store.cfg_pocketing_style = choiceNumber(PocketingStyle::ParallelSpiral);
  c.store.cfg_lathe_style_pocketing = true;
  c.store.cfg_final_depth = 1;
  c.addOutline({0, 0}, {3.000004F, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.pending(), 39);
  EXPECT_EQ(c.prompt(), "Click near starting Path Segment.  ");
  EXPECT_EQ(c.cam.roughFloor, -1);
  EXPECT_EQ(c.store.x1[1], 3) << "rounded";
  EXPECT_EQ(c.store.NumPathSegments, 0);
  EXPECT_EQ(c.store.segattr[1], kVerifiedRow);
}

// ---- Pocket and islands

// The working rows of one level, behind the rows of the drawing.
Texts workingRows(RoughCam& c, int rowsDrawn) {
  roughCutLevel(c.cam, -0.5F, 20, 0.25F);
  Texts rows = segmentTexts(c.store);
  rows.erase(rows.begin(), rows.begin() + rowsDrawn);
  return rows;
}

TEST(RoughCutLevel, AnIslandAboveThePocketsLowestPointIsAnIsland) {
  RoughCam c;
  c.addOutline({1, 1}, {2, 2});
  c.addOutline({0, 0}, {3, 3});
  EXPECT_EQ(workingRows(c, 8),
            (Texts{"1 (0.25, 0.25)-(2.75, 0.25) @10", "1 (2.75, 0.25)-(2.75, 2.75) @10",
                   "1 (2.75, 2.75)-(0.25, 2.75) @10", "1 (0.25, 2.75)-(0.25, 0.25) @10",
                   "1 (1, 0.75)-(2, 0.75) @12", "3 (2, 0.75)-(2.25, 1) c (2, 1) @12",
                   "1 (2.25, 1)-(2.25, 2) @12", "3 (2.25, 2)-(2, 2.25) c (2, 2) @12",
                   "1 (2, 2.25)-(1, 2.25) @12", "3 (1, 2.25)-(0.75, 2) c (1, 2) @12",
                   "1 (0.75, 2)-(0.75, 1) @12", "3 (0.75, 1)-(1, 0.75) c (1, 1) @12"}));
  for (int sg = 1; sg <= 8; ++sg) EXPECT_EQ(c.store.segattr[sg], kParkedRow);
}

TEST(RoughCutLevel, AnIslandThatPokesBelowThePocketIsTakenForThePocket) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.addOutline({1, -1}, {2, 2});
  const Texts rows = workingRows(c, 8);
  ASSERT_EQ(rows.size(), 12U);
  EXPECT_EQ(rows[0], "1 (1.25, -0.75)-(1.75, -0.75) @10") << "inside of the island";
  EXPECT_EQ(rows[4], "1 (0, -0.25)-(3, -0.25) @12") << "outside of the pocket";
}

// The lowest row is level and short, its neighbour long: the average of their ends lies beside the
// row, not above it, and tells nothing. The working outline is the outline itself, so the tool cuts
// its radius into the wall.
TEST(RoughCutLevel, AnObtuseLowestCornerMayLeaveTheOutlineInItsPlace) {
  RoughCam c;
  addWorkingPolygon(c.store, {{0, 0}, {1, 0}, {4, 3}, {-8, 3}}, kVerifiedRow);
  EXPECT_EQ(workingRows(c, 4), (Texts{"1 (0, 0)-(1, 0) @10", "1 (1, 0)-(4, 3) @10",
                                      "1 (4, 3)-(-8, 3) @10", "1 (-8, 3)-(0, 0) @10"}));
}

// Opposite walls change places. Where the lines no longer meet, arcs go the long way round two
// corners, and the cuts in them lie outside the pocket by up to 0.2449, the tool's radius not
// counted.
TEST(RoughCutPocket, APocketNarrowerThanTheToolTurnsInsideOut) {
  RoughCam c;
  setSpacing(c.store, 0.24F);
  c.addOutline({0, 0}, {3, 0.4F});
  EXPECT_EQ(workingRows(c, 4),
            (Texts{"1 (0, 0.25)-(2.75, 0.25) @10", "1 (2.75, 0.25)-(2.75, 0.4) @10",
                   "2 (2.75, 0.4)-(3, 0.15) c (3, 0.4) @10", "1 (3, 0.15)-(0.25, 0.15) @10",
                   "1 (0.25, 0.15)-(0.25, 0) @10", "2 (0.25, 0)-(0, 0.25) c (0, 0) @10"}));
  EXPECT_EQ(pathEnds(c.store),
            (Texts{"(-0.2135, -0.13)-(0.2135, -0.13)", "(-0.2245, 0.11)-(0.25, 0.11)",
                   "(2.75, 0.35)-(3.2449, 0.35)", "(2.8375, 0.59)-(3.1625, 0.59)"}));
}

TEST(RoughCutPocket, AnIslandIsLeftStandingAndLinksGoRoundIt) {
  RoughCam c;
  c.store.cfg_connect_pocketing_paths = true;
  c.store.cfg_cutting_mode = choiceNumber(CuttingMode::Bidirectional);
  c.addOutline({-2, 0}, {2, 2.5F});
  c.addOutline({-0.5F, 1}, {0.5F, 2});
  const Texts drawing = segmentTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(-1.75, 0.75)-(1.75, 0.75)", "(1.75, 0.75)-(1.75, 1.75)",
                                      "(1.75, 1.75)-(0.75, 1.75)", "(-0.75, 1.75)-(-1.75, 1.75)"}))
      << "no link through the island";
  EXPECT_EQ(segmentTexts(c.store), drawing);
}

// The island's outline folds out over the wall: on the line at 1.5 the crossings lie at 0.25 wall,
// -0.05 island, 1.05 island, 2.75 wall, so the pairs no longer tell material from air.
TEST(RoughCutPocket, WithoutGougeAvoidanceAnIslandTooNearTheWallDisturbsTheParity) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.addOutline({0.2F, 1}, {0.8F, 2});
  setSpacing(c.store, 2.5F);
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(-0.05, 1.5)-(0.25, 1.5)", "(1.05, 1.5)-(2.75, 1.5)"}))
      << "the first cut lies in the wall";
}

// A notch narrower than the tool in the right wall: its sides lie so near that their offsets miss
// each other, and the arcs round its inner corners reach beyond it.
TEST(RoughCutPocket, GougeAvoidanceCleansTheWorkingOutlinesFirst) {
  const std::vector<Point> notched{{0, 0},       {3, 0},    {3, 1.4F}, {3.4F, 1.4F},
                                   {3.4F, 1.6F}, {3, 1.6F}, {3, 3},    {0, 3}};
  for (const auto& [avoid, cuts] :
       {std::pair{false, Texts{"(0.25, 1.45)-(2.7551, 1.45)", "(2.8, 1.45)-(3.15, 1.45)",
                               "(3.6, 1.45)-(3.6449, 1.45)"}},
        {true, Texts{"(0.25, 1.45)-(2.7551, 1.45)"}}}) {
    RoughCam c;
    addWorkingPolygon(c.store, notched, kVerifiedRow);
    setSpacing(c.store, 2.4F);
    c.store.cfg_gouge_avoidance = avoid;
    mnuCAMRoughCutPocket_Click(c.cam);
    EXPECT_EQ(pathEnds(c.store), cuts);
    EXPECT_EQ(c.store.NumSegments, 8);
  }
}

TEST(RoughCutPocket, SelectedRowsThatWereNeverVerifiedAreVerifiedAfterwards) {
  RoughCam c;
  addWorkingBox(c.store, {0, 0}, {3, 3}, kSelected + kOrdinaryClass);
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.store.NumPathSegments, 2);
  for (int sg = 1; sg <= 4; ++sg) EXPECT_EQ(c.store.segattr[sg], kVerifiedRow);
}

TEST(RoughCutPocket, WorkingRowsLeftInADrawingGoToo) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.add({.type = kLine, .attr = 77, .x0 = 9, .x1 = 10});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.store.NumSegments, 4);
}

// A line without length at the lowest corner of an island gives no direction and is put aside.
TEST(RoughCutPocket, ARowWithoutLengthDoesNotHoldUpTheSearchForIslands) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.add({.type = kLine, .attr = kVerifiedRow, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1});
  c.addOutline({1, 1}, {2, 2});
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_EQ(c.beeps(), 1);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0.25, 0.75)-(2.75, 0.75)", "(0.25, 1.75)-(0.75, 1.75)",
                                      "(2.25, 1.75)-(2.75, 1.75)"}));
  EXPECT_EQ(c.store.segattr[5], kVerifiedRow);
}

// ---- What cannot be cut

void expectNothingSelected(RoughCam& c) {
  ASSERT_EQ(c.messages().size(), 1U);
  EXPECT_EQ(c.messages()[0].text, "No segments selected!");
  EXPECT_EQ(c.messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  EXPECT_EQ(c.store.showpaths, 1);
}

TEST(RoughCutPocket, WithoutSelectedRowsAMessage) {
  RoughCam c;
  addWorkingBox(c.store, {0, 0}, {3, 3}, kOrdinaryClass);
  mnuCAMRoughCutPocket_Click(c.cam);
  expectNothingSelected(c);
  EXPECT_EQ(c.store.NumSegments, 4);
}

TEST(RoughCutPocket, AnOpenRowAloneIsNoPocket) {
  RoughCam c;
  c.add({.type = kLine, .attr = kVerifiedRow, .x1 = 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  expectNothingSelected(c);
  EXPECT_EQ(c.store.segattr[1], kVerifiedRow);
}

TEST(RoughCutPocket, AnOpenRowLeftSelectedEndsTheCommandWithoutAPath) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.add({.type = kLine, .attr = kSelected + kOrdinaryClass, .x0 = 1, .y0 = 1, .x1 = 2, .y1 = 2});
  const Texts drawing = segmentTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  expectNothingSelected(c);
  EXPECT_EQ(segmentTexts(c.store), drawing);
}

TEST(RoughCutLevel, GivesTheResultOfItsStyle) {
  RoughCam c;
  EXPECT_EQ(roughCutLevel(c.cam, -0.5F, 20, 0.25F), Clearing::NothingToCut);
  c.addOutline({0, 0}, {3, 3});
  EXPECT_EQ(roughCutLevel(c.cam, -0.5F, 20, 0.25F), Clearing::Done);
}

// ---- Failure midway

TEST(RoughCutPocket, ATableThatOverflowsLeavesTheDrawingWhole) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  c.addOutline({1, 1}, {2, 2});
  while (c.store.NumSegments < 32760) c.addLine(9, 9, 10, 10);
  EXPECT_EQ(testing::numberOfFailure([&] { mnuCAMRoughCutPocket_Click(c.cam); }),
            FailureNumber::Overflow);
  EXPECT_EQ(c.store.NumSegments, 32760);
  for (int sg = 1; sg <= 8; ++sg) EXPECT_EQ(c.store.segattr[sg], kVerifiedRow);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  EXPECT_EQ(c.context.changelog.changecount, 0);
}

TEST(RoughCutPocket, TooManyCrossingsLeaveTheDrawingWhole) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  setSpacing(c.store, 0.0001F);
  const Texts drawing = segmentTexts(c.store);
  EXPECT_EQ(testing::numberOfFailure([&] { mnuCAMRoughCutPocket_Click(c.cam); }),
            FailureNumber::Overflow);
  EXPECT_EQ(segmentTexts(c.store), drawing);
  EXPECT_EQ(c.pointer.MousePointer(), kDefaultShape);
}

TEST(RoughCutPocket, AFullPathTableLeavesNothingPlaced) {
  RoughCam c;
  while (c.store.NumPathSegments < 32766) c.addPathLine(9, 9, 10, 10);
  c.addOutline({0, 0}, {3, 3});
  const Texts drawing = segmentTexts(c.store);
  c.store.currentpathgroup = 1;
  c.store.drawingsaved = true;
  EXPECT_EQ(testing::numberOfFailure([&] { mnuCAMRoughCutPocket_Click(c.cam); }),
            FailureNumber::Overflow);
  EXPECT_EQ(segmentTexts(c.store), drawing);
  EXPECT_EQ(c.store.NumPathSegments, 32766);
  EXPECT_EQ(c.store.currentpathgroup, 1);
  EXPECT_EQ(c.store.lastplacedgroup, 1);
  EXPECT_TRUE(c.store.drawingsaved);
  EXPECT_FALSE(c.context.changelog.canUndo());
}

// The first levels fit; the one that does not takes them all with it.
TEST(RoughCutPocket, APathTableThatFillsAtALowerLevelLeavesNothingPlaced) {
  RoughCam c;
  while (c.store.NumPathSegments < 32760) c.addPathLine(9, 9, 10, 10);
  c.addOutline({0, 0}, {3, 3});
  c.store.cfg_final_depth = 2;
  EXPECT_EQ(testing::numberOfFailure([&] { mnuCAMRoughCutPocket_Click(c.cam); }),
            FailureNumber::Overflow);
  EXPECT_EQ(c.store.NumPathSegments, 32760);
  EXPECT_FALSE(c.context.changelog.canUndo());
}

// More records than the log holds, in steps that all fit: the oldest give way.
TEST(RoughCutPocket, TwelveInARowAreTwelveStepsOfUndo) {
  RoughCam c;
  c.addOutline({0, 0}, {3, 3});
  setSpacing(c.store, 0.001F);
  c.store.cfg_connect_pocketing_paths = true;
  for (int number = 1; number <= 12; ++number) {
    mnuCAMRoughCutPocket_Click(c.cam);
    EXPECT_GT(c.store.NumPathSegments, 4900) << number;
    EXPECT_EQ(c.context.changelog.lastStepSize(), c.store.NumPathSegments) << number;
    EXPECT_TRUE(isConsistent(c.store));
    if (number < 12) mnuClearAllPaths_Click(c.cam);
  }
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(c.context.changelog.changecount, 6 * c.store.NumPathSegments);
  Undo_Last_Change(c.context);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  RedoLastChange(c.context);
  EXPECT_EQ(c.store.NumPathSegments, c.context.changelog.lastStepSize());
}

// ---- The change log

TEST(RoughCutPocket, OneLevelWithItsLinksIsOneStep) {
  RoughCam c;
  c.addPathLine(0, 0, 1, 0, 300);
  c.store.cfg_connect_pocketing_paths = true;
  c.addOutline({0, 0}, {3, 4});
  const Texts before = pathTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  const Texts after = pathTexts(c.store);
  ASSERT_EQ(after.size(), 6U) << "three cuts and two links behind the row that was there";
  Undo_Last_Change(c.context);
  EXPECT_EQ(pathTexts(c.store), before);
  EXPECT_FALSE(c.context.changelog.canUndo());
  RedoLastChange(c.context);
  EXPECT_EQ(pathTexts(c.store), after);
}

// Links of all levels come last, between rows that were placed before.
TEST(RoughCutPocket, LevelsWithLinksComeBackStepByStep) {
  RoughCam c;
  c.addPathLine(0, 0, 1, 0, 300);
  c.store.cfg_connect_pocketing_paths = true;
  c.store.cfg_cutting_mode = choiceNumber(CuttingMode::Bidirectional);
  c.store.cfg_final_depth = 1.5F;
  c.addOutline({0, 0}, {3, 3});
  c.addOutline({1.25F, 1.25F}, {1.75F, 1.75F});
  const Texts before = pathTexts(c.store);
  mnuCAMRoughCutPocket_Click(c.cam);
  const Texts after = pathTexts(c.store);
  EXPECT_EQ(after.size(), 15U) << "three cuts on each of three levels, and five links";
  int steps = 0;
  while (c.context.changelog.canUndo()) {
    Undo_Last_Change(c.context);
    ++steps;
  }
  EXPECT_EQ(steps, 3);
  EXPECT_EQ(pathTexts(c.store), before);
  while (c.context.changelog.canRedo()) RedoLastChange(c.context);
  EXPECT_EQ(pathTexts(c.store), after);
}

TEST(RoughCutPocket, EachLevelIsAStepOfItsOwn) {
  RoughCam c;
  c.store.cfg_final_depth = 1;
  c.store.cfg_min_z_finish = 0.25F;
  c.addOutline({0, 0}, {3, 3});
  mnuCAMRoughCutPocket_Click(c.cam);
  const Texts after = pathTexts(c.store);
  ASSERT_EQ(after.size(), 6U);
  for (const int rows : {4, 2, 0}) {
    Undo_Last_Change(c.context);
    EXPECT_EQ(c.store.NumPathSegments, rows);
  }
  EXPECT_FALSE(c.context.changelog.canUndo());
  for (int step = 0; step < 3; ++step) RedoLastChange(c.context);
  EXPECT_EQ(pathTexts(c.store), after);
}

}  // namespace
}  // namespace tess
