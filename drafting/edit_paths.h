// What editing works on.
// Owns: toggleEditPaths.
#pragma once

#include "drafting/desk.h"

namespace tess {

// The toggle miEditSegsOrPaths: editing works on path rows, or on drawing rows again.
void toggleEditPaths(Desk& desk);

}  // namespace tess
