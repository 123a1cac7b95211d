// Trimming and extending.
#include "drafting/trim.h"

#include <optional>

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "geometry/float_angles.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest.h"

namespace tess {
namespace {

// How far a line reaches when it is extended, from its middle, in its own lengths.
// Fixed: a line is extended by 100 of its lengths and no further; trims that failed would be made.
constexpr double kReach = 100;

Point along(Point middle, Point start, Point end, double lengths) {
  return {narrow(middle.x + lengths * (static_cast<double>(end.x) - start.x)),
          narrow(middle.y + lengths * (static_cast<double>(end.y) - start.y))};
}

// As far as the row may be extended.
Entity extended(Entity row) {
  if (row.type == kLine) {
    const Point middle = midpointAndSlope(row.start, row.end).middle;
    return lineEntity(along(middle, row.start, row.end, -kReach),
                      along(middle, row.start, row.end, kReach));
  }
  row.end = row.start;
  return row;
}

// Extended, the end nearer to the place goes there; else the part with the click is cut off.
bool endGoes(const Entity& row, Point to, Point click, bool extends) {
  if (extends) return distance(to, row.end) < distance(to, row.start);
  if (row.type == kLine)
    return pointInSegBox(nearestOnLine(row.start, row.end, click), to, row.end);
  return angleInSweep(vectorAngle(row.center, click), vectorAngle(row.center, to),
                      vectorAngle(row.center, row.end), row.type);
}

std::optional<Entity> trimmed(const Entity& row, const Entity& trimmer, Point click,
                              float tolerence) {
  Crossing crossing = intersectEntities(row, trimmer, tolerence);
  const bool extends = crossing.miss == Miss::Apart;
  if (extends) crossing = intersectEntities(extended(row), trimmer, tolerence);
  if (!crossing) return std::nullopt;
  const Point to = nearerHit(crossing, click);
  Entity now = row;
  (endGoes(row, to, click, extends) ? now.end : now.start) = to;
  return now;
}

template <class Table>
bool trimRow(Changes& changes, Table table, int number, int trimmer, Point click) {
  const DrawingStore& store = changes.store;
  const int count = table.count(store);
  if (number < 1 || trimmer < 1 || number > count || trimmer > count) return false;
  if (number == trimmer) return false;
  const std::optional<Entity> now = trimmed(
      table.entity(store, number), table.entity(store, trimmer), click, store.cfg_tolerance);
  if (now) reshapeRow(changes, table, number, *now);
  return now.has_value();
}

// What a click at MouseMoveX, MouseMoveY would leave of the row.
template <class Table>
std::vector<SegmentRow> remainder(const DraftingContext& context, Table table) {
  const int number = pickedRow(context, table);
  const int trimmer = table.nearest(context.store, hoverPoint(context));
  if (number < 1 || trimmer < 1 || number == trimmer) return {};
  const std::optional<Entity> now =
      trimmed(table.entity(context.store, number), table.entity(context.store, trimmer),
              context.command.PendingPt1, context.store.cfg_tolerance);
  if (!now) return {};
  return {segmentRowOf(*now)};
}

void clickTrimPick(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearest(context.store, mouseOf(context));
    if (number < 1) return;
    pickRow(context, table, number);
    context.command.PendingPt1 = mouseOf(context);
    context.state.setPendingaction(goOnWith(PendingAction::TrimBy));
  });
}

void clickTrimBy(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = pickedRow(context, table);
    const int trimmer = table.nearest(context.store, mouseOf(context));
    context.command.PendingSeg2 = trimmer;
    if (number < 1 || trimmer < 1 || number == trimmer) return beep(context);
    editByClick(context, [&] {
      return trimRow(context.changes, table, number, trimmer, context.command.PendingPt1);
    });
  });
}

std::vector<SegmentRow> hoverTrimBy(const DraftingContext& context) {
  return onEditedTable(context, [&context](auto table) { return remainder(context, table); });
}

}  // namespace

bool trimSegment(Changes& changes, int sg, int trimmer, Point click) {
  return trimRow(changes, DrawnTable{}, sg, trimmer, click);
}

bool trimPathSegment(Changes& changes, int ps, int trimmer, Point click) {
  return trimRow(changes, PlacedTable{}, ps, trimmer, click);
}

void mnuEditTrimEntity_Click(DraftingContext& context) {
  arm(context, PendingAction::TrimPick);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kTrimActions[] = {
    {{.action = PendingAction::TrimPick,
      .prompt = "Click on end point to trim.",
      .snaps = false,
      .left = "the end to be trimmed"},
     clickTrimPick},
    {{.action = PendingAction::TrimBy,
      .prompt = "Click on trimming entity.",
      .snaps = false,
      .left = "the row to trim it at"},
     clickTrimBy,
     hoverTrimBy},
};

}  // namespace

constexpr DraftingCommand kTrimCommand{
    .info = {.tool = "miTrimEntity",
             .caption = "Trim &Entity",
             .key = "T",
             .menu = {"miEdit", 320},
             .bar = {"barEdit", 230}},
    .run = mnuEditTrimEntity_Click,
    .actions = kTrimActions,
    .repeat = {{PendingAction::TrimPick}},
};

}  // namespace tess
