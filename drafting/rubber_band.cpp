// The bands that follow the pointer.
#include "drafting/rubber_band.h"

#include <algorithm>

#include "display/arrowheads.h"
#include "drafting/entity_creation.h"
#include "drafting/form_preview.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

// More rows than these are shown only while the button is down: to move the whole of a large
// drawing at every motion would lag behind the pointer.
constexpr std::size_t kMostHovering = 2000;

Rgb drawColor(const DraftingContext& context) {
  return slotColor(context.store, ColorSlot::Draw);
}

WorldBox fromPress(const DraftingContext& context) {
  return {context.pointer.MouseDownX, context.pointer.MouseDownY, context.pointer.MouseMoveX,
          context.pointer.MouseMoveY};
}

bool hasNoExtent(const WorldBox& box) {
  return box.x0 == box.x1 && box.y0 == box.y1;
}

void moveBandEnd(DraftingContext& context, Point to) {
  context.pointer.MouseMoveX = to.x;
  context.pointer.MouseMoveY = to.y;
}

// ---- Drawing modes

bool hasBand(const DraftingContext& context) {
  const int mode = context.state.DrawMode();
  if (takesThreePoints(context, mode)) return context.command.clickstage == kFirstPointTaken;
  return isDrawing(mode);
}

void invertRubberBand(DraftingContext& context, int mode) {
  context.ScreenProxy.setDrawMode(PenMode::NotXor);
  context.ScreenProxy.setDrawStyle(PenStyle::Solid);
  if (const DrawingMode* const drawn = modeOf(context, mode)) drawn->hover(context);
  context.ScreenProxy.setDrawMode(PenMode::Copy);
}

// ---- Pending actions

void invertSelectionBox(DraftingContext& context) {
  const WorldBox box = fromPress(context);
  if (!hasNoExtent(box)) traceRubberBox(context.ScreenProxy, PenStyle::Dot, {box});
}

void invertZoomBox(DraftingContext& context) {
  traceRubberBox(context.ScreenProxy, PenStyle::Dash, {fromPress(context)});
}

void invertMeasureArrow(DraftingContext& context) {
  const WorldBox ends = fromPress(context);
  if (hasNoExtent(ends)) return;
  context.ScreenProxy.setDrawMode(PenMode::NotXor);
  context.ScreenProxy.TraceLine(ends, drawColor(context));
  TraceArrowhead(ends, drawColor(context), context.ScreenProxy);
  context.ScreenProxy.setDrawMode(PenMode::Copy);
}

struct DragBandRow {
  PendingAction action;
  void (*invert)(DraftingContext&);
};

constexpr DragBandRow kDragBands[] = {
    {PendingAction::Select, invertSelectionBox},
    {PendingAction::Unselect, invertSelectionBox},
    {PendingAction::ZoomWindow, invertZoomBox},
    {PendingAction::Measure, invertMeasureArrow},
};

void invertHovering(DraftingContext& context) {
  if (context.hovering.empty()) return;
  context.ScreenProxy.setDrawMode(PenMode::NotXor);
  context.ScreenProxy.setDrawStyle(PenStyle::Solid);
  traceHovering(context, context.hovering);
  context.ScreenProxy.setDrawMode(PenMode::Copy);
}

void invertDragBand(DraftingContext& context, int action) {
  for (const DragBandRow& band : kDragBands) {
    if (action == static_cast<int>(band.action)) band.invert(context);
  }
  invertHovering(context);
}

}  // namespace

void showRubberBand(DraftingContext& context) {
  if (!hasBand(context)) return;
  context.pointer.RubberKind = context.state.DrawMode();
  invertRubberBand(context, context.pointer.RubberKind);
}

void eraseRubberBand(DraftingContext& context) {
  if (context.pointer.RubberKind == 0) return;
  invertRubberBand(context, context.pointer.RubberKind);
  context.pointer.RubberKind = 0;
}

void moveRubberBand(DraftingContext& context, Point to) {
  eraseRubberBand(context);
  moveBandEnd(context, to);
  showRubberBand(context);
}

void showDragBand(DraftingContext& context) {
  if (context.pointer.DragBand != 0) return;
  context.pointer.DragBand = context.state.pendingaction();
  if (hovers(context, context.pointer.DragBand)) {
    context.hovering = context.hoverActions[static_cast<std::size_t>(context.pointer.DragBand)]();
    if (context.pointer.hovers && context.hovering.size() > kMostHovering) context.hovering.clear();
  }
  invertDragBand(context, context.pointer.DragBand);
}

void eraseDragBand(DraftingContext& context) {
  invertDragBand(context, context.pointer.DragBand);
  context.pointer.DragBand = 0;
  context.hovering.clear();
}

void moveDragBand(DraftingContext& context, Point to) {
  eraseDragBand(context);
  moveBandEnd(context, to);
  showDragBand(context);
}

}  // namespace tess
