// Quick Place: paths on the profile itself, for everything that is selected.
#include "toolpath/quick_place.h"

#include <cmath>

#include "core/drawing_store.h"
#include "display/pointer.h"
#include "geometry/row_entity.h"
#include "toolpath/chain_walk.h"
#include "toolpath/contour_offset.h"
#include "toolpath/job_notes.h"
#include "toolpath/level_check.h"
#include "toolpath/path_placement.h"
#include "toolpath/placed_outlines.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

OffsetRequest requestFor(const DrawingStore& store, int sg, float z, ChainWalk& rows) {
  const Entity row = segmentEntity(store, sg);
  return {.sg = sg,
          .start = row.start,
          .direction = row.end,
          .click = {},
          .z = z,
          .feed = store.cfg_finish_feedrate,
          .chain = true,
          .exactMode = true,
          .rows = &rows};
}

// A chain is placed whole by its lowest row; its other rows then have a path on them. All chains
// are one step of the log.
void placeSelectedChains(CamContext& cam, float z) {
  const DrawingStore& store = cam.store;
  PlacedOutlines placed(store);
  ChainWalk rows(store);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] != kSelectedRow || placed.covers(segmentEntity(store, sg))) continue;
    Placement placement(cam, Step::Continued);
    placePathChain(cam, requestFor(store, sg, z, rows), placement);
    placement.keep();
    const PlacedRows added = placement.rows();
    for (int ps = added.first; ps <= added.last; ++ps) placed.add(pathEntity(store, ps));
  }
}

}  // namespace

void quickPlacePaths(CamContext& cam) {
  const Procedure here("frmMain.quickPlacePaths()");
  DrawingStore& store = cam.store;
  const float floor = roughingFloor(store);
  const float z = firstLevel(store, floor);
  const bool several = -std::abs(store.cfg_start_depth) >= floor;
  if (several && !canGoDown(cam, "Quick Place", z, floor)) return;
  const BusyPointer busy(cam.context.systemPointer);
  Change change(cam.changes);
  store.currentpathgroup = nextPathGroup(store);
  const int rowsBefore = store.NumPathSegments;
  if (several) {
    placeSelectedChains(cam, z);
    replicateLevels(cam, z, floor, rowsBefore);
  } else {
    placeSelectedChains(cam, -std::abs(store.cfg_final_depth));
  }
  change.keep({.redraws = false});
  noteJob(cam, JobKind::OnTheLine, 0);
  showPlacedPaths(cam);
}

// ---- Descriptors

constexpr CamCommand kQuickPlaceCommand{
    .info = {.tool = "miQuickPlace", .caption = "&Quick Place", .menu = {"miCAM", 260}},
    .run = quickPlacePaths,
};

}  // namespace tess
