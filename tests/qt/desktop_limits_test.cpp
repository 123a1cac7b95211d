// What is said of limits that a window cannot live with.
#include "shell/qt/desktop_limits.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

TEST(DesktopLimits, ThoseOfThisProcessSuffice) {
  EXPECT_EQ(troubleWith(processLimits()), "");
  EXPECT_EQ(troubleWith({}), "") << "where there are none";
  EXPECT_EQ(troubleWith({.openFiles = 20, .memory = 200000000}), "");
}

TEST(DesktopLimits, TooLittleIsToldWithWhatIsNeeded) {
  EXPECT_EQ(troubleWith({.openFiles = 19}),
            "the window needs 20 open files (ulimit -n), and the limit is 19");
  EXPECT_EQ(troubleWith({.memory = 199999999}),
            "the window needs 200 MB of address space (ulimit -v), and the limit is 199");
}

}  // namespace
}  // namespace tess
