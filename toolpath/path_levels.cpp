// Levels of true paths.
#include "toolpath/path_levels.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "drafting/change.h"
#include "toolpath/level_check.h"
#include "toolpath/path_placement.h"

namespace tess {

std::vector<PathLevel> levelsOf(const DrawingStore& store, bool several, float firstFeed) {
  const float depth = -std::abs(store.cfg_final_depth);
  if (!several) return {{depth, store.cfg_finish_feedrate}};
  const float floor = roughingFloor(store);
  const float cut = store.cfg_z_cut_per_pass;
  float z = cut > 0 ? firstLevel(store, floor) : floor;
  std::vector<PathLevel> levels{{z, firstFeed}};
  while (z > floor) {
    z = std::max(z - cut, floor);
    levels.push_back({z, store.cfg_rough_feedrate});
  }
  if (store.cfg_min_z_finish != 0) levels.push_back({depth, store.cfg_finish_feedrate});
  return levels;
}

bool levelsArePossible(CamContext& cam, const std::string& command, bool several) {
  if (!several || !(cam.store.cfg_z_cut_per_pass > 0)) return true;
  const float floor = roughingFloor(cam.store);
  return canGoDown(cam, command, firstLevel(cam.store, floor), floor);
}

std::vector<LevelRows> rowsAtLevels(std::span<const Entity> rows,
                                    std::span<const PathLevel> levels) {
  std::vector<LevelRows> placed;
  placed.reserve(levels.size());
  for (const PathLevel& level : levels) {
    LevelRows& at = placed.emplace_back();
    at.reserve(rows.size());
    for (const Entity& entity : rows) at.push_back(pathRowOf(entity, level.z, level.feed));
  }
  return placed;
}

void placeLevels(CamContext& cam, Change& change, int index, std::vector<LevelRows> levels) {
  const int code = pathCode(cam.store.currentpathgroup, cam.store.selectedtool);
  for (LevelRows& level : levels) {
    for (PathRow& row : level) row.code = code;
  }
  std::vector<RowInsertion<PathRow>> insertions;
  insertions.reserve(levels.front().size());
  for (const PathRow& row : levels.front()) insertions.push_back({index, row});
  change.paths.insert(insertions);
  for (std::size_t level = 1; level < levels.size(); ++level) {
    for (const PathRow& row : levels[level]) change.paths.append(row);
  }
}

}  // namespace tess
