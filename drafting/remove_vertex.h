// Removing a vertex: the two rows that meet there become one.
// Owns: joinedLineCount, joinedPathCount, mnuDeleteVertex_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// Lines of the drawing with an end that is samePoint to `at`; one with both ends there counts once.
int joinedLineCount(const DrawingStore& store, Point at);
// The same among the visible path rows that are lines or arcs.
int joinedPathCount(const DrawingStore& store, Point at);

void mnuDeleteVertex_Click(DraftingContext& context);

}  // namespace tess
