// How a script lets time pass.
// Owns: ScriptTime, VirtualTime.
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

}  // namespace tess
