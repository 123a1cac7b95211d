// The rows of the drawing that a finish path follows.
// Owns: FinishChain, chainFrom.
#pragma once

#include <vector>

#include "core/drawing_store.h"
#include "geometry/entity.h"

namespace tess {

struct FinishChain {
  std::vector<int> rows;          // of the drawing
  std::vector<Entity> travelled;  // the same as the walk runs along them
  bool closed = false;
};

// The chain that begins with row `sg` at one of its ends: as the operator's clicks lead along it,
// or else the closed outline that the row is one of, of which only the first row is travelled then.
FinishChain chainFrom(const DrawingStore& store, int sg, Point start);

}  // namespace tess
