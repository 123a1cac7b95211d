// Folding menus.
#include "shell/qt/menu_groups.h"

#include <algorithm>
#include <string_view>

namespace tess {

namespace {

struct MenuGroup {
  std::string_view band;
  std::string_view tool;  // the part that this one is in
  const char* caption;
};

constexpr MenuGroup kGroups[] = {{"miEdit", "miBreakSegment", "&Segments"},
                                 {"miEdit", "miFlipArc", "&Arcs and Direction"},
                                 {"miEdit", "miMoveProfile", "Trans&form"},
                                 {"miCAM", "miEditPath/Cycle", "&Change Paths"}};

std::string captionOf(const Band& band, const std::vector<std::string>& tools) {
  for (const MenuGroup& group : kGroups) {
    const bool has = std::find(tools.begin(), tools.end(), group.tool) != tools.end();
    if (group.band == band.name && has) return group.caption;
  }
  return {};
}

}  // namespace

std::vector<MenuPart> menuParts(const Band& band) {
  std::vector<MenuPart> parts;
  bool begins = true;
  for (const std::string& tool : band.tools) {
    if (!tool.empty() && begins) parts.emplace_back();
    if (!tool.empty()) parts.back().tools.push_back(tool);
    begins = tool.empty();
  }
  for (MenuPart& part : parts) part.caption = captionOf(band, part.tools);
  return parts;
}

}  // namespace tess
