// Which parts of a curve are nearer to a wall than a distance.
// Owns: ShareRange, appendForbidden.
#pragma once

#include <vector>

#include "geometry/curve.h"

namespace tess {

struct ShareRange {
  double from = 0, to = 0;
};

// Appends the ranges of `curve` whose places are nearer to `wall` than `distance`.
void appendForbidden(const Curve& curve, const Curve& wall, double distance,
                     std::vector<ShareRange>& ranges);

}  // namespace tess
