// Pointer events of the drawing surface.
#include "drafting/pointer_events.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "display/display_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/grids.h"
#include "drafting/hover_preview.h"
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
constexpr double kWindowPixels = 10;  // a drag at least this wide or high is a window

bool isArmed(const DraftingContext& context, PendingAction action) {
  return context.state.pendingaction() == static_cast<int>(action);
}

bool isAnyArmed(const DraftingContext& context, std::initializer_list<PendingAction> actions) {
  return std::any_of(actions.begin(), actions.end(),
                     [&context](PendingAction action) { return isArmed(context, action); });
}

double clockTime(DraftingContext& context) {
  return context.session.host.clock.elapsedMilliseconds();
}

Point at(const PointerEvent& event) {
  return {event.X, event.Y};
}

void hoverAt(DraftingContext& context, Point position) {
  moveDragBand(context, snappedPosition(context, position));
}

// ---- Press

bool swallowedByMenuAtPress(DraftingContext& context) {
  const bool guarded = clockTime(context) - context.pointer.MenuGuardTime < kPressGuard;
  if (!guarded && !context.pointer.MenuGuard) return false;
  context.pointer.MenuGuard = false;
  return true;
}

void pressLeft(DraftingContext& context, const PointerEvent& event) {
  PointerRecord& pointer = context.pointer;
  pointer.LeftDown = true;
  if (context.store.hoverpreview) offerFeature(context, event);
  pointer.MouseDownX = pointer.MouseMoveX = event.X;
  pointer.MouseDownY = pointer.MouseMoveY = event.Y;
  if (isArmed(context, None)) showRubberBand(context);
  if (isArmed(context, Pan)) pointer.PanStart = context.viewCommands.beginPan(at(event));
  if (isArmed(context, PlaceText)) context.listener.textDragReset();
  if (isArmed(context, Measure)) pressMeasure(context, at(event));
  if (isArmed(context, MoveEndPoint)) pressEndPoint(context, at(event));
  if (hovers(context, context.state.pendingaction())) hoverAt(context, at(event));
}

void pressRight(DraftingContext& context, const PointerEvent& event) {
  context.pointer.RightDown = true;
  if (context.store.hoverpreview) offerFeature(context, event);
}

// ---- Move

void panWithControl(DraftingContext& context, const PointerEvent& event) {
  if (isArmed(context, None) && context.pointer.RubberKind == 0) {
    context.viewCommands.movePan(context.pointer.PanStart, at(event));
  }
  context.viewCommands.showPanPointer();
}

// The shift key turns object snap over while a position is being picked.
bool invertsSnap(const DraftingContext& context, const PointerEvent& event) {
  if (event.Button == 0 || event.Shift != kShiftKey) return false;
  return isAnyArmed(context, {MoveEndPoint, Measure}) ||
         (isArmed(context, None) && isDrawing(context.state.DrawMode())) ||
         event.Button == kRightButton;
}

void offerFeature(DraftingContext& context, const PointerEvent& event, bool invertSnap) {
  const ActionText* const action = findAction(context, context.state.pendingaction());
  const bool snaps = (action == nullptr || action->snaps) && !context.pointer.exact;
  const bool offers = snaps && !(context.state.OSnapOn && invertSnap);
  context.state.setFeaturePoint(offers ? featureAtPointer(context, at(event), invertSnap)
                                       : std::optional<CFeaturePoint>{});
}

WorldBox dragBox(const PointerRecord& pointer) {
  return {pointer.MouseDownX, pointer.MouseDownY, pointer.MouseMoveX, pointer.MouseMoveY};
}

// The view takes an old box for one that is on the screen.
void moveZoomBox(DraftingContext& context, const PointerEvent& event) {
  showDragBand(context);
  const WorldBox shown = dragBox(context.pointer);
  context.pointer.MouseMoveX = event.X;
  context.pointer.MouseMoveY = event.Y;
  context.viewCommands.dragZoomBox(shown, dragBox(context.pointer));
}

// A drag whose release got lost ends with the first event that reports no button.
void movePanDrag(DraftingContext& context, const PointerEvent& event) {
  PointerRecord& pointer = context.pointer;
  if (event.Button == 0) {
    picDrawing_MouseUp(context, {kLeftButton, event.Shift, event.X, event.Y});
    pointer.LeftDown = false;
    return;
  }
  const Point last{pointer.MouseMoveX, pointer.MouseMoveY};
  if (samePoint(at(event), last, context.store.cfg_tolerance)) return;
  context.viewCommands.movePan(pointer.PanStart, at(event));
}

void moveLeft(DraftingContext& context, const PointerEvent& event, bool invertSnap) {
  offerFeature(context, event, invertSnap);
  if (isArmed(context, None)) moveRubberBand(context, at(event));
  if (isAnyArmed(context, {Select, Unselect})) moveDragBand(context, at(event));
  if (isArmed(context, ZoomWindow)) moveZoomBox(context, event);
  if (isArmed(context, Pan)) movePanDrag(context, event);
  if (isArmed(context, Measure)) moveMeasure(context, at(event));
  if (hovers(context, context.state.pendingaction())) hoverAt(context, at(event));
}

bool differs(float a, float b) {
  return roundTo(a, kPositionDecimals) != roundTo(b, kPositionDecimals);
}

// Takes the unsnapped position in; true when it is a new one that may move the pointer position.
bool takeRaw(DraftingContext& context, Point raw) {
  PointerRecord& pointer = context.pointer;
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

void followPointer(DraftingContext& context, const PointerEvent& event) {
  PointerRecord& pointer = context.pointer;
  if (takeRaw(context, at(event))) {
    const Point snapped = onGrid(context, at(event));
    const bool restarts = !(snapped == at(event)) && event.Button != 0;
    pointer.MouseX = snapped.x;
    pointer.MouseY = snapped.y;
    if (restarts) context.gridSnapTimer->restart();
  }
  refreshCoordinates(context);
  keepRaw(pointer);
}

// ---- Release, first stage

bool swallowedByMenuAtRelease(DraftingContext& context) {
  PointerRecord& pointer = context.pointer;
  const bool guarded = clockTime(context) - pointer.MenuGuardTime < kReleaseGuard;
  if (!guarded && !pointer.MenuGuard) return false;
  pointer.MenuGuard = false;
  pointer.MenuGuardTime = PointerRecord::kLongAgo;
  return true;
}

void releaseBand(DraftingContext& context) {
  eraseRubberBand(context);
  context.redraw.redrawscreen();
}

bool isWindow(const DraftingContext& context) {
  const WorldBox box = dragBox(context.pointer);
  const double across =
      std::abs(static_cast<double>(box.x0) - box.x1) * PixelsPerInchX(context.ScreenProxy);
  const double down =
      std::abs(static_cast<double>(box.y0) - box.y1) * PixelsPerInchY(context.ScreenProxy);
  return across >= kWindowPixels || down >= kWindowPixels;
}

// A smaller drag stays a click, which the second stage completes.
void releaseSelectionBox(DraftingContext& context, const PointerEvent& event) {
  eraseDragBand(context);
  if (!isWindow(context)) return;
  context.pointer.LeftDown = false;
  const WorldBox box = dragBox(context.pointer);
  SelectWindow(context, isArmed(context, Select), {{box.x0, box.y0}, {box.x1, box.y1}},
               event.shift());
}

void releaseZoomBox(DraftingContext& context) {
  showDragBand(context);
  context.pointer.LeftDown = false;
  context.pointer.DragBand = 0;
  context.viewCommands.releaseZoomBox(dragBox(context.pointer));
}

void releasePan(DraftingContext& context, const PointerEvent& event) {
  context.viewCommands.endPan(context.pointer.PanStart, at(event));
  context.pointer.LeftDown = false;
}

void releaseLeft(DraftingContext& context, const PointerEvent& event) {
  // What was armed at the release counts: some of these change it.
  const auto armed = static_cast<PendingAction>(context.state.pendingaction());
  if (armed == None) releaseBand(context);
  if (armed == Pan) releasePan(context, event);
  if (!context.pointer.LeftDown) return;  // a menu swallowed the press: the last box is an old one
  if (armed == Select || armed == Unselect) releaseSelectionBox(context, event);
  if (armed == ZoomWindow) releaseZoomBox(context);
  if (armed == Measure) releaseMeasure(context);
  if (hovers(context, static_cast<int>(armed))) eraseDragBand(context);
  if (armed == MoveEndPoint) releaseEndPoint(context, snappedPosition(context, at(event)));
}

// ---- Release, second stage

Point settledPosition(DraftingContext& context, const PointerEvent& event) {
  const Point position = context.state.FeaturePoint() ? at(event) : onGrid(context, at(event));
  return {roundTo(position.x, kPositionDecimals), roundTo(position.y, kPositionDecimals)};
}

void endFeature(DraftingContext& context) {
  context.typedPosition.reset();
  if (context.state.FeaturePoint()) {
    context.state.setFeaturePoint({});
    context.redraw.redrawscreen();
  }
  context.listener.UpdatePropertyWindow();
}

void showPickedEntity(DraftingContext& context) {
  if (!isArmed(context, Select) || context.command.EditPaths) return;
  const int sg = nearestSeg(context.store, {context.pointer.MouseX, context.pointer.MouseY});
  if (sg >= 1 && sg <= context.store.NumSegments) context.listener.selectEntity(sg);
}

// A feature counts also where the pointer lay exactly on it and was snapped to the grid before.
void completeAt(DraftingContext& context, const PointerEvent& event) {
  const Point position = settledPosition(context, event);
  const bool onFeature = context.state.FeaturePoint() && !context.pointer.SkipPointerUpdate;
  if (takeRaw(context, position) || onFeature) {
    context.pointer.MouseX = position.x;
    context.pointer.MouseY = position.y;
  }
  refreshCoordinates(context);
  completeRelease(context, event.Button);
  endFeature(context);
  showPickedEntity(context);
  keepRaw(context.pointer);
}

PointerEvent atFeature(const DraftingContext& context, PointerEvent event) {
  if (const auto& feature = context.state.FeaturePoint()) {
    event.X = feature->X;
    event.Y = feature->Y;
  }
  return event;
}

// A form that picks in the drawing has the pointer to itself, and the release of its last click
// too.
bool isTheForms(const DraftingContext& context) {
  return context.onFormClick || context.pointer.FormTookPress;
}

bool panPointerShows(const DraftingContext& context) {
  return context.tools.isChecked(kPanCommand.info.tool) &&
         context.systemPointer.MousePointer() == kCustomShape;
}

}  // namespace

// A place under the pointer is offered what a press there would be, by the shift key too.
void offerFeature(DraftingContext& context, const PointerEvent& event) {
  PointerEvent pressed = event;
  if (pressed.Button == 0) pressed.Button = kLeftButton;
  offerFeature(context, pressed, invertsSnap(context, pressed));
}

void picDrawing_MouseDown(DraftingContext& context, const PointerEvent& event) {
  const Procedure here("frmMain.picDrawing_MouseDown(Button,Shift,X,Y)");
  if (const auto formClick = context.onFormClick) {
    context.pointer.FormTookPress = true;
    if (event.Button == kLeftButton) formClick(at(event));
    return;
  }
  context.pointer.FormTookPress = false;
  endHoverPreview(context);
  if (event.control()) {
    if (event.Button == kLeftButton)
      context.pointer.PanStart = context.viewCommands.beginPan(at(event));
    return;
  }
  if (event.Button == kRightButton) pressRight(context, event);
  if (event.Button != kLeftButton || swallowedByMenuAtPress(context)) return;
  pressLeft(context, event);
}

void picDrawing_MouseMove(DraftingContext& context, const PointerEvent& event) {
  const Procedure here("frmMain.picDrawing_MouseMove(Button,Shift,X,Y)");
  if (isTheForms(context)) return;
  if (event.Button != 0 && event.Shift == 0) {
    context.gridSnapTimer->start();
  } else {
    context.gridSnapTimer->stop();
  }
  if (event.Button == kLeftButton && event.control()) return panWithControl(context, event);
  const bool invertSnap = invertsSnap(context, event);
  if (isArmed(context, PlaceText)) {
    context.listener.textPointerMoved(event.Button, event.Shift, event.X, event.Y);
  }
  if (context.pointer.LeftDown) {
    moveLeft(context, event, invertSnap);
  } else if (context.pointer.RightDown) {
    offerFeature(context, event, invertSnap);
  } else {
    hoverOver(context, event);
  }
  followPointer(context, event);
  if (!isArmed(context, PlaceText)) context.systemPointer.focusSurface();
}

void picDrawing_MouseUp(DraftingContext& context, const PointerEvent& released) {
  const Procedure here("frmMain.picDrawing_MouseUp(Button,Shift,X,Y)");
  const bool formsOwn = isTheForms(context);
  context.pointer.FormTookPress = false;
  if (formsOwn) return;
  endHoverPreview(context);
  if (!panPointerShows(context)) context.systemPointer.setMousePointer(kDefaultShape);
  if (swallowedByMenuAtRelease(context)) return;
  context.gridSnapTimer->stop();
  const PointerEvent event = atFeature(context, released);
  if (event.Button == kLeftButton) {
    context.systemPointer.releaseCapture();
    if (isArmed(context, PlaceText)) {
      context.listener.textPointerReleased(event.Button, event.Shift, event.X, event.Y);
      context.pointer.LeftDown = false;
      return;
    }
    releaseLeft(context, event);
  }
  completeAt(context, event);
}

PointerEvent inPresentView(const DraftingContext& context, const PointerEvent& stated) {
  const bool pans = (isArmed(context, Pan) && context.pointer.LeftDown) ||
                    (stated.Button == kLeftButton && stated.control());
  if (!pans) return stated;
  const Point place = context.viewCommands.inPresentView(context.pointer.PanStart, at(stated));
  return {stated.Button, stated.Shift, place.x, place.y};
}

void MouseWheel1_MouseWheel(DraftingContext& context, int steps, int shift) {
  if (!isArmed(context, PlaceText)) return;
  const double now = clockTime(context);
  if (now - context.lastWheelTime < kWheelPause) return;
  context.lastWheelTime = now;
  context.listener.textWheel(steps, shift);
}

void keyboardClick(DraftingContext& context, int button) {
  const PointerEvent event{button, 0, context.pointer.MouseX, context.pointer.MouseY};
  picDrawing_MouseDown(context, event);
  context.pointer.SkipPointerUpdate = true;
  picDrawing_MouseMove(context, event);
  context.pointer.SkipPointerUpdate = true;
  picDrawing_MouseUp(context, event);
}

void msetpos(DraftingContext& context, float x, float y) {
  const PixelPoint pixel = context.ScreenProxy.surface().toPixels(x, y);
  context.systemPointer.warp(roundHalfEven(pixel.x), roundHalfEven(pixel.y));
}

void armMenuGuard(DraftingContext& context) {
  context.pointer.MenuGuard = false;
  context.pointer.MenuGuardTime = clockTime(context);
}

GridSnapTimer::GridSnapTimer(DraftingContext& context)
    : timer_(context.timers.create(
          {.name = "tmrGridSnap", .intervalMs = kGridSnapInterval, .oneShot = true}, [&context] {
            if (!context.systemPointer.isOverSurface()) return;
            msetpos(context, context.pointer.MouseX, context.pointer.MouseY);
            context.systemPointer.focusSurface();
          })) {}

void GridSnapTimer::restart() {
  stop();
  start();
}

}  // namespace tess
