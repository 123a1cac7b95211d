// Deleting rows: the selected ones at once, or one by a click; and Cut.
// Owns: mnuEditDelete_Click, mnuEditCut_Click.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// Deletes the selected ordinary rows, with EditPaths the selected path rows, and unmarks all
// others. Drawing rows go into the paste buffer. With nothing to delete a click is armed.
void mnuEditDelete_Click(DraftingContext& context);

// Deletes selected rows that then can be pasted; a message without a selection.
void mnuEditCut_Click(DraftingContext& context);

}  // namespace tess
