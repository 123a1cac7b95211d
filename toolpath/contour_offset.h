// Contour offsetting: a chain of drawing rows becomes a chain of path rows beside it.
// Owns: OffsetOrder, offsetPathChain.
#pragma once

#include "toolpath/cam_desk.h"

namespace tess {

struct OffsetOrder {
  int sg = 0;       // the row to begin with
  Point start;      // an end of it
  Point direction;  // a point on it: the way to go
  Point click;      // on which side the path lies, unless a mode decides that
  float z = 0;
  float feed = 0;
  bool chain = true;        // the whole chain with its leads, or this one row without
  bool pocketMode = false;  // follow verified rows, the side from pocketSideOf
  bool exactMode = false;   // follow selected rows, on the profile itself
  float radius = 0;         // distance; 0 means the radius of the selected tool
};

// Places the rows where pathInsertMode says, logs them, and ends the armed action.
void offsetPathChain(CamDesk& cam, const OffsetOrder& order);

}  // namespace tess
