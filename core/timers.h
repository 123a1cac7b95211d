// Named timers: the port through which the program lets time pass, and the virtual clock that
// scripts and tests bring for it.
// Owns: TimerSpec, Timer, Timers, VirtualTimers.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tess {

struct TimerSpec {
  std::string name;
  int intervalMs = 0;
  bool oneShot = false;  // disables itself right before its tick
};

// One timer; it starts disabled and ends with the object.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual const std::string& name() const = 0;
  virtual bool enabled() const = 0;
  // Enabling an enabled timer leaves its period running; off and on again starts a new one.
  virtual void setEnabled(bool on) = 0;
};

class Timers {
 public:
  virtual ~Timers() = default;
  virtual std::unique_ptr<Timer> create(const TimerSpec& spec, std::function<void()> tick) = 0;
};

// A clock that stands still until it is told to go on. Outlives the timers that it made.
class VirtualTimers : public Timers {
 public:
  std::unique_ptr<Timer> create(const TimerSpec& spec, std::function<void()> tick) override;

  // Lets `ms` milliseconds pass: ticks fire in the order in which they fall due, those due at the
  // same moment in the order in which the timers were made. A tick may call this again; a failure
  // of a tick leaves the clock at its moment.
  void advance(std::int64_t ms);

  std::int64_t now() const { return now_; }  // milliseconds since the beginning

 private:
  class VirtualTimer;
  VirtualTimer* nextDue(std::int64_t until) const;

  std::vector<VirtualTimer*> timers_;  // in the order of their making
  std::int64_t now_ = 0;
};

}  // namespace tess
