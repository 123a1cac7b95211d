// Undo and redo as commands.
#include "drafting/undo.h"

#include "drafting/change_walk.h"
#include "drafting/drafting_commands.h"
#include "drafting/selection.h"

namespace tess {
namespace {

void showChange(DraftingContext& context) {
  collectSelected(context);
  context.redraw.redrawscreen();
  context.state.updateProperties = true;
  context.listener.UpdatePropertyWindow();
  updateUndoTools(context);
}

}  // namespace

void Undo_Last_Change(DraftingContext& context) {
  const Procedure here("Undo_Last_Change");
  undoStep(context.changes);
  showChange(context);
}

void RedoLastChange(DraftingContext& context) {
  const Procedure here("RedoLastChange");
  redoStep(context.changes);
  showChange(context);
}

void enableUndo(DraftingContext& context, int mark) {
  context.changelog.UndoMark = mark;
  updateUndoTools(context);
}

void updateUndoTools(DraftingContext& context) {
  context.tools.setEnabled("miUndo", context.changelog.canUndo());
  context.tools.setEnabled("miRedo", context.changelog.canRedo());
}

void clearUndoMenu(DraftingContext& context) {
  context.changelog.UndoMark = 0;
  context.tools.setEnabled("miUndo", false);
}

void resetUndoState(DraftingContext& context) {
  context.changes.abandon();
  context.changelog.clear();
  updateUndoTools(context);
}

// ---- Descriptors

constexpr DraftingCommand kUndoCommand{
    .info = {.tool = "miUndo",
             .caption = "&Undo",
             .menu = {"miEdit", 110},
             .bar = {"barEdit", 110}},
    .run = Undo_Last_Change,
};

constexpr DraftingCommand kRedoCommand{
    .info = {.tool = "miRedo",
             .caption = "&Redo",
             .menu = {"miEdit", 120},
             .bar = {"barEdit", 120}},
    .run = RedoLastChange,
};

}  // namespace tess
