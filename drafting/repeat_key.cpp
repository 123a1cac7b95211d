// The repeat key.
#include "drafting/repeat_key.h"

namespace tess {

void repeatLastCommand(DraftingContext& context) {
  const int last = context.command.LastCommand;
  if (last < 0 || last >= kActionNumbers) return;
  const auto& issue = context.repeatCommands[static_cast<std::size_t>(last)];
  if (issue) issue(context);
}

}  // namespace tess
