// What editing commands have in common.
#include "drafting/edit_steps.h"

#include "drafting/selection.h"

namespace tess {

bool hasRowsToEdit(const DraftingContext& context) {
  return onEditedTable(context, [&context](auto table) { return table.count(context.store) >= 1; });
}

bool keepEdit(DraftingContext& context, Change& change, const Keeping& keeping) {
  if (!change.keep(keeping)) return false;
  collectSelected(context);
  context.state.updateProperties = true;
  return true;
}

void beep(DraftingContext& context) {
  context.session.host.surroundings.beep();
}

void warn(DraftingContext& context, const std::string& text, const std::string& title) {
  context.session.host.prompts.showMessage(
      {.text = text, .title = title, .icon = MessageIcon::Warning});
}

}  // namespace tess
