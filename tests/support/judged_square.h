// A pocket that is cleared by one group of rows, with its job: a square of 4 by 4 with the tool of
// radius 0.5, cut by lines half a tool apart and once round.
// Owns: kSquareGroup, squareJob, addSquareRow, clearSquare.
#pragma once

#include "core/drawing_store.h"
#include "core/path_jobs.h"

namespace tess::testing {

inline constexpr int kSquareGroup = 1;

inline PathJob squareJob() {
  const auto line = [](double x0, double y0, double x1, double y1) {
    return JobWall{.x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1};
  };
  return {.group = kSquareGroup,
          .kind = JobKind::Clearing,
          .toolRadius = 0.5,
          .distance = 0.5,
          .loops = {
              {.walls = {line(0, 0, 4, 0), line(4, 0, 4, 4), line(4, 4, 0, 4), line(0, 4, 0, 0)}}}};
}

// Appends a line of the group, cut by tool 1.
inline void addSquareRow(DrawingStore& store, float x0, float y0, float x1, float y1, float z) {
  addPathSegment(store, {.type = kLine,
                         .x0 = x0,
                         .y0 = y0,
                         .x1 = x1,
                         .y1 = y1,
                         .z = z,
                         .feed = 10,
                         .code = pathCode(kSquareGroup, 0)});
}

// Appends the rows, one after the other without a gap, cut by tool 1.
inline void clearSquare(DrawingStore& store, float z = -0.25F) {
  store.toolradius[0] = 0.5F;
  const auto add = [&](float x0, float y0, float x1, float y1) {
    addSquareRow(store, x0, y0, x1, y1, z);
  };
  float from = 0.5F;
  for (float y = 0.5F; y <= 3.5F; y += 0.5F) {
    const float to = 4 - from;
    add(from, y, to, y);
    if (y < 3.5F) add(to, y, to, y + 0.5F);
    from = to;
  }
  add(3.5F, 3.5F, 0.5F, 3.5F);
  add(0.5F, 3.5F, 0.5F, 0.5F);
  add(0.5F, 0.5F, 3.5F, 0.5F);
  add(3.5F, 0.5F, 3.5F, 3.5F);
}

}  // namespace tess::testing
