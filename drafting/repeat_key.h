// The repeat key: F3 and F12 issue the last repeatable command again.
// Owns: repeatLastCommand.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// Issues the command of LastCommand; nothing for a number that stands for none.
void repeatLastCommand(DraftingContext& context);

}  // namespace tess
