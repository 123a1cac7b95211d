// Commands of the tool paths happen whole or not at all, wherever they fail, and whoever follows
// the changes of the drawing has the same tables after each.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/support/failure_of.h"
#include "tests/support/mirrored_tables.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/cycles.h"
#include "toolpath/finish_path.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/parallel_spiral.h"
#include "toolpath/path_placement.h"
#include "toolpath/path_visibility.h"
#include "toolpath/quick_place.h"
#include "toolpath/rough_pocket.h"
#include "toolpath/verification.h"

namespace tess {
namespace {

using testing::MirroredTables;
using testing::RecordedCam;
using testing::sameTables;

constexpr int kMaxRows = 32767;

// A pocket with an island, both verified, a selected circle beside them, and settings by which
// every command has several levels, links and leads.
struct Workpiece : RecordedCam {
  Workpiece() {
    addBox(-2, 2);
    mnuCAMVerifyAcceptPocket_Click(cam);
    addBox(-0.25F, 0.25F);
    mnuCAMVerifyAcceptIsland_Click(cam);
    add({.type = kCircle, .attr = 30008, .x0 = 4, .x1 = 4, .xc = 3.5F});
    collectSelectedRows();
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = 0.4F;
    store.cfg_min_z_finish = 0.02F;
    store.cfg_min_rough_clearance = 0.05F;
    store.cfg_pocket_dist_from_center = 0.5F;
    store.cfg_gouge_avoidance = true;
    store.cfg_connect_pocketing_paths = true;
    store.cfg_auto_place_finish_path = true;
    store.cfg_lead_in_path = true;
    store.cfg_lead_in_angle = 45;
    store.cfg_lead_in_length = 0.1F;
    resizeCycles(store, 1);
    store.NumCycles = 1;
    store.cycletext[0] = "G81";
    store.toolradius[0] = 0.1F;
    context.changelog.clear();
  }

  void addBox(float low, float high) {
    const Point corners[] = {{low, low}, {high, low}, {high, high}, {low, high}};
    for (std::size_t k = 0; k < 4; ++k) {
      const Point from = corners[k];
      const Point to = corners[(k + 1) % 4];
      add({.type = kLine, .attr = 30008, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y});
    }
  }
  void collectSelectedRows() {
    for (int sg = 1; sg <= store.NumSegments; ++sg) context.state.Selected.add(sg);
  }
  // So many path rows stand there already, shown or not.
  void fillPaths(int rows) {
    ensurePathCapacity(store, rows);
    store.NumPathSegments = rows;
  }
};

struct PlacingCommand {
  const char* name;
  void (*run)(Workpiece&);
  bool ofSelected = false;  // of the outline as it is selected, not verified
};

void select(Workpiece& d, const PlacingCommand& command) {
  if (!command.ofSelected) return;
  for (int sg = 1; sg <= 4; ++sg) d.store.segattr[sg] = 30008;
}

void rough(Workpiece& d, int style, bool lathe) {
  d.store.cfg_pocketing_style = style;
  d.store.cfg_lathe_style_pocketing = lathe;
  mnuCAMRoughCutPocket_Click(d.cam);
}

void placeFinishPath(Workpiece& d) {
  d.cam.PlaceChain = 1;
  d.cam.numFinishPasses = 2;
  arm(d.context, PendingAction::FinishStart);
  d.click(-2, -2);
  d.click(0, -2);
  d.click(0, 0);
}

const PlacingCommand kPlacing[] = {
    {"horizontal lines", [](Workpiece& d) { rough(d, 1, /*lathe=*/false); }},
    {"vertical lines", [](Workpiece& d) { rough(d, 2, /*lathe=*/false); }},
    {"lathe style", [](Workpiece& d) { rough(d, 1, /*lathe=*/true); }},
    {"spiral",
     [](Workpiece& d) {
       d.cam.roughFloor = roughingFloor(d.store);
       parallelSpiralPocket(d.cam, 1);
     }},
    {"finish path", placeFinishPath},
    {"quick place", [](Workpiece& d) { quickPlacePaths(d.cam); }, /*ofSelected=*/true},
    {"cycles", [](Workpiece& d) { placeCyclesAtSelectedCircles(d.cam, 0); }},
};

struct WholeCommand : ::testing::TestWithParam<PlacingCommand> {};

TEST_P(WholeCommand, LeavesNothingWhereverTheTableIsFull) {
  Workpiece whole;
  select(whole, GetParam());
  GetParam().run(whole);
  const int placed = whole.store.NumPathSegments;
  ASSERT_GT(placed, 0);
  for (int cases = 0; cases < 6; ++cases) {
    const int room = placed * cases / 6;
    SCOPED_TRACE(::testing::Message() << "room for " << room << " of " << placed);
    Workpiece d;
    select(d, GetParam());
    d.fillPaths(kMaxRows - room);
    d.store.currentpathgroup = 7;
    d.store.lastplacedgroup = 5;
    d.store.drawingsaved = true;
    const DrawingStore before = d.store;
    const auto selected = d.context.state.Selected.rows();
    EXPECT_EQ(testing::numberOfFailure([&] { GetParam().run(d); }), FailureNumber::Overflow);
    EXPECT_TRUE(sameTables(d.store, before));
    EXPECT_EQ(d.store.currentpathgroup, 7);
    EXPECT_EQ(d.store.lastplacedgroup, 5);
    EXPECT_EQ(d.store.toolradius[0], 0.1F);
    EXPECT_EQ(d.store.cfg_cutting_mode, before.cfg_cutting_mode);
    EXPECT_TRUE(d.store.drawingsaved);
    EXPECT_EQ(d.context.state.Selected.rows(), selected);
    EXPECT_FALSE(d.context.changelog.canUndo());
    EXPECT_TRUE(isConsistent(d.store));
    EXPECT_EQ(d.pointer.MousePointer(), kDefaultShape);
  }
}

TEST_P(WholeCommand, CanBeFollowedThereAndBack) {
  Workpiece d;
  select(d, GetParam());
  const MirroredTables journal(d.context.changes);
  GetParam().run(d);
  GetParam().run(d);
  EXPECT_TRUE(journal.isExact());
  while (d.context.changelog.canUndo()) {
    Undo_Last_Change(d.context);
    ASSERT_TRUE(journal.isExact());
  }
  while (d.context.changelog.canRedo()) {
    RedoLastChange(d.context);
    ASSERT_TRUE(journal.isExact());
  }
  EXPECT_EQ(journal.rewritings, 0);
}

INSTANTIATE_TEST_SUITE_P(Placing, WholeCommand, ::testing::ValuesIn(kPlacing),
                         [](const auto& command) {
                           std::string name = command.param.name;
                           std::replace(name.begin(), name.end(), ' ', '_');
                           return name;
                         });

TEST(FollowedCommands, UnloggedOnesCanBeFollowedToo) {
  Workpiece d;
  rough(d, 1, /*lathe=*/false);
  d.addLine(0, 0, 1.0000049F, 0);
  d.addLine(0, 0, 1.0000049F, 0);
  const MirroredTables journal(d.context.changes);
  const std::pair<const char*, void (*)(CamContext&)> commands[] = {
      {"invisible", miInvisible_Click},
      {"visible", miVisible_Click},
      {"gouge avoidance", miGougeAvoidance_Click},
      {"rounding", mnuCAMPlace1PathSeg_Click},
      {"verification", mnuCAMVerifyAcceptPocket_Click},
      {"undo of the last placement", mnuCAMUndoLastPlace_Click},
      {"spiral", [](CamContext& cam) { parallelSpiralPocket(cam, 1); }},
      {"reversing", [](CamContext& cam) { reversePathSegment(cam, 1); }},
      {"clearing", mnuClearAllPaths_Click},
  };
  for (const auto& [name, run] : commands) {
    const int heard = journal.changesHeard;
    run(d.cam);
    EXPECT_TRUE(journal.isExact()) << name;
    const bool changesNothing = std::string_view(name) == "gouge avoidance";
    EXPECT_EQ(journal.changesHeard > heard, !changesNothing) << name;
  }
  EXPECT_EQ(journal.rewritings, 0);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

}  // namespace
}  // namespace tess
