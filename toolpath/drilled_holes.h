// Holes that the machine cycles of a path drill.
// Owns: DrilledHole, drilledHole.
#pragma once

#include <optional>

#include "geometry/plane.h"

namespace tess {

struct DrawingStore;

struct DrilledHole {
  PlanePoint at;
  double radius = 0;  // of its tool
  double z = 0;       // of its bottom
};

// What path row `ps` drills; nothing for another row, and none of a tool without a radius.
std::optional<DrilledHole> drilledHole(const DrawingStore& store, int ps);

}  // namespace tess
