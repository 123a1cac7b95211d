// Undo and redo as commands.
#include "drafting/undo.h"

#include "drafting/change_walk.h"
#include "drafting/drafting_commands.h"
#include "drafting/selection.h"

namespace tess {
namespace {

void showChange(Desk& desk) {
  collectSelected(desk);
  desk.redraw.redrawscreen();
  desk.state.updateProperties = true;
  desk.listener.UpdatePropertyWindow();
  updateUndoTools(desk);
}

}  // namespace

void Undo_Last_Change(Desk& desk) {
  const Procedure here("Undo_Last_Change");
  undoStep(desk.changes);
  showChange(desk);
}

void RedoLastChange(Desk& desk) {
  const Procedure here("RedoLastChange");
  redoStep(desk.changes);
  showChange(desk);
}

void enableUndo(Desk& desk, int mark) {
  desk.changelog.UndoMark = mark;
  updateUndoTools(desk);
}

void updateUndoTools(Desk& desk) {
  desk.tools.setEnabled("miUndo", desk.changelog.canUndo());
  desk.tools.setEnabled("miRedo", desk.changelog.canRedo());
}

void clearUndoMenu(Desk& desk) {
  desk.changelog.UndoMark = 0;
  desk.tools.setEnabled("miUndo", false);
}

void resetUndoState(Desk& desk) {
  desk.changes.abandon();
  desk.changelog.clear();
  updateUndoTools(desk);
}

// ---- Descriptors

constexpr DeskCommand kUndoCommand{
    .info = {.tool = "miUndo",
             .caption = "&Undo",
             .menu = {"miEdit", 110},
             .bar = {"barEdit", 110}},
    .run = Undo_Last_Change,
};

constexpr DeskCommand kRedoCommand{
    .info = {.tool = "miRedo",
             .caption = "&Redo",
             .menu = {"miEdit", 120},
             .bar = {"barEdit", 120}},
    .run = RedoLastChange,
};

}  // namespace tess
