// Breaking a row in two.
#include "drafting/break_segment.h"

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "drafting/selection.h"

namespace tess {
namespace {

template <class Table>
BreakResult breakRow(Changes& changes, Table table, int number, Point at) {
  const DrawingStore& store = changes.store;
  if (number < 1 || number > table.count(store)) return BreakResult::NoRow;
  const auto row = table.row(store, number);
  Entity first = entityOf(row);
  if (endsAt(first, at, store.cfg_tolerance)) return BreakResult::AtEnd;
  if (first.type == kCircle) first.type = kClockwiseArc;
  Entity second = first;
  first.end = second.start = at;
  Change change(changes);
  table.rows(change).replace(number, reshaped(row, first));
  table.addBehind(change, number, reshaped(row, second));
  change.keep();
  return BreakResult::Broken;
}

template <class Table>
bool breakNearest(DraftingContext& context, Table table, int number) {
  const std::optional<Point> at = table.nearestOn(context.store, number, mouseOf(context));
  if (!at) return false;
  const auto broken = [&] { return breakRow(context.changes, table, number, *at); };
  return editByClick(context, broken) == BreakResult::Broken;
}

void clickBreak(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearest(context.store, mouseOf(context));
    if (number < 1) return;
    breakNearest(context, table, number) ? UnselectAll(context) : beep(context);
  });
}

}  // namespace

BreakResult breakSegment(Changes& changes, int sg, Point at) {
  return breakRow(changes, DrawnTable{}, sg, at);
}

BreakResult breakPathSegment(Changes& changes, int ps, Point at) {
  return breakRow(changes, PlacedTable{}, ps, at);
}

void mnuEditBreakSeg_Click(DraftingContext& context) {
  arm(context, PendingAction::Break);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kBreakActions[] = {
    {{.action = PendingAction::Break,
      .prompt = "Click on segment to break",
      .left = "breaks the nearest row there"},
     clickBreak},
};

}  // namespace

constexpr DraftingCommand kBreakCommand{
    .info = {.tool = "miBreakSegment",
             .caption = "&Break Segment",
             .key = "B",
             .menu = {"miEdit", 310},
             .bar = {"barEdit", 220}},
    .run = mnuEditBreakSeg_Click,
    .actions = kBreakActions,
    .repeat = {{PendingAction::Break}},
};

}  // namespace tess
