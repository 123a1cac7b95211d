// Whether a path of several levels can come down to its floor with the depth per pass that is set.
// Owns: canGoDown.
#pragma once

#include <string>

#include "toolpath/cam_context.h"

namespace tess {

// To be asked before anything is placed. From `z` the levels go down by the depth per pass; when
// that is nothing, upward, or so little that they never come to `floor`, the operator is told, with
// `command` as the title, and it is false. A single level is always possible.
bool canGoDown(CamContext& cam, const std::string& command, float z, float floor);

}  // namespace tess
