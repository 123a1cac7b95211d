// The numbered pending actions: their prompts, and how a release completes one.
#include "drafting/pending_actions.h"

#include <cmath>
#include <span>

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
constexpr Action<Desk> kUnarmed[] = {
    {{.action = NewPosition, .prompt = "Click at new position."}},
    {{.action = NewStartPosition, .prompt = "Click at new start position."}, clickStartPosition},
    {{.action = PocketEntity, .prompt = "Click to select entity for pocket."}},
    {{.action = IslandEntity, .prompt = "Click to select entity for island."}},
};

void redraw(Desk& desk) {
  desk.redraw.redrawscreen();
}

// Fixed: a click exactly on the marker draws nothing; chains would get lines without length.
bool isOnMarker(const Desk& desk) {
  return desk.pointer.MouseX == desk.store.markerx && desk.pointer.MouseY == desk.store.markery;
}

// After the click: a step that wants to go on has left a negative number, which outlives the reset
// of one-shot actions and the redraw.
void settleAction(Desk& desk) {
  const int after = desk.state.pendingaction();
  const ActionText* const action = findAction(desk, after);
  const bool stays = after < 0 || (action != nullptr && action->stays);
  if (!stays) desk.state.setPendingaction(0);
  redraw(desk);
  const int settled = desk.state.pendingaction();
  if (settled != 0) desk.state.setPendingaction(std::abs(settled));
}

void completeLeft(Desk& desk) {
  const int action = desk.state.pendingaction();
  const bool fires = desk.pointer.LeftDown && !(action == 0 && isOnMarker(desk));
  if (!fires) return;
  if (action == 0) {
    draw_Action(desk, desk.ScreenProxy);
    refreshStatus(desk);
  } else if (action == static_cast<int>(ZoomWindow)) {
    desk.state.setPendingaction(0);
  } else if (action == static_cast<int>(MoveEndPoint)) {
    desk.state.setPendingaction(0);
    redraw(desk);
  } else {
    do_pending(desk);
    settleAction(desk);
  }
}

void completeRight(Desk& desk) {
  desk.pointer.RightDown = false;
  if (desk.state.pendingaction() != 0) {
    eraseDragBand(desk);
    desk.state.setPendingaction(0);
  } else {
    dropThreePointCommand(desk);
    moveMarker(desk, desk.pointer.MouseX, desk.pointer.MouseY);
  }
  desk.state.RevertOSnapFeatures();
}

}  // namespace

void addUnarmedActions(Desk& desk) {
  desk.addActions(desk, std::span<const Action<Desk>>(kUnarmed));
}

std::string pendingPrompt(const Desk& desk, int number) {
  if (number == 0) return {};
  if (number == static_cast<int>(Move) && selectedCount(desk.store) > 0) return kMoveSelectedPrompt;
  const ActionText* const action = findAction(desk, number);
  return action != nullptr ? action->prompt : "Pending Function #" + std::to_string(number);
}

void refreshStatus(Desk& desk) {
  desk.statusBar.setText({});
  updateZoomFactor(desk.view);
  const std::string zoom = zoomText(desk.view.zoomfactor);
  desk.listener.showStatistics(desk.store.NumSegments, desk.store.NumPathSegments, zoom);
  desk.statusBar.setPanel(StatusPanel::Zoom, zoom);
  desk.statusBar.setText(pendingPrompt(desk, desk.state.pendingaction()));
  refreshCoordinates(desk);
}

void refreshCoordinates(Desk& desk) {
  const auto show = [&desk](StatusPanel panel, const char* axis, float value) {
    desk.statusBar.setPanel(panel, axis + formatNumber(value, desk.session.formats.coordfmt));
  };
  show(StatusPanel::X, "X: ", desk.pointer.MouseX);
  show(StatusPanel::Y, "Y: ", desk.pointer.MouseY);
  show(StatusPanel::Z, "Z: ", -std::abs(desk.store.cfg_final_depth));
}

void do_pending(Desk& desk) {
  const Procedure here("frmMain.do_pending");
  const int action = desk.state.pendingaction();
  if (action < 0 || action >= kActionNumbers) return;
  const auto& click = desk.clickActions[static_cast<std::size_t>(action)];
  if (click) click(desk);
}

void completeRelease(Desk& desk, int button) {
  if (button == kLeftButton) {
    completeLeft(desk);
    desk.pointer.LeftDown = false;
  } else if (button == kRightButton) {
    completeRight(desk);
  }
}

// Fixed: the drawing mode stays; operators go on drawing after an Esc.
void Handle_esc(Desk& desk) {
  const int number = desk.state.pendingaction();
  if (number == 0) return;
  eraseDragBand(desk);
  const ActionText* const action = findAction(desk, number);
  if (action != nullptr && action->escRedraws) {
    redraw(desk);
    desk.pointer.LeftDown = false;
  }
  desk.state.setPendingaction(0);
  desk.command.PendingSeg1 = 0;
  desk.command.PendingSeg2 = 0;
}

void arm(Desk& desk, PendingAction action, int drawMode) {
  desk.state.setPendingaction(static_cast<int>(action));
  desk.state.setDrawMode(drawMode);
  desk.command.LastCommand = static_cast<int>(action);
}

}  // namespace tess
