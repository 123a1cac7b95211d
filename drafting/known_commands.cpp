// What the context knows of commands.
#include "drafting/known_commands.h"

namespace tess {

void KnownCommands::addCommand(DraftingContext& context, const DraftingCommand& command) {
  addActions(context, command.actions);
  nameActions(command.info, command.actions);
  addRepeats(context, command.run, command.repeat);
  if (command.mode.number != kNoMode) modes.push_back(&command);
}

const ActionText* findAction(const KnownCommands& known, int number) {
  const bool inTable = number >= 0 && number < kActionNumbers;
  return inTable ? known.actionTexts[static_cast<std::size_t>(number)] : nullptr;
}

bool hovers(const KnownCommands& known, int number) {
  return findAction(known, number) != nullptr &&
         known.hoverActions[static_cast<std::size_t>(number)] != nullptr;
}

const DrawingMode* modeOf(const KnownCommands& known, int drawMode) {
  for (const DraftingCommand* const command : known.modes) {
    if (command->mode.number == drawMode) return &command->mode;
  }
  return nullptr;
}

bool takesThreePoints(const KnownCommands& known, int drawMode) {
  const DrawingMode* const mode = modeOf(known, drawMode);
  return mode != nullptr && mode->threePoints;
}

}  // namespace tess
