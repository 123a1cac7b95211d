// What a click would make, before the button is down.
#include "drafting/hover_preview.h"

#include <utility>

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/grids.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "drafting/rubber_band.h"

namespace tess {
namespace {

bool isFree(const DraftingContext& context) {
  const PointerRecord& pointer = context.pointer;
  return !pointer.LeftDown && !pointer.RightDown && !context.onFormClick &&
         context.redraw.markerShown();
}

bool hoversFreely(const DraftingContext& context, int action) {
  const ActionText* const text = findAction(context, action);
  return hovers(context, action) && !text->drags;
}

const char* kindName(FeatureKind kind) {
  switch (kind) {
    case FeatureKind::EndPoint:
      return "end point";
    case FeatureKind::Center:
      return "center";
    case FeatureKind::Midpoint:
      return "midpoint";
    case FeatureKind::Quadrant:
      return "quadrant";
    case FeatureKind::Perpendicular:
      return "perpendicular";
    case FeatureKind::TypedPosition:
      break;
  }
  return "typed position";
}

}  // namespace

void hoverOver(DraftingContext& context, const PointerEvent& event) {
  if (!context.store.hoverpreview || event.Button != 0 || !isFree(context)) return;
  const int action = context.state.pendingaction();
  if (action == static_cast<int>(PendingAction::PlaceText)) return;
  context.pointer.hovers = true;
  offerFeature(context, event);
  const Point at = snappedPosition(context, {event.X, event.Y});
  if (action == 0 && at == markerOf(context)) {
    eraseRubberBand(context);  // a click there draws nothing
  } else if (action == 0) {
    moveRubberBand(context, at);
  } else if (hoversFreely(context, action)) {
    moveDragBand(context, at);
  }
}

void endHoverPreview(DraftingContext& context) {
  if (!std::exchange(context.pointer.hovers, false)) return;
  eraseRubberBand(context);
  if (context.pointer.DragBand != 0) eraseDragBand(context);
  context.state.setFeaturePoint({});
}

std::string snapName(const DraftingContext& context) {
  if (context.pointer.exact) return {};
  if (const auto& feature = context.state.FeaturePoint()) return kindName(feature->PointType);
  return context.store.cursorgridf != 0 && context.store.cursorgrid != 0 ? "grid" : "";
}

}  // namespace tess
