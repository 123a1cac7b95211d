// The commands of this room: they work on the view.
// Owns: ViewCommand.
#pragma once

#include "core/command.h"
#include "core/command_list.h"

namespace tess {

class ViewCommands;
using ViewCommand = Command<ViewCommands>;

#define TESSIMO_DECLARE(descriptor) extern const ViewCommand descriptor;
TESSIMO_DISPLAY_COMMANDS(TESSIMO_DECLARE)
#undef TESSIMO_DECLARE

// All of them, in the order of the list.
std::span<const ViewCommand* const> displayCommands();

}  // namespace tess
