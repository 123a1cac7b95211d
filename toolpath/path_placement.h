// Placing path rows: what every generator shares, and the placing commands of the menu.
// Owns: pointsWithin, replicatePathAtZ, connectPathSegs, pathRowExistsFor, reversePathSegment, the
//       placing commands.
#pragma once

#include "toolpath/cam_desk.h"

namespace tess {

// True when both coordinates differ by less than `d`.
bool pointsWithin(Point a, Point b, double d);

// Appends a copy of the last run of rows of one depth and code at another depth; one step of the
// log.
void replicatePathAtZ(CamDesk& cam, float z, float feed);

// Links the gaps between consecutive rows `first` to `last` by feed moves, save where an island's
// working outline is in the way. Returns the last row's new number.
int connectPathSegs(CamDesk& cam, int first, int last);

// True when a path row lies exactly on drawing row `sg`, in either direction.
bool pathRowExistsFor(const DrawingStore& store, int sg);

// Runs a line or an arc the other way; other rows stay.
void reversePathSegment(CamDesk& cam, int ps);

void mnuCAMPlace1PathSeg_Click(CamDesk& cam);
void quickPlacePaths(CamDesk& cam);
void mnuCAMUndoLastPlace_Click(CamDesk& cam);
void mnuClearAllPaths_Click(CamDesk& cam);
void mnuRevPathDir_Click(CamDesk& cam);

// Fills in the click of reversing.
void addPlacementClicks(CamDesk& cam);

}  // namespace tess
