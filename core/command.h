// Descriptors: all that is to be told of a command, in one place. Menus, tool bars, hints, keys,
// prompts and the repeat key follow from them. A descriptor stands beside the routine that it runs;
// command_list.h names them all.
// Owns: BandPlace, TouchedFiles, CommandInfo, CommandRoutine, ActionText, Action, Repeat, Command.
#pragma once

#include <array>
#include <concepts>
#include <span>
#include <vector>

#include "core/drawing_rows.h"
#include "core/pending_action.h"

namespace tess {

// A place in a menu, pop-up or tool bar. The hundreds of `place` are its section, and a separator
// stands between sections; tens leave room for more.
struct BandPlace {
  const char* band = "";  // "" for no place
  int place = 0;
};

// The files that a command reads or writes without asking for one: a script is held to its folders
// there. Others ask in a dialog, which does the same.
enum class TouchedFiles { None, Drawing, ChosenDrawing, Setup, DrawingAndProgram };

// What the operator sees.
struct CommandInfo {
  const char* tool;     // its name, for scripts too
  const char* caption;  // with a & before the letter of the menu
  // Its key as keyNamed takes it, "T", "Ctrl+M", "Delete"; "" for none.
  const char* key = "";
  // A key that works this tool together with others; it has a line of its own among the keys.
  const char* sharedKey = "";
  BandPlace menu{};        // in a menu or pop-up
  BandPlace bar{};         // in a tool bar
  const char* icon = "";   // the tool whose icon it shows; "" for its own
  const char* popUp = "";  // the band that drops down from its button
  int tag = 0;             // what an entry of a pop-up stands for; 0 nothing
  TouchedFiles touches = TouchedFiles::None;
};

// What a command runs. There is no empty one, so that none is left out by oversight.
template <class Context>
class CommandRoutine {
 public:
  using Function = void (*)(Context&);

  // Implicit so that a descriptor just names what it runs.
  template <std::convertible_to<Function> Callable>
  constexpr CommandRoutine(Callable run) : run_(run) {}  // NOLINT(google-explicit-constructor)

  void operator()(Context& context) const { run_(context); }

 private:
  Function run_;
};

// A pending action as the operator meets it.
struct ActionText {
  PendingAction action;
  const char* prompt;
  bool stays = false;       // armed for another click
  bool snaps = true;        // its click takes a feature near it; else the click itself counts
  bool escRedraws = false;  // a band or an outline may be on the screen when Esc comes
  bool drags = false;       // from a press to a release at another place
  // What the window says of it: the words that follow "left click", or "left drag".
  const char* left = "";
};

// The same with what its click does; null for one whose click is handled elsewhere or has no
// effect.
template <class Context>
struct Action {
  ActionText text;
  void (*click)(Context&) = nullptr;
  // The rows that a click at MouseMoveX, MouseMoveY would make, of path rows their shapes. They
  // hover while the button is down. Null: nothing does.
  std::vector<SegmentRow> (*hover)(const Context&) = nullptr;
};

// The values of LastCommand for which the repeat key issues a command again; None for no more.
template <class Context>
struct Repeat {
  std::array<PendingAction, 2> numbers{};
  void (*issue)(Context&) = nullptr;  // null: what the command runs
};

// A command that works on a context.
template <class Context>
struct Command {
  CommandInfo info;
  CommandRoutine<Context> run;
  std::span<const Action<Context>> actions = {};  // that it arms, and those that follow by steps
  Repeat<Context> repeat = {};
};

}  // namespace tess
