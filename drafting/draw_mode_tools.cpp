// The tools that show the drawing mode.
#include "drafting/draw_mode_tools.h"

#include <string>

#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

constexpr const char* kModeTools[] = {"miArc3P",      "miArcC+2P",  "miCircle3P",
                                      "miCircleC+1P", "miLine",     "miRectangle",
                                      "miSelect",     "miUnselect", "miPan"};

bool unselects(int action) {
  return action == static_cast<int>(PendingAction::Unselect) ||
         action == static_cast<int>(PendingAction::UnselectContiguous);
}

const char* toolOf(const Desk& desk) {
  switch (static_cast<DrawingMode>(desk.state.DrawMode())) {
    case DrawingMode::Selecting:
      return unselects(desk.state.pendingaction()) ? "miUnselect" : "miSelect";
    case DrawingMode::None:
      return nullptr;
    case DrawingMode::Line:
      return "miLine";
    case DrawingMode::Arc3P:
      return "miArc3P";
    case DrawingMode::ArcC2P:
      return "miArcC+2P";
    case DrawingMode::Circle3P:
      return "miCircle3P";
    case DrawingMode::Rectangle:
      return "miRectangle";
    case DrawingMode::CircleC1P:
      return "miCircleC+1P";
  }
  return nullptr;
}

}  // namespace

void showDrawMode(Desk& desk) {
  for (const char* const tool : kModeTools) desk.tools.setChecked(tool, false);
  desk.systemPointer.setMousePointer(kDefaultShape);
  if (const char* const tool = toolOf(desk)) desk.tools.setChecked(tool, true);
}

}  // namespace tess
