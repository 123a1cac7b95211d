// Moving.
#include "drafting/move_rows.h"

#include <vector>

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "drafting/row_mapping.h"
#include "drafting/selection.h"

namespace tess {
namespace {

auto movedBy(float dx, float dy) {
  return [dx, dy](Point p) {
    return Point{narrow(static_cast<double>(p.x) + dx), narrow(static_cast<double>(p.y) + dy)};
  };
}

// The click redraws when it is done.
constexpr Keeping kDrawnLater{.redraws = false};

void clickMove(DraftingContext& context) {
  const Procedure here("frmMain.clickMove()");
  const Point click = mouseOf(context), marker = markerOf(context);
  const float dx = narrow(static_cast<double>(click.x) - marker.x);
  const float dy = narrow(static_cast<double>(click.y) - marker.y);
  Change change(context.changes);
  if (selectedCount(context.store) > 0) {
    moveSelected(context.changes, dx, dy);
  } else {
    moveAll(context.changes, dx, dy, /*start=*/1);
  }
  if (!change.keep(kDrawnLater)) return;  // a step that undo cannot hold, and was not wanted so
  context.state.updateProperties = true;
  moveMarker(context, click.x, click.y);
}

// The drawing rows that the move takes along.
std::vector<SegmentRow> hoverMove(const DraftingContext& context) {
  const Point marker = markerOf(context), to = hoverPoint(context);
  const auto moved = movedBy(to.x - marker.x, to.y - marker.y);
  const bool selectedOnly = selectedCount(context.store) > 0;
  std::vector<SegmentRow> rows;
  for (int sg = 1; sg <= context.store.NumSegments; ++sg) {
    if (selectedOnly && !isSelectedOrdinary(context.store.segattr[sg])) continue;
    mapRow(rows.emplace_back(segmentRow(context.store, sg)), moved);
  }
  return rows;
}

void clickSetOrigin(DraftingContext& context) {
  const Procedure here("frmMain.clickSetOrigin()");
  Change change(context.changes);
  moveAll(context.changes, -context.pointer.MouseX, -context.pointer.MouseY, /*start=*/1);
  if (change.keep(kDrawnLater)) context.state.updateProperties = true;
}

}  // namespace

void moveAll(Changes& changes, float dx, float dy, int start) {
  const auto moved = movedBy(dx, dy);
  Change change(changes);
  change.segments.replaceWhere([&](int sg, SegmentRow& row) {
    if (sg < start) return false;
    mapRow(row, moved);
    return true;
  });
  // Fixed: paths move in a step of their own; scripts undo a move of everything with two calls.
  change.startStep();
  change.paths.replaceWhere([&](int /*ps*/, PathRow& row) {
    mapRow(row, moved);
    return true;
  });
  change.keep();
}

void moveSelected(Changes& changes, float dx, float dy) {
  const auto moved = movedBy(dx, dy);
  Change change(changes);
  change.segments.replaceWhere([&](int /*sg*/, SegmentRow& row) {
    if (!isSelectedOrdinary(row.attr)) return false;
    mapRow(row, moved);
    return true;
  });
  change.keep();
}

void mnuEditMoveProf_Click(DraftingContext& context) {
  arm(context, PendingAction::Move);
}

void SetOrigin(DraftingContext& context) {
  arm(context, PendingAction::SetOrigin);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kMoveActions[] = {
    {{.action = PendingAction::Move,
      .prompt = kMoveAllPrompt,
      .left = "moves from the marker to there"},
     clickMove,
     hoverMove},
};

constexpr Action<DraftingContext> kSetOriginActions[] = {
    {{.action = PendingAction::SetOrigin,
      .prompt = "Click on new origin.",
      .left = "makes this place the origin"},
     clickSetOrigin},
};

}  // namespace

constexpr DraftingCommand kMoveCommand{
    .info = {.tool = "miMoveProfile",
             .caption = "&Move Profile",
             .key = "M",
             .menu = {"miEdit", 510}},
    .run = mnuEditMoveProf_Click,
    .actions = kMoveActions,
    .repeat = {{PendingAction::Move}},
};

constexpr DraftingCommand kSetOriginCommand{
    .info = {.tool = "miSetOrigin", .caption = "Set Ori&gin", .menu = {"miEdit", 550}},
    .run = tess::SetOrigin,
    .actions = kSetOriginActions,
    .repeat = {{PendingAction::SetOrigin}},
};

}  // namespace tess
