// What editing commands have in common.
#include "drafting/edit_steps.h"

#include "drafting/selection.h"

namespace tess {

bool hasRowsToEdit(const Desk& desk) {
  return onEditedTable(desk, [&desk](auto table) { return table.count(desk.store) >= 1; });
}

bool keepEdit(Desk& desk, Change& change, const Keeping& keeping) {
  if (!change.keep(keeping)) return false;
  collectSelected(desk);
  desk.state.updateProperties = true;
  return true;
}

void beep(Desk& desk) {
  desk.session.host.surroundings.beep();
}

void warn(Desk& desk, const std::string& text, const std::string& title) {
  desk.session.host.prompts.showMessage(
      {.text = text, .title = title, .icon = MessageIcon::Warning});
}

}  // namespace tess
