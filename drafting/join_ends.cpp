// Joining two end points.
#include "drafting/join_ends.h"

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

std::optional<Point> nearestEnd(const Desk& desk, Point at) {
  return onEditedTable(desk, [&](auto table) { return table.nearestEnd(desk.store, at); });
}

// Beside drawing rows an ordinary one.
bool addJoint(Desk& desk, Change& change, DrawnTable /*table*/, const Entity& joint) {
  DrawnTable::addBehind(change, desk.store.NumSegments, segmentRowOf(joint));
  return true;
}

// In a path it is cut as the row nearest to the click is, and right behind it.
bool addJoint(Desk& desk, Change& change, PlacedTable /*table*/, const Entity& joint) {
  const int like = PlacedTable::nearest(desk.store, mouseOf(desk));
  if (like < 1) return false;
  PlacedTable::addBehind(change, like, reshaped(PlacedTable::row(desk.store, like), joint));
  return true;
}

void addJoint(Desk& desk, const Entity& joint) {
  Change change(desk.changes);
  const bool added =
      onEditedTable(desk, [&](auto table) { return addJoint(desk, change, table, joint); });
  if (added) keepEdit(desk, change);
}

// The first of two end points.
void pickFirstEnd(Desk& desk, PendingAction next) {
  const std::optional<Point> end = nearestEnd(desk, mouseOf(desk));
  if (!end) return;
  desk.command.PendingPt1 = *end;
  desk.state.setPendingaction(goOnWith(next));
}

// The second one; false when it is the first again.
bool pickSecondEnd(Desk& desk) {
  const std::optional<Point> end = nearestEnd(desk, mouseOf(desk));
  if (!end || *end == desk.command.PendingPt1) return false;
  desk.command.PendingPt2 = *end;
  return true;
}

void clickJoinFirst(Desk& desk) {
  pickFirstEnd(desk, PendingAction::JoinSecond);
}

void clickJoinSecond(Desk& desk) {
  const CommandRecord& command = desk.command;
  if (pickSecondEnd(desk)) addJoint(desk, lineEntity(command.PendingPt1, command.PendingPt2));
}

std::vector<SegmentRow> hoverJoinSecond(const Desk& desk) {
  const Point first = desk.command.PendingPt1;
  const std::optional<Point> second = nearestEnd(desk, hoverPoint(desk));
  if (!second || *second == first) return {};
  return {lineRow(first, *second)};
}

// ---- By an arc

std::optional<Entity> joiningArc(const Desk& desk, Point third) {
  return arcThrough(desk.command.PendingPt1, desk.command.PendingPt2, third,
                    desk.store.cfg_tolerance);
}

void clickJoinArcFirst(Desk& desk) {
  pickFirstEnd(desk, PendingAction::JoinArcSecond);
}

void clickJoinArcSecond(Desk& desk) {
  if (pickSecondEnd(desk)) desk.state.setPendingaction(goOnWith(PendingAction::JoinArcThird));
}

void clickJoinArcThird(Desk& desk) {
  const std::optional<Entity> arc = joiningArc(desk, mouseOf(desk));
  arc ? addJoint(desk, *arc) : beep(desk);
}

std::vector<SegmentRow> hoverJoinArcThird(const Desk& desk) {
  const std::optional<Entity> arc = joiningArc(desk, hoverPoint(desk));
  if (!arc) return {};
  return {segmentRowOf(*arc)};
}

}  // namespace

void mnuEditJoinEnd_Click(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, PendingAction::JoinFirst);
}

void mnuEditJoinEndPtsArc(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, PendingAction::JoinArcFirst);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kJoinActions[] = {
    {{.action = PendingAction::JoinFirst, .prompt = "Click on 1st end-point to join."},
     clickJoinFirst},
    {{.action = PendingAction::JoinSecond, .prompt = "Click on 2nd end-point to join."},
     clickJoinSecond,
     hoverJoinSecond},
};

constexpr Action<Desk> kJoinArcActions[] = {
    {{.action = PendingAction::JoinArcFirst, .prompt = "Click on 1st end-point to join."},
     clickJoinArcFirst},
    {{.action = PendingAction::JoinArcSecond, .prompt = "Click on 2nd end-point to join."},
     clickJoinArcSecond},
    {{.action = PendingAction::JoinArcThird, .prompt = "Click on 3rd point of the joining arc."},
     clickJoinArcThird,
     hoverJoinArcThird},
};

}  // namespace

constexpr DeskCommand kJoinCommand{
    .info = {.tool = "miJoinEndpoints",
             .caption = "&Join Endpoints",
             .key = "J",
             .menu = {"miEdit", 340},
             .bar = {"barEdit", 250}},
    .run = mnuEditJoinEnd_Click,
    .actions = kJoinActions,
    .repeat = {{PendingAction::JoinFirst}},
};

constexpr DeskCommand kJoinArcCommand{
    .info = {.tool = "miJoinEndPtsArc",
             .caption = "Join Endpoints with &Arc",
             .menu = {"miEdit", 350}},
    .run = mnuEditJoinEndPtsArc,
    .actions = kJoinArcActions,
    .repeat = {{PendingAction::JoinArcFirst}},
};

}  // namespace tess
