// Run-time failures: their standing descriptions and the call chain of the one in flight.
#include "core/runtime_failure.h"

#include <utility>

namespace tess {
namespace {

thread_local std::vector<CallLevel> chain;

}  // namespace

const char* descriptionOf(FailureNumber number) {
  switch (number) {
    case FailureNumber::InvalidProcedureCall:
      return "Invalid procedure call or argument";
    case FailureNumber::Overflow:
      return "Overflow";
    case FailureNumber::SubscriptOutOfRange:
      return "Subscript out of range";
    case FailureNumber::DivisionByZero:
      return "Division by zero";
    case FailureNumber::TypeMismatch:
      return "Type mismatch";
    case FailureNumber::FileNotFound:
      return "File not found";
    case FailureNumber::DeviceInputOutput:
      return "Device I/O error";
    case FailureNumber::FileExists:
      return "File already exists";
    case FailureNumber::DiskFull:
      return "Disk full";
    case FailureNumber::InputPastEnd:
      return "Input past end of file";
    case FailureNumber::PermissionDenied:
      return "Permission denied";
    case FailureNumber::PathFileAccess:
      return "Path/File access error";
    case FailureNumber::PathNotFound:
      return "Path not found";
  }
  return "Application-defined or object-defined error";
}

RuntimeFailure::RuntimeFailure(FailureNumber number, std::string source, std::source_location place)
    : RuntimeFailure(number, std::move(source), descriptionOf(number), place) {}

RuntimeFailure::RuntimeFailure(FailureNumber number, std::string source, std::string description,
                               std::source_location place)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      line_(place.line()) {}

const char* RuntimeFailure::what() const noexcept {
  return description_.c_str();
}

RuntimeFailure overflow(std::source_location place) {
  return RuntimeFailure(FailureNumber::Overflow, {}, place);
}

RuntimeFailure subscriptOutOfRange(std::source_location place) {
  return RuntimeFailure(FailureNumber::SubscriptOutOfRange, {}, place);
}

RuntimeFailure divisionByZero(std::source_location place) {
  return RuntimeFailure(FailureNumber::DivisionByZero, {}, place);
}

RuntimeFailure typeMismatch(std::source_location place) {
  return RuntimeFailure(FailureNumber::TypeMismatch, {}, place);
}

Procedure::~Procedure() {
  if (std::uncaught_exceptions() <= inFlight_) return;
  try {
    chain.push_back({method_});
  } catch (...) {
    // Out of memory while unwinding: a shorter chain is better than a lost failure.
  }
}

std::vector<CallLevel> takeCallChain() noexcept {
  return std::exchange(chain, {});
}

}  // namespace tess
