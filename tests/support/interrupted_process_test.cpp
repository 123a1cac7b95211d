// The tool of the interruption tests does what it says: otherwise they would prove nothing.
#include "tests/support/interrupted_process.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using testing::interruptedAt;
using testing::Interruption;
using testing::pointsWithin;
using testing::TempFolder;

// Three calls on files, with nothing in front of them: create, write, name once more. A write that
// fails leaves a word about it.
void leaveTraces(const std::string& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (::write(file, "12345678", 8) == 8) {
    static_cast<void>(!::link(path.c_str(), (path + " again").c_str()));
  } else {
    static_cast<void>(!::write(file, errno == ENOSPC ? "full" : "torn", 4));
  }
}

struct Traces {
  // What stands in the folder after each interruption, and after the attempt that came through;
  // calls that change nothing there are passed over.
  std::vector<std::string> seenAfter(Interruption how) {
    std::vector<std::string> seen;
    const auto look = [&] {
      seen.push_back(!folder.has("f") ? "nothing" : folder.read("f"));
      if (folder.has("f again")) seen.back() += " twice";
    };
    pointsWithin(how, {.prepare =
                           [&] {
                             ::unlink(folder("f").c_str());
                             ::unlink(folder("f again").c_str());
                           },
                       .work = [&] { leaveTraces(folder("f")); },
                       .check = look});
    look();
    seen.erase(std::unique(seen.begin(), seen.end()), seen.end());
    return seen;
  }

  TempFolder folder;
};

TEST(InterruptedProcess, DiesBeforeTheCallThatIsNamed) {
  EXPECT_THAT(Traces().seenAfter(Interruption::Killed),
              ElementsAre("nothing", "", "12345678", "12345678 twice"));
}

TEST(InterruptedProcess, DiesInTheMiddleOfAWrite) {
  EXPECT_THAT(Traces().seenAfter(Interruption::KilledInMidWrite),
              ElementsAre("1234", "12345678 twice"));
}

TEST(InterruptedProcess, CallFailsAndTheWorkGoesOn) {
  EXPECT_THAT(Traces().seenAfter(Interruption::NoSpace),
              ElementsAre("nothing", "full", "12345678", "12345678 twice"));
  EXPECT_THAT(Traces().seenAfter(Interruption::InputOutputError),
              ElementsAre("nothing", "torn", "12345678", "12345678 twice"));
}

TEST(InterruptedProcess, WorkThatThrowsHasEnded) {
  EXPECT_FALSE(interruptedAt(1000, Interruption::Killed, [] { throw std::runtime_error("over"); }));
}

TEST(InterleavedProcess, MeetsWhatTheTestDoesBetweenAnyTwoOfItsCalls) {
  const TempFolder folder;
  std::vector<std::string> seen;
  for (int call = 1;; ++call) {
    ::unlink(folder("f").c_str());
    ::unlink(folder("f again").c_str());
    const auto meanwhile = [&] { folder.write("f", "from outside"); };
    if (!testing::interleavedAt(call, meanwhile, [&] { leaveTraces(folder("f")); })) break;
    seen.push_back(folder.read("f"));
  }
  ASSERT_GE(seen.size(), 3U);
  // Before it is created: it cannot be. Before the write: that goes over it. Before the second
  // name: it is written already.
  seen.erase(std::unique(seen.begin(), seen.end()), seen.end());
  EXPECT_THAT(seen, ElementsAre("from outside", "12345678side", "from outside"));
}

}  // namespace
}  // namespace tess
