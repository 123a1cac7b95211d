// The tool-path routines among those of `call`.
// Owns: toolpathRoutines.
#pragma once

#include <span>

#include "shell/automation/lua_routines.h"

namespace tess {

std::span<const Routine> toolpathRoutines();

}  // namespace tess
