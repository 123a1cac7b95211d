// Hiding path rows from the screen, and showing them again.
// Owns: miVisible_Click, miInvisible_Click.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

// The selected path rows, or all rows while none is selected, are shown or hidden. Hidden rows stay
// in the table, the program and the file; only clicks and snapping pass them over. Not logged:
// visibility is no part of a row's record.
void miVisible_Click(CamContext& cam);
void miInvisible_Click(CamContext& cam);

}  // namespace tess
