// The tools that show the drawing mode.
// Owns: showDrawMode.
#pragma once

#include "drafting/desk.h"

namespace tess {

// Unchecks all tools of drawing, selecting and panning, gives the pointer its default shape, and
// checks the tool of the present mode.
void showDrawMode(Desk& desk);

}  // namespace tess
