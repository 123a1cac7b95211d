// Enter Position.
#include "drafting/enter_position.h"

#include "drafting/dlgPositionCursor.h"
#include "drafting/drafting_commands.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"

namespace tess {
namespace {

std::optional<Point> askForPosition(DraftingContext& context) {
  dlgPositionCursor dialog(context);
  context.session.host.prompts.showModal(dialog);
  if (!dialog.accepted()) return std::nullopt;
  context.typedPosition = dialog.position();
  return dialog.position();
}

std::optional<Point> enteredPosition(DraftingContext& context, std::optional<float> x,
                                     std::optional<float> y) {
  if (!x && !y) return askForPosition(context);
  return Point{x.value_or(context.lastTypedPosition.x), y.value_or(context.lastTypedPosition.y)};
}

// The pointer itself follows, and the event that brings it there moves the position no further.
void putPointer(DraftingContext& context, Point position) {
  PointerRecord& pointer = context.pointer;
  pointer.MouseX = position.x;
  pointer.MouseY = position.y;
  msetpos(context, position.x, position.y);
  pointer.LastRawX = pointer.RawX;
  pointer.LastRawY = pointer.RawY;
  refreshCoordinates(context);
  pointer.SkipPointerUpdate = true;
}

}  // namespace

void collect_Set_New_pos(DraftingContext& context, std::optional<float> new_X,
                         std::optional<float> new_Y) {
  const Procedure here("frmMain.collect_Set_New_pos(new_X,new_Y)");
  context.command.LastCommand = static_cast<int>(PendingAction::EnterPosition);
  const std::optional<Point> entered = enteredPosition(context, new_X, new_Y);
  if (!entered) return;
  context.lastTypedPosition = *entered;
  putPointer(context, *entered);
}

void nudgePointer(DraftingContext& context, int pixelsX, int pixelsY) {
  const Procedure here("frmMain.nudgePointer(pixelsX,pixelsY)");
  const auto unitsX = pixelsX / PixelsPerInchX(context.ScreenProxy);
  const auto unitsY = pixelsY / PixelsPerInchY(context.ScreenProxy);
  putPointer(context,
             {narrow(context.pointer.MouseX + unitsX), narrow(context.pointer.MouseY + unitsY)});
}

// ---- Descriptors

namespace {

void askForNewPosition(DraftingContext& context) {
  collect_Set_New_pos(context);
}

}  // namespace

constexpr DraftingCommand kEnterPositionCommand{
    .info = {.tool = "miEnterPosition",
             .caption = "Enter Positio&n...",
             .key = "E",
             .menu = {"miEdit", 610}},
    .run = askForNewPosition,
    .repeat = {{PendingAction::EnterPosition}},
};

}  // namespace tess
