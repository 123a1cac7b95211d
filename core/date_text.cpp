// Dates and times of day as texts.
#include "core/date_text.h"

#include <cstddef>

namespace tess {
namespace {

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

}  // namespace tess
