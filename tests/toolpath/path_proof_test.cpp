// The path proof on known shapes: what is a gouge, what is left, what a rapid goes through, and
// what is said where there is no job.
#include "toolpath/path_proof.h"

#include <cmath>
#include <numbers>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/support/judged_square.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/job_walls.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::proofOf;
using ::testing::SizeIs;

class ProofOfSquare : public ::testing::Test {
 protected:
  ProofOfSquare() {
    store_.zstartpos = 1;
    testing::clearSquare(store_);
    jobs_.note(store_, testing::squareJob());
  }

  void add(const PathRow& row) { addPathSegment(store_, row); }
  void add(int type, Point from, Point to, float z = -0.25F, int tool = 0) {
    add({.type = type,
         .x0 = from.x,
         .y0 = from.y,
         .x1 = to.x,
         .y1 = to.y,
         .z = z,
         .feed = 10,
         .code = pathCode(testing::kSquareGroup, tool)});
  }
  void shift(int ps, float by) {
    store_.psy0[ps] += by;
    store_.psy1[ps] += by;
  }
  void drop(int ps) {
    for (int row = ps; row < store_.NumPathSegments; ++row) {
      setPathRow(store_, row, pathRow(store_, row + 1));
    }
    --store_.NumPathSegments;
  }
  PathProof proof() const { return proofOf(store_, jobs_); }
  double left() const { return proof().missed.at(0).atClearance.area; }

  DrawingStore store_;
  PathJobs jobs_;
};

// ---- Gouges

TEST_F(ProofOfSquare, OfACleanPathFindsNothing) {
  const PathProof found = proof();
  EXPECT_LT(found.gouge.depth, 1e-9);
  ASSERT_THAT(found.missed, SizeIs(1));
  EXPECT_EQ(found.missed[0].atClearance.area, 0);
  EXPECT_THAT(found.rapids, IsEmpty());
  EXPECT_THAT(found.unjudged, IsEmpty());
  EXPECT_FALSE(found.isBeyondLimits());
  EXPECT_EQ(gradeOf(found), ProofGrade::Clean);
}

TEST_F(ProofOfSquare, ARowThatIsShiftedIsInByThat) {
  for (const float by : {0.0001F, 0.01F, 0.25F, 0.4999F}) {
    shift(1, -by);
    EXPECT_NEAR(proof().gouge.depth, by, 1e-6) << by;
    EXPECT_EQ(proof().gouge.row, 1);
    shift(1, by);
  }
}

TEST_F(ProofOfSquare, ACentreInThePartIsInByMoreThanTheRadius) {
  shift(1, -1.5F);
  EXPECT_NEAR(proof().gouge.depth, 1.5, 1e-5);
}

TEST_F(ProofOfSquare, ARowThatCrossesAWallIsInWhereItIsFarthest) {
  add(kLine, {2, 2}, {2, 5});
  const PathProof found = proof();
  EXPECT_NEAR(found.gouge.depth, 1.5, 2e-6);
  EXPECT_NEAR(found.gouge.x, 2, 1e-6);
  EXPECT_NEAR(found.gouge.y, 5, 1e-5);
}

TEST_F(ProofOfSquare, ARowFarFromAnyWallButInThePartIsAGouge) {
  add(kLine, {20, 2}, {22, 2});
  EXPECT_NEAR(proof().gouge.depth, 18.5, 1e-5);
}

// Along a wall in the part the depth is the same everywhere, which no search should have to learn
// place by place.
TEST_F(ProofOfSquare, ALongRowBesideAWallInThePartIsFoundAtOnce) {
  add(kLine, {-0.25F, -1000}, {-0.25F, 1000});
  EXPECT_NEAR(proof().gouge.depth, std::hypot(1000, 0.25) + 0.5, 1e-3);
}

TEST_F(ProofOfSquare, AnArcThatBulgesOverAWallIsAGouge) {
  add({.type = kCounterClockwiseArc,
       .x0 = 3.25F,
       .y0 = 1,
       .x1 = 3.25F,
       .y1 = 3,
       .xc = 3.25F,
       .yc = 2,
       .z = -0.25F,
       .code = pathCode(testing::kSquareGroup, 0)});
  EXPECT_NEAR(proof().gouge.depth, 0.75, 1e-6);
}

TEST_F(ProofOfSquare, TheToolOfTheChestCounts) {
  store_.toolradius[0] = 0.625F;
  EXPECT_NEAR(proof().gouge.depth, 0.125, 1e-6);
  store_.toolradius[0] = 0;  // not in the chest: the job's
  EXPECT_LT(proof().gouge.depth, 1e-9);
}

TEST_F(ProofOfSquare, EqualRowsOfOtherLevelsChangeNothing) {
  shift(1, -0.125F);
  const PathProof once = proof();
  const int rows = store_.NumPathSegments;
  for (int ps = 1; ps <= rows; ++ps) {
    PathRow row = pathRow(store_, ps);
    row.z = -0.5F;
    add(row);
  }
  const PathProof twice = proof();
  EXPECT_EQ(twice.gouge.depth, once.gouge.depth);
  EXPECT_EQ(twice.gouge.row, once.gouge.row);
  EXPECT_EQ(twice.missed.at(0).atClearance.area, once.missed.at(0).atClearance.area);
}

TEST_F(ProofOfSquare, RowsCutInTwoHaveTheSameProof) {
  shift(1, -0.125F);
  drop(5);
  const PathProof whole = proof();
  PathRow first = pathRow(store_, 1);
  PathRow second = first;
  first.x1 = second.x0 = 1.75F;
  setPathRow(store_, 1, first);
  add(second);
  const PathProof parts = proof();
  EXPECT_NEAR(parts.gouge.depth, whole.gouge.depth, 1e-9);
  EXPECT_NEAR(parts.missed.at(0).atClearance.area, whole.missed.at(0).atClearance.area, 1e-9);
}

TEST_F(ProofOfSquare, AShiftChangesTheDepthByNoMore) {
  add(kLine, {3.25F, 1}, {3.75F, 3.25F});
  const double before = proof().gouge.depth;
  for (const float by : {0.001F, 0.03F, 0.1F}) {
    shift(store_.NumPathSegments, by);
    EXPECT_LE(std::abs(proof().gouge.depth - before), by + 2e-6);
    shift(store_.NumPathSegments, -by);
  }
}

// ---- What is left

TEST_F(ProofOfSquare, ADroppedRowLeavesItsStrip) {
  // Every second line reaches half a tool to each side: without three of them a strip stays.
  drop(5);
  drop(6);
  drop(7);
  const double area = left();
  EXPECT_GT(area, 0.1);
  EXPECT_GT(proof().share(), proof().limits.share);
}

TEST_F(ProofOfSquare, TheAreaLeftOfAnUncutPocketIsItsReach) {
  store_.NumPathSegments = 0;
  add(kLine, {2, 2}, {2, 2.0001F});
  const MissedArea missed = proof().missed.at(0).atClearance;
  const double corners = (4 - std::numbers::pi) * 0.25;
  EXPECT_NEAR(missed.reach, 16 - corners, 1e-3);
  EXPECT_NEAR(missed.area, 16 - corners - std::numbers::pi * 0.25, 2e-3);
  ASSERT_THAT(missed.places, SizeIs(1));
  EXPECT_NEAR(missed.places[0].x, 2, 1e-3);
  EXPECT_NEAR(missed.places[0].width, 4, 1e-3);
  EXPECT_NEAR(missed.places[0].height, 4, 0.03);
}

// What is left all round has its middle where nothing is left.
TEST_F(ProofOfSquare, APlaceIsToldWithinItself) {
  store_.NumPathSegments = 0;
  for (float y = 1; y <= 3; y += 0.5F) add(kLine, {1, y}, {3, y});
  const MissedPlace place = proof().missed.at(0).atClearance.places.at(0);
  EXPECT_NEAR(place.width, 4, 1e-3);
  EXPECT_TRUE(place.x < 0.5 || place.x > 3.5 || place.y < 0.5 || place.y > 3.5);
}

TEST_F(ProofOfSquare, AddingARowNeverLeavesMore) {
  drop(5);
  drop(6);
  drop(7);
  double before = left();
  for (const float y : {1.0F, 1.75F, 2.25F, 2.5F}) {
    add(kLine, {0.5F, y}, {3.5F, y + 0.25F});
    const double now = left();
    EXPECT_LE(now, before);
    before = now;
  }
}

TEST_F(ProofOfSquare, RowsAboveTheFloorCutNothingThere) {
  const int rows = store_.NumPathSegments;
  add(kLine, {0.5F, 0.5F}, {3.5F, 0.5F}, -0.5F);
  EXPECT_GT(left(), 10);
  EXPECT_EQ(store_.NumPathSegments, rows + 1);
}

TEST_F(ProofOfSquare, RowsOfOtherGroupsAndToolsCutToo) {
  drop(5);
  drop(6);
  drop(7);
  store_.toolradius[3] = 0.25F;
  const double before = left();
  for (float y = 0.25F; y <= 3.75F; y += 0.25F) {
    add({.type = kLine,
         .x0 = 0.25F,
         .y0 = y,
         .x1 = 3.75F,
         .y1 = y,
         .z = -0.25F,
         .code = pathCode(5, 3)});
  }
  EXPECT_GT(before, 0.1);
  EXPECT_EQ(left(), 0);
}

TEST_F(ProofOfSquare, WhatTheClearanceLeavesIsToldApart) {
  jobs_.clear();
  PathJob job = testing::squareJob();
  job.toolRadius = 0.25;
  store_.toolradius[0] = 0.25F;
  jobs_.note(store_, job);
  const MissedFinding found = proof().missed.at(0);
  EXPECT_LT(found.atClearance.area, 1e-3);
  // A frame of a quarter all round, but for the corners that no tool reaches.
  EXPECT_NEAR(found.atWall.area,
              16 - 3.5 * 3.5 + (4 - std::numbers::pi) * 0.0625 - (4 - std::numbers::pi) * 0.0625,
              0.05);
  EXPECT_FALSE(proof().isBeyondLimits());
}

// ---- Rapids

TEST_F(ProofOfSquare, ATravelThatIsNotAboveTheStockIsAFinding) {
  store_.zstartpos = 0;
  EXPECT_THAT(proof().rapids, SizeIs(1));
  store_.zstartpos = 0.001F;
  EXPECT_THAT(proof().rapids, IsEmpty());
}

TEST_F(ProofOfSquare, ARapidRowThroughMaterialIsAFinding) {
  drop(store_.NumPathSegments);
  add(kRapid, {3.5F, 0.5F}, {3.5F, 3.5F}, -0.5F);
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_EQ(proof().rapids[0].row, store_.NumPathSegments);
  EXPECT_EQ(proof().rapids[0].group, testing::kSquareGroup);
}

TEST_F(ProofOfSquare, ARapidRowWhereEverythingIsTakenIsNone) {
  add(kRapid, {3.5F, 3.5F}, {0.5F, 0.5F});
  EXPECT_THAT(proof().rapids, IsEmpty());
}

TEST_F(ProofOfSquare, ARapidRowIntoAWallIsAFinding) {
  add(kRapid, {3.5F, 3.5F}, {3.75F, 0.5F});
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_NEAR(proof().rapids[0].x, 3.75, 1e-6);
}

TEST_F(ProofOfSquare, AFreshToolThatComesDownInMaterialIsAFinding) {
  store_.toolradius[1] = 0.25F;
  add(kLine, {2, 2}, {2.5F, 2}, -0.5F, /*tool=*/1);
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_EQ(proof().rapids[0].x, 2);
  store_.psz[store_.NumPathSegments] = -0.25F;
  EXPECT_THAT(proof().rapids, IsEmpty());
}

// ---- Without a job

class ProofByRows : public ::testing::Test {
 protected:
  ProofByRows() {
    store_.zstartpos = 1;
    store_.toolradius[0] = 0.25F;
  }
  void draw(const std::vector<SegmentRow>& rows) {
    for (const SegmentRow& row : rows) AddSeg(store_, row, nullptr);
  }
  void square(float low, float high) {
    draw(testing::polygonRows({{low, low}, {high, low}, {high, high}, {low, high}}));
  }
  void line(Point from, Point to, float z = -0.5F) {
    addPathSegment(store_, {.type = kLine,
                            .x0 = from.x,
                            .y0 = from.y,
                            .x1 = to.x,
                            .y1 = to.y,
                            .z = z,
                            .code = pathCode(1, 0)});
  }
  void round(float low, float high) {
    line({low, low}, {high, low});
    line({high, low}, {high, high});
    line({high, high}, {low, high});
    line({low, high}, {low, low});
  }
  PathProof proof() const { return proofOf(store_); }
  JobKind kind() const { return proof().jobs.at(0).kind; }

  DrawingStore store_;
};

TEST_F(ProofByRows, InsideOfAnOutlineTheOutsideIsPart) {
  square(0, 4);
  round(0.25F, 3.75F);
  EXPECT_EQ(kind(), JobKind::Contour);
  EXPECT_FALSE(proof().jobs[0].byRecord);
  EXPECT_LT(proof().gouge.depth, 1e-9);
  store_.psy0[1] = store_.psy1[1] = 0.125F;
  EXPECT_NEAR(proof().gouge.depth, 0.125, 1e-6);
}

TEST_F(ProofByRows, RoundAnOutlineTheInsideIsPart) {
  square(0, 4);
  round(-0.25F, 4.25F);
  EXPECT_LT(proof().gouge.depth, 1e-9);
  store_.psy0[1] = store_.psy1[1] = -0.125F;
  EXPECT_NEAR(proof().gouge.depth, 0.125, 1e-6);
}

TEST_F(ProofByRows, IslandsStayAndOutlinesRoundThePocketAreNoMatter) {
  square(-10, 10);  // the plate
  square(0, 4);
  square(1.5F, 2.5F);
  round(0.25F, 3.75F);
  round(1.25F, 2.75F);
  EXPECT_LT(proof().gouge.depth, 1e-9);
  line({-5, 2}, {-4, 2});  // in the plate, but not in the pocket
  EXPECT_NEAR(proof().gouge.depth, 5.25, 1e-5);
}

TEST_F(ProofByRows, OutlinesWithRowsOnBothSidesAreNoWalls) {
  square(0, 4);
  square(1, 3);  // a hole in the floor, passed over on purpose
  round(0.25F, 3.75F);
  for (float y = 0.5F; y < 4; y += 0.5F) line({0.25F, y}, {3.75F, y});
  EXPECT_LT(proof().gouge.depth, 1e-9);
}

TEST_F(ProofByRows, OnTheOutlineThereAreNoWalls) {
  square(0, 4);
  round(0, 4);
  EXPECT_EQ(kind(), JobKind::OnTheLine);
  EXPECT_LT(proof().gouge.depth, 1e-9);
  EXPECT_THAT(proof().unjudged, IsEmpty());
}

// Letters: some closed, most of them strokes.
TEST_F(ProofByRows, AnOutlineThatIsEngravedIsNoWall) {
  square(-10, 10);
  square(0, 1);
  round(0, 1);
  line({5, 5}, {9, 5});
  line({5, 6}, {9, 6});
  EXPECT_EQ(kind(), JobKind::Contour);
  EXPECT_LT(proof().gouge.depth, 1e-9);
}

TEST_F(ProofByRows, WithoutOutlinesNothingIsSaid) {
  draw({{.type = kLine, .x1 = 4}});
  round(0.25F, 3.75F);
  EXPECT_EQ(kind(), JobKind::None);
  EXPECT_THAT(proof().unjudged, ElementsAre(1, 2, 3, 4));
}

TEST_F(ProofByRows, RowsAtOrAboveTheTopAndCyclesAreNotJudged) {
  square(0, 4);
  round(0.25F, 3.75F);
  line({-1, -1}, {5, 5}, 0);
  line({-1, -1}, {5, 5}, 0.5F);
  addPathSegment(store_, {.type = 81, .x1 = 9, .z = -0.5F, .code = pathCode(1, 0)});
  EXPECT_THAT(proof().unjudged, ElementsAre(5, 6, 7));
  EXPECT_LT(proof().gouge.depth, 1e-9);
}

TEST_F(ProofByRows, ADamagedCodeIsNoReasonToFail) {
  square(0, 4);
  round(0.25F, 3.75F);
  store_.pscode[2] = -150;
  EXPECT_THAT(proof().jobs, SizeIs(2));
}

// ---- Open chains and lathes, by record

TEST(ProofOfChains, GoesByTheDistanceAlone) {
  DrawingStore store;
  store.zstartpos = 1;
  store.toolradius[0] = 0.25F;
  addPathSegment(store, {.type = kLine, .y0 = 0.25F, .x1 = 4, .y1 = 0.25F, .z = -1, .code = 100});
  PathJobs jobs;
  jobs.note(store, {.group = 1,
                    .kind = JobKind::Contour,
                    .toolRadius = 0.25,
                    .distance = 0.25,
                    .loops = {{.walls = {{.x1 = 4}}, .isClosed = false}}});
  EXPECT_LT(proofOf(store, jobs).gouge.depth, 1e-9);
  store.psy0[1] = store.psy1[1] = -0.125F;  // on the other side
  EXPECT_NEAR(proofOf(store, jobs).gouge.depth, 0.125, 1e-9);
  store.psy1[1] = 1;
  EXPECT_NEAR(proofOf(store, jobs).gouge.depth, 0.25, 1e-9);
}

class ProofOfLathe : public ::testing::Test {
 protected:
  // A bar of radius 2 with a step: above y = 1 from x = 0 to 4 is to be turned off.
  ProofOfLathe() {
    store_.partdimx = 4;
    store_.partdimy = 2;
    store_.xorigin = 1;
    const auto line = [](double x0, double y0, double x1, double y1) {
      return JobWall{.x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1};
    };
    cut({4, 1.5F}, {0, 1.5F});
    retract({0, 1.5F}, {0, 2});
    cut({4, 1}, {0, 1});
    retract({0, 1}, {0, 2});
    jobs_.note(store_, {.group = 1,
                        .kind = JobKind::Lathe,
                        .loops = {{.walls = {line(0, 1, 4, 1), line(4, 1, 4, 2), line(4, 2, 0, 2),
                                             line(0, 2, 0, 1)}}}});
  }
  void add(Point from, Point to, float z) {
    addPathSegment(store_, {.type = kLine,
                            .x0 = from.x,
                            .y0 = from.y,
                            .x1 = to.x,
                            .y1 = to.y,
                            .z = z,
                            .code = pathCode(1, 0)});
  }
  void cut(Point from, Point to) { add(from, to, 0); }
  void retract(Point from, Point to) { add(from, to, kLatheRapidZ); }
  PathProof proof() const { return proofOf(store_, jobs_); }

  DrawingStore store_;
  PathJobs jobs_;
};

TEST_F(ProofOfLathe, CutsOnTheProfileAndRetractsAreClean) {
  const PathProof found = proof();
  EXPECT_LT(found.gouge.depth, 1e-6);
  EXPECT_THAT(found.rapids, IsEmpty());
  EXPECT_THAT(found.unjudged, IsEmpty());
}

TEST_F(ProofOfLathe, BelowTheProfileIsAGouge) {
  cut({3, 0.875F}, {2, 0.875F});
  EXPECT_NEAR(proof().gouge.depth, 0.125, 1e-6);
}

TEST_F(ProofOfLathe, ARapidThroughTheStockIsAFinding) {
  DrawingStore all = store_;
  store_.NumPathSegments = 2;  // the upper half is cut
  retract({0, 2}, {3, 1.25F});
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_EQ(proof().rapids[0].row, 3);
  store_ = all;
  retract({0, 2}, {3, 1.25F});
  EXPECT_THAT(proof().rapids, IsEmpty());
}

TEST_F(ProofOfLathe, ARapidOfAnyJobThroughTheStockIsAFinding) {
  store_.NumPathSegments = 2;
  jobs_.note(store_, {.group = 2, .kind = JobKind::OnTheLine});
  addPathSegment(store_, {.type = kLine, .x0 = 2, .y0 = 0.5F, .x1 = 1, .y1 = 0.5F, .code = 200});
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_EQ(proof().rapids[0].group, 2);
  EXPECT_THAT(proof().unjudged, IsEmpty());
}

// A tool that works inside takes what lies below its way, from a hole to the height of its lowest
// cut.
TEST_F(ProofOfLathe, ToolsInsideLeaveByTheHole) {
  store_.toolinside[0] = 1;
  store_.NumPathSegments = 0;
  cut({4, 0.5F}, {1, 0.5F});
  retract({1, 0.5F}, {4, 0.5F});
  cut({4, 0.75F}, {2, 0.75F});
  retract({2, 0.75F}, {2, 0.25F});
  retract({2, 0.25F}, {4, 0.25F});
  EXPECT_THAT(proof().rapids, IsEmpty());
  retract({4, 0.25F}, {1.5F, 0.5F});
  EXPECT_THAT(proof().rapids, IsEmpty()) << "below the first cut";
  retract({1.5F, 0.5F}, {1.5F, 0.75F});
  ASSERT_THAT(proof().rapids, SizeIs(1));
  EXPECT_EQ(proof().rapids[0].row, 7);
}

TEST_F(ProofOfLathe, AToolInsideThatIsAboveTheProfileIsIn) {
  store_.toolinside[0] = 1;
  store_.NumPathSegments = 0;
  cut({3, 2.125F}, {2, 2.125F});
  EXPECT_NEAR(proof().gouge.depth, 0.125, 1e-6);
}

// ---- Words

TEST_F(ProofOfSquare, IsToldLineByLine) {
  EXPECT_EQ(proofText(proof()),
            "In by 0.0000   Left 0.00 %   Rapids 0\n"
            "Group 1: clearing, by record; left 0.00 % at its clearance, 0.00 % at the wall; "
            "up to 100 % of the cutter's width in material at X = 0.5000, Y = 0.5000 (row 1)\n");
  EXPECT_EQ(worstFindings(proof()), "");
}

TEST_F(ProofOfSquare, TheWorstOfEachKindIsNamed) {
  shift(1, -0.125F);
  drop(5);
  drop(6);
  drop(7);
  store_.zstartpos = 0;
  const std::string text = worstFindings(proof());
  EXPECT_THAT(text, HasSubstr("Row 1 of group 1 cuts into the part by 0.1250 at X = "));
  EXPECT_THAT(text, HasSubstr(", Y = 0.3750.\nGroup 1 leaves "));
  EXPECT_THAT(text, HasSubstr(" % of what its tool can reach, most at X = "));
  EXPECT_THAT(text, HasSubstr("\nThe rapid of row 1 goes through material at X = 0.5000, Y = "
                              "0.3750.\n"));
}

TEST_F(ProofOfSquare, AToolThatHasChangedSinceIsNamed) {
  store_.toolradius[0] = 0.75F;
  EXPECT_THAT(proofText(proof()), HasSubstr("Group 1: clearing, by record, placed with radius "
                                            "0.5000, cut with 0.7500; left "));
}

TEST_F(ProofOfSquare, OfRowsThatAreNotJudgedTellsTheNumber) {
  add(kLine, {0, 0}, {1, 1}, 0.5F);
  EXPECT_THAT(proofText(proof()), ::testing::EndsWith("Rows not judged: 1\n"));
}

TEST_F(ProofOfSquare, CanBeEndedAtAnyMoment) {
  shift(1, -0.125F);
  store_.zstartpos = 0;
  int breaths = 0;
  const auto count = [&] { ++breaths; };
  EXPECT_EQ(proofText(provePaths(store_, jobs_, testing::proofMotions(store_), count)),
            proofText(proof()));
  EXPECT_GT(breaths, 200);
  for (int last = 1; last < breaths; last += 20) {
    int left = last;
    const auto end = [&left] {
      if (--left == 0) throw WorkCancelled();
    };
    EXPECT_THROW(provePaths(store_, jobs_, testing::proofMotions(store_), end), WorkCancelled);
  }
}

TEST(CancelledProof, IsNeverClean) {
  PathProof proof;
  proof.isCancelled = true;
  EXPECT_TRUE(proof.isBeyondLimits());
  EXPECT_EQ(gradeOf(proof), ProofGrade::Beyond);
  EXPECT_EQ(proofLine(proof), "Not judged");
  EXPECT_EQ(worstFindings(proof), "The proof was cancelled: the path is not judged.\n");
  EXPECT_EQ(proofText(proof), "Not judged\nThe proof was cancelled: the path is not judged.\n");
  EXPECT_THAT(worstPlaces(proof), IsEmpty());
}

TEST(ProofLimitsOfUnits, FollowTheUnits) {
  DrawingStore store;
  store.units = "I";
  EXPECT_EQ(proofLimits(store).depth, 0.0001);
  EXPECT_EQ(proofLimits(store).share, 0.001);
  store.units = "M";
  EXPECT_EQ(proofLimits(store).depth, 0.0025);
}

}  // namespace
}  // namespace tess
