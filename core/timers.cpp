// The virtual clock of scripts and tests.
#include "core/timers.h"

#include <algorithm>
#include <utility>

namespace tess {

class VirtualTimers::VirtualTimer : public Timer {
 public:
  VirtualTimer(VirtualTimers& clock, TimerSpec spec, std::function<void()> tick)
      : clock_(clock), spec_(std::move(spec)), tick_(std::move(tick)) {}
  ~VirtualTimer() override { std::erase(clock_.timers_, this); }

  const std::string& name() const override { return spec_.name; }
  bool enabled() const override { return enabled_; }

  void setEnabled(bool on) override {
    if (on && !enabled_) due_ = clock_.now_ + spec_.intervalMs;
    enabled_ = on;
  }

  std::int64_t due() const { return due_; }

  // The next period begins before the tick runs, so that the tick has the last word on it.
  void fire() {
    due_ += spec_.intervalMs;
    if (spec_.oneShot) enabled_ = false;
    const std::function<void()> tick = tick_;  // outlives a timer that its own tick ends
    tick();
  }

 private:
  VirtualTimers& clock_;
  TimerSpec spec_;
  std::function<void()> tick_;
  std::int64_t due_ = 0;
  bool enabled_ = false;
};

std::unique_ptr<Timer> VirtualTimers::create(const TimerSpec& spec, std::function<void()> tick) {
  auto timer = std::make_unique<VirtualTimer>(*this, spec, std::move(tick));
  timers_.push_back(timer.get());
  return timer;
}

VirtualTimers::VirtualTimer* VirtualTimers::nextDue(std::int64_t until) const {
  VirtualTimer* next = nullptr;
  for (VirtualTimer* timer : timers_) {
    if (!timer->enabled() || timer->due() > until) continue;
    if (next == nullptr || timer->due() < next->due()) next = timer;
  }
  return next;
}

void VirtualTimers::advance(std::int64_t ms) {
  const std::int64_t until = now_ + ms;
  while (VirtualTimer* timer = nextDue(until)) {
    now_ = std::max(now_, timer->due());
    timer->fire();
  }
  now_ = std::max(now_, until);
}

}  // namespace tess
