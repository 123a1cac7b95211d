// Crossings of lines and arcs.
//
// Line with line: kCrossing, kBeyond (the lines cross outside a segment; the point is written all
// the same) or kParallel. Pairs with an arc: the sum of kFirstHit and kSecondHit for the hits that
// lie on both entities. Any result below 1 means no crossing, and but for kBeyond the outputs keep
// their values; above 0 both hits are written.
// Owns: the crossing codes, intersectSlopes, intersectLines, intersectLineArc, intersectArcs,
//       intersectEntities, intersectSegs, intersectPathSegs, intersectWithSeg.
#pragma once

#include "geometry/entity.h"

namespace tess {

inline constexpr int kCrossing = 1;
inline constexpr int kBeyond = 0;
inline constexpr int kParallel = -1;
inline constexpr int kSameRow = -1;
inline constexpr int kNoCrossing = 0;
inline constexpr int kFirstHit = 1;   // bit 1
inline constexpr int kSecondHit = 2;  // bit 2

// Where the lines y = m1*x + b1 and y = m2*x + b2 meet, rounded to 6 places; kParallel for exactly
// equal slopes.
int intersectSlopes(double m1, double b1, double m2, double b2, Point& at);

// Near-vertical segments take the slope that nonZero gives them, so two vertical ones of different
// length still meet somewhere.
int intersectLines(const Entity& a, const Entity& b, Point& at);

// A code of lineCircle below 1 is passed on.
int intersectLineArc(const Entity& line, const Entity& arc, float tolerence, PointPair& at);

int intersectArcs(const Entity& a, const Entity& b, float tolerence, PointPair& at);

// Dispatches on 10 * type of the first + type of the second; kNoCrossing for kinds without a rule.
// Two lines write the first point alone.
int intersectEntities(const Entity& a, const Entity& b, float tolerence, PointPair& at);

// The same for rows of the tables; kSameRow for equal indices.
int intersectSegs(const DrawingStore& store, int sgA, int sgB, PointPair& at);
int intersectPathSegs(const DrawingStore& store, int psA, int psB, PointPair& at);
int intersectWithSeg(const DrawingStore& store, const Entity& entity, int sg, PointPair& at);

}  // namespace tess
