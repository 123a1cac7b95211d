// The repeat key: F3 and F12 issue the last repeatable command again.
// Owns: repeatLastCommand.
#pragma once

#include "drafting/desk.h"

namespace tess {

// Issues the command of LastCommand; nothing for a number that stands for none.
void repeatLastCommand(Desk& desk);

}  // namespace tess
