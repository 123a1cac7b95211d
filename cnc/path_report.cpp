// Rows, lengths and times of the path, from the motions of the program.
#include "cnc/path_report.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <variant>

#include "cnc/cycle_expansion.h"
#include "cnc/motion_time.h"
#include "cnc/program_motions.h"
#include "core/conventions.h"
#include "core/drawing_store.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr double kSecondsPerMinute = 60;
// What machines of this size do that tell nothing of themselves.
constexpr double kRapidInch = 100;
constexpr double kRapidMetric = 2500;
constexpr double kDeviationInch = 0.0004;
constexpr double kDeviationMetric = 0.01;
// A cycle of more pecks is taken for one without: a damaged one would take hours to add up.
constexpr float kMostPecks = 200;

Point flat(ToolPlace place) {
  return {place.x, place.y};
}

double lengthOf(const FeedMove& move) {
  return distance(flat(move.from), flat(move.to));
}

double sweepOf(const ArcMove& arc, ArcAngles angles) {
  return ArcSweep(angles.start, angles.end, arc.type);
}

ArcAngles anglesOf(const ArcMove& arc) {
  return arcRadiusAndAngles(flat(arc.from), flat(arc.to), {arc.centerx, arc.centery});
}

double lengthOf(const ArcMove& arc) {
  const ArcAngles angles = anglesOf(arc);
  return std::abs(double{angles.radius} * sweepOf(arc, angles));
}

double knownOr(float setting, double otherwise) {
  return setting > 0 ? setting : otherwise;
}

Leg straight(ToolPlace from, ToolPlace to, double rate) {
  const double x = double{to.x} - from.x;
  const double y = double{to.y} - from.y;
  const double z = double{to.z} - from.z;
  const double length = std::hypot(x, y, z);
  if (!(length > 0)) return {};
  const Direction along{x / length, y / length, z / length};
  return {.length = length, .rate = rate, .entry = along, .exit = along};
}

// At a right angle to the radius at this angle, on the side that the arc turns to.
Direction tangentAt(double angle, int type) {
  const double side = type == kClockwiseArc ? 1 : -1;
  return {side * std::sin(angle), -side * std::cos(angle)};
}

Leg curved(const ArcMove& arc) {
  const ArcAngles angles = anglesOf(arc);
  return {.length = lengthOf(arc),
          .rate = arc.feed,
          .entry = tangentAt(angles.start, arc.type),
          .exit = tangentAt(angles.end, arc.type),
          .radius = angles.radius};
}

// Follows the tool through the program and takes the time of each of its moves.
class Stopwatch : public MotionReader {
 public:
  // The report has a share for each tool already.
  Stopwatch(const DrawingStore& store, const MotionRules& rules, CncMode mode, PathReport& report)
      : store_(store),
        rules_(rules),
        mode_(mode),
        report_(report),
        timer_(machineLimits(store)),
        at_(placed({store.xstartpos, store.ystartpos, store.zstartpos})) {}

  void read(const MotionEvent& event) override {
    std::visit([this](const auto& told) { note(told); }, event);
  }

 private:
  void note(const ProgramStart&) {}
  // What comes before the first row of a tool is done for it.
  void note(const RowStart& start) {
    if (tool_ != start.tool - 1) takeTimes();
    tool_ = start.tool - 1;
  }
  void note(const ProgramEnd&) { takeTimes(); }
  void note(const ToolChange&) { timer_.stop(); }
  void note(const SpindleStop&) { timer_.stop(); }
  void note(const SpindleStart&) { timer_.stop(); }
  void note(const Dwell& dwell) { timer_.wait(dwell.time / kSecondsPerMinute); }
  void note(const RapidMove& move) { go(rapidTo(move), timer_.rapidRate()); }
  void note(const PlungeMove& move) { go(move.to, move.feed); }
  void note(const FeedMove& move) { go(move.to, move.feed); }

  void note(const ArcMove& arc) {
    timer_.add(curved(arc));
    at_ = placed(arc.to);
  }

  void note(const CycleRun& cycle) {
    if (isMeasurable(cycle)) {
      expandCycle(movesOf(cycle), *this);
    } else {
      drill(cycle);
    }
  }

  ToolPlace rapidTo(const RapidMove& move) const {
    if (move.axes != MovedAxes::Height) return move.to;
    return {at_.x, at_.y, move.to.z};
  }

  // The z of a lathe's motions says nothing.
  ToolPlace placed(ToolPlace place) const {
    return mode_ == CncMode::Lathe ? ToolPlace{place.x, place.y} : place;
  }

  void go(ToolPlace to, double rate) {
    timer_.add(straight(at_, placed(to), rate));
    at_ = placed(to);
  }

  void takeTimes() {
    const MotionTimes times = timer_.take();
    const auto share = std::ranges::find(report_.tools, tool_, &ToolShare::tool);
    if (share == report_.tools.end()) return;  // nothing has been timed yet
    share->programMinutes += times.minutes;
    share->machineMinutes += times.acceleratedMinutes;
  }

  static bool isMeasurable(const CycleRun& cycle) {
    const bool few =
        !(cycle.depth > kMostPecks * std::abs(cycle.increment)) || cycle.increment == 0;
    return few && isExpandable(cycle.number);
  }

  // The spindle has a speed here; whether it has one is the program's trouble.
  ExpandedCycle movesOf(const CycleRun& cycle) const {
    return {.cycle = cycle,
            .start = {at_.x, at_.y, cycle.place.z},
            .plungerate = store_.cfg_z_plunge_rate,
            .plungeFrom = rules_.plungeFrom,
            .spindlespeed = 1,
            .clearance = peckClearance(isMetric(store_))};
  }

  // A cycle of which only the control knows all moves: down at its feed, and out.
  void drill(const CycleRun& cycle) {
    go(cycle.place, timer_.rapidRate());
    go({cycle.place.x, cycle.place.y, -cycle.depth}, cycle.feed);
    timer_.wait(std::max(0.0F, cycle.dwell) / kSecondsPerMinute);
    go(cycle.place, timer_.rapidRate());
  }

  const DrawingStore& store_;
  const MotionRules& rules_;
  CncMode mode_;
  PathReport& report_;
  MotionTimer timer_;
  ToolPlace at_;
  int tool_ = -1;  // index of the row at hand
};

class ReportReader : public MotionReader {
 public:
  void read(const MotionEvent& event) override {
    std::visit([this](const auto& told) { note(told); }, event);
  }

  PathReport report;

 private:
  void note(const RowStart& start) {
    share_ = placeOf(start.tool - 1);
    ++report.tools[share_].rows;
  }
  // A mill feeds along the rapids of the lathe style too, but nobody means them as cuts.
  void note(const FeedMove& move) {
    if (move.to.z != kLatheRapidZ) addCut(lengthOf(move), move.feed);
  }
  void note(const ArcMove& arc) { addCut(lengthOf(arc), arc.feed); }
  void note(const CycleRun& cycle) { addCut(cycle.depth, cycle.feed); }
  // These are no cuts.
  void note(const ToolChange&) {}
  void note(const RapidMove&) {}
  void note(const Dwell&) {}
  void note(const SpindleStop&) {}
  void note(const SpindleStart&) {}
  void note(const PlungeMove&) {}
  void note(const ProgramStart&) {}
  void note(const ProgramEnd&) {}

  void addCut(double length, float feed) {
    ToolShare& share = report.tools[share_];
    share.length += length;
    if (feed > 0) share.minutes += length / feed;
  }

  std::size_t placeOf(int tool) {
    const auto found = std::ranges::find(report.tools, tool, &ToolShare::tool);
    const auto place = static_cast<std::size_t>(found - report.tools.begin());
    if (found == report.tools.end()) report.tools.push_back({.tool = tool});
    return place;
  }

  std::size_t share_ = 0;  // of the row at hand
};

void addUp(PathReport& report) {
  for (const ToolShare& share : report.tools) {
    report.rows += share.rows;
    report.length += share.length;
    report.minutes += share.minutes;
    report.programMinutes += share.programMinutes;
    report.machineMinutes += share.machineMinutes;
  }
}

}  // namespace

MachineLimits machineLimits(const DrawingStore& store) {
  const bool metric = isMetric(store);
  return {.rapid = knownOr(store.cfg_rapid_rate, metric ? kRapidMetric : kRapidInch),
          .acceleration = knownOr(store.cfg_acceleration, 0),
          .deviation =
              knownOr(store.cfg_junction_deviation, metric ? kDeviationMetric : kDeviationInch)};
}

MotionRules withAllCycles(MotionRules rules) {
  rules.keptCycles.set();
  rules.cyclesReturn = false;
  return rules;
}

CncMode motionModeOf(const DrawingStore& store) {
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.psz[ps] == kLatheRapidZ) return CncMode::Lathe;
  }
  return CncMode::Mill;
}

// The cuts are those of a mill: only the moves from row to row differ from a lathe's.
PathReport reportPaths(const DrawingStore& store, const MotionRules& rules) {
  ReportReader reader;
  tellMotions(store, CncMode::Mill, reader);
  PathReport& report = reader.report;
  const CncMode mode = motionModeOf(store);
  Stopwatch watch(store, rules, mode, report);
  tellMotions(store, mode, watch, withAllCycles(rules));
  addUp(report);
  return report;
}

std::string summaryOf(const DrawingStore& store, const PathReport& report) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << report.rows << " path rows, " << std::fixed << std::setprecision(1) << report.length
       << (isMetric(store) ? " mm" : " in") << ", about " << report.machineMinutes << " min";
  return text.str();
}

}  // namespace tess
