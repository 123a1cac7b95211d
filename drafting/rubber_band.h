// The bands that follow the pointer while a button is held. All are drawn in the inverting pen, so
// that drawing one again removes it; what is on the screen is remembered, since a redraw wipes it.
// Owns: showRubberBand, eraseRubberBand, moveRubberBand, showDragBand, eraseDragBand, moveDragBand.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// The band of the drawing mode, from the marker to MouseMoveX, MouseMoveY. A three-point mode has
// none until its second point is taken.
void showRubberBand(DraftingContext& context);
void eraseRubberBand(DraftingContext& context);
// Takes the band, or where there is none starts one, to a new position.
void moveRubberBand(DraftingContext& context, Point to);

// The band of the armed action, from MouseDownX, MouseDownY to MouseMoveX, MouseMoveY: the dotted
// box of selecting, the dashed one of the zoom window, the arrow of measuring, or the rows that a
// click would make.
void showDragBand(DraftingContext& context);
void eraseDragBand(DraftingContext& context);
void moveDragBand(DraftingContext& context, Point to);

}  // namespace tess
