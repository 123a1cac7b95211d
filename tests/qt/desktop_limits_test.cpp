// What is said of limits that a window cannot live with, and which scales it has.
#include "shell/qt/desktop_limits.h"

#include <QByteArray>

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

// What is left of a scale in the environment.
QByteArray scaleLeftOf(const char* scale) {
  const QByteArray before = qgetenv("QT_SCALE_FACTOR");
  qputenv("QT_SCALE_FACTOR", scale);
  keepUsableScale();
  const QByteArray left = qgetenv("QT_SCALE_FACTOR");
  before.isNull() ? qunsetenv("QT_SCALE_FACTOR") : qputenv("QT_SCALE_FACTOR", before);
  return left;
}

TEST(DesktopLimits, AScaleThatShowsNoWholeWindowIsLeftOut) {
  for (const char* const scale : {"0.5", "0.99", "0", "-1", "100", "nan"}) {
    EXPECT_EQ(scaleLeftOf(scale), "") << scale;
  }
  for (const char* const scale : {"1", "1.25", "2", "8", "of my own"}) {
    EXPECT_EQ(scaleLeftOf(scale), scale) << "the toolkit knows what it does with it";
  }
}

}  // namespace
}  // namespace tess
