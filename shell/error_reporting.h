// Where run-time failures end: one guard round every entry point, the report with its call chain,
// the file "Errors.txt", and the offer to repeat the operation step by step.
// Owns: vbObjectError, ERRMAP_APP_FIRST, ERR_GENERAL, ReportDisplay, hostName, ErrorReporting,
//       HuntERR.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/host.h"
#include "core/runtime_failure.h"
#include "core/version.h"

namespace tess {

// Bases to which the report relates a failure's number: that of all objects, and the first number
// above the range that the platform keeps for itself.
inline constexpr std::int32_t vbObjectError = -2147221504;
inline constexpr std::int32_t ERRMAP_APP_FIRST = vbObjectError + 512;
// The number of failures that bring none of their own.
inline constexpr std::int32_t ERR_GENERAL = ERRMAP_APP_FIRST;

enum class ReportDisplay {
  Form,        // frmShowError
  MessageBox,  // a message with the error icon, for hosts without windows
  None         // only the log and lastReport()
};

// The name of this computer, "" when it has none.
std::string hostName();

struct ErrorReporting {
  std::string folder;  // where "Errors.txt" lies, with its last separator; empty writes no log
  std::string app = kProductName;
  std::string version = kVersionText;
  std::string computer = hostName();
  ReportDisplay display = ReportDisplay::Form;
  // Off where nobody answers: without an operator the retry would repeat for ever.
  bool offersRetry = true;
};

// Collects one failure at a time. Of exceptions only EndProgram, and what is no std::exception,
// leave a guarded run; the reporter itself raises nothing.
class HuntERR : public FailureSink {
 public:
  HuntERR(Prompts& prompts, Clock& clock, ErrorReporting reporting);

  // Runs an entry point (a command, an event, a timer). A failure that leaves it is shown and
  // logged, and the operator may have the entry run again in step mode, in which a failure stops at
  // each level of the chain, innermost first. False when it ended in a failure. `entry` is the
  // outermost level of the chain. Guarded runs may nest.
  bool guarded(std::string_view entry, const std::function<void()>& run);

  // Shows and logs a failure that its routine survives, with the levels it has passed; no retry.
  void report(const RuntimeFailure& failure) override;

  // The steps of a handler, in the order of use. ErrPreserve is the first act: it copies the
  // exception being handled and takes its call chain; later calls for the same failure do nothing.
  void ErrPreserve() noexcept;
  // In step mode asks whether the failed entry shall run again; true means yes, and the failure is
  // forgotten.
  bool ShouldRetry() noexcept;
  // Adds a level to the report: the procedure with its argument list, and values worth logging.
  void ErrorIn(std::string_view MethodName, const std::vector<std::string>& values = {}) noexcept;
  // The end of the chain: shows the report, logs it, and forgets the failure.
  void HandleError() noexcept;

  // The system's text for an error number, 256 characters at most.
  std::string WinError(int lLastDLLError);
  // Removes the exception filter. While it is installed, as every guarded run and WinError do,
  // exceptions of the language and the system are reported under a standard code and name.
  void SysExcHandler() noexcept { filterInstalled_ = false; }
  bool isFilterInstalled() const { return filterInstalled_; }

  // "NoStop" after a CANCEL at a stop, for the rest of the program's run; else empty.
  const std::string& stopMode() const { return stopMode_; }
  // The text of the last report; empty before the first.
  const std::string& lastReport() const { return lastReport_; }
  // The program's folder, once it is known.
  void setFolder(std::string folder) { reporting_.folder = std::move(folder); }

 private:
  // A copy of the error state.
  struct Preserved {
    bool held = false;
    std::int32_t number = 0;
    std::string source;
    std::string description;
    unsigned line = 0;             // 0 when not known
    int lastSystemError = 0;       // 0 when the system had none
    std::vector<CallLevel> chain;  // innermost first
  };
  // A failure on its way up, with what is known of its report.
  struct Collected {
    Preserved error;
    std::string method;               // the innermost procedure
    std::vector<std::string> levels;  // lines of the call stack
  };
  class Fresh;

  bool attempt(std::string_view entry, const std::function<void()>& run);
  void endChainAt(std::string_view entry);
  bool stopAtLevels();
  void reportChain() noexcept;
  bool acceptsStepMode();
  void installExceptionFilter() noexcept;
  void preserve(const std::exception_ptr& present);
  void preserve(const std::exception& failure);
  void holdGeneral(const char* description);
  bool mayStop() const;
  Answer askAtStop();
  std::string reportText();
  std::string heading() const;
  void show(const std::string& text) noexcept;
  void appendToLog(const std::string& text) const;

  Prompts& prompts_;
  Clock& clock_;
  ErrorReporting reporting_;
  Collected now_;
  std::string stopMode_;
  std::string lastReport_;
  bool stepMode_ = false;
  bool stopped_ = false;
  bool filterInstalled_ = false;
};

}  // namespace tess
