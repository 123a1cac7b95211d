// The one door from the toolkit's events into the program. An exception must not pass through the
// toolkit's event loop, and events served in the middle of a command must not start another.
// Owns: Guard, Gateway.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/session.h"

namespace tess {

// Runs an entry point so that no failure leaves it; false when it ended in one. Only EndProgram
// and what is no std::exception come through.
using Guard = std::function<bool(std::string_view entry, const std::function<void()>& run)>;

class Gateway {
 public:
  explicit Gateway(Guard guard) : guard_(std::move(guard)) {}

  // What the operator does: a command, a pointer event, a key.
  void enter(std::string_view entry, const std::function<void()>& run) {
    const Depth deeper(depth_);
    pass(entry, run);
  }

  // What happens by itself: a timer.
  void pass(std::string_view entry, const std::function<void()>& run) {
    if (closed_) return;
    try {
      guard_(entry, run);
    } catch (const EndProgram& end) {
      if (onEnd) onEnd(end.what());
    }
  }

  // From now on nothing comes through: what events would work on is being taken apart.
  void close() { closed_ = true; }

  // True while something that the operator did is being carried out.
  bool isBusy() const { return depth_ > 0; }

  // The program cannot go on; the line is for the operator.
  std::function<void(const std::string& line)> onEnd;
  // The drawing is in millimetres; without it forms show no units.
  std::function<bool()> isMetric;
  // The operator wants to know about a form.
  std::function<void(const Form& form)> onHelp;

 private:
  struct Depth {
    explicit Depth(int& counted) : depth(counted) { ++depth; }
    ~Depth() { --depth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;
    int& depth;
  };

  Guard guard_;
  int depth_ = 0;
  bool closed_ = false;
};

}  // namespace tess
