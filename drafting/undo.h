// Undo and redo as commands.
// Owns: Undo_Last_Change, RedoLastChange, the undo marks, enableUndo, updateUndoTools,
//       clearUndoMenu, resetUndoState.
#pragma once

#include "drafting/desk.h"

namespace tess {

void Undo_Last_Change(Desk& desk);
void RedoLastChange(Desk& desk);

// What kind of change can be taken back.
inline constexpr int kRowsAdded = 1;
inline constexpr int kRectangleAdded = 4;
inline constexpr int kRowsDeleted = -1;

// What a command that logged a change ends with.
void enableUndo(Desk& desk, int mark);

// miUndo and miRedo follow the log.
void updateUndoTools(Desk& desk);

// Nothing to undo until the next change.
void clearUndoMenu(Desk& desk);
// The log starts anew, as for a new or loaded drawing.
void resetUndoState(Desk& desk);

}  // namespace tess
