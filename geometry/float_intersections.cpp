// Crossings, split by kind and brought together in one table of pairs.
#include "geometry/float_intersections.h"

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

double square(double value) {
  return value * value;
}

bool inSweepOf(const Entity& arc, Point hit) {
  return angleInSweep(vectorAngle(arc.center, hit), vectorAngle(arc.center, arc.start),
                      vectorAngle(arc.center, arc.end), arc.type);
}

template <typename LiesOnBoth>
Crossing crossingAt(const PointPair& hits, LiesOnBoth liesOnBoth) {
  const bool first = liesOnBoth(hits.first);
  const bool second = liesOnBoth(hits.second);
  if (!first && !second) return {.miss = Miss::Apart};
  return {Miss::None, first, second, hits};
}

using PairRoutine = Crossing (*)(const Entity& a, const Entity& b, float tolerence);

Crossing lineWithLine(const Entity& a, const Entity& b, float) {
  return intersectLines(a, b);
}

Crossing arcWithLine(const Entity& arc, const Entity& line, float tolerence) {
  return intersectLineArc(line, arc, tolerence);
}

struct PairRule {
  int code;
  PairRoutine routine;
};

// Fixed: circles, rectangles and cycles meet nothing; folds at them have never been cut.
constexpr PairRule kPairRules[] = {
    {11, lineWithLine},  {12, intersectLineArc}, {13, intersectLineArc},
    {21, arcWithLine},   {31, arcWithLine},      {22, intersectArcs},
    {23, intersectArcs}, {32, intersectArcs},    {33, intersectArcs},
};

}  // namespace

Point nearerHit(const Crossing& crossing, Point at) {
  if (!crossing.second) return crossing.at.first;
  if (!crossing.first) return crossing.at.second;
  const bool second = distance(crossing.at.second, at) < distance(crossing.at.first, at);
  return second ? crossing.at.second : crossing.at.first;
}

std::optional<Point> intersectSlopes(double m1, double b1, double m2, double b2) {
  if (m1 == m2) return std::nullopt;
  const double x = (b1 - b2) / nonZero(m2 - m1);
  // The flatter line magnifies an error of x less.
  const bool bySecond = std::abs(m2) + std::abs(b2) <= std::abs(m1) + std::abs(b1);
  const double y = bySecond ? m2 * x + b2 : m1 * x + b1;
  return Point{roundTo(x, 6), roundTo(y, 6)};
}

Crossing intersectLines(const Entity& a, const Entity& b) {
  const double m1 = chordSlope(a.start, a.end);
  const double m2 = chordSlope(b.start, b.end);
  const double b1 = a.end.y - m1 * a.end.x;
  const double b2 = b.end.y - m2 * b.end.x;
  const std::optional<Point> at = intersectSlopes(m1, b1, m2, b2);
  if (!at) return {.miss = Miss::Parallel};
  const bool onBoth = pointInSegBox(*at, a.start, a.end) && pointInSegBox(*at, b.start, b.end);
  return {onBoth ? Miss::None : Miss::Apart, onBoth, false, {*at, {}}};
}

Crossing intersectLineArc(const Entity& line, const Entity& arc, float tolerence) {
  const Circle circle{arc.center, radiusOf(arc)};
  const CircleHits hits =
      lineCircle(line.start, chordSlope(line.start, line.end), circle, tolerence);
  if (!hits) return {.miss = hits.miss};
  return crossingAt(hits.at, [&](Point hit) {
    return pointInSegBox(hit, line.start, line.end) && inSweepOf(arc, hit);
  });
}

Crossing intersectArcs(const Entity& a, const Entity& b, float tolerence) {
  const Circle circle{a.center, radiusOf(a)};
  const double otherRadius = radiusOf(b);
  const double dx = static_cast<double>(b.center.x) - a.center.x;
  const double dy = static_cast<double>(b.center.y) - a.center.y;
  // The radical line: where both circles have the same power.
  const double slope = -dx / nonZero(dy);
  const double power = square(dx) + 2 * a.center.x * dx + 2 * a.center.y * dy + square(dy) +
                       square(circle.radius) - square(otherRadius);
  const CircleHits hits = slopeLineCircle(slope, power / nonZero(2 * dy), circle, tolerence);
  if (!hits) return {.miss = Miss::Apart};
  return crossingAt(hits.at, [&](Point hit) { return inSweepOf(a, hit) && inSweepOf(b, hit); });
}

Crossing intersectEntities(const Entity& a, const Entity& b, float tolerence) {
  const long long code = 10LL * a.type + b.type;
  for (const PairRule& rule : kPairRules) {
    if (rule.code == code) return rule.routine(a, b, tolerence);
  }
  return {.miss = Miss::NoRule};
}

Crossing intersectSegs(const DrawingStore& store, int sgA, int sgB) {
  if (sgA == sgB) return {.miss = Miss::SameRow};
  return intersectEntities(segmentEntity(store, sgA), segmentEntity(store, sgB),
                           store.cfg_tolerance);
}

Crossing intersectPathSegs(const DrawingStore& store, int psA, int psB) {
  if (psA == psB) return {.miss = Miss::SameRow};
  return intersectEntities(pathEntity(store, psA), pathEntity(store, psB), store.cfg_tolerance);
}

Crossing intersectWithSeg(const DrawingStore& store, const Entity& entity, int sg) {
  return intersectEntities(entity, segmentEntity(store, sg), store.cfg_tolerance);
}

}  // namespace tess
