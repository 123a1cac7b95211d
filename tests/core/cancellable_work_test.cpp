// Work that the operator may end: when it is told how long it takes.
#include "core/cancellable_work.h"

#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "tests/support/recording_host.h"

namespace tess {
namespace {

TEST(CancellableWork, TellsOfItselfOnceItTakesLong) {
  testing::RecordingHost recording;
  std::vector<std::string> told;
  CancellableWork work(recording.host, [&](const std::string& text) { told.push_back(text); });
  const auto breatheAt = [&](double milliseconds) {
    recording.clock.elapsed = milliseconds;
    work.breathe();
  };
  breatheAt(0);
  breatheAt(499);
  EXPECT_TRUE(told.empty());
  for (const double milliseconds : {500, 700, 999, 1000, 1999, 4100, 4200}) breatheAt(milliseconds);
  EXPECT_EQ(told, (std::vector<std::string>{"0.5 s, Esc ends it", "1.0 s, Esc ends it",
                                            "1.5 s, Esc ends it", "4.0 s, Esc ends it"}));
}

TEST(CancellableWork, EndsAtTheFirstBreathAfterTheOperatorHasHadEnough) {
  testing::RecordingHost recording;
  recording.surroundings.cancelAt = 3;
  CancellableWork work(recording.host);
  const Breathing breathing = work.breathing();
  breathe(breathing);
  breathe(breathing);
  EXPECT_THROW(breathe(breathing), WorkCancelled);
}

TEST(CancellableWork, CanBeEndedAsLongAsItLives) {
  testing::RecordingHost recording;
  {
    const CancellableWork work(recording.host);
    EXPECT_TRUE(recording.surroundings.isCancellable);
  }
  EXPECT_FALSE(recording.surroundings.isCancellable);
}

TEST(CancellableWork, MayWaitForHalfASecondBeforeItServesEvents) {
  testing::RecordingHost recording;
  recording.surroundings.cancelAt = 1;
  CancellableWork work(recording.host, {}, CancellableWork::From::HalfASecond);
  recording.clock.elapsed = 499;
  work.breathe();
  EXPECT_EQ(recording.surroundings.eventsServed, 0);
  EXPECT_FALSE(recording.surroundings.isCancellable);
  recording.clock.elapsed = 500;
  EXPECT_THROW(work.breathe(), WorkCancelled);
  EXPECT_TRUE(recording.surroundings.isCancellable);
}

TEST(Breathing, MayBeEmpty) {
  EXPECT_NO_THROW(breathe({}));
}

}  // namespace
}  // namespace tess
