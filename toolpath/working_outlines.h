// The working outlines of roughing: the outline of a pocket or an island, moved by a distance into
// the pocket, as drawing rows of a class of their own. They leave nothing in the change log.
// Owns: OutlineOffset, offsetSegChain, removeWorkingRows, restoreParkedRows.
#pragma once

#include "toolpath/cam_context.h"
#include "toolpath/chain_walk.h"

namespace tess {

struct OutlineOffset {
  int sg = 0;       // the row to begin with
  Point start;      // an end of it
  Point direction;  // a point on the way to go
  Point reference;  // on the side where the working outline lies
  int attr = 0;     // of the working rows
  float distance = 0;
};

// Walks the selected rows from row `sg`, parks each, and appends what lies beside them, joined.
// With start and direction in one place a row that is no arc gives a beep and nothing else. `rows`
// was made before the first working row came. Raises Overflow at row 32768.
void offsetSegChain(CamContext& cam, ChainWalk& rows, const OutlineOffset& request);

// Takes out every row that is not of the ordinary class.
void removeWorkingRows(Changes& changes);
// Parked rows are verified rows again.
void restoreParkedRows(Changes& changes);

}  // namespace tess
