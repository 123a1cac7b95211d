// Rough pocketing: one level is cut, deeper ones are copies of it.
#include "toolpath/rough_pocket.h"

#include <cmath>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/pending_actions.h"
#include "drafting/row_edits.h"
#include "geometry/row_entity.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/job_walls.h"
#include "toolpath/level_check.h"
#include "toolpath/outline_corners.h"
#include "toolpath/parallel_spiral.h"
#include "toolpath/path_placement.h"
#include "toolpath/scan_lathe.h"
#include "toolpath/scan_lines.h"
#include "toolpath/scan_run.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/true_pocket.h"
#include "toolpath/verification_result.h"
#include "toolpath/working_outlines.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

bool isLatheStyle(const DrawingStore& store) {
  return pocketingStyle(store) == PocketingStyle::Horizontal && store.cfg_lathe_style_pocketing;
}

// ---- Working outlines

// An outline whose first row has no direction is put aside without a working outline: it would come
// up as the lowest one for ever.
void offsetOutline(CamContext& cam, ChainWalk& rows, const OutlineOffset& request) {
  Change change(cam.changes, Step::Continued);
  offsetSegChain(cam, rows, request);
  const int state = cam.store.segattr[request.sg];
  if (isSelected(state)) change.segments.mark(request.sg, parkedState(state));
  change.keep({.redraws = false});
}

bool offsetPocket(CamContext& cam, ChainWalk& rows, float standOff) {
  const auto corner = pocketCorner(cam.store);
  if (!corner) return false;
  const auto guide = guideAt(cam.store, rows, *corner);
  if (!guide) return false;
  const Point start = segmentEntity(cam.store, corner->sg).start;
  offsetOutline(cam, rows,
                {corner->sg, start, guide->direction, guide->reference, kPocketOutline, standOff});
  return true;
}

// The corner's inside is island: the tool stays on the mirrored side.
bool offsetIslands(CamContext& cam, ChainWalk& rows, float standOff) {
  for (const OutlineCorner& corner : islandCorners(cam.store)) {
    if (!isSelected(cam.store.segattr[corner.sg])) continue;
    const auto guide = guideAt(cam.store, rows, corner);
    if (!guide) return false;
    const Point start = segmentEntity(cam.store, corner.sg).start;
    const Point outside = mirroredOut(cam.store, corner.sg, guide->reference);
    offsetOutline(cam, rows,
                  {corner.sg, start, guide->direction, outside, kIslandOutline, standOff});
  }
  return true;
}

bool makeWorkingOutlines(CamContext& cam, float standOff) {
  ChainWalk rows(cam.store);
  return offsetPocket(cam, rows, standOff) && offsetIslands(cam, rows, standOff);
}

Clearing runStyle(CamContext& cam, float z, float feed) {
  if (pocketingStyle(cam.store) == PocketingStyle::Vertical) {
    return scanPocketVertical(cam, z, feed);
  }
  if (isLatheStyle(cam.store)) return scanPocketLathe(cam, feed);
  return scanPocketHorizontal(cam, z, feed);
}

// ---- Levels

// Fixed: the clearance alone stands off, at one level; lathe programs are the drawing itself.
void cutLathe(CamContext& cam) {
  roughCutLevel(cam, /*z=*/0, cam.store.cfg_finish_feedrate, /*radius=*/0);
}

// Fixed: equal heights are several levels here, one level in the spiral; programs of both differ.
bool hasLevels(const CamContext& cam) {
  return -std::abs(cam.store.cfg_start_depth) >= cam.roughFloor;
}

bool levelsArePossible(CamContext& cam) {
  if (isLatheStyle(cam.store) || !hasLevels(cam)) return true;
  return canGoDown(cam, "Rough Cut Pocket", firstLevel(cam.store, cam.roughFloor), cam.roughFloor);
}

void cutLevels(CamContext& cam, int rowsBefore) {
  const DrawingStore& store = cam.store;
  const float radius = store.toolradius[store.selectedtool];
  if (!hasLevels(cam)) {
    cam.currentZ = -std::abs(store.cfg_final_depth);
    roughCutLevel(cam, cam.currentZ, store.cfg_finish_feedrate, radius);
    return;
  }
  cam.currentZ = firstLevel(store, cam.roughFloor);
  const Clearing first = roughCutLevel(cam, cam.currentZ, store.cfg_rough_feedrate, radius);
  if (first == Clearing::NothingToCut) return;
  cam.currentZ = replicateLevels(cam, cam.currentZ, cam.roughFloor, rowsBefore);
}

// Links are made while the islands' working rows are there to be seen.
void roughPocket(CamContext& cam) {
  Change change(cam.changes);
  const int rowsBefore = cam.store.NumPathSegments;
  isLatheStyle(cam.store) ? cutLathe(cam) : cutLevels(cam, rowsBefore);
  showPlacedPaths(cam);
  const bool placed = cam.store.NumPathSegments > rowsBefore;
  if (cam.store.cfg_connect_pocketing_paths && placed) {
    connectPathSegs(cam, rowsBefore + 1, cam.store.NumPathSegments);
  }
  removeWorkingRows(cam.changes);
  cam.context.redraw.redrawscreen();
  restoreParkedRows(cam.changes);
  change.keep({.redraws = false});
  if (placed) noteRoughing(cam);
}

}  // namespace

Clearing roughCutLevel(CamContext& cam, float z, float feed, float radius) {
  const Procedure here("roughCutLevel(z,feed,radius)");
  const float standOff = narrow(static_cast<double>(cam.store.cfg_min_rough_clearance) + radius);
  const int firstWorkingRow = cam.store.NumSegments + 1;
  Change change(cam.changes, Step::Continued);
  if (!makeWorkingOutlines(cam, standOff)) {
    cam.context.session.results.tell(nothingToRough());
    cam.context.session.host.prompts.showMessage(
        {.text = "No segments selected!", .title = "", .icon = MessageIcon::Warning});
    change.keep({.redraws = false});
    return Clearing::NothingToCut;
  }
  if (cam.store.cfg_gouge_avoidance) {
    removeSelfIntersections(cam, firstWorkingRow, ChainKind::Segs);
  }
  cam.context.redraw.redrawscreen();
  const Clearing result = runStyle(cam, z, feed);
  change.keep({.redraws = false});
  return result;
}

void mnuCAMRoughCutPocket_Click(CamContext& cam) {
  const Procedure here("mnuCAMRoughCutPocket_Click()");
  roundRows(cam.changes);
  cam.roughFloor = roughingFloor(cam.store);
  if (pocketingStyle(cam.store) == PocketingStyle::ParallelSpiral) {
    arm(cam.context, PendingAction::StartRoughing);
  } else if (cam.store.cfg_true_paths) {
    const int rowsBefore = cam.store.NumPathSegments;
    roughTruePocket(cam);
    if (cam.store.NumPathSegments > rowsBefore) noteRoughing(cam);
  } else if (levelsArePossible(cam)) {
    roughPocket(cam);
  }
}

// ---- Descriptors

namespace {

constexpr Action<CamContext> kRoughCutPocketActions[] = {
    {{.action = PendingAction::StartRoughing,
      .prompt = "Click near starting Path Segment.  ",
      .left = "clears the pocket from the outline nearest to it"},
     clickStartRoughing},
};

}  // namespace

constexpr CamCommand kRoughCutPocketCommand{
    .info = {.tool = "miRoughCutPocket",
             .caption = "&Rough Cut Pocket",
             .menu = {"miCAM", 230},
             .bar = {"barCAM", 230}},
    .run = mnuCAMRoughCutPocket_Click,
    .actions = kRoughCutPocketActions,
};

}  // namespace tess
