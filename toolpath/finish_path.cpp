// The finish path. Passes run from the outermost to the finished size, each with its levels.
#include "toolpath/finish_path.h"

#include <cmath>
#include <optional>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "display/pointer.h"
#include "drafting/pending_actions.h"
#include "drafting/row_edits.h"
#include "geometry/float_nearest.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"
#include "toolpath/contour_offset.h"
#include "toolpath/frmFinishPath.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/job_walls.h"
#include "toolpath/lead_gouge.h"
#include "toolpath/level_check.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_placement.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/true_finish.h"

namespace tess {
namespace {

Point clickOf(const CamContext& cam) {
  return {cam.context.pointer.MouseX, cam.context.pointer.MouseY};
}

void beep(CamContext& cam) {
  cam.context.session.host.surroundings.beep();
}

// ---- The passes

// Fixed: an arc lead alone is not checked; no question comes up for it.
bool checksLeads(const CamContext& cam) {
  const DrawingStore& store = cam.store;
  return cam.PlaceChain != 0 && store.cfg_lead_in_path && store.cfg_lead_in_angle >= 1 &&
         store.cfg_lead_in_length > 0;
}

void offerShorterLeads(CamContext& cam, const PlacedRows& rows) {
  const std::optional<float> length = checkLeadGouge(cam.store, rows.first, rows.last);
  if (!length) return;
  const Answer answer = cam.context.session.host.prompts.showMessage(leadQuestion(*length));
  if (answer != Answer::Yes) return;
  fitLeadLength(cam.changes, rows.first, *length, LeadEnd::Start);
  fitLeadLength(cam.changes, rows.last, *length, LeadEnd::End);
}

// Where the rows of all passes have come: those of the outlines as one block, copies at the end.
class AddedRows {
 public:
  explicit AddedRows(const CamContext& cam)
      : first_(pathInsertIndex(cam.store, cam.pathInsertMode, cam.pathInsertGroup)),
        rowsBefore_(cam.store.NumPathSegments) {}

  void placed(const PlacedRows& rows) { placed_ += rows.last - rows.first + 1; }

  void connect(CamContext& cam) const {
    connectPlacedRows(cam, {first_, first_ + placed_ - 1}, rowsBefore_);
  }

 private:
  int first_;
  int rowsBefore_;
  int placed_ = 0;
};

struct PassRequest {
  OffsetRequest offset;
  float floor = 0;       // the deepest level of several
  bool several = false;  // levels
};

void notePass(CamContext& cam, const OffsetRequest& pass, Side side) {
  if (side == Side::On) {
    noteJob(cam, JobKind::OnTheLine, 0);
  } else {
    noteJob(cam, JobKind::Contour, pass.radius, wallsBeside(cam.store, pass.sg, pass.click));
  }
}

void placePass(CamContext& cam, const PassRequest& pass, AddedRows& added) {
  const int rowsBefore = cam.store.NumPathSegments;
  Placement placement(cam);
  const Side side = placePathChain(cam, pass.offset, placement);
  if (cam.store.cfg_gouge_avoidance && !placement.rows().empty()) {
    if (pass.several && checksLeads(cam)) offerShorterLeads(cam, placement.rows());
    removeSelfIntersections(cam, placement.first(), ChainKind::Path);
  }
  placement.keep();
  added.placed(placement.rows());
  if (pass.several) replicateLevels(cam, pass.offset.z, pass.floor, rowsBefore);
  notePass(cam, pass.offset, side);
}

// Fixed: the first level runs at the finishing feed, copies at the roughing one; programs do.
PassRequest passRequest(const CamContext& cam) {
  const DrawingStore& store = cam.store;
  PassRequest pass;
  pass.floor = roughingFloor(store);
  pass.several = -std::abs(store.cfg_start_depth) >= pass.floor;
  pass.offset = {
      .sg = cam.finishSegment,
      .start = cam.finishStart,
      .direction = cam.finishDirection,
      .click = clickOf(cam),
      .z = pass.several ? firstLevel(store, pass.floor) : -std::abs(store.cfg_final_depth),
      .feed = store.cfg_finish_feedrate,
      .chain = cam.PlaceChain != 0};
  return pass;
}

bool levelsArePossible(CamContext& cam, const PassRequest& pass) {
  const bool chain = cam.PlaceChain != 0;
  return !pass.several || cam.numFinishPasses < 1 ||
         canGoDown(cam, chain ? "Place Finish Path" : "Place One Path Segment", pass.offset.z,
                   pass.floor);
}

// A path on the profile itself is no matter of walls.
bool goesByWalls(const CamContext& cam, const PassRequest& pass) {
  return cam.store.cfg_true_paths && cam.PlaceChain != 0 &&
         !isOnProfile(cam, pass.offset.sg, pass.offset.click);
}

void placeFinishPath(CamContext& cam) {
  PassRequest pass = passRequest(cam);
  if (goesByWalls(cam, pass)) {
    placeTrueFinish(cam, {cam.finishSegment, cam.finishStart, pass.offset.click,
                          static_cast<int>(cam.numFinishPasses)});
    return;
  }
  if (!levelsArePossible(cam, pass)) return;
  const BusyPointer busy(cam.context.systemPointer);
  Change change(cam.changes);
  AddedRows added(cam);
  for (int number = cam.numFinishPasses; number >= 1; --number) {
    pass.offset.radius = passDistance(cam.store, number);
    placePass(cam, pass, added);
  }
  if (cam.store.cfg_connect_pocketing_paths) added.connect(cam);
  change.keep({.redraws = false});
  showPlacedPaths(cam);
}

// ---- The clicks

void clickStart(CamContext& cam) {
  const std::optional<Point> start = nearestSegEndpoint(cam.store, clickOf(cam));
  if (!start) return;
  cam.finishStart = *start;
  cam.context.state.setPendingaction(goOnWith(PendingAction::FinishDirection));
}

// Of the rows with an end at the start, the nearest to the place; 0 without any.
int rowFromStart(const CamContext& cam, Point toward) {
  const DrawingStore& store = cam.store;
  int best = 0;
  float least = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Entity row = segmentEntity(store, sg);
    if (!samePoint(row.start, cam.finishStart, store.cfg_tolerance) &&
        !samePoint(row.end, cam.finishStart, store.cfg_tolerance)) {
      continue;
    }
    const float away =
        distance(nearestOnSeg(store, sg, toward).found().value_or(cam.finishStart), toward);
    if (best != 0 && away >= least) continue;
    best = sg;
    least = away;
  }
  return best;
}

// The true rules look at the rows that leave the start.
// Fixed: the others take the nearest row of all; a click beside the chain leads along another one.
int rowToward(const CamContext& cam, Point toward) {
  const int leaving =
      cam.store.cfg_true_paths && cam.PlaceChain != 0 ? rowFromStart(cam, toward) : 0;
  return leaving != 0 ? leaving : nearestSeg(cam.store, toward);
}

// The row is the one that leaves the start toward the click.
void clickDirection(CamContext& cam) {
  const Point click = clickOf(cam);
  const auto toward = [](double start, double to) { return narrow((9 * start + to) / 10); };
  const int sg =
      rowToward(cam, {toward(cam.finishStart.x, click.x), toward(cam.finishStart.y, click.y)});
  if (sg == 0) {
    beep(cam);
    cam.context.state.setPendingaction(goOnWith(PendingAction::FinishDirection));
    return;
  }
  cam.finishSegment = sg;
  cam.finishDirection = nearestOnSeg(cam.store, sg, click).found().value_or(cam.finishStart);
  cam.context.state.setPendingaction(goOnWith(PendingAction::FinishReference));
}

void clickReference(CamContext& cam) {
  if (samePoint(cam.finishStart, cam.finishDirection, cam.store.cfg_tolerance)) {
    beep(cam);
    return;
  }
  placeFinishPath(cam);
}

void repeatPlacement(CamContext& cam) {
  cam.PlaceChain != 0 ? mnuCAMPlaceFinishPath_Click(cam) : mnuCAMPlace1PathSeg_Click(cam);
}

}  // namespace

void mnuCAMPlaceFinishPath_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMPlaceFinishPath_Click()");
  cam.PlaceChain = 1;
  roundRows(cam.changes);
  frmFinishPath options(cam);
  cam.context.session.host.prompts.showModal(options);
  arm(cam.context, PendingAction::FinishStart);
}

// ---- Descriptors

namespace {

constexpr Action<CamContext> kPlaceFinishPathActions[] = {
    {{.action = PendingAction::FinishStart,
      .prompt = "Click near start point.",
      .snaps = false,
      .left = "start of the path, near an end of a row"},
     clickStart},
    {{.action = PendingAction::FinishDirection,
      .prompt = "Click to indicate direction.",
      .snaps = false,
      .left = "the way to go from there (climb milling: part on the right)"},
     clickDirection},
    {{.action = PendingAction::FinishReference,
      .prompt = "Click to indicate finish reference.",
      .snaps = false,
      .left = "the side on which the cutter runs"},
     clickReference},
};

}  // namespace

constexpr CamCommand kPlaceFinishPathCommand{
    .info = {.tool = "miPlaceFinishPath",
             .caption = "Place &Finish Path...",
             .menu = {"miCAM", 240},
             .bar = {"barCAM", 240}},
    .run = mnuCAMPlaceFinishPath_Click,
    .actions = kPlaceFinishPathActions,
    .repeat = {{PendingAction::FinishStart}, repeatPlacement},
};

}  // namespace tess
