// Run-time failures: their standing descriptions, and the call chain of the one in flight.
#include "core/runtime_failure.h"

#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"

namespace tess {
namespace {

std::vector<std::string> chainTaken() {
  std::vector<std::string> methods;
  for (const CallLevel& level : takeCallChain()) methods.push_back(level.method);
  return methods;
}

void inner(bool fails) {
  const Procedure here("inner(fails)");
  if (fails) throw overflow();
}

void outer(bool fails) {
  const Procedure here("outer(fails)");
  inner(fails);
}

TEST(RuntimeFailure, NumbersHaveStandingDescriptions) {
  const std::vector<std::pair<int, const char*>> cases = {
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
      {53, "File not found"},
      {57, "Device I/O error"},
      {58, "File already exists"},
      {61, "Disk full"},
      {62, "Input past end of file"},
      {70, "Permission denied"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {1234, "Application-defined or object-defined error"}};
  for (const auto& [number, description] : cases) {
    EXPECT_STREQ(descriptionOf(static_cast<FailureNumber>(number)), description) << number;
  }
}

TEST(RuntimeFailure, CarriesNumberSourceDescriptionAndLine) {
  const RuntimeFailure failure(FailureNumber::InputPastEnd, "part.cdm");
  const unsigned line = __LINE__ - 1;
  EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
  EXPECT_EQ(failure.source(), "part.cdm");
  EXPECT_EQ(failure.description(), "Input past end of file");
  EXPECT_STREQ(failure.what(), "Input past end of file");
  EXPECT_EQ(failure.line(), line);
}

TEST(RuntimeFailure, MayDescribeItself) {
  const RuntimeFailure failure(FailureNumber::FileNotFound, "x", "No such drawing");
  EXPECT_EQ(failure.description(), "No such drawing");
}

TEST(RuntimeFailure, CommonOnesHaveMakersThatTellTheirLine) {
  EXPECT_EQ(overflow().number(), FailureNumber::Overflow);
  EXPECT_EQ(subscriptOutOfRange().number(), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(divisionByZero().number(), FailureNumber::DivisionByZero);
  EXPECT_EQ(typeMismatch().number(), FailureNumber::TypeMismatch);
  EXPECT_EQ(overflow().line(), static_cast<unsigned>(__LINE__));
}

TEST(CallChain, ListsTheRoutinesThatTheFailureLeftInnermostFirst) {
  takeCallChain();
  EXPECT_THROW(outer(true), RuntimeFailure);
  EXPECT_EQ(chainTaken(), (std::vector<std::string>{"inner(fails)", "outer(fails)"}));
}

TEST(CallChain, IsEmptyOnceTakenAndWithoutFailure) {
  EXPECT_THROW(outer(true), RuntimeFailure);
  takeCallChain();
  EXPECT_TRUE(takeCallChain().empty());
  outer(false);
  EXPECT_TRUE(takeCallChain().empty());
}

TEST(CallChain, LeavesOutRoutinesThatEndWellWhileAFailurePasses) {
  struct Cleaning {
    ~Cleaning() { outer(false); }
  };
  takeCallChain();
  const auto failing = [] {
    const Procedure here("failing()");
    const Cleaning cleaning;
    throw divisionByZero();
  };
  EXPECT_THROW(failing(), RuntimeFailure);
  EXPECT_EQ(chainTaken(), std::vector<std::string>{"failing()"});
}

}  // namespace
}  // namespace tess
