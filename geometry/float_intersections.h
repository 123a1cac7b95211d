// Crossings of lines and arcs.
// Owns: intersectSlopes, Crossing, nearerHit, intersectLines, intersectLineArc, intersectArcs,
//       intersectEntities, intersectSegs, intersectPathSegs, intersectWithSeg.
#pragma once

#include <optional>

#include "geometry/entity.h"
#include "geometry/miss.h"

namespace tess {

// Where the lines y = m1*x + b1 and y = m2*x + b2 meet, rounded to 6 places; none for exactly equal
// slopes.
std::optional<Point> intersectSlopes(double m1, double b1, double m2, double b2);

// The hits of two entities, as far as they lie on both. Lines have the first alone.
struct Crossing {
  Miss miss = Miss::NoRule;
  bool first = false, second = false;  // which of `at` count
  PointPair at{};  // both hits, if either counts; of lines that meet elsewhere their common point
  explicit operator bool() const { return miss == Miss::None; }
};

// Of the hits that count the one nearer to `at`, of two equally near ones the first.
Point nearerHit(const Crossing& crossing, Point at);

// Misses: Parallel, Apart. Near-vertical segments take the slope that nonZero gives them, so two
// vertical ones of different length still meet somewhere.
Crossing intersectLines(const Entity& a, const Entity& b);

// Misses: those of lineCircle, Apart.
Crossing intersectLineArc(const Entity& line, const Entity& arc, float tolerence);

// Miss: Apart.
Crossing intersectArcs(const Entity& a, const Entity& b, float tolerence);

// Dispatches on 10 * type of the first + type of the second; NoRule for other kinds.
Crossing intersectEntities(const Entity& a, const Entity& b, float tolerence);

// The same for rows of the tables; SameRow for equal indices.
Crossing intersectSegs(const DrawingStore& store, int sgA, int sgB);
Crossing intersectPathSegs(const DrawingStore& store, int psA, int psB);
Crossing intersectWithSeg(const DrawingStore& store, const Entity& entity, int sg);

}  // namespace tess
