// Crossings, split by kind and brought together in one table of pairs.
#include "geometry/intersections.h"

#include "core/rounding.h"
#include "geometry/angles.h"
#include "geometry/circles.h"

namespace tess {
namespace {

double square(double value) {
  return value * value;
}

bool inSweepOf(const Entity& arc, Point hit) {
  return angleInSweep(vectorAngle(arc.center, hit), vectorAngle(arc.center, arc.start),
                      vectorAngle(arc.center, arc.end), arc.type);
}

// The bits of both hits; the points go out only when there is one.
template <typename LiesOnBoth>
int hitBits(const PointPair& hits, PointPair& at, LiesOnBoth liesOnBoth) {
  const int bits =
      (liesOnBoth(hits.first) ? kFirstHit : 0) + (liesOnBoth(hits.second) ? kSecondHit : 0);
  if (bits > 0) at = hits;
  return bits;
}

using PairRoutine = int (*)(const Entity& a, const Entity& b, float tolerence, PointPair& at);

int lineWithLine(const Entity& a, const Entity& b, float, PointPair& at) {
  return intersectLines(a, b, at.first);
}

int arcWithLine(const Entity& arc, const Entity& line, float tolerence, PointPair& at) {
  return intersectLineArc(line, arc, tolerence, at);
}

struct PairRule {
  int code;
  PairRoutine routine;
};

constexpr PairRule kPairRules[] = {
    {11, lineWithLine},  {12, intersectLineArc}, {13, intersectLineArc},
    {21, arcWithLine},   {31, arcWithLine},      {22, intersectArcs},
    {23, intersectArcs}, {32, intersectArcs},    {33, intersectArcs},
};

}  // namespace

int intersectSlopes(double m1, double b1, double m2, double b2, Point& at) {
  if (m1 == m2) return kParallel;
  const double x = (b1 - b2) / nonZero(m2 - m1);
  // The flatter line magnifies an error of x less.
  const bool bySecond = std::abs(m2) + std::abs(b2) <= std::abs(m1) + std::abs(b1);
  const double y = bySecond ? m2 * x + b2 : m1 * x + b1;
  at = {roundTo(x, 6), roundTo(y, 6)};
  return kCrossing;
}

int intersectLines(const Entity& a, const Entity& b, Point& at) {
  const double m1 = chordSlope(a.start, a.end);
  const double m2 = chordSlope(b.start, b.end);
  const double b1 = a.end.y - m1 * a.end.x;
  const double b2 = b.end.y - m2 * b.end.x;
  if (intersectSlopes(m1, b1, m2, b2, at) == kParallel) return kParallel;
  const bool onBoth = pointInSegBox(at, a.start, a.end) && pointInSegBox(at, b.start, b.end);
  return onBoth ? kCrossing : kBeyond;
}

int intersectLineArc(const Entity& line, const Entity& arc, float tolerence, PointPair& at) {
  PointPair hits;
  const Circle circle{arc.center, radiusOf(arc)};
  const int code =
      lineCircle(line.start, chordSlope(line.start, line.end), circle, tolerence, hits);
  if (code < 1) return code;
  return hitBits(hits, at, [&](Point hit) {
    return pointInSegBox(hit, line.start, line.end) && inSweepOf(arc, hit);
  });
}

int intersectArcs(const Entity& a, const Entity& b, float tolerence, PointPair& at) {
  const Circle circle{a.center, radiusOf(a)};
  const double otherRadius = radiusOf(b);
  const double dx = static_cast<double>(b.center.x) - a.center.x;
  const double dy = static_cast<double>(b.center.y) - a.center.y;
  // The radical line: where both circles have the same power.
  const double slope = -dx / nonZero(dy);
  const double power = square(dx) + 2 * a.center.x * dx + 2 * a.center.y * dy + square(dy) +
                       square(circle.radius) - square(otherRadius);
  PointPair hits;
  if (slopeLineCircle(slope, power / nonZero(2 * dy), circle, tolerence, hits) < 1)
    return kNoCrossing;
  return hitBits(hits, at, [&](Point hit) { return inSweepOf(a, hit) && inSweepOf(b, hit); });
}

int intersectEntities(const Entity& a, const Entity& b, float tolerence, PointPair& at) {
  const long long code = 10LL * a.type + b.type;
  for (const PairRule& rule : kPairRules) {
    if (rule.code == code) return rule.routine(a, b, tolerence, at);
  }
  return kNoCrossing;
}

int intersectSegs(const DrawingStore& store, int sgA, int sgB, PointPair& at) {
  if (sgA == sgB) return kSameRow;
  return intersectEntities(segmentEntity(store, sgA), segmentEntity(store, sgB),
                           store.cfg_tolerance, at);
}

int intersectPathSegs(const DrawingStore& store, int psA, int psB, PointPair& at) {
  if (psA == psB) return kSameRow;
  return intersectEntities(pathEntity(store, psA), pathEntity(store, psB), store.cfg_tolerance, at);
}

int intersectWithSeg(const DrawingStore& store, const Entity& entity, int sg, PointPair& at) {
  return intersectEntities(entity, segmentEntity(store, sg), store.cfg_tolerance, at);
}

}  // namespace tess
