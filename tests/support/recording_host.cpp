// A host for tests.
#include "tests/support/recording_host.h"

namespace tess::testing {
namespace {

// What fails again each time is not repeated without end.
Answer unprepared(const Message& message) {
  if (message.title == "Stopped on Error") return Answer::No;
  return RecordingPrompts::firstButton(message.buttons);
}

}  // namespace

RecordingPrompts::RecordingPrompts() = default;
RecordingPrompts::~RecordingPrompts() = default;

Answer RecordingPrompts::showMessage(const Message& message) {
  messages.push_back(message);
  if (onMessage) onMessage();
  if (answers.empty()) return unprepared(message);
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<std::string> RecordingPrompts::chooseFile(const FileRequest& request) {
  fileRequests.push_back(request);
  if (files.empty()) return std::nullopt;
  std::optional<std::string> file = files.front();
  files.pop_front();
  return file;
}

void RecordingPrompts::showModal(Form& form) {
  ++modalForms;
  formNames.push_back(form.name());
  form.open(Modality::Modal);
  if (onForm && form.isShown()) onForm(form);
  if (form.isShown()) form.pressCancel();
  if (form.isShown()) form.close();
}

Answer RecordingPrompts::firstButton(MessageButtons buttons) {
  const bool ok = buttons == MessageButtons::Ok || buttons == MessageButtons::OkCancel;
  return ok ? Answer::Ok : Answer::Yes;
}

FixedClock::~FixedClock() = default;
RecordingSurroundings::~RecordingSurroundings() = default;
RecordingFailures::~RecordingFailures() = default;

void RecordingFailures::report(const RuntimeFailure& failure) {
  takeCallChain();
  reported.push_back(failure);
}

RecordingHost::RecordingHost() = default;
RecordingHost::~RecordingHost() = default;

}  // namespace tess::testing
