// Other programs for tests: what would be started is recorded, and windows are made up.
// Owns: RecordingWindows, RecordingPrograms.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cnc/other_programs.h"
#include "core/runtime_failure.h"

namespace tess::testing {

// The first title is that of window 1. What is done to them is noted as "front 1", "show 1" and
// "send 1 CODE LENGTH TEXT".
class RecordingWindows : public OtherWindows {
 public:
  WindowHandle first() override { return titles.empty() ? 0 : 1; }
  WindowHandle next(WindowHandle window) override {
    return window < titles.size() ? window + 1 : 0;
  }
  std::string title(WindowHandle window, std::size_t characters) override {
    return titles.at(window - 1).substr(0, characters);
  }
  void bringToFront(WindowHandle window) override { note("front", window); }
  void showNormally(WindowHandle window) override { note("show", window); }
  void send(WindowHandle window, const CopyData& data) override {
    note("send", window);
    noted.back() +=
        " " + std::to_string(data.code) + " " + std::to_string(data.length) + " " + data.text;
  }

  std::vector<std::string> titles;
  std::vector<std::string> noted;

 private:
  void note(const std::string& what, WindowHandle window) {
    noted.push_back(what + " " + std::to_string(window));
  }
};

class RecordingPrograms : public OtherPrograms {
 public:
  bool mayBeReached() const override { return mayReach; }
  bool isOperatorAsked() const override { return operatorAsked; }
  void start(const std::string& program, const std::vector<std::string>& arguments) override {
    if (failure) throw RuntimeFailure(*failure);
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    started.push_back(std::move(texts));
  }
  OtherWindows* windows() override { return found; }

  bool mayReach = true;
  bool operatorAsked = true;
  OtherWindows* found = nullptr;
  std::optional<RuntimeFailure> failure;
  std::vector<std::vector<std::string>> started;  // each the program and its arguments
};

}  // namespace tess::testing
