// The motions of a mill.
#include "cnc/mill_motions.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr int kCycleFromStart = 79;

}  // namespace

void MillMotions::lift(MovedAxes axes) {
  tell(RapidMove{hereAt(store.zstartpos), MoveReason::Lift, axes});
}

void MillMotions::travel(MovedAxes axes) {
  tell(RapidMove{hereAt(store.zstartpos), MoveReason::Travel, axes});
}

void MillMotions::descend() {
  tell(RapidMove{hereAt(curz), MoveReason::Descent});
}

void MillMotions::plunge() {
  tell(PlungeMove{hereAt(curz), store.cfg_z_plunge_rate});
}

// Both axes of the first place are told, so that nothing left over from an earlier program can
// stand in for them.
void MillMotions::moveToFirstRow(const PathRow& row) {
  lift(MovedAxes::Height);
  travel(MovedAxes::Place);
  curz = row.z;
  plunge();
}

// Fixed: a fresh tool goes down at rapid speed; a plunge would change all programs of two tools.
void MillMotions::changeTool(const PathRow& row) {
  lift();
  tellTool(ToolOccasion::Next);
  if (!isContourMove(row)) return;
  moveTo(startOf(row));
  travel();
  curz = row.z;
  descend();
}

void MillMotions::approach(const PathRow& row) {
  if (!isContourMove(row)) {
    lift(MovedAxes::Height);
    return;
  }
  const bool samePlace = isHere(startOf(row));
  if (samePlace && curz == row.z) return;
  if (!samePlace) {
    lift();
    moveTo(startOf(row));
    travel();
  }
  curz = row.z;
  plunge();
}

// Approach has been here before: only a tolerance below 0, under which no two points are the same,
// comes to this.
void MillMotions::approachArc(const PathRow& row) {
  lift();
  tell(RapidMove{{row.x0, row.y0, curz}, MoveReason::Descent});
}

bool MillMotions::isRapid(const PathRow&) const {
  return false;
}

void MillMotions::runCycle(const PathRow& row) {
  if (row.type == kCycleFromStart) {
    tell(RapidMove{{row.x0, row.y0, store.zstartpos}, MoveReason::Travel, MovedAxes::Place});
  }
  tellCycle(row);
}

}  // namespace tess
