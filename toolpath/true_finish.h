// The finish path by the true rules: round a closed chain what a tool can follow of it, along an
// open one where it is near to nothing else of the chain.
// Owns: TrueFinishRequest, passDistance, placeTrueFinish.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

struct TrueFinishRequest {
  int sg = 0;       // the drawing row to begin with
  Point start;      // an end of it
  Point reference;  // on the side of the path
  int passes = 1;   // the last one at the tool's radius
};

// The distance of a pass from the outline: the tool's radius for the finished size, which is pass
// 1; farther out by the clearance, then by steps.
float passDistance(const DrawingStore& store, int pass);

// All passes at all levels, as one step of the log; a failure or a message leaves no row.
void placeTrueFinish(CamContext& cam, const TrueFinishRequest& request);

}  // namespace tess
