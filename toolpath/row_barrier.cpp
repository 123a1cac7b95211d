// Some drawing rows as a barrier.
#include "toolpath/row_barrier.h"

#include <algorithm>

#include "geometry/intersections.h"

namespace tess {
namespace {

std::vector<Entity> wallsOf(const DrawingStore& store, bool (*isWall)(int segattr)) {
  std::vector<Entity> walls;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (isWall(store.segattr[sg])) walls.push_back(segmentEntity(store, sg));
  }
  return walls;
}

}  // namespace

RowBarrier::RowBarrier(const DrawingStore& store, bool (*isWall)(int segattr), double magnitude)
    : tolerence_(store.cfg_tolerance),
      walls_(wallsOf(store, isWall)),
      index_(walls_, tolerence_, magnitude) {}

bool RowBarrier::meets(const Entity& entity) {
  if (walls_.empty()) return false;
  index_.candidates(entity, /*after=*/0, found_);
  return std::any_of(found_.begin(), found_.end(), [&](int row) {
    PointPair at;
    const Entity& wall = walls_[static_cast<std::size_t>(row) - 1];
    return intersectEntities(entity, wall, tolerence_, at) > 0;
  });
}

}  // namespace tess
