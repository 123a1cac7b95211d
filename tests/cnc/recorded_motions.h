// The motions of a program as a list, for tests.
// Owns: PrintTo, RecordedMotions, motionsOf.
#pragma once

#include <ostream>
#include <utility>
#include <variant>
#include <vector>

#include "cnc/program_motions.h"

namespace tess {

// How a failing test shows them.
inline std::ostream& operator<<(std::ostream& out, ToolPlace place) {
  return out << '(' << place.x << ", " << place.y << ", " << place.z << ')';
}
inline void PrintTo(const ProgramStart& start, std::ostream* out) {
  *out << "start in " << (start.isMetric ? "mm" : "inches");
}
inline void PrintTo(const RowStart& start, std::ostream* out) {
  *out << "row " << start.row << " of tool " << start.tool;
}
inline void PrintTo(const ToolChange& change, std::ostream* out) {
  *out << "change " << static_cast<int>(change.occasion) << " to tool " << change.tool << " at "
       << change.spindlespeed;
}
inline void PrintTo(const RapidMove& move, std::ostream* out) {
  *out << "rapid to " << move.to << " for " << static_cast<int>(move.reason) << " by "
       << static_cast<int>(move.axes);
}
inline void PrintTo(const PlungeMove& move, std::ostream* out) {
  *out << "plunge to " << move.to << " at " << move.feed;
}
inline void PrintTo(const FeedMove& move, std::ostream* out) {
  *out << "feed from " << move.from << " to " << move.to << " at " << move.feed;
}
inline void PrintTo(const ArcMove& arc, std::ostream* out) {
  *out << "arc " << arc.type << " from " << arc.from << " to " << arc.to << " about ("
       << arc.centerx << ", " << arc.centery << ") at " << arc.feed;
}
inline void PrintTo(const CycleRun& cycle, std::ostream* out) {
  *out << "cycle " << cycle.number << " at " << cycle.place << " down to " << cycle.depth << " by "
       << cycle.increment << ", dwell " << cycle.dwell << " at " << cycle.feed;
}
inline void PrintTo(const Dwell& dwell, std::ostream* out) {
  *out << "dwell " << dwell.time;
}
inline void PrintTo(const SpindleStop&, std::ostream* out) {
  *out << "spindle stop";
}
inline void PrintTo(const SpindleStart& start, std::ostream* out) {
  *out << "spindle of tool " << start.tool;
}
inline void PrintTo(const ProgramEnd&, std::ostream* out) {
  *out << "end";
}
inline void PrintTo(const MotionEvent& event, std::ostream* out) {
  std::visit([out](const auto& told) { PrintTo(told, out); }, event);
}

namespace testing {

class RecordedMotions : public MotionReader {
 public:
  void read(const MotionEvent& event) override { events.push_back(event); }
  std::vector<MotionEvent> events;
};

inline std::vector<MotionEvent> motionsOf(const DrawingStore& store, CncMode mode,
                                          const MotionRules& rules = {}) {
  RecordedMotions motions;
  tellMotions(store, mode, motions, rules);
  return std::move(motions.events);
}

}  // namespace testing
}  // namespace tess
