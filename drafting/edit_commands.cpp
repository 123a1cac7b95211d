// The commands of the edit menu that arm an action.
#include "drafting/edit_commands.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/pending_actions.h"
#include "drafting/selection.h"

namespace tess {
namespace {

using enum PendingAction;

bool hasRowsToEdit(const Desk& desk) {
  return (desk.command.EditPaths ? desk.store.NumPathSegments : desk.store.NumSegments) >= 1;
}

bool anyPathSelected(const DrawingStore& store) {
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (isSelected(store.pscode[ps])) return true;
  }
  return false;
}

bool hasRowsToDelete(const Desk& desk) {
  return desk.command.EditPaths ? anyPathSelected(desk.store) : selectedCount(desk.store) >= 1;
}

}  // namespace

void toggleEditPaths(Desk& desk) {
  desk.command.EditPaths = !desk.command.EditPaths;
  desk.tools.setChecked(kEditPathsCommand.info.tool, desk.command.EditPaths);
}

void mnuEditDelete_Click(Desk& desk) {
  if (hasRowsToDelete(desk)) return;
  UnselectAll(desk);
  arm(desk, Delete);
}

void mnuEditFlipArc_Click(Desk& desk) {
  arm(desk, FlipArc);
}
void mnuEditRevArc_Click(Desk& desk) {
  arm(desk, ReverseArc);
}
void mnuEditJoinEnd_Click(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, JoinFirst);
}
void mnuEditMoveEnd_Click(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, MoveEndPoint);
}
void mnuEditBreakSeg_Click(Desk& desk) {
  arm(desk, Break);
}
void mnuEditJoinEndPtsArc(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, JoinArcFirst);
}
void mnuDeleteVertex_Click(Desk& desk) {
  if (hasRowsToEdit(desk)) arm(desk, DeleteVertex);
}
void mnuChangeRad_Click(Desk& desk) {
  arm(desk, ChangeRadius);
}
void mnuAddFillet_Click(Desk& desk) {
  arm(desk, FilletFirst);
}
void mnuEditTrimEntity_Click(Desk& desk) {
  arm(desk, TrimPick);
}
void mnuEditEntityInfo_Click(Desk& desk) {
  arm(desk, EntityInfo);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kDeleteActions[] = {
    {{.action = PendingAction::Delete, .prompt = "Click near item to delete.", .stays = true}},
};

constexpr Action<Desk> kFlipArcActions[] = {
    {{.action = PendingAction::FlipArc, .prompt = "Click near arc to flip."}},
};

constexpr Action<Desk> kReverseArcActions[] = {
    {{.action = PendingAction::ReverseArc, .prompt = "Click near arc to reverse."}},
};

constexpr Action<Desk> kJoinActions[] = {
    {{.action = PendingAction::JoinFirst, .prompt = "Click on 1st end-point to join."}},
    {{.action = PendingAction::JoinSecond, .prompt = "Click on 2nd end-point to join."}},
};

constexpr Action<Desk> kMoveEndActions[] = {
    {{.action = PendingAction::MoveEndPoint,
      .prompt = "Click near end point to move, then drag the endpoint."}},
};

constexpr Action<Desk> kBreakActions[] = {
    {{.action = PendingAction::Break, .prompt = "Click on segment to break"}},
};

constexpr Action<Desk> kJoinArcActions[] = {
    {{.action = PendingAction::JoinArcFirst, .prompt = "Click on 1st end-point to join."}},
    {{.action = PendingAction::JoinArcSecond, .prompt = "Click on 2nd end-point to join."}},
    {{.action = PendingAction::JoinArcThird, .prompt = "Click on 3rd point of the joining arc."}},
};

constexpr Action<Desk> kDeleteVertexActions[] = {
    {{.action = PendingAction::DeleteVertex, .prompt = "Click near vertex to remove."}},
};

constexpr Action<Desk> kChangeRadiusActions[] = {
    {{.action = PendingAction::ChangeRadius, .prompt = "Click near arc to change radius."}},
};

constexpr Action<Desk> kFilletActions[] = {
    {{.action = PendingAction::FilletFirst, .prompt = "Click near first line to fillet."}},
    {{.action = PendingAction::FilletSecond, .prompt = "Click near second line to fillet."}},
};

constexpr Action<Desk> kTrimActions[] = {
    {{.action = PendingAction::TrimPick, .prompt = "Click on end point to trim.", .snaps = false}},
    {{.action = PendingAction::TrimBy, .prompt = "Click on trimming entity.", .snaps = false}},
};

constexpr Action<Desk> kEntityInfoActions[] = {
    {{.action = PendingAction::EntityInfo, .prompt = "Click near item to display data."}},
};

}  // namespace

constexpr DeskCommand kEditPathsCommand{
    .info = {.tool = "miEditSegsOrPaths",
             .caption = "Edit &Tool Paths",
             .menu = {"miEdit", 130},
             .bar = {"barEdit", 270}},
    .run = toggleEditPaths,
};

constexpr DeskCommand kDeleteCommand{
    .info = {.tool = "miDelete",
             .caption = "&Delete",
             .key = "Delete",
             .menu = {"miEdit", 240},
             .bar = {"barEdit", 210}},
    .run = mnuEditDelete_Click,
    .actions = kDeleteActions,
};

constexpr DeskCommand kFlipArcCommand{
    .info = {.tool = "miFlipArc", .caption = "&Flip Arc", .key = "F", .menu = {"miEdit", 410}},
    .run = mnuEditFlipArc_Click,
    .actions = kFlipArcActions,
    .repeat = {{PendingAction::FlipArc}},
};

constexpr DeskCommand kReverseArcCommand{
    .info = {.tool = "miRevArcDir",
             .caption = "Reverse Arc Direct&ion",
             .key = "D",
             .menu = {"miEdit", 420}},
    .run = mnuEditRevArc_Click,
    .actions = kReverseArcActions,
    .repeat = {{PendingAction::ReverseArc}},
};

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

constexpr DeskCommand kMoveEndCommand{
    .info = {.tool = "miMoveEndpoints",
             .caption = "Mo&ve Endpoints",
             .key = "V",
             .menu = {"miEdit", 360},
             .bar = {"barEdit", 260}},
    .run = mnuEditMoveEnd_Click,
    .actions = kMoveEndActions,
    .repeat = {{PendingAction::MoveEndPoint}},
};

constexpr DeskCommand kBreakCommand{
    .info = {.tool = "miBreakSegment",
             .caption = "&Break Segment",
             .key = "B",
             .menu = {"miEdit", 310},
             .bar = {"barEdit", 220}},
    .run = mnuEditBreakSeg_Click,
    .actions = kBreakActions,
    .repeat = {{PendingAction::Break}},
};

constexpr DeskCommand kJoinArcCommand{
    .info = {.tool = "miJoinEndPtsArc",
             .caption = "Join Endpoints with &Arc",
             .menu = {"miEdit", 350}},
    .run = mnuEditJoinEndPtsArc,
    .actions = kJoinArcActions,
    .repeat = {{PendingAction::JoinArcFirst}},
};

constexpr DeskCommand kDeleteVertexCommand{
    .info = {.tool = "miDeleteVertex", .caption = "Delete Verte&x", .menu = {"miEdit", 370}},
    .run = mnuDeleteVertex_Click,
    .actions = kDeleteVertexActions,
    .repeat = {{PendingAction::DeleteVertex}},
};

constexpr DeskCommand kChangeRadiusCommand{
    .info = {.tool = "miChangeRadius", .caption = "C&hange Radius...", .menu = {"miEdit", 430}},
    .run = mnuChangeRad_Click,
    .actions = kChangeRadiusActions,
    .repeat = {{PendingAction::ChangeRadius}},
};

constexpr DeskCommand kFilletCommand{
    .info = {.tool = "miAddFillet",
             .caption = "Add Fi&llet...",
             .menu = {"miEdit", 330},
             .bar = {"barEdit", 240}},
    .run = mnuAddFillet_Click,
    .actions = kFilletActions,
    .repeat = {{PendingAction::FilletFirst, PendingAction::FilletSecond}},
};

constexpr DeskCommand kTrimCommand{
    .info = {.tool = "miTrimEntity",
             .caption = "Trim &Entity",
             .key = "T",
             .menu = {"miEdit", 320},
             .bar = {"barEdit", 230}},
    .run = mnuEditTrimEntity_Click,
    .actions = kTrimActions,
    .repeat = {{PendingAction::TrimPick}},
};

constexpr DeskCommand kEntityInfoCommand{
    .info = {.tool = "miEntityInfo",
             .caption = "Entity &Info",
             .key = "Tab",
             .menu = {"miEdit", 620}},
    .run = mnuEditEntityInfo_Click,
    .actions = kEntityInfoActions,
    .repeat = {{PendingAction::EntityInfo}},
};

}  // namespace tess
