// The proof's judge of plunges: rows, places and depths, what is passed over, and that it agrees
// with a raster of heights that shares nothing with it.
#include "toolpath/plunge_findings.h"

#include <set>

#include "gtest/gtest.h"

#include "tests/support/judged_square.h"
#include "tests/support/plunge_checker.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/entry_moves.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using namespace tess::testing;

struct PlungeProof : ::testing::Test {
  PlungeProof() {
    store.zstartpos = 0.1F;
    jobs.add(squareJob());
  }
  PathProof proof() { return proofOf(store, jobs); }
  void askForEntries() {
    store.cfg_true_paths = true;
    store.cfg_entry_kind = choiceNumber(EntryKind::Ramp);
  }
  void line(float x0, float y0, float x1, float y1, float z) {
    addSquareRow(store, x0, y0, x1, y1, z);
  }

  DrawingStore store;
  PathJobs jobs;
};

TEST_F(PlungeProof, TellsRowPlaceAndDepth) {
  clearSquare(store);
  const PathProof found = proof();
  ASSERT_EQ(found.plunges.size(), 1U);
  EXPECT_EQ(found.plunges[0].row, 1);
  EXPECT_EQ(found.plunges[0].group, kSquareGroup);
  EXPECT_EQ(found.plunges[0].x, 0.5);
  EXPECT_EQ(found.plunges[0].y, 0.5);
  EXPECT_NEAR(found.plunges[0].depth, 0.25, 1e-6);
}

// Without the key the texts and the limit are as they were.
TEST_F(PlungeProof, CountsOnlyWhereTheSetupAsksForEntries) {
  clearSquare(store);
  EXPECT_FALSE(proof().isBeyondLimits());
  EXPECT_EQ(proofLine(proof()), "In by 0.0000   Left 0.00 %   Rapids 0");
  EXPECT_EQ(worstFindings(proof()), "");
  EXPECT_TRUE(worstPlaces(proof()).empty());
  const std::string before = proofText(proof());
  EXPECT_EQ(before.find("straight down"), std::string::npos);
  askForEntries();
  const char* const text =
      "Row 1 of group 1 goes straight down into material by 0.2500 at X = 0.5000, Y = 0.5000.";
  EXPECT_TRUE(proof().isBeyondLimits());
  EXPECT_EQ(gradeOf(proof()), ProofGrade::Beyond);
  EXPECT_EQ(proofLine(proof()), "In by 0.0000   Left 0.00 %   Rapids 0   Plunges 1");
  EXPECT_EQ(worstFindings(proof()), std::string(text) + "\n");
  ASSERT_EQ(worstPlaces(proof()).size(), 1U);
  EXPECT_EQ(worstPlaces(proof())[0].text, text);
  EXPECT_NE(proofText(proof()).find(text), std::string::npos);
}

TEST_F(PlungeProof, TheDeepestIsNamedFirst) {
  askForEntries();
  clearSquare(store, -0.1F);
  clearSquare(store, -0.4F);
  EXPECT_EQ(worstFindings(proof()),
            "Row 18 of group 1 goes straight down into material by 0.3000 at X = 0.5000, Y = "
            "0.5000.\n");
}

TEST_F(PlungeProof, AStairIsNone) {
  for (int step = 1; step <= 25; ++step) {
    const float z = -0.01F * static_cast<float>(step);
    step % 2 == 1 ? line(0.5F, 0.5F, 3.5F, 0.5F, z) : line(3.5F, 0.5F, 0.5F, 0.5F, z);
  }
  EXPECT_TRUE(proof().plunges.empty());
  line(3.5F, 0.5F, 3.5F, 3.5F, -0.28F);
  ASSERT_EQ(proof().plunges.size(), 1U);
  EXPECT_EQ(proof().plunges[0].row, 26);
  EXPECT_NEAR(proof().plunges[0].depth, 0.03, 1e-6);
}

// Ground that is partly cleared is not cleared; a hole is, as wide and as deep as it is drilled.
TEST_F(PlungeProof, AsksForAllThatLiesBelowTheTool) {
  clearSquare(store);
  line(3.5F, 3.5F, 3.5F, 0.5F, -0.25F);
  EXPECT_EQ(proof().plunges.size(), 1U);
  store.toolradius[1] = 0.5F;
  addPathSegment(store, {.type = 81, .x1 = 6, .y1 = 6, .z = 0.25F, .code = pathCode(9, 1)});
  line(0.5F, 0.5F, 3.5F, 0.5F, -0.25F);
  line(6, 6, 7, 6, -0.25F);
  EXPECT_EQ(proof().plunges.size(), 1U);
  store.toolradius[1] = 0.4F;
  EXPECT_EQ(proof().plunges.size(), 2U);
}

// After its change the tool comes down at rapid speed.
TEST_F(PlungeProof, ARapidIntoAHoleIsNoneWhereTheSetupAsksForEntries) {
  store.toolradius[0] = 0.5F;
  store.toolradius[1] = 0.5F;
  addPathSegment(store, {.type = 81, .x1 = 2, .y1 = 2, .z = 0.25F, .code = pathCode(9, 1)});
  line(2, 2, 3, 2, -0.25F);
  EXPECT_EQ(proof().rapids.size(), 1U);
  askForEntries();
  EXPECT_TRUE(proof().rapids.empty());
  EXPECT_TRUE(proof().plunges.empty());
  store.toolradius[1] = 0.4F;
  EXPECT_EQ(proof().rapids.size(), 1U);
}

TEST_F(PlungeProof, PassesOverWhatIsEngravedAndWhatIsAboveTheStock) {
  jobs.clear();
  PathJob job = squareJob();
  job.kind = JobKind::OnTheLine;
  job.loops.clear();
  jobs.add(job);
  clearSquare(store);
  EXPECT_TRUE(proof().plunges.empty());
  jobs.clear();
  jobs.add(squareJob());
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) store.psz[ps] = 0;
  EXPECT_TRUE(proof().plunges.empty());
}

TEST_F(PlungeProof, TheStepIsThatOfTheUnits) {
  store.units = "M";
  clearSquare(store, -0.25F);
  EXPECT_TRUE(proof().plunges.empty());
  clearSquare(store, -0.51F);
  EXPECT_EQ(proof().plunges.size(), 1U);
}

// The same rows, by both: where plunges are meant, by entries that plunge, and where they are not.
TEST(PlungeAgreement, WithARasterOfHeightsOnGeneratedPockets) {
  int plunges = 0;
  int jobsJudged = 0;
  for (int number = 0; number < 60; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    JobSettings settings;
    settings.truePaths = true;
    settings.style = PocketingStyle{1 + number % 3};
    settings.connects = number % 2 == 0;
    PocketJob job(pocket, settings);
    job.store.cfg_entry_kind = number % 2;
    job.store.cfg_entry_angle = 5;
    job.store.cfg_z_cut_per_pass = 0.2F;
    job.rough();
    job.finish();
    if (job.store.NumPathSegments == 0) continue;
    ++jobsJudged;
    const PathProof proof = proofOf(job.store, job.context.session.pathJobs);
    std::set<int> byProof;
    for (const PlungeFinding& plunge : proof.plunges) byProof.insert(plunge.row);
    std::set<int> byRaster;
    for (const CheckedPlunge& plunge : plungesOf(job.store, entryStep(job.store) + 1e-5)) {
      byRaster.insert(plunge.row);
    }
    EXPECT_EQ(byProof, byRaster);
    plunges += static_cast<int>(byProof.size());
  }
  EXPECT_GT(jobsJudged, 50);
  EXPECT_GT(plunges, 100);
}

}  // namespace
}  // namespace tess
