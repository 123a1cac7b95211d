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
const char* toolOf(const DraftingContext& context) {
  const int mode = context.state.DrawMode();
  if (mode == kSelectingMode) {
    return (unselects(context.state.pendingaction()) ? kUnselectCommand : kSelectCommand).info.tool;
  }
  for (const DraftingCommand* const command : context.modes) {
    if (command->mode.number == mode) return command->info.tool;
  }
  return nullptr;
}

}  // namespace

std::vector<const char*> drawModeTools(const DraftingContext& context) {
  std::vector<const char*> tools;
  for (const DraftingCommand* const command : context.modes) tools.push_back(command->info.tool);
  tools.push_back(kSelectCommand.info.tool);
  tools.push_back(kUnselectCommand.info.tool);
  tools.push_back(kPanCommand.info.tool);
  return tools;
}

void showDrawMode(DraftingContext& context) {
  for (const char* const tool : drawModeTools(context)) context.tools.setChecked(tool, false);
  context.systemPointer.setMousePointer(kDefaultShape);
  if (const char* const tool = toolOf(context)) context.tools.setChecked(tool, true);
}

}  // namespace tess
