// Hiding path rows from the screen, and showing them again.
// Owns: miVisible_Click, miInvisible_Click.
#pragma once

#include "toolpath/cam_desk.h"

namespace tess {

// The selected path rows, or all rows while none is selected, are shown or hidden. Hidden rows stay
// in the table, the program and the file; only clicks and snapping pass them over. Not logged:
// visibility is no part of a row's record.
void miVisible_Click(CamDesk& cam);
void miInvisible_Click(CamDesk& cam);

}  // namespace tess
