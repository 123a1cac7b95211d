// The platform that a script has, with a window or without one: its answers to what the program
// asks, beeps that are counted, failures that end in the log and in its messages.
// Owns: VirtualClock, QuietSurroundings, CountedSurroundings, CollectedReports, ScriptFailures,
//       ScriptPrograms, ScriptHost.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cnc/other_programs.h"
#include "core/host.h"
#include "core/timers.h"
#include "shell/automation/script_guard.h"
#include "shell/automation/script_prompts.h"
#include "shell/error_reporting.h"

namespace tess {

// Starts at the machine's local time and moves with virtual timers alone, so that a script does the
// same on a slow machine as on a fast one. With a date of its own it tells that one all the time,
// so that what bears the date comes out the same on any day.
class VirtualClock : public Clock {
 public:
  explicit VirtualClock(const VirtualTimers& timers, std::optional<DateTime> date = {})
      : timers_(timers), date_(date) {}
  DateTime now() override;
  double elapsedMilliseconds() override { return static_cast<double>(timers_.now()) + slept_; }
  void sleep(double milliseconds) override { slept_ += milliseconds; }

 private:
  const VirtualTimers& timers_;
  std::optional<DateTime> date_;
  double slept_ = 0;  // milliseconds of sleep, in which no timer runs
  std::chrono::system_clock::time_point start_ = std::chrono::system_clock::now();
};

// Keeps what would stand on the main window.
class QuietSurroundings : public Surroundings {
 public:
  void serveEvents() override {
    if (onServe) onServe();
  }
  void beep() override {}
  void printOnMainWindow(const std::string& text) override { printed.push_back(text); }

  std::vector<std::string> printed;
  std::function<void()> onServe;
};

// Counts the beeps on their way to whoever sounds them, and tells of long work.
class CountedSurroundings : public Surroundings {
 public:
  explicit CountedSurroundings(Surroundings& inner) : inner_(inner) {}
  void serveEvents() override {
    pause();
    inner_.serveEvents();
  }
  void beep() override {
    ++beeps;
    if (onBeep) onBeep(beeps);
    inner_.beep();
  }
  void setCancellable(bool on) override { inner_.setCancellable(on); }
  bool isCancelled() const override { return inner_.isCancelled(); }
  void waitForKey() override { inner_.waitForKey(); }
  void printOnMainWindow(const std::string& text) override { inner_.printOnMainWindow(text); }

  // A moment in which a script that has run too long may be ended.
  void pause() {
    if (onServe) onServe();
  }

  long long beeps = 0;
  std::function<void(long long)> onBeep;
  std::function<void()> onServe;

 private:
  Surroundings& inner_;
};

// Where the reports of guarded runs wait: the guard would swallow the errors of a script that
// hears of them, so they are shown once it is left.
class CollectedReports : public Prompts {
 public:
  Answer showMessage(const Message& message) override;
  std::optional<std::string> chooseFile(const FileRequest& /*request*/) override { return {}; }
  void showModal(Form& form) override;
  std::vector<std::string> take() { return std::exchange(texts_, {}); }

 private:
  std::vector<std::string> texts_;
};

// Failures that a routine survives: logged, and shown as a report.
class ScriptFailures : public FailureSink {
 public:
  ScriptFailures(HuntERR& reporting, std::function<void()> show)
      : reporting_(reporting), show_(std::move(show)) {}
  void report(const RuntimeFailure& failure) override;

 private:
  HuntERR& reporting_;
  std::function<void()> show_;
};

// Starts other programs for a script that may do so; for any other it is an error of the script.
class ScriptPrograms : public OtherPrograms {
 public:
  // The state in which a refusal is an error. Call `start` in protected mode then.
  void attach(lua_State* L) { lua_ = L; }
  void detach() { lua_ = nullptr; }
  void allow(bool may) { mayBeReached_ = may; }

  bool mayBeReached() const override { return mayBeReached_; }
  bool isOperatorAsked() const override { return false; }
  void start(const std::string& program, const std::vector<std::string>& arguments) override;

 private:
  LocalPrograms local_;
  lua_State* lua_ = nullptr;
  bool mayBeReached_ = false;
};

// The host of a program that a script works, on the clock and the surroundings of its platform.
struct ScriptHost {
  ScriptHost(const AllowedFolders& folders, Clock& clock, Surroundings& platform)
      : prompts(folders),
        surroundings(platform),
        reporting(reports, clock, shownAsMessages()),
        failures(reporting, [this] { showReports(); }),
        guard(folders),
        host{prompts, clock, surroundings, failures, guard} {}

  // Whether the script may start other programs and say where they lie.
  void allowOtherPrograms(bool may) {
    guard.mayReachPrograms = may;
    programs.allow(may);
  }

  // The reports that have come since the last call, as messages of the kind "error".
  void showReports();

  // Nobody answers whether to try again.
  static ErrorReporting shownAsMessages();

  ScriptPrompts prompts;
  CountedSurroundings surroundings;
  CollectedReports reports;
  HuntERR reporting;
  ScriptFailures failures;
  ScriptGuard guard;
  ScriptPrograms programs;
  Host host;
};

}  // namespace tess
