// What a tool has taken so far of a flat piece of stock, while its path is being made.
// Owns: TakenGround.
#pragma once

#include <vector>

#include "geometry/box_index.h"
#include "toolpath/swept_spans.h"

namespace tess {

class TakenGround {
 public:
  explicit TakenGround(std::vector<SweptCurve> taken);

  void add(const SweptCurve& swept);
  void add(const std::vector<Curve>& ways, double radius);

  // All that comes within `reach` of a place, and some that does not, in the order of cutting.
  std::vector<SweptCurve> near(PlanePoint at, double reach) const;

  // True when nothing is left below a tool.
  bool isCleared(PlanePoint at, double radius) const;

  // The cuts of which the ways come within `reach` of a place, the nearest first, without those of
  // smaller tools: on these ways nothing is left below a tool.
  std::vector<SweptCurve> cutsNear(PlanePoint at, double radius, double reach) const;

 private:
  std::vector<SweptCurve> taken_;
  BoxIndex index_;
};

}  // namespace tess
