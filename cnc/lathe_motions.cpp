// The motions of a lathe.
#include "cnc/lathe_motions.h"

namespace tess {
namespace {

RapidMove approachOf(const PathRow& row, float z) {
  return {.to = {row.x0, row.y0, z}, .reason = MoveReason::Approach};
}

}  // namespace

void LatheMotions::moveToFirstRow(const PathRow& row) {
  tell(approachOf(row, curz));
}

void LatheMotions::changeTool(const PathRow&) {
  tellTool(ToolOccasion::Next);
}

// Fixed: the current position stays behind; rapids and arcs go by where the last row ended.
void LatheMotions::approach(const PathRow& row) {
  if (!isHere(startOf(row))) tell(approachOf(row, curz));
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

void LatheMotions::runCycle(const PathRow& row) {
  tellCycle(row);
}

}  // namespace tess
