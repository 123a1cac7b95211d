// Moving an end point.
#include "drafting/move_end_points.h"

#include <algorithm>
#include <utility>

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/kept_radius.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

bool isCycle(int type) {
  return type >= kFirstCycle;
}

void moveArcEnd(Entity& arc, Point Entity::*end, Point far, Point to, float tolerence) {
  const std::optional<Point> center = keptRadiusCenter(arc, far, to, tolerence);
  if (!center) return;
  arc.*end = to;
  arc.center = *center;
}

Entity arcMoved(Entity arc, Point from, Point to, float tolerence) {
  if (samePoint(arc.start, arc.end, tolerence)) return arc;  // a full circle
  if (samePoint(arc.start, from, tolerence)) {
    moveArcEnd(arc, &Entity::start, arc.end, to, tolerence);
  } else {
    moveArcEnd(arc, &Entity::end, arc.start, to, tolerence);
  }
  return arc;
}

Point shifted(Point point, Point from, Point to) {
  return {narrow(static_cast<double>(point.x) + to.x - from.x),
          narrow(static_cast<double>(point.y) + to.y - from.y)};
}

// The end that is moved lands exactly on its place; a slot keeps its length.
Entity cycleMoved(Entity cycle, Point from, Point to, float tolerence) {
  const Point moved = samePoint(cycle.start, from, tolerence) ? cycle.start : cycle.end;
  cycle.start = shifted(cycle.start, moved, to);
  cycle.end = shifted(cycle.end, moved, to);
  return cycle;
}

// A row with an end at `from`, moved.
Entity endMoved(Entity row, Point from, Point to, float tolerence) {
  if (isRound(row.type)) return arcMoved(row, from, to, tolerence);
  if (isCycle(row.type)) return cycleMoved(row, from, to, tolerence);
  if (samePoint(row.start, from, tolerence)) row.start = to;
  if (samePoint(row.end, from, tolerence)) row.end = to;
  return row;
}

bool hasNoLength(const Entity& row, float tolerence) {
  return row.type == kLine && samePoint(row.start, row.end, tolerence);
}

template <class Table>
void moveEnds(Change& change, Table table, const DrawingStore& store, Point from, Point to) {
  const float tolerence = store.cfg_tolerance;
  auto& rows = table.rows(change);
  std::vector<std::int16_t> vanished;
  for (int number = table.count(store); number >= 1; --number) {
    const Entity before = table.entity(store, number);
    if (!table.isShown(store, number) || !endsAt(before, from, tolerence)) continue;
    const Entity now = endMoved(before, from, to, tolerence);
    if (now != before) rows.replace(number, reshaped(rows.row(number), now));
    if (hasNoLength(now, tolerence)) vanished.push_back(Int16(number));
  }
  std::reverse(vanished.begin(), vanished.end());
  rows.erase(vanished);
}

// The rows with the end at MouseMoveX, MouseMoveY.
std::vector<SegmentRow> hoverMoveEnd(const DraftingContext& context) {
  if (!context.command.draggedEnd) return {};
  return onEditedTable(context, [&context, from = *context.command.draggedEnd](auto table) {
    const DrawingStore& store = context.store;
    std::vector<SegmentRow> rows;
    for (int number = 1; number <= table.count(store); ++number) {
      const Entity row = table.entity(store, number);
      if (!table.isShown(store, number) || !endsAt(row, from, store.cfg_tolerance)) continue;
      rows.push_back(segmentRowOf(endMoved(row, from, hoverPoint(context), store.cfg_tolerance)));
    }
    return rows;
  });
}

}  // namespace

void moveEndpoints(Changes& changes, Point from, Point to) {
  Change change(changes);
  moveEnds(change, DrawnTable{}, changes.store, from, to);
  change.keep();
}

void movePathEndpoints(Changes& changes, Point from, Point to) {
  Change change(changes);
  moveEnds(change, PlacedTable{}, changes.store, from, to);
  change.keep();
}

void pressEndPoint(DraftingContext& context, Point at) {
  context.command.draggedEnd =
      onEditedTable(context, [&](auto table) { return table.nearestEnd(context.store, at); });
}

void releaseEndPoint(DraftingContext& context, Point at) {
  const std::optional<Point> from = std::exchange(context.command.draggedEnd, std::nullopt);
  if (!from) return;
  Change change(context.changes);
  onEditedTable(context, [&](auto table) { moveEnds(change, table, context.store, *from, at); });
  keepEdit(context, change);
}

void mnuEditMoveEnd_Click(DraftingContext& context) {
  if (hasRowsToEdit(context)) arm(context, PendingAction::MoveEndPoint);
}

// ---- Descriptors

namespace {

// Press and release do the work, so that the click has none.
constexpr Action<DraftingContext> kMoveEndActions[] = {
    {{.action = PendingAction::MoveEndPoint,
      .prompt = "Click near end point to move, then drag the endpoint.",
      .drags = true,
      .left = "takes the nearest end along"},
     /*click=*/nullptr,
     hoverMoveEnd},
};

}  // namespace

constexpr DraftingCommand kMoveEndCommand{
    .info = {.tool = "miMoveEndpoints",
             .caption = "Mo&ve Endpoints",
             .key = "V",
             .menu = {"miEdit", 360},
             .bar = {"barEdit", 260}},
    .run = mnuEditMoveEnd_Click,
    .actions = kMoveEndActions,
    .repeat = {{PendingAction::MoveEndPoint}},
};

}  // namespace tess
