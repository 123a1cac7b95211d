// The levels of a true path: one set of rows, cut at each of them.
// Owns: PathLevel, levelsOf, levelsArePossible, placeAtLevels, RowAtHeight.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "geometry/entity.h"
#include "toolpath/cam_context.h"

namespace tess {

class Change;

struct PathLevel {
  float z = 0, feed = 0;
};

// The first level at its own feed, those below it at the roughing feed, the floor finish at the
// finishing feed; one level at the final depth and the finishing feed if not `several`. A depth per
// pass that is not above 0 counts as the whole depth.
std::vector<PathLevel> levelsOf(const DrawingStore& store, bool several, float firstFeed);

// False, after a message titled `command`, when a depth per pass is too small for the depth.
bool levelsArePossible(CamContext& cam, const std::string& command, bool several);

// Puts the rows of the current path group and the selected tool in front of row `index` at the
// first level, and at the end of the table at the others.
void placeAtLevels(CamContext& cam, Change& change, int index, std::span<const Entity> rows,
                   std::span<const PathLevel> levels);

// A row that stays above the level that it is cut at.
struct RowAtHeight {
  Entity entity;
  float z = 0;
};
// The same for levels that each have rows of their own.
void placeAtLevels(CamContext& cam, Change& change, int index,
                   std::span<const std::vector<RowAtHeight>> rows,
                   std::span<const PathLevel> levels);

}  // namespace tess
