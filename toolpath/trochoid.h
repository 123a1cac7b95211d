// Loops of a trochoidal way: full circles that touch the way at a place and lie beside it, where
// there is room.
// Owns: TrochoidLoop, resized, LoopRoom.
#pragma once

#include <vector>

#include "toolpath/pocket_region.h"

namespace tess {

struct TrochoidLoop {
  PlanePoint start, center;
  int turn = 1;  // 1 counter-clockwise, with the centre on the left of the way; -1 clockwise

  double radius() const { return normOf(center - start); }
  // Two halves, from the start back to it; they set out the way that it touches.
  std::vector<Curve> curves() const;
};

// One that touches the way at the same place, so many times as large.
TrochoidLoop resized(const TrochoidLoop& loop, double factor);

// How large such loops may be.
class LoopRoom {
 public:
  // Loops keep `distance` from the walls and have `largest` as their radius at most, which is below
  // the distance: none goes round a wall.
  LoopRoom(const PocketRegion& region, double distance, double largest)
      : region_(&region), distance_(distance), largest_(largest) {}

  double largest() const { return largest_; }

  // The largest at a place of a way that runs along a direction of length 1, on the side that
  // `turn` tells. Its radius may be 0.
  TrochoidLoop loopAt(PlanePoint at, PlanePoint along, int turn) const;

 private:
  double radiusToward(PlanePoint at, PlanePoint side) const;
  bool fits(PlanePoint center, double radius) const;

  const PocketRegion* region_;
  double distance_, largest_;
};

}  // namespace tess
