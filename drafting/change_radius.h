// Changing the radius of an arc, which keeps its ends, or of a circle, which keeps its centre.
// Owns: kLargestRadius, mnuChangeRad_Click.
#pragma once

#include "drafting/drafting_context.h"
#include "geometry/float_constants.h"

namespace tess {

// No command takes a larger one: what it makes lies where no click finds it again.
inline constexpr float kLargestRadius = kFarthest;

void mnuChangeRad_Click(DraftingContext& context);

}  // namespace tess
