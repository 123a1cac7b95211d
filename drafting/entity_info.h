// What there is to know of one row, as a text.
// Owns: entityInfo, pathEntityInfo, mnuEditEntityInfo_Click.
#pragma once

#include <string>

#include "drafting/desk.h"

namespace tess {

// Kind, ends, and what the kind has: centre, radius and angles, or length and bearing. Lengths are
// written as coordinates are, angles in degrees. Of a path row depth and feed follow. Raise
// Subscript out of range outside the table.
std::string entityInfo(const Desk& desk, int sg);
std::string pathEntityInfo(const Desk& desk, int ps);

void mnuEditEntityInfo_Click(Desk& desk);

}  // namespace tess
