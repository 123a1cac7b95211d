// The moving part of a lathe program.
#include "cnc/lathe_body.h"

#include <cmath>
#include <utility>

namespace tess {

MotionLine LatheBody::lineAt(std::string_view g, Point place, float) const {
  return {.g = std::string(g), .x = place.y, .z = place.x};
}

// The axes are exchanged, and with them the centre words: I goes with X, K with Z.
void LatheBody::setCentre(MotionLine& line, ArcCentre centre) const {
  line.i = centre.arcj;
  line.k = centre.arci;
}

void LatheBody::rapidToStart(const PathRow& row) {
  MotionLine line = lineAt("G00", startOf(row), curz);
  line.feed = row.feed;
  put(std::move(line));
}

void LatheBody::moveToFirstRow(const PathRow& row) {
  rapidToStart(row);
}

void LatheBody::changeTool(const PathRow&) {
  announceTool(tool);
}

// The current position stays behind on purpose: straightWord and the arcs ask where the last row
// ended, not where this one begins.
void LatheBody::approach(const PathRow& row) {
  if (!isHere(startOf(row))) rapidToStart(row);
}

void LatheBody::approachArc(const PathRow& row) {
  rapidToStart(row);
}

// A rapid by its mark, or a retract straight away from the axis.
std::string_view LatheBody::straightWord(const PathRow& row) const {
  const bool retract = row.x1 == curx && row.y1 > cury;
  return row.z == kLatheRapidZ || retract ? "G00" : "G01";
}

// The X word is forced, and the Y word with it: a cycle line carries a Y of zero.
void LatheBody::writeCycle(const PathRow& row) {
  moveTo(endOf(row));
  curz = std::abs(row.z);
  MotionLine line = lineHere(cycleWord(row));
  line.forceXY = true;
  line.d = cycleDwell(row);
  line.feed = row.feed;
  put(std::move(line));
}

}  // namespace tess
