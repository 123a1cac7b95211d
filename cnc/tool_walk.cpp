// The motions of the program with their times.
#include "cnc/tool_walk.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "cnc/path_report.h"
#include "cnc/program_motions.h"
#include "core/conventions.h"
#include "core/drawing_store.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr double kSecondsPerMinute = 60;

double straightLength(const ToolStep& step) {
  return std::hypot(double{step.to.x} - step.from.x, double{step.to.y} - step.from.y,
                    double{step.to.z} - step.from.z);
}

ArcAngles anglesOf(const ToolStep& step) {
  return arcRadiusAndAngles({step.from.x, step.from.y}, {step.to.x, step.to.y}, step.center);
}

double sweepOf(const ToolStep& step, const ArcAngles& angles) {
  return ArcSweep(angles.start, angles.end, step.type);
}

double lengthOf(const ToolStep& step) {
  if (step.type == kLine) return straightLength(step);
  const ArcAngles angles = anglesOf(step);
  return std::abs(sweepOf(step, angles) * angles.radius);
}

// Follows the program and notes each motion with its time at its own speed.
class Follower : public MotionReader {
 public:
  Follower(const DrawingStore& store, double rapidRate)
      : rapidRate_(rapidRate), at_{store.xstartpos, store.ystartpos, store.zstartpos} {}

  void read(const MotionEvent& event) override {
    std::visit([this](const auto& told) { note(told); }, event);
  }

  ToolWalk walk;

 private:
  void note(const RowStart& start) {
    row_ = start.row;
    tool_ = start.tool - 1;
  }
  void note(const RapidMove& move) {
    const bool lifts = move.axes == MovedAxes::Height;
    go(lifts ? ToolPlace{at_.x, at_.y, move.to.z} : move.to, rapidRate_, /*isRapid=*/true);
  }
  void note(const PlungeMove& move) { go(move.to, move.feed); }
  void note(const FeedMove& move) { go(move.to, move.feed, move.to.z == kLatheRapidZ); }
  void note(const ArcMove& arc) {
    ToolStep step = stepTo(arc.to);
    step.type = arc.type;
    step.center = {arc.centerx, arc.centery};
    take(step, arc.feed);
  }
  void note(const CycleRun& cycle) {
    go(cycle.place, rapidRate_, /*isRapid=*/true);
    go({cycle.place.x, cycle.place.y, -cycle.depth}, cycle.feed);
    go(cycle.place, rapidRate_, /*isRapid=*/true);
  }
  // Nothing moves.
  void note(const ProgramStart&) {}
  void note(const ToolChange&) {}
  void note(const Dwell&) {}
  void note(const SpindleStop&) {}
  void note(const SpindleStart&) {}
  void note(const ProgramEnd&) {}

  ToolStep stepTo(ToolPlace to) const {
    ToolStep step;
    step.row = row_;
    step.tool = tool_;
    step.from = at_;
    step.to = to;
    return step;
  }

  void go(ToolPlace to, double rate, bool isRapid = false) {
    ToolStep step = stepTo(to);
    step.isRapid = isRapid;
    take(step, rate);
  }

  void take(ToolStep step, double rate) {
    at_ = step.to;
    const double length = lengthOf(step);
    if (!(length > 0)) return;
    step.begin = walk.seconds();
    step.end = step.begin + (rate > 0 ? length / rate * kSecondsPerMinute : 0);
    walk.steps.push_back(step);
  }

  double rapidRate_;
  ToolPlace at_;
  int row_ = 1, tool_ = 0;
};

void countSeconds(ToolWalk& walk) {
  double at = 0;
  for (ToolStep& step : walk.steps) {
    step.begin = at++;
    step.end = at;
  }
}

void scaleTimes(ToolWalk& walk, double seconds) {
  const double before = walk.seconds();
  if (!(before > 0)) return countSeconds(walk);
  const double factor = seconds > 0 ? seconds / before : 1;
  for (ToolStep& step : walk.steps) {
    step.begin *= factor;
    step.end *= factor;
  }
}

}  // namespace

std::size_t ToolWalk::stepAt(double seconds) const {
  const auto after =
      std::upper_bound(steps.begin(), steps.end(), seconds,
                       [](double moment, const ToolStep& step) { return moment < step.end; });
  return after == steps.end() ? steps.size() - 1 : static_cast<std::size_t>(after - steps.begin());
}

ToolPlace ToolWalk::placeAt(double seconds) const {
  const ToolStep& step = steps[stepAt(seconds)];
  const double whole = step.end - step.begin;
  const double part = whole > 0 ? std::clamp((seconds - step.begin) / whole, 0.0, 1.0) : 1;
  const auto between = [part](float from, float to) {
    return narrow(from + (double{to} - from) * part);
  };
  const float z = between(step.from.z, step.to.z);
  if (step.type == kLine) {
    return {between(step.from.x, step.to.x), between(step.from.y, step.to.y), z};
  }
  const ArcAngles angles = anglesOf(step);
  const double angle = angles.start + part * sweepOf(step, angles);
  return {narrow(step.center.x + angles.radius * std::cos(angle)),
          narrow(step.center.y + angles.radius * std::sin(angle)), z};
}

double ToolWalk::beginOf(int row) const {
  const auto found = std::ranges::find(steps, row, &ToolStep::row);
  return found == steps.end() ? 0 : found->begin;
}

ToolWalk toolWalk(const DrawingStore& store, const MotionRules& rules) {
  const CncMode mode = motionModeOf(store);
  Follower follower(store, machineLimits(store).rapid);
  tellMotions(store, mode, follower, withAllCycles(rules));
  follower.walk.hasHeights = mode == CncMode::Mill;
  scaleTimes(follower.walk, reportPaths(store, rules).machineMinutes * kSecondsPerMinute);
  return std::move(follower.walk);
}

}  // namespace tess
