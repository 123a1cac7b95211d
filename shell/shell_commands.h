// The commands of this room: they work on the whole program.
// Owns: ShellCommand.
#pragma once

#include "core/command.h"
#include "core/command_list.h"

namespace tess {

class Application;
using ShellCommand = Command<Application>;

#define TESSIMO_DECLARE(descriptor) extern const ShellCommand descriptor;
TESSIMO_SHELL_COMMANDS(TESSIMO_DECLARE)
#undef TESSIMO_DECLARE

}  // namespace tess
