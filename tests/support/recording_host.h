// A host for tests: records what the program asks of its platform and gives prepared answers.
// Owns: RecordingPrompts, FixedClock, RecordingSurroundings, RecordingFailures, RecordingHost.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/form.h"
#include "core/host.h"
#include "core/runtime_failure.h"

namespace tess::testing {

// Answers messages in the order given, then with the first button of the box; cancels file
// dialogs that nobody prepared, and forms that onForm leaves open.
class RecordingPrompts : public Prompts {
 public:
  Answer showMessage(const Message& message) override {
    messages.push_back(message);
    if (onMessage) onMessage();
    if (answers.empty()) return firstButton(message.buttons);
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::optional<std::string> chooseFile(const FileRequest& request) override {
    fileRequests.push_back(request);
    if (files.empty()) return std::nullopt;
    std::optional<std::string> file = files.front();
    files.pop_front();
    return file;
  }

  void showModal(Form& form) override {
    ++modalForms;
    formNames.push_back(form.name());
    form.open(Modality::Modal);
    if (onForm && form.isShown()) onForm(form);
    if (form.isShown()) form.pressCancel();
    if (form.isShown()) form.close();
  }

  static Answer firstButton(MessageButtons buttons) {
    const bool ok = buttons == MessageButtons::Ok || buttons == MessageButtons::OkCancel;
    return ok ? Answer::Ok : Answer::Yes;
  }

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
  DateTime now() override { return time; }
  double elapsedMilliseconds() override { return elapsed; }

  DateTime time{.year = 2026, .month = 3, .day = 9, .hour = 14, .minute = 5, .second = 7};
  double elapsed = 0;
};

class RecordingSurroundings : public Surroundings {
 public:
  void serveEvents() override { ++eventsServed; }
  void beep() override { ++beeps; }
  void printOnMainWindow(const std::string& text) override { printed.push_back(text); }

  int eventsServed = 0;
  int beeps = 0;
  std::vector<std::string> printed;
};

class RecordingFailures : public FailureSink {
 public:
  void report(const RuntimeFailure& failure) override {
    takeCallChain();
    reported.push_back(failure);
  }

  std::vector<RuntimeFailure> reported;
};

struct RecordingHost {
  RecordingPrompts prompts;
  FixedClock clock;
  RecordingSurroundings surroundings;
  RecordingFailures failures;
  NoGuard guard;
  Host host{prompts, clock, surroundings, failures, guard};
};

}  // namespace tess::testing
