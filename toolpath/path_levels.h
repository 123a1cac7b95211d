// The levels of a true path: one set of rows, cut at each of them.
// Owns: PathLevel, levelsOf, levelsArePossible, LevelRows, rowsAtLevels, placeLevels.
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

// The rows of a level, each at its depth and feed; their codes follow when they are placed.
using LevelRows = std::vector<PathRow>;
std::vector<LevelRows> rowsAtLevels(std::span<const Entity> rows,
                                    std::span<const PathLevel> levels);

// Puts rows into the current path group, cut by the selected tool: the first level in front of row
// `index`, the others at the end of the table.
void placeLevels(CamContext& cam, Change& change, int index, std::vector<LevelRows> levels);

}  // namespace tess
