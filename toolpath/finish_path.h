// The finish path: the command, the three clicks that it shares with placing one path segment, and
// the passes that they place.
// Owns: mnuCAMPlaceFinishPath_Click.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

void mnuCAMPlaceFinishPath_Click(CamContext& cam);

}  // namespace tess
