// The one road of commands: a click on a tool, wherever it stands, arrives here by the tool's name,
// and a key by its code.
// Owns: abMain_ToolClick, commandNames, disableIdleTools, SpecialKey, KeyStroke, KeyPress, handleKey.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/application.h"

namespace tess {

// Runs the command of a tool. A name that is none does nothing, nor does a tool whose command does
// not exist yet; those stand disabled.
void abMain_ToolClick(Application& application, std::string_view tool);

// All names that abMain_ToolClick knows, in the order in which it compares them.
std::vector<std::string> commandNames();

// Disables the tools without a command.
void disableIdleTools(Application& application);

// Keys that carry no character.
enum class SpecialKey { None, F1, F3, F12, Enter, Insert, Delete, Left, Right, Up, Down };

struct KeyStroke {
  char ascii = 0;  // as KeyPress sees it: letters in either case, Tab 9, Esc 27, Ctrl+A 1 to 26
  SpecialKey special = SpecialKey::None;
  bool shift = false, control = false;
};

// A key with a character. Ignored while a window with an input of its own has the focus.
void KeyPress(Application& application, char KeyAscii);

// A key on the drawing surface: the special ones here, the others through KeyPress.
void handleKey(Application& application, const KeyStroke& key);

}  // namespace tess
