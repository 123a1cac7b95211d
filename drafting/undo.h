// Undo and redo as commands.
// Owns: Undo_Last_Change, RedoLastChange, enableUndo, updateUndoTools, clearUndoMenu,
//       resetUndoState.
#pragma once

#include "drafting/desk.h"

namespace tess {

void Undo_Last_Change(Desk& desk);
void RedoLastChange(Desk& desk);

// What a change that entered the log ends with.
void enableUndo(Desk& desk, int mark);

// miUndo and miRedo follow the log.
void updateUndoTools(Desk& desk);

// Nothing to undo until the next change.
void clearUndoMenu(Desk& desk);
// The log starts anew, as for a new or loaded drawing.
void resetUndoState(Desk& desk);

}  // namespace tess
