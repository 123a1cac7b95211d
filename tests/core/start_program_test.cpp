// Starting other programs: what they are started with, and what keeps them from it.
#include "core/start_program.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/descriptor.h"
#include "core/runtime_failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/stand_in_program.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAreArray;
using testing::numberOfFailure;
using testing::StandInProgram;
using testing::TempFolder;

FailureNumber failureToStart(const std::string& program) {
  return numberOfFailure([&] { startProgram(program, {"part.cnc"}); });
}

TEST(StartProgram, ArgumentsComeAsTheyAre) {
  const StandInProgram program;
  const std::vector<std::string> arguments{"$(touch x)",
                                           "a b  c ",
                                           "\"quoted\" and 'quoted'",
                                           "two\nlines\r",
                                           "",
                                           "-rf",
                                           "*",
                                           "\\",
                                           "%s",
                                           "; touch x &",
                                           "\xFF\xFE"};
  startProgram(program.path(), arguments);
  EXPECT_THAT(program.arguments(), ElementsAreArray(arguments));
}

TEST(StartProgram, NobodyWaitsForTheEndOfTheProgram) {
  const StandInProgram program;
  startProgram(program.path(), {});
  program.told();
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD) << "a child of this process is left";
}

TEST(StartProgram, OpenFilesStayThisProcesss) {
  const StandInProgram program("ls -l /proc/$$/fd");
  const TempFolder folder;
  folder.write("secret", "");
  const Descriptor open(::open(folder("secret").c_str(), O_RDONLY));
  ASSERT_TRUE(open.isOpen());
  startProgram(program.path(), {});
  EXPECT_EQ(program.told().find("secret"), std::string::npos);
}

TEST(StartProgram, TheProgramHasASessionOfItsOwn) {
  // Behind the name in brackets: state, parent, group, session.
  const StandInProgram program("sed 's/.*) //' /proc/$$/stat | cut -d ' ' -f 4");
  startProgram(program.path(), {});
  EXPECT_NE(std::stoi(program.told()), ::getsid(0));
}

TEST(StartProgram, WhatCannotBeStartedIsAFileFailure) {
  const TempFolder folder;
  EXPECT_EQ(failureToStart(folder("gone")), FailureNumber::FileNotFound);
  EXPECT_EQ(failureToStart(folder()), FailureNumber::PathFileAccess);
  folder.write("plain", "#!/bin/sh\n");
  EXPECT_EQ(failureToStart(folder("plain")), FailureNumber::PermissionDenied);
  folder.write("text", "no program at all");
  fs::permissions(folder("text"), fs::perms::owner_all);
  EXPECT_EQ(failureToStart(folder("text")), FailureNumber::PathFileAccess)
      << "no shell tries to make sense of it";
}

TEST(StartProgram, AZeroByteIsRefused) {
  const StandInProgram program;
  const std::string cut("a\0b", 3);
  EXPECT_EQ(numberOfFailure([&] { startProgram(program.path(), {cut}); }),
            FailureNumber::InvalidProcedureCall);
  EXPECT_EQ(failureToStart(program.path() + cut), FailureNumber::InvalidProcedureCall);
  EXPECT_FALSE(program.wasStarted());
}

TEST(StartProgram, WhatIsNoProgramIsToldBeforehand) {
  const TempFolder folder;
  const StandInProgram program;
  folder.write("plain", "");
  const testing::WorkingFolder there(folder());
  EXPECT_EQ(programProblem(program.path()), std::nullopt);
  EXPECT_EQ(programProblem(folder("gone")), "is not there");
  EXPECT_EQ(programProblem(folder()), "is a folder");
  EXPECT_EQ(programProblem("/dev/null"), "is no file");
  EXPECT_EQ(programProblem(""), "is no full path");
  EXPECT_EQ(programProblem("plain"), "is no full path");
  EXPECT_EQ(programProblem(program.path() + std::string("\0x", 2)), "is not there");
  EXPECT_EQ(programProblem(folder("plain")), "cannot be executed");
}

}  // namespace
}  // namespace tess
