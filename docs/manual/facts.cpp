// Prints what the program says of its commands and keys, for the manual to be made from: a line
// each, its cells between tabs.
//   band  NAME  CAPTION  KIND
//   command  TOOL  CAPTION  KEY  ICON  BAND  the same BAR  PROMPTS ("|" between them)
//   key  NAME
//   desktopkey  NAME  TOOL (none: repeats the last command)
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "core/core_commands.h"
#include "display/display_commands.h"
#include "drafting/drafting_commands.h"
#include "import/import_commands.h"
#include "shell/commands.h"
#include "shell/desktop_keys.h"
#include "shell/shell_commands.h"
#include "shell/tool_bands.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

// On one line and without the mark of the menu's letter.
std::string plain(std::string text) {
  std::erase(text, '&');
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::replace(text.begin(), text.end(), '\t', ' ');
  return text;
}

const char* kindName(BandKind kind) {
  switch (kind) {
    case BandKind::Menu:
      return "menu";
    case BandKind::ToolBar:
      return "bar";
    case BandKind::PopUp:
      return "popup";
    case BandKind::Panel:
      return "panel";
  }
  return "";
}

template <class Descriptor>
std::string promptsOf(const Descriptor& descriptor) {
  std::vector<std::string> prompts;
  for (const auto& action : descriptor.actions) {
    const std::string prompt = plain(action.text.prompt);
    if (!prompt.empty() && std::find(prompts.begin(), prompts.end(), prompt) == prompts.end()) {
      prompts.push_back(prompt);
    }
  }
  std::string all;
  for (const std::string& prompt : prompts) all += (all.empty() ? "" : "|") + prompt;
  return all;
}

template <class Descriptor>
void printCommand(const Descriptor& descriptor) {
  const CommandInfo& info = descriptor.info;
  const std::string key = *info.key != '\0' ? info.key : info.sharedKey;
  const std::string icon = *info.icon != '\0' ? info.icon : info.tool;
  std::cout << "command\t" << info.tool << '\t' << plain(info.caption) << '\t' << shownKey(key)
            << '\t' << icon << '\t' << info.menu.band << '\t' << info.bar.band << '\t'
            << promptsOf(descriptor) << '\n';
}

void printFacts() {
  ToolHost tools;
  fillToolHost(tools);
  for (const Band& band : tools.bands()) {
    std::cout << "band\t" << band.name << '\t' << plain(band.caption) << '\t' << kindName(band.kind)
              << '\n';
  }
#define PRINT(descriptor) printCommand(descriptor);
  TESSIMO_COMMANDS(PRINT, PRINT, PRINT, PRINT, PRINT, PRINT)
#undef PRINT
  for (const char* const key : keysWithoutTool()) std::cout << "key\t" << key << '\n';
  for (const DesktopKey& row : desktopKeys()) {
    std::cout << "desktopkey\t" << shownKey(row.key) << '\t' << row.tool << '\n';
  }
}

}  // namespace
}  // namespace tess

int main() {
  tess::printFacts();
}
