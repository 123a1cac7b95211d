// The commands that choose the cutter and tell of the part and its material.
#include "shell/application.h"
#include "shell/shell_commands.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

// Paths are drawn in the colours of their tools, and outlines in their radii.
void chooseTool(Application& application) {
  mnuCAMSelectTool_Click({application.session, application.feeds, application.colors});
  application.interaction.redraw.redrawscreen();
}

void showTitleBlock(Application& application) {
  Interaction& interaction = application.interaction;
  mnuOptionsDrawTitleBlock_Click({application.session, application.feeds, interaction.viewCommands,
                                  interaction.context.changes});
}

}  // namespace

constexpr ShellCommand kToolChestCommand{
    .info = {.tool = "miToolChest", .caption = "T&ool Chest...", .menu = {"miDraw", 410}},
    .run = chooseTool,
};

constexpr ShellCommand kTitleBlockCommand{
    .info = {.tool = "miDrawingTitleBlock",
             .caption = "Drawing &Title Block...",
             .menu = {"miOptions", 110}},
    .run = showTitleBlock,
};

constexpr ShellCommand kSelectToolCommand{
    .info = {.tool = "miSelectTool",
             .caption = "Select &Tool...",
             .menu = {"miCAM", 110},
             .bar = {"barCAM", 110}},
    .run = chooseTool,
};

}  // namespace tess
