// The commands of this room: they work on the drafting context.
// Owns: .
#pragma once

#include "core/command_list.h"
#include "drafting/drafting_command.h"

namespace tess {

#define TESSIMO_DECLARE(descriptor) extern const DraftingCommand descriptor;
TESSIMO_IMPORT_COMMANDS(TESSIMO_DECLARE)
#undef TESSIMO_DECLARE

// All of them, in the order of the list.
std::span<const DraftingCommand* const> importCommands();

}  // namespace tess
