// How long a machine takes for moves that follow one another: at their speeds alone, and with the
// time that it needs to speed up, to slow down and to go round corners.
// Owns: MachineLimits, Direction, Leg, MotionTimes, MotionTimer.
#pragma once

#include <vector>

namespace tess {

struct MachineLimits {
  double rapid = 0;         // drawing units per minute
  double acceleration = 0;  // drawing units per second squared; 0: at once
  double deviation = 0;     // how far a corner may be cut for the sake of speed, in drawing units
};

// Of unit length.
struct Direction {
  double x = 0, y = 0, z = 0;
};

struct Leg {
  double length = 0;      // drawing units
  double rate = 0;        // drawing units per minute; 0: it takes no time, as nobody knows it
  Direction entry, exit;  // where the tool goes at the ends
  double radius = 0;      // of an arc; 0: straight
};

struct MotionTimes {
  double minutes = 0;             // at the speeds of the legs
  double acceleratedMinutes = 0;  // what a machine takes; the same without an acceleration
};

// Adds up legs in the order in which they are made. The speed at each is the highest that leaves
// room to slow down for all that follow: the machine looks ahead as far as the next stop.
class MotionTimer {
 public:
  explicit MotionTimer(const MachineLimits& limits) : limits_(limits) {}

  void add(const Leg& leg);
  void stop();                // the machine stands still here
  void wait(double minutes);  // and waits
  MotionTimes take();         // the times since the last taking; stops
  double rapidRate() const { return limits_.rapid; }

 private:
  struct Step {
    double length;      // drawing units
    double speed;       // drawing units per second, at most
    double entrySpeed;  // at most, for the corner before it
  };

  double cornerSpeed(const Leg& leg) const;
  void timeSteps();

  MachineLimits limits_;
  MotionTimes times_;
  std::vector<Step> steps_;  // since the last stop
  Direction lastExit_;
};

}  // namespace tess
