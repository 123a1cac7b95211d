// Long work that the operator may end. Whoever does it keeps its results aside until it is done, so
// that nothing is left of work that was ended.
// Owns: Breathing, breathe, WorkCancelled, WorkTeller, CancellableWork.
#pragma once

#include <cmath>
#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "core/host.h"
#include "core/number_text.h"

namespace tess {

// Called again and again in the middle of long work; what it raises ends the work.
using Breathing = std::function<void()>;
inline void breathe(const Breathing& breathing) {
  if (breathing) breathing();
}

class WorkCancelled : public std::exception {
 public:
  const char* what() const noexcept override { return "the operator has ended the work"; }
};

// Is told how long the work has taken and how to end it: every half a second.
using WorkTeller = std::function<void(const std::string& text)>;

// As long as it lives the operator can end the work: from the first breath, or only once it has
// taken half a second, before which it serves no events either.
class CancellableWork {
 public:
  enum class From { FirstBreath, HalfASecond };

  explicit CancellableWork(const Host& host, WorkTeller tell = {}, From from = From::FirstBreath)
      : surroundings_(host.surroundings),
        clock_(host.clock),
        tell_(std::move(tell)),
        began_(clock_.elapsedMilliseconds()) {
    if (from == From::FirstBreath) letCancel();
  }
  ~CancellableWork() {
    if (canBeCancelled_) surroundings_.setCancellable(false);
  }
  CancellableWork(const CancellableWork&) = delete;
  CancellableWork& operator=(const CancellableWork&) = delete;

  // Lets the screen follow. Raises WorkCancelled once the operator has had enough.
  void breathe() {
    tellTime();
    if (!canBeCancelled_) return;
    surroundings_.serveEvents();
    if (surroundings_.isCancelled()) throw WorkCancelled();
  }
  Breathing breathing() {
    return [this] { breathe(); };
  }

 private:
  static constexpr double kEvery = 500;  // milliseconds

  void letCancel() {
    if (!canBeCancelled_) surroundings_.setCancellable(true);
    canBeCancelled_ = true;
  }

  void tellTime() {
    const double halves = std::floor((clock_.elapsedMilliseconds() - began_) / kEvery);
    if (halves <= told_) return;
    told_ = halves;
    letCancel();
    if (tell_) tell_(formatNumber(static_cast<float>(halves / 2), "0.0") + " s, Esc ends it");
  }

  Surroundings& surroundings_;
  Clock& clock_;
  WorkTeller tell_;
  double began_;     // on the clock
  double told_ = 0;  // half seconds
  bool canBeCancelled_ = false;
};

}  // namespace tess
