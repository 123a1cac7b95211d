// The repeat key.
#include "drafting/repeat_key.h"

namespace tess {

void repeatLastCommand(Desk& desk) {
  const int last = desk.command.LastCommand;
  if (last < 0 || last >= kActionNumbers) return;
  const auto& issue = desk.repeatCommands[static_cast<std::size_t>(last)];
  if (issue) issue(desk);
}

}  // namespace tess
