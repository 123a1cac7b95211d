// Which drawing rows have a path on them already.
#include "toolpath/placed_outlines.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"
#include "toolpath/path_placement.h"

namespace tess {
namespace {

bool isSameKind(const Entity& segment, const Entity& path) {
  return segment.type == path.type || (isArc(segment.type) && isArc(path.type));
}

bool liesOn(const Entity& path, const Entity& segment, float tolerence) {
  const auto meet = [tolerence](Point a, Point b) { return pointsWithin(a, b, tolerence); };
  const bool along = meet(segment.start, path.start) && meet(segment.end, path.end);
  const bool against = meet(segment.start, path.end) && meet(segment.end, path.start);
  return isSameKind(segment, path) && (along || against) && meet(segment.center, path.center);
}

}  // namespace

PlacedOutlines::PlacedOutlines(const DrawingStore& store)
    : tolerence_(store.cfg_tolerance), paths_(pathEntities(store)), ends_(pathEndIndex(store)) {}

void PlacedOutlines::add(const Entity& path) {
  paths_.push_back(path);
  ends_.update(static_cast<int>(paths_.size()), path.start, path.end);
}

bool PlacedOutlines::covers(const Entity& segment) const {
  std::vector<EndMatch> touching;
  ends_.rowsAt(segment.start, touching);
  return std::any_of(touching.begin(), touching.end(), [&](const EndMatch& match) {
    return liesOn(paths_[static_cast<std::size_t>(match.row) - 1], segment, tolerence_);
  });
}

bool pathRowExistsFor(const DrawingStore& store, int sg) {
  const Entity segment = segmentEntity(store, sg);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (liesOn(pathEntity(store, ps), segment, store.cfg_tolerance)) return true;
  }
  return false;
}

}  // namespace tess
