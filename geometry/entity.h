// One drawing or path row as the geometry sees it: a kind and three points.
// Owns: Entity, lineEntity, circleEntity, isRound, segmentRowOf, pathRowOf, radiusOf, chordSlope.
#pragma once

#include "core/conventions.h"
#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

// The kind is a segtype or pstype. A rectangle holds two opposite corners in start and end, a
// circle one point of it in both; only round kinds use the centre.
struct Entity {
  int type = kLine;
  Point start, end, center;
  friend bool operator==(const Entity&, const Entity&) = default;
};

inline Entity lineEntity(Point start, Point end) {
  return {kLine, start, end, {}};
}

// A circle by the point of it to the right of its centre.
inline Entity circleEntity(Point center, float radius) {
  const Point right{center.x + radius, center.y};
  return {kCircle, right, right, center};
}

// Arcs and circles: the kinds that have a centre.
constexpr bool isRound(int type) {
  return isArc(type) || type == kCircle;
}

// The entity as a row that is not in the tables yet; a path row without its code.
inline SegmentRow segmentRowOf(const Entity& e, int attr = kOrdinaryClass) {
  return {e.type, attr, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y};
}
inline PathRow pathRowOf(const Entity& e, float z, float feed) {
  return {e.type, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y, z, feed};
}

// An arc's radius is that of its start point; nearestOnArc alone goes by the end point.
inline float radiusOf(const Entity& arc) {
  return distance(arc.start, arc.center);
}

// dy/dx from start to end; an exactly vertical chord divides by the stand-in for 0.
inline double chordSlope(Point start, Point end) {
  return (static_cast<double>(end.y) - start.y) / nonZero(static_cast<double>(end.x) - start.x);
}

}  // namespace tess
