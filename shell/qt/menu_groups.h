// Which parts of a long menu the window folds into submenus. A part is what stands between two
// separators; a menu of the model stays one list.
// Owns: MenuPart, menuParts.
#pragma once

#include <string>
#include <vector>

#include "core/tool_host.h"

namespace tess {

struct MenuPart {
  std::string caption;             // of its submenu; empty: it stands in the menu itself
  std::vector<std::string> tools;  // at least one
};

// The parts of a menu from top to bottom. Together they hold every tool of the band, in its order.
std::vector<MenuPart> menuParts(const Band& band);

}  // namespace tess
