// `call` for the cutter, its material, and the texts of the property window.
// Owns: toolChestRoutines.
#pragma once

#include <span>

#include "shell/automation/lua_routines.h"

namespace tess {

std::span<const Routine> toolChestRoutines();

}  // namespace tess
