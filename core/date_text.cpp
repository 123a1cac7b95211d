// Dates and times of day as texts.
#include "core/date_text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace tess {
namespace {

constexpr std::string_view kMomentShape = "0000-00-00T00:00:00";
constexpr std::size_t kDateLength = 10;
constexpr std::size_t kMinuteLength = 16;

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

// A digit of the shape stands for any.
bool fits(std::string_view text, std::string_view shape) {
  return std::equal(text.begin(), text.end(), shape.begin(), shape.end(),
                    [](char a, char b) { return isDigit(b) ? isDigit(a) : a == b; });
}

// The number of `length` digits at `at`; 0 behind the end of the text.
int digitsAt(std::string_view text, std::size_t at, std::size_t length) {
  if (at >= text.size()) return 0;
  int value = 0;
  for (const char digit : text.substr(at, length)) value = 10 * value + (digit - '0');
  return value;
}

bool exists(const DateTime& moment) {
  const std::chrono::year_month_day day{std::chrono::year{moment.year},
                                        std::chrono::month{static_cast<unsigned>(moment.month)},
                                        std::chrono::day{static_cast<unsigned>(moment.day)}};
  return day.ok() && moment.year > 0 && moment.hour < 24 && moment.minute < 60 &&
         moment.second < 60;
}

std::string withZeros(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::string dateText(const DateTime& moment) {
  return withZeros(moment.month, 2) + "/" + withZeros(moment.day, 2) + "/" +
         withZeros(moment.year, 4);
}

std::string timeText(const DateTime& moment) {
  return withZeros(moment.hour, 2) + ":" + withZeros(moment.minute, 2) + ":" +
         withZeros(moment.second, 2);
}

std::optional<DateTime> momentIn(std::string_view text) {
  const bool complete = text.size() == kDateLength || text.size() == kMinuteLength ||
                        text.size() == kMomentShape.size();
  if (!complete || !fits(text, kMomentShape.substr(0, text.size()))) return std::nullopt;
  const DateTime moment{.year = digitsAt(text, 0, 4),
                        .month = digitsAt(text, 5, 2),
                        .day = digitsAt(text, 8, 2),
                        .hour = digitsAt(text, 11, 2),
                        .minute = digitsAt(text, 14, 2),
                        .second = digitsAt(text, 17, 2)};
  return exists(moment) ? std::optional(moment) : std::nullopt;
}

}  // namespace tess
