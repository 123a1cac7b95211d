// The toggle of what editing works on.
// Owns: toggleEditPaths.
#pragma once

namespace tess {

struct DraftingContext;

// The toggle miEditSegsOrPaths: editing works on path rows, or on drawing rows again.
void toggleEditPaths(DraftingContext& context);

}  // namespace tess
