// The time of a script: when it is over, and who is told.
#include "shell/automation/watchdog.h"

#include <chrono>
#include <future>

#include "gtest/gtest.h"

namespace tess {
namespace {

using std::chrono::seconds;

TEST(Watchdog, CallsForTheEndOfWhoDoesNotHear) {
  std::promise<void> hung;
  Watchdog watchdog(0.01, [&] { hung.set_value(); });
  watchdog.start();
  ASSERT_EQ(hung.get_future().wait_for(seconds(30)), std::future_status::ready);
  EXPECT_TRUE(watchdog.isOver());
}

TEST(Watchdog, LeavesAloneWhoEndsInTime) {
  bool hung = false;
  for (const double time : {0.0, 1000.0}) {
    Watchdog watchdog(time, [&] { hung = true; });
    watchdog.start();
    EXPECT_FALSE(watchdog.isOver());
  }
  EXPECT_FALSE(hung);
}

TEST(Watchdog, LeavesAMomentForAnEndInOrder) {
  bool hung = false;
  {
    Watchdog watchdog(0.001, [&] { hung = true; });
    watchdog.start();
    while (!watchdog.isOver()) std::this_thread::yield();
  }
  EXPECT_FALSE(hung);
}

TEST(Watchdog, SaysHowLongItWas) {
  EXPECT_EQ(Watchdog(2, nullptr).complaint(), "the script has run longer than 2 s");
  EXPECT_EQ(Watchdog(0.25, nullptr).complaint(), "the script has run longer than 0.25 s");
}

TEST(ExitAtOnce, EndsTheProcessWithItsLine) {
  EXPECT_EXIT(exitAtOnce("tessimo: too long"), ::testing::ExitedWithCode(1),
              "^tessimo: too long\n$");
}

}  // namespace
}  // namespace tess
