// The commands that arrange the main window: its panels and its customizing.
#include "shell/application.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

void togglePanel(ToolHost& tools, std::string_view panel) {
  const Band* const band = tools.band(panel);
  if (band != nullptr && band->open) {
    tools.closeBand(panel);
  } else {
    tools.openBand(panel);
  }
}

void toggleStatistics(Application& application) {
  togglePanel(application.interaction.tools, "barStatistics");
}

void toggleProperties(Application& application) {
  togglePanel(application.interaction.tools, "barProperties");
}

void togglePathProof(Application& application) {
  togglePanel(application.interaction.tools, "barPathProof");
}

void toggleBackplot(Application& application) {
  togglePanel(application.interaction.tools, "barBackplot");
}

void toggleProofPicture(Application& application) {
  application.proofWatch.togglePicture();
  application.interaction.tools.setChecked(kShowPathProofCommand.info.tool,
                                           application.proofWatch.isPictureShown());
}

void customize(Application& application) {
  application.customizeTools();
}

}  // namespace

constexpr ShellCommand kCustomizeCommand{
    .info = {.tool = "miCustomize", .caption = "&Customize...", .menu = {"miOptions", 330}},
    .run = customize,
};

constexpr ShellCommand kStatisticsCommand{
    .info = {.tool = "miShowStatistics", .caption = "&Statistics", .menu = {"miView", 310}},
    .run = toggleStatistics,
};

constexpr ShellCommand kPropertiesCommand{
    .info = {.tool = "miShowProperties", .caption = "Propert&y Window", .menu = {"miView", 320}},
    .run = toggleProperties,
};

constexpr ShellCommand kPathProofCommand{
    .info = {.tool = "miPathProof", .caption = "Path Proof Wi&ndow", .menu = {"miView", 330}},
    .run = togglePathProof,
};

constexpr ShellCommand kBackplotCommand{
    .info = {.tool = "miBackplot", .caption = "&Backplot", .menu = {"miView", 340}},
    .run = toggleBackplot,
};

constexpr ShellCommand kShowPathProofCommand{
    .info = {.tool = "miShowPathProof", .caption = "Show P&ath Proof", .menu = {"miView", 250}},
    .run = toggleProofPicture,
};

}  // namespace tess
