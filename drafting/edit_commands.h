// The toggle of what editing works on, and commands of the edit menu that arm an action and leave
// the work to its click.
// Owns: toggleEditPaths, mnuEditCopy_Click, mnuEditMoveProf_Click, SetOrigin.
#pragma once

#include "drafting/desk.h"

namespace tess {

// The toggle miEditSegsOrPaths: editing works on path rows, or on drawing rows again.
void toggleEditPaths(Desk& desk);

// Copy arms a click only while nothing is selected.
void mnuEditCopy_Click(Desk& desk);
void mnuEditMoveProf_Click(Desk& desk);
void SetOrigin(Desk& desk);

}  // namespace tess
