// What commands came to, told to the operator in passing and kept for a while to be read again.
// Owns: Result, kMostResults, Results.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "core/host.h"

namespace tess {

struct Result {
  DateTime at;       // local time
  std::string text;  // one line
};

// Older ones are forgotten.
inline constexpr std::size_t kMostResults = 500;

class Results {
 public:
  explicit Results(Clock& clock) : clock_(clock) {}

  void tell(std::string text);
  const std::deque<Result>& told() const { return told_; }  // the newest last
  std::size_t count() const { return count_; }              // with those forgotten
  // One line each, with the time of day before it: "14:05:09  Pocket verified, 4 rows".
  std::string log() const;

  std::function<void()> onTold;  // the newest is told().back()

 private:
  Clock& clock_;
  std::deque<Result> told_;
  std::size_t count_ = 0;
};

}  // namespace tess
