// Arcs whose centres lie at almost, but not exactly, the same height.
//
// intersectArcs is off for such pairs: it halves the intercept of their radical line, as if the
// centres had the same height, or doubles it where they have and are near one another. So it may
// find a crossing on one arc that is nowhere near the other. A search that must report the same
// crossings has to try these pairs, however far apart they are.
// Owns: kSteepestRegular, AlignedCenters.
#pragma once

#include <vector>

#include "geometry/entity.h"

namespace tess {

// Pairs whose radical line is steeper than this are listed here, well before kSteepSlope: short of
// that the line is right, but so steep that its hits are coarse.
inline constexpr double kSteepestRegular = 1e4;

class AlignedCenters {
 public:
  // Element k of `entities` is row k + 1; only arcs count.
  explicit AlignedCenters(const std::vector<Entity>& entities);

  // Appends the arcs above row `after` that are so aligned with one about `center`.
  void collect(Point center, int after, std::vector<int>& rows) const;

 private:
  struct Place {
    float y = 0, x = 0;
    int row = 0;
  };
  void collectAtHeight(Point center, int after, std::vector<int>& rows) const;
  void collectAtAlmostHeight(Point center, int after, std::vector<int>& rows) const;

  std::vector<Place> places_;  // by height, then from left to right
  float leftmost_ = 0, rightmost_ = 0;
};

}  // namespace tess
