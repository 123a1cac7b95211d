// What editing works on, and commands of the edit menu that arm an action.
#include "drafting/edit_commands.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/pending_actions.h"
#include "drafting/rubber_band.h"
#include "drafting/selection.h"

namespace tess {

void toggleEditPaths(Desk& desk) {
  eraseDragBand(desk);  // it shows rows of the other table
  desk.command.EditPaths = !desk.command.EditPaths;
  desk.tools.setChecked(kEditPathsCommand.info.tool, desk.command.EditPaths);
}

void mnuEditCopy_Click(Desk& desk) {
  if (selectedCount(desk.store) < 1) arm(desk, PendingAction::Copy);
}
void mnuEditMoveProf_Click(Desk& desk) {
  arm(desk, PendingAction::Move);
}
void SetOrigin(Desk& desk) {
  arm(desk, PendingAction::SetOrigin);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kCopyActions[] = {
    {{.action = PendingAction::Copy, .prompt = "Click on segment to copy."}},
};

constexpr Action<Desk> kMoveActions[] = {
    {{.action = PendingAction::Move, .prompt = kMoveAllPrompt}},
};

constexpr Action<Desk> kSetOriginActions[] = {
    {{.action = PendingAction::SetOrigin, .prompt = "Click on new origin."}},
};

}  // namespace

constexpr DeskCommand kEditPathsCommand{
    .info = {.tool = "miEditSegsOrPaths",
             .caption = "Edit &Tool Paths",
             .menu = {"miEdit", 130},
             .bar = {"barEdit", 270}},
    .run = toggleEditPaths,
};

constexpr DeskCommand kCopyCommand{
    .info = {.tool = "miCopy", .caption = "&Copy", .key = "C", .menu = {"miEdit", 220}},
    .run = mnuEditCopy_Click,
    .actions = kCopyActions,
};

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
