// The walls that the jobs of placing commands have, from the drawing and the click.
// Owns: wallsOf, wallsToClear, wallsBeside, noteRoughing.
#pragma once

#include "toolpath/job_notes.h"
#include "toolpath/pocket_region.h"

namespace tess {

JobWalls wallsOf(const PocketRegion& region);

// Those of a pocket that is cleared: all verified rows. None where they make no outlines.
JobWalls wallsToClear(const DrawingStore& store);

// Those beside a path along the outline of row `sg`, on the side of the click: all verified rows
// for a verified outline that the click is free of, or else the outline alone. An open chain, and
// rows that branch, are walls on both sides.
JobWalls wallsBeside(const DrawingStore& store, int sg, Point click);

// Notes the job of the rows that Rough Cut Pocket has placed in the style that is set.
void noteRoughing(CamContext& cam);

}  // namespace tess
