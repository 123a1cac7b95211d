// The front half of a cutter's rim: which share of its width has material before it.
// Owns: CutterRim, EngagedPlace, mostEngagedAlong.
#pragma once

#include <vector>

#include "toolpath/swept_spans.h"

namespace tess {

// Where a tool stands, and the way it goes there.
struct CutterRim {
  static constexpr int kPlaces = 40;           // evenly across the cutter's width
  static constexpr double kBeforeRim = 0.001;  // that a place lies in front of it, in radii
  // Places aside are taken a little later than those ahead: at the end of a way, so many radii
  // before it, is the last place to ask at.
  static constexpr double kBeforeEnd = 6 * kBeforeRim;

  PlanePoint at, along;  // the second of length 1
  double radius = 0;

  // The share of the width, 0 to 1, before which nothing of `taken` has been. `effort` grows by the
  // distances that are reckoned.
  double engagedShare(const std::vector<SweptCurve>& taken, long long& effort) const;
};

struct EngagedPlace {
  double share = 0;  // of the width
  PlanePoint at{};
};

// The place of a way at which most is engaged, with what the tool itself has taken on its way
// there; at places half a radius apart. Only more than `least` counts. `taken` is as it was
// afterwards.
EngagedPlace mostEngagedAlong(const Curve& way, double radius, double least,
                              std::vector<SweptCurve>& taken, long long& effort);

}  // namespace tess
