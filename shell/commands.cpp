// Tools and keys find their commands.
#include "shell/commands.h"

#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/text.h"
#include "drafting/enter_position.h"
#include "drafting/grids.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/repeat_key.h"
#include "shell/desktop_keys.h"

namespace tess {
namespace {

// ---- Keys without a tool

template <void (*command)(DraftingContext&)>
void onDrafting(Application& application) {
  command(application.interaction.context);
}

template <int button>
void clickByKey(Application& application) {
  keyboardClick(application.interaction.context, button);
}

template <int dx, int dy>
void nudge(Application& application) {
  nudgePointer(application.interaction.context, dx, dy);
}

struct KeyRow {
  const char* key;
  void (*run)(Application&);
};

constexpr KeyRow kKeysWithoutTool[] = {
    {"G", onDrafting<flipGrids>},
    {"Esc", onDrafting<Handle_esc>},
    {"F3", onDrafting<repeatLastCommand>},
    {"F12", onDrafting<repeatLastCommand>},
    {"Enter", clickByKey<kLeftButton>},
    {"Insert", clickByKey<kRightButton>},
    {"Left", nudge<-1, 0>},
    {"Right", nudge<1, 0>},
    {"Up", nudge<0, 1>},
    {"Down", nudge<0, -1>},
};

// ---- Strokes

bool isNamed(const KeyStroke& stroke, const char* key) {
  const std::optional<KeyStroke> named = keyNamed(key);
  return named && named->special == stroke.special &&
         upperCased(named->ascii) == upperCased(stroke.ascii);
}

// Whether a key acts with the modifiers that are held. Characters have theirs in their code.
bool allowsModifiers(const KeyStroke& stroke) {
  switch (stroke.special) {
    case SpecialKey::F1:
    case SpecialKey::F3:
    case SpecialKey::F12:
      return !stroke.shift && !stroke.control;
    case SpecialKey::Insert:
      return !stroke.shift;
    case SpecialKey::None:
    case SpecialKey::Enter:
    case SpecialKey::Delete:
    case SpecialKey::Home:
    case SpecialKey::Left:
    case SpecialKey::Right:
    case SpecialKey::Up:
    case SpecialKey::Down:
      return true;
  }
  return false;
}

// False for a key that is none of the program's own.
bool runKey(Application& application, const KeyStroke& stroke) {
  if (const CommandEntry* const command = commandOfKey(stroke)) {
    command->run(application);
    return true;
  }
  for (const KeyRow& row : kKeysWithoutTool) {
    if (!isNamed(stroke, row.key)) continue;
    row.run(application);
    return true;
  }
  return false;
}

void runDesktopKey(Application& application, const KeyStroke& stroke) {
  const DesktopKey* const row = desktopKeyOf(stroke);
  if (row == nullptr) return;
  if (*row->tool == '\0') return repeatLastCommand(application.interaction.context);
  if (application.interaction.tools.isEnabled(row->tool)) abMain_ToolClick(application, row->tool);
}

// ---- Tools

bool isRecentTool(std::string_view tool) {
  return tool >= "miRecentFile1" && tool <= "miRecentFile9";
}

}  // namespace

void abMain_ToolClick(Application& application, std::string_view tool) {
  const Procedure here("frmMain.abMain_ToolClick(tool)");
  for (const CommandEntry& command : commands()) {
    if (tool == command.info->tool) return command.run(application);
  }
  if (isRecentTool(tool)) openRecentFile(application.session, tool);
}

const CommandEntry* commandOfKey(const KeyStroke& key) {
  for (const CommandEntry& command : commands()) {
    if (isNamed(key, command.info->key)) return &command;
  }
  return nullptr;
}

bool KeyPress(Application& application, char KeyAscii) {
  const Procedure here("frmMain.KeyPress(KeyAscii)");
  return KeyAscii != '\0' && runKey(application, {.ascii = KeyAscii});
}

void handleKey(Application& application, const KeyStroke& key) {
  const bool known = key.special == SpecialKey::None
                         ? KeyPress(application, key.ascii)
                         : allowsModifiers(key) && runKey(application, {.special = key.special});
  if (!known && application.store.desktopkeys) runDesktopKey(application, key);
}

std::vector<const char*> keysWithoutTool() {
  std::vector<const char*> keys;
  for (const KeyRow& row : kKeysWithoutTool) keys.push_back(row.key);
  return keys;
}

}  // namespace tess
