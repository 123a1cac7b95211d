// Placing path rows: what every generator shares, and the placing commands of the menu.
// Owns: pointsWithin, roughingFloor, firstLevel, replicatePathAtZ, replicateLevels,
//       connectPathSegs, reversePathSegment, mnuCAMPlace1PathSeg_Click, mnuCAMUndoLastPlace_Click,
//       mnuClearAllPaths_Click, mnuRevPathDir_Click.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

// True when both coordinates differ by less than `d`.
bool pointsWithin(Point a, Point b, double d);

// The deepest level of roughing: the final depth less what the floor finish takes. Never positive,
// unless the floor finish is deeper than the part.
float roughingFloor(const DrawingStore& store);
// The first of several levels above `floor`.
float firstLevel(const DrawingStore& store, float floor);

// Appends a copy of the last run of rows of one depth and code at another depth; one step of the
// log.
void replicatePathAtZ(CamContext& cam, float z, float feed);

// Copies what was cut at level `z` to the levels below it, down to `floor` at the roughing feed and
// then to the floor finish, if there is one. Nothing is copied when no row came after the first
// `rowsBefore`. Returns the deepest level.
float replicateLevels(CamContext& cam, float z, float floor, int rowsBefore);

// Links the gaps between consecutive rows `first` to `last` by feed moves, save where an island's
// working outline is in the way. The links belong to the step of the rows before them. Returns the
// last row's new number. Raises Subscript out of range outside the table.
int connectPathSegs(CamContext& cam, int first, int last);

// Runs a line or an arc the other way; other rows stay.
void reversePathSegment(CamContext& cam, int ps);

void mnuCAMPlace1PathSeg_Click(CamContext& cam);
void mnuCAMUndoLastPlace_Click(CamContext& cam);
void mnuClearAllPaths_Click(CamContext& cam);
// Arms the click that reverses a row; without path rows it cancels what is armed.
void mnuRevPathDir_Click(CamContext& cam);

}  // namespace tess
