// A way without a gap, measured by the length from its start.
// Owns: WayByLength.
#pragma once

#include <vector>

#include "geometry/curve.h"

namespace tess {

class WayByLength {
 public:
  explicit WayByLength(std::vector<Curve> curves);

  const std::vector<Curve>& curves() const { return curves_; }
  double length() const { return ends_.empty() ? 0 : ends_.back(); }
  // Where a curve begins and ends, the curves counting from 0.
  double startOf(std::size_t curve) const { return curve == 0 ? 0 : ends_[curve - 1]; }
  double endOf(std::size_t curve) const { return ends_[curve]; }

  // What lies beyond the way is its end.
  PlanePoint at(double length) const;
  // From one length to a later one. Nothing of no length.
  std::vector<Curve> part(double from, double to) const;

 private:
  std::size_t curveAt(double length) const;

  std::vector<Curve> curves_;
  std::vector<double> ends_;
};

}  // namespace tess
