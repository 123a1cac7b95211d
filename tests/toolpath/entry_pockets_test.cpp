// Entries in generated pockets, judged by a sweep that shares nothing with what makes them: no tool
// goes straight down into material, no wall is touched, and nothing is left.
#include <cstdlib>
#include <string>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "tests/support/plunge_checker.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;

constexpr double kDeepest = 1e-4;
constexpr double kStep = 0.01;
constexpr double kStepSlack = 1e-5;  // depths are 32-bit numbers

// More by hand.
int pocketsPerStyle() {
  const char* const asked = std::getenv("TESSIMO_TRUE_POCKETS");
  return asked == nullptr ? 45 : std::atoi(asked);
}

class EnteredPockets : public ::testing::TestWithParam<PocketingStyle> {};

JobSettings settingsOf(int number, PocketingStyle style) {
  constexpr double kSteps[] = {0.2, 0.5, 1, 1.4, 1.9, 2};
  JobSettings settings;
  settings.style = style;
  settings.truePaths = true;
  settings.cuttingMode = CuttingMode{1 + number % 3};
  settings.step = kSteps[number % 6];
  settings.connects = number % 2 == 0;
  settings.clearance = number % 5 == 0 ? 0.03F : 0;
  settings.finishes = number % 3 == 0;
  return settings;
}

TEST_P(EnteredPockets, AreEnteredWithoutAPlunge) {
  int entered = 0;
  for (int number = 0; number < pocketsPerStyle(); ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    PocketJob job(pocket, settingsOf(number, GetParam()));
    job.store.cfg_entry_kind = choiceNumber(number % 4 < 2 ? EntryKind::Ramp : EntryKind::Helix);
    job.store.cfg_entry_angle = number % 7 == 0 ? 30.0F : 4.0F;
    job.store.cfg_z_cut_per_pass = 0.1F;
    job.store.cfg_final_depth = 0.25F;
    job.store.cfg_lead_in_arc = number % 4 == 1;
    job.store.cfg_lead_in_length = 0.3F;
    job.store.cfg_lead_in_angle = 40;
    auto path = job.rough();
    const auto finish = job.finish();
    path.insert(path.end(), finish.begin(), finish.end());
    if (path.empty()) continue;
    ++entered;
    EXPECT_LE(deepestGouge(pocket.part, path, pocket.toolRadius).depth, kDeepest);
    for (const CheckedPlunge& plunge : plungesOf(job.store, kStep + kStepSlack, 6)) {
      ADD_FAILURE() << "row " << plunge.row << " goes down by " << plunge.depth << " at "
                    << plunge.place.x << ", " << plunge.place.y;
    }
  }
  EXPECT_GE(entered, pocketsPerStyle() * 4 / 5);
}

// What the sweep has to see: without an entry every pocket begins with a plunge.
TEST(EnteredPocketsNeed, TheirEntries) {
  for (int number = 0; number < 15; ++number) {
    PocketJob job(pocketOf(number), settingsOf(number, PocketingStyle::ParallelSpiral));
    if (job.rough().empty()) continue;
    EXPECT_FALSE(plungesOf(job.store, kStep + kStepSlack, 6).empty()) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Styles, EnteredPockets,
                         ::testing::Values(PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                           PocketingStyle::ParallelSpiral));

}  // namespace
}  // namespace tess
