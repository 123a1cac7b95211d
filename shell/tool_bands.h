// The menus and tool bars: every tool with its caption, key and icon, and the bands in which it
// stands.
// Owns: fillToolHost, recentTool.
#pragma once

#include <string>

#include "core/tool_host.h"

namespace tess {

// Puts all tools and bands into an empty host.
void fillToolHost(ToolHost& tools);

// The tool of a recent file, from 1 to kRecentFiles.
std::string recentTool(int number);

}  // namespace tess
