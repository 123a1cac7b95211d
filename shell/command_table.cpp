// The one table of commands, from the list of all.
#include "shell/command_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "core/core_commands.h"
#include "display/display_commands.h"
#include "drafting/drafting_commands.h"
#include "import/import_commands.h"
#include "shell/application.h"
#include "shell/shell_commands.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

// What a command works on.
Session& contextOf(const SessionCommand& /*command*/, Application& application) {
  return application.session;
}
ViewCommands& contextOf(const ViewCommand& /*command*/, Application& application) {
  return application.interaction.viewCommands;
}
DraftingContext& contextOf(const DraftingCommand& /*command*/, Application& application) {
  return application.interaction.context;
}
CamContext& contextOf(const CamCommand& /*command*/, Application& application) {
  return application.interaction.cam;
}
Application& contextOf(const ShellCommand& /*command*/, Application& application) {
  return application;
}

template <const auto& command>
constexpr CommandEntry entryOf() {
  return {&command.info,
          [](Application& application) { command.run(contextOf(command, application)); }};
}

#define TESSIMO_ENTRY(descriptor) entryOf<descriptor>(),
constexpr CommandEntry kCommands[] = {TESSIMO_COMMANDS(
    TESSIMO_ENTRY, TESSIMO_ENTRY, TESSIMO_ENTRY, TESSIMO_ENTRY, TESSIMO_ENTRY, TESSIMO_ENTRY)};
#undef TESSIMO_ENTRY

template <const auto& command>
bool arms(int pendingaction, int drawMode) {
  if (pendingaction != 0) {
    return std::any_of(command.actions.begin(), command.actions.end(), [&](const auto& action) {
      return static_cast<int>(action.text.action) == pendingaction;
    });
  }
  if constexpr (requires { command.mode.number; }) {
    return drawMode != kNoMode && command.mode.number == drawMode;
  }
  return false;
}

#define TESSIMO_ARMS(descriptor) arms<descriptor>,
constexpr bool (*kArming[])(int,
                            int) = {TESSIMO_COMMANDS(TESSIMO_ARMS, TESSIMO_ARMS, TESSIMO_ARMS,
                                                     TESSIMO_ARMS, TESSIMO_ARMS, TESSIMO_ARMS)};
#undef TESSIMO_ARMS

}  // namespace

std::span<const CommandEntry> commands() {
  return kCommands;
}

const CommandEntry* armedCommand(int pendingaction, int drawMode) {
  for (std::size_t index = 0; index < std::size(kArming); ++index) {
    if (kArming[index](pendingaction, drawMode)) return &kCommands[index];
  }
  return nullptr;
}

}  // namespace tess
