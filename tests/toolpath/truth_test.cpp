// Is the part right? Generated pockets are verified, roughed and finished by the commands; then the
// tool is swept along what they placed. Whatever is left out is left out by a measure of the pocket
// (pocket_doubts.h), and known_limits_test.cpp shows what happens there.
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "tests/toolpath/pocket_doubts.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;
using ToolPath = std::vector<Curve>;

constexpr int kPockets = 240;
constexpr float kClearance = 0.05F;
// Vertical scan lines are tested 0.000073 beside their place.
constexpr double kDeepest = 1e-4;
constexpr double kMinShare = 0.9995;
constexpr int kCells = 6;  // of the raster, per tool radius

// What was judged, so that a sweep which leaves everything out fails.
struct Tally {
  int roughs = 0, finishes = 0, shares = 0;
};

struct Job {
  TestPocket pocket;
  JobSettings settings;
  std::string roughDoubt, finishDoubt;

  double radius() const { return pocket.toolRadius; }
  double standOff() const { return pocket.toolRadius + settings.clearance; }
};

std::string finishDoubtOf(const TestPocket& pocket, const PocketJob& job) {
  std::string doubt = partDoubt(pocket, pocket.toolRadius);
  const std::vector<JobClicks> clicks = job.finishClicks();
  for (std::size_t k = 0; k < clicks.size() && doubt.empty(); ++k) {
    const Loop& loop = k == 0 ? pocket.part.pocket : pocket.part.islands[k - 1];
    doubt = startDoubt(pocket.part, loop, {clicks[k].start.x, clicks[k].start.y}, job.toolRadius());
  }
  return doubt;
}

bool isConvex(const Loop& loop) {
  return std::all_of(loop.begin(), loop.end(), [&](const Curve& row) {
    const auto corner = cornerAt(loop, row.start);
    return (!row.isArc || row.sweep > 0) && (!corner || angleOf(*corner) < 180.01);
  });
}

void judge(Job& job, Tally& tally) {
  PocketJob context(job.pocket, job.settings);
  ASSERT_TRUE(context.isVerified());
  job.finishDoubt = finishDoubtOf(job.pocket, context);
  ToolPath path = context.rough();
  if (job.roughDoubt.empty()) {
    ++tally.roughs;
    EXPECT_LE(deepestGouge(job.pocket.part, path, job.standOff()).depth, kDeepest);
  }
  const ToolPath finish = context.finish();
  if (!job.finishDoubt.empty()) return;
  ++tally.finishes;
  EXPECT_LE(deepestGouge(job.pocket.part, finish, job.radius()).depth, kDeepest);
  if (!job.roughDoubt.empty()) return;
  ++tally.shares;
  path.insert(path.end(), finish.begin(), finish.end());
  const ReachableArea area(job.pocket.part, job.radius(), kCells);
  EXPECT_GE(area.coverageOf(path).share, kMinShare);
}

// Links run straight from cut to cut, so they are asked for in pockets without a tongue alone.
Job scanJob(int number, PocketingStyle style, float clearance) {
  Job job{pocketOf(number), {.style = style, .cuttingMode = CuttingMode{1 + number % 3}}, {}, {}};
  job.settings.clearance = clearance;
  job.settings.connects = number % 2 == 0 && isConvex(job.pocket.part.pocket);
  job.roughDoubt = roughDoubt(job.pocket, job.standOff());
  return job;
}

// The first ring stands where there is just room for it.
Job spiralJob(int number, float clearance) {
  Job job{pocketOf(number),
          {.style = PocketingStyle::ParallelSpiral, .cuttingMode = CuttingMode{1 + number % 3}},
          {},
          {}};
  job.settings.clearance = clearance;
  job.settings.connects = number % 2 == 0 && isConvex(job.pocket.part.pocket);
  const double room = 0.95 * largestTool(job.pocket.part, job.radius());
  job.settings.firstRing = std::max(room, job.standOff() + 0.01);
  const PocketJob context(job.pocket, job.settings);
  const RingSpan rings{job.settings.firstRing, job.standOff(), job.radius()};
  job.roughDoubt = spiralDoubt(job.pocket, context.finishClicks()[0], rings);
  return job;
}

struct ScanCase {
  const char* name;
  PocketingStyle style;
  float clearance;
};

void PrintTo(const ScanCase& scan, std::ostream* out) {
  *out << scan.name;
}

class TruthOfScanLines : public ::testing::TestWithParam<ScanCase> {};

TEST_P(TruthOfScanLines, RoughAndFinishClearThePocketAndSpareTheWalls) {
  Tally tally;
  for (int number = 0; number < kPockets; ++number) {
    Job job = scanJob(number, GetParam().style, GetParam().clearance);
    SCOPED_TRACE(job.pocket.name);
    judge(job, tally);
  }
  EXPECT_GE(tally.roughs, kPockets * 2 / 5);
  EXPECT_GE(tally.finishes, kPockets / 2);
  EXPECT_GE(tally.shares, kPockets / 3);
}

INSTANTIATE_TEST_SUITE_P(
    Styles, TruthOfScanLines,
    ::testing::Values(ScanCase{"Horizontal", PocketingStyle::Horizontal, 0},
                      ScanCase{"HorizontalWithClearance", PocketingStyle::Horizontal, kClearance},
                      ScanCase{"Vertical", PocketingStyle::Vertical, 0},
                      ScanCase{"VerticalWithClearance", PocketingStyle::Vertical, kClearance}),
    [](const auto& of) { return std::string(of.param.name); });

class TruthOfSpirals : public ::testing::TestWithParam<float> {};

TEST_P(TruthOfSpirals, RingsAndFinishClearThePocketAndSpareTheWalls) {
  Tally tally;
  for (int number = 0; number < kPockets; ++number) {
    Job job = spiralJob(number, GetParam());
    if (!job.roughDoubt.empty()) continue;
    SCOPED_TRACE(job.pocket.name);
    judge(job, tally);
  }
  EXPECT_GE(tally.roughs, kPockets / 12);
  EXPECT_GE(tally.shares, kPockets / 12);
}

INSTANTIATE_TEST_SUITE_P(Clearances, TruthOfSpirals, ::testing::Values(0.0F, kClearance),
                         [](const auto& of) {
                           return std::string(of.param == 0 ? "None" : "Some");
                         });

}  // namespace
}  // namespace tess
