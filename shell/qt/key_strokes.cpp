// Keys by table.
#include "shell/qt/key_strokes.h"

#include <array>
#include <utility>

namespace tess {

namespace {

constexpr std::array<std::pair<int, SpecialKey>, 12> kSpecialKeys{{
    {Qt::Key_F1, SpecialKey::F1},
    {Qt::Key_F3, SpecialKey::F3},
    {Qt::Key_F12, SpecialKey::F12},
    {Qt::Key_Return, SpecialKey::Enter},
    {Qt::Key_Enter, SpecialKey::Enter},
    {Qt::Key_Insert, SpecialKey::Insert},
    {Qt::Key_Delete, SpecialKey::Delete},
    {Qt::Key_Home, SpecialKey::Home},
    {Qt::Key_Left, SpecialKey::Left},
    {Qt::Key_Right, SpecialKey::Right},
    {Qt::Key_Up, SpecialKey::Up},
    {Qt::Key_Down, SpecialKey::Down},
}};

constexpr char kTab = 9;
constexpr char kEscape = 27;

SpecialKey specialKey(int key) {
  for (const auto& [known, special] : kSpecialKeys) {
    if (known == key) return special;
  }
  return SpecialKey::None;
}

// Letters are taken from the key itself, so that neither a lock key nor an input method matters;
// with control they are the characters 1 to 26.
char character(const QKeyEvent& event) {
  const int key = event.key();
  if (key == Qt::Key_Escape) return kEscape;
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return kTab;
  if (key >= Qt::Key_A && key <= Qt::Key_Z) {
    const int letter = key - Qt::Key_A;
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    return static_cast<char>(control ? letter + 1 : 'A' + letter);
  }
  const QString text = event.text();
  const bool plain = text.size() == 1 && text[0].unicode() >= ' ' && text[0].unicode() < 0x7F;
  return plain ? static_cast<char>(text[0].unicode()) : '\0';
}

}  // namespace

std::optional<KeyStroke> keyStroke(const QKeyEvent& event) {
  if (event.modifiers().testFlag(Qt::AltModifier)) return std::nullopt;
  KeyStroke stroke;
  stroke.special = specialKey(event.key());
  if (stroke.special == SpecialKey::None) stroke.ascii = character(event);
  if (stroke.special == SpecialKey::None && stroke.ascii == '\0') return std::nullopt;
  stroke.shift = event.modifiers().testFlag(Qt::ShiftModifier);
  stroke.control = event.modifiers().testFlag(Qt::ControlModifier);
  return stroke;
}

}  // namespace tess
