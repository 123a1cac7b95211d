// The rubber band: what follows the pointer while a button is held, drawn in the inverting pen so
// that drawing it again removes it.
// Owns: drawRubberBand, traceSelectionBox.
#pragma once

#include "drafting/desk.h"

namespace tess {

// Draws the band of the drawing mode from the marker to MouseMoveX, MouseMoveY and leaves the pen
// copying. Nothing in a three-point mode whose second point is not taken yet.
void drawRubberBand(Desk& desk);

// The dotted box from the press to MouseMoveX, MouseMoveY; nothing while it has no extent.
void traceSelectionBox(Desk& desk);

}  // namespace tess
