// Some drawing rows as a barrier: does a path meet any of them?
// Owns: RowBarrier.
#pragma once

#include <vector>

#include "geometry/crossing_index.h"

namespace tess {

// Holds the rows as they are when it is made.
class RowBarrier {
 public:
  // The drawing rows whose attribute `isWall` accepts.
  RowBarrier(const DrawingStore& store, bool (*isWall)(int segattr));

  // Makes questions fast for entities that lie no farther out than any of these and have no larger
  // radius. The answers are the same without.
  void makeReadyFor(const std::vector<Entity>& entities);

  // True when intersectEntities finds a crossing of `entity` with one of the rows.
  bool meets(const Entity& entity);

 private:
  float tolerence_;
  std::vector<Entity> walls_;
  double magnitude_ = 0, radius_ = 0;  // of what the index is ready for beyond the rows
  CrossingIndex index_;
  std::vector<int> found_;
};

}  // namespace tess
