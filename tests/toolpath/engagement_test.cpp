// How much of the cutter's width is in material: shares that are plain by construction, what does
// not count, and a check by places that shares nothing with it.
#include "toolpath/engagement.h"

#include <algorithm>
#include <cmath>

#include "gtest/gtest.h"

#include "tests/support/judged_square.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/proof_groups.h"

namespace tess {
namespace {

using namespace tess::testing;

constexpr double kGrain = 0.0251;  // a fortieth of the width

struct EngagementOfRows : ::testing::Test {
  EngagementOfRows() {
    store.toolradius[0] = 0.25F;
    store.toolradius[1] = 0.25F;
  }
  void line(int group, float x0, float y0, float x1, float y1, float z = -0.25F) {
    addPathSegment(store, {.type = kLine,
                           .x0 = x0,
                           .y0 = y0,
                           .x1 = x1,
                           .y1 = y1,
                           .z = z,
                           .code = pathCode(group, 0)});
  }
  std::vector<Engagement> found() { return groupEngagements(store, proofGroups(store, jobs)); }

  DrawingStore store;
  PathJobs jobs;
};

TEST_F(EngagementOfRows, ASlotIsCutWithTheWholeWidth) {
  line(1, 0, 0, 4, 0);
  ASSERT_EQ(found().size(), 1U);
  EXPECT_EQ(found()[0].share, 1);
  EXPECT_EQ(found()[0].row, 1);
  EXPECT_EQ(found()[0].x, 0);
}

TEST_F(EngagementOfRows, BesideAClearedRowItIsTheStep) {
  for (const float step : {0.05F, 0.125F, 0.25F, 0.4F}) {
    store.NumPathSegments = 0;
    line(1, -1, 0, 5, 0);
    line(2, 0, step, 4, step);
    ASSERT_EQ(found().size(), 2U);
    EXPECT_NEAR(found()[1].share, step / 0.5, kGrain) << step;
    EXPECT_EQ(found()[1].row, 2);
  }
}

TEST_F(EngagementOfRows, InAnInnerCornerMoreIsEngagedThanAlongTheWay) {
  line(1, -1, 0, 4.25F, 0);
  line(1, 4.25F, 0, 4.25F, 5);
  line(2, 0, 0.125F, 4.125F, 0.125F);
  line(2, 4.125F, 0.125F, 4.125F, 4);
  EXPECT_NEAR(found()[1].share, 0.25, 2 * kGrain);
  store.NumPathSegments = 0;
  line(1, -1, 0, 4, 0);
  line(2, 0, 0.125F, 4.5F, 0.125F);
  EXPECT_GT(found()[1].share, 0.9) << "it leaves the cleared strip";
}

TEST_F(EngagementOfRows, WhatIsClearedOrThinOrInAHoleDoesNotCount) {
  line(1, 0, 0, 4, 0);
  line(2, 3, 0, 1, 0);
  EXPECT_EQ(found()[1].share, 0);
  EXPECT_EQ(found()[1].row, 0);
  store.NumPathSegments = 0;
  line(1, 0, 0, 4, 0, -0.245F);
  line(2, 3, 0, 1, 0, -0.25F);
  line(3, 9, 9, 10, 9, -0.005F);
  EXPECT_EQ(found()[1].share, 0);
  EXPECT_EQ(found()[2].share, 0);
  store.NumPathSegments = 0;
  store.toolradius[1] = 0.5F;
  addPathSegment(store, {.type = 81, .x1 = 1, .y1 = 1, .z = 0.3F, .code = pathCode(1, 1)});
  line(2, 1, 1, 1.2F, 1);
  EXPECT_EQ(found()[1].share, 0);
}

TEST_F(EngagementOfRows, TheNextLevelIsMaterialAgain) {
  line(1, 0, 0, 4, 0);
  line(2, 0, 0, 4, 0, -0.5F);
  EXPECT_EQ(found()[1].share, 1);
}

// A ramp is in material all round; what counts is the path that it leads to.
TEST_F(EngagementOfRows, WaysDownDoNotCount) {
  line(1, -1, 0.25F, 5, 0.25F);
  line(2, 0, 0, 2, 0, -0.1F);
  line(2, 2, 0, 0, 0, -0.245F);
  line(2, 0, 0, 2, 0, -0.25F);
  EXPECT_EQ(found()[1].share, 0) << "its floor is cut but for a step";
  line(2, 2, 0, 4, 0, -0.25F);
  EXPECT_NEAR(found()[1].share, 0.5, kGrain);
  EXPECT_EQ(found()[1].row, 5);
}

TEST_F(EngagementOfRows, OfALatheAndOfAToolWithoutARadiusIsNone) {
  store.toolradius[0] = 0;
  line(1, 0, 0, 4, 0);
  EXPECT_EQ(found()[0].row, 0);
}

TEST_F(EngagementOfRows, StandsInTheProof) {
  jobs.add(squareJob());
  clearSquare(store);
  const PathProof proof = proofOf(store, jobs);
  ASSERT_EQ(proof.jobs.size(), 1U);
  EXPECT_EQ(proof.jobs[0].engagement.share, 1);
  EXPECT_EQ(proof.jobs[0].engagement.row, 1);
}

// By other places of the rows and of the rim, and all rows before instead of the near ones.
double shareByPlaces(const DrawingStore& store, int first) {
  constexpr int kAlong = 41;
  constexpr int kRim = 100;
  const double radius = store.toolradius[0];
  const std::vector<testing::Curve> path = toolPath(store);
  double largest = 0;
  for (std::size_t row = static_cast<std::size_t>(first) - 1; row < path.size(); ++row) {
    for (int k = 0; k < kAlong; ++k) {
      const double end = std::max(0.0, 1 - 0.004 * radius / lengthOf(path[row]));
      const double share = end * k / (kAlong - 1);
      const Vec at = pointOn(path[row], share);
      const Vec ahead = pointOn(path[row], std::min(1.0, share + 1e-6)) -
                        pointOn(path[row], std::max(0.0, share - 1e-6));
      const Vec along = (1 / lengthOf(ahead)) * ahead;
      int engaged = 0;
      for (int rim = 0; rim < kRim; ++rim) {
        const double aside = (rim + 0.5) / kRim * 2 - 1;
        const Vec place =
            at + (1.0005 * radius) * (std::sqrt(1 - aside * aside) * along + aside * leftOf(along));
        bool taken = false;
        for (std::size_t other = 0; other < row && !taken; ++other) {
          taken = distanceBetween(path[other], place) <= radius + 1e-5;
        }
        engaged += taken ? 0 : 1;
      }
      largest = std::max(largest, static_cast<double>(engaged) / kRim);
    }
  }
  return largest;
}

TEST(EngagementAgreement, WithACheckByPlacesOnGeneratedPockets) {
  int judged = 0;
  for (int number = 0; number < 24; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    JobSettings settings;
    settings.truePaths = true;
    settings.connects = true;
    settings.style = PocketingStyle::ParallelSpiral;
    settings.clearance = 0.05F;
    settings.step = 0.8;
    PocketJob job(pocket, settings);
    job.rough();
    const int first = job.store.NumPathSegments + 1;
    job.finish();
    if (job.store.NumPathSegments < first || first == 1) continue;
    const auto groups = proofGroups(job.store, job.context.session.pathJobs);
    const auto found = groupEngagements(job.store, groups);
    double most = 0;
    for (std::size_t k = 1; k < found.size(); ++k) most = std::max(most, found[k].share);
    EXPECT_NEAR(most, shareByPlaces(job.store, first), 0.1);
    ++judged;
  }
  EXPECT_GT(judged, 15);
}

}  // namespace
}  // namespace tess
