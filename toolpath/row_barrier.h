// Some drawing rows as a barrier: does a path meet any of them?
// Owns: RowBarrier.
#pragma once

#include <vector>

#include "geometry/crossing_index.h"

namespace tess {

// Holds the rows as they are when it is made.
class RowBarrier {
 public:
  // The drawing rows whose attribute `isWall` accepts. Questions about lines farther out than all
  // of them are fast up to `magnitude`, as with CrossingIndex.
  RowBarrier(const DrawingStore& store, bool (*isWall)(int segattr), double magnitude = 0);

  // True when intersectEntities finds a crossing of `entity` with one of the rows.
  bool meets(const Entity& entity);

 private:
  float tolerence_;
  std::vector<Entity> walls_;
  CrossingIndex index_;
  std::vector<int> found_;
};

}  // namespace tess
