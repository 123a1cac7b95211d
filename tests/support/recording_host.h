// A host for tests: records what the program asks of its platform and gives prepared answers.
// Owns: RecordingPrompts, FixedClock, RecordingSurroundings, RecordingFailures, RecordingHost.
#pragma once

#include <deque>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "core/form.h"
#include "core/host.h"
#include "core/runtime_failure.h"

namespace tess::testing {

// Answers messages in the order given, then with the first button of the box, but No to whether a
// failed statement shall run again; cancels file dialogs that nobody prepared, and forms that
// onForm leaves open.
class RecordingPrompts : public Prompts {
 public:
  RecordingPrompts();
  ~RecordingPrompts() override;
  Answer showMessage(const Message& message) override;
  std::optional<std::string> chooseFile(const FileRequest& request) override;
  void showModal(Form& form) override;

  static Answer firstButton(MessageButtons buttons);

  std::deque<Answer> answers;
  std::deque<std::optional<std::string>> files;
  std::function<void()> onMessage;  // what happens while a message is up
  std::function<void(Form&)> onForm;
  std::vector<Message> messages;
  std::vector<FileRequest> fileRequests;
  std::vector<std::string> formNames;
  int modalForms = 0;
};

class FixedClock : public Clock {
 public:
  ~FixedClock() override;
  DateTime now() override { return time; }
  double elapsedMilliseconds() override { return elapsed += asking; }
  void sleep(double milliseconds) override { elapsed += milliseconds; }

  DateTime time{.year = 2026, .month = 3, .day = 9, .hour = 14, .minute = 5, .second = 7};
  double elapsed = 0;
  double asking = 0;  // milliseconds that go by each time it is asked
};

class RecordingSurroundings : public Surroundings {
 public:
  ~RecordingSurroundings() override;
  void serveEvents() override {
    ++eventsServed;
    if (onServe) onServe();
  }
  void setCancellable(bool on) override { isCancellable = on; }
  bool isCancelled() const override { return isCancellable && eventsServed >= cancelAt; }
  void beep() override { ++beeps; }
  void printOnMainWindow(const std::string& text) override { printed.push_back(text); }
  Trash moveToTrash(const std::string& path) override {
    if (trash != Trash::None) trashed.push_back(path);
    return trash;
  }

  int eventsServed = 0;
  std::function<void()> onServe;
  int cancelAt = std::numeric_limits<int>::max();  // of the events served: the operator has enough
  bool isCancellable = false;
  int beeps = 0;
  std::vector<std::string> printed;
  Trash trash = Trash::None;
  std::vector<std::string> trashed;
};

class RecordingFailures : public FailureSink {
 public:
  ~RecordingFailures() override;
  void report(const RuntimeFailure& failure) override;

  std::vector<RuntimeFailure> reported;
};

struct RecordingHost {
  RecordingHost();
  ~RecordingHost();

  RecordingPrompts prompts;
  FixedClock clock;
  RecordingSurroundings surroundings;
  RecordingFailures failures;
  NoGuard guard;
  Host host{prompts, clock, surroundings, failures, guard};
};

}  // namespace tess::testing
