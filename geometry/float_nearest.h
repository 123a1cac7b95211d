// The nearest point on one entity.
// Owns: NearestPoint, isPointCycle, nearestOnLine, nearestOnRect, nearestOnArc, nearestOnCircle,
//       nearestOnSeg, nearestOnPathSeg, nearestOnSegment, nearestOnPath.
#pragma once

#include <optional>

#include "geometry/entity.h"
#include "geometry/miss.h"

namespace tess {

// Misses of arcs and circles are those of lineCircle.
struct NearestPoint {
  Miss miss = Miss::NoRule;
  Point at{};
  explicit operator bool() const { return miss == Miss::None; }
  std::optional<Point> found() const {
    return miss == Miss::None ? std::optional(at) : std::nullopt;
  }
};

// Machine cycles that are points: their place is the end point.
constexpr bool isPointCycle(int pstype) {
  return pstype >= 80 && pstype <= 89;
}

// The foot of the perpendicular from `at`, each coordinate clamped into the segment's box by
// itself: beyond an end of a slanted segment the answer may lie off the line.
Point nearestOnLine(Point start, Point end, Point at);

// The nearest of the four sides of the rectangle with these opposite corners.
Point nearestOnRect(Point corner, Point opposite, Point at);

// The nearest point of the arc's sweep.
NearestPoint nearestOnArc(const Entity& arc, Point at, float tolerence);

// The nearer of the two hits of the line through the centre.
NearestPoint nearestOnCircle(Point center, Point onCircle, Point at, float tolerence);

// The nearest point of row `sg` by its kind; NoRule for other kinds than lines, arcs, circles and
// rectangles.
NearestPoint nearestOnSeg(const DrawingStore& store, int sg, Point at);

// The same for path row `ps`: lines, arcs and the cycles that are points.
// Fixed: any other kind answers with (0, 0); scripts are told that it was found.
NearestPoint nearestOnPathSeg(const DrawingStore& store, int ps, Point at);

// The same for entities already taken from the tables.
NearestPoint nearestOnSegment(const Entity& segment, Point at, float tolerence);
NearestPoint nearestOnPath(const Entity& path, Point at, float tolerence);

}  // namespace tess
