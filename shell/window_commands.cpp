// The commands that arrange the main window: its panel of statistics and its customizing.
#include "shell/application.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

void toggleStatistics(Application& application) {
  ToolHost& tools = application.interaction.tools;
  const Band* const band = tools.band("barStatistics");
  if (band != nullptr && band->open) {
    tools.closeBand("barStatistics");
  } else {
    tools.openBand("barStatistics");
  }
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

}  // namespace tess
