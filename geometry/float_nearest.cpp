// The nearest point on one entity: a line by its perpendicular, round kinds by the line through
// their centre.
#include "geometry/float_nearest.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

struct Foot {
  double x = 0, y = 0;
};

float clampedBetween(double value, float a, float b) {
  const auto [low, high] = std::minmax(a, b);
  return static_cast<float>(std::clamp<double>(value, low, high));
}

// The value of the end that lies nearer in the other coordinate, the start on a tie.
float ofNearerEnd(float startOther, float endOther, float other, float startValue, float endValue) {
  const double toStart = std::abs(static_cast<double>(startOther) - other);
  const double toEnd = std::abs(static_cast<double>(endOther) - other);
  return toStart <= toEnd ? startValue : endValue;
}

Foot footOnLine(Point start, Point end, Point at) {
  const double m = chordSlope(start, end);
  if (std::abs(m) < kFlatSlope) return {at.x, ofNearerEnd(start.x, end.x, at.x, start.y, end.y)};
  if (std::abs(m) > kSteepSlope) return {ofNearerEnd(start.y, end.y, at.y, start.x, end.x), at.y};
  const double perpendicular = -1 / nonZero(m);
  const double b = start.y - m * start.x;
  const double bPerpendicular = at.y - perpendicular * at.x;
  const double x = (bPerpendicular - b) / (m - perpendicular);
  return {x, x * m + b};
}

// Both hits of the line from `at` through the centre.
CircleHits castThroughCenter(const Circle& circle, Point at, float tolerence) {
  return lineCircle(at, chordSlope(circle.center, at), circle, tolerence);
}

NearestPoint foundAt(Point at) {
  return {Miss::None, at};
}

// A tie goes to the second.
Point nearerOf(const PointPair& points, Point at) {
  return distance(points.first, at) < distance(points.second, at) ? points.first : points.second;
}

}  // namespace

// Fixed: x and y are clamped each for itself, off a slanted line; picks beyond an end go by it.
Point nearestOnLine(Point start, Point end, Point at) {
  const Foot foot = footOnLine(start, end, at);
  return {clampedBetween(foot.x, start.x, end.x), clampedBetween(foot.y, start.y, end.y)};
}

Point nearestOnRect(Point corner, Point opposite, Point at) {
  const Point corners[] = {
      corner, {opposite.x, corner.y}, opposite, {corner.x, opposite.y}, corner};
  Point nearest = nearestOnLine(corners[0], corners[1], at);
  for (int side = 1; side < 4; ++side) {
    const Point candidate = nearestOnLine(corners[side], corners[side + 1], at);
    if (distance(candidate, at) < distance(nearest, at)) nearest = candidate;
  }
  return nearest;
}

NearestPoint nearestOnArc(const Entity& arc, Point at, float tolerence) {
  // Fixed: by the end point, where all else goes by the start; picks of uneven arcs would differ.
  const Circle circle{arc.center, distance(arc.end, arc.center)};
  const CircleHits hits = castThroughCenter(circle, at, tolerence);
  if (!hits) return {.miss = hits.miss};
  const float a = vectorAngle(arc.center, arc.start);
  const float b = vectorAngle(arc.center, arc.end);
  const bool first = angleInSweep(vectorAngle(arc.center, hits.at.first), a, b, arc.type);
  const bool second = angleInSweep(vectorAngle(arc.center, hits.at.second), a, b, arc.type);
  if (first && second) return foundAt(nearerOf(hits.at, at));
  if (first || second) return foundAt(first ? hits.at.first : hits.at.second);
  return foundAt(nearerOf({arc.start, arc.end}, at));
}

NearestPoint nearestOnCircle(Point center, Point onCircle, Point at, float tolerence) {
  const CircleHits hits = castThroughCenter({center, distance(onCircle, center)}, at, tolerence);
  return hits ? foundAt(nearerOf(hits.at, at)) : NearestPoint{.miss = hits.miss};
}

NearestPoint nearestOnSegment(const Entity& segment, Point at, float tolerence) {
  if (isArc(segment.type)) return nearestOnArc(segment, at, tolerence);
  if (segment.type == kCircle) {
    return nearestOnCircle(segment.center, segment.start, at, tolerence);
  }
  if (segment.type == kLine) return foundAt(nearestOnLine(segment.start, segment.end, at));
  if (segment.type == kRectangle) return foundAt(nearestOnRect(segment.start, segment.end, at));
  return {.miss = Miss::NoRule};
}

NearestPoint nearestOnPath(const Entity& path, Point at, float tolerence) {
  if (isArc(path.type)) return nearestOnArc(path, at, tolerence);
  if (path.type == kLine) return foundAt(nearestOnLine(path.start, path.end, at));
  return foundAt(isPointCycle(path.type) ? path.end : Point{});
}

NearestPoint nearestOnSeg(const DrawingStore& store, int sg, Point at) {
  return nearestOnSegment(segmentEntity(store, sg), at, store.cfg_tolerance);
}

NearestPoint nearestOnPathSeg(const DrawingStore& store, int ps, Point at) {
  return nearestOnPath(pathEntity(store, ps), at, store.cfg_tolerance);
}

}  // namespace tess
