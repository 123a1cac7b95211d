// How much of a cutter's width is in material as it goes along the rows of a path.
// Owns: Engagement, groupEngagements, PlannedPath, EngagementExcess, excessOf.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/path_levels.h"

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

// Rows that are going to be placed as a group of their own: the first level in front of row `index`
// of the table, the others at its end.
struct PlannedPath {
  const std::vector<LevelRows>& levels;
  int index = 1;
  double radius = 0;  // of the tool
};

// Where more than a limit is engaged.
struct EngagementExcess {
  Engagement most;  // share 0: nowhere
  int places = 0;   // stretches of the path
};

// Of a path that is not placed yet: what `groupEngagements` is going to find of its group, as far
// as that is more than `limit`, a share of the cutter's width.
EngagementExcess excessOf(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                          const PlannedPath& path, double limit, const Breathing& breathing);

}  // namespace tess
