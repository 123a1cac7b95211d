// The guard round entry points and the report of what it caught. Reporting never fails: whatever
// goes wrong in here is passed over, so that the failure reported stays the one that is seen.
#include "shell/error_reporting.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

#include "core/file_writer.h"
#include "core/session.h"
#include "shell/frmShowError.h"

namespace tess {
namespace {

constexpr char kReportTemplate[] =
    "%Descr% %nl%"
    "  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' Computer='%Comp%' %nl%"
    "  Method: %MethodName% %nl%"
    "  Number: %ErrNum% = &H%ErrHex% = vbObjectError %ErrNumRel1%"
    " = ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%"
    "  Source: %Source% %nl%"
    "  Description: %Descr%%nl%";

constexpr char kErrorLost[] =
    "ErrorIn: Error information was lost. "
    "To fix: call ErrPreserve before doing anything in error handler.";

constexpr char kNoStop[] = "NoStop";
constexpr std::size_t kLongestSystemText = 256;
// Bytes of the log; a longer one is put aside, in place of the one before it.
constexpr off_t kLongestLog = off_t{4} << 20;

// Runs a step of the reporter; a failure of it is passed over.
template <class Step>
void ignoringErrors(Step step) noexcept {
  try {
    step();
  } catch (...) {
    takeCallChain();
  }
}

// A member that has another value for a while.
template <class Value>
class Restored {
 public:
  explicit Restored(Value& value) : value_(value), before_(value) {}
  ~Restored() { value_ = before_; }
  Restored(const Restored&) = delete;
  Restored& operator=(const Restored&) = delete;

 private:
  Value& value_;
  Value before_;
};

template <class... Arguments>
std::string printed(const char* pattern, Arguments... arguments) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), pattern, arguments...);
  return text.data();
}

std::string hexText(std::uint32_t number) {
  return printed("%X", number);
}

// The distance from a base with its sign, so that base and distance read as a sum.
std::string relativeText(std::int32_t number, std::int32_t base) {
  return printed("%+lld", static_cast<long long>(number) - base);
}

std::string timeOfDay(const DateTime& time) {
  return printed("%02d:%02d:%02d", time.hour, time.minute, time.second);
}

std::string dateAndTime(const DateTime& time) {
  return printed("%02d/%02d/%02d ", time.month, time.day, time.year % 100) + timeOfDay(time);
}

struct Field {
  std::string_view name;
  std::string value;
};

// The template with each %field% replaced; values are not searched for fields again.
std::string filledIn(std::string_view pattern, std::initializer_list<Field> fields) {
  std::string text;
  while (!pattern.empty()) {
    const Field* found = nullptr;
    for (const Field& field : fields) {
      if (pattern.starts_with(field.name)) found = &field;
    }
    text += found == nullptr ? std::string(1, pattern.front()) : found->value;
    pattern.remove_prefix(found == nullptr ? 1 : found->name.size());
  }
  return text;
}

// What the platform calls the standard exceptions.
struct StandardException {
  bool (*matches)(const std::exception&);
  std::uint32_t code;
  const char* name;
};

template <class Kind>
bool isA(const std::exception& failure) {
  return dynamic_cast<const Kind*>(&failure) != nullptr;
}

constexpr StandardException kStandardExceptions[] = {
    {isA<std::bad_alloc>, 0xC0000017, "No memory"},
    {isA<std::invalid_argument>, 0xC000000D, "Invalid parameter"},
    {isA<std::out_of_range>, 0xC000008C, "Array bounds exceeded"},
    {isA<std::length_error>, 0xC000008C, "Array bounds exceeded"},
    {isA<std::domain_error>, 0xC0000090, "Float invalid operation"},
    {isA<std::overflow_error>, 0xC0000091, "Float overflow"},
    {isA<std::underflow_error>, 0xC0000093, "Float underflow"},
    {isA<std::bad_exception>, 0xC0000025, "Noncontinuable exception"},
};

struct Coded {
  std::int32_t number;
  std::string name;
};

Coded codedAs(const std::exception& failure) {
  if (const auto* system = dynamic_cast<const std::system_error*>(&failure)) {
    return {system->code().value(), system->code().message()};
  }
  for (const StandardException& standard : kStandardExceptions) {
    if (standard.matches(failure)) {
      return {static_cast<std::int32_t>(standard.code), standard.name};
    }
  }
  return {ERR_GENERAL, failure.what()};
}

// An exception may carry the one that caused it; the innermost with a description counts. Calls
// `use` with it.
template <class Use>
void withInnermost(const std::exception& failure, Use use) {
  const auto* outer = dynamic_cast<const std::nested_exception*>(&failure);
  if (outer == nullptr || outer->nested_ptr() == nullptr) return use(failure);
  try {
    outer->rethrow_nested();
  } catch (const std::exception& inner) {
    withInnermost(inner, use);
  } catch (...) {
    use(failure);
  }
}

}  // namespace

std::string hostName() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

// Puts the failure being collected aside while an inner run or report uses the same reporter.
class HuntERR::Fresh {
 public:
  explicit Fresh(HuntERR& reporter)
      : reporter_(reporter), outer_(std::exchange(reporter.now_, Collected{})) {}
  ~Fresh() { reporter_.now_ = std::move(outer_); }
  Fresh(const Fresh&) = delete;
  Fresh& operator=(const Fresh&) = delete;

 private:
  HuntERR& reporter_;
  Collected outer_;
};

HuntERR::HuntERR(Prompts& prompts, Clock& clock, ErrorReporting reporting)
    : prompts_(prompts), clock_(clock), reporting_(std::move(reporting)) {}

bool HuntERR::guarded(std::string_view entry, const std::function<void()>& run) {
  const Fresh fresh(*this);
  const Restored<bool> stepMode(stepMode_);
  installExceptionFilter();
  for (;;) {
    if (attempt(entry, run)) return true;
    if (stopAtLevels()) continue;
    reportChain();
    // Once in step mode the offer has been made, by this run or by one around it.
    if (stepMode_ || !acceptsStepMode()) return false;
    stepMode_ = true;
  }
}

bool HuntERR::attempt(std::string_view entry, const std::function<void()>& run) {
  takeCallChain();
  errno = 0;
  try {
    run();
    return true;
  } catch (const EndProgram&) {
    throw;
  } catch (const std::exception&) {
    ErrPreserve();
  }
  ignoringErrors([&] { endChainAt(entry); });
  return false;
}

// An entry point that names itself as a procedure too is one level, not two.
void HuntERR::endChainAt(std::string_view entry) {
  std::vector<CallLevel>& chain = now_.error.chain;
  const bool named = !chain.empty() && chain.back().method == entry;
  if (!named && !entry.empty()) chain.push_back({std::string(entry)});
}

bool HuntERR::stopAtLevels() {
  for (std::size_t level = now_.error.chain.size(); level > 0; --level) {
    if (ShouldRetry()) return true;
  }
  return false;
}

void HuntERR::reportChain() noexcept {
  const std::vector<CallLevel> chain = std::move(now_.error.chain);
  for (const CallLevel& level : chain) ErrorIn(level.method);
  HandleError();
}

bool HuntERR::acceptsStepMode() {
  if (!reporting_.offersRetry || stopped_ || stopMode_ == kNoStop) return false;
  Answer answer = Answer::No;
  ignoringErrors([&] {
    answer = prompts_.showMessage({.text = "Do you want to retry the operation in step mode?",
                                   .title = reporting_.app,
                                   .icon = MessageIcon::Question,
                                   .buttons = MessageButtons::YesNo});
  });
  return answer == Answer::Yes;
}

void HuntERR::report(const RuntimeFailure& failure) {
  ignoringErrors([&] {
    const Fresh fresh(*this);
    preserve(failure);
    now_.error.lastSystemError = errno;
    now_.error.chain = takeCallChain();
    reportChain();
  });
}

// Collecting

void HuntERR::ErrPreserve() noexcept {
  const int systemError = errno;
  const std::exception_ptr present = std::current_exception();
  if (now_.error.held || !present) return;
  std::vector<CallLevel> chain = takeCallChain();
  ignoringErrors([&] { preserve(present); });
  now_.error.held = true;
  now_.error.lastSystemError = systemError;
  now_.error.chain = std::move(chain);
}

void HuntERR::preserve(const std::exception_ptr& present) {
  try {
    std::rethrow_exception(present);
  } catch (const std::exception& failure) {
    withInnermost(failure, [this](const std::exception& inner) { preserve(inner); });
  } catch (...) {
    holdGeneral("Unknown exception");
  }
}

void HuntERR::preserve(const std::exception& failure) {
  Preserved error;
  error.held = true;
  if (const auto* numbered = dynamic_cast<const RuntimeFailure*>(&failure)) {
    error.number = static_cast<std::int32_t>(numbered->number());
    error.source = numbered->source();
    error.description = numbered->description();
    error.line = numbered->line();
  } else if (const Coded coded = codedAs(failure);
             filterInstalled_ && coded.number != ERR_GENERAL) {
    error.number = coded.number;
    error.source = failure.what();
    error.description =
        "(&H" + hexText(static_cast<std::uint32_t>(coded.number)) + ") " + coded.name;
  } else {
    return holdGeneral(failure.what());
  }
  now_.error = std::move(error);
}

void HuntERR::holdGeneral(const char* description) {
  now_.error = {};
  now_.error.held = true;
  now_.error.number = ERR_GENERAL;
  now_.error.description = description;
}

void HuntERR::installExceptionFilter() noexcept {
  if (filterInstalled_) SysExcHandler();
  filterInstalled_ = true;
}

void HuntERR::ErrorIn(std::string_view MethodName,
                      const std::vector<std::string>& values) noexcept {
  ignoringErrors([&] {
    if (!now_.error.held) holdGeneral(kErrorLost);
    std::string line(MethodName);
    for (const std::string& value : values) line += " [" + value + "]";
    if (!now_.levels.empty()) {
      line += " (Propagated)";
    } else {
      now_.method = MethodName;
      if (now_.error.line != 0) line += "  at Line " + std::to_string(now_.error.line);
    }
    now_.levels.push_back(std::move(line));
  });
}

// Stopping

bool HuntERR::mayStop() const {
  return now_.error.held && stepMode_ && !stopped_ && stopMode_ != kNoStop;
}

bool HuntERR::ShouldRetry() noexcept {
  ErrPreserve();
  if (!mayStop()) return false;
  Answer answer = Answer::No;
  ignoringErrors([&] { answer = askAtStop(); });
  if (answer == Answer::Cancel) stopMode_ = kNoStop;
  if (answer == Answer::Yes) now_ = {};
  return answer == Answer::Yes;
}

// The box serves events, whose failures must not stop in their turn.
Answer HuntERR::askAtStop() {
  const Restored<bool> stopped(stopped_);
  stopped_ = true;
  return prompts_.showMessage(
      {.text = "Stopped on error: " + now_.error.description + "\n\n" + timeOfDay(clock_.now()) +
               "\nClick YES to retry, NO to move to the caller, CANCEL for no more stops",
       .title = "Stopped on Error",
       .icon = MessageIcon::Error,
       .buttons = MessageButtons::YesNoCancel});
}

// Reporting

void HuntERR::HandleError() noexcept {
  if (!now_.error.held) return;
  ignoringErrors([&] {
    // Whatever keeps the report from being made, the description is left to tell.
    std::string text = now_.error.description;
    ignoringErrors([&] { text = reportText(); });
    now_ = {};
    lastReport_ = text;
    show(text);
    appendToLog(text);
  });
  now_ = {};
}

std::string HuntERR::heading() const {
  const Preserved& error = now_.error;
  return filledIn(kReportTemplate,
                  {{"%nl%", "\n"},
                   {"%Descr%", error.description},
                   {"%Time%", dateAndTime(clock_.now())},
                   {"%App%", reporting_.app},
                   {"%Ver%", reporting_.version},
                   {"%ADOVersion%", ""},
                   {"%Comp%", reporting_.computer},
                   {"%MethodName%", now_.method},
                   {"%ErrNum%", std::to_string(error.number)},
                   {"%ErrHex%", hexText(static_cast<std::uint32_t>(error.number))},
                   {"%ErrNumRel1%", relativeText(error.number, vbObjectError)},
                   {"%ErrNumRel2%", relativeText(error.number, ERRMAP_APP_FIRST)},
                   {"%ErrStd%", error.number == ERR_GENERAL ? "= ERR_GENERAL" : ""},
                   {"%Source%", error.source}});
}

std::string HuntERR::reportText() {
  std::string text = heading() + "  Call Stack: \n";
  for (const std::string& level : now_.levels) text += "    " + level + "\n";
  if (const int error = now_.error.lastSystemError) {
    text += "  API Error: (" + std::to_string(error) + ") " + WinError(error) + "\n";
  }
  return text;
}

void HuntERR::show(const std::string& text) noexcept {
  switch (reporting_.display) {
    case ReportDisplay::Form:
      return ignoringErrors([&] { frmShowError(prompts_).ErrorReport(text); });
    case ReportDisplay::MessageBox:
      return showPlainReport(prompts_, text);
    case ReportDisplay::None:
      return;
  }
}

void HuntERR::appendToLog(const std::string& text) const {
  if (text.empty() || reporting_.folder.empty()) return;
  NoGuard nobody;  // its name and its folder are the program's own
  ignoringErrors([&] {
    const FilePlace log(nobody, reporting_.folder + "Errors.txt", FileKind::Record);
    const auto before = log.state();
    if (before && before->st_size > kLongestLog) {
      log.moveTo(log.beside(log.name() + "~", FileKind::Record));
    }
    log.append("\n" + text + "\n");
  });
}

std::string HuntERR::WinError(int lLastDLLError) {
  installExceptionFilter();
  return std::system_category().message(lLastDLLError).substr(0, kLongestSystemText);
}

}  // namespace tess
