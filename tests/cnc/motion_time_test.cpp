// The time of moves under an acceleration: cases reckoned by hand, and any moves against a slow
// integration.
#include "cnc/motion_time.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "gtest/gtest.h"

namespace tess {
namespace {

constexpr double kUnitSpeed = 60;  // a minute, which is 1 a second
constexpr double kPi = 3.14159265358979323846;

Direction towards(double angle) {
  return {std::cos(angle), std::sin(angle)};
}

Leg line(double length, double angle = 0, double rate = kUnitSpeed) {
  return {.length = length, .rate = rate, .entry = towards(angle), .exit = towards(angle)};
}

MotionTimes timesOf(const std::vector<Leg>& legs, double acceleration = 1, double deviation = 0.1) {
  MotionTimer timer({.rapid = 100, .acceleration = acceleration, .deviation = deviation});
  for (const Leg& leg : legs) timer.add(leg);
  return timer.take();
}

double secondsOf(const std::vector<Leg>& legs) {
  return timesOf(legs).acceleratedMinutes * 60;
}

TEST(MotionTime, LongWayHasTwoRampsAndAStretchAtFullSpeed) {
  EXPECT_NEAR(secondsOf({line(10)}), 1 + 9 + 1, 1e-12);
  EXPECT_NEAR(timesOf({line(10)}).minutes * 60, 10, 1e-12);
}

TEST(MotionTime, ShortWayNeverReachesItsSpeed) {
  EXPECT_NEAR(secondsOf({line(0.25)}), 2 * std::sqrt(0.25), 1e-12);
  EXPECT_NEAR(secondsOf({line(1)}), 2, 1e-12);
}

TEST(MotionTime, WithoutAnAccelerationAllWaysAreAtFullSpeed) {
  const MotionTimes times = timesOf({line(10), line(2, 1)}, 0);
  EXPECT_NEAR(times.minutes * 60, 12, 1e-12);
  EXPECT_EQ(times.acceleratedMinutes, times.minutes);
}

TEST(MotionTime, PiecesOfOneWayTakeAsLongAsTheWhole) {
  const std::vector<Leg> pieces(100, line(0.1));
  EXPECT_NEAR(secondsOf(pieces), secondsOf({line(10)}), 1e-9);
}

// Half a turn of the corner is 45 degrees: the circle has a radius of 0.1 c / (1 - c), where c is
// the cosine of that.
TEST(MotionTime, RightAngleIsTakenAtTheSpeedOfItsCircle) {
  const double corner = std::sqrt(0.1 * std::sqrt(0.5) / (1 - std::sqrt(0.5)));
  ASSERT_NEAR(corner, 0.491346, 1e-6);
  const double way = 10 - 0.5 - (1 - corner * corner) / 2;
  EXPECT_NEAR(secondsOf({line(10), line(10, kPi / 2)}), 2 * (1 + way + (1 - corner)), 1e-9);
}

TEST(MotionTime, TurningBackIsAStop) {
  EXPECT_NEAR(secondsOf({line(10), line(10, kPi)}), 22, 1e-9);
}

TEST(MotionTime, SharperCornersAreSlower) {
  double before = 0;
  for (const double angle : {0.0, 0.1, 0.5, 1.0, 2.0, 3.0, kPi}) {
    const double seconds = secondsOf({line(10), line(10, angle)});
    EXPECT_GE(seconds, before);
    before = seconds;
  }
}

// Within 0.25 the machine cannot brake from 1 to a stop; it must begin on the leg before.
TEST(MotionTime, SpeedLeavesRoomToBrakeOnTheLegsThatFollow) {
  const double within = std::sqrt(2 * 0.25);
  const double braking = (1 - within) + within;
  EXPECT_NEAR(secondsOf({line(10), line(0.125), line(0.125)}), 1 + (10.25 - 1) + braking, 1e-9);
}

TEST(MotionTime, SlowLegIsEnteredAtItsOwnSpeed) {
  const Leg slow = line(1, 0, kUnitSpeed / 2);
  // 0.5 up to 1 and back to 0.5: ways of 0.5 and 0.375, and 9.125 at 1; then 0.875 at 0.5, 0.5
  // down.
  EXPECT_NEAR(secondsOf({line(10), slow}), 1 + 9.125 + 0.5 + 0.875 / 0.5 + 0.5, 1e-9);
}

TEST(MotionTime, SpeedOnAnArcKeepsToTheAcceleration) {
  const Leg circle{
      .length = 8, .rate = kUnitSpeed, .entry = towards(0), .exit = towards(0), .radius = 0.25};
  // At 0.5: ramps of half a second and 0.125 each.
  EXPECT_NEAR(secondsOf({circle}), 0.5 + 0.5 + 7.75 / 0.5, 1e-9);
}

TEST(MotionTime, StopsAndWaitsCutTheWayInTwo) {
  MotionTimer timer({.acceleration = 1, .deviation = 0.1});
  timer.add(line(5));
  timer.wait(0.5);
  timer.add(line(5));
  timer.stop();
  timer.add(line(5));
  const MotionTimes times = timer.take();
  EXPECT_NEAR(times.minutes * 60, 15 + 30, 1e-9);
  EXPECT_NEAR(times.acceleratedMinutes * 60, 3 * 6 + 30, 1e-9);
  EXPECT_EQ(timer.take().minutes, 0);
}

TEST(MotionTime, LegsWithoutALengthOrARateTakeNoTime) {
  EXPECT_NEAR(secondsOf({line(5), line(0, 1), line(5, 0, 0), line(5)}), 11, 1e-9);
}

// The whole way in small pieces: no piece faster than its leg, the corner before it, what the
// acceleration has given so far and what it can still take away before the end.
class Integration {
 public:
  Integration(const std::vector<Leg>& legs, double acceleration, double deviation) {
    for (std::size_t at = 0; at < legs.size(); ++at) {
      const bool first = at == 0;
      addLeg(legs[at], first ? 0 : corner(legs[at - 1], legs[at], acceleration, deviation),
             acceleration);
    }
    limits_.push_back(0);
    sweep(acceleration);
  }

  double seconds() const {
    double sum = 0;
    for (std::size_t at = 0; at + 1 < limits_.size(); ++at) {
      sum += 2 * kPiece / (limits_[at] + limits_[at + 1]);
    }
    return sum;
  }

  static constexpr double kPiece = 1e-4;

 private:
  static double corner(const Leg& before, const Leg& after, double acceleration, double deviation) {
    const double turn = std::acos(
        std::clamp(before.exit.x * after.entry.x + before.exit.y * after.entry.y, -1.0, 1.0));
    if (turn < 1e-9) return 1e9;
    const double half = std::cos(turn / 2);
    return std::sqrt(acceleration * deviation * half / (1 - half));
  }

  void addLeg(const Leg& leg, double entry, double acceleration) {
    double speed = leg.rate / 60;
    if (leg.radius > 0) speed = std::min(speed, std::sqrt(acceleration * leg.radius));
    const double before = limits_.empty() ? 0 : limits_.back();
    limits_.push_back(std::min({entry, speed, before}));
    const auto pieces = static_cast<std::size_t>(std::lround(leg.length / kPiece));
    limits_.insert(limits_.end(), pieces - 1, speed);
  }

  void sweep(double acceleration) {
    const double gain = 2 * acceleration * kPiece;
    for (std::size_t at = 1; at < limits_.size(); ++at) {
      limits_[at] = std::min(limits_[at], std::sqrt(limits_[at - 1] * limits_[at - 1] + gain));
    }
    for (std::size_t at = limits_.size() - 1; at-- > 0;) {
      limits_[at] = std::min(limits_[at], std::sqrt(limits_[at + 1] * limits_[at + 1] + gain));
    }
  }

  std::vector<double> limits_;  // speed at the ends of the pieces
};

TEST(MotionTime, AgreesWithASlowIntegration) {
  std::mt19937 random(20260311);  // NOLINT: the same legs on every run
  std::uniform_int_distribution<int> lengths(1, 400);
  std::uniform_real_distribution<double> angles(-1.5, 1.5);
  std::uniform_real_distribution<double> rates(5, 200);
  for (int round = 0; round < 6; ++round) {
    std::vector<Leg> legs;
    double heading = 0;
    for (int leg = 0; leg < 60; ++leg) {
      heading += leg % 3 == 0 ? 0 : angles(random);
      Leg next = line(lengths(random) * 0.005, heading, rates(random));
      if (leg % 5 == 0) next.radius = 0.3;
      legs.push_back(next);
    }
    const double expected = Integration(legs, 2, 0.01).seconds();
    EXPECT_NEAR(timesOf(legs, 2, 0.01).acceleratedMinutes * 60, expected, expected * 1e-3);
  }
}

}  // namespace
}  // namespace tess
