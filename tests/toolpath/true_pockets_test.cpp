// True paths of generated pockets, judged by a sweep that shares nothing with what makes them: no
// wall is touched, and nothing that the tool can reach is left, in every style.
#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;
using ToolPath = std::vector<testing::Curve>;

constexpr double kDeepest = 1e-4;
constexpr double kMinShare = 0.999;
constexpr double kThinnest = 5e-5;
constexpr int kCells = 6;  // of the raster, per tool radius

// More by hand.
int pocketsPerStyle() {
  const char* const asked = std::getenv("TESSIMO_TRUE_POCKETS");
  return asked == nullptr ? 90 : std::atoi(asked);
}

JobSettings settingsOf(int number, PocketingStyle style) {
  constexpr double kSteps[] = {0.2, 0.5, 1, 1.4, 1.9, 2};
  JobSettings settings;
  settings.style = style;
  settings.truePaths = true;
  settings.cuttingMode = CuttingMode{1 + number % 3};
  settings.step = kSteps[number % 6];
  settings.connects = number % 4 != 0;
  settings.clearance = number % 5 == 0 ? 0.03F : 0;
  return settings;
}

struct Tally {
  int jobs = 0;
  double deepest = 0, least = 1;

  void gouge(double depth) {
    EXPECT_LE(depth, kDeepest);
    deepest = std::max(deepest, depth);
  }
  // A rim thinner than the checker's own slack is nothing.
  void coverage(const Coverage& coverage) {
    if (coverage.rest < kThinnest) return;
    EXPECT_GE(coverage.share, kMinShare)
        << coverage.rest << " at " << coverage.restPlace.x << ", " << coverage.restPlace.y;
    least = std::min(least, coverage.share);
  }
};

// Roughing clears what a tool larger by the clearance can reach; with the finish path after it
// nothing is left at all.
void judge(int number, PocketingStyle style, Tally& tally) {
  const TestPocket pocket = pocketOf(number);
  SCOPED_TRACE(pocket.name);
  const JobSettings settings = settingsOf(number, style);
  PocketJob job(pocket, settings);
  job.store.cfg_lead_in_path = number % 2 == 0;
  job.store.cfg_lead_in_arc = number % 4 == 0;
  job.store.cfg_lead_in_length = 0.3F;
  job.store.cfg_lead_in_angle = 40;
  ASSERT_TRUE(job.isVerified());
  const double distance = pocket.toolRadius + settings.clearance;
  ToolPath path = job.rough();
  tally.gouge(path.empty() ? 0 : deepestGouge(pocket.part, path, distance).depth);
  const ReachableArea area(pocket.part, pocket.toolRadius, kCells);
  if (settings.clearance == 0) tally.coverage(area.coverageOf(path));
  const ToolPath finish = job.finish();
  tally.gouge(finish.empty() ? 0 : deepestGouge(pocket.part, finish, pocket.toolRadius).depth);
  path.insert(path.end(), finish.begin(), finish.end());
  tally.coverage(area.coverageOf(path));
  if (!path.empty()) ++tally.jobs;
}

std::string styleName(const ::testing::TestParamInfo<PocketingStyle>& of) {
  if (of.param == PocketingStyle::Horizontal) return "Horizontal";
  return of.param == PocketingStyle::Vertical ? "Vertical" : "Spiral";
}

class TruePockets : public ::testing::TestWithParam<PocketingStyle> {};

TEST_P(TruePockets, AreClearedAndTheirWallsSpared) {
  Tally tally;
  for (int number = 0; number < pocketsPerStyle(); ++number) judge(number, GetParam(), tally);
  EXPECT_GE(tally.jobs, pocketsPerStyle() * 4 / 5);
  RecordProperty("jobs", tally.jobs);
  RecordProperty("deepest", std::to_string(tally.deepest));
  RecordProperty("least", std::to_string(tally.least));
}

INSTANTIATE_TEST_SUITE_P(Styles, TruePockets,
                         ::testing::Values(PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                           PocketingStyle::ParallelSpiral),
                         styleName);

}  // namespace
}  // namespace tess
