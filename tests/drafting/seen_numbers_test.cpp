// Numbers met before, and numbers that are there more than once.
#include "drafting/seen_numbers.h"

#include <algorithm>
#include <map>

#include "gtest/gtest.h"

#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using Numbers = std::vector<std::uint64_t>;

std::uint64_t anyNumber(Dice& dice) {
  return static_cast<std::uint64_t>(dice.below(1 << 30)) << 32U |
         static_cast<std::uint64_t>(dice.below(1 << 30));
}

TEST(SeenNumbers, KnowsEachNumberThatItHasMet) {
  Dice dice(31);
  for (const std::size_t count : {0U, 1U, 63U, 1000U}) {
    for (unsigned round = 0; round < 5; ++round) {
      SeenNumbers seen(count, round);
      Numbers numbers(count);
      for (std::uint64_t& number : numbers) {
        number = anyNumber(dice);
        seen.meet(number);
      }
      for (const std::uint64_t number : numbers) {
        EXPECT_TRUE(seen.has(number));
        EXPECT_TRUE(seen.meet(number));
      }
    }
  }
}

TEST(SeenNumbers, TakesFewForOneThatItHasNotMetAndOthersInAnotherRound) {
  constexpr std::size_t kCount = 30000;
  SeenNumbers first(kCount, 0), second(kCount, 1);
  int taken = 0, twice = 0;
  for (std::uint64_t number = 0; number < kCount; ++number) {
    first.meet(number);
    second.meet(number);
  }
  for (std::uint64_t number = kCount; number < 2 * kCount; ++number) {
    taken += first.has(number) ? 1 : 0;
    twice += first.has(number) && second.has(number) ? 1 : 0;
  }
  EXPECT_LT(taken, 2000);
  EXPECT_LT(twice, 200);
}

TEST(SeenNumbers, FindsAllRepeatedNumbersAndHardlyAnyOther) {
  Dice dice(1971);
  for (const int count : {0, 1, 2, 10, 5000}) {
    for (const int kinds : {1, 40, 1 << 29}) {
      Numbers numbers;
      std::map<std::uint64_t, int> times;
      for (int n = 0; n < count; ++n) {
        numbers.push_back(static_cast<std::uint64_t>(dice.below(kinds)) << 20U);
        ++times[numbers.back()];
      }
      const std::vector<bool> repeated = repeatedNumbers(numbers);
      ASSERT_EQ(repeated.size(), numbers.size());
      int wrong = 0;
      for (std::size_t n = 0; n < numbers.size(); ++n) {
        if (times[numbers[n]] > 1) {
          EXPECT_TRUE(repeated[n]) << n;
        } else {
          wrong += repeated[n] ? 1 : 0;
        }
      }
      EXPECT_LE(wrong, 3) << count << " of " << kinds;
    }
  }
}

}  // namespace
}  // namespace tess
