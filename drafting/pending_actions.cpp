// The numbered pending actions: their table, and how a release completes one.
#include "drafting/pending_actions.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "drafting/entity_creation.h"
#include "drafting/pointer_events.h"
#include "drafting/rubber_band.h"
#include "drafting/selection.h"

namespace tess {
namespace {

using enum PendingAction;

constexpr bool kStays = true;
constexpr bool kOneShot = false;
constexpr int kHighestAction = 47;

constexpr char kMoveSelected[] =
    "Click at new position to move.  Only selected drawing segments will be moved.";
constexpr char kMoveAll[] =
    "Click at new position to move.  All drawing and path segments will be moved.";

// clang-format off
constexpr ActionRow kActions[] = {
    {Delete,             "Click near item to delete.", kStays},
    {FlipArc,            "Click near arc to flip.", kOneShot},
    {ChangeRadius,       "Click near arc to change radius.", kOneShot},
    {EntityInfo,         "Click near item to display data.", kOneShot},
    {Move,               kMoveAll, kOneShot},
    {Copy,               "Click on segment to copy.", kOneShot},
    {Break,              "Click on segment to break", kOneShot},
    {MoveEndPoint,       "Click near end point to move, then drag the endpoint.", kOneShot},
    {NewPosition,        "Click at new position.", kOneShot},
    {NewStartPosition,   "Click at new start position.", kOneShot},
    {ReverseArc,         "Click near arc to reverse.", kOneShot},
    {TrimPick,           "Click on end point to trim.", kOneShot},
    {TrimBy,             "Click on trimming entity.", kOneShot},
    {JoinFirst,          "Click on 1st end-point to join.", kOneShot},
    {JoinSecond,         "Click on 2nd end-point to join.", kOneShot},
    {FinishStart,        "Click near start point.", kOneShot},
    {FinishDirection,    "Click to indicate direction.", kOneShot},
    {FinishReference,    "Click to indicate finish reference.", kOneShot},
    {Select,             "Click on entity or drag to select.  Hold <Shift> for exclusive mode.", kStays},
    {Unselect,           "Click on entity or drag to unselect.", kStays},
    {PocketEntity,       "Click to select entity for pocket.", kOneShot},
    {IslandEntity,       "Click to select entity for island.", kOneShot},
    {ZoomWindow,         "Select zoom window with mouse.", kOneShot},
    {Pan,                "Click spot to Pan to with mouse.", kStays},
    {PlaceText,          "Click spot to place text.", kOneShot},
    {SelectContiguous,   "Click on entity to select contiguous entities", kStays},
    {UnselectContiguous, "Click on entity to unselect contiguous entities.", kStays},
    {PlaceCycle,         "Click spot to place machine cycle.", kOneShot},
    {DeleteVertex,       "Click near vertex to remove.", kOneShot},
    {SetOrigin,          "Click on new origin.", kOneShot},
    {Measure,            "Click on start-point and drag to end-point.  ", kOneShot},
    {StartRoughing,      "Click near starting Path Segment.  ", kOneShot},
    {GougeGroup,         "Click near the desired Path Group.  ", kOneShot},
    {ReversePath,        "Click near Path Segment to reverse.  ", kOneShot},
    {JoinArcFirst,       "Click on 1st end-point to join.", kOneShot},
    {JoinArcSecond,      "Click on 2nd end-point to join.", kOneShot},
    {JoinArcThird,       "Click on 3rd point of the joining arc.", kOneShot},
    {FilletFirst,        "Click near first line to fillet.", kOneShot},
    {FilletSecond,       "Click near second line to fillet.", kOneShot},
};
// clang-format on

void redraw(Desk& desk) {
  desk.redraw.redrawscreen();
}

bool isOnMarker(const Desk& desk) {
  return desk.pointer.MouseX == desk.store.markerx && desk.pointer.MouseY == desk.store.markery;
}

// After the click: a step that wants to go on has left a negative number, which outlives the reset
// of one-shot actions and the redraw.
void settleAction(Desk& desk) {
  const int after = desk.state.pendingaction();
  const ActionRow* const row = findAction(after);
  const bool stays = after < 0 || (row != nullptr && row->staysArmed);
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
    desk.state.setPendingaction(0);
  } else {
    dropThreePointCommand(desk);
    moveMarker(desk, desk.pointer.MouseX, desk.pointer.MouseY);
  }
  desk.state.RevertOSnapFeatures();
}

}  // namespace

std::span<const ActionRow> pendingActions() {
  return kActions;
}

const ActionRow* findAction(int number) {
  const auto* const found = std::find_if(
      std::begin(kActions), std::end(kActions),
      [number](const ActionRow& row) { return static_cast<int>(row.action) == number; });
  return found == std::end(kActions) ? nullptr : found;
}

std::string pendingPrompt(const DrawingStore& store, int number) {
  if (number == 0) return {};
  if (number == static_cast<int>(Move)) {
    return selectedCount(store) > 0 ? kMoveSelected : kMoveAll;
  }
  const ActionRow* const row = findAction(number);
  return row != nullptr ? row->prompt : "Pending Function #" + std::to_string(number);
}

void refreshStatus(Desk& desk) {
  desk.statusBar.setText({});
  updateZoomFactor(desk.view);
  const std::string zoom = zoomText(desk.view.zoomfactor);
  desk.listener.showStatistics(desk.store.NumSegments, desk.store.NumPathSegments, zoom);
  desk.statusBar.setPanel(StatusPanel::Zoom, zoom);
  desk.statusBar.setText(pendingPrompt(desk.store, desk.state.pendingaction()));
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
  if (action < 0 || action > kHighestAction) return;
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

void Handle_esc(Desk& desk) {
  const int action = desk.state.pendingaction();
  if (action == 0) return;
  eraseDragBand(desk);
  const bool bandOnScreen =
      action == static_cast<int>(Select) || action == static_cast<int>(Unselect) ||
      action == static_cast<int>(ZoomWindow) || action == static_cast<int>(PlaceText);
  if (bandOnScreen) {
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
