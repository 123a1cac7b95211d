// The clock and the failure road of scripts.
#include "shell/automation/script_host.h"

#include <ctime>

#include "core/form.h"
#include "core/runtime_failure.h"
#include "shell/automation/message_buttons.h"
#include "shell/automation/script.h"

namespace tess {

DateTime VirtualClock::now() {
  if (date_) return *date_;
  const auto passed = std::chrono::milliseconds(timers_.now());
  const std::time_t moment = std::chrono::system_clock::to_time_t(start_ + passed);
  std::tm local{};
  localtime_r(&moment, &local);
  return {.year = local.tm_year + 1900,
          .month = local.tm_mon + 1,
          .day = local.tm_mday,
          .hour = local.tm_hour,
          .minute = local.tm_min,
          .second = local.tm_sec};
}

Answer CollectedReports::showMessage(const Message& message) {
  texts_.push_back(message.text);
  return firstButton(message.buttons);
}

void CollectedReports::showModal(Form& form) {
  form.pressCancel();
}

void ScriptFailures::report(const RuntimeFailure& failure) {
  reporting_.report(failure);
  show_();
}

void ScriptPrograms::start(const std::string& program, const std::vector<std::string>& arguments) {
  if (mayBeReached_) return local_.start(program, arguments);
  const std::string reason =
      "a script starts no other program (it needs --allow-io in front of --run)";
  if (lua_ != nullptr) raise(lua_, reason);
  throw RuntimeFailure(FailureNumber::PermissionDenied, program, reason);
}

void ScriptHost::showReports() {
  for (const std::string& text : reports.take()) prompts.showReport(text);
}

ErrorReporting ScriptHost::shownAsMessages() {
  ErrorReporting reporting;
  reporting.display = ReportDisplay::MessageBox;
  reporting.offersRetry = false;
  return reporting;
}

}  // namespace tess
