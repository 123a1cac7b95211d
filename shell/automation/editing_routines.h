// The editing routines among those of `call`.
// Owns: editingRoutines.
#pragma once

#include <span>

#include "shell/automation/lua_routines.h"

namespace tess {

std::span<const Routine> editingRoutines();

}  // namespace tess
