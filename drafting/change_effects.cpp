// What a change of the drawing brings about on the context.
#include "drafting/change_effects.h"

#include <string>

#include "drafting/drafting_context.h"
#include "drafting/selection.h"
#include "drafting/undo.h"

namespace tess {

bool ChangeEffects::agreesToLoseUndo(int records) {
  const Answer answer = context_.session.host.prompts.showMessage(
      {.text = "This change takes " + std::to_string(records) +
               " records, and the undo log holds at most " + std::to_string(kMaxRecords) +
               ".\n\nWith OK the change is made and the undo log is cleared: neither this change "
               "nor any before it can be undone.  With Cancel the drawing stays as it was.",
       .title = "Undo",
       .icon = MessageIcon::Warning,
       .buttons = MessageButtons::OkCancel});
  return answer == Answer::Ok;
}

void ChangeEffects::changeKept(const Keeping& keeping, bool logged) {
  if (logged && context_.changelog.canUndo()) {
    enableUndo(context_, keeping.undoMark);
  } else if (logged) {
    clearUndoMenu(context_);
    updateUndoTools(context_);
  }
  if (keeping.redraws) context_.redraw.redrawscreen();
}

void ChangeEffects::changeTakenBack() {
  collectSelected(context_);
  context_.state.updateProperties = true;
  context_.redraw.setTaskQueueState(1);
}

}  // namespace tess
