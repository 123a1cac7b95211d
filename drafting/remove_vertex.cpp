// Removing a vertex.
#include "drafting/remove_vertex.h"

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/kept_radius.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

// What can be joined at a vertex.
// Fixed: arcs of a drawing do not count; a vertex of a line and an arc is refused, as scripts know.
bool joins(const DrawingStore& store, DrawnTable /*table*/, int sg) {
  return store.segtype[sg] == kLine;
}
bool joins(const DrawingStore& store, PlacedTable /*table*/, int ps) {
  return store.psvisible[ps] && (store.pstype[ps] == kLine || isArc(store.pstype[ps]));
}

constexpr const char* tooFew(DrawnTable /*table*/) {
  return "There must be at least 2 line segments joined at the selected point.";
}
constexpr const char* tooFew(PlacedTable /*table*/) {
  return "There must be at least 2 path segments joined at the selected point.";
}

// In the order of the table.
template <class Table>
std::vector<int> joinedRows(const DrawingStore& store, Table table, Point at) {
  std::vector<int> rows;
  for (int number = 1; number <= table.count(store); ++number) {
    if (!joins(store, table, number)) continue;
    if (endsAt(table.entity(store, number), at, store.cfg_tolerance)) rows.push_back(number);
  }
  return rows;
}

// The row runs on to `to` instead of ending at the vertex. An arc that does not reach there with
// its radius becomes a half circle.
Entity ledOn(Entity row, Point vertex, Point to, float tolerence) {
  const bool atStart = samePoint(row.start, vertex, tolerence);
  const Point stays = atStart ? row.end : row.start;
  if (isArc(row.type)) {
    row.center =
        keptRadiusCenter(row, stays, to, tolerence).value_or(midpointAndSlope(stays, to).middle);
  }
  (atStart ? row.start : row.end) = to;
  return row;
}

template <class Table>
void removeVertex(DraftingContext& context, Table table, Point vertex) {
  const DrawingStore& store = context.store;
  const std::vector<int> joined = joinedRows(store, table, vertex);
  if (joined.size() < 2) return warn(context, tooFew(table), "Remove Vertex");
  const Entity gone = table.entity(store, joined[0]);
  const bool goneStarts = samePoint(gone.start, vertex, store.cfg_tolerance);
  const Point farEnd = goneStarts ? gone.end : gone.start;
  const Entity kept = table.entity(store, joined[1]);
  Change change(context.changes);
  auto& rows = table.rows(change);
  rows.erase(joined[0]);
  const int moved = joined[1] - 1;
  rows.replace(moved, reshaped(rows.row(moved), ledOn(kept, vertex, farEnd, store.cfg_tolerance)));
  keepEdit(context, change);
}

void clickDeleteVertex(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const std::optional<Point> vertex = table.nearestEnd(context.store, mouseOf(context));
    if (vertex) removeVertex(context, table, *vertex);
  });
}

}  // namespace

int joinedLineCount(const DrawingStore& store, Point at) {
  return static_cast<int>(joinedRows(store, DrawnTable{}, at).size());
}

int joinedPathCount(const DrawingStore& store, Point at) {
  return static_cast<int>(joinedRows(store, PlacedTable{}, at).size());
}

void mnuDeleteVertex_Click(DraftingContext& context) {
  if (hasRowsToEdit(context)) arm(context, PendingAction::DeleteVertex);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kDeleteVertexActions[] = {
    {{.action = PendingAction::DeleteVertex,
      .prompt = "Click near vertex to remove.",
      .left = "removes the nearest vertex"},
     clickDeleteVertex},
};

}  // namespace

constexpr DraftingCommand kDeleteVertexCommand{
    .info = {.tool = "miDeleteVertex", .caption = "Delete Verte&x", .menu = {"miEdit", 370}},
    .run = mnuDeleteVertex_Click,
    .actions = kDeleteVertexActions,
    .repeat = {{PendingAction::DeleteVertex}},
};

}  // namespace tess
