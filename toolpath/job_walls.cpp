// Walls of jobs.
#include "toolpath/job_walls.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "geometry/row_entity.h"
#include "toolpath/connected_rows.h"

namespace tess {
namespace {

PocketRegion verifiedRegion(const DrawingStore& store) {
  std::vector<int> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kVerifiedRow) rows.push_back(sg);
  }
  return regionOf(segmentEntities(store, rows), store.cfg_tolerance).region;
}

JobWalls chainAlone(const std::vector<Entity>& rows) {
  JobWalls walls{.loops = {{}}, .isClosed = false};
  for (const Entity& row : rows) appendCurves(row, walls.loops.front());
  return walls;
}

}  // namespace

JobWalls wallsOf(const PocketRegion& region) {
  JobWalls walls;
  for (const RegionLoop& loop : region.loops()) walls.loops.push_back(loop.curves);
  walls.isUnbounded = region.traits().unbounded;
  return walls;
}

JobWalls wallsToClear(const DrawingStore& store) {
  return wallsOf(verifiedRegion(store));
}

JobWalls wallsBeside(const DrawingStore& store, int sg, Point click) {
  const PlanePoint at{click.x, click.y};
  if (store.segattr[sg] == kVerifiedRow) {
    const PocketRegion verified = verifiedRegion(store);
    if (verified.isFree(at)) return wallsOf(verified);
  }
  const std::vector<Entity> rows = segmentEntities(store, rowsConnectedTo(store, sg));
  const OutlineRegion inside = regionOf(rows, store.cfg_tolerance);
  if (inside.fault || inside.region.isEmpty()) return chainAlone(rows);
  if (inside.region.isFree(at)) return wallsOf(inside.region);
  return wallsOf(regionOf(rows, store.cfg_tolerance, /*outside=*/true).region);
}

// A clearance below 0 asks for no more than the wall.
void noteRoughing(CamContext& cam) {
  const DrawingStore& store = cam.store;
  const bool turns =
      pocketingStyle(store) == PocketingStyle::Horizontal && store.cfg_lathe_style_pocketing;
  const double radius = turns ? 0 : static_cast<double>(store.toolradius[store.selectedtool]);
  const double clearance = std::max(0.0F, float{store.cfg_min_rough_clearance});
  noteJob(cam, turns ? JobKind::Lathe : JobKind::Clearing, radius + clearance, wallsToClear(store));
}

}  // namespace tess
