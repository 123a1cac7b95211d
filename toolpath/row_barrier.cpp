// Some drawing rows as a barrier.
#include "toolpath/row_barrier.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/float_intersections.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"

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

RowBarrier::RowBarrier(const DrawingStore& store, bool (*isWall)(int segattr))
    : tolerence_(store.cfg_tolerance), walls_(wallsOf(store, isWall)), index_(walls_, tolerence_) {}

void RowBarrier::makeReadyFor(const std::vector<Entity>& entities) {
  if (walls_.empty()) return;
  double magnitude = magnitude_;
  double radius = radius_;
  for (const Entity& entity : entities) {
    magnitude = std::max(magnitude, magnitudeOf(entity));
    if (isArc(entity.type)) radius = std::max(radius, double{radiusOf(entity)});
  }
  if (magnitude == magnitude_ && radius == radius_) return;
  magnitude_ = magnitude;
  radius_ = radius;
  index_ = CrossingIndex(walls_, tolerence_, magnitude_, radius_);
}

bool RowBarrier::meets(const Entity& entity) {
  if (walls_.empty()) return false;
  index_.candidates(entity, /*after=*/0, found_);
  return std::any_of(found_.begin(), found_.end(), [&](int row) {
    const Entity& wall = walls_[static_cast<std::size_t>(row) - 1];
    return static_cast<bool>(intersectEntities(entity, wall, tolerence_));
  });
}

}  // namespace tess
