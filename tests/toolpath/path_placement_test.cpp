// Placing path rows: levels, links, reversing, and taking placements back.
#include "toolpath/path_placement.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/break_segment.h"
#include "drafting/entity_creation.h"
#include "drafting/row_edits.h"
#include "drafting/undo.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/finish_path.h"
#include "toolpath/path_groups.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

using testing::addPath;
using testing::addSegment;
using testing::numberOfFailure;
using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

Entity line(float x0, float y0, float x1, float y1) {
  return lineEntity({x0, y0}, {x1, y1});
}

PathRow rowAt(float x, float z, int code = 100) {
  return {.type = kLine, .x0 = x, .x1 = x + 1, .z = z, .feed = 20, .code = code};
}

// A log in which the step before is somebody else's.
void logForeignStep(RecordedCam& d) {
  d.addLine(0, 0, 1, 1);
  logSegment(d.context.changelog, d.store, d.store.NumSegments, "A", /*start=*/true);
}

// Undo gives back the rows before the last step, redo those after it.
void expectTakenBack(RecordedCam& d, const Texts& before) {
  const Texts after = pathTexts(d.store);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), before);
  RedoLastChange(d.context);
  EXPECT_EQ(pathTexts(d.store), after);
}

TEST(PointsWithin, MeansLessThanTheDistanceInBothAxes) {
  EXPECT_TRUE(pointsWithin({0, 0}, {0.5F, -0.5F}, 0.75));
  EXPECT_FALSE(pointsWithin({0, 0}, {0.5F, 0}, 0.5));
  EXPECT_FALSE(pointsWithin({0, 0}, {0, 0.5F}, 0.5));
  EXPECT_FALSE(pointsWithin({0, 0}, {0.25F, 1}, 0.5));
  EXPECT_FALSE(pointsWithin({1, 1}, {1, 1}, 0));
}

// ---- Levels

TEST(ReplicatePathAtZ, CopiesEveryRowOfTheLastPassAndNothingBeforeIt) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.5F));
  addPathSegment(d.store, rowAt(1, -0.25F));
  addPathSegment(d.store, {.type = 3, .x0 = 2, .y1 = 2, .z = -0.25F, .feed = 20, .code = 100});
  logForeignStep(d);
  const Texts before = pathTexts(d.store);
  replicatePathAtZ(d.cam, -0.75F, 8);
  Texts expected = before;
  expected.insert(expected.end(), {"1 (1, 0)-(2, 0) @100 z -0.75 f 8",
                                   "3 (2, 0)-(0, 2) c (0, 0) @100 z -0.75 f 8"});
  EXPECT_EQ(pathTexts(d.store), expected);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.store.lastplacedgroup, 1);
  EXPECT_TRUE(d.context.changelog.record(1).StartOfSegment);
  EXPECT_FALSE(d.context.changelog.record(2).StartOfSegment);
  expectTakenBack(d, before);
}

TEST(ReplicatePathAtZ, StopsWhereTheCodeChanges) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.5F, 200));
  addPathSegment(d.store, rowAt(1, -0.5F, 30200));
  replicatePathAtZ(d.cam, -1, 8);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @200 z -0.5 f 20", "1 (1, 0)-(2, 0) @30200 z -0.5 f 20",
                   "1 (1, 0)-(2, 0) @30200 z -1 f 8"}));
}

TEST(ReplicatePathAtZ, ShowsCopiesOfHiddenRows) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.5F));
  d.store.psvisible[1] = false;
  replicatePathAtZ(d.cam, -1, 8);
  EXPECT_TRUE(d.store.psvisible[2]);
}

TEST(ReplicatePathAtZ, OfNoRowsChangesNothing) {
  RecordedCam d;
  replicatePathAtZ(d.cam, -1, 8);
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

struct LevelCase {
  const char* name;
  float start, final, cut, minFinish;
  float floor, first;
  std::vector<float> depths;
  std::vector<float> feeds;
};

TEST(ReplicateLevels, GoDownToTheFloorAndThenToTheFloorFinish) {
  const LevelCase kCases[] = {
      {"several",
       0,
       1,
       0.3F,
       0.02F,
       -0.98F,
       -0.3F,
       {-0.3F, -0.6F, -0.9F, -0.98F, -1},
       {20, 20, 20, 20, 10}},
      {"signs play no part but in the cut",
       -0.5F,
       -1,
       0.25F,
       -0.25F,
       -0.75F,
       -0.75F,
       {-0.75F, -1},
       {20, 10}},
      {"the first level is the floor", 0, 0.5F, 0.5F, 0, -0.5F, -0.5F, {-0.5F}, {20}},
      {"the first level would be below it", 0.25F, 0.5F, 0.5F, 0, -0.5F, -0.5F, {-0.5F}, {20}},
      {"no cut per pass: one level", 0.25F, 1, 0, 0, -1, -0.25F, {-0.25F}, {20}},
      {"no cut per pass, but a floor finish",
       0.25F,
       1,
       0,
       0.5F,
       -0.5F,
       -0.25F,
       {-0.25F, -1},
       {20, 10}},
      {"a negative cut steps up and ends it", 0, 1, -0.25F, 0, -1, -0.25F, {-0.25F}, {20}},
      {"a cut too small to count ends it", 4, 8, 1e-9F, 0, -8, -4, {-4}, {20}},
  };
  for (const LevelCase& row : kCases) {
    RecordedCam d;
    d.store.cfg_start_depth = row.start;
    d.store.cfg_final_depth = row.final;
    d.store.cfg_z_cut_per_pass = row.cut;
    d.store.cfg_min_z_finish = row.minFinish;
    EXPECT_FLOAT_EQ(roughingFloor(d.store), row.floor) << row.name;
    const float first = firstLevel(d.store, row.floor);
    EXPECT_FLOAT_EQ(first, row.first) << row.name;
    addPathSegment(d.store, rowAt(0, first));
    EXPECT_FLOAT_EQ(replicateLevels(d.cam, first, row.floor, /*rowsBefore=*/0), row.depths.back());
    ASSERT_EQ(d.store.NumPathSegments, static_cast<int>(row.depths.size())) << row.name;
    for (std::size_t level = 0; level < row.depths.size(); ++level) {
      const int ps = static_cast<int>(level) + 1;
      EXPECT_FLOAT_EQ(d.store.psz[ps], row.depths[level]) << row.name << ", level " << ps;
      EXPECT_EQ(d.store.psfeed[ps], row.feeds[level]) << row.name << ", level " << ps;
    }
  }
}

TEST(ReplicateLevels, OfARunThatPlacedNoneCopiesNone) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.25F));
  d.store.cfg_min_z_finish = 0.1F;
  EXPECT_EQ(replicateLevels(d.cam, -0.25F, -1, /*rowsBefore=*/1), -0.25F);
  EXPECT_EQ(d.store.NumPathSegments, 1);
}

TEST(ReplicateLevels, AreOneStepEach) {
  RecordedCam d;
  d.store.cfg_z_cut_per_pass = 0.25F;
  addPathSegment(d.store, rowAt(0, -0.25F));
  addPathSegment(d.store, rowAt(1, -0.25F));
  replicateLevels(d.cam, -0.25F, -0.75F, /*rowsBefore=*/0);
  ASSERT_EQ(d.store.NumPathSegments, 6);
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.store.NumPathSegments, 4);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @100 z -0.25 f 20", "1 (1, 0)-(2, 0) @100 z -0.25 f 20"}));
}

// ---- Links

TEST(ConnectPathSegs, LinksTheGapsAtTheDepthAndFeedOfTheRowBefore) {
  RecordedCam d;
  d.store.selectedtool = 3;
  d.store.currentpathgroup = 4;
  addPathSegment(d.store, rowAt(0, -0.25F));
  addPathSegment(d.store, rowAt(1, -0.25F));    // goes on where the first ends
  addPathSegment(d.store, rowAt(5, -0.75F));    // a gap before it
  addPathSegment(d.store, rowAt(8, -1));        // and another
  addPathSegment(d.store, rowAt(20, -1, 200));  // behind the rows in question
  EXPECT_EQ(connectPathSegs(d.cam, 1, 4), 6);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @100 z -0.25 f 20", "1 (1, 0)-(2, 0) @100 z -0.25 f 20",
                   "1 (2, 0)-(5, 0) @403 z -0.25 f 20", "1 (5, 0)-(6, 0) @100 z -0.75 f 20",
                   "1 (6, 0)-(8, 0) @403 z -0.75 f 20", "1 (8, 0)-(9, 0) @100 z -1 f 20",
                   "1 (20, 0)-(21, 0) @200 z -1 f 20"}));
  EXPECT_EQ(d.store.lastplacedgroup, 4);
}

TEST(ConnectPathSegs, LeavesTheGapAcrossAnIslandAndLinksTheSpansOnEitherSide) {
  RecordedCam d;
  d.store.currentpathgroup = 1;
  addPathSegment(d.store, rowAt(0, -0.5F));
  addPathSegment(d.store, rowAt(2, -0.5F));  // a gap of 1
  addPathSegment(d.store, rowAt(5, -0.5F));  // a gap of 2, with the island in it
  addPathSegment(d.store, rowAt(7, -0.5F));  // a gap of 1
  addSegment(d.store, line(4, -1, 4.2F, 1), kIslandOutline);
  EXPECT_EQ(connectPathSegs(d.cam, 1, 4), 6);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @100 z -0.5 f 20", "1 (1, 0)-(2, 0) @100 z -0.5 f 20",
                   "1 (2, 0)-(3, 0) @100 z -0.5 f 20", "1 (5, 0)-(6, 0) @100 z -0.5 f 20",
                   "1 (6, 0)-(7, 0) @100 z -0.5 f 20", "1 (7, 0)-(8, 0) @100 z -0.5 f 20"}));
}

TEST(ConnectPathSegs, AsksOnlyWorkingOutlinesOfIslands) {
  for (const int attr : {8, 10, 30108, 29112, 30012, 112}) {
    RecordedCam d;
    addPathSegment(d.store, rowAt(0, -0.5F));
    addPathSegment(d.store, rowAt(3, -0.5F));
    addSegment(d.store, line(2, -1, 2.2F, 1), attr);
    EXPECT_EQ(connectPathSegs(d.cam, 1, 2), 3) << attr;
  }
}

TEST(ConnectPathSegs, BelongToTheStepOfTheRowsBeforeThem) {
  RecordedCam d;
  logForeignStep(d);
  addPathSegment(d.store, rowAt(0, -0.5F));
  logPathSegment(d.context.changelog, d.store, 1, "A", /*start=*/true);
  addPathSegment(d.store, rowAt(3, -0.5F));
  logPathSegment(d.context.changelog, d.store, 2, "A", /*start=*/false);
  connectPathSegs(d.cam, 1, 2);
  ASSERT_EQ(d.store.NumPathSegments, 3);
  expectTakenBack(d, {});
  EXPECT_EQ(d.store.NumSegments, 1);
}

TEST(ConnectPathSegs, OfLessThanTwoRowsDoesNothing) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.5F));
  EXPECT_EQ(connectPathSegs(d.cam, 1, 1), 1);
  EXPECT_EQ(connectPathSegs(d.cam, 2, 1), 1);
  EXPECT_EQ(d.store.NumPathSegments, 1);
}

TEST(ConnectPathSegs, OutsideTheTableFails) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, -0.5F));
  addPathSegment(d.store, rowAt(3, -0.5F));
  for (const auto& [first, last] : {std::pair(0, 2), std::pair(1, 3)}) {
    EXPECT_EQ(numberOfFailure([&, from = first, to = last] { connectPathSegs(d.cam, from, to); }),
              FailureNumber::SubscriptOutOfRange);
  }
  EXPECT_EQ(d.store.NumPathSegments, 2);
}

TEST(ConnectPathSegs, InATableWithoutRoomInsertsNoneOfThem) {
  RecordedCam d;
  for (int row = 0; row < 32766; ++row) {
    addPathSegment(d.store, rowAt(row < 32763 ? 0.0F : static_cast<float>(3 * row), 0));
  }
  EXPECT_EQ(numberOfFailure([&] { connectPathSegs(d.cam, 32763, 32766); }),
            FailureNumber::Overflow);
  EXPECT_EQ(d.store.NumPathSegments, 32766);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

// As the rules are told: link by link, each with a look at all rows.
int plainConnect(CamContext& cam, int first, int last) {
  DrawingStore& store = cam.store;
  for (int ps = first; ps < last; ++ps) {
    const Point from = pathEntity(store, ps).end;
    const Point to = pathEntity(store, ps + 1).start;
    if (samePoint(from, to, store.cfg_tolerance)) continue;
    bool blocked = false;
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      blocked = blocked || (store.segattr[sg] == kIslandOutline &&
                            intersectWithSeg(store, lineEntity(from, to), sg));
    }
    if (blocked) continue;
    insertPathSegment(cam.changes, ps + 1,
                      {.type = kLine,
                       .x0 = from.x,
                       .y0 = from.y,
                       .x1 = to.x,
                       .y1 = to.y,
                       .z = store.psz[ps],
                       .feed = store.psfeed[ps]},
                      store.selectedtool);
    logPathSegment(cam.changes.log, store, ps + 1, "A", /*start=*/false);
    ++ps;
    ++last;
  }
  return last;
}

Point gridPoint() {
  return {static_cast<float>(*rc::gen::inRange(0, 6)), static_cast<float>(*rc::gen::inRange(0, 6))};
}

Entity gridEntity() {
  const int type = *rc::gen::element(kLine, kLine, kClockwiseArc, kCounterClockwiseArc);
  return {type, gridPoint(), gridPoint(), type == kLine ? Point{} : gridPoint()};
}

void empty(RecordedCam& d) {
  d.store.NumSegments = 0;
  d.store.NumPathSegments = 0;
  d.context.changelog.clear();
}

void addRandomRows(RecordedCam& a, RecordedCam& b, int rows) {
  for (int row = 0; row < rows; ++row) {
    const Entity path = gridEntity();
    addPath(a.store, path);
    addPath(b.store, path);
  }
  for (int wall = *rc::gen::inRange(0, 6); wall > 0; --wall) {
    const Entity entity = gridEntity();
    const int attr = *rc::gen::element(8, kIslandOutline, kIslandOutline);
    addSegment(a.store, entity, attr);
    addSegment(b.store, entity, attr);
  }
}

TEST(ConnectPathSegs, EqualsLinkByLink) {
  RecordedCam a, b;
  EXPECT_TRUE(rc::check([&] {
    empty(a), empty(b);
    const int rows = *rc::gen::inRange(0, 12);
    addRandomRows(a, b, rows);
    const int first = *rc::gen::inRange(1, 4);
    RC_ASSERT(connectPathSegs(a.cam, first, rows) == plainConnect(b.cam, first, rows));
    RC_ASSERT(pathTexts(a.store) == pathTexts(b.store));
    RC_ASSERT(a.context.changelog.changecount == b.context.changelog.changecount);
    for (int record = 0; record < a.context.changelog.changecount; ++record) {
      RC_ASSERT(a.context.changelog.record(record).row == b.context.changelog.record(record).row);
    }
  }));
}

// ---- Reversing

TEST(ReversePathSegment, ExchangesTheEndsOfALine) {
  RecordedCam d;
  addPath(d.store, line(0, 0, 1, 2), 203);
  addPath(d.store, line(1, 2, 3, 4), 203);
  logForeignStep(d);
  d.store.drawingsaved = true;
  const Texts before = pathTexts(d.store);
  reversePathSegment(d.cam, 1);
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (1, 2)-(0, 0) @203 z 0", "1 (1, 2)-(3, 4) @203 z 0"}));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.record(1).AddOrDelete, "D");
  EXPECT_TRUE(d.context.changelog.record(1).StartOfSegment);
  EXPECT_EQ(d.context.changelog.record(2).AddOrDelete, "A");
  EXPECT_FALSE(d.context.changelog.record(2).StartOfSegment);
  expectTakenBack(d, before);
}

TEST(ReversePathSegment, TurnsAnArcsSenseToo) {
  RecordedCam d;
  addPath(d.store, {2, {0, 1}, {1, 0}, {0, 0}});
  addPath(d.store, {3, {1, 0}, {0, 1}, {0, 0}});
  const Texts before = pathTexts(d.store);
  reversePathSegment(d.cam, 1);
  reversePathSegment(d.cam, 2);
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"3 (1, 0)-(0, 1) c (0, 0) @100 z 0", "2 (0, 1)-(1, 0) c (0, 0) @100 z 0"}));
  Undo_Last_Change(d.context);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), before);
}

TEST(ReversePathSegment, LeavesOtherRowsAlone) {
  RecordedCam d;
  addPath(d.store, {81, {1, 1}, {1, 1}, {}});
  addPath(d.store, {0, {0, 0}, {1, 1}, {}});
  const Texts before = pathTexts(d.store);
  for (const int ps : {-1, 0, 1, 2, 3}) reversePathSegment(d.cam, ps);
  EXPECT_EQ(pathTexts(d.store), before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(ReversePath, ReversesTheRowNearTheClickAlone) {
  RecordedCam d;
  addPath(d.store, line(0, 0, 2, 0));
  addPath(d.store, line(2, 0, 2, 2));
  const Texts before = pathTexts(d.store);
  mnuRevPathDir_Click(d.cam);
  EXPECT_EQ(d.pending(), 42);
  EXPECT_EQ(d.prompt(), "Click near Path Segment to reverse.  ");
  d.click(2.1F, 1.5F);
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (0, 0)-(2, 0) @100 z 0", "1 (2, 2)-(2, 0) @100 z 0"}));
  EXPECT_EQ(d.pending(), 0);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  expectTakenBack(d, before);
}

TEST(ReversePath, WithoutPathsCancelsWhatIsArmed) {
  RecordedCam d;
  mnuEditBreakSeg_Click(d.context);
  ASSERT_EQ(d.pending(), 9);
  mnuRevPathDir_Click(d.cam);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.command.LastCommand, 9);
}

TEST(ReversePath, SetsActionModeAndTheRepeatKeysMemoryAndDropsAHalfDoneCommand) {
  RecordedCam d;
  addPath(d.store, line(0, 0, 2, 0));
  mnuDrawCircle3P_Click(d.context);
  d.click(2, 2);
  ASSERT_EQ(d.context.command.clickstage, 1);
  mnuRevPathDir_Click(d.cam);
  EXPECT_EQ(d.pending(), 42);
  EXPECT_EQ(d.mode(), 0);
  EXPECT_EQ(d.context.command.LastCommand, 42);
  EXPECT_EQ(d.context.command.clickstage, 0);
  EXPECT_FALSE(d.context.command.secondCrossShown);
}

TEST(ReversePath, WithoutAVisibleRowDoesNothing) {
  RecordedCam d;
  addPath(d.store, line(0, 0, 2, 0), 100, /*visible=*/false);
  mnuRevPathDir_Click(d.cam);
  d.click(1, 0.5F);
  EXPECT_EQ(pathTexts(d.store), Texts{"1 (0, 0)-(2, 0) @100 z 0"});
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

// ---- Placing one element

TEST(PlaceOnePathSegment, RoundsTheDrawingAndAsksForTheStart) {
  RecordedCam d;
  d.addLine(0.123456F, 0, 1, 1);
  d.cam.PlaceChain = 1;
  mnuCAMPlace1PathSeg_Click(d.cam);
  EXPECT_EQ(d.cam.PlaceChain, 0);
  EXPECT_EQ(d.store.x0[1], 0.12346F);
  EXPECT_EQ(d.pending(), 20);
  EXPECT_EQ(d.prompt(), "Click near start point.");
  EXPECT_EQ(d.mode(), 0);
  EXPECT_EQ(d.context.command.LastCommand, 20);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

struct PlaceOne : RecordedCam, ::testing::Test {
  PlaceOne() {
    addLine(0, 0, 2, 0);
    addLine(2, 0, 2, 2);
    // Neither leads nor joints belong to a single element.
    store.cfg_lead_in_path = true;
    store.cfg_lead_in_angle = 45;
    store.cfg_lead_in_length = 0.5F;
  }
  void closeOptions(int passes) {
    test.recording.prompts.onForm = [passes](Form& form) {
      form.control("txtNumPasses")->set("text", std::to_string(passes));
      form.control("cmdOK")->press();
    };
    mnuCAMPlaceFinishPath_Click(cam);
    Handle_esc(context);
  }
  void placeOne() {
    mnuCAMPlace1PathSeg_Click(cam);
    click(0, 0.2F);
    click(1.5F, 0);
    click(1, 1);
  }
};

TEST_F(PlaceOne, AtStartUpPlacesNothing) {
  placeOne();
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_EQ(pending(), 0);
  closeOptions(1);
  placeOne();
  EXPECT_EQ(pathTexts(store), Texts{"1 (0, 0.25)-(2, 0.25) @100 z -0.5 f 10"});
  expectTakenBack(*this, {});
}

TEST_F(PlaceOne, PlacesAsManyRowsAsTheLastFinishPathHadPasses) {
  store.cfg_min_rough_clearance = 0.125F;
  store.cfg_tool_spacing_distance = 0.5F;
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  closeOptions(3);
  placeOne();
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0.875)-(2, 0.875) @100 z -0.5 f 10",
                                     "1 (0, 0.375)-(2, 0.375) @200 z -0.5 f 10",
                                     "1 (0, 0.25)-(2, 0.25) @300 z -0.5 f 10"}));
}

// ---- Taking placements back

TEST_F(PlaceOne, BeforeAGroupIsTakenBackByItsOwn) {
  addPath(store, line(5, 5, 6, 5), 100);
  addPath(store, line(6, 5, 7, 5), 200);
  const Texts before = pathTexts(store);
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  closeOptions(1);
  placeOne();
  EXPECT_EQ(pathTexts(store),
            (Texts{before[0], "1 (0, 0.25)-(2, 0.25) @300 z -0.5 f 10", before[1]}));
  mnuCAMUndoLastPlace_Click(cam);
  EXPECT_EQ(pathTexts(store), before);
}

TEST_F(PlaceOne, AFinishPathBeforeAGroupIsTakenBackByItsOwn) {
  addPath(store, line(5, 5, 6, 5), 100);
  addPath(store, line(6, 5, 7, 5), 200);
  const Texts before = pathTexts(store);
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  store.cfg_lead_in_path = false;
  store.cfg_connect_pocketing_paths = false;
  test.recording.prompts.onForm = [](Form& form) { form.control("cmdOK")->press(); };
  mnuCAMPlaceFinishPath_Click(cam);
  click(0, 0.2F);
  click(1.5F, 0);
  click(1, 1);
  EXPECT_EQ(pathTexts(store), (Texts{before[0], "1 (0, 0.25)-(1.75, 0.25) @300 z -0.5 f 10",
                                     "1 (1.75, 0.25)-(1.75, 2) @300 z -0.5 f 10", before[1]}));
  mnuCAMUndoLastPlace_Click(cam);
  EXPECT_EQ(pathTexts(store), before);
  Undo_Last_Change(context);
  EXPECT_EQ(store.NumPathSegments, 4);
  Undo_Last_Change(context);
  EXPECT_EQ(pathTexts(store), before);
}

TEST(UndoLastPlace, TakesTheLastGroupAndThenTheRunAtTheEnd) {
  RecordedCam d;
  for (const int code : {100, 200, 201, 201, 300}) addPathSegment(d.store, rowAt(0, 0, code));
  d.store.showpaths = 0;
  d.store.drawingsaved = true;
  const Texts all = pathTexts(d.store);
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 4);
  EXPECT_EQ(d.store.lastplacedgroup, 0);
  EXPECT_EQ(d.store.showpaths, 1);
  EXPECT_EQ(d.context.changelog.UndoMark, -1);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.test.listener.take(), Texts{"Update_menu_checks"});
  mnuCAMUndoLastPlace_Click(d.cam);  // the run of equal code, not the group
  EXPECT_EQ(pathTexts(d.store), Texts(all.begin(), all.begin() + 2));
  EXPECT_TRUE(d.context.changelog.record(1).StartOfSegment);
  EXPECT_FALSE(d.context.changelog.record(2).StartOfSegment);
  expectTakenBack(d, Texts(all.begin(), all.begin() + 4));
  Undo_Last_Change(d.context);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), all);
}

TEST(UndoLastPlace, TakesTheLastRunDownToTheFirstRow) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, 0));
  addPathSegment(d.store, rowAt(1, 0));
  d.store.lastplacedgroup = 0;
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

TEST(UndoLastPlace, TakesRowsThatWereInsertedBeforeAnotherGroup) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, 0, 100));
  addPathSegment(d.store, rowAt(1, 0, 200));
  const Texts before = pathTexts(d.store);
  d.cam.pathInsertMode = PathInsertMode::BeforeGroup;
  d.cam.pathInsertGroup = 2;
  d.store.currentpathgroup = nextPathGroup(d.store);
  const int at = pathInsertIndex(d.store, d.cam.pathInsertMode, d.cam.pathInsertGroup);
  insertPathSegment(d.cam.changes, at, rowAt(5, 0), 1);
  insertPathSegment(d.cam.changes, at + 1, rowAt(6, 0), 1);
  EXPECT_EQ(pathTexts(d.store), (Texts{before[0], "1 (5, 0)-(6, 0) @301 z 0 f 20",
                                       "1 (6, 0)-(7, 0) @301 z 0 f 20", before[1]}));
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(pathTexts(d.store), before);
}

// Behind an insertion point the end of the table may be anybody's rows.
TEST(UndoLastPlace, WithAnInsertionPointTakesNothingTheSecondTime) {
  for (const PathInsertMode mode : {PathInsertMode::BeforeGroup, PathInsertMode::AfterGroup}) {
    RecordedCam d;
    addPathSegment(d.store, rowAt(0, 0));
    d.store.lastplacedgroup = 0;
    d.store.showpaths = 0;
    d.cam.pathInsertMode = mode;
    mnuCAMUndoLastPlace_Click(d.cam);
    EXPECT_EQ(d.store.NumPathSegments, 1) << static_cast<int>(mode);
    EXPECT_EQ(d.store.showpaths, 0) << static_cast<int>(mode);
  }
}

// The group of an appended row with a tool above 50 reads one too high.
TEST(UndoLastPlace, FallsSilentWithAHighTool) {
  RecordedCam d;
  d.store.currentpathgroup = 1;
  insertPathSegment(d.cam.changes, 1, rowAt(0, 0), 60);
  EXPECT_EQ(d.store.lastplacedgroup, 1);
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 1);
  addPathSegment(d.store, rowAt(1, 0, 160));
  EXPECT_EQ(d.store.lastplacedgroup, 2);
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

TEST(UndoLastPlace, WithoutPathsDoesNothing) {
  RecordedCam d;
  d.store.lastplacedgroup = 4;
  mnuCAMUndoLastPlace_Click(d.cam);
  EXPECT_EQ(d.store.showpaths, 0);
  EXPECT_EQ(d.store.lastplacedgroup, 0);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(ClearAllPaths, AsksAndLogsNothing) {
  RecordedCam d;
  addPathSegment(d.store, rowAt(0, 0));
  d.store.pathgroupname[1] = "Outside";
  d.store.drawingsaved = true;
  mnuClearAllPaths_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
  for (int group = 0; group <= d.store.pathgroupname.upperBound(); ++group) {
    EXPECT_EQ(d.store.pathgroupname[group], "") << group;
  }
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_FALSE(d.store.drawingsaved);
}

}  // namespace
}  // namespace tess
