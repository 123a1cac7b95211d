// New Start Position: the click becomes the machine's start position.
// Owns: addStartPositionClick.
#pragma once

#include "drafting/desk.h"

namespace tess {

// Fills in the click of the action, which sets the X and Y of the start position.
void addStartPositionClick(ClickActions& clicks);

}  // namespace tess
