// How a script lets time pass, and what a person who watches it sees.
// Owns: ScriptTime, VirtualTime, ScriptStage.
#pragma once

#include <cstdint>

#include "core/timers.h"

namespace tess {

// The timers of the program tick while it passes.
class ScriptTime {
 public:
  virtual ~ScriptTime() = default;
  virtual void pass(std::int64_t ms) = 0;
};

// Time that costs none.
class VirtualTime : public ScriptTime {
 public:
  explicit VirtualTime(VirtualTimers& timers) : timers_(timers) {}
  void pass(std::int64_t ms) override { timers_.advance(ms); }

 private:
  VirtualTimers& timers_;
};

// Told after each step of a script, so that a window can wait until a person has seen it.
class ScriptStage {
 public:
  virtual ~ScriptStage() = default;
  virtual void stepDone() {}
};

}  // namespace tess
