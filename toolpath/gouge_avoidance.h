// Gouge avoidance: folds of a chain that crosses itself are cut off at their roots.
// Owns: ChainKind, removeSelfIntersections, miGougeAvoidance_Click.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

// A placed path, or the working outlines of roughing.
enum class ChainKind { Path, Segs };

// Cleans the chain from row `first`: to the end of its path group, or to the last drawing row. One
// fold is cut off per pass; after eleven passes the operator is told to check the path. Not logged.
void removeSelfIntersections(CamContext& cam, int first, ChainKind kind);

// By hand: at once when there is one group, otherwise for the group that is clicked.
void miGougeAvoidance_Click(CamContext& cam);

}  // namespace tess
