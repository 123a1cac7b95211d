// Dates and times of day as texts.
#include "core/date_text.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

TEST(DateText, PadsEveryPartWithZeros) {
  const DateTime moment{.year = 2026, .month = 3, .day = 9, .hour = 4, .minute = 5, .second = 7};
  EXPECT_EQ(dateText(moment), "03/09/2026");
  EXPECT_EQ(timeText(moment), "04:05:07");
}

TEST(DateText, CountsTheHoursOfTheDayToTwentyThree) {
  const DateTime moment{
      .year = 1999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 58};
  EXPECT_EQ(dateText(moment), "12/31/1999");
  EXPECT_EQ(timeText(moment), "23:59:58");
}

}  // namespace
}  // namespace tess
