// Enter Position.
#include "drafting/enter_position.h"

#include "drafting/dlgPositionCursor.h"
#include "drafting/drafting_commands.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"

namespace tess {
namespace {

std::optional<Point> askForPosition(Desk& desk) {
  dlgPositionCursor dialog(desk);
  desk.session.host.prompts.showModal(dialog);
  if (!dialog.accepted()) return std::nullopt;
  desk.typedPosition = dialog.position();
  return dialog.position();
}

std::optional<Point> enteredPosition(Desk& desk, std::optional<float> x, std::optional<float> y) {
  if (!x && !y) return askForPosition(desk);
  return Point{x.value_or(desk.lastTypedPosition.x), y.value_or(desk.lastTypedPosition.y)};
}

// The pointer itself follows, and the event that brings it there moves the position no further.
void putPointer(Desk& desk, Point position) {
  PointerRecord& pointer = desk.pointer;
  pointer.MouseX = position.x;
  pointer.MouseY = position.y;
  msetpos(desk, position.x, position.y);
  pointer.LastRawX = pointer.RawX;
  pointer.LastRawY = pointer.RawY;
  refreshCoordinates(desk);
  pointer.SkipPointerUpdate = true;
}

}  // namespace

void collect_Set_New_pos(Desk& desk, std::optional<float> new_X, std::optional<float> new_Y) {
  const Procedure here("frmMain.collect_Set_New_pos(new_X,new_Y)");
  desk.command.LastCommand = static_cast<int>(PendingAction::EnterPosition);
  const std::optional<Point> entered = enteredPosition(desk, new_X, new_Y);
  if (!entered) return;
  desk.lastTypedPosition = *entered;
  putPointer(desk, *entered);
}

void nudgePointer(Desk& desk, int pixelsX, int pixelsY) {
  const Procedure here("frmMain.nudgePointer(pixelsX,pixelsY)");
  const auto unitsX = pixelsX / PixelsPerInchX(desk.ScreenProxy);
  const auto unitsY = pixelsY / PixelsPerInchY(desk.ScreenProxy);
  putPointer(desk, {narrow(desk.pointer.MouseX + unitsX), narrow(desk.pointer.MouseY + unitsY)});
}

// ---- Descriptors

namespace {

void askForNewPosition(Desk& desk) {
  collect_Set_New_pos(desk);
}

}  // namespace

constexpr DeskCommand kEnterPositionCommand{
    .info = {.tool = "miEnterPosition",
             .caption = "Enter Positio&n...",
             .key = "E",
             .menu = {"miEdit", 610}},
    .run = askForNewPosition,
    .repeat = {{PendingAction::EnterPosition}},
};

}  // namespace tess
