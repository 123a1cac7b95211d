// The clock and the failure road of scripts.
#include "shell/automation/script_host.h"

#include <ctime>

namespace tess {

DateTime VirtualClock::now() {
  const auto passed = std::chrono::milliseconds(static_cast<long long>(elapsed_));
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

void ScriptFailures::report(const RuntimeFailure& failure) {
  reporting_.report(failure);
  prompts_.showReport(reporting_.lastReport());
}

ErrorReporting ScriptHost::quietReporting() {
  ErrorReporting reporting;
  reporting.display = ReportDisplay::None;
  reporting.offersRetry = false;
  return reporting;
}

}  // namespace tess
