// The nearest row or end in the whole tables.
//
// All scans measure with `distance`, replace only by what is strictly nearer, so that the lowest
// row wins a tie, and find nothing at kFarthest or beyond. Rows that have no nearest point (a
// kind without one, an arc without a radius) are passed over. Row results are 0 for none.
// Owns: nearestLineSeg, nearestArcSeg, nearestRoundSeg, nearestSeg, nearestSelectedSeg,
//       nearestPathChord, nearestPathLine, nearestPathArc, nearestPathSeg, nearestSegEndpoint,
//       nearestPathEndpoint, nearestPointOfRow, nearestPointOfPathRow.
#pragma once

#include <optional>

#include "geometry/float_nearest.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// Lines; clockwise and counter-clockwise arcs; these and circles, which are measured as arcs too.
int nearestLineSeg(const DrawingStore& store, Point at);
int nearestArcSeg(const DrawingStore& store, Point at);
int nearestRoundSeg(const DrawingStore& store, Point at);

// All rows, a bare point by its end point; the same among the rows at kVerifiedRow.
int nearestSeg(const DrawingStore& store, Point at);
int nearestSelectedSeg(const DrawingStore& store, Point at);

// Visible path rows: lines and arcs by their chords; lines; arcs; all kinds but rapids by their
// nearest point.
// `group` 0 means all; otherwise a row belongs to it when pscode / 100 + 1, a real quotient, equals
// it exactly.
int nearestPathChord(const DrawingStore& store, Point at);
int nearestPathLine(const DrawingStore& store, Point at);
int nearestPathArc(const DrawingStore& store, Point at);
int nearestPathSeg(const DrawingStore& store, Point at, double group);

// The nearest end of any drawing row, or of a visible path row, the start before the end.
std::optional<Point> nearestSegEndpoint(const DrawingStore& store, Point at);
std::optional<Point> nearestPathEndpoint(const DrawingStore& store, Point at);

// What nearestSeg and nearestPathSeg measure to: the nearest point of one row. A miss for rows they
// pass over.
NearestPoint nearestPointOfRow(const DrawingStore& store, int sg, Point at);
NearestPoint nearestPointOfPathRow(const DrawingStore& store, int ps, Point at);

}  // namespace tess
