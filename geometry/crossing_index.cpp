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

#include "core/drawing_store.h"
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

// Of the line on which two circles cross; steeper pairs than kSteepestRegular are AlignedCenters.
double radicalSlope(Point a, Point b) {
  const double dx = static_cast<double>(b.x) - a.x;
  const double dy = static_cast<double>(b.y) - a.y;
  return std::min(std::abs(dx / nonZero(dy)), kSteepestRegular);
}

bool overlapsGrown(const Box& a, const Box& b, double byX, double byY) {
  return a.minX - byX <= b.maxX && b.minX - byX <= a.maxX && a.minY - byY <= b.maxY &&
         b.minY - byY <= a.maxY;
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
  near_.reserve(entities_.size());
  for (const Entity& entity : entities_) near_.push_back(nearReachOf(entity));
  boxes_ = BoxIndex(hasArcs_ ? reaches() : std::move(near_));
}

void CrossingIndex::candidates(int row, int after, std::vector<int>& rows) const {
  boxes_.rowsOverlapping(boxes_.box(row), after, rows);
  const auto at = static_cast<std::size_t>(row) - 1;
  const Entity& entity = entities_[at];
  if (hasArcs_) dropFarRows(entity, near_[at], rows);
  if (isArc(entity.type)) addAlignedArcs(entity, after, rows);
  if (after < row) std::erase(rows, row);
}

void CrossingIndex::candidates(const Entity& entity, int after, std::vector<int>& rows) const {
  // A stranger beyond the magnitude that the boxes were grown for, or the first arc among lines:
  // no box can be trusted.
  const bool strange =
      magnitudeOf(entity) > magnitude_ || (isArc(entity.type) && radiusOf(entity) > largestRadius_);
  if (strange) {
    boxes_.rowsOverlapping(everywhere(), after, rows);
    return;
  }
  const Box near = nearReachOf(entity);
  boxes_.rowsOverlapping(reachOf(entity, near), after, rows);
  if (hasArcs_) dropFarRows(entity, near, rows);
  if (isArc(entity.type)) addAlignedArcs(entity, after, rows);
}

// The boxes of arcs are grown for the steepest radical line of all; most pairs have a flatter one.
void CrossingIndex::dropFarRows(const Entity& entity, const Box& near,
                                std::vector<int>& rows) const {
  std::erase_if(rows, [&](int row) {
    const auto at = static_cast<std::size_t>(row) - 1;
    const Entity& other = entities_[at];
    if (!isArc(entity.type) || !isArc(other.type)) return !overlaps(near, near_[at]);
    const double slope = radicalSlope(entity.center, other.center);
    return !overlapsGrown(near, near_[at], 2 * rootNoise(0), 2 * rootNoise(slope));
  });
}

void CrossingIndex::addAlignedArcs(const Entity& arc, int after, std::vector<int>& rows) const {
  const std::size_t near = rows.size();
  alignedCenters_.collect(arc.center, after, rows);
  if (rows.size() == near) return;
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

std::vector<Box> CrossingIndex::reaches() const {
  std::vector<Box> boxes;
  boxes.reserve(entities_.size());
  for (std::size_t k = 0; k < entities_.size(); ++k)
    boxes.push_back(reachOf(entities_[k], near_[k]));
  return boxes;
}

// Large enough for all pairs. A steep line carries what its root is off upward, not to the side.
Box CrossingIndex::reachOf(const Entity& entity, const Box& near) const {
  if (!isArc(entity.type)) return near;
  const Box wide = grown(near, rootNoise(0));
  const Box tall = grown(near, rootNoise(kSteepestRegular));
  return {wide.minX, tall.minY, wide.maxX, tall.maxY};
}

// Large enough for pairs with a line; two arcs need the root noise of their radical line beside.
Box CrossingIndex::nearReachOf(const Entity& entity) const {
  if (passesForLineOrArc(entity.type)) return everywhere();
  if (entity.type == kLine) return grown(entityBox(entity), reachOfLine(entity));
  if (isArc(entity.type)) return grown(entityBox(entity), nearReachOfArc(entity));
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
double CrossingIndex::nearReachOfArc(const Entity& arc) const {
  const double r = radiusOf(arc);
  const double levelNoise = kFlatSlope * magnitude_;
  const double squareNoise = tolerence_ * (1 + tolerence_ + 2 * largestRadius_) +
                             kZeroNoise * magnitude_ + 8 * largestRadius_ * levelNoise;
  return std::sqrt(r * r + squareNoise) - r + 2 * levelNoise + kAngleNoise * r + rootNoise(0);
}

// How far along a line of that slope a root may be off.
double CrossingIndex::rootNoise(double slope) const {
  return kRootNoise * magnitude_ * (1 + slope);
}

CrossingIndex segmentCrossingIndex(const DrawingStore& store) {
  return CrossingIndex(segmentEntities(store), store.cfg_tolerance);
}

CrossingIndex pathCrossingIndex(const DrawingStore& store) {
  return CrossingIndex(pathEntities(store), store.cfg_tolerance);
}

}  // namespace tess
