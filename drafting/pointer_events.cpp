// Pointer events of the drawing surface.
#include "drafting/pointer_events.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "display/display_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/grids.h"
#include "drafting/measure.h"
#include "drafting/move_end_points.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "drafting/rubber_band.h"
#include "drafting/selection.h"
#include "geometry/float_nearest_scans.h"

namespace tess {
namespace {

using enum PendingAction;

// In milliseconds of the clock, whose whole numbers compare exactly.
constexpr double kPressGuard = 200;
constexpr double kReleaseGuard = 300;
constexpr double kWheelPause = 50;
constexpr int kGridSnapInterval = 375;
constexpr int kPositionDecimals = 6;
constexpr double kWindowPixels = 10;  // a drag at least this wide or high is a window

bool isArmed(const Desk& desk, PendingAction action) {
  return desk.state.pendingaction() == static_cast<int>(action);
}

bool isAnyArmed(const Desk& desk, std::initializer_list<PendingAction> actions) {
  return std::any_of(actions.begin(), actions.end(),
                     [&desk](PendingAction action) { return isArmed(desk, action); });
}

double clockTime(Desk& desk) {
  return desk.session.host.clock.elapsedMilliseconds();
}

Point at(const PointerEvent& event) {
  return {event.X, event.Y};
}

void hoverAt(Desk& desk, Point position) {
  moveDragBand(desk, snappedPosition(desk, position));
}

// ---- Press

bool swallowedByMenuAtPress(Desk& desk) {
  const bool guarded = clockTime(desk) - desk.pointer.MenuGuardTime < kPressGuard;
  if (!guarded && !desk.pointer.MenuGuard) return false;
  desk.pointer.MenuGuard = false;
  return true;
}

void pressLeft(Desk& desk, const PointerEvent& event) {
  PointerRecord& pointer = desk.pointer;
  pointer.LeftDown = true;
  pointer.MouseDownX = pointer.MouseMoveX = event.X;
  pointer.MouseDownY = pointer.MouseMoveY = event.Y;
  if (isArmed(desk, None)) showRubberBand(desk);
  if (isArmed(desk, Pan)) pointer.PanStart = desk.viewCommands.beginPan(at(event));
  if (isArmed(desk, PlaceText)) desk.listener.textDragReset();
  if (isArmed(desk, Measure)) pressMeasure(desk, at(event));
  if (isArmed(desk, MoveEndPoint)) pressEndPoint(desk, at(event));
  if (hovers(desk, desk.state.pendingaction())) hoverAt(desk, at(event));
}

// ---- Move

void panWithControl(Desk& desk, const PointerEvent& event) {
  if (isArmed(desk, None) && desk.pointer.RubberKind == 0) {
    desk.viewCommands.movePan(desk.pointer.PanStart, at(event));
  }
  desk.viewCommands.showPanPointer();
}

// The shift key turns object snap over while a position is being picked.
bool invertsSnap(const Desk& desk, const PointerEvent& event) {
  if (event.Button == 0 || event.Shift != kShiftKey) return false;
  return isAnyArmed(desk, {MoveEndPoint, Measure}) ||
         (isArmed(desk, None) && isDrawing(desk.state.DrawMode())) || event.Button == kRightButton;
}

void offerFeature(Desk& desk, const PointerEvent& event, bool invertSnap) {
  const ActionText* const action = findAction(desk, desk.state.pendingaction());
  const bool snaps = action == nullptr || action->snaps;
  const bool offers = snaps && !(desk.state.OSnapOn && invertSnap);
  desk.state.setFeaturePoint(offers ? featureAtPointer(desk, at(event), invertSnap)
                                    : std::optional<CFeaturePoint>{});
}

WorldBox dragBox(const PointerRecord& pointer) {
  return {pointer.MouseDownX, pointer.MouseDownY, pointer.MouseMoveX, pointer.MouseMoveY};
}

// The view takes an old box for one that is on the screen.
void moveZoomBox(Desk& desk, const PointerEvent& event) {
  showDragBand(desk);
  const WorldBox shown = dragBox(desk.pointer);
  desk.pointer.MouseMoveX = event.X;
  desk.pointer.MouseMoveY = event.Y;
  desk.viewCommands.dragZoomBox(shown, dragBox(desk.pointer));
}

// A drag whose release got lost ends with the first event that reports no button.
void movePanDrag(Desk& desk, const PointerEvent& event) {
  PointerRecord& pointer = desk.pointer;
  if (event.Button == 0) {
    picDrawing_MouseUp(desk, {kLeftButton, event.Shift, event.X, event.Y});
    pointer.LeftDown = false;
    return;
  }
  const Point last{pointer.MouseMoveX, pointer.MouseMoveY};
  if (samePoint(at(event), last, desk.store.cfg_tolerance)) return;
  desk.viewCommands.movePan(pointer.PanStart, at(event));
}

void moveLeft(Desk& desk, const PointerEvent& event, bool invertSnap) {
  offerFeature(desk, event, invertSnap);
  if (isArmed(desk, None)) moveRubberBand(desk, at(event));
  if (isAnyArmed(desk, {Select, Unselect})) moveDragBand(desk, at(event));
  if (isArmed(desk, ZoomWindow)) moveZoomBox(desk, event);
  if (isArmed(desk, Pan)) movePanDrag(desk, event);
  if (isArmed(desk, Measure)) moveMeasure(desk, at(event));
  if (hovers(desk, desk.state.pendingaction())) hoverAt(desk, at(event));
}

bool differs(float a, float b) {
  return roundTo(a, kPositionDecimals) != roundTo(b, kPositionDecimals);
}

// Takes the unsnapped position in; true when it is a new one that may move the pointer position.
bool takeRaw(Desk& desk, Point raw) {
  PointerRecord& pointer = desk.pointer;
  pointer.RawX = raw.x;
  pointer.RawY = raw.y;
  const bool moved = differs(raw.x, pointer.LastRawX) || differs(raw.y, pointer.LastRawY);
  return moved && !pointer.SkipPointerUpdate;
}

void keepRaw(PointerRecord& pointer) {
  pointer.SkipPointerUpdate = false;
  pointer.LastRawX = pointer.RawX;
  pointer.LastRawY = pointer.RawY;
}

void followPointer(Desk& desk, const PointerEvent& event) {
  PointerRecord& pointer = desk.pointer;
  if (takeRaw(desk, at(event))) {
    const Point snapped = snappedToGrid(desk.store, at(event));
    const bool restarts = !(snapped == at(event)) && event.Button != 0;
    pointer.MouseX = snapped.x;
    pointer.MouseY = snapped.y;
    if (restarts) desk.gridSnapTimer->restart();
  }
  refreshCoordinates(desk);
  keepRaw(pointer);
}

// ---- Release, first stage

bool swallowedByMenuAtRelease(Desk& desk) {
  PointerRecord& pointer = desk.pointer;
  const bool guarded = clockTime(desk) - pointer.MenuGuardTime < kReleaseGuard;
  if (!guarded && !pointer.MenuGuard) return false;
  pointer.MenuGuard = false;
  pointer.MenuGuardTime = PointerRecord::kLongAgo;
  return true;
}

void releaseBand(Desk& desk) {
  eraseRubberBand(desk);
  desk.redraw.redrawscreen();
}

bool isWindow(const Desk& desk) {
  const WorldBox box = dragBox(desk.pointer);
  const double across =
      std::abs(static_cast<double>(box.x0) - box.x1) * PixelsPerInchX(desk.ScreenProxy);
  const double down =
      std::abs(static_cast<double>(box.y0) - box.y1) * PixelsPerInchY(desk.ScreenProxy);
  return across >= kWindowPixels || down >= kWindowPixels;
}

// A smaller drag stays a click, which the second stage completes.
void releaseSelectionBox(Desk& desk, const PointerEvent& event) {
  eraseDragBand(desk);
  if (!isWindow(desk)) return;
  desk.pointer.LeftDown = false;
  const WorldBox box = dragBox(desk.pointer);
  SelectWindow(desk, isArmed(desk, Select), {{box.x0, box.y0}, {box.x1, box.y1}}, event.shift());
}

void releaseZoomBox(Desk& desk) {
  showDragBand(desk);
  desk.pointer.LeftDown = false;
  desk.pointer.DragBand = 0;
  desk.viewCommands.releaseZoomBox(dragBox(desk.pointer));
}

void releasePan(Desk& desk, const PointerEvent& event) {
  desk.viewCommands.endPan(desk.pointer.PanStart, at(event));
  desk.pointer.LeftDown = false;
}

void releaseLeft(Desk& desk, const PointerEvent& event) {
  // What was armed at the release counts: some of these change it.
  const auto armed = static_cast<PendingAction>(desk.state.pendingaction());
  if (armed == None) releaseBand(desk);
  if (armed == Pan) releasePan(desk, event);
  if (!desk.pointer.LeftDown) return;  // a menu swallowed the press: the last box is an old one
  if (armed == Select || armed == Unselect) releaseSelectionBox(desk, event);
  if (armed == ZoomWindow) releaseZoomBox(desk);
  if (armed == Measure) releaseMeasure(desk);
  if (hovers(desk, static_cast<int>(armed))) eraseDragBand(desk);
  if (armed == MoveEndPoint) releaseEndPoint(desk, snappedPosition(desk, at(event)));
}

// ---- Release, second stage

Point settledPosition(Desk& desk, const PointerEvent& event) {
  const Point position =
      desk.state.FeaturePoint() ? at(event) : snappedToGrid(desk.store, at(event));
  return {roundTo(position.x, kPositionDecimals), roundTo(position.y, kPositionDecimals)};
}

void endFeature(Desk& desk) {
  desk.typedPosition.reset();
  if (desk.state.FeaturePoint()) {
    desk.state.setFeaturePoint({});
    desk.redraw.redrawscreen();
  }
  desk.listener.UpdatePropertyWindow();
}

void showPickedEntity(Desk& desk) {
  if (!isArmed(desk, Select) || desk.command.EditPaths) return;
  const int sg = nearestSeg(desk.store, {desk.pointer.MouseX, desk.pointer.MouseY});
  if (sg >= 1 && sg <= desk.store.NumSegments) desk.listener.selectEntity(sg);
}

// A feature counts also where the pointer lay exactly on it and was snapped to the grid before.
void completeAt(Desk& desk, const PointerEvent& event) {
  const Point position = settledPosition(desk, event);
  const bool onFeature = desk.state.FeaturePoint() && !desk.pointer.SkipPointerUpdate;
  if (takeRaw(desk, position) || onFeature) {
    desk.pointer.MouseX = position.x;
    desk.pointer.MouseY = position.y;
  }
  refreshCoordinates(desk);
  completeRelease(desk, event.Button);
  endFeature(desk);
  showPickedEntity(desk);
  keepRaw(desk.pointer);
}

PointerEvent atFeature(const Desk& desk, PointerEvent event) {
  if (const auto& feature = desk.state.FeaturePoint()) {
    event.X = feature->X;
    event.Y = feature->Y;
  }
  return event;
}

bool panPointerShows(const Desk& desk) {
  return desk.tools.isChecked(kPanCommand.info.tool) &&
         desk.systemPointer.MousePointer() == kCustomShape;
}

}  // namespace

void picDrawing_MouseDown(Desk& desk, const PointerEvent& event) {
  const Procedure here("frmMain.picDrawing_MouseDown(Button,Shift,X,Y)");
  if (event.control()) {
    if (event.Button == kLeftButton) desk.pointer.PanStart = desk.viewCommands.beginPan(at(event));
    return;
  }
  if (event.Button == kRightButton) desk.pointer.RightDown = true;
  if (event.Button != kLeftButton || swallowedByMenuAtPress(desk)) return;
  pressLeft(desk, event);
}

void picDrawing_MouseMove(Desk& desk, const PointerEvent& event) {
  const Procedure here("frmMain.picDrawing_MouseMove(Button,Shift,X,Y)");
  if (event.Button != 0 && event.Shift == 0) {
    desk.gridSnapTimer->start();
  } else {
    desk.gridSnapTimer->stop();
  }
  if (event.Button == kLeftButton && event.control()) return panWithControl(desk, event);
  const bool invertSnap = invertsSnap(desk, event);
  if (isArmed(desk, PlaceText)) {
    desk.listener.textPointerEvent(event.Button, event.Shift, event.X, event.Y);
  }
  if (desk.pointer.LeftDown) {
    moveLeft(desk, event, invertSnap);
  } else if (desk.pointer.RightDown) {
    offerFeature(desk, event, invertSnap);
  }
  followPointer(desk, event);
  if (!isArmed(desk, PlaceText)) desk.systemPointer.focusSurface();
}

void picDrawing_MouseUp(Desk& desk, const PointerEvent& released) {
  const Procedure here("frmMain.picDrawing_MouseUp(Button,Shift,X,Y)");
  if (!panPointerShows(desk)) desk.systemPointer.setMousePointer(kDefaultShape);
  if (swallowedByMenuAtRelease(desk)) return;
  desk.gridSnapTimer->stop();
  const PointerEvent event = atFeature(desk, released);
  if (event.Button == kLeftButton) {
    desk.systemPointer.releaseCapture();
    if (isArmed(desk, PlaceText)) {
      desk.listener.textPointerEvent(event.Button, event.Shift, event.X, event.Y);
      desk.pointer.LeftDown = false;
      return;
    }
    releaseLeft(desk, event);
  }
  completeAt(desk, event);
}

PointerEvent inPresentView(const Desk& desk, const PointerEvent& stated) {
  const bool pans = (isArmed(desk, Pan) && desk.pointer.LeftDown) ||
                    (stated.Button == kLeftButton && stated.control());
  if (!pans) return stated;
  const Point place = desk.viewCommands.inPresentView(desk.pointer.PanStart, at(stated));
  return {stated.Button, stated.Shift, place.x, place.y};
}

void MouseWheel1_MouseWheel(Desk& desk, int steps, int shift) {
  if (!isArmed(desk, PlaceText)) return;
  const double now = clockTime(desk);
  if (now - desk.lastWheelTime < kWheelPause) return;
  desk.lastWheelTime = now;
  desk.listener.textWheel(steps, shift);
}

void keyboardClick(Desk& desk, int button) {
  const PointerEvent event{button, 0, desk.pointer.MouseX, desk.pointer.MouseY};
  picDrawing_MouseDown(desk, event);
  desk.pointer.SkipPointerUpdate = true;
  picDrawing_MouseMove(desk, event);
  desk.pointer.SkipPointerUpdate = true;
  picDrawing_MouseUp(desk, event);
}

void msetpos(Desk& desk, float x, float y) {
  const PixelPoint pixel = desk.ScreenProxy.surface().toPixels(x, y);
  desk.systemPointer.warp(roundHalfEven(pixel.x), roundHalfEven(pixel.y));
}

void armMenuGuard(Desk& desk) {
  desk.pointer.MenuGuard = false;
  desk.pointer.MenuGuardTime = clockTime(desk);
}

GridSnapTimer::GridSnapTimer(Desk& desk)
    : timer_(desk.timers.create(
          {.name = "tmrGridSnap", .intervalMs = kGridSnapInterval, .oneShot = true}, [&desk] {
            if (!desk.systemPointer.isOverSurface()) return;
            msetpos(desk, desk.pointer.MouseX, desk.pointer.MouseY);
            desk.systemPointer.focusSurface();
          })) {}

void GridSnapTimer::restart() {
  stop();
  start();
}

}  // namespace tess
