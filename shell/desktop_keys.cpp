// Desktop keys by table.
#include "shell/desktop_keys.h"

#include <string>
#include <string_view>
#include <utility>

#include "core/drawing_store.h"
#include "shell/tool_bands.h"

namespace tess {
namespace {

constexpr DesktopKey kDesktopKeys[] = {
    {"Ctrl+N", "miNew"},
    {"Ctrl+O", "miOpen"},
    {"Ctrl+S", "miSave"},
    {"Ctrl+Shift+S", "miSaveAs"},
    {"Ctrl+Z", "miUndo"},
    {"Ctrl+Y", "miRedo"},
    {"Ctrl+Shift+Z", "miRedo"},
    {"Ctrl+A", "miSelectAll"},
    {"Ctrl+C", "miCopy"},
    {"Ctrl+X", "miCut"},
    {"Ctrl+V", "miPaste"},
    {"Ctrl+P", "miPrintPicture"},
    {"Ctrl+Q", "miExit"},
    {"+", "miZoomIn"},
    {"-", "miZoomOut"},
    {"Home", "miFullView"},
    {"Space", ""},
};

bool isSameStroke(const KeyStroke& stroke, const KeyStroke& key) {
  if (stroke.special != key.special || stroke.ascii != key.ascii) return false;
  return !key.control || (stroke.control && stroke.shift == key.shift);
}

std::string keysOf(std::string_view tool) {
  std::string keys;
  for (const DesktopKey& row : kDesktopKeys) {
    if (tool == row.tool) keys += (keys.empty() ? "" : ", ") + shownKey(row.key);
  }
  return keys;
}

}  // namespace

std::span<const DesktopKey> desktopKeys() {
  return kDesktopKeys;
}

const DesktopKey* desktopKeyOf(const KeyStroke& stroke) {
  for (const DesktopKey& row : kDesktopKeys) {
    if (isSameStroke(stroke, keyNamed(row.key).value())) return &row;
  }
  return nullptr;
}

void DesktopKeyHints::settle() {
  if (std::exchange(shown_, store_.desktopkeys) == store_.desktopkeys) return;
  for (const DesktopKey& row : kDesktopKeys) {
    showKeys(tools_, row.tool, shown_ ? keysOf(row.tool) : std::string());
  }
}

}  // namespace tess
