// The nearest point on one entity.
//
// A routine that can fail gives kFound, or a code below 1 with its output untouched.
// Owns: kFound, kNoPoint, nearestOnLine, nearestOnArc, nearestOnCircle, nearestOnRect,
//       nearestOnSeg, nearestOnPathSeg, isPointCycle.
#pragma once

#include "geometry/circles.h"
#include "geometry/entity.h"

namespace tess {

inline constexpr int kFound = 1;
inline constexpr int kNoPoint = 0;  // a kind of row that has no nearest point

// Machine cycles that are points: their place is the end point.
constexpr bool isPointCycle(int pstype) {
  return pstype >= 80 && pstype <= 89;
}

// The foot of the perpendicular from `at`, each coordinate clamped into the segment's box by
// itself: beyond an end of a slanted segment the answer may lie off the line.
Point nearestOnLine(Point start, Point end, Point at);

// The nearest of the four sides of the rectangle with these opposite corners.
Point nearestOnRect(Point corner, Point opposite, Point at);

// The nearest point of the arc's sweep. A code of lineCircle below 1 is passed on.
int nearestOnArc(const Entity& arc, Point at, float tolerence, Point& nearest);

// The nearer of the two hits of the line through the centre. A code below 1 is passed on.
int nearestOnCircle(Point center, Point onCircle, Point at, float tolerence, Point& nearest);

// The nearest point of row `sg` by its kind; kNoPoint for other kinds than lines, arcs, circles and
// rectangles.
int nearestOnSeg(const DrawingStore& store, int sg, Point at, Point& nearest);

// The same for path row `ps`: lines, arcs and the cycles that are points. Other kinds report
// kFound too and leave the output alone.
int nearestOnPathSeg(const DrawingStore& store, int ps, Point at, Point& nearest);

// The same for entities already taken from the tables.
int nearestOnSegment(const Entity& segment, Point at, float tolerence, Point& nearest);
int nearestOnPath(const Entity& path, Point at, float tolerence, Point& nearest);

}  // namespace tess
