// The operator ends a command with true paths, at whatever moment: all is as if it had never been
// begun, and the next one goes through.
#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;

enum class Command { Lines, VerticalLines, Rings, RingsAndFinish, Lathe, Finish, OpenFinish };

JobSettings settingsOf(Command command) {
  JobSettings settings;
  settings.truePaths = true;
  settings.connects = true;
  settings.clearance = 0.05F;
  const bool rings = command == Command::Rings || command == Command::RingsAndFinish;
  if (rings) settings.style = PocketingStyle::ParallelSpiral;
  if (command == Command::VerticalLines) settings.style = PocketingStyle::Vertical;
  settings.finishes = command == Command::RingsAndFinish;
  return settings;
}

// A part with a neck that roughing does not pass, and an island.
TestPocket partOf(Command command) {
  const std::vector<SegmentRow> outline = polygonRows({{0, 0},
                                                       {3, 0},
                                                       {3, 0.95F},
                                                       {4, 0.95F},
                                                       {4, 0},
                                                       {6, 0},
                                                       {6, 2.5F},
                                                       {4, 2.5F},
                                                       {4, 1.5F},
                                                       {3, 1.5F},
                                                       {3, 2.5F},
                                                       {0, 2.5F}});
  if (command == Command::Lathe) return pocketOfRows(outline, {});
  return pocketOfRows(outline, {polygonRows({{1, 1}, {1.5F, 1}, {1.5F, 1.5F}, {1, 1.5F}})});
}

// All that a command may leave behind.
struct Remains {
  std::vector<std::string> segments, paths;
  int records, top, group, lastGroup, notes;
  bool saved;
  bool operator==(const Remains&) const = default;
};

// With plunges and with ramps.
class CancelledCommand : public ::testing::TestWithParam<std::tuple<Command, EntryKind>> {
 protected:
  static Command command() { return std::get<0>(GetParam()); }

  CancelledCommand() : job_(partOf(command()), settingsOf(command())) {
    DrawingStore& store = job_.store;
    store.cfg_lathe_style_pocketing = command() == Command::Lathe;
    store.cfg_lead_in_arc = true;
    store.cfg_lead_in_angle = 40;
    store.cfg_lead_in_length = 0.2F;
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = 0.5F;
    store.cfg_entry_kind = choiceNumber(std::get<1>(GetParam()));
    store.cfg_entry_angle = 5;
    job_.addPathLine(10, 10, 11, 10);
    // The last row of the outline is gone, and the island.
    if (command() == Command::OpenFinish) store.NumSegments = 11;
    job_.messages().clear();
    job_.statusLog.clear();
  }

  void run() {
    if (command() == Command::Finish || command() == Command::OpenFinish) {
      job_.finishAt({{0, 0}, {1.5F, 0}, {1.5F, 0.5F}});
    } else {
      job_.rough();
    }
  }
  Remains remains() {
    DrawingStore& store = job_.store;
    return {segmentTexts(store),
            pathTexts(store),
            job_.context.changelog.changecount,
            job_.context.changelog.changetop,
            store.currentpathgroup,
            store.lastplacedgroup,
            job_.test.session.pathJobs.notes(),
            store.drawingsaved};
  }
  RecordingSurroundings& operators() { return job_.test.recording.surroundings; }
  void cancelAfter(int breaths) { operators().cancelAt = operators().eventsServed + breaths; }

  PocketJob job_;
};

TEST_P(CancelledCommand, LeavesNothingAtAnyMoment) {
  const Remains before = remains();
  int cancelled = 0;
  for (int breaths = 1;; breaths += 1 + breaths / 8) {
    SCOPED_TRACE(breaths);
    cancelAfter(breaths);
    run();
    ASSERT_FALSE(operators().isCancellable);
    if (remains() != before) break;
    ++cancelled;
    ASSERT_EQ(job_.prompt(), "Cancelled. Nothing was placed.");
    ASSERT_EQ(job_.pending(), 0);
    ASSERT_TRUE(job_.messages().empty());
    ASSERT_EQ(job_.context.systemPointer.MousePointer(), kDefaultShape);
  }
  EXPECT_GT(cancelled, 4);
  EXPECT_GT(job_.store.NumPathSegments, 1) << "nobody cancelled the last one";
  EXPECT_NE(job_.prompt(), "Cancelled. Nothing was placed.");
}

INSTANTIATE_TEST_SUITE_P(
    All, CancelledCommand,
    ::testing::Combine(::testing::Values(Command::Lines, Command::VerticalLines, Command::Rings,
                                         Command::RingsAndFinish, Command::Lathe, Command::Finish,
                                         Command::OpenFinish),
                       ::testing::Values(EntryKind::Plunge, EntryKind::Ramp)));

TEST(LongCommand, TellsHowLongItTakes) {
  PocketJob job(partOf(Command::Lines), settingsOf(Command::Lines));
  job.messages().clear();
  job.statusLog.clear();
  job.test.recording.clock.asking = 200;
  job.rough();
  const std::vector<std::string>& log = job.statusLog;
  const auto told = [&](const std::string& text) {
    return std::find(log.begin(), log.end(), text) != log.end();
  };
  EXPECT_TRUE(told("Collecting Roughing Points    0.5 s, Esc ends it"));
  EXPECT_TRUE(told("Collecting Roughing Points    1.0 s, Esc ends it"));
  EXPECT_EQ(job.prompt().find("Esc"), std::string::npos);
}

}  // namespace
}  // namespace tess
