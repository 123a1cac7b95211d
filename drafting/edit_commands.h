// The commands of the edit menu that arm an action and leave the work to its click.
// Owns: toggleEditPaths, mnuEditDelete_Click, mnuEditFlipArc_Click, mnuEditRevArc_Click,
//       mnuEditJoinEnd_Click, mnuEditMoveEnd_Click, mnuEditBreakSeg_Click, mnuEditJoinEndPtsArc,
//       mnuDeleteVertex_Click, mnuChangeRad_Click, mnuAddFillet_Click, mnuEditTrimEntity_Click,
//       mnuEditEntityInfo_Click.
#pragma once

#include "drafting/desk.h"

namespace tess {

// The toggle miEditSegsOrPaths: editing works on path rows, or on drawing rows again.
void toggleEditPaths(Desk& desk);

// In menu order. Joining, moving an end and removing a vertex need a row to work on, or nothing is
// armed. Delete arms a click only while nothing is selected.
void mnuEditDelete_Click(Desk& desk);
void mnuEditFlipArc_Click(Desk& desk);
void mnuEditRevArc_Click(Desk& desk);
void mnuEditJoinEnd_Click(Desk& desk);
void mnuEditMoveEnd_Click(Desk& desk);
void mnuEditBreakSeg_Click(Desk& desk);
void mnuEditJoinEndPtsArc(Desk& desk);
void mnuDeleteVertex_Click(Desk& desk);
void mnuChangeRad_Click(Desk& desk);
void mnuAddFillet_Click(Desk& desk);
void mnuEditTrimEntity_Click(Desk& desk);
void mnuEditEntityInfo_Click(Desk& desk);

}  // namespace tess
