// Commands that do not exist yet. Their tools stand disabled; a descriptor moves to the file of its
// routine when there is one.
#include "shell/shell_commands.h"

namespace tess {

constexpr ShellCommand kCncSetupCommand{
    .info = {.tool = "miG-codeControlSetup",
             .caption = "&G-code Control Setup...",
             .menu = {"miOptions", 120}},
    .run = kNotYet,
};

constexpr ShellCommand kBrowseCncFileCommand{
    .info = {.tool = "miBrowseCNCFile", .caption = "&Browse CNC File...", .menu = {"miCAM", 430}},
    .run = kNotYet,
};

}  // namespace tess
