// The numbered pending actions: their prompts, and how a release completes one.
#include "drafting/pending_actions.h"

#include <cmath>
#include <span>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "drafting/entity_creation.h"
#include "drafting/pointer_events.h"
#include "drafting/rubber_band.h"
#include "drafting/selection.h"
#include "drafting/start_position.h"

namespace tess {
namespace {

using enum PendingAction;

constexpr char kMoveSelectedPrompt[] =
    "Click at new position to move.  Only selected drawing segments will be moved.";

// No command arms these, yet they have their numbers and prompts.
constexpr Action<DraftingContext> kUnarmed[] = {
    {{.action = NewPosition, .prompt = "Click at new position.", .left = "new position"}},
    {{.action = NewStartPosition,
      .prompt = "Click at new start position.",
      .left = "new start position of the machine"},
     clickStartPosition},
    {{.action = PocketEntity,
      .prompt = "Click to select entity for pocket.",
      .left = "a row of the pocket"}},
    {{.action = IslandEntity,
      .prompt = "Click to select entity for island.",
      .left = "a row of the island"}},
    // Armed by the text panel, which the pointer's events go to meanwhile.
    {{.action = PlaceText,
      .prompt = "Click spot to place text.",
      .escRedraws = true,
      .left = "places the text there"}},
};

void redraw(DraftingContext& context) {
  context.redraw.redrawscreen();
}

// Fixed: a click exactly on the marker draws nothing; chains would get lines without length.
bool isOnMarker(const DraftingContext& context) {
  return context.pointer.MouseX == context.store.markerx &&
         context.pointer.MouseY == context.store.markery;
}

// After the click: a step that wants to go on has left a negative number, which outlives the reset
// of one-shot actions and the redraw.
void settleAction(DraftingContext& context) {
  const int after = context.state.pendingaction();
  const ActionText* const action = findAction(context, after);
  const bool stays = after < 0 || (action != nullptr && action->stays);
  if (!stays) context.state.setPendingaction(0);
  redraw(context);
  const int settled = context.state.pendingaction();
  if (settled != 0) context.state.setPendingaction(std::abs(settled));
  const std::string closing = std::exchange(context.command.closing, {});
  if (!closing.empty()) context.statusBar.setText(closing);
}

void completeLeft(DraftingContext& context) {
  const int action = context.state.pendingaction();
  const bool fires = context.pointer.LeftDown && !(action == 0 && isOnMarker(context));
  if (!fires) return;
  if (action == 0) {
    draw_Action(context, context.ScreenProxy);
    refreshStatus(context);
  } else if (action == static_cast<int>(ZoomWindow)) {
    context.state.setPendingaction(0);
  } else if (action == static_cast<int>(MoveEndPoint)) {
    context.state.setPendingaction(0);
    redraw(context);
  } else {
    do_pending(context);
    settleAction(context);
  }
}

void completeRight(DraftingContext& context) {
  context.pointer.RightDown = false;
  if (context.state.pendingaction() != 0) {
    eraseDragBand(context);
    context.state.setPendingaction(0);
  } else {
    dropThreePointCommand(context);
    moveMarker(context, context.pointer.MouseX, context.pointer.MouseY);
  }
  context.state.RevertOSnapFeatures();
}

}  // namespace

void addUnarmedActions(DraftingContext& context) {
  context.addActions(context, std::span<const Action<DraftingContext>>(kUnarmed));
}

std::string pendingPrompt(const DraftingContext& context, int number) {
  if (number == 0) return {};
  if (number == static_cast<int>(Move) && selectedCount(context.store) > 0)
    return kMoveSelectedPrompt;
  const ActionText* const action = findAction(context, number);
  return action != nullptr ? action->prompt : "Pending Function #" + std::to_string(number);
}

void refreshStatus(DraftingContext& context) {
  context.statusBar.setText({});
  updateZoomFactor(context.view);
  const std::string zoom = zoomText(context.view.zoomfactor);
  context.listener.showStatistics(context.store.NumSegments, context.store.NumPathSegments, zoom);
  context.statusBar.setPanel(StatusPanel::Zoom, zoom);
  context.statusBar.setText(pendingPrompt(context, context.state.pendingaction()));
  refreshCoordinates(context);
}

void refreshCoordinates(DraftingContext& context) {
  const auto show = [&context](StatusPanel panel, const char* axis, float value) {
    context.statusBar.setPanel(panel, axis + formatNumber(value, context.session.formats.coordfmt));
  };
  show(StatusPanel::X, "X: ", context.pointer.MouseX);
  show(StatusPanel::Y, "Y: ", context.pointer.MouseY);
  show(StatusPanel::Z, "Z: ", -std::abs(context.store.cfg_final_depth));
}

void do_pending(DraftingContext& context) {
  const Procedure here("frmMain.do_pending");
  const int action = context.state.pendingaction();
  if (action < 0 || action >= kActionNumbers) return;
  const auto& click = context.clickActions[static_cast<std::size_t>(action)];
  if (click) click(context);
}

void completeRelease(DraftingContext& context, int button) {
  if (button == kLeftButton) {
    completeLeft(context);
    context.pointer.LeftDown = false;
  } else if (button == kRightButton) {
    completeRight(context);
  }
}

// Fixed: the drawing mode stays; operators go on drawing after an Esc.
void Handle_esc(DraftingContext& context) {
  const int number = context.state.pendingaction();
  if (number == 0) return;
  eraseDragBand(context);
  const ActionText* const action = findAction(context, number);
  if (action != nullptr && action->escRedraws) {
    redraw(context);
    context.pointer.LeftDown = false;
  }
  context.state.setPendingaction(0);
  context.command.PendingSeg1 = 0;
  context.command.PendingSeg2 = 0;
}

void arm(DraftingContext& context, PendingAction action, int drawMode) {
  context.state.setPendingaction(static_cast<int>(action));
  context.state.setDrawMode(drawMode);
  context.command.LastCommand = static_cast<int>(action);
}

}  // namespace tess
