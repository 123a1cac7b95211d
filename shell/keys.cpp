// Keys by table.
#include "shell/keys.h"

#include "core/text.h"

namespace tess {
namespace {

struct NamedKey {
  const char* name;
  SpecialKey special;
  char ascii;
  const char* shown = "";  // where menus and hints have another word for it
};

constexpr NamedKey kKeys[] = {
    {"Esc", SpecialKey::None, 27},
    {"Tab", SpecialKey::None, 9},
    {"Space", SpecialKey::None, ' '},
    {"F1", SpecialKey::F1, 0},
    {"F3", SpecialKey::F3, 0},
    {"F12", SpecialKey::F12, 0},
    {"Enter", SpecialKey::Enter, 0},
    {"Insert", SpecialKey::Insert, 0},
    {"Delete", SpecialKey::Delete, 0, "Del"},
    {"Home", SpecialKey::Home, 0},
    {"Left", SpecialKey::Left, 0},
    {"Right", SpecialKey::Right, 0},
    {"Up", SpecialKey::Up, 0},
    {"Down", SpecialKey::Down, 0},
};

bool takePrefix(std::string_view& name, std::string_view prefix) {
  if (name.size() <= prefix.size() || !equalIgnoringCase(name.substr(0, prefix.size()), prefix)) {
    return false;
  }
  name.remove_prefix(prefix.size());
  return true;
}

bool isLetter(char key) {
  return (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
}

// With Ctrl a letter is the character 1 to 26.
std::optional<char> character(char key, bool control) {
  if (key <= ' ' || key > '~') return std::nullopt;
  if (!control) return key;
  if (!isLetter(key)) return std::nullopt;
  return static_cast<char>(key & 0x1F);
}

}  // namespace

std::optional<KeyStroke> keyNamed(std::string_view name) {
  KeyStroke stroke;
  for (bool found = true; found;) {
    found = takePrefix(name, "Ctrl+") ? (stroke.control = true)
                                      : takePrefix(name, "Shift+") && (stroke.shift = true);
  }
  if (name.size() == 1) {
    const auto key = character(name.front(), stroke.control);
    if (!key) return std::nullopt;
    stroke.ascii = *key;
    return stroke;
  }
  for (const NamedKey& key : kKeys) {
    if (!equalIgnoringCase(key.name, name)) continue;
    stroke.special = key.special;
    stroke.ascii = key.ascii;
    return stroke;
  }
  return std::nullopt;
}

std::vector<std::string> keyNames() {
  std::vector<std::string> names;
  for (const NamedKey& key : kKeys) names.emplace_back(key.name);
  return names;
}

std::string shownKey(std::string_view name) {
  for (const NamedKey& key : kKeys) {
    if (name == key.name && *key.shown != '\0') return key.shown;
  }
  return std::string(name);
}

}  // namespace tess
