// Rings with a limit of the engagement: the proof's judge and a raster agree that it is kept, or a
// message tells how much was possible; nothing else about the job changes.
#include "toolpath/engagement_limit.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/engagement_checker.h"
#include "tests/support/plunge_checker.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/proof_text.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr double kHair = 1e-6;
constexpr double kPercent = 0.005001;  // as messages round
constexpr double kRasterGrain = 0.1;   // a twelfth of the width, and the raster's cells

JobSettings rings(int number = 0) {
  JobSettings settings;
  settings.style = PocketingStyle::ParallelSpiral;
  settings.truePaths = true;
  settings.cuttingMode = CuttingMode{1 + number % 3};
  settings.connects = number % 2 == 0;
  settings.clearance = number % 5 == 0 ? 0.03F : 0;
  settings.finishes = number % 3 == 0;
  return settings;
}

// At one level, entered by a helix.
struct LimitedJob : PocketJob {
  LimitedJob(const TestPocket& pocket, const JobSettings& settings, float limit)
      : PocketJob(pocket, settings) {
    store.zstartpos = 1;
    store.cfg_engagement_limit = limit;
    store.cfg_entry_kind = choiceNumber(EntryKind::Helix);
    store.cfg_entry_angle = 4;
    store.cfg_z_cut_per_pass = 0.25F;
    store.cfg_final_depth = 0.25F;
    messages().clear();
  }

  PathProof proof() const { return proofOf(store, cam.context.session.pathJobs); }
  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const Message& message : messages()) texts.push_back(message.text);
    return texts;
  }
  // What a message says of the limit; empty for none.
  std::string excess() {
    for (const std::string& text : told()) {
      if (text.find("cannot be kept everywhere") != std::string::npos) return text;
    }
    return {};
  }
  double byRaster() const {
    std::vector<bool> judged;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      judged.push_back(store.psz[ps] == -store.cfg_final_depth);
    }
    return largestEngagement(toolPath(store, 1, store.NumPathSegments), toolRadius(), judged).share;
  }
};

TestPocket rectangle(float width, float height) {
  return pocketOfRows(polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}}));
}

int arcsOf(const DrawingStore& store) {
  int arcs = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) arcs += isArc(store.pstype[ps]) ? 1 : 0;
  return arcs;
}

double wayOf(const DrawingStore& store) {
  double way = 0;
  for (const auto& curve : toolPath(store)) way += lengthOf(curve);
  return way;
}

double shareTold(const std::string& text) {
  const std::size_t at = text.find("everywhere:  ");
  return at == std::string::npos ? 0 : std::atof(text.c_str() + at + 13) / 100;
}

// More by hand.
int pocketsPerLimit() {
  const char* const asked = std::getenv("TESSIMO_TRUE_POCKETS");
  return asked == nullptr ? 10 : std::atoi(asked);
}

struct LimitRun {
  int limit = 0;       // percent
  int kept = 0;        // by the proof, of ten jobs; fewer than by the raster, which sees no tips
  double longest = 0;  // way, as a multiple of that without a limit
};
class LimitedPockets : public ::testing::TestWithParam<LimitRun> {};

TEST_P(LimitedPockets, KeepTheLimitOrTellHowMuchWasPossible) {
  const double limit = GetParam().limit / 100.0;
  double way = 0;
  double plainWay = 0;
  int kept = 0;
  int keptByRaster = 0;
  int jobs = 0;
  for (int number = 0; number < pocketsPerLimit(); ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    LimitedJob plain(pocket, rings(number), 0);
    plain.rough();
    LimitedJob job(pocket, rings(number), static_cast<float>(GetParam().limit));
    if (job.rough().empty()) continue;
    ++jobs;
    const PathProof proof = job.proof();
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
    EXPECT_NEAR(proof.share(), plain.proof().share(), 1e-5);
    EXPECT_THAT(plungesOf(job.store, 0.01001, 6), IsEmpty());
    way += wayOf(job.store);
    plainWay += wayOf(plain.store);
    const double most = proof.jobs.back().engagement.share;
    const double byRaster = job.byRaster();
    keptByRaster += byRaster <= limit + kRasterGrain ? 1 : 0;
    const std::string excess = job.excess();
    if (excess.empty()) {
      ++kept;
      EXPECT_LE(most, limit + kHair);
      EXPECT_LE(byRaster, limit + kRasterGrain);
    } else {
      EXPECT_NEAR(most, shareTold(excess), kPercent) << excess;
      EXPECT_GT(most, limit) << excess;
    }
  }
  EXPECT_GE(jobs, pocketsPerLimit() * 4 / 5);
  EXPECT_GE(kept, jobs * GetParam().kept / 10) << jobs;
  EXPECT_GE(keptByRaster, jobs * 9 / 10) << jobs;
  EXPECT_LT(way, GetParam().longest * plainWay);
}

INSTANTIATE_TEST_SUITE_P(Limits, LimitedPockets,
                         ::testing::Values(LimitRun{25, 4, 8}, LimitRun{40, 7, 4.6},
                                           LimitRun{60, 8, 3}),
                         [](const auto& run) { return std::to_string(run.param.limit); });

// Turns into solid material, a start with little room, a neck a twentieth wider than the cutter:
// loops went on in a slot of their own there until they were given up.
TEST(EngagementLimit, IsKeptWhereLoopsHaveToGrow) {
  for (const int number : {12, 27, 29}) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    LimitedJob job(pocket, rings(number), 25);
    job.rough();
    EXPECT_EQ(job.excess(), "");
    EXPECT_LE(job.proof().jobs.back().engagement.share, 0.25 + kHair);
  }
}

// Rings of a triangle have no arcs but those of the loops.
TEST(EngagementLimit, LoopsAreOfASizeThatAControlFollows) {
  LimitedJob job(pocketOfRows(polygonRows({{0, 0}, {6, 0}, {1, 2}})), rings(2), 40);
  job.rough();
  EXPECT_GT(arcsOf(job.store), 50);
  for (const auto& curve : toolPath(job.store)) {
    const double radius = curve.isArc ? curve.radius : job.toolRadius();
    EXPECT_GE(radius, 0.0399 * job.toolRadius());
  }
}

// What the raster has to see: rings alone cut at the whole width.
TEST(EngagementLimit, IsNotKeptByRingsAlone) {
  LimitedJob job(rectangle(5, 3), rings(2), 0);
  job.rough();
  EXPECT_GT(job.byRaster(), 0.9);
  EXPECT_GT(job.proof().jobs.back().engagement.share, 0.9);
}

TEST(EngagementLimit, SplitsASlotIntoLoops) {
  LimitedJob plain(rectangle(4, 0.8F), rings(2), 0);
  plain.rough();
  LimitedJob job(rectangle(4, 0.8F), rings(2), 40);
  job.rough();
  EXPECT_EQ(job.excess(), "");
  EXPECT_LE(job.proof().jobs.back().engagement.share, 0.4 + kHair);
  EXPECT_LE(job.byRaster(), 0.4 + kRasterGrain);
  EXPECT_GT(arcsOf(job.store), arcsOf(plain.store) + 20);
}

TEST(EngagementLimit, GoesThroughAnAngledNeck) {
  const TestPocket pocket =
      pocketOfRows(polygonRows({{0, 0}, {4, 0}, {4, 4}, {3.2F, 4}, {3.2F, 0.8F}, {0, 0.8F}}));
  for (const float limit : {25.0F, 40.0F, 60.0F}) {
    LimitedJob job(pocket, rings(2), limit);
    job.rough();
    EXPECT_FALSE(job.proof().isBeyondLimits()) << limit;
    const double most = job.proof().jobs.back().engagement.share;
    if (job.excess().empty()) {
      EXPECT_LE(most, limit / 100.0 + kHair);
    } else {
      EXPECT_NEAR(most, shareTold(job.excess()), kPercent);
    }
  }
}

TEST(EngagementLimit, TellsWhereASlotIsHardlyWiderThanTheCutter) {
  LimitedJob job(rectangle(4, 0.5001F), rings(2), 40);
  job.rough();
  ASSERT_GT(job.store.NumPathSegments, 0);
  EXPECT_THAT(job.excess(),
              HasSubstr("The Engagement Limit of 40 % cannot be kept everywhere:  100 "
                        "% of the cutter's width is in material at X = "));
  EXPECT_EQ(job.proof().jobs.back().engagement.share, 1);
}

TEST(EngagementLimit, WithoutAnEntryTheStartIsTold) {
  LimitedJob job(rectangle(4, 3), rings(2), 40);
  job.store.cfg_entry_kind = choiceNumber(EntryKind::Plunge);
  job.rough();
  EXPECT_THAT(job.excess(), HasSubstr(":  100 % of the cutter's width"));
}

TEST(EngagementLimit, WithARampGoesDownRoundTheFirstLoop) {
  LimitedJob job(rectangle(5, 4), rings(2), 40);
  job.store.cfg_entry_kind = choiceNumber(EntryKind::Ramp);
  job.rough();
  EXPECT_EQ(job.excess(), "");
  EXPECT_TRUE(isArc(job.store.pstype[1]));
  EXPECT_LE(job.proof().jobs.back().engagement.share, 0.4 + kHair);
  EXPECT_THAT(job.proof().plunges, IsEmpty());
}

TEST(EngagementLimit, OffOrWholeChangesNothing) {
  LimitedJob plain(pocketOf(0), rings(0), 0);
  plain.rough();
  LimitedJob whole(pocketOf(0), rings(0), 100);
  whole.rough();
  ASSERT_EQ(plain.store.NumPathSegments, whole.store.NumPathSegments);
  for (int ps = 1; ps <= plain.store.NumPathSegments; ++ps) {
    EXPECT_EQ(pathRow(plain.store, ps), pathRow(whole.store, ps)) << ps;
  }
}

TEST(EngagementLimit, LinesHaveNone) {
  JobSettings lines = rings(2);
  lines.style = PocketingStyle::Horizontal;
  LimitedJob plain(rectangle(4, 3), lines, 0);
  plain.rough();
  LimitedJob limited(rectangle(4, 3), lines, -7);
  limited.rough();
  EXPECT_EQ(limited.told(), plain.told());
  EXPECT_EQ(limited.store.NumPathSegments, plain.store.NumPathSegments);
}

TEST(EngagementLimit, RefusesWhatIsNoLimit) {
  const struct {
    float limit;
    const char* text;
  } kRefused[] = {{-5, "-5 %"}, {9.5F, "9.5 %"}, {101, "101 %"}, {1e9F, "1000000000 %"}};
  for (const auto& [limit, text] : kRefused) {
    LimitedJob job(rectangle(4, 3), rings(2), limit);
    EXPECT_THAT(job.rough(), IsEmpty());
    EXPECT_THAT(job.told(), ElementsAre(std::string("The Engagement Limit is ") + text +
                                        ".  It must be from 10 to 100 %, or 0 for none.\n\nNothing "
                                        "was placed.  It is set in Pocketing & Profiling "
                                        "Parameters."));
    EXPECT_EQ(job.messages().front().title, "Rough Cut Pocket");
  }
  LimitedJob job(rectangle(4, 3), rings(2), std::numeric_limits<float>::quiet_NaN());
  EXPECT_THAT(job.rough(), IsEmpty());
  EXPECT_THAT(job.told(), ElementsAre(HasSubstr("It must be from 10 to 100 %")));
}

TEST(EngagementLimit, TellsWhenTheTableHasNoRoomForTheLoops) {
  LimitedJob job(rectangle(40, 30), rings(2), 10);
  job.store.cfg_final_depth = 5;
  EXPECT_THAT(job.rough(), IsEmpty());
  EXPECT_THAT(job.told(),
              ElementsAre("The path has too many rows with an Engagement Limit of 10 %.\n\nNothing "
                          "was placed.  A larger limit, or fewer levels, needs fewer."));
}

TEST(EngagementLimit, IsOneStepOfTheLog) {
  LimitedJob job(rectangle(4, 3), rings(2), 40);
  job.rough();
  const int rows = job.store.NumPathSegments;
  ASSERT_GT(rows, 0);
  Undo_Last_Change(job.context);
  EXPECT_EQ(job.store.NumPathSegments, 0);
  RedoLastChange(job.context);
  EXPECT_EQ(job.store.NumPathSegments, rows);
}

TEST(EngagementLimit, HoldsAtAllLevels) {
  LimitedJob job(rectangle(4, 3), rings(2), 40);
  job.store.cfg_final_depth = 0.6F;
  job.rough();
  EXPECT_FALSE(job.proof().isBeyondLimits());
  EXPECT_LE(job.proof().jobs.back().engagement.share, 0.4 + kHair);
}

TEST(EngagementLimit, HoldsForWhatALargerCutterHasLeft) {
  LimitedJob job(rectangle(4, 3), rings(2), 40);
  job.rough();
  job.store.toolradius[1] = 0.1F;
  job.store.toolname[1] = "second cutter";
  job.store.selectedtool = 1;
  const int before = job.store.NumPathSegments;
  kRoughWhatIsLeftCommand.run(job.cam);
  EXPECT_GT(job.store.NumPathSegments, before);
  EXPECT_FALSE(job.proof().gouge.depth > 1e-4);
  const double most = job.proof().jobs.back().engagement.share;
  if (job.excess().empty()) {
    EXPECT_LE(most, 0.4 + kHair);
  } else {
    EXPECT_NEAR(most, shareTold(job.excess()), kPercent);
  }
}

TEST(EngagementLimit, HoldsForTinyPartsAndFarFromTheOrigin) {
  TestPocket tiny = rectangle(0.1F, 0.06F);
  tiny.toolRadius = 0.005F;
  LimitedJob small(tiny, rings(2), 40);
  small.rough();
  EXPECT_GT(small.store.NumPathSegments, 50);
  EXPECT_FALSE(small.proof().isBeyondLimits()) << proofText(small.proof());
  LimitedJob far(pocketOfRows(polygonRows({{900, 900}, {904, 900}, {904, 903}, {900, 903}})),
                 rings(2), 40);
  far.rough();
  EXPECT_GT(far.store.NumPathSegments, 50);
  EXPECT_FALSE(far.proof().isBeyondLimits()) << proofText(far.proof());
  EXPECT_LE(far.proof().jobs.back().engagement.share, 0.45);
}

}  // namespace
}  // namespace tess
