// The menus and tool bars: every tool by name with its caption and key, and the bands in which it
// stands.
// Owns: ToolText, toolTexts, fillToolHost, recentTool.
#pragma once

#include <span>
#include <string>

#include "core/tool_host.h"

namespace tess {

struct ToolText {
  const char* name;
  const char* caption;
  const char* key;  // the key that does the same; empty for none
  int tag = 0;      // the kind of feature that an entry of the snap menu stands for; 0 none
};

// All tools, in the order of the menus.
std::span<const ToolText> toolTexts();

// Puts all tools and bands into an empty host.
void fillToolHost(ToolHost& tools);

// The tool of a recent file, from 1 to kRecentFiles.
std::string recentTool(int number);

}  // namespace tess
