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

void placeAtLevels(CamContext& cam, Change& change, int index, std::span<const Entity> rows,
                   std::span<const PathLevel> levels) {
  std::vector<std::vector<RowAtHeight>> ofLevels(levels.size());
  for (std::size_t level = 0; level < levels.size(); ++level) {
    ofLevels[level].reserve(rows.size());
    for (const Entity& entity : rows) ofLevels[level].push_back({entity, levels[level].z});
  }
  placeAtLevels(cam, change, index, ofLevels, levels);
}

void placeAtLevels(CamContext& cam, Change& change, int index,
                   std::span<const std::vector<RowAtHeight>> rows,
                   std::span<const PathLevel> levels) {
  const int code = pathCode(cam.store.currentpathgroup, cam.store.selectedtool);
  const auto rowAt = [code](const RowAtHeight& row, float feed) {
    PathRow placed = pathRowOf(row.entity, row.z, feed);
    placed.code = code;
    return placed;
  };
  std::vector<RowInsertion<PathRow>> insertions;
  insertions.reserve(rows.front().size());
  for (const RowAtHeight& row : rows.front()) {
    insertions.push_back({index, rowAt(row, levels.front().feed)});
  }
  change.paths.insert(insertions);
  for (std::size_t level = 1; level < levels.size(); ++level) {
    for (const RowAtHeight& row : rows[level]) {
      change.paths.append(rowAt(row, levels[level].feed));
    }
  }
}

}  // namespace tess
