// The commands of this room: they work on the context of the tool paths.
// Owns: CamCommand.
#pragma once

#include "core/command.h"
#include "core/command_list.h"

namespace tess {

struct CamContext;
using CamCommand = Command<CamContext>;

#define TESSIMO_DECLARE(descriptor) extern const CamCommand descriptor;
TESSIMO_TOOLPATH_COMMANDS(TESSIMO_DECLARE)
#undef TESSIMO_DECLARE

// All of them, in the order of the list.
std::span<const CamCommand* const> toolpathCommands();

}  // namespace tess
