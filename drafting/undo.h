// Undo and redo as commands.
// Owns: Undo_Last_Change, RedoLastChange, enableUndo, updateUndoTools, clearUndoMenu,
//       resetUndoState.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

void Undo_Last_Change(DraftingContext& context);
void RedoLastChange(DraftingContext& context);

// What a change that entered the log ends with.
void enableUndo(DraftingContext& context, int mark);

// miUndo and miRedo follow the log.
void updateUndoTools(DraftingContext& context);

// Nothing to undo until the next change.
void clearUndoMenu(DraftingContext& context);
// The log starts anew, as for a new or loaded drawing.
void resetUndoState(DraftingContext& context);

}  // namespace tess
