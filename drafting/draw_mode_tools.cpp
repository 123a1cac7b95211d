// The tools that show the drawing mode.
#include "drafting/draw_mode_tools.h"

#include "display/display_commands.h"
#include "drafting/drafting_commands.h"

namespace tess {
namespace {

bool unselects(int action) {
  return action == static_cast<int>(PendingAction::Unselect) ||
         action == static_cast<int>(PendingAction::UnselectContiguous);
}

// Null while there is no mode.
const char* toolOf(const Desk& desk) {
  const int mode = desk.state.DrawMode();
  if (mode == kSelectingMode) {
    return (unselects(desk.state.pendingaction()) ? kUnselectCommand : kSelectCommand).info.tool;
  }
  for (const DeskCommand* const command : desk.modes) {
    if (command->mode.number == mode) return command->info.tool;
  }
  return nullptr;
}

}  // namespace

std::vector<const char*> drawModeTools(const Desk& desk) {
  std::vector<const char*> tools;
  for (const DeskCommand* const command : desk.modes) tools.push_back(command->info.tool);
  tools.push_back(kSelectCommand.info.tool);
  tools.push_back(kUnselectCommand.info.tool);
  tools.push_back(kPanCommand.info.tool);
  return tools;
}

void showDrawMode(Desk& desk) {
  for (const char* const tool : drawModeTools(desk)) desk.tools.setChecked(tool, false);
  desk.systemPointer.setMousePointer(kDefaultShape);
  if (const char* const tool = toolOf(desk)) desk.tools.setChecked(tool, true);
}

}  // namespace tess
