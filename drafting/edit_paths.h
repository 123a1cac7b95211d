// The toggle of what editing works on.
// Owns: toggleEditPaths.
#pragma once

namespace tess {

struct Desk;

// The toggle miEditSegsOrPaths: editing works on path rows, or on drawing rows again.
void toggleEditPaths(Desk& desk);

}  // namespace tess
