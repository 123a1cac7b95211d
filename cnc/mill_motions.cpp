// The motions of a mill.
#include "cnc/mill_motions.h"

#include <algorithm>
#include <optional>

#include "cnc/cycle_expansion.h"
#include "core/drawing_store.h"
#include "core/number_text.h"

namespace tess {
namespace {

constexpr int kCycleFromStart = 79;

// A control would refuse it, or go up where it is to go down.
void requireBelow(float bottom, float safe) {
  if (bottom < safe) return;
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {},
                       "The bottom of the cycle, " + plainText(bottom) +
                           ", is not below the safe height " + plainText(safe));
}

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

// Down to the depth of the row from where the tool stands. A tool that was just changed goes down
// all the way at the plunge rate when changes are to be safe: its length has proved nothing yet.
void MillMotions::plungeFrom(float z) {
  const bool trusted = !(fresh && rules.safeChange);
  if (trusted && rules.plungeFrom && curz < 0 && *rules.plungeFrom < z) {
    tell(RapidMove{hereAt(*rules.plungeFrom), MoveReason::Descent});
  }
  tell(PlungeMove{hereAt(curz), store.cfg_z_plunge_rate});
}

void MillMotions::leaveWork() {
  lift(MovedAxes::Height);
}

// The change height counts when it is above the safe one; below it the tool would drag across.
void MillMotions::goToChangePlace() {
  const float z = std::max(store.zchange, store.zstartpos);
  if (z > store.zstartpos) tell(RapidMove{hereAt(z), MoveReason::Lift, MovedAxes::Height});
  tell(RapidMove{{store.xchange, store.ychange, z}, MoveReason::Travel, MovedAxes::Place});
}

// Both axes of the first place are told, so that nothing left over from an earlier program can
// stand in for them.
void MillMotions::moveToFirstRow(const PathRow& row) {
  lift(MovedAxes::Height);
  travel(MovedAxes::Place);
  curz = row.z;
  plungeFrom(store.zstartpos);
  fresh = false;
}

// Unless the rules ask for more care:
// Fixed: a fresh tool goes down at rapid speed; a plunge would change all programs of two tools.
void MillMotions::changeTool(const PathRow& row) {
  if (!rules.safeChange) lift();
  changeTo(ToolOccasion::Next);
  standsSafe_ = false;
  if (!isContourMove(row)) return;
  moveTo(startOf(row));
  if (rules.safeChange) return moveToFirstRow(row);
  travel();
  curz = row.z;
  rules.plungeFrom ? plungeFrom(store.zstartpos) : descend();
  fresh = false;
}

void MillMotions::approach(const PathRow& row) {
  if (!isContourMove(row)) return approachCycle();
  standsSafe_ = false;
  const bool samePlace = isHere(startOf(row));
  if (samePlace && curz == row.z) return;
  float from = curz;
  if (!samePlace) {
    lift();
    moveTo(startOf(row));
    travel();
    from = store.zstartpos;
  }
  curz = row.z;
  plungeFrom(from);
}

void MillMotions::approachCycle() {
  if (!standsSafe_) lift(MovedAxes::Height);
}

// Approach has been here before: only a tolerance below 0, under which no two points are the same,
// comes to this.
void MillMotions::approachArc(const PathRow& row) {
  lift();
  if (rules.safeChange) {
    moveTo(startOf(row));
    travel();
    return plungeFrom(store.zstartpos);
  }
  tell(RapidMove{{row.x0, row.y0, curz}, MoveReason::Descent});
}

bool MillMotions::isRapid(const PathRow&) const {
  return false;
}

bool MillMotions::knowsHeightAfter(int cycle) const {
  return rules.cyclesReturn || rules.safeChange || !rules.keeps(cycle);
}

// Where nothing else is known:
// Fixed: the tool then counts as standing at the unsigned depth; a row there needs no plunge.
void MillMotions::runCycle(const PathRow& row) {
  const CycleRun cycle = cycleOf(row);
  const bool kept = rules.keeps(cycle.number);
  if (!kept || rules.cyclesReturn) requireBelow(-cycle.depth, store.zstartpos);
  if (kept && row.type == kCycleFromStart) {
    tell(RapidMove{{row.x0, row.y0, store.zstartpos}, MoveReason::Travel, MovedAxes::Place});
  }
  moveTo(endOf(row));
  if (kept) {
    tell(cycle);
  } else {
    expand(row);
  }
  curz = knowsHeightAfter(cycle.number) ? store.zstartpos : cycle.depth;
  standsSafe_ = !kept || rules.cyclesReturn;
  fresh = false;
}

void MillMotions::expand(const PathRow& row) {
  expandCycle({.cycle = cycleOf(row),
               .start = {row.x0, row.y0, store.zstartpos},
               .plungerate = store.cfg_z_plunge_rate,
               .plungeFrom = fresh && rules.safeChange ? std::nullopt : rules.plungeFrom,
               .tool = tool,
               .spindlespeed = store.toolspindlespeed[tool - 1],
               .clearance = peckClearance(isMetric(store))},
              reader());
}

}  // namespace tess
