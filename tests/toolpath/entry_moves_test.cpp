// Entries of roughing and finishing: rows, depths, feeds, messages word for word, one step of undo.
#include "toolpath/entry_moves.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "tests/support/plunge_checker.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;

std::vector<SegmentRow> rectangle(float width, float height) {
  return polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}});
}

struct EntryJob {
  explicit EntryJob(EntryKind kind, const std::vector<SegmentRow>& outline = rectangle(4, 3),
                    PocketingStyle style = PocketingStyle::ParallelSpiral)
      : pocket(pocketOfRows(outline)), job(pocket, settings(style)) {
    job.messages().clear();
    store().cfg_entry_kind = choiceNumber(kind);
    store().cfg_entry_angle = 3;
    store().cfg_z_plunge_rate = 4;
    store().cfg_z_cut_per_pass = 0.2F;
    store().cfg_final_depth = 0.4F;
  }
  static JobSettings settings(PocketingStyle style) {
    JobSettings settings;
    settings.style = style;
    settings.truePaths = true;
    settings.connects = true;
    return settings;
  }

  DrawingStore& store() { return job.store; }
  void drill(float x, float y, float depth, float radius) {
    const int tool = store().NumPathSegments + 1;
    store().toolradius[tool] = radius;
    addPathSegment(
        store(),
        {.type = 81, .x0 = x, .y0 = y, .x1 = x, .y1 = y, .z = depth, .code = pathCode(1, tool)});
  }
  std::vector<CheckedPlunge> plunges() { return plungesOf(store(), step() + 1e-5); }
  double step() { return entryStep(store()); }
  std::vector<PathRow> rows() {
    std::vector<PathRow> all;
    for (int ps = 1; ps <= store().NumPathSegments; ++ps) all.push_back(pathRow(store(), ps));
    return all;
  }
  std::string message() { return job.messages().empty() ? "" : job.messages().front().text; }
  void expectRefusal(const std::string& text) {
    EXPECT_TRUE(job.rough().empty());
    ASSERT_EQ(job.messages().size(), 1U);
    EXPECT_EQ(message(), text);
    EXPECT_EQ(job.messages()[0].title, "Rough Cut Pocket");
    EXPECT_EQ(job.messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(store().NumPathSegments, 0);
  }

  TestPocket pocket;
  PocketJob job;
};

// Without the key, or without true paths, the numbers of an entry mean nothing.
TEST(Entry, IsThePlungeWithoutItsKeyAndWithoutTruePaths) {
  EntryJob plain(EntryKind::Plunge);
  plain.store().cfg_entry_angle = 0;
  plain.job.rough();
  EntryJob numbers(EntryKind::Plunge);
  numbers.store().cfg_entry_radius = -5;
  numbers.store().cfg_entry_angle = 1e30F;
  numbers.job.rough();
  EXPECT_EQ(plain.rows(), numbers.rows());
  EntryJob unknown(EntryKind::Plunge);
  unknown.store().cfg_entry_kind = 9;
  unknown.job.rough();
  EXPECT_EQ(plain.rows(), unknown.rows());
  EXPECT_FALSE(plain.rows().empty());
  EXPECT_TRUE(plain.job.messages().empty());
  EntryJob stated(EntryKind::Ramp);
  stated.store().cfg_true_paths = false;
  EXPECT_FALSE(wantsEntries(stated.store()));
}

// Down by the plunge rate along the first row, and from there as without an entry.
TEST(Entry, ARampFallsAlongTheFirstRowAndThePathFollowsItAtFullDepth) {
  EntryJob plain(EntryKind::Plunge);
  plain.job.rough();
  EntryJob ramp(EntryKind::Ramp);
  ramp.job.rough();
  EXPECT_TRUE(ramp.job.messages().empty());
  EXPECT_FALSE(plain.plunges().empty());
  EXPECT_TRUE(ramp.plunges().empty());
  const std::vector<PathRow> flat = plain.rows();
  const std::vector<PathRow> rows = ramp.rows();
  std::vector<PathRow> cut;
  float z = 0;
  for (const PathRow& row : rows) {
    if (row.z == -0.2F || row.z == -0.4F) {
      cut.push_back(row);
    } else {
      EXPECT_EQ(row.feed, 4);
      EXPECT_EQ(row.code, rows.front().code);
      EXPECT_LT(row.z, z);
      EXPECT_GE(row.z, z - 0.01001F);
    }
    z = row.z;
  }
  EXPECT_EQ(cut, flat);
  EXPECT_GE(rows.size() - cut.size(), 38U);
}

TEST(Entry, HasAFeedOfItsOwnWhereTheSetupGivesOne) {
  EntryJob ramp(EntryKind::Ramp);
  ramp.store().cfg_entry_feedrate = 7;
  ramp.job.rough();
  EXPECT_EQ(ramp.rows().front().feed, 7);
  EntryJob none(EntryKind::Ramp);
  none.store().cfg_z_plunge_rate = 0;
  none.job.rough();
  EXPECT_EQ(none.rows().front().feed, none.store().cfg_finish_feedrate);
}

// A quarter of a millimetre there, a hundredth of an inch here.
TEST(Entry, TakesItsStepFromTheUnits) {
  EntryJob inch(EntryKind::Ramp);
  EXPECT_EQ(inch.step(), 0.01);
  EntryJob metric(EntryKind::Ramp, rectangle(100, 80));
  metric.store().units = "M";
  metric.store().toolradius[0] = 5;
  metric.store().cfg_final_depth = 4;
  metric.store().cfg_z_cut_per_pass = 2;
  EXPECT_EQ(metric.step(), 0.25);
  metric.job.rough();
  EXPECT_TRUE(metric.plunges().empty());
  float z = 0;
  int stairs = 0;
  for (const PathRow& row : metric.rows()) {
    EXPECT_GE(row.z, z - 0.2501F);
    stairs += row.z < z ? 1 : 0;
    z = row.z;
  }
  EXPECT_LT(stairs, 30);
}

TEST(Entry, AHelixGoesRoundInArcsAndTheRestIsAsItWas) {
  EntryJob helix(EntryKind::Helix);
  helix.store().cfg_cutting_mode = choiceNumber(CuttingMode::Conventional);
  helix.job.rough();
  EXPECT_TRUE(helix.job.messages().empty());
  EXPECT_TRUE(helix.plunges().empty());
  const std::vector<PathRow> rows = helix.rows();
  ASSERT_TRUE(isArc(rows.front().type));
  const double radius =
      std::hypot(rows.front().x0 - rows.front().xc, rows.front().y0 - rows.front().yc);
  EXPECT_NEAR(radius, 0.225, 1e-6);
  EXPECT_EQ(rows.front().type, kClockwiseArc);
  int flat = 0;
  for (const PathRow& row : rows) flat += isArc(row.type) && row.z == -0.2F ? 1 : 0;
  EXPECT_EQ(flat, 2);
}

TEST(Entry, AHelixHasTheRadiusOfTheSetup) {
  EntryJob helix(EntryKind::Helix);
  helix.store().cfg_entry_radius = 0.1F;
  helix.store().cfg_cutting_mode = choiceNumber(CuttingMode::Climb);
  helix.job.rough();
  const PathRow row = helix.rows().front();
  EXPECT_NEAR(std::hypot(row.x0 - row.xc, row.y0 - row.yc), 0.1, 1e-6);
  EXPECT_EQ(row.type, kCounterClockwiseArc);
}

TEST(Entry, AHelixThatFitsNowhereIsARamp) {
  EntryJob helix(EntryKind::Helix, rectangle(4, 0.7F));
  helix.job.rough();
  EXPECT_EQ(helix.message().substr(0, 43), "A helix of radius 0.225 does not fit at X =");
  EXPECT_NE(helix.message().find(".  The tool goes down by a ramp."), std::string::npos);
  EXPECT_TRUE(helix.plunges().empty());
  EntryJob huge(EntryKind::Helix);
  huge.store().cfg_entry_radius = 1e30F;
  huge.job.rough();
  EXPECT_EQ(huge.message().substr(0, 24), "A helix of radius 100000");
  EXPECT_TRUE(huge.plunges().empty());
}

// The room is a point: there is nowhere to go but down.
TEST(Entry, WhereNoRampFitsAMessageTellsThePlace) {
  EntryJob tight(EntryKind::Ramp, rectangle(0.505F, 0.505F));
  tight.job.rough();
  EXPECT_EQ(tight.message().substr(0, 27), "A ramp does not fit at X = ");
  EXPECT_NE(tight.message().find(".  The tool goes straight down there."), std::string::npos);
  EXPECT_FALSE(tight.plunges().empty());
}

TEST(Entry, ARoomNarrowerThanTheRampIsGoneThroughToAndFro) {
  EntryJob narrow(EntryKind::Ramp, rectangle(0.7F, 0.7F));
  narrow.job.rough();
  EXPECT_TRUE(narrow.job.messages().empty());
  EXPECT_TRUE(narrow.plunges().empty());
  EXPECT_LE(deepestGouge(narrow.pocket.part, toolPath(narrow.store()), 0.25).depth, 1e-5);
}

TEST(Entry, StartsInTheNearestHoleThatServes) {
  EntryJob hole(EntryKind::NearestHole);
  hole.drill(0.6F, 0.6F, 0.5F, 0.3F);
  hole.drill(3.2F, 2.2F, 0.5F, 0.3F);
  hole.drill(2.2F, 1.5F, 0.5F, 0.1F);
  hole.job.rough();
  EXPECT_TRUE(hole.job.messages().empty());
  EXPECT_TRUE(hole.plunges().empty());
  const PathRow first = hole.rows()[3];
  EXPECT_EQ(first.x0, 3.2F);
  EXPECT_EQ(first.y0, 2.2F);
  EXPECT_EQ(first.z, -0.2F);
  EXPECT_EQ(first.feed, hole.store().cfg_finish_feedrate);
}

TEST(Entry, StartsInTheHoleAtTheMarker) {
  EntryJob hole(EntryKind::HoleAtMarker);
  hole.drill(0.6F, 0.6F, 0.5F, 0.3F);
  hole.drill(3.2F, 2.2F, 0.5F, 0.3F);
  hole.store().markerx = 0.5F;
  hole.store().markery = 0.5F;
  hole.job.rough();
  EXPECT_TRUE(hole.job.messages().empty());
  EXPECT_TRUE(hole.plunges().empty());
  EXPECT_EQ(hole.rows()[2].x0, 0.6F);
}

TEST(Entry, AHoleThatDoesNotServeIsToldAndTheToolRampsDown) {
  struct Case {
    float x, y, depth, radius;
    EntryKind kind;
    const char* text;
  };
  constexpr Case kCases[] = {
      {2, 1.5F, 0.3F, 0.3F, EntryKind::NearestHole,
       "The hole at X = 2, Y = 1.5 is too shallow:  it goes down to Z = -0.3, the path to Z = "
       "-0.4.  The tool goes down by a ramp."},
      {2, 1.5F, 0.5F, 0.2F, EntryKind::NearestHole,
       "The hole at X = 2, Y = 1.5 is too narrow:  its radius is 0.2, that of the tool 0.25.  The "
       "tool goes down by a ramp."},
      {9, 9, 0.5F, 0.3F, EntryKind::HoleAtMarker,
       "The tool cannot go from the hole at X = 9, Y = 9 to the path.  The tool goes down by a "
       "ramp."},
      {9, 9, 0.5F, 0.3F, EntryKind::NearestHole,
       "No hole is drilled where the tool could start.  The tool goes down by a ramp."},
  };
  for (const Case& test : kCases) {
    SCOPED_TRACE(test.text);
    EntryJob job(test.kind);
    job.drill(test.x, test.y, test.depth, test.radius);
    job.job.rough();
    EXPECT_EQ(job.message(), test.text);
    EXPECT_EQ(job.job.messages().front().title, "Rough Cut Pocket");
    EXPECT_TRUE(job.plunges().empty());
  }
  EntryJob none(EntryKind::HoleAtMarker);
  none.job.rough();
  EXPECT_EQ(none.message(),
            "No hole is drilled where the tool could start.  The tool goes down by a ramp.");
}

// Round the island that lies between.
TEST(Entry, TheWayFromAHoleLeadsRoundAnIsland) {
  const auto island = polygonRows({{1.5F, 1}, {2.5F, 1}, {2.5F, 2}, {1.5F, 2}});
  PocketJob job(pocketOfRows(rectangle(4, 3), {island}),
                EntryJob::settings(PocketingStyle::Horizontal));
  job.store.cfg_entry_kind = choiceNumber(EntryKind::HoleAtMarker);
  job.store.cfg_entry_angle = 3;
  job.store.toolradius[1] = 0.3F;
  addPathSegment(job.store,
                 {.type = 81, .x1 = 3.4F, .y1 = 2.6F, .z = 0.6F, .code = pathCode(1, 1)});
  job.store.markerx = 3.4F;
  job.store.markery = 2.6F;
  job.rough();
  EXPECT_TRUE(job.messages().empty());
  EXPECT_TRUE(plungesOf(job.store, 0.01001).empty());
  EXPECT_EQ(job.store.psx0[2], 3.4F);
  const PartShape part = pocketOfRows(rectangle(4, 3), {island}).part;
  EXPECT_LE(deepestGouge(part, toolPath(job.store), 0.25).depth, 1e-5);
}

TEST(Entry, AsksForAnAngleARadiusAndAFeedThatMakeSense) {
  const std::string rest =
      "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.";
  const std::pair<float, const char*> angles[] = {
      {0.0F, "0"},     {-3.0F, "-3"}, {90.0F, "90"}, {1e30F, "1000000015047466219876688855040"},
      {0.05F, "0.05"}, {46, "46"}};
  for (const PocketingStyle style : {PocketingStyle::Horizontal, PocketingStyle::ParallelSpiral}) {
    for (const auto& [angle, text] : angles) {
      EntryJob job(EntryKind::Ramp, rectangle(4, 3), style);
      job.store().cfg_entry_angle = angle;
      job.expectRefusal("The Ramp Angle is " + std::string(text) +
                        ".  It must be from 0.1 to 45 degrees." + rest);
    }
    EntryJob radius(EntryKind::Helix, rectangle(4, 3), style);
    radius.store().cfg_entry_radius = -1;
    radius.expectRefusal("The Helix Radius is -1.  It must not be below 0." + rest);
    EntryJob feed(EntryKind::Ramp, rectangle(4, 3), style);
    feed.store().cfg_entry_feedrate = -2;
    feed.expectRefusal("The Entry Feed Rate is -2.  It must not be below 0." + rest);
  }
}

TEST(Entry, OfAPathAtNoDepthIsNone) {
  for (const float depth : {0.0F, -0.0F}) {
    EntryJob flat(EntryKind::Ramp);
    flat.store().cfg_final_depth = depth;
    flat.job.rough();
    EntryJob plain(EntryKind::Plunge);
    plain.store().cfg_final_depth = depth;
    plain.job.rough();
    EXPECT_EQ(flat.rows(), plain.rows());
    EXPECT_FALSE(flat.rows().empty());
  }
}

TEST(Entry, EveryOfManyLevelsHasItsOwn) {
  EntryJob deep(EntryKind::Ramp);
  deep.store().cfg_final_depth = 6;
  deep.store().cfg_z_cut_per_pass = 0.02F;
  deep.job.rough();
  EXPECT_TRUE(deep.job.messages().empty());
  EXPECT_TRUE(plungesOf(deep.store(), 0.01001, 4).empty());
  EXPECT_NEAR(deep.store().psz[deep.store().NumPathSegments], -6, 1e-4);
}

TEST(Entry, NothingIsPlacedWhenTheTableCannotHoldIt) {
  const char* const text =
      "The path has too many rows with its ways into the material.\n\nNothing was placed.  A "
      "steeper Ramp Angle needs fewer.";
  EntryJob flat(EntryKind::Ramp, rectangle(0.7F, 0.7F));
  flat.store().cfg_entry_angle = 0.1F;
  flat.store().cfg_final_depth = 90;
  flat.store().cfg_z_cut_per_pass = 0;
  flat.expectRefusal(text);
  EntryJob full(EntryKind::Ramp);
  for (int row = 0; row < 32750; ++row) {
    addPathSegment(full.store(), {.type = kRapid, .x1 = 1, .z = 1, .code = pathCode(1, 0)});
  }
  EXPECT_TRUE(full.job.rough().empty());
  EXPECT_EQ(full.message(), text);
  EXPECT_EQ(full.store().NumPathSegments, 32750);
  EXPECT_TRUE(full.job.finish().empty());
  EXPECT_EQ(full.store().NumPathSegments, 32750);
}

TEST(Entry, BelongsToTheStepOfItsPath) {
  for (const PocketingStyle style : {PocketingStyle::Horizontal, PocketingStyle::ParallelSpiral}) {
    EntryJob job(EntryKind::Helix, rectangle(4, 3), style);
    job.job.rough();
    const std::vector<PathRow> rows = job.rows();
    Undo_Last_Change(job.job.context);
    EXPECT_EQ(job.store().NumPathSegments, 0);
    RedoLastChange(job.job.context);
    EXPECT_EQ(job.rows(), rows);
  }
}

// A finish path on ground that roughing has cleared goes straight down; in the solid it ramps.
TEST(Entry, OfAFinishPathIsWhereItBeginsInSolidMaterial) {
  EntryJob solid(EntryKind::Ramp);
  solid.job.finish();
  EXPECT_TRUE(solid.plunges().empty());
  EXPECT_LT(solid.rows().front().z, 0);
  EXPECT_GE(solid.rows().front().z, -0.01F);
  EntryJob cleared(EntryKind::Ramp);
  cleared.job.rough();
  const int before = cleared.store().NumPathSegments;
  cleared.job.finish();
  EXPECT_EQ(cleared.store().psz[before + 1], -0.2F);
  EXPECT_TRUE(cleared.plunges().empty());
}

// Lines without links: each is entered from the one before it, which has cleared the ground.
TEST(Entry, UnlinkedLinesBeginOnClearedGround) {
  EntryJob job(EntryKind::Ramp, rectangle(4, 3), PocketingStyle::Horizontal);
  job.store().cfg_connect_pocketing_paths = false;
  EntryJob plain(EntryKind::Plunge, rectangle(4, 3), PocketingStyle::Horizontal);
  plain.store().cfg_connect_pocketing_paths = false;
  job.job.rough();
  plain.job.rough();
  EXPECT_TRUE(job.plunges().empty());
  EXPECT_GT(plain.plunges().size(), 10U);
  const std::size_t added = job.rows().size() - plain.rows().size();
  EXPECT_LT(added, 2 * 45U);
}

}  // namespace
}  // namespace tess
