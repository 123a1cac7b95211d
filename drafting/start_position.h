// New Start Position: the click becomes the machine's start position.
// Owns: clickStartPosition.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

// The click of the action: sets the X and Y of the start position.
void clickStartPosition(DraftingContext& context);

}  // namespace tess
