// The parallel spiral through its click: rings, levels, messages, undo, and what it does to pockets
// that it was not made for.
#include "toolpath/parallel_spiral.h"

#include <algorithm>
#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "geometry/float_angles.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/path_placement.h"
#include "toolpath/verification.h"

namespace tess {
namespace {

using testing::numberOfFailure;
using testing::pathText;
using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

constexpr int kConventional = choiceNumber(CuttingMode::Conventional);
constexpr int kClimb = choiceNumber(CuttingMode::Climb);
constexpr int kBidirectional = choiceNumber(CuttingMode::Bidirectional);

// Tool radius 0.25, clearance 0.05, half a tool's width from ring to ring, the first one 0.5 from
// the middle; no finish path on the wall.
struct Spiral : ::testing::Test, RecordedCam {
  Spiral() {
    store.cfg_min_rough_clearance = 0.05F;
    store.cfg_pocket_dist_from_center = 0.5F;
    cam.roughFloor = roughingFloor(store);
  }

  void addOutline(const std::vector<Point>& corners) {
    for (std::size_t k = 0; k < corners.size(); ++k) {
      const Point next = corners[(k + 1) % corners.size()];
      addLine(corners[k].x, corners[k].y, next.x, next.y);
    }
  }

  void selectOrdinaryRows() {
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      if (store.segattr[sg] == kOrdinaryClass) store.segattr[sg] = kSelected + kOrdinaryClass;
    }
  }
  void addPocket(const std::vector<Point>& corners) {
    addOutline(corners);
    selectOrdinaryRows();
    mnuCAMVerifyAcceptPocket_Click(cam);
  }
  void addIsland(const std::vector<Point>& corners) {
    addOutline(corners);
    selectOrdinaryRows();
    mnuCAMVerifyAcceptIsland_Click(cam);
  }

  // The click after the command has asked for it.
  void start(float x, float y) {
    arm(context, PendingAction::StartRoughing);
    click(x, y);
  }

  std::vector<PathRow> rows() const {
    std::vector<PathRow> all;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) all.push_back(pathRow(store, ps));
    return all;
  }
  Texts lastRows(int count) const {
    const Texts all = pathTexts(store);
    return {all.end() - std::min<std::ptrdiff_t>(count, std::ssize(all)), all.end()};
  }
};

const std::vector<Point> kSquare{{-5, -5}, {5, -5}, {5, 5}, {-5, 5}};

// A ring in the square, counter-clockwise from its lower left corner or clockwise from the lower
// right one.
Texts squareRing(float inset, bool counterClockwise) {
  const float a = 5 - inset;
  const std::vector<Point> corners = counterClockwise
                                         ? std::vector<Point>{{-a, -a}, {a, -a}, {a, a}, {-a, a}}
                                         : std::vector<Point>{{a, -a}, {-a, -a}, {-a, a}, {a, a}};
  Texts texts;
  for (std::size_t k = 0; k < 4; ++k) {
    const Point from = corners[k];
    const Point to = corners[(k + 1) % 4];
    texts.push_back(pathText({.type = kLine,
                              .x0 = from.x,
                              .y0 = from.y,
                              .x1 = to.x,
                              .y1 = to.y,
                              .z = -0.5F,
                              .feed = 10,
                              .code = 100}));
  }
  return texts;
}

void append(Texts& texts, const Texts& more) {
  texts.insert(texts.end(), more.begin(), more.end());
}

// From 4.5 in steps of 0.25, then at the clearance.
Texts squareRings(bool counterClockwise) {
  Texts texts;
  for (float inset = 4.5F; inset > 0.3F; inset -= 0.25F)
    append(texts, squareRing(inset, counterClockwise));
  append(texts, squareRing(0.3F, counterClockwise));
  return texts;
}

// ---- The rings

TEST_F(Spiral, ASquareIsCutFromTheMiddleToTheWall) {
  store.cfg_auto_place_finish_path = true;
  store.cfg_cutting_mode = kConventional;
  addPocket(kSquare);
  start(0, -5);
  Texts expected = squareRings(/*counterClockwise=*/false);
  append(expected, squareRing(0.25F, /*counterClockwise=*/true));
  EXPECT_EQ(pathTexts(store), expected);
  EXPECT_EQ(store.NumPathSegments, 4 * 19);
  EXPECT_EQ(store.cfg_cutting_mode, kClimb);  // stays, for the ring on the wall was a climb
  EXPECT_EQ(store.toolradius[0], 0.25F);
  EXPECT_EQ(store.showpaths, 1);
  EXPECT_EQ(pending(), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Spiral, WithoutTheFinishPathTheClearanceStaysOnTheWall) {
  store.cfg_cutting_mode = kConventional;
  addPocket(kSquare);
  start(0, -5);
  EXPECT_EQ(pathTexts(store), squareRings(/*counterClockwise=*/false));
  EXPECT_EQ(store.cfg_cutting_mode, kConventional);
}

TEST_F(Spiral, WithoutClearanceTheLastRingIsTheFinishPathInTheModeOfAll) {
  // The setting changes all the same.
  store.cfg_auto_place_finish_path = true;
  store.cfg_min_rough_clearance = 0;
  store.cfg_pocket_dist_from_center = 4.25F;
  addPocket(kSquare);
  start(0, -5);
  Texts expected = squareRing(0.75F, /*counterClockwise=*/false);
  append(expected, squareRing(0.5F, false));
  append(expected, squareRing(0.25F, false));
  EXPECT_EQ(pathTexts(store), expected);
  EXPECT_EQ(store.cfg_cutting_mode, kClimb);
}

TEST_F(Spiral, StepsByDistanceWhenTheWidthIsADistance) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 2;
  addPocket(kSquare);
  start(0, -5);
  Texts expected = squareRing(4.5F, false);
  for (const float inset : {2.5F, 0.5F, 0.3F}) append(expected, squareRing(inset, false));
  EXPECT_EQ(pathTexts(store), expected);
}

TEST_F(Spiral, ADistanceOfNothingFallsBackToThePercentage) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 0;
  addPocket(kSquare);
  start(0, -5);
  EXPECT_EQ(pathTexts(store), squareRings(false));
}

TEST_F(Spiral, AStepOfNothingEndsAfterOneRing) {
  store.cfg_tool_spacing = 0;
  addPocket(kSquare);
  start(0, -5);
  EXPECT_EQ(pathTexts(store), squareRing(4.5F, false));
}

TEST_F(Spiral, TheModeDecidesTheWayRoundWhateverWayTheRowsRun) {
  struct Case {
    const char* name;
    bool rowsCounterClockwise;
    int mode;
    bool ringsCounterClockwise;
  };
  constexpr Case kCases[] = {
      {"climb", true, kClimb, true},
      {"climb, rows the other way", false, kClimb, true},
      {"conventional", true, kConventional, false},
      {"conventional, rows the other way", false, kConventional, false},
      {"bidirectional", true, kBidirectional, true},
      {"bidirectional, rows the other way", false, kBidirectional, false},
  };
  const std::vector<Point> clockwise{{5, -5}, {-5, -5}, {-5, 5}, {5, 5}};
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    store.NumSegments = store.NumPathSegments = 0;
    store.cfg_cutting_mode = c.mode;
    addPocket(c.rowsCounterClockwise ? kSquare : clockwise);
    start(0, -5);
    EXPECT_EQ(pathTexts(store), squareRings(c.ringsCounterClockwise));
  }
}

TEST_F(Spiral, ARingBeginsAtTheRowThatIsClicked) {
  store.cfg_pocket_dist_from_center = 4.75F;  // less than the clearance leaves: one ring
  store.cfg_cutting_mode = kClimb;
  addPocket(kSquare);
  start(5, 0);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (4.7, -4.7)-(4.7, 4.7) @100 z -0.5 f 10",
                                     "1 (4.7, 4.7)-(-4.7, 4.7) @100 z -0.5 f 10",
                                     "1 (-4.7, 4.7)-(-4.7, -4.7) @100 z -0.5 f 10",
                                     "1 (-4.7, -4.7)-(4.7, -4.7) @100 z -0.5 f 10"}));
}

TEST_F(Spiral, ARowThatDoesNotExistMeansTheFirstVerifiedOne) {
  addLine(-1, -1, 1, 1);
  store.segattr[1] = 28;  // not to be selected
  addPocket(kSquare);
  for (const int sg : {0, -3, 6}) {
    store.NumPathSegments = 0;
    parallelSpiralPocket(cam, sg);
    EXPECT_EQ(pathTexts(store), squareRings(false));
  }
}

TEST_F(Spiral, RingsInAFullCircleAreFullCircles) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 1;
  add({.type = kCounterClockwiseArc, .x0 = 3, .x1 = 3});
  addPocket({});
  start(0, 2.9F);
  EXPECT_EQ(pathTexts(store), (Texts{"2 (0.5, 0)-(0.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "2 (1.5, 0)-(1.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "2 (2.5, 0)-(2.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "2 (2.7, 0)-(2.7, 0) c (0, 0) @100 z -0.5 f 10"}));
}

TEST_F(Spiral, RingsWithFoldsAreDroppedOrCleaned) {
  // A slot narrower than the tool in the upper wall.
  store.cfg_pocket_dist_from_center = 3;
  addPocket({{-5, -3}, {5, -3}, {5, 3}, {0.2F, 3}, {0.2F, 4}, {-0.2F, 4}, {-0.2F, 3}, {-5, 3}});
  start(0, -3);
  EXPECT_EQ(store.NumPathSegments, 0);
  store.cfg_gouge_avoidance = true;
  start(0, -3);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (4.5, -2.5)-(-4.5, -2.5) @100 z -0.5 f 10",
                                     "1 (-4.5, -2.5)-(-4.5, 2.5) @100 z -0.5 f 10",
                                     "1 (-4.5, 2.5)-(-0.2, 2.5) @100 z -0.5 f 10",
                                     "3 (-0.2, 2.5)-(0, 2.5417) c (-0.2, 3) @100 z -0.5 f 10",
                                     "3 (0, 2.5417)-(0.2, 2.5) c (0.2, 3) @100 z -0.5 f 10",
                                     "1 (0.2, 2.5)-(4.5, 2.5) @100 z -0.5 f 10",
                                     "1 (4.5, 2.5)-(4.5, -2.5) @100 z -0.5 f 10",
                                     "1 (4.7, -2.7)-(-4.7, -2.7) @100 z -0.5 f 10",
                                     "1 (-4.7, -2.7)-(-4.7, 2.7) @100 z -0.5 f 10",
                                     "1 (-4.7, 2.7)-(-0.2, 2.7) @100 z -0.5 f 10",
                                     "3 (-0.2, 2.7)-(0, 2.7764) c (-0.2, 3) @100 z -0.5 f 10",
                                     "3 (0, 2.7764)-(0.2, 2.7) c (0.2, 3) @100 z -0.5 f 10",
                                     "1 (0.2, 2.7)-(4.7, 2.7) @100 z -0.5 f 10",
                                     "1 (4.7, 2.7)-(4.7, -2.7) @100 z -0.5 f 10"}));
}

// ---- Levels and links

TEST_F(Spiral, TheRingsAreCopiedToTheLevelsBelow) {
  store.cfg_final_depth = 1;
  store.cfg_z_cut_per_pass = 0.3F;
  store.cfg_min_z_finish = 0.02F;
  store.cfg_pocket_dist_from_center = 4.75F;
  cam.roughFloor = roughingFloor(store);
  addPocket(kSquare);
  start(0, -5);
  ASSERT_EQ(store.NumPathSegments, 5 * 4);
  const Texts texts = pathTexts(store);
  const char* const kEnds[] = {" @100 z -0.3 f 10", " @100 z -0.6 f 20", " @100 z -0.9 f 20",
                               " @100 z -0.98 f 20", " @100 z -1 f 10"};
  for (std::size_t level = 0; level < 5; ++level) {
    EXPECT_EQ(texts[4 * level], std::string("1 (4.7, -4.7)-(-4.7, -4.7)") + kEnds[level]);
    EXPECT_EQ(texts[4 * level + 3], std::string("1 (4.7, 4.7)-(4.7, -4.7)") + kEnds[level]);
  }
  EXPECT_FLOAT_EQ(cam.currentZ, -1);
}

// An island that lies across the pocket drops each ring, so nothing else would come to an end.
TEST_F(Spiral, AStepOverOfNearlyNothingPlacesNothing) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 1e-6F;
  addPocket(kSquare);
  start(0, -5);
  EXPECT_EQ(store.NumPathSegments, 0);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The Step Over Amount is 0.000001.  That is too small for the rings from 4.5 to 0.3."
            "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
  EXPECT_EQ(messages()[0].title, "Rough Cut Pocket");
  store.cfg_cut_width_type = choiceNumber(StepOver::ByPercent);
  store.cfg_tool_spacing = 1e-5F;
  start(0, -5);
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_EQ(messages().size(), 2U);
}

TEST_F(Spiral, AStepThatDoesNotGoDownPlacesNothing) {
  for (const float cut : {0.0F, -0.3F}) {
    SCOPED_TRACE(cut);
    store = DrawingStore();
    test.recording.prompts.messages.clear();
    store.toolradius[0] = 0.25F;
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = cut;
    store.cfg_pocket_dist_from_center = 4.9F;  // there would be a question about the room
    cam.roughFloor = roughingFloor(store);
    addPocket(kSquare);
    start(0, -5);
    EXPECT_EQ(store.NumPathSegments, 0);
    EXPECT_EQ(store.toolradius[0], 0.25F);
    EXPECT_EQ(pending(), 0);
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(messages()[0].title, "Rough Cut Pocket");
    EXPECT_TRUE(messages()[0].text.starts_with("The Depth Per Pass, Z, is "));
  }
}

TEST_F(Spiral, AStartDepthOfTheFloorMeansOneLevel) {
  store.cfg_start_depth = 0.5F;
  store.cfg_z_cut_per_pass = 0.1F;
  store.cfg_pocket_dist_from_center = 4.75F;
  addPocket(kSquare);
  start(0, -5);
  EXPECT_EQ(pathTexts(store), squareRing(0.3F, false));
}

TEST_F(Spiral, RingsAreLinkedWhenWished) {
  store.cfg_connect_pocketing_paths = true;
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 4.3F;
  store.cfg_final_depth = 1;
  store.cfg_z_cut_per_pass = 0.5F;
  cam.roughFloor = roughingFloor(store);
  addPocket(kSquare);
  start(0, -5);
  Texts expected = squareRing(4.5F, false);
  expected.emplace_back("1 (0.5, -0.5)-(4.7, -4.7) @100 z -0.5 f 10");
  append(expected, squareRing(0.3F, false));
  expected.emplace_back("1 (4.7, -4.7)-(0.5, -0.5) @100 z -0.5 f 10");
  expected.emplace_back("1 (0.5, -0.5)-(-0.5, -0.5) @100 z -1 f 20");
  const Texts texts = pathTexts(store);
  EXPECT_EQ(Texts(texts.begin(), texts.begin() + 11), expected);
  EXPECT_EQ(store.NumPathSegments, 2 * 9 + 1);
}

// ---- Questions and messages

constexpr char kTooBig[] =
    "The tool diameter or distance from center may be too big for the pocket selected.\n\n"
    "        Tool Diameter  =  0.5\n"
    "         Pocket X-Dim  =  10\n"
    "         Pocket Y-Dim  =  10.12346\n"
    "    Dist from Center  =  4.8\n\n"
    "Do you want to continue anyway ?";

TEST_F(Spiral, ADistanceTooLargeIsAskedAboutAndYesMakesOneRing) {
  store.cfg_pocket_dist_from_center = 4.8F;
  addPocket(kSquare);
  cam.PocketYDim = 10.123456F;
  test.recording.prompts.answers = {Answer::Yes};
  start(0, -5);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, kTooBig);
  EXPECT_EQ(messages()[0].title, "Tool Diameter");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(pathTexts(store), squareRing(0.3F, false));
}

TEST_F(Spiral, NoEndsTheCommand) {
  store.cfg_pocket_dist_from_center = 4.8F;
  addPocket(kSquare);
  test.recording.prompts.answers = {Answer::No};
  start(0, -5);
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_EQ(context.changelog.changecount, 0);
}

TEST_F(Spiral, WithNothingVerifiedAMessageSaysSo) {
  addOutline(kSquare);
  start(0, -5);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, "No Pocketing Segments have been selected.");
  EXPECT_EQ(messages()[0].title, "Rough Cut Pocket");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(store.NumPathSegments, 0);
}

TEST_F(Spiral, TheClickAsksForAStartingSegmentAndShowsThatItIsBusy) {
  addPocket(kSquare);
  arm(context, PendingAction::StartRoughing);
  refreshStatus(context);
  EXPECT_EQ(prompt(), "Click near starting Path Segment.  ");
  log.take();
  click(0, -5);
  EXPECT_NE(log.take().find("MousePointer 11\n"), std::string::npos);
  EXPECT_EQ(pointer.MousePointer(), kDefaultShape);
}

TEST_F(Spiral, WhenNoRingSurvivesNothingIsCopiedOrLogged) {
  store.cfg_final_depth = 1;
  store.cfg_connect_pocketing_paths = true;
  cam.roughFloor = roughingFloor(store);
  addPathLine(7, 7, 8, 8, 100);
  addPocket(kSquare);
  add({.type = kLine, .attr = kVerifiedRow, .x0 = -5, .y0 = 0.25F, .x1 = 5, .y1 = 0.25F});
  const std::vector<PathRow> before = rows();
  start(0, -5);
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(context.changelog.changecount, 0);
  EXPECT_EQ(store.toolradius[0], 0.25F);
}

// ---- Undo

struct SpiralUndo : Spiral {
  // Runs the spiral over a table with rows of old groups, and undoes and redoes it.
  void expectOneStep() {
    const std::vector<PathRow> before = rows();
    start(0, -5);
    const std::vector<PathRow> after = rows();
    ASSERT_NE(after, before);
    Undo_Last_Change(context);
    EXPECT_EQ(rows(), before);
    EXPECT_FALSE(context.changelog.canUndo());
    RedoLastChange(context);
    EXPECT_EQ(rows(), after);
    EXPECT_FALSE(context.changelog.canRedo());
    Undo_Last_Change(context);
    EXPECT_EQ(rows(), before);
  }
};

TEST_F(SpiralUndo, TheWholeCommandIsOneStep) {
  store.cfg_auto_place_finish_path = true;
  store.cfg_gouge_avoidance = true;
  store.cfg_connect_pocketing_paths = true;
  store.cfg_final_depth = 1;
  cam.roughFloor = roughingFloor(store);
  addPathLine(7, 7, 8, 8, 100);
  addPocket({{-5, -3}, {5, -3}, {5, 3}, {0.2F, 3}, {0.2F, 4}, {-0.2F, 4}, {-0.2F, 3}, {-5, 3}});
  addIsland({{1, -0.5F}, {2, -0.5F}, {2, 0.5F}, {1, 0.5F}});
  cam.PocketXDim = 10;
  cam.PocketYDim = 6;
  expectOneStep();
}

TEST_F(SpiralUndo, OldRowsThatTheCleanUpTookComeBackToo) {
  addPathLine(7, 7, 8, 8, 100);
  addPathLine(8, 8, 8, 8, 100);
  addPathLine(1, 1, 2, 2, 200);
  addPathLine(2, 2, 1, 1, 200);
  addPathLine(1, 1, 1, 0, 200);
  addPathLine(3, 3, 3, 3, 300);
  addPocket(kSquare);
  expectOneStep();
}

TEST_F(SpiralUndo, PathsInsertedBeforeAGroupAreOneStepToo) {
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  addPathLine(7, 7, 8, 8, 100);
  addPathLine(1, 1, 2, 2, 200);
  addPathLine(2, 2, 2, 3, 200);
  addPocket(kSquare);
  addIsland({{1, -0.5F}, {2, -0.5F}, {2, 0.5F}, {1, 0.5F}});
  cam.PocketXDim = cam.PocketYDim = 10;
  expectOneStep();
}

// ---- Failures

TEST_F(Spiral, AFailureMidwayLeavesNoRowAndTheToolAsItWas) {
  addPocket(kSquare);
  while (store.NumPathSegments < 32760) addPathLine(7, 7, 8, 8, 100);
  const std::vector<PathRow> before = rows();
  const Int16 records = context.changelog.changecount;
  EXPECT_EQ(numberOfFailure([&] { parallelSpiralPocket(cam, 1); }), FailureNumber::Overflow);
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(context.changelog.changecount, records);
  EXPECT_EQ(store.toolradius[0], 0.25F);
  EXPECT_EQ(pointer.MousePointer(), kDefaultShape);
}

TEST_F(Spiral, AFailureMidwayLeavesTheCuttingModeAndTheGroups) {
  addPocket(kSquare);
  store.cfg_auto_place_finish_path = true;
  store.cfg_cutting_mode = choiceNumber(CuttingMode::Conventional);
  store.currentpathgroup = 3;
  while (store.NumPathSegments < 32748) addPathLine(7, 7, 8, 8, 100);
  EXPECT_EQ(numberOfFailure([&] { parallelSpiralPocket(cam, 1); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32748);
  EXPECT_EQ(store.cfg_cutting_mode, choiceNumber(CuttingMode::Conventional));
  EXPECT_EQ(store.currentpathgroup, 3);
  EXPECT_EQ(store.lastplacedgroup, 1);
}

TEST_F(Spiral, InAFullLogOlderStepsGiveWay) {
  addPocket(kSquare);
  clsSegment record;
  record.SetSegment({}, "A", /*start=*/true);
  while (context.changelog.changecount < 32760)
    context.changelog.logRecord(record, /*cutRedo=*/true);
  parallelSpiralPocket(cam, 1);
  EXPECT_GT(store.NumPathSegments, 7);
  EXPECT_EQ(context.changelog.changecount, 32767);
  EXPECT_EQ(context.changelog.lastStepSize(), store.NumPathSegments);
  Undo_Last_Change(context);
  EXPECT_EQ(store.NumPathSegments, 0);
}

// ---- Insertion among other paths

TEST_F(Spiral, RingsInsertedBeforeAGroupStandInTheirOrderBeforeIt) {
  // Level copies are of the last run of the table, which then is the other group's: the rings are
  // cut at the first level alone.
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 1;
  store.cfg_final_depth = 1;
  store.cfg_z_cut_per_pass = 0.5F;
  store.cfg_connect_pocketing_paths = true;
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 4.3F;
  cam.roughFloor = roughingFloor(store);
  addPathLine(7, 7, 8, 8, 100);
  addPocket(kSquare);
  start(0, -5);
  Texts expected = squareRing(4.5F, false);
  expected.emplace_back("1 (0.5, -0.5)-(4.7, -4.7) @100 z -0.5 f 10");
  append(expected, squareRing(0.3F, false));
  for (std::string& text : expected) text.replace(text.find("@100"), 4, "@200");
  expected.emplace_back("1 (7, 7)-(8, 8) @100 z 0");
  expected.emplace_back("1 (7, 7)-(8, 8) @100 z -1 f 20");
  EXPECT_EQ(pathTexts(store), expected);
}

// ---- What the rules do to pockets that do not suit them

// The walls are the verified rows.
float distanceToWall(const DrawingStore& store, Point p) {
  float nearest = kFarthest;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    nearest = std::min(nearest, distance(p, nearestOnSeg(store, sg, p).at));
  }
  return nearest;
}

// Walls of lines: a ray to the right meets an odd number of them.
bool isInPocket(const DrawingStore& store, Point p) {
  bool inside = false;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const float y0 = store.y0[sg];
    const float y1 = store.y1[sg];
    if ((y0 > p.y) == (y1 > p.y)) continue;
    const float x = store.x0[sg] + (p.y - y0) / (y1 - y0) * (store.x1[sg] - store.x0[sg]);
    if (x > p.x) inside = !inside;
  }
  return inside;
}

// Fifty steps along each row.
std::vector<Point> pointsOfPaths(const DrawingStore& store) {
  std::vector<Point> points;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const Entity row = pathEntity(store, ps);
    const ArcAngles arc = arcRadiusAndAngles(row.start, row.end, row.center);
    for (int step = 0; step <= 50; ++step) {
      const auto t = static_cast<float>(step) / 50;
      if (row.type == kLine) {
        points.push_back({row.start.x + t * (row.end.x - row.start.x),
                          row.start.y + t * (row.end.y - row.start.y)});
      } else {
        const float angle = arc.start + t * ArcSweep(arc.start, arc.end, row.type);
        points.push_back({row.center.x + arc.radius * std::cos(angle),
                          row.center.y + arc.radius * std::sin(angle)});
      }
    }
  }
  return points;
}

// How far the tool enters a wall.
double deepestEntry(const DrawingStore& store) {
  double deepest = 0;
  for (const Point p : pointsOfPaths(store)) {
    const double away = distanceToWall(store, p);
    const double entry = store.toolradius[0] + (isInPocket(store, p) ? -away : away);
    deepest = std::max(deepest, entry);
  }
  return deepest;
}

// The share of the places beyond the clearance that the tool cuts, on a grid of twentieths.
double shareCut(const DrawingStore& store) {
  const std::vector<Point> path = pointsOfPaths(store);
  int places = 0;
  int cut = 0;
  for (int column = -120; column < 120; ++column) {
    for (int row = -120; row < 120; ++row) {
      const Point p{static_cast<float>(column) / 20 + 0.01F, static_cast<float>(row) / 20 + 0.01F};
      if (!isInPocket(store, p) || distanceToWall(store, p) < 0.3F) continue;
      ++places;
      cut += std::any_of(path.begin(), path.end(),
                         [&](Point at) { return distance(p, at) <= store.toolradius[0]; });
    }
  }
  return places > 0 ? static_cast<double>(cut) / places : 0;
}

struct SpiralWeakSpot : Spiral {
  SpiralWeakSpot() { store.cfg_auto_place_finish_path = true; }
};

TEST_F(SpiralWeakSpot, AnEdgeOfExactly135DegreesPutsTheRingsOutside) {
  // The side is read the wrong way round there, but for the ring on the wall, which runs it back.
  const std::vector<Point> diamond{{0, -3}, {3, 0}, {0, 3}, {-3, 0}};
  addPocket(diamond);
  start(1.5F, 1.5F);
  EXPECT_EQ(store.NumPathSegments, 84);
  EXPECT_EQ(pathTexts(store)[0], "1 (4.7678, 1.7678)-(1.7678, 4.7678) @100 z -0.5 f 10");
  EXPECT_EQ(lastRows(1), (Texts{"1 (-2.6464, 0)-(0, 2.6464) @100 z -0.5 f 10"}));
  EXPECT_NEAR(deepestEntry(store), 2.75, 0.001);
}

TEST_F(SpiralWeakSpot, TheSamePocketStartedAtAnotherEdgeIsCutWhole) {
  addPocket({{0, -3}, {3, 0}, {0, 3}, {-3, 0}});
  start(1.5F, -1.5F);
  EXPECT_EQ(store.NumPathSegments, 36);
  EXPECT_NEAR(deepestEntry(store), 0, 0.001);
}

TEST_F(SpiralWeakSpot, RingsThatMeetAnIslandVanish) {
  addPocket({{-4, -3}, {4, -3}, {4, 3}, {-4, 3}});
  addIsland({{0.6F, -0.5F}, {1.6F, -0.5F}, {1.6F, 0.5F}, {0.6F, 0.5F}});
  cam.PocketXDim = 8;  // an island's verification measured these anew
  cam.PocketYDim = 6;
  start(0, -3);
  // Of the rings from 2.5 on that at 2.25 is the first to go round the island, at 0.15 from it.
  EXPECT_EQ(pathTexts(store)[0], "1 (1.75, -0.75)-(-1.75, -0.75) @100 z -0.5 f 10");
  EXPECT_EQ(store.NumPathSegments, 4 * 10);
  EXPECT_TRUE(messages().empty());
  EXPECT_NEAR(deepestEntry(store), 0.1, 0.001);
  EXPECT_NEAR(shareCut(store), 0.952, 0.001);
}

TEST_F(SpiralWeakSpot, InATriangleRingsBeyondTheMiddleAreDropped) {
  // They turn inside out and cross the outline; the rings from the middle on cut all of it.
  addPocket({{-4, -3}, {4, -3}, {0, 3}});
  start(0, -3);
  EXPECT_EQ(pathTexts(store)[0], "1 (0.263, -1)-(-0.263, -1) @100 z -0.5 f 10");
  EXPECT_EQ(store.NumPathSegments, 27);
  EXPECT_NEAR(deepestEntry(store), 0, 0.001);
  EXPECT_NEAR(shareCut(store), 1, 0.001);
}

TEST_F(SpiralWeakSpot, InATriangleGougeAvoidanceLeavesACrumbOutside) {
  // Cut off at its closing joint, the ring turned inside out becomes a hundredth of a row that
  // crosses nothing and so stays.
  store.cfg_gouge_avoidance = true;
  store.cfg_cutting_mode = kClimb;
  addPocket({{-4, -3}, {4, -3}, {0, 3}});
  start(0, -3);
  EXPECT_EQ(pathTexts(store)[0], "2 (-4.0011, -0.5)-(-4, -0.5) c (-4, -3) @100 z -0.5 f 10");
  EXPECT_EQ(store.NumPathSegments, 28);
  EXPECT_NEAR(deepestEntry(store), 1.6377, 0.001);
}

TEST_F(SpiralWeakSpot, InAnLRingsWiderThanAnArmAreDropped) {
  addPocket({{-4, -3}, {4, -3}, {4, 0}, {0, 0}, {0, 3}, {-4, 3}});
  start(0, -3);
  EXPECT_EQ(pathTexts(store)[0], "1 (2.5, -1.5)-(-2.5, -1.5) @100 z -0.5 f 10");
  EXPECT_EQ(store.NumPathSegments, 48);
  EXPECT_NEAR(deepestEntry(store), 0, 0.001);
  EXPECT_NEAR(shareCut(store), 0.947, 0.001);
}

TEST_F(SpiralWeakSpot, InANarrowLGougeAvoidanceLeavesRingsOutside) {
  store.cfg_gouge_avoidance = true;
  store.cfg_cutting_mode = kClimb;
  addPocket({{-4, -3}, {4, -3}, {4, -1.5F}, {-2.5F, -1.5F}, {-2.5F, 3}, {-4, 3}});
  start(0, -3);
  EXPECT_NEAR(deepestEntry(store), 2.75, 0.001);
}

TEST_F(SpiralWeakSpot, APocketNarrowerThanTheToolGetsNoRing) {
  addPocket({{-2, -0.2F}, {2, -0.2F}, {2, 0.2F}, {-2, 0.2F}});
  for (const bool avoidance : {false, true}) {
    store.cfg_gouge_avoidance = avoidance;
    messages().clear();
    start(0, -0.2F);
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_EQ(store.NumPathSegments, 0);
  }
}

TEST_F(SpiralWeakSpot, ACircleOfTwoHalvesLosesHalfOfItsFirstRing) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = 2;
  add({.type = kCounterClockwiseArc, .x0 = 3, .x1 = -3});
  add({.type = kCounterClockwiseArc, .x0 = -3, .x1 = 3});
  for (int sg = 1; sg <= 2; ++sg) store.segattr[sg] = kVerifiedRow;
  cam.PocketXDim = cam.PocketYDim = 6;
  start(0, 2.9F);
  EXPECT_EQ(pathTexts(store), (Texts{"3 (-0.5, 0)-(0.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (2.5, 0)-(-2.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (-2.5, 0)-(2.5, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (2.7, 0)-(-2.7, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (-2.7, 0)-(2.7, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (2.75, 0)-(-2.75, 0) c (0, 0) @100 z -0.5 f 10",
                                     "3 (-2.75, 0)-(2.75, 0) c (0, 0) @100 z -0.5 f 10"}));
}

// ---- The clean-up

struct CleanUp : ::testing::Test, RecordedCam {};

TEST_F(CleanUp, RowsTooShortGoWhereverTheyStand) {
  struct Case {
    const char* name;
    Entity row;
    bool goes;
  };
  const float tiny = 0.0005F;
  const Case kCases[] = {
      {"line of nothing", lineEntity({1, 1}, {1, 1}), true},
      {"line of two thirds of the tolerance", lineEntity({0, 0}, {0.00067F, 0}), true},
      {"line a little longer", lineEntity({0, 0}, {0.00068F, 0}), false},
      {"small arc", {kClockwiseArc, {0.005F, 0}, {0.005F, tiny}, {0, 0}}, true},
      {"small full circle", {kCounterClockwiseArc, {0.005F, 0}, {0.005F, 0}, {0, 0}}, true},
      {"full circle", {kCounterClockwiseArc, {1, 0}, {1, 0}, {0, 0}}, false},
      {"full circle of a hundredth", {kClockwiseArc, {0.01F, 0}, {0.01F, 0}, {0, 0}}, false},
      {"small arc with ends apart", {kClockwiseArc, {0.005F, 0}, {-0.005F, 0}, {0, 0}}, false},
      {"cycle", {81, {2, 2}, {2, 2}, {}}, false},
      {"rapid", {kRapid, {2, 2}, {2, 2}, {}}, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    store.NumPathSegments = 0;
    addPathLine(5, 5, 6, 6, 100);
    testing::addPath(store, c.row, 100);
    addPathLine(6, 6, 7, 7, 200);
    dropShortPathSegs(cam.changes);
    EXPECT_EQ(store.NumPathSegments, c.goes ? 2 : 3);
    EXPECT_EQ(pathTexts(store).back(), "1 (6, 6)-(7, 7) @200 z 0");
  }
}

TEST_F(CleanUp, AThereAndBackGoesAtTheHeadOfAGroupOnly) {
  for (const int code : {100, 200, 30300}) {
    addPathLine(0, 0, 1, 0, code);
    addPathLine(1, 0, 0, 0, code);
    addPathLine(0, 0, 1, 0, code);
  }
  dropBackTrackSegs(cam.changes);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (1, 0)-(0, 0) @100 z 0", "1 (0, 0)-(1, 0) @100 z 0",
                                     "1 (1, 0)-(0, 0) @200 z 0", "1 (0, 0)-(1, 0) @200 z 0",
                                     "1 (1, 0)-(0, 0) @30300 z 0", "1 (0, 0)-(1, 0) @30300 z 0"}));
}

TEST_F(CleanUp, AGroupOfOneRowAndRowsThatGoOnStay) {
  addPathLine(0, 0, 1, 0, 100);
  addPathLine(1, 0, 0, 0, 200);
  addPathLine(0, 0, 1, 0, 300);
  addPathLine(1, 0, 2, 0, 300);
  const Texts before = pathTexts(store);
  dropBackTrackSegs(cam.changes);
  EXPECT_EQ(pathTexts(store), before);
}

TEST_F(CleanUp, RangesFollowTheirRows) {
  addPathLine(0, 0, 0, 0, 100);
  addPathLine(0, 0, 1, 0, 100);
  addPathLine(1, 0, 1, 0, 100);
  addPathLine(1, 0, 2, 0, 100);
  addPathLine(2, 0, 2, 0, 100);
  PlacedRows ranges[] = {{2, 4}, {4, 5}, {6, 5}};
  dropShortPathSegs(cam.changes, ranges);
  ASSERT_EQ(store.NumPathSegments, 2);
  EXPECT_EQ(ranges[0].first, 1);
  EXPECT_EQ(ranges[0].last, 2);
  EXPECT_EQ(ranges[1].first, 2);
  EXPECT_EQ(ranges[1].last, 2);
  EXPECT_TRUE(ranges[2].empty());
  EXPECT_EQ(ranges[2].first, 3);
}

TEST_F(CleanUp, APassThatMeetsAVerifiedRowGoesWhole) {
  add({.type = kLine, .attr = kVerifiedRow, .x0 = 0, .y0 = 0, .x1 = 10, .y1 = 0});
  addPathLine(1, 1, 1, -1, 100);  // crosses too, but is before the pass
  addPathLine(2, 1, 3, 1, 100);
  addPathLine(3, 1, 3, 0, 100);  // touches
  addPathLine(3, 2, 4, 2, 100);
  dropCrossingPass(cam.changes, 2);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (1, 1)-(1, -1) @100 z 0"}));
  EXPECT_EQ(context.changelog.changecount, 0);
}

TEST_F(CleanUp, RowsNotVerifiedAreNoWalls) {
  for (const int attr : {kOrdinaryClass, 10, 12, kParkedRow, kSelected + kOrdinaryClass})
    add({.type = kLine, .attr = attr, .x0 = 0, .y0 = 0, .x1 = 10, .y1 = 0});
  addPathLine(1, 1, 1, -1, 100);
  dropCrossingPass(cam.changes, 1);
  EXPECT_EQ(store.NumPathSegments, 1);
}

// As a trial of every path row with every verified row.
TEST_F(CleanUp, PassesAreDroppedAsByATrialOfAllPairs) {
  int dropped = 0;
  for (int number = 0; number < 20 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    store.NumSegments = store.NumPathSegments = 0;
    std::vector<Entity> walls = testing::sceneOf(number).entities;
    std::vector<Entity> paths = testing::sceneOf(number + 13 * 500).entities;
    if (paths.size() > 3) paths.resize(3);
    for (const Entity& wall : walls) testing::addSegment(store, wall, kVerifiedRow);
    for (const Entity& path : paths) testing::addPath(store, path);
    bool meets = false;
    for (const Entity& path : paths) {
      for (int sg = 1; sg <= store.NumSegments; ++sg) {
        meets = meets || intersectWithSeg(store, path, sg);
      }
    }
    const int count = store.NumPathSegments;
    dropCrossingPass(cam.changes, 1);
    ASSERT_EQ(store.NumPathSegments, meets ? 0 : count);
    dropped += meets;
  }
  EXPECT_GT(dropped, 20);
}

}  // namespace
}  // namespace tess
