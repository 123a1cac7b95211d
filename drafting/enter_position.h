// The pointer without the pointer: Enter Position, and the arrow keys.
// Owns: collect_Set_New_pos, nudgePointer.
#pragma once

#include <optional>

#include "drafting/drafting_context.h"

namespace tess {

// Without coordinates the dialog asks for them, and Cancel changes nothing; with one of them the
// other keeps its last entered value.
void collect_Set_New_pos(DraftingContext& context, std::optional<float> new_X = {},
                         std::optional<float> new_Y = {});

// The arrow keys: the pointer's position moves by whole pixels, x to the right and y upward, off
// the cursor grid too.
void nudgePointer(DraftingContext& context, int pixelsX, int pixelsY);

}  // namespace tess
