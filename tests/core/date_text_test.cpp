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

TEST(MomentIn, ReadsADayAndWhatIsSaidOfItsTime) {
  const struct {
    const char* text;
    const char* date;
    const char* time;
  } cases[] = {
      {"2026-03-09", "03/09/2026", "00:00:00"},
      {"2026-03-09T14:05", "03/09/2026", "14:05:00"},
      {"2026-12-31T23:59:58", "12/31/2026", "23:59:58"},
      {"2024-02-29", "02/29/2024", "00:00:00"},
      {"0001-01-01T00:00:00", "01/01/0001", "00:00:00"},
  };
  for (const auto& c : cases) {
    const auto moment = momentIn(c.text);
    ASSERT_TRUE(moment) << c.text;
    EXPECT_EQ(dateText(*moment), c.date);
    EXPECT_EQ(timeText(*moment), c.time);
  }
}

TEST(MomentIn, NothingElseIsAMoment) {
  for (const char* const text : {"",
                                 "today",
                                 "2026",
                                 "2026-3-9",
                                 "26-03-09",
                                 "2026/03/09",
                                 "03/09/2026",
                                 "2026-03-09T",
                                 "2026-03-09T14",
                                 "2026-03-09 14:05",
                                 "2026-03-09T14:5",
                                 "2026-03-09T14:05:7",
                                 "2026-03-09T14:05:07Z",
                                 "2026-03-09T14:05:07+01:00",
                                 " 2026-03-09",
                                 "2026-03-0x",
                                 "2026-00-09",
                                 "2026-13-09",
                                 "2026-03-00",
                                 "2026-03-32",
                                 "2026-04-31",
                                 "2026-02-29",
                                 "1900-02-29",
                                 "0000-01-01",
                                 "2026-03-09T24:00",
                                 "2026-03-09T23:60",
                                 "2026-03-09T23:59:60",
                                 "-026-03-09"}) {
    EXPECT_FALSE(momentIn(text)) << text;
  }
}

}  // namespace
}  // namespace tess
