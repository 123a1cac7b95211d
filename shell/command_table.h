// The commands of all rooms as commands of the program, in one table.
// Owns: CommandEntry, commands, armedCommand.
#pragma once

#include <span>

#include "core/command.h"

namespace tess {

class Application;

struct CommandEntry {
  const CommandInfo* info;
  void (*run)(Application& application);
};

// In the order in which a click on a tool is compared with their names.
std::span<const CommandEntry> commands();

// The command that has armed a pending action, else the one of a drawing mode; null for neither.
const CommandEntry* armedCommand(int pendingaction, int drawMode);

}  // namespace tess
