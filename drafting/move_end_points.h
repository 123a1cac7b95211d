// Moving an end point, with all rows that end there.
// Owns: moveEndpoints, movePathEndpoints, pressEndPoint, releaseEndPoint, mnuEditMoveEnd_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// All ends that are samePoint to `from` come to `to`, as one step. An arc keeps its radius, and
// stays as it is where that does not reach; so does a full circle. A machine cycle moves as a
// whole. Lines that come to have no length go. Path rows that are hidden stay.
void moveEndpoints(Changes& changes, Point from, Point to);
void movePathEndpoints(Changes& changes, Point from, Point to);

// The press takes up the end point nearest to it, the release puts it down.
void pressEndPoint(DraftingContext& context, Point at);
void releaseEndPoint(DraftingContext& context, Point at);

void mnuEditMoveEnd_Click(DraftingContext& context);

}  // namespace tess
