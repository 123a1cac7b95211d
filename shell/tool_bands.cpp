// The menus and tool bars, made from the descriptors of the commands.
#include "shell/tool_bands.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "core/session.h"
#include "shell/command_table.h"
#include "shell/keys.h"

namespace tess {
namespace {

constexpr const char* kSeparator = "";
constexpr int kSection = 100;  // how many places a section has

struct BandRow {
  const char* name;
  const char* caption;
  BandKind kind;
};

// In the order in which they stand.
constexpr BandRow kBands[] = {
    {"miFile", "&File", BandKind::Menu},
    {"miEdit", "&Edit", BandKind::Menu},
    {"miDraw", "&Draw", BandKind::Menu},
    {"miView", "&View", BandKind::Menu},
    {"miOptions", "&Options", BandKind::Menu},
    {"miCAM", "&CAM", BandKind::Menu},
    {"miHelp", "&Help", BandKind::Menu},
    {"barFile", "File", BandKind::ToolBar},
    {"barEdit", "Edit", BandKind::ToolBar},
    {"barDraw", "Draw", BandKind::ToolBar},
    {"barView", "View", BandKind::ToolBar},
    {"barCAM", "CAM", BandKind::ToolBar},
    {"Options", "Grids and Snap", BandKind::ToolBar},
    {"OSnapMenu", "Object Snap", BandKind::PopUp},
    {"barText", "Text", BandKind::Panel},
    {"barStatistics", "Statistics", BandKind::Panel},
    {"barProperties", "Properties", BandKind::Panel},
    {"barPathProof", "Path Proof", BandKind::Panel},
    {"barBackplot", "Backplot", BandKind::Panel},
};

// The recent files stand between printing and leaving.
constexpr BandPlace kRecentFilesPlace{"miFile", 400};

using PlacedTool = std::pair<int, std::string>;

std::vector<PlacedTool> placedTools(std::string_view band) {
  std::vector<PlacedTool> placed;
  for (const CommandEntry& command : commands()) {
    for (const BandPlace& place : {command.info->menu, command.info->bar}) {
      if (place.band == band) placed.emplace_back(place.place, command.info->tool);
    }
  }
  if (kRecentFilesPlace.band == band) {
    for (int number = 1; number <= kRecentFiles; ++number) {
      placed.emplace_back(kRecentFilesPlace.place + number, recentTool(number));
    }
  }
  std::sort(placed.begin(), placed.end());
  return placed;
}

std::vector<std::string> toolsOf(std::string_view band) {
  std::vector<std::string> tools;
  int section = 0;
  for (auto& [place, tool] : placedTools(band)) {
    const bool begins = std::exchange(section, place / kSection) != place / kSection;
    if (begins && !tools.empty()) tools.emplace_back(kSeparator);
    tools.push_back(std::move(tool));
  }
  return tools;
}

std::string plainCaption(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

std::string hintOf(const CommandInfo& info, const std::string& key) {
  const std::string caption = plainCaption(info.caption);
  return key.empty() ? caption : caption + " (" + key + ")";
}

Tool toolOf(const CommandEntry& command) {
  const CommandInfo& info = *command.info;
  Tool tool;
  tool.name = info.tool;
  tool.caption = info.caption;
  tool.key = shownKey(*info.key != '\0' ? info.key : info.sharedKey);
  tool.hint = hintOf(info, tool.key);
  tool.icon = info.icon;
  tool.popUp = info.popUp;
  if (info.tag != 0) tool.tag = std::to_string(info.tag);
  tool.enabled = true;
  return tool;
}

Tool recentFileTool(int number) {
  Tool tool;
  tool.name = recentTool(number);
  tool.visible = false;
  return tool;
}

}  // namespace

void fillToolHost(ToolHost& tools) {
  for (const CommandEntry& command : commands()) tools.addTool(toolOf(command));
  for (int number = 1; number <= kRecentFiles; ++number) tools.addTool(recentFileTool(number));
  for (const BandRow& row : kBands) {
    tools.addBand({.name = row.name,
                   .caption = row.caption,
                   .kind = row.kind,
                   .tools = toolsOf(row.name),
                   .open = row.kind == BandKind::ToolBar});
  }
}

void showKeys(ToolHost& tools, std::string_view tool, std::string_view more) {
  for (const CommandEntry& command : commands()) {
    if (tool != command.info->tool) continue;
    std::string key = toolOf(command).key;
    if (!key.empty() && !more.empty()) key += ", ";
    key += more;
    tools.setKey(tool, key, hintOf(*command.info, key));
  }
}

std::string recentTool(int number) {
  return "miRecentFile" + std::to_string(number);
}

}  // namespace tess
