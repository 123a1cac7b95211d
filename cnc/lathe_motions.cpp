// The motions of a lathe.
#include "cnc/lathe_motions.h"

#include <string>

#include "core/drawing_store.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

RapidMove approachOf(const PathRow& row, float z) {
  return {.to = {row.x0, row.y0, z}, .reason = MoveReason::Approach};
}

}  // namespace

void LatheMotions::moveToFirstRow(const PathRow& row) {
  tell(approachOf(row, curz));
  fresh = false;
}

void LatheMotions::changeTool(const PathRow&) {
  changeTo(ToolOccasion::Next);
}

// Behind a safe change the tool is known to be elsewhere.
// Fixed: the current position stays behind; rapids and arcs go by where the last row ended.
void LatheMotions::approach(const PathRow& row) {
  const bool returns = fresh && rules.safeChange;
  if (returns || !isHere(startOf(row))) tell(approachOf(row, curz));
  if (returns) moveTo(startOf(row));
  fresh = false;
}

void LatheMotions::approachArc(const PathRow& row) {
  tell(approachOf(row, curz));
}

// By its mark, or straight away from the axis.
// Fixed: a feed move straight away from the axis is a rapid; lathe programs retract at that speed.
bool LatheMotions::isRapid(const PathRow& straight) const {
  const bool retract = straight.x1 == curx && straight.y1 > cury;
  return straight.z == kLatheRapidZ || retract;
}

// Only the control knows where a lathe's cycle begins, so there is no other way to write it.
// Fixed: the tool then counts as standing at the unsigned depth; no word of a lathe tells it.
void LatheMotions::runCycle(const PathRow& row) {
  const CycleRun cycle = cycleOf(row);
  if (rules.cyclesReturn || !rules.keeps(cycle.number)) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {},
                         "A lathe's cycle " + std::to_string(cycle.number) +
                             " can only be left to the control, and the post-processor definition "
                             "does not keep it");
  }
  moveTo(endOf(row));
  curz = cycle.depth;
  tell(cycle);
}

// There is no height to lift to; the change position is the only place that is known to be free.
void LatheMotions::leaveWork() {}

// First straight away from the axis, where nothing of a turned part stands in the way. Before the
// first motion nobody knows where the tool stands, and it goes there straight.
void LatheMotions::goToChangePlace() {
  if (!fresh) tell(RapidMove{{curx, store.ychange, curz}, MoveReason::Lift});
  tell(RapidMove{{store.xchange, store.ychange, curz}, MoveReason::Travel});
}

void LatheMotions::leaveAtEnd() {
  if (rules.changePos) goToChangePlace();
}

}  // namespace tess
