// Rounding a corner.
#include "drafting/fillet.h"

#include <cmath>

#include "drafting/change_radius.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"

namespace tess {
namespace {

constexpr char kTitle[] = "Add Fillet";

// Two rows that meet: where, and by which of their ends.
struct Corner {
  bool startOfA = false, startOfB = false;
  Point at, farA, farB;
};

struct BothEnds {
  Point here, far;
};

BothEnds endsOf(const Entity& line, bool fromStart) {
  return fromStart ? BothEnds{line.start, line.end} : BothEnds{line.end, line.start};
}

std::optional<Corner> commonEnd(const Entity& a, const Entity& b, float tolerence) {
  for (const bool startOfA : {true, false}) {
    for (const bool startOfB : {true, false}) {
      const BothEnds ofA = endsOf(a, startOfA), ofB = endsOf(b, startOfB);
      if (!samePoint(ofA.here, ofB.here, tolerence)) continue;
      return Corner{startOfA, startOfB, ofA.here, ofA.far, ofB.far};
    }
  }
  return std::nullopt;
}

// How far from the corner the arc touches the lines: half the angle between them decides. Not
// finite where they lie on top of one another.
double tangentLength(const Corner& corner, float radius) {
  const double towardA = polarOf(corner.at, corner.farA).degrees;
  const double towardB = polarOf(corner.at, corner.farB).degrees;
  const double half = (towardA - towardB) / 2;
  const double sine = std::sin(half * kPi / 180);
  return std::abs(radius / sine) * std::abs(std::sin((90 - half) * kPi / 180));
}

// The shorter way round.
int senseOf(const ArcAngles& angles) {
  const double start = angles.start, end = angles.end;
  if (start <= end) return end - start >= kPi ? kClockwiseArc : kCounterClockwiseArc;
  return start - end >= kPi ? kCounterClockwiseArc : kClockwiseArc;
}

// The arc from the line to farA to the one to farB.
std::optional<Entity> filletArc(const Corner& corner, float radius, float tolerence) {
  if (!(radius > 0)) return std::nullopt;
  const double length = tangentLength(corner, radius);
  if (!(length <= kLargestRadius)) return std::nullopt;
  const Point start = pointAlong(corner.at, corner.farA, static_cast<float>(length));
  const Point end = pointAlong(corner.at, corner.farB, static_cast<float>(length));
  if (samePoint(start, end, tolerence)) return std::nullopt;
  const std::optional<PointPair> centers = centersFromChord(start, end, radius);
  if (!centers) return std::nullopt;
  const bool second =
      distance(centers->first, corner.farA) > distance(centers->second, corner.farA);
  const Point center = second ? centers->second : centers->first;
  return Entity{senseOf(arcRadiusAndAngles(start, end, center)), start, end, center};
}

// ---- Drawing rows

void putFillet(Change& change, DrawnTable /*table*/, const Corner& corner, int sgA, int sgB,
               const Entity& arc) {
  SegmentChanges& rows = change.segments;
  rows.replace(sgA, reshaped(rows.row(sgA), lineEntity(arc.start, corner.farA)));
  rows.replace(sgB, reshaped(rows.row(sgB), lineEntity(arc.end, corner.farB)));
  DrawnTable::addBehind(change, sgA, segmentRowOf(arc));
}

// ---- Path rows

Entity backwards(const Entity& arc) {
  return {kClockwiseArc + kCounterClockwiseArc - arc.type, arc.end, arc.start, arc.center};
}

PathRow cutBack(PathRow row, bool atStart, Point to) {
  Entity line = entityOf(row);
  (atStart ? line.start : line.end) = to;
  return reshaped(row, line);
}

// Where B leads into A, the arc follows B and runs from there.
void putFillet(Change& change, PlacedTable /*table*/, const Corner& corner, int psA, int psB,
               const Entity& arc) {
  PathChanges& rows = change.paths;
  rows.replace(psA, cutBack(rows.row(psA), corner.startOfA, arc.start));
  rows.replace(psB, cutBack(rows.row(psB), corner.startOfB, arc.end));
  const bool bComesFirst = corner.startOfA && !corner.startOfB;
  const int like = bComesFirst ? psB : psA;
  PlacedTable::addBehind(change, like,
                         reshaped(rows.row(like), bComesFirst ? backwards(arc) : arc));
}

// ---- Both

template <class Table>
FilletResult filletRows(Changes& changes, Table table, int a, int b, float radius) {
  const DrawingStore& store = changes.store;
  const int count = table.count(store);
  if (a < 1 || b < 1 || a > count || b > count) return FilletResult::SameRow;
  const Entity rowA = table.entity(store, a), rowB = table.entity(store, b);
  const std::optional<Corner> corner = commonEnd(rowA, rowB, store.cfg_tolerance);
  if (!corner) return FilletResult::NoCommonEnd;
  if (a == b) return FilletResult::SameRow;
  if (rowA.type != kLine || rowB.type != kLine) return FilletResult::NotLines;
  const std::optional<Entity> arc = filletArc(*corner, radius, store.cfg_tolerance);
  if (!arc) return FilletResult::NoCenter;
  Change change(changes);
  putFillet(change, table, *corner, a, b, *arc);
  change.keep();
  return FilletResult::Added;
}

// The radius of the last fillet is offered again. Nothing when the operator cancels.
std::optional<float> askRadius(DraftingContext& context) {
  dlgEditRadius dialog(context, context.command.filletRadius, /*minimum=*/0);
  context.session.host.prompts.showModal(dialog);
  return dialog.accepted() ? std::optional(dialog.radius()) : std::nullopt;
}

void clickFilletFirst(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearestLine(context.store, mouseOf(context));
    if (number < 1) return;
    pickRow(context, table, number);
    context.state.setPendingaction(goOnWith(PendingAction::FilletSecond));
  });
}

void clickFilletSecond(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int second = table.nearestLine(context.store, mouseOf(context));
    if (second < 1) return;
    context.command.PendingSeg2 = second;
    const std::optional<float> radius = askRadius(context);
    if (!radius) return;
    if (*radius <= 0 || *radius > kLargestRadius) return beep(context);
    context.command.filletRadius = *radius;
    tellFillet(context, editByClick(context, [&] {
                 return filletRows(context.changes, table, pickedRow(context, table), second,
                                   *radius);
               }));
  });
}

}  // namespace

FilletResult addFillet(Changes& changes, int sgA, int sgB, float radius) {
  return filletRows(changes, DrawnTable{}, sgA, sgB, radius);
}

FilletResult addPathFillet(Changes& changes, int psA, int psB, float radius) {
  return filletRows(changes, PlacedTable{}, psA, psB, radius);
}

void tellFillet(DraftingContext& context, FilletResult result) {
  switch (result) {
    case FilletResult::Added:
      return;
    case FilletResult::NoCommonEnd:
      return warn(context, "The 2 line segments must intersect at exactly one point.", kTitle);
    case FilletResult::SameRow:
      return warn(context, "You must chose 2 different line segments.", kTitle);
    case FilletResult::NotLines:
      return warn(context, "Both segments must be lines.", kTitle);
    case FilletResult::NoCenter:
      return beep(context);
  }
}

void mnuAddFillet_Click(DraftingContext& context) {
  arm(context, PendingAction::FilletFirst);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kFilletActions[] = {
    {{.action = PendingAction::FilletFirst,
      .prompt = "Click near first line to fillet.",
      .left = "first of two lines (the radius is asked last)"},
     clickFilletFirst},
    {{.action = PendingAction::FilletSecond,
      .prompt = "Click near second line to fillet.",
      .left = "second line"},
     clickFilletSecond},
};

}  // namespace

constexpr DraftingCommand kFilletCommand{
    .info = {.tool = "miAddFillet",
             .caption = "Add Fi&llet...",
             .menu = {"miEdit", 330},
             .bar = {"barEdit", 240}},
    .run = mnuAddFillet_Click,
    .actions = kFilletActions,
    .repeat = {{PendingAction::FilletFirst, PendingAction::FilletSecond}},
};

}  // namespace tess
