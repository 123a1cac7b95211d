// Bounding boxes of drawing and path rows.
// Owns: arcBox, entityBox, largestCoordinate, magnitudeOf, segmentEntities, pathEntities,
//       entityBoxes, kRoundingMargin, nearestSlack, leastDistance.
#pragma once

#include <vector>

#include "geometry/box_index.h"
#include "geometry/entity.h"

namespace tess {

// The exact box of an arc's sweep: its ends as they are stored and each quadrant point that the
// sweep passes. Equal end angles are the whole circle. Should start and end differ in radius, the
// box holds the sweep at both, since some routines go by the start and nearestOnArc by the end.
Box arcBox(const Entity& arc);

// The box of any row: arcs and circles by their curve, all other kinds by their two points.
Box entityBox(const Entity& entity);

// The largest coordinate, of an arc or circle also the radius: the scale of what rounding costs.
double largestCoordinate(Point p);
double magnitudeOf(const Entity& entity);

// All rows of a table; element k is row k + 1.
std::vector<Entity> segmentEntities(const DrawingStore& store);
std::vector<Entity> pathEntities(const DrawingStore& store);
// Rows `first` to `last`. Both raise Subscript out of range outside the table.
std::vector<Entity> segmentEntities(const DrawingStore& store, int first, int last);
std::vector<Entity> pathEntities(const DrawingStore& store, int first, int last);
std::vector<Box> entityBoxes(const std::vector<Entity>& entities);

// Distances are compared in 32 bits: two that differ by less than this part may count as equal.
inline constexpr double kRoundingMargin = 4e-6;

// How far outside its box the nearest point of an arc or circle may be placed, by its magnitude
// and that of the point asked about. Other kinds stay in their boxes.
double nearestSlack(double magnitude, float tolerence);

// What the distance from `at` to a row's nearest point cannot be below. It costs far less than that
// point does; a row of no use to a search is passed over by it.
double leastDistance(const Entity& entity, Point at, float tolerence);

}  // namespace tess
