// The commands of this room: they work on the session.
// Owns: SessionCommand.
#pragma once

#include "core/command.h"
#include "core/command_list.h"

namespace tess {

struct Session;
using SessionCommand = Command<Session>;

#define TESSIMO_DECLARE(descriptor) extern const SessionCommand descriptor;
TESSIMO_CORE_COMMANDS(TESSIMO_DECLARE)
#undef TESSIMO_DECLARE

}  // namespace tess
