// What there is to know of one row, as a text.
// Owns: entityInfo, pathEntityInfo, mnuEditEntityInfo_Click.
#pragma once

#include <string>

#include "drafting/drafting_context.h"

namespace tess {

// Kind, ends, and what the kind has: centre, radius and angles, or length and bearing. Lengths are
// written as coordinates are, angles in degrees. Of a path row depth and feed follow. Raise
// Subscript out of range outside the table.
std::string entityInfo(const DraftingContext& context, int sg);
std::string pathEntityInfo(const DraftingContext& context, int ps);

void mnuEditEntityInfo_Click(DraftingContext& context);

}  // namespace tess
