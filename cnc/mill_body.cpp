// The moving part of a mill program: travel at the safe height "z start pos", plunges and cycles.
#include "cnc/mill_body.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tess {
namespace {

constexpr int kCycleFromStart = 79;
constexpr std::array kCyclesWithoutIncrement{81, 82, 85, 89};

float cycleIncrement(const PathRow& row) {
  return std::ranges::count(kCyclesWithoutIncrement, row.type) > 0 ? 0 : row.xc;
}

}  // namespace

MotionLine MillBody::lineAt(std::string_view g, Point place, float z) const {
  return {.g = std::string(g), .x = place.x, .y = place.y, .z = z, .useY = true};
}

void MillBody::setCentre(MotionLine& line, ArcCentre centre) const {
  line.i = centre.arci;
  line.j = centre.arcj;
}

void MillBody::liftOnly() {
  MotionLine line = lineAt("G00", here(), store.zstartpos);
  line.zOnly = true;
  put(std::move(line));
}

void MillBody::plunge() {
  MotionLine line = lineHere("G01");
  line.feed = store.cfg_z_plunge_rate;
  put(std::move(line));
}

// Up where the tool stands, then over to the place at the safe height.
void MillBody::travelAbove(Point place) {
  rapidAbove(here());
  moveTo(place);
  rapidAbove(place);
}

// Both words of the first place are forced, so that what an earlier program left in lastmove
// cannot swallow them.
void MillBody::moveToFirstRow(const PathRow& row) {
  liftOnly();
  MotionLine line = lineHere("G00");
  line.forceXY = true;
  put(std::move(line));
  curz = row.z;
  plunge();
}

// The fresh tool goes down at rapid speed.
void MillBody::changeTool(const PathRow& row) {
  rapidAbove(here());
  announceTool(tool);
  if (!isContourMove(row)) return;
  moveTo(startOf(row));
  rapidAbove(here());
  curz = row.z;
  put(lineHere("G00"));
}

void MillBody::approach(const PathRow& row) {
  if (!isContourMove(row)) {
    liftOnly();
    return;
  }
  const bool samePlace = isHere(startOf(row));
  if (samePlace && curz == row.z) return;
  if (!samePlace) travelAbove(startOf(row));
  curz = row.z;
  plunge();
}

// Approach has been here before: only a tolerance below 0, under which no two points are the same,
// comes to this.
void MillBody::approachArc(const PathRow& row) {
  rapidAbove(here());
  put(lineAt("G00", startOf(row), curz));
}

std::string_view MillBody::straightWord(const PathRow&) const {
  return "G01";
}

void MillBody::writeCycle(const PathRow& row) {
  moveTo(endOf(row));
  curz = std::abs(row.z);
  if (row.type == kCycleFromStart) {
    MotionLine start = lineAt("G00", startOf(row), store.zstartpos);
    start.forceXY = true;
    put(std::move(start));
  }
  MotionLine line = lineHere(cycleWord(row));
  line.forceXY = true;
  line.k = cycleIncrement(row);
  line.d = cycleDwell(row);
  line.feed = row.feed;
  put(std::move(line));
}

}  // namespace tess
