// Scaling the drawing, or what is selected of it, about the origin.
// Owns: scaleSegments, convertDrawing, scaledrawing.
#pragma once

#include "drafting/change.h"

namespace tess {

struct DraftingContext;

// Multiplies ends and centres of the drawing rows, or of the selected ones, verified or not. Path
// rows stay. Raises Overflow, and then has scaled nothing.
void scaleSegments(Changes& changes, float factor, bool selectedOnly, Entry entry = Entry::Logged);

// Scales all drawing rows after the units were changed. The settings have been converted by then,
// so that the operator is not asked whether undo may be lost to a step that the log cannot hold.
void convertDrawing(DraftingContext& context, float factor);

// Asks for the factor. One that is not above 0 beeps, 1 does nothing.
void scaledrawing(DraftingContext& context);

}  // namespace tess
