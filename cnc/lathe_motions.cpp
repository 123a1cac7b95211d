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

LatheMotions::LatheMotions(const DrawingStore& drawing, MotionReader& listening,
                           const MotionRules& wanted)
    : MotionPass(drawing, listening, wanted) {
  if (rules.latheClear) room_.emplace(store, *rules.latheClear);
}

// A tool that was just changed is at the change position, or nobody knows where.
std::optional<Point> LatheMotions::standsAt() const {
  if (!fresh) return here();
  if (!rules.changePos) return std::nullopt;
  return Point{store.xchange, store.ychange};
}

void LatheMotions::goBy(const std::vector<Point>& places, MoveReason reason) {
  for (const Point place : places) tell(RapidMove{{place.x, place.y, curz}, reason});
}

// What lies between the bar and the row is cut at the feed of the row.
void LatheMotions::enterRow(const PathRow& row) {
  if (!fresh) leaveRow();
  const LatheWay way = room_->wayIn(standsAt(), row);
  goBy(way.rapids, MoveReason::Approach);
  if (way.feedsIn) tell(PlungeMove{{row.x0, row.y0, curz}, row.feed});
  moveTo(startOf(row));
}

void LatheMotions::leaveRow() {
  const std::vector<Point> way = room_->wayOut(here(), last_);
  goBy(way, MoveReason::Lift);
  if (!way.empty()) moveTo(way.back());
}

void LatheMotions::moveToFirstRow(const PathRow& row) {
  if (room_) {
    enterRow(row);
  } else {
    tell(approachOf(row, curz));
  }
  fresh = false;
}

void LatheMotions::changeTool(const PathRow&) {
  changeTo(ToolOccasion::Next);
}

// Behind a safe change the tool is known to be elsewhere.
// Fixed: the current position stays behind; rapids and arcs go by where the last row ended.
void LatheMotions::approach(const PathRow& row) {
  const bool returns = fresh && (rules.safeChange || room_);
  const bool away = returns || !isHere(startOf(row));
  if (room_) {
    if (away) enterRow(row);
    last_ = row;
  } else {
    if (away) tell(approachOf(row, curz));
    if (returns) moveTo(startOf(row));
  }
  fresh = false;
}

void LatheMotions::approachArc(const PathRow& row) {
  tell(approachOf(row, curz));
}

// By its mark, or straight away from the axis where tools do not go round the work.
// Fixed: a feed move straight away from the axis is a rapid; lathe programs retract at that speed.
bool LatheMotions::isRapid(const PathRow& straight) const {
  const bool retract = !room_ && straight.x1 == curx && straight.y1 > cury;
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

// Without room there is no height to lift to; the change position is the only place that is known
// to be free.
void LatheMotions::leaveWork() {
  if (room_ && !fresh) leaveRow();
}

// First straight away from the axis, where nothing of a turned part stands in the way. Before the
// first motion nobody knows where the tool stands, and it goes there straight.
void LatheMotions::goToChangePlace() {
  const Point place{store.xchange, store.ychange};
  if (room_ && !fresh) {
    leaveRow();
    goBy(room_->wayAround(here(), place), MoveReason::Travel);
    moveTo(place);
    return;
  }
  if (!fresh) tell(RapidMove{{curx, place.y, curz}, MoveReason::Lift});
  goBy({place}, MoveReason::Travel);
}

void LatheMotions::leaveAtEnd() {
  if (rules.changePos) {
    goToChangePlace();
  } else {
    leaveWork();
  }
}

}  // namespace tess
