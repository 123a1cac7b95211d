// Arcs turned over: to the other side of their chord, or into the rest of their circle.
// Owns: mnuEditFlipArc_Click, mnuEditRevArc_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// The arc keeps its ends and radius and curves to the other side.
void mnuEditFlipArc_Click(DraftingContext& context);

// The arc keeps its ends and centre and runs the other way round.
void mnuEditRevArc_Click(DraftingContext& context);

}  // namespace tess
