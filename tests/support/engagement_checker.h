// Which share of a cutter's width takes material: the rows of a path are cut out of a raster, one
// after the other, by means that share nothing with the program.
// Owns: CheckedEngagement, largestEngagement.
#pragma once

#include <cstddef>
#include <vector>

#include "tests/support/curves.h"

namespace tess::testing {

struct CheckedEngagement {
  double share = 0;
  std::size_t curve = 0;  // of the path, from 0
  Vec place;
};

// Of those curves of a path that are `judged`; the others, such as ways down, are cut without a
// look, and all of them as if they went down to the floor. The rim is looked at in twelfths of the
// width, each time the tool has gone an eighth of its radius; a twelfth counts when half of what
// lies before it was there. What is thinner, and curves shorter than that step, stay unseen.
CheckedEngagement largestEngagement(const std::vector<Curve>& path, double radius,
                                    const std::vector<bool>& judged);

}  // namespace tess::testing
