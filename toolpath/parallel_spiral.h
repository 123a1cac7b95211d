// The parallel spiral: a pocket is cleared by rings parallel to its outline, from near the middle
// out to the wall.
// Owns: parallelSpiralPocket, FollowedRows, dropShortPathSegs, dropBackTrackSegs, dropCrossingPass,
//       clickStartRoughing.
#pragma once

#include <span>

#include "toolpath/cam_context.h"
#include "toolpath/contour_offset.h"

namespace tess {

// Cuts rings along the verified outline from row `sg` on, or from its first row when there is no
// row `sg`, at the first level above roughFloor, and copies them to the levels below. All of it is
// one group and one step of the log; a failure leaves no row behind and the tool as it was.
void parallelSpiralPocket(CamContext& cam, int sg);

// The clean-up of all path rows after a ring: rows too short to be cut, and a first row of a group
// that the second one merely takes back. The ranges in `followed` go on naming the same rows.
using FollowedRows = std::span<PlacedRows>;
void dropShortPathSegs(Changes& changes, FollowedRows followed = {});
void dropBackTrackSegs(Changes& changes, FollowedRows followed = {});

// Drops the path rows from `first` on when any of them meets a verified row. Not logged.
void dropCrossingPass(Changes& changes, int first);

// The click that starts roughing: at the verified row nearest to it.
void clickStartRoughing(CamContext& cam);

}  // namespace tess
