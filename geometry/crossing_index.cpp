// Boxes grown by how far from an entity the formulas may still place a crossing on it.
//
// A crossing of two lines lies in both boxes grown by kSegBoxMargin, as the routine itself tests.
// With an arc three things add to that. Tangents count within the tolerance, measured as a distance
// or a squared distance. Angles are 32-bit. And the quadratic loses digits near tangency: with u
// the 64-bit rounding unit, M the largest coordinate and s the slope, its coefficients are of the
// order M*(1+s)^2, so that the discriminant is off by up to 80*u*M^2*(1+s)^4 and a root by
// sqrt(80*u)*M; along the line that is (1+s) times as far.
#include "geometry/crossing_index.h"

#include <algorithm>
#include <cmath>

#include "geometry/row_boxes.h"

namespace tess {
namespace {

constexpr double kRootNoise = 2e-7;   // sqrt(80*u), doubled
constexpr double kAngleNoise = 2e-6;  // radians, a few 32-bit rounding units of two pi
constexpr double kZeroNoise = 1e-5;   // what equal centres make of radii that almost agree

// Kinds that are neither line nor arc but whose number, added to another kind's tens, is the code
// of a pair that has a rule: intersectEntities takes them for lines and arcs.
bool passesForLineOrArc(int type) {
  return type < 0 || (type >= 11 && type <= 33);
}

}  // namespace

CrossingIndex::CrossingIndex(std::vector<Entity> entities, float tolerence, double magnitude,
                             double radius)
    : entities_(std::move(entities)),
      tolerence_(std::max(tolerence, 0.0F)),
      magnitude_(std::max(magnitude, radius)),
      largestRadius_(radius),
      hasArcs_(radius > 0),
      alignedCenters_(entities_) {
  for (const Entity& entity : entities_) {
    magnitude_ = std::max(magnitude_, magnitudeOf(entity));
    if (isArc(entity.type)) largestRadius_ = std::max(largestRadius_, double{radiusOf(entity)});
    hasArcs_ = hasArcs_ || isArc(entity.type);
  }
  std::vector<Box> boxes;
  boxes.reserve(entities_.size());
  for (const Entity& entity : entities_) boxes.push_back(reachOf(entity));
  boxes_ = BoxIndex(std::move(boxes));
}

void CrossingIndex::candidates(int row, int after, std::vector<int>& rows) const {
  boxes_.rowsOverlapping(boxes_.box(row), after, rows);
  const Entity& entity = entities_[static_cast<std::size_t>(row) - 1];
  if (isArc(entity.type)) addAlignedArcs(entity, after, rows);
  if (after < row) std::erase(rows, row);
}

void CrossingIndex::candidates(const Entity& entity, int after, std::vector<int>& rows) const {
  // A stranger beyond the magnitude that the boxes were grown for, or the first arc among lines:
  // no box can be trusted.
  const bool strange =
      magnitudeOf(entity) > magnitude_ || (isArc(entity.type) && radiusOf(entity) > largestRadius_);
  boxes_.rowsOverlapping(strange ? everywhere() : reachOf(entity), after, rows);
  if (!strange && isArc(entity.type)) addAlignedArcs(entity, after, rows);
}

void CrossingIndex::addAlignedArcs(const Entity& arc, int after, std::vector<int>& rows) const {
  const std::size_t near = rows.size();
  alignedCenters_.collect(arc.center, after, rows);
  if (rows.size() == near) return;
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

Box CrossingIndex::reachOf(const Entity& entity) const {
  if (passesForLineOrArc(entity.type)) return everywhere();
  if (entity.type == kLine) return grown(entityBox(entity), reachOfLine(entity));
  if (isArc(entity.type)) return grown(entityBox(entity), reachOfArc(entity));
  return entityBox(entity);
}

double CrossingIndex::reachOfLine(const Entity& line) const {
  const double margin = 1.01 * kSegBoxMargin + kRootNoise * magnitude_;
  if (!hasArcs_) return margin;
  const double slope = std::abs(chordSlope(line.start, line.end));
  return slope > kSteepSlope ? margin : margin + kRootNoise * magnitude_ * slope;
}

// A hit placed on another arc A misses this circle by e. A radical line below kFlatSlope is taken
// as level and so off by up to d = kFlatSlope*M; the hit's power with respect to this circle, which
// should be 0, is then off by 2*d times the distance of the centres. That is at most rA + r + e,
// from which e <= sqrt(r^2 + 8*rA*d) - r + 2*d; the tolerance and equal centres act likewise on
// r^2.
double CrossingIndex::reachOfArc(const Entity& arc) const {
  const double r = radiusOf(arc);
  const double levelNoise = kFlatSlope * magnitude_;
  const double squareNoise = tolerence_ * (1 + tolerence_ + 2 * largestRadius_) +
                             kZeroNoise * magnitude_ + 8 * largestRadius_ * levelNoise;
  return std::sqrt(r * r + squareNoise) - r + 2 * levelNoise + kAngleNoise * r +
         kRootNoise * kSteepestRegular * magnitude_;
}

CrossingIndex segmentCrossingIndex(const DrawingStore& store) {
  return CrossingIndex(segmentEntities(store), store.cfg_tolerance);
}

CrossingIndex pathCrossingIndex(const DrawingStore& store) {
  return CrossingIndex(pathEntities(store), store.cfg_tolerance);
}

}  // namespace tess
