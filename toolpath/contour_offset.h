// Contour offsetting: a chain of drawing rows becomes a chain of path rows beside it.
// Owns: OffsetRequest, offsetPathChain, isOnProfile, PlacedRows, Placement, placePathChain,
//       connectPlacedRows.
#pragma once

#include "drafting/change.h"
#include "toolpath/cam_context.h"

namespace tess {

class ChainWalk;

struct OffsetRequest {
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
  // The steps along the drawing's rows, from commands that place many chains; null: made anew.
  ChainWalk* rows = nullptr;
};

// Places the rows where pathInsertMode says, logs them as one step, and ends the armed action. A
// failure leaves no row behind.
void offsetPathChain(CamContext& cam, const OffsetRequest& request);

// True for a click on row `sg` itself, or within five pixels of it.
bool isOnProfile(const CamContext& cam, int sg, Point click);

// Path rows `first` to `last`; none when last is below first.
struct PlacedRows {
  int first = 1, last = 0;
  bool empty() const { return last < first; }
};

// A placement in the making, for commands that go on to change its rows: kept, its rows enter the
// log as they are then; otherwise they are taken back. Meanwhile the table changes at no other
// place.
class Placement {
 public:
  // The rows are a step of their own, or go on with the one before.
  explicit Placement(CamContext& cam, Step step = Step::New);

  int first() const { return first_; }
  PlacedRows rows() const;
  void keep();

 private:
  CamContext& cam_;
  int first_;
  int rowsBefore_;
  Change change_;
};

// What offsetPathChain does, but for the log. Gives the side on which the path lies.
Side placePathChain(CamContext& cam, const OffsetRequest& request, const Placement& placement);

// Links the gaps within `rows`, and within their level copies at the end of the table, but never to
// one of the `rowsBefore` rows that were there before.
void connectPlacedRows(CamContext& cam, const PlacedRows& rows, int rowsBefore);

}  // namespace tess
