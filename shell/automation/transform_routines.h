// The routines of copies and transforms among those of `call`.
// Owns: transformRoutines.
#pragma once

#include <span>

#include "shell/automation/lua_routines.h"

namespace tess {

std::span<const Routine> transformRoutines();

}  // namespace tess
