// The time of moves under an acceleration.
//
// A corner is taken at the speed at which a circle that stays within the deviation of it keeps to
// the acceleration. For a turn by the angle t such a circle that touches both legs has the radius
// d s / (1 - s) with s = cos(t/2): its middle lies r / s from the corner, so r / s - r = d. On a
// circle of the radius r the speed sqrt(a r) has the acceleration a.
#include "cnc/motion_time.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tess {
namespace {

constexpr double kSecondsPerMinute = 60;
// What is nearer to straight on, or to straight back, counts as that.
constexpr double kNearlyOne = 1 - 1e-9;

double dot(const Direction& a, const Direction& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

double squared(double value) {
  return value * value;
}

// The speed behind a way under an acceleration.
double speedAfter(double speed, double acceleration, double length) {
  return std::sqrt(squared(speed) + 2 * acceleration * length);
}

// Up to the highest speed or as far as the way allows, along, and down again.
double secondsOf(double length, double speed, double from, double to, double acceleration) {
  const double peak = std::sqrt((squared(from) + squared(to)) / 2 + acceleration * length);
  if (peak <= speed) return std::max(0.0, (2 * peak - from - to) / acceleration);
  const double ramps = (2 * squared(speed) - squared(from) - squared(to)) / (2 * acceleration);
  return (2 * speed - from - to) / acceleration + std::max(0.0, length - ramps) / speed;
}

}  // namespace

double MotionTimer::cornerSpeed(const Leg& leg) const {
  const double straightness = dot(lastExit_, leg.entry);
  if (straightness >= kNearlyOne) return std::numeric_limits<double>::infinity();
  if (straightness <= -kNearlyOne) return 0;
  const double halfCosine = std::sqrt((1 + straightness) / 2);
  const double radius = limits_.deviation * halfCosine / (1 - halfCosine);
  return std::sqrt(limits_.acceleration * radius);
}

void MotionTimer::add(const Leg& leg) {
  if (!(leg.length > 0) || !(leg.rate > 0)) return;
  times_.minutes += leg.length / leg.rate;
  if (!(limits_.acceleration > 0)) return;
  double speed = leg.rate / kSecondsPerMinute;
  if (leg.radius > 0) speed = std::min(speed, std::sqrt(limits_.acceleration * leg.radius));
  const double corner = steps_.empty() ? 0 : cornerSpeed(leg);
  if (corner == 0) timeSteps();
  const double before = steps_.empty() ? 0 : steps_.back().speed;
  steps_.push_back({leg.length, speed, std::min({corner, speed, before})});
  lastExit_ = leg.exit;
}

// From the last step back each is entered no faster than it can slow down from; from the first on
// none is entered faster than the one before has got.
void MotionTimer::timeSteps() {
  const double acceleration = limits_.acceleration;
  double exit = 0;
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
    step->entrySpeed = std::min(step->entrySpeed, speedAfter(exit, acceleration, step->length));
    exit = step->entrySpeed;
  }
  double entry = 0;
  double seconds = 0;
  for (std::size_t at = 0; at < steps_.size(); ++at) {
    const Step& step = steps_[at];
    const double next = at + 1 < steps_.size() ? steps_[at + 1].entrySpeed : 0;
    const double leave = std::min(next, speedAfter(entry, acceleration, step.length));
    seconds += secondsOf(step.length, step.speed, entry, leave, acceleration);
    entry = leave;
  }
  times_.acceleratedMinutes += seconds / kSecondsPerMinute;
  steps_.clear();
}

void MotionTimer::stop() {
  timeSteps();
}

void MotionTimer::wait(double minutes) {
  stop();
  times_.minutes += minutes;
  times_.acceleratedMinutes += minutes;
}

MotionTimes MotionTimer::take() {
  stop();
  if (!(limits_.acceleration > 0)) times_.acceleratedMinutes = times_.minutes;
  return std::exchange(times_, {});
}

}  // namespace tess
