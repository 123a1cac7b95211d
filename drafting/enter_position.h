// Enter Position: the pointer goes to a typed place.
// Owns: collect_Set_New_pos.
#pragma once

#include <optional>

#include "drafting/desk.h"

namespace tess {

// Without coordinates the dialog asks for them, and Cancel changes nothing; with one of them the
// other keeps its last entered value.
void collect_Set_New_pos(Desk& desk, std::optional<float> new_X = {},
                         std::optional<float> new_Y = {});

}  // namespace tess
