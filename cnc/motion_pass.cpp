// The motions of a program: the pass over the path rows.
#include "cnc/motion_pass.h"

#include <array>
#include <cmath>
#include <string>

#include "cnc/cycle_numbers.h"
#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr std::array kCyclesWithoutIncrement{81, 82, 85, 89};
constexpr std::array kCyclesWithoutDwell{79, 81, 83, 87};

// Runs the work on one path row; a failure of it says which row it was.
template <typename Work>
void inRow(int ps, Work work) {
  try {
    work();
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(failure.number(),
                         "path row " + std::to_string(ps) +
                             (failure.source().empty() ? "" : ": " + failure.source()),
                         failure.description());
  }
}

}  // namespace

bool MotionPass::isHere(Point place) const {
  return samePoint(here(), place, store.cfg_tolerance);
}

void MotionPass::run() {
  if (store.NumPathSegments == 0) return;
  tell(ProgramStart{.isMetric = isMetric(store)});
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    inRow(ps, [this, ps] { doRow(ps); });
  }
  endRows();
  tell(ProgramEnd{});
}

void MotionPass::doRow(int ps) {
  const PathRow row = pathRow(store, ps);
  tool = toolIndex(row.code) + 1;
  tell(RowStart{.row = ps, .tool = tool});
  if (ps == 1) start(row);
  if (tool != lasttool_) {
    changeTool(row);
    lasttool_ = tool;
  }
  approach(row);
  doMotion(row);
}

void MotionPass::start(const PathRow& row) {
  moveTo({store.xstartpos, store.ystartpos});
  curz = store.zstartpos;
  firsttool_ = lasttool_ = tool;
  changeTo(ToolOccasion::First);
  if (isContourMove(row)) beginMovement(row);
}

void MotionPass::beginMovement(const PathRow& row) {
  moveTo(startOf(row));
  moveToFirstRow(row);
}

bool MotionPass::changesAbove() const {
  return store.zchange > store.zstartpos;
}

void MotionPass::prepareChange(ToolOccasion occasion) {
  const bool straightUp = rules.startHigh && occasion == ToolOccasion::First && changesAbove();
  if (rules.safeChange && !straightUp) leaveWork();
  if (rules.changePos) goToChangePlace();
}

void MotionPass::changeTo(ToolOccasion occasion) {
  prepareChange(occasion);
  tell(ToolChange{
      .occasion = occasion, .tool = tool, .spindlespeed = store.toolspindlespeed[tool - 1]});
  fresh = true;
}

// A change leaves the work by itself when it is a safe one.
void MotionPass::endRows() {
  const bool returns = rules.returnsTool && firsttool_ != tool;
  if (returns) {
    if (rules.endLift && !rules.safeChange) leaveAtEnd();
    prepareChange(ToolOccasion::Return);
    tell(ToolChange{.occasion = ToolOccasion::Return, .tool = firsttool_});
  } else if (rules.endLift) {
    leaveAtEnd();
  }
}

// Fixed: kinds 4 to 20 make no motion; files hold such rows and programs leave them out.
void MotionPass::doMotion(const PathRow& row) {
  if (row.type == kRapid || row.type == kLine) doStraight(row);
  if (isArc(row.type)) doArc(row);
  if (row.type >= kFirstCycle) runCycle(row);
}

void MotionPass::doStraight(const PathRow& row) {
  const bool rapid = row.type == kRapid || isRapid(row);
  moveTo(endOf(row));
  curz = row.z;
  if (rapid) {
    tell(RapidMove{.to = hereAt(curz)});
  } else {
    tell(FeedMove{.from = {row.x0, row.y0, row.z}, .to = hereAt(curz), .feed = row.feed});
  }
}

void MotionPass::doArc(const PathRow& row) {
  if (!isHere(startOf(row))) approachArc(row);
  moveTo(endOf(row));
  curz = row.z;
  tell(ArcMove{.type = row.type,
               .from = {row.x0, row.y0, row.z},
               .to = hereAt(curz),
               .centerx = row.xc,
               .centery = row.yc,
               .feed = row.feed});
}

// Fixed: kinds above 99 tell increment and dwell that their G number lacks; programs hold both.
CycleRun MotionPass::cycleOf(const PathRow& row) const {
  return {.number = cycleGNumber(row.type),
          .place = {row.x1, row.y1, store.zstartpos},
          .depth = std::abs(row.z),
          .increment = isOneOf(kCyclesWithoutIncrement, row.type) ? 0 : row.xc,
          .dwell = isOneOf(kCyclesWithoutDwell, row.type) ? 0 : row.yc,
          .feed = row.feed};
}

}  // namespace tess
