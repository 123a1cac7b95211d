// Trimming and extending: an end of a row goes to where the row meets another one.
// Owns: trimSegment, trimPathSegment, mnuEditTrimEntity_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// `click` marks the side of row `sg` that is to go. Where the two do not meet, the row is extended:
// a line to 100 times its length either way, an arc round its circle. False, and no change, where
// they do not meet even so, and for rows outside the table.
bool trimSegment(Changes& changes, int sg, int trimmer, Point click);
bool trimPathSegment(Changes& changes, int ps, int trimmer, Point click);

void mnuEditTrimEntity_Click(DraftingContext& context);

}  // namespace tess
