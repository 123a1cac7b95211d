// Which rows may cross a row: what stands between a search for crossings and a look at all pairs.
//
// The promise: every row for which intersectEntities gives a result above 0 is among the
// candidates, also where the formulas lose digits or find a crossing that is none. So a search over
// the candidates in their order meets the same crossings in the same order as one over all rows.
// Owns: CrossingIndex, segmentCrossingIndex, pathCrossingIndex.
#pragma once

#include <vector>

#include "geometry/aligned_centers.h"
#include "geometry/box_index.h"
#include "geometry/entity.h"

namespace tess {

class CrossingIndex {
 public:
  // Element k of `entities` is row k + 1. Questions about entities that are in no table are fast as
  // long as their coordinates lie within those of the rows or within `magnitude`, and radii of arcs
  // likewise within `radius`.
  CrossingIndex(std::vector<Entity> entities, float tolerence, double magnitude = 0,
                double radius = 0);

  // The rows above `after` that may cross row `row` or an entity that is in no table, ascending;
  // a row is not its own candidate. Replaces the contents of `rows`.
  void candidates(int row, int after, std::vector<int>& rows) const;
  void candidates(const Entity& entity, int after, std::vector<int>& rows) const;

 private:
  void addAlignedArcs(const Entity& arc, int after, std::vector<int>& rows) const;
  Box reachOf(const Entity& entity) const;
  double reachOfLine(const Entity& line) const;
  double reachOfArc(const Entity& arc) const;

  std::vector<Entity> entities_;
  double tolerence_;
  double magnitude_;  // the largest coordinate or radius
  double largestRadius_;
  bool hasArcs_;
  BoxIndex boxes_;
  AlignedCenters alignedCenters_;
};

CrossingIndex segmentCrossingIndex(const DrawingStore& store);
CrossingIndex pathCrossingIndex(const DrawingStore& store);

}  // namespace tess
