// The time that a script may take, or the search for a display. A script that is calculating, or
// calling the program, ends in order once it is over; one that is inside a single long call, as a
// pattern match of Lua, cannot hear of it and is ended with the process.
// Owns: kNoThread, Watchdog, exitAtOnce.
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tess {

// Why a thread of the program cannot be had.
inline constexpr char kNoThread[] =
    "no thread can be started; memory or the number of processes is at its limit";

class Watchdog {
 public:
  // 0 seconds are no bound. `onHang` is called on a thread of its own when the object still lives a
  // moment after the time is over.
  Watchdog(double seconds, std::function<void()> onHang);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // The time begins; at most once. Raises std::runtime_error where there is no thread for it.
  void start();
  bool isOver() const { return over_.load(std::memory_order_relaxed); }
  // What is then said of the script.
  std::string complaint() const;

 private:
  void watch();
  // False when the object's end came first.
  bool pass(double seconds);

  const double seconds_;
  const std::function<void()> onHang_;
  std::atomic<bool> over_ = false;
  std::mutex mutex_;
  std::condition_variable wakeUp_;
  bool ended_ = false;
  std::thread thread_;
};

// Ends the process with status 1, whatever its other threads are doing: with the line on standard
// error, and with what was printed so far.
[[noreturn]] void exitAtOnce(const std::string& line);

}  // namespace tess
