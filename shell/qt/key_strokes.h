// Keys of the toolkit as commands know them.
// Owns: keyStroke.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "shell/commands.h"

namespace tess {

// Nothing for a key that no command can mean: modifiers, keys with Alt, other special ones.
std::optional<KeyStroke> keyStroke(const QKeyEvent& event);

}  // namespace tess
