// Copying drawing rows into the paste buffer and putting them down beside the marker.
// Owns: recordsToPaste, Copy_segment, Paste_segment, Clear_Paste, mnuEditCopy_Click,
//       mnuEditPaste_Click.
#pragma once

#include <vector>

#include "drafting/change_log.h"

namespace tess {

struct DraftingContext;

// The selected ordinary rows and row `clicked`, 0 for none, in the order of the table.
std::vector<clsSegment> recordsToPaste(const DrawingStore& store, int clicked);

// Keeps the selected ordinary rows, and while Copy waits for its click the row nearest to it, with
// the marker as their base. Without either the rows stay that were kept before, for the marker as
// it stands now. Nothing is armed then.
void Copy_segment(DraftingContext& context);

// Adds the rows kept, moved by as much as the marker has moved since, as one step. Raises Overflow
// for a table that they do not fit into, and then has added none.
void Paste_segment(DraftingContext& context);

// Nothing is kept any more.
void Clear_Paste(DraftingContext& context);

// Copies what is selected, or else arms the click that picks a row.
void mnuEditCopy_Click(DraftingContext& context);
void mnuEditPaste_Click(DraftingContext& context);

}  // namespace tess
