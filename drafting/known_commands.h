// What the context knows of commands: which pending actions there are and what their clicks do,
// what the repeat key issues, and the drawing modes. All of it comes from descriptors.
// Owns: kActionNumbers, ByAction, KnownCommands, findAction, hovers, modeOf, takesThreePoints.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include "core/pending_action.h"
#include "drafting/drafting_command.h"

namespace tess {

// By the number of the pending action or of LastCommand; 0 to 47.
inline constexpr int kActionNumbers = 48;
template <class Entry>
using ByAction = std::array<Entry, kActionNumbers>;

struct KnownCommands {
  ByAction<const ActionText*> actionTexts{};  // null for a number that is no action
  // The command that arms an action, or from which it follows by steps; null for none.
  ByAction<const CommandInfo*> actionCommands{};
  // An action without an entry is armed and prompts, and its click has no effect.
  ByAction<std::function<void(DraftingContext&)>> clickActions;
  // An action without an entry has nothing that hovers.
  ByAction<std::function<std::vector<SegmentRow>()>> hoverActions;
  // A number without an entry does nothing.
  ByAction<std::function<void(DraftingContext&)>> repeatCommands;
  std::vector<const DraftingCommand*> modes;  // the commands that bring a drawing mode

  // Takes a command in. `context` is what it works on, and outlives this.
  template <class Context>
  void addCommand(Context& context, const Command<Context>& command) {
    addActions(context, command.actions);
    nameActions(command.info, command.actions);
    addRepeats(context, command.run, command.repeat);
  }
  void addCommand(DraftingContext& context, const DraftingCommand& command);

  template <class Context>
  void addActions(Context& context, std::span<const Action<Context>> actions) {
    for (const Action<Context>& action : actions) {
      const auto number = static_cast<std::size_t>(action.text.action);
      actionTexts[number] = &action.text;
      if (action.hover != nullptr) {
        hoverActions[number] = [&context, hover = action.hover] { return hover(context); };
      }
      if (action.click == nullptr) continue;
      clickActions[number] = [&context, click = action.click](DraftingContext&) { click(context); };
    }
  }

 private:
  template <class Context>
  void nameActions(const CommandInfo& info, std::span<const Action<Context>> actions) {
    for (const Action<Context>& action : actions) {
      actionCommands[static_cast<std::size_t>(action.text.action)] = &info;
    }
  }

  template <class Context>
  void addRepeats(Context& context, const CommandRoutine<Context>& run,
                  const Repeat<Context>& repeat) {
    for (const PendingAction number : repeat.numbers) {
      if (number == PendingAction::None) continue;
      const CommandRoutine<Context> issue =
          repeat.issue != nullptr ? CommandRoutine<Context>(repeat.issue) : run;
      repeatCommands[static_cast<std::size_t>(number)] = [&context, issue](DraftingContext&) {
        issue(context);
      };
    }
  }
};

// The pending action of that number; null for none.
const ActionText* findAction(const KnownCommands& known, int number);

// Whether rows hover while the button is down for the pending action of that number.
bool hovers(const KnownCommands& known, int number);

// The drawing mode of that value of DrawMode; null for a value that is none.
const DrawingMode* modeOf(const KnownCommands& known, int drawMode);
bool takesThreePoints(const KnownCommands& known, int drawMode);

}  // namespace tess
