// Joining two end points by a new line or arc; the rows that end there stay as they are.
// Owns: mnuEditJoinEnd_Click, mnuEditJoinEndPtsArc.
#pragma once

#include "drafting/desk.h"

namespace tess {

void mnuEditJoinEnd_Click(Desk& desk);
void mnuEditJoinEndPtsArc(Desk& desk);

}  // namespace tess
