// The bands that follow the pointer.
#include "drafting/rubber_band.h"

#include <algorithm>

#include "display/arrowheads.h"
#include "drafting/entity_creation.h"
#include "drafting/form_preview.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

Rgb drawColor(const Desk& desk) {
  return slotColor(desk.store, ColorSlot::Draw);
}

WorldBox fromPress(const Desk& desk) {
  return {desk.pointer.MouseDownX, desk.pointer.MouseDownY, desk.pointer.MouseMoveX,
          desk.pointer.MouseMoveY};
}

bool hasNoExtent(const WorldBox& box) {
  return box.x0 == box.x1 && box.y0 == box.y1;
}

void moveBandEnd(Desk& desk, Point to) {
  desk.pointer.MouseMoveX = to.x;
  desk.pointer.MouseMoveY = to.y;
}

// ---- Drawing modes

bool hasBand(const Desk& desk) {
  const int mode = desk.state.DrawMode();
  if (takesThreePoints(desk, mode)) return desk.command.clickstage == kFirstPointTaken;
  return isDrawing(mode);
}

void invertRubberBand(Desk& desk, int mode) {
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.setDrawStyle(PenStyle::Solid);
  if (const DrawingMode* const drawn = modeOf(desk, mode)) drawn->hover(desk);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

// ---- Pending actions

void invertSelectionBox(Desk& desk) {
  const WorldBox box = fromPress(desk);
  if (!hasNoExtent(box)) traceRubberBox(desk.ScreenProxy, PenStyle::Dot, {box});
}

void invertZoomBox(Desk& desk) {
  traceRubberBox(desk.ScreenProxy, PenStyle::Dash, {fromPress(desk)});
}

void invertMeasureArrow(Desk& desk) {
  const WorldBox ends = fromPress(desk);
  if (hasNoExtent(ends)) return;
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.TraceLine(ends, drawColor(desk));
  TraceArrowhead(ends, drawColor(desk), desk.ScreenProxy);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

struct DragBandRow {
  PendingAction action;
  void (*invert)(Desk&);
};

constexpr DragBandRow kDragBands[] = {
    {PendingAction::Select, invertSelectionBox},
    {PendingAction::Unselect, invertSelectionBox},
    {PendingAction::ZoomWindow, invertZoomBox},
    {PendingAction::Measure, invertMeasureArrow},
};

void invertHovering(Desk& desk) {
  if (desk.hovering.empty()) return;
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.setDrawStyle(PenStyle::Solid);
  traceHovering(desk, desk.hovering);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

void invertDragBand(Desk& desk, int action) {
  for (const DragBandRow& band : kDragBands) {
    if (action == static_cast<int>(band.action)) band.invert(desk);
  }
  invertHovering(desk);
}

}  // namespace

void showRubberBand(Desk& desk) {
  if (!hasBand(desk)) return;
  desk.pointer.RubberKind = desk.state.DrawMode();
  invertRubberBand(desk, desk.pointer.RubberKind);
}

void eraseRubberBand(Desk& desk) {
  if (desk.pointer.RubberKind == 0) return;
  invertRubberBand(desk, desk.pointer.RubberKind);
  desk.pointer.RubberKind = 0;
}

void moveRubberBand(Desk& desk, Point to) {
  eraseRubberBand(desk);
  moveBandEnd(desk, to);
  showRubberBand(desk);
}

void showDragBand(Desk& desk) {
  if (desk.pointer.DragBand != 0) return;
  desk.pointer.DragBand = desk.state.pendingaction();
  if (hovers(desk, desk.pointer.DragBand)) {
    desk.hovering = desk.hoverActions[static_cast<std::size_t>(desk.pointer.DragBand)]();
  }
  invertDragBand(desk, desk.pointer.DragBand);
}

void eraseDragBand(Desk& desk) {
  invertDragBand(desk, desk.pointer.DragBand);
  desk.pointer.DragBand = 0;
  desk.hovering.clear();
}

void moveDragBand(Desk& desk, Point to) {
  eraseDragBand(desk);
  moveBandEnd(desk, to);
  showDragBand(desk);
}

}  // namespace tess
