// Joining two end points by a new line or arc; the rows that end there stay as they are.
// Owns: mnuEditJoinEnd_Click, mnuEditJoinEndPtsArc.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

void mnuEditJoinEnd_Click(DraftingContext& context);
void mnuEditJoinEndPtsArc(DraftingContext& context);

}  // namespace tess
