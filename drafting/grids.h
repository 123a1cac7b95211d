// The cursor grid and the visual grid: snapping, their buttons and Grid Setup.
// Owns: snapToGrid, snappedToGrid, onGrid, UpdateGridButtons, Vgrid_ButtonClick, Cgrid_ButtonClick,
//       flipGrids, mnuOptionsGridSelection_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// The multiple of `spacing` nearest to the value, halves upward. A spacing of 0 snaps nothing.
float snapToGrid(float value, float spacing);

// The point on the cursor grid while that is on, else the point itself.
Point snappedToGrid(const DrawingStore& store, Point at);

// The same for a click, whose typed place is nowhere moved.
Point onGrid(const DraftingContext& context, Point at);

// The tools VGrid, CGrid and OSnap show their flags.
void UpdateGridButtons(DraftingContext& context);

void Vgrid_ButtonClick(DraftingContext& context);
void Cgrid_ButtonClick(DraftingContext& context);

// The G key: each flag becomes 1 minus itself, whatever the other is.
void flipGrids(DraftingContext& context);

void mnuOptionsGridSelection_Click(DraftingContext& context);

}  // namespace tess
