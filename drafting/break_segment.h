// Breaking a row in two at a point of it.
// Owns: BreakResult, breakSegment, breakPathSegment, mnuEditBreakSeg_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

enum class BreakResult {
  Broken,
  NoRow,  // the index is outside the table
  AtEnd,  // the point is an end of the row: there is nothing to part
};

// Row `sg` keeps its first part, up to `at`, and a new row of the same kind gets the rest. The new
// row of a path comes right behind. A circle becomes two arcs. Raises Overflow for a full table.
BreakResult breakSegment(Changes& changes, int sg, Point at);
BreakResult breakPathSegment(Changes& changes, int ps, Point at);

void mnuEditBreakSeg_Click(DraftingContext& context);

}  // namespace tess
