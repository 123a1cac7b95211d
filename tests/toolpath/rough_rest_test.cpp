// Rough What Is Left: a smaller tool takes what a larger one has left, and nothing else, over
// generated pockets; messages tell when there is nothing to do.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/path_groups.h"
#include "toolpath/proof_text.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::IsEmpty;
using ::testing::SizeIs;

JobSettings settingsOf(PocketingStyle style, double step = 1) {
  JobSettings settings;
  settings.style = style;
  settings.truePaths = true;
  settings.step = step;
  return settings;
}

// A job with a second tool.
struct RestJob : PocketJob {
  RestJob(const TestPocket& pocket, const JobSettings& settings, float second)
      : PocketJob(pocket, settings) {
    store.toolradius[1] = second;
    store.toolname[1] = "second cutter";
    store.zstartpos = 1;
    messages().clear();
  }
  // A fresh tool comes down at rapid speed: a rapid above the part first.
  std::vector<testing::Curve> rest() {
    store.selectedtool = 1;
    if (store.NumPathSegments > 0) {
      addPathSegment(store, {.type = 0, .z = 1, .code = pathCode(nextPathGroup(store), 1)});
    }
    const int before = store.NumPathSegments;
    kRoughWhatIsLeftCommand.run(cam);
    return toolPath(store, before + 1, store.NumPathSegments);
  }
  PathProof proof() const { return proofOf(store, cam.context.session.pathJobs); }
};

TestPocket rectangle(float width, float height) {
  return pocketOfRows(polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}}));
}

double lengthOfAll(const std::vector<testing::Curve>& path) {
  double length = 0;
  for (const testing::Curve& curve : path) length += lengthOf(curve);
  return length;
}

class RoughRest : public ::testing::TestWithParam<PocketingStyle> {};

TEST_P(RoughRest, LeavesNothingOfGeneratedPocketsAndSparesTheirWalls) {
  int jobs = 0;
  for (int number = 0; number < 30; ++number) {
    const TestPocket pocket = pocketOf(3 * number + static_cast<int>(GetParam()) % 3);
    SCOPED_TRACE(pocket.name);
    constexpr double kSteps[] = {0.5, 1, 1.6, 2};
    JobSettings settings = settingsOf(GetParam(), kSteps[number % 4]);
    settings.clearance = number % 3 == 0 ? 0.02F : 0;
    settings.connects = number % 2 == 0;
    const float second = pocket.toolRadius * (number % 2 == 0 ? 0.5F : 0.3F);
    RestJob job(pocket, settings, second);
    const std::vector<testing::Curve> first = job.rough();
    job.store.cfg_min_rough_clearance = 0;
    const std::vector<testing::Curve> rest = job.rest();
    if (rest.empty()) continue;
    ++jobs;
    EXPECT_LE(deepestGouge(pocket.part, rest, second).depth, 1e-4);
    const Coverage coverage = ReachableArea(pocket.part, second, /*cellsPerRadius=*/4)
                                  .coverageOf({{first, pocket.toolRadius}, {rest, second}});
    const bool isRim = coverage.rest <= 5e-5;  // thinner than the checker's own slack
    EXPECT_TRUE(isRim || coverage.share >= 0.999) << coverage.share;
    const PathProof proof = job.proof();
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
  }
  EXPECT_GT(jobs, 20);
}

INSTANTIATE_TEST_SUITE_P(Styles, RoughRest,
                         ::testing::Values(PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                           PocketingStyle::ParallelSpiral),
                         [](const auto& of) {
                           return "Style" + std::to_string(static_cast<int>(of.param));
                         });

constexpr PocketingStyle kStyles[] = {PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                      PocketingStyle::ParallelSpiral};

TEST(RoughWhatIsLeft, StaysInTheCorners) {
  for (const PocketingStyle style : kStyles) {
    RestJob job(rectangle(6, 4), settingsOf(style), 0.1F);
    job.rough();
    const std::vector<testing::Curve> rest = job.rest();
    EXPECT_THAT(rest, ::testing::Not(IsEmpty()));
    for (const testing::Curve& curve : rest) {
      for (const Vec at : {curve.start, curve.end}) {
        EXPECT_LT(std::min(at.x, 6 - at.x), 0.5);
        EXPECT_LT(std::min(at.y, 4 - at.y), 0.5);
      }
    }
    EXPECT_LT(lengthOfAll(rest), 6) << "and not all of the pocket";
  }
}

// Whatever has cut and however: half of a pocket is cleared where only half was.
TEST(RoughWhatIsLeft, TakesWhatWasDeleted) {
  RestJob job(rectangle(6, 4), settingsOf(PocketingStyle::ParallelSpiral), 0.25F);
  job.rough();
  const int rows = job.store.NumPathSegments;
  Change change(job.cam.changes);
  change.paths.erase(1, rows / 2);
  change.keep({});
  EXPECT_GT(job.proof().missed.at(0).atClearance.share(), 0.01);
  job.rest();
  EXPECT_LT(job.proof().missed.at(0).atClearance.share(), 1e-3);
}

TEST(RoughWhatIsLeft, HasTheLevelsOfRoughing) {
  RestJob job(rectangle(6, 4), settingsOf(PocketingStyle::Horizontal), 0.1F);
  job.store.cfg_z_cut_per_pass = 0.2F;
  job.rough();
  const int rapid = job.store.NumPathSegments + 1;
  job.rest();
  std::vector<float> levels;
  for (int ps = rapid + 1; ps <= job.store.NumPathSegments; ++ps) {
    if (levels.empty() || levels.back() != job.store.psz[ps]) levels.push_back(job.store.psz[ps]);
  }
  EXPECT_THAT(levels, ::testing::ElementsAre(-0.2F, -0.4F, -0.5F));
}

// Of a finish path only the corners are cut again.
TEST(FinishWhatIsLeft, TakesTheCornersOfALargerTool) {
  const TestPocket pocket = rectangle(6, 4);
  RestJob job(pocket, settingsOf(PocketingStyle::Horizontal), 0.1F);
  std::vector<testing::Curve> first = job.rough();
  const std::vector<testing::Curve> whole = job.finish();
  first.insert(first.end(), whole.begin(), whole.end());
  job.store.selectedtool = 1;
  job.store.cfg_finish_what_is_left = true;
  const std::vector<testing::Curve> rest = job.finish();
  EXPECT_LT(lengthOfAll(rest), 0.2 * lengthOfAll(whole));
  EXPECT_LE(deepestGouge(pocket.part, rest, 0.1).depth, 1e-4);
  const double walls = 0.25 * std::sqrt(2) - 0.1;  // what lies nearer to a corner was left
  for (const testing::Curve& curve : rest) {
    EXPECT_LT(std::min(curve.start.x, 6 - curve.start.x), 0.25 + walls);
    EXPECT_LT(std::min(curve.start.y, 4 - curve.start.y), 0.25 + walls);
  }
  EXPECT_FALSE(job.proof().isBeyondLimits());
}

TEST(FinishWhatIsLeft, TellsThatNothingIsLeft) {
  RestJob job(rectangle(6, 4), settingsOf(PocketingStyle::Horizontal), 0.25F);
  job.rough();
  job.finish();
  job.store.selectedtool = 1;
  job.store.cfg_finish_what_is_left = true;
  EXPECT_THAT(job.finish(), IsEmpty());
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text,
            "Nothing is left that the selected tool can reach.\n\nNothing was placed.");
  EXPECT_EQ(job.messages()[0].title, "Place Finish Path");
}

TEST(RoughWhatIsLeft, WhereNothingWasCutTakesAll) {
  const TestPocket pocket = rectangle(3, 2);
  RestJob job(pocket, settingsOf(PocketingStyle::Horizontal), 0.25F);
  const std::vector<testing::Curve> rest = job.rest();
  EXPECT_GE(ReachableArea(pocket.part, 0.25, 6).coverageOf(rest).share, 0.999);
}

void expectMessage(RestJob& job, const std::string& text) {
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text, text);
  EXPECT_EQ(job.messages()[0].title, "Rough What Is Left");
}

TEST(RoughWhatIsLeft, TellsThatNothingIsLeft) {
  for (const PocketingStyle style : kStyles) {
    RestJob job(rectangle(6, 4), settingsOf(style), 0.25F);
    job.rough();
    EXPECT_THAT(job.rest(), IsEmpty());
    expectMessage(job, "Nothing is left that the selected tool can reach.\n\nNothing was placed.");
  }
}

TEST(RoughWhatIsLeft, TellsThatALargerToolReachesNothing) {
  RestJob job(rectangle(6, 4), settingsOf(PocketingStyle::Horizontal), 0.5F);
  job.rough();
  EXPECT_THAT(job.rest(), IsEmpty());
  expectMessage(job,
                "Nothing is left that the selected tool can reach.  It is larger than those that "
                "have cut there.\n\nNothing was placed.");
}

TEST(RoughWhatIsLeft, ALargerToolTakesWhatItReaches) {
  const TestPocket pocket = rectangle(6, 4);
  RestJob job(pocket, settingsOf(PocketingStyle::ParallelSpiral), 0.4F);
  job.rough();
  const int rows = job.store.NumPathSegments;
  Change change(job.cam.changes);
  change.paths.erase(1, rows / 2);
  change.keep({});
  const std::vector<testing::Curve> rest = job.rest();
  EXPECT_THAT(rest, ::testing::Not(IsEmpty()));
  EXPECT_LE(deepestGouge(pocket.part, rest, 0.4).depth, 1e-4);
  expectMessage(job,
                "The selected tool is larger than those that have cut there: it clears only what "
                "it can reach.");
}

TEST(RoughWhatIsLeft, NeedsTruePathsOutlinesAndATool) {
  RestJob job(rectangle(6, 4), settingsOf(PocketingStyle::Horizontal), 0);
  job.rest();
  expectMessage(
      job, "The radius of the selected tool is 0.  It must be above 0.\n\nNothing was placed.");
  job.messages().clear();
  job.store.cfg_true_paths = false;
  job.rest();
  expectMessage(
      job, "What is left is known with True Paths alone, in Pocketing & Profiling Parameters.");
  job.messages().clear();
  job.store.cfg_true_paths = true;
  job.store.cfg_lathe_style_pocketing = true;
  job.rest();
  expectMessage(job, "A turning tool has no radius that would leave anything.");
  job.messages().clear();
  job.store.cfg_lathe_style_pocketing = false;
  job.store.NumSegments = 0;
  job.rest();
  expectMessage(job, "No Pocketing Segments have been selected.");
  EXPECT_EQ(job.store.NumPathSegments, 0);
}

}  // namespace
}  // namespace tess
