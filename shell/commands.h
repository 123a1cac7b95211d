// The one road of commands: a click on a tool, wherever it stands, arrives here by the tool's name,
// and a key by its code.
// Owns: abMain_ToolClick, commandOfKey, KeyPress, handleKey, keysWithoutTool.
#pragma once

#include <string_view>
#include <vector>

#include "shell/application.h"
#include "shell/command_table.h"
#include "shell/keys.h"

namespace tess {

// Runs the command of a tool. A name that is none does nothing, nor does a tool whose command does
// not exist yet; those stand disabled.
void abMain_ToolClick(Application& application, std::string_view tool);

// The command that the key is that of; null for none. Modifiers are not looked at.
const CommandEntry* commandOfKey(const KeyStroke& key);

// A key with a character; false for one that has no meaning of the program's own. Ignored while a
// window with an input of its own has the focus.
bool KeyPress(Application& application, char KeyAscii);

// A key on the drawing surface: the special ones here, the others through KeyPress, and what is
// left by the keys of the desktop, where the setup has them.
void handleKey(Application& application, const KeyStroke& key);

// The names of the keys that act without a tool: they cancel, repeat, click, move the pointer, or
// work several tools together.
std::vector<const char*> keysWithoutTool();

}  // namespace tess
