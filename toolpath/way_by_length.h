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
  // Of length 1; where two curves meet, that of the later one.
  PlanePoint directionAt(double length) const;
  // The curve that lies there, from 0; the later of two that meet. The way must not be empty.
  std::size_t curveAt(double length) const;
  // From one length to a later one. Nothing of no length.
  std::vector<Curve> part(double from, double to) const;

 private:
  // Of the curve that lies there.
  double shareAt(std::size_t curve, double length) const;

  std::vector<Curve> curves_;
  std::vector<double> ends_;
};

}  // namespace tess
