// The virtual clock: order of ticks, one-shot timers, and ticks that change timers.
#include "core/timers.h"

#include <stdexcept>

#include "gtest/gtest.h"

namespace tess {
namespace {

class VirtualTimersTest : public ::testing::Test {
 protected:
  std::unique_ptr<Timer> timer(const char* name, int interval, bool oneShot = false) {
    return clock.create({name, interval, oneShot}, [this, name] { note(name); });
  }
  void note(const std::string& name) { ticks += name + std::to_string(clock.now()) + " "; }

  VirtualTimers clock;
  std::string ticks;
};

TEST_F(VirtualTimersTest, ATimerStartsDisabled) {
  const auto a = timer("a", 50);
  clock.advance(1000);
  EXPECT_EQ(ticks, "");
  EXPECT_EQ(a->name(), "a");
  EXPECT_FALSE(a->enabled());
  EXPECT_EQ(clock.now(), 1000);
}

TEST_F(VirtualTimersTest, ARepeatingTimerFiresAtEachInterval) {
  const auto a = timer("a", 50);
  a->setEnabled(true);
  clock.advance(49);
  EXPECT_EQ(ticks, "");
  clock.advance(1);
  EXPECT_EQ(ticks, "a50 ");
  clock.advance(100);
  EXPECT_EQ(ticks, "a50 a100 a150 ");
}

TEST_F(VirtualTimersTest, AOneShotTimerFiresOnce) {
  const auto a = timer("a", 125, /*oneShot=*/true);
  a->setEnabled(true);
  clock.advance(1000);
  EXPECT_EQ(ticks, "a125 ");
  EXPECT_FALSE(a->enabled());
}

TEST_F(VirtualTimersTest, TicksFireInDueOrderAndTiesInTheOrderOfMaking) {
  const auto a = timer("a", 100);
  const auto b = timer("b", 50);
  const auto c = timer("c", 100);
  c->setEnabled(true);
  b->setEnabled(true);
  a->setEnabled(true);
  clock.advance(100);
  EXPECT_EQ(ticks, "b50 a100 b100 c100 ");
}

TEST_F(VirtualTimersTest, EnablingAnEnabledTimerLeavesItsPeriodRunning) {
  const auto a = timer("a", 100);
  a->setEnabled(true);
  clock.advance(60);
  a->setEnabled(true);
  clock.advance(40);
  EXPECT_EQ(ticks, "a100 ");
}

TEST_F(VirtualTimersTest, OffAndOnAgainStartsANewPeriod) {
  const auto a = timer("a", 100);
  a->setEnabled(true);
  clock.advance(60);
  a->setEnabled(false);
  a->setEnabled(true);
  clock.advance(99);
  EXPECT_EQ(ticks, "");
  clock.advance(1);
  EXPECT_EQ(ticks, "a160 ");
}

TEST_F(VirtualTimersTest, ATickMayDisableItsTimer) {
  std::unique_ptr<Timer> a;
  a = clock.create({"a", 10}, [&] {
    note("a");
    a->setEnabled(false);
  });
  a->setEnabled(true);
  clock.advance(100);
  EXPECT_EQ(ticks, "a10 ");
}

TEST_F(VirtualTimersTest, ATickMayEnableAnotherTimerThatFiresWithinTheSameWait) {
  const auto b = timer("b", 20, /*oneShot=*/true);
  const auto a = clock.create({"a", 10, /*oneShot=*/true}, [&] { b->setEnabled(true); });
  a->setEnabled(true);
  clock.advance(30);
  EXPECT_EQ(ticks, "b30 ");
}

TEST_F(VirtualTimersTest, ATickMayEndItsOwnTimer) {
  std::unique_ptr<Timer> a;
  a = clock.create({"a", 10}, [&] {
    a.reset();
    note("a");
  });
  a->setEnabled(true);
  clock.advance(100);
  EXPECT_EQ(ticks, "a10 ");
}

TEST_F(VirtualTimersTest, AnEndedTimerFiresNoMore) {
  auto a = timer("a", 10);
  a->setEnabled(true);
  a.reset();
  clock.advance(100);
  EXPECT_EQ(ticks, "");
}

TEST_F(VirtualTimersTest, ATickMayWaitItself) {
  const auto b = timer("b", 15);
  b->setEnabled(true);
  const auto a = clock.create({"a", 10, /*oneShot=*/true}, [&] { clock.advance(50); });
  a->setEnabled(true);
  clock.advance(20);
  EXPECT_EQ(ticks, "b15 b30 b45 b60 ");
  EXPECT_EQ(clock.now(), 60);
}

TEST_F(VirtualTimersTest, AFailureLeavesTheClockAtItsMoment) {
  const auto a = clock.create({"a", 10}, [] { throw std::runtime_error("tick"); });
  a->setEnabled(true);
  EXPECT_THROW(clock.advance(100), std::runtime_error);
  EXPECT_EQ(clock.now(), 10);
  EXPECT_TRUE(a->enabled());
}

}  // namespace
}  // namespace tess
