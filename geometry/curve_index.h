// Lines and arcs by their boxes: which of many are near a curve, without looking at all of them.
// Owns: NearCurve, CurveIndex.
#pragma once

#include <optional>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/curve_distance.h"

namespace tess {

// Curve `index` of an index, and its gap from the curve asked about, which comes first in it.
struct NearCurve {
  int index = 0;
  CurveGap gap;
};

// Curves count from 0.
class CurveIndex {
 public:
  explicit CurveIndex(std::vector<Curve> curves = {});

  const std::vector<Curve>& curves() const { return curves_; }

  // All curves within `distance` of the curve, and some that are not, ascending. Replaces the
  // contents of `found`.
  void candidates(const Curve& curve, double distance, std::vector<int>& found) const;
  void candidates(const Box& box, double distance, std::vector<int>& found) const;

  const Box& box(int curve) const { return boxes_.box(curve + 1); }

  // The nearest of those no farther than `distance`, the lowest of several.
  std::optional<NearCurve> nearest(const Curve& curve, double distance) const;

 private:
  std::vector<Curve> curves_;
  BoxIndex boxes_;  // row k + 1 is curve k
};

}  // namespace tess
