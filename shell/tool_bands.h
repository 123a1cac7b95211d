// The menus and tool bars: every tool with its caption, key and icon, and the bands in which it
// stands.
// Owns: fillToolHost, showKeys, recentTool.
#pragma once

#include <string>
#include <string_view>

#include "core/tool_host.h"

namespace tess {

// Puts all tools and bands into an empty host.
void fillToolHost(ToolHost& tools);

// Shows beside the key that a tool has of its own those that it has besides, "" for none.
void showKeys(ToolHost& tools, std::string_view tool, std::string_view more);

// The tool of a recent file, from 1 to kRecentFiles.
std::string recentTool(int number);

}  // namespace tess
