// The platform of a program without a window: time that passes only when a script lets it, beeps
// that are counted, failures that end in the log.
// Owns: VirtualClock, QuietSurroundings, ScriptFailures, ScriptHost.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "core/host.h"
#include "shell/automation/script_prompts.h"
#include "shell/error_reporting.h"

namespace tess {

// Starts at the machine's local time and moves only by advance, so that a script does the same on
// a slow machine as on a fast one.
class VirtualClock : public Clock {
 public:
  DateTime now() override;
  double elapsedMilliseconds() override { return elapsed_; }
  void advance(double milliseconds) { elapsed_ += milliseconds; }

 private:
  std::chrono::system_clock::time_point start_ = std::chrono::system_clock::now();
  double elapsed_ = 0;
};

// Counts the beeps and keeps what would stand on the main window.
class QuietSurroundings : public Surroundings {
 public:
  void serveEvents() override {}
  void beep() override {
    ++beeps;
    if (onBeep) onBeep(beeps);
  }
  void printOnMainWindow(const std::string& text) override { printed.push_back(text); }

  long long beeps = 0;
  std::function<void(long long)> onBeep;
  std::vector<std::string> printed;
};

// Failures that a routine survives: logged, and shown as a report.
class ScriptFailures : public FailureSink {
 public:
  ScriptFailures(HuntERR& reporting, ScriptPrompts& prompts)
      : reporting_(reporting), prompts_(prompts) {}
  void report(const RuntimeFailure& failure) override;

 private:
  HuntERR& reporting_;
  ScriptPrompts& prompts_;
};

// The ports of one script, wired to each other.
struct ScriptHost {
  explicit ScriptHost(const AllowedFolders& folders) : prompts(folders) {}

  ScriptPrompts prompts;
  VirtualClock clock;
  QuietSurroundings surroundings;
  HuntERR reporting{prompts, clock, quietReporting()};
  ScriptFailures failures{reporting, prompts};
  Host host{prompts, clock, surroundings, failures};

  // No window shows the report and nobody answers whether to try again.
  static ErrorReporting quietReporting();
};

}  // namespace tess
