// Commands that do not exist yet. Their tools stand disabled; a descriptor moves to the file of its
// routine when there is one.
#include "shell/shell_commands.h"

namespace tess {

constexpr ShellCommand kPrintCommand{
    .info = {.tool = "miPrintPicture",
             .caption = "&Print Picture...",
             .menu = {"miFile", 310},
             .bar = {"barFile", 140}},
    .run = kNotYet,
};

constexpr ShellCommand kPrintPreviewCommand{
    .info = {.tool = "miPrintPreview", .caption = "Print Pre&view", .menu = {"miFile", 320}},
    .run = kNotYet,
};

constexpr ShellCommand kPrinterOptionsCommand{
    .info = {.tool = "miPrinterOptions",
             .caption = "&Printer Options...",
             .menu = {"miOptions", 140}},
    .run = kNotYet,
};

}  // namespace tess
