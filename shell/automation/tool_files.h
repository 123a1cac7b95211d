// Which files a command reads or writes without asking for one.
// Owns: filesOfTool, filesOfKey.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/application.h"

namespace tess {

struct KeyStroke;

// Full paths; none for a command that touches no file, or asks for it in a dialog.
std::vector<std::string> filesOfTool(const Application& application, std::string_view tool);
std::vector<std::string> filesOfKey(const Application& application, const KeyStroke& key);

}  // namespace tess
