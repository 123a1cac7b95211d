// Quick Place: paths on the profile itself, for everything that is selected.
// Owns: quickPlacePaths.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

// Places a path, level by level, on every selected chain that has none yet. All of them are one
// step of the log.
void quickPlacePaths(CamContext& cam);

}  // namespace tess
