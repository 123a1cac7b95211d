// Joining two end points.
#include "drafting/join_ends.h"

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

std::optional<Point> nearestEnd(const DraftingContext& context, Point at) {
  return onEditedTable(context, [&](auto table) { return table.nearestEnd(context.store, at); });
}

// Beside drawing rows an ordinary one.
bool addJoint(DraftingContext& context, Change& change, DrawnTable /*table*/, const Entity& joint) {
  DrawnTable::addBehind(change, context.store.NumSegments, segmentRowOf(joint));
  return true;
}

// In a path it is cut as the row nearest to the click is, and right behind it.
bool addJoint(DraftingContext& context, Change& change, PlacedTable /*table*/,
              const Entity& joint) {
  const int like = PlacedTable::nearest(context.store, mouseOf(context));
  if (like < 1) return false;
  PlacedTable::addBehind(change, like, reshaped(PlacedTable::row(context.store, like), joint));
  return true;
}

void addJoint(DraftingContext& context, const Entity& joint) {
  Change change(context.changes);
  const bool added =
      onEditedTable(context, [&](auto table) { return addJoint(context, change, table, joint); });
  if (added) keepEdit(context, change);
}

// The first of two end points.
void pickFirstEnd(DraftingContext& context, PendingAction next) {
  const std::optional<Point> end = nearestEnd(context, mouseOf(context));
  if (!end) return;
  context.command.PendingPt1 = *end;
  context.state.setPendingaction(goOnWith(next));
}

// The second one; false when it is the first again.
bool pickSecondEnd(DraftingContext& context) {
  const std::optional<Point> end = nearestEnd(context, mouseOf(context));
  if (!end || *end == context.command.PendingPt1) return false;
  context.command.PendingPt2 = *end;
  return true;
}

void clickJoinFirst(DraftingContext& context) {
  pickFirstEnd(context, PendingAction::JoinSecond);
}

void clickJoinSecond(DraftingContext& context) {
  const CommandRecord& command = context.command;
  if (pickSecondEnd(context)) addJoint(context, lineEntity(command.PendingPt1, command.PendingPt2));
}

std::vector<SegmentRow> hoverJoinSecond(const DraftingContext& context) {
  const Point first = context.command.PendingPt1;
  const std::optional<Point> second = nearestEnd(context, hoverPoint(context));
  if (!second || *second == first) return {};
  return {lineRow(first, *second)};
}

// ---- By an arc

std::optional<Entity> joiningArc(const DraftingContext& context, Point third) {
  return arcThrough(context.command.PendingPt1, context.command.PendingPt2, third,
                    context.store.cfg_tolerance);
}

void clickJoinArcFirst(DraftingContext& context) {
  pickFirstEnd(context, PendingAction::JoinArcSecond);
}

void clickJoinArcSecond(DraftingContext& context) {
  if (pickSecondEnd(context)) context.state.setPendingaction(goOnWith(PendingAction::JoinArcThird));
}

void clickJoinArcThird(DraftingContext& context) {
  const std::optional<Entity> arc = joiningArc(context, mouseOf(context));
  arc ? addJoint(context, *arc) : beep(context);
}

std::vector<SegmentRow> hoverJoinArcThird(const DraftingContext& context) {
  const std::optional<Entity> arc = joiningArc(context, hoverPoint(context));
  if (!arc) return {};
  return {segmentRowOf(*arc)};
}

}  // namespace

void mnuEditJoinEnd_Click(DraftingContext& context) {
  if (hasRowsToEdit(context)) arm(context, PendingAction::JoinFirst);
}

void mnuEditJoinEndPtsArc(DraftingContext& context) {
  if (hasRowsToEdit(context)) arm(context, PendingAction::JoinArcFirst);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kJoinActions[] = {
    {{.action = PendingAction::JoinFirst,
      .prompt = "Click on 1st end-point to join.",
      .left = "first end to join"},
     clickJoinFirst},
    {{.action = PendingAction::JoinSecond,
      .prompt = "Click on 2nd end-point to join.",
      .left = "second end to join"},
     clickJoinSecond,
     hoverJoinSecond},
};

constexpr Action<DraftingContext> kJoinArcActions[] = {
    {{.action = PendingAction::JoinArcFirst,
      .prompt = "Click on 1st end-point to join.",
      .left = "first end to join"},
     clickJoinArcFirst},
    {{.action = PendingAction::JoinArcSecond,
      .prompt = "Click on 2nd end-point to join.",
      .left = "second end to join"},
     clickJoinArcSecond},
    {{.action = PendingAction::JoinArcThird,
      .prompt = "Click on 3rd point of the joining arc.",
      .left = "a point that the arc passes"},
     clickJoinArcThird,
     hoverJoinArcThird},
};

}  // namespace

constexpr DraftingCommand kJoinCommand{
    .info = {.tool = "miJoinEndpoints",
             .caption = "&Join Endpoints",
             .key = "J",
             .menu = {"miEdit", 340},
             .bar = {"barEdit", 250}},
    .run = mnuEditJoinEnd_Click,
    .actions = kJoinActions,
    .repeat = {{PendingAction::JoinFirst}},
};

constexpr DraftingCommand kJoinArcCommand{
    .info = {.tool = "miJoinEndPtsArc",
             .caption = "Join Endpoints with &Arc",
             .menu = {"miEdit", 350}},
    .run = mnuEditJoinEndPtsArc,
    .actions = kJoinArcActions,
    .repeat = {{PendingAction::JoinArcFirst}},
};

}  // namespace tess
