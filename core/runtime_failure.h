// Run-time failures: numbered exceptions that name their place, and the one-line trace object that
// adds a routine to the call chain when a failure passes through it.
// Owns: FailureNumber, descriptionOf, RuntimeFailure, overflow, subscriptOutOfRange,
//       divisionByZero, typeMismatch, CallLevel, Procedure, takeCallChain.
#pragma once

#include <exception>
#include <source_location>
#include <string>
#include <vector>

namespace tess {

// The numbers are part of the report and of the log.
enum class FailureNumber : int {
  InvalidProcedureCall = 5,
  Overflow = 6,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  FileNotFound = 53,
  DeviceInputOutput = 57,
  FileExists = 58,
  DiskFull = 61,
  InputPastEnd = 62,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
};

// The standing description of a failure number, as in "Input past end of file".
const char* descriptionOf(FailureNumber number);

// A failure of the running program, as distinct from an operator's error.
class RuntimeFailure : public std::exception {
 public:
  // `source` says where the trouble lies as far as it is known: a file with line and field.
  explicit RuntimeFailure(FailureNumber number, std::string source = {},
                          std::source_location place = std::source_location::current());
  RuntimeFailure(FailureNumber number, std::string source, std::string description,
                 std::source_location place = std::source_location::current());

  const char* what() const noexcept override;
  FailureNumber number() const { return number_; }
  const std::string& description() const { return description_; }
  const std::string& source() const { return source_; }
  unsigned line() const { return line_; }

 private:
  FailureNumber number_;
  std::string source_;
  std::string description_;
  unsigned line_;
};

RuntimeFailure overflow(std::source_location place = std::source_location::current());
RuntimeFailure subscriptOutOfRange(std::source_location place = std::source_location::current());
RuntimeFailure divisionByZero(std::source_location place = std::source_location::current());
RuntimeFailure typeMismatch(std::source_location place = std::source_location::current());

// One routine that a failure left, innermost first.
struct CallLevel {
  std::string method;
};

// Names the routine it stands in, with its argument list, as in
//   const Procedure here("Main()");
// It costs nothing until an exception passes, and then adds its level to the chain.
class Procedure {
 public:
  explicit Procedure(const char* method) noexcept
      : method_(method), inFlight_(std::uncaught_exceptions()) {}
  ~Procedure();
  Procedure(const Procedure&) = delete;
  Procedure& operator=(const Procedure&) = delete;

 private:
  const char* method_;
  int inFlight_;
};

// The levels that the last failure passed, innermost first; empties the chain. Whoever catches a
// failure takes the chain, so that the next failure starts with none.
std::vector<CallLevel> takeCallChain() noexcept;

}  // namespace tess
