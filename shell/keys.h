// Keys on the drawing surface: the strokes that commands see, and the names that descriptors and
// scripts give them.
// Owns: SpecialKey, KeyStroke, keyNamed, keyNames, shownKey.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tess {

// Keys that carry no character.
enum class SpecialKey { None, F1, F3, F12, Enter, Insert, Delete, Home, Left, Right, Up, Down };

struct KeyStroke {
  char ascii = 0;  // as KeyPress sees it: letters in either case, Tab 9, Esc 27, Ctrl+A 1 to 26
  SpecialKey special = SpecialKey::None;
  bool shift = false, control = false;
};

// The key of a name: a single character, or one of keyNames(), in any case, with "Ctrl+" or
// "Shift+" in front of it or both; nothing for another name. Ctrl goes with letters and named keys.
std::optional<KeyStroke> keyNamed(std::string_view name);

// "Esc", "Tab", "Enter" and the other keys that have more than a letter on them.
std::vector<std::string> keyNames();

// A name as menus and hints show it: "Del" for "Delete".
std::string shownKey(std::string_view name);

}  // namespace tess
