// How much of a cutter's width is in material as it goes along the rows of a path.
// Owns: Engagement, groupEngagements.
#pragma once

#include <vector>

#include "core/cancellable_work.h"

namespace tess {

struct DrawingStore;
struct ProofGroup;

struct Engagement {
  double share = 0;     // of the cutter's width, the largest; to a fortieth
  int row = 0;          // from 1; 0: no row is in material
  double x = 0, y = 0;  // of the tool's centre
};

// Of each group. Material is what no row before has taken and no cycle has drilled, thicker than a
// step of an entry. Rows that lead down, such as ramps, do not count, nor do groups of a lathe and
// groups whose tool has no radius. Rows that go the same way behind the same row, as copies at
// other levels do, are looked at once; of very large paths the first part alone.
std::vector<Engagement> groupEngagements(const DrawingStore& store,
                                         const std::vector<ProofGroup>& groups,
                                         const Breathing& breathing = {});

}  // namespace tess
