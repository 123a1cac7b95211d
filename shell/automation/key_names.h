// Keys by the names that scripts give them.
// Owns: keyNamed, keyNames.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/commands.h"

namespace tess {

// The key of a name: a single character, or one of keyNames(), in any case, with "Ctrl+" or
// "Shift+" in front of it or both; nothing for another name. Ctrl goes with letters and named keys.
std::optional<KeyStroke> keyNamed(std::string_view name);

// "Esc", "Tab", "Enter" and the other keys that have more than a letter on them.
std::vector<std::string> keyNames();

}  // namespace tess
