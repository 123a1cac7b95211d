// Arcs whose centres lie almost, but not exactly, side by side.
//
// intersectArcs is off for such pairs: its radical line is taken as vertical or horizontal, or its
// intercept by half, and so it may find a crossing on one arc that is nowhere near the other. A
// search that must report the same crossings has to try these pairs, however far apart they are.
// Owns: CenterAxis, AlignedCenters.
#pragma once

#include <utility>
#include <vector>

#include "geometry/entity.h"

namespace tess {

// Which coordinate of the centres almost agrees.
enum class CenterAxis { SameX, SameY };

class AlignedCenters {
 public:
  // Element k of `entities` is row k + 1; only arcs count.
  AlignedCenters(const std::vector<Entity>& entities, CenterAxis axis);

  // Appends the arcs above row `after` that are so aligned with one about `center`.
  void collect(Point center, int after, std::vector<int>& rows) const;

 private:
  struct Place {
    float key = 0;    // the coordinate that almost agrees
    float other = 0;  // the one along which the centres lie apart
    int row = 0;
  };
  Place placeOf(Point center, int row) const;
  void collectEqualKeys(const Place& place, int after, std::vector<int>& rows) const;
  void collectAlmostEqualKeys(const Place& place, int after, std::vector<int>& rows) const;

  CenterAxis axis_;
  std::vector<Place> places_;  // by key, then by the other coordinate
  std::pair<float, float> otherRange_{0, 0};
};

}  // namespace tess
