// The keys that other programs of a desktop have for what they share with this one: they act where
// the setup wants them and the program's own keys leave them free.
// Owns: DesktopKey, desktopKeys, desktopKeyOf, DesktopKeyHints.
#pragma once

#include <span>

#include "core/tool_host.h"
#include "shell/keys.h"

namespace tess {

struct DrawingStore;

struct DesktopKey {
  const char* key;   // as keyNamed takes it
  const char* tool;  // "" repeats the last command, as F3 does
};

// In the order in which menus show them.
std::span<const DesktopKey> desktopKeys();

// The row of the table that a stroke means, null for none. Shift counts beside Ctrl alone: a plus
// needs it on one keyboard and not on another.
const DesktopKey* desktopKeyOf(const KeyStroke& stroke);

// Shows in the menus which keys a tool has, as the setup has it.
class DesktopKeyHints {
 public:
  DesktopKeyHints(const DrawingStore& store, ToolHost& tools) : store_(store), tools_(tools) {}

  // Does nothing while the setup is of the same mind as before.
  void settle();

 private:
  const DrawingStore& store_;
  ToolHost& tools_;
  bool shown_ = false;
};

}  // namespace tess
