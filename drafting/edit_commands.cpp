// The commands of the edit menu that arm an action.
#include "drafting/edit_commands.h"

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
  desk.tools.setChecked("miEditSegsOrPaths", desk.command.EditPaths);
}

void mnuEditDelete_Click(Desk& desk) {
  if (hasRowsToDelete(desk)) return;
  UnselectAll(desk);
  arm(desk, Delete);
}

void mnuEditCopy_Click(Desk& desk) {
  if (selectedCount(desk.store) < 1) arm(desk, Copy);
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
void mnuEditMoveProf_Click(Desk& desk) {
  arm(desk, Move);
}
void mnuAddFillet_Click(Desk& desk) {
  arm(desk, FilletFirst);
}
void SetOrigin(Desk& desk) {
  arm(desk, PendingAction::SetOrigin);
}
void mnuEditTrimEntity_Click(Desk& desk) {
  arm(desk, TrimPick);
}
void mnuEditEntityInfo_Click(Desk& desk) {
  arm(desk, EntityInfo);
}

void mnuRevPathDir_Click(Desk& desk) {
  if (desk.store.NumPathSegments > 0) {
    arm(desk, ReversePath);
  } else {
    desk.state.setPendingaction(0);
  }
}

}  // namespace tess
