// What a change of the drawing brings about on the desk.
#include "drafting/change_effects.h"

#include <string>

#include "drafting/desk.h"
#include "drafting/selection.h"
#include "drafting/undo.h"

namespace tess {

bool ChangeEffects::agreesToLoseUndo(int records) {
  const Answer answer = desk_.session.host.prompts.showMessage(
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
  if (logged && desk_.changelog.canUndo()) {
    enableUndo(desk_, keeping.undoMark);
  } else if (logged) {
    clearUndoMenu(desk_);
    updateUndoTools(desk_);
  }
  if (keeping.redraws) desk_.redraw.redrawscreen();
}

void ChangeEffects::changeTakenBack() {
  collectSelected(desk_);
  desk_.state.updateProperties = true;
  desk_.redraw.setTaskQueueState(1);
}

}  // namespace tess
