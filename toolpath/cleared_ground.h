// What has been taken of the stock so far: how deep it is cleared below a tool, and what of a sweep
// is still there.
// Owns: GroundCut, ClearedGround.
#pragma once

#include <optional>
#include <vector>

#include "geometry/box_index.h"
#include "toolpath/swept_spans.h"

namespace tess {

// What is taken in one go: a row of a path, or a drilled hole. Without curves it takes nothing.
struct GroundCut {
  std::vector<Curve> curves;  // ways of the tool's centre
  double radius = 0;          // of the tool
  double z = 0;
};

// Cuts count from 1, in the order of cutting.
class ClearedGround {
 public:
  explicit ClearedGround(std::vector<GroundCut> cuts);

  // A place of a sweep that the cuts before cut `before` have not taken down to `z`, if there is
  // one. `effort` grows by the stretches that are looked at.
  std::optional<PlanePoint> untaken(const SweptCurve& swept, double z, int before,
                                    int& effort) const;

  // How deep all that lies below a tool at a place is taken, by the cuts before cut `before`; 0
  // where some of it is not taken at all.
  double depthBelow(PlanePoint at, double radius, int before, int& effort) const;

 private:
  std::vector<int> cutsNear(const SweptCurve& swept, int before) const;
  std::optional<PlanePoint> untakenBy(const std::vector<int>& cuts, const SweptCurve& swept,
                                      double z, int& effort) const;

  std::vector<GroundCut> cuts_;
  std::vector<int> ways_;  // of the cuts: equal numbers go the same way at the same radius
  BoxIndex index_;
};

}  // namespace tess
