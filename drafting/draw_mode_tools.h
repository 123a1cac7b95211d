// The tools that show the drawing mode.
// Owns: drawModeTools, showDrawMode.
#pragma once

#include <vector>

#include "drafting/drafting_context.h"

namespace tess {

// The tools of drawing, selecting and panning: at most one of them is checked.
std::vector<const char*> drawModeTools(const DraftingContext& context);

// Unchecks all of them, gives the pointer its default shape, and checks the tool of the present
// mode.
void showDrawMode(DraftingContext& context);

}  // namespace tess
