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

void clickMove(Desk& desk) {
  const Procedure here("frmMain.clickMove()");
  const Point click = mouseOf(desk), marker = markerOf(desk);
  const float dx = narrow(static_cast<double>(click.x) - marker.x);
  const float dy = narrow(static_cast<double>(click.y) - marker.y);
  Change change(desk.changes);
  if (selectedCount(desk.store) > 0) {
    moveSelected(desk.changes, dx, dy);
  } else {
    moveAll(desk.changes, dx, dy, /*start=*/1);
  }
  if (!change.keep(kDrawnLater)) return;  // a step that undo cannot hold, and was not wanted so
  desk.state.updateProperties = true;
  moveMarker(desk, click.x, click.y);
}

// The drawing rows that the move takes along.
std::vector<SegmentRow> hoverMove(const Desk& desk) {
  const Point marker = markerOf(desk), to = hoverPoint(desk);
  const auto moved = movedBy(to.x - marker.x, to.y - marker.y);
  const bool selectedOnly = selectedCount(desk.store) > 0;
  std::vector<SegmentRow> rows;
  for (int sg = 1; sg <= desk.store.NumSegments; ++sg) {
    if (selectedOnly && !isSelectedOrdinary(desk.store.segattr[sg])) continue;
    mapRow(rows.emplace_back(segmentRow(desk.store, sg)), moved);
  }
  return rows;
}

void clickSetOrigin(Desk& desk) {
  const Procedure here("frmMain.clickSetOrigin()");
  Change change(desk.changes);
  moveAll(desk.changes, -desk.pointer.MouseX, -desk.pointer.MouseY, /*start=*/1);
  if (change.keep(kDrawnLater)) desk.state.updateProperties = true;
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

void mnuEditMoveProf_Click(Desk& desk) {
  arm(desk, PendingAction::Move);
}

void SetOrigin(Desk& desk) {
  arm(desk, PendingAction::SetOrigin);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kMoveActions[] = {
    {{.action = PendingAction::Move, .prompt = kMoveAllPrompt}, clickMove, hoverMove},
};

constexpr Action<Desk> kSetOriginActions[] = {
    {{.action = PendingAction::SetOrigin, .prompt = "Click on new origin."}, clickSetOrigin},
};

}  // namespace

constexpr DeskCommand kMoveCommand{
    .info = {.tool = "miMoveProfile",
             .caption = "&Move Profile",
             .key = "M",
             .menu = {"miEdit", 510}},
    .run = mnuEditMoveProf_Click,
    .actions = kMoveActions,
    .repeat = {{PendingAction::Move}},
};

constexpr DeskCommand kSetOriginCommand{
    .info = {.tool = "miSetOrigin", .caption = "Set &Origin", .menu = {"miEdit", 550}},
    .run = tess::SetOrigin,
    .actions = kSetOriginActions,
    .repeat = {{PendingAction::SetOrigin}},
};

}  // namespace tess
