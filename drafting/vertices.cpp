// How many rows end at a point.
#include "drafting/vertices.h"

#include "core/drawing_store.h"
#include "geometry/entity.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

bool endsAt(const Entity& row, Point at, float tolerence) {
  return samePoint(row.start, at, tolerence) || samePoint(row.end, at, tolerence);
}

}  // namespace

int linesEndingAt(const DrawingStore& store, Point at) {
  int count = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segtype[sg] != kLine) continue;
    if (endsAt(segmentEntity(store, sg), at, store.cfg_tolerance)) ++count;
  }
  return count;
}

int pathsEndingAt(const DrawingStore& store, Point at) {
  int count = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const int type = store.pstype[ps];
    if (!store.psvisible[ps] || (type != kLine && !isArc(type))) continue;
    if (endsAt(pathEntity(store, ps), at, store.cfg_tolerance)) ++count;
  }
  return count;
}

}  // namespace tess
