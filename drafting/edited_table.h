// The two tables as the editing commands see them: a command is written once and works on drawing
// rows or, with EditPaths, on path rows.
// Owns: startOf, endOf, entityOf, reshaped, endsAt, DrawnTable, PlacedTable, onEditedTable.
#pragma once

#include <optional>

#include "core/drawing_store.h"
#include "drafting/drafting_context.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"

namespace tess {

template <class Row>
Point startOf(const Row& row) {
  return {row.x0, row.y0};
}
template <class Row>
Point endOf(const Row& row) {
  return {row.x1, row.y1};
}

template <class Row>
Entity entityOf(const Row& row) {
  return {row.type, startOf(row), endOf(row), {row.xc, row.yc}};
}

// The row in another form, with all else that it holds.
template <class Row>
Row reshaped(Row row, const Entity& form) {
  row.type = form.type;
  row.x0 = form.start.x;
  row.y0 = form.start.y;
  row.x1 = form.end.x;
  row.y1 = form.end.y;
  row.xc = form.center.x;
  row.yc = form.center.y;
  return row;
}

// Whether one of the two ends is samePoint to `at`.
inline bool endsAt(const Entity& row, Point at, float tolerence) {
  return samePoint(row.start, at, tolerence) || samePoint(row.end, at, tolerence);
}

struct DrawnTable {
  using Row = SegmentRow;

  static int count(const DrawingStore& store) { return store.NumSegments; }
  static Row row(const DrawingStore& store, int sg) { return segmentRow(store, sg); }
  static Entity entity(const DrawingStore& store, int sg) { return segmentEntity(store, sg); }
  static bool isShown(const DrawingStore& /*store*/, int /*sg*/) { return true; }
  static RowChanges<Row>& rows(Change& change) { return change.segments; }

  // Rows by number, 0 for none.
  static int nearest(const DrawingStore& store, Point at) { return nearestSeg(store, at); }
  static int nearestLine(const DrawingStore& store, Point at) { return nearestLineSeg(store, at); }
  static int nearestArc(const DrawingStore& store, Point at) { return nearestArcSeg(store, at); }
  static int nearestRound(const DrawingStore& store, Point at) {
    return nearestRoundSeg(store, at);
  }
  static std::optional<Point> nearestEnd(const DrawingStore& store, Point at) {
    return nearestSegEndpoint(store, at);
  }
  static std::optional<Point> nearestOn(const DrawingStore& store, int sg, Point at) {
    return nearestOnSeg(store, sg, at).found();
  }

  // A new row of the kind of row `like`; a drawing has no order.
  static void addBehind(Change& change, int /*like*/, const Row& row) {
    change.segments.append(row);
  }
};

struct PlacedTable {
  using Row = PathRow;

  static int count(const DrawingStore& store) { return store.NumPathSegments; }
  static Row row(const DrawingStore& store, int ps) { return pathRow(store, ps); }
  static Entity entity(const DrawingStore& store, int ps) { return pathEntity(store, ps); }
  static bool isShown(const DrawingStore& store, int ps) { return store.psvisible[ps]; }
  static RowChanges<Row>& rows(Change& change) { return change.paths; }

  // Of the rows that are shown.
  static int nearest(const DrawingStore& store, Point at) {
    return nearestPathSeg(store, at, /*group=*/0);
  }
  static int nearestLine(const DrawingStore& store, Point at) { return nearestPathLine(store, at); }
  static int nearestArc(const DrawingStore& store, Point at) { return nearestPathArc(store, at); }
  static int nearestRound(const DrawingStore& store, Point at) { return nearestPathArc(store, at); }
  static std::optional<Point> nearestEnd(const DrawingStore& store, Point at) {
    return nearestPathEndpoint(store, at);
  }
  static std::optional<Point> nearestOn(const DrawingStore& store, int ps, Point at) {
    return nearestPointOfPathRow(store, ps, at).found();
  }

  // Path rows are cut in their order, so that a new one comes right behind row `like`. It counts as
  // edited and not as placed: undoing the last placement leaves it alone.
  static void addBehind(Change& change, int like, const Row& row) {
    const std::int16_t number = Int16(like + 1);
    change.paths.putBack({&number, 1}, {&row, 1});
    change.paths.logAdded(number, number);
  }
};

// Calls `edit` with the table that editing works on.
template <class Edit>
auto onEditedTable(const DraftingContext& context, Edit edit) {
  return context.command.EditPaths ? edit(PlacedTable{}) : edit(DrawnTable{});
}

}  // namespace tess
