// Numbers as text: shortest texts, the pattern language and the lenient parser.
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "core/rounding.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

// The longest plain decimal of a 32-bit float, the smallest denormal, has 48 characters.
using Digits = std::array<char, 64>;

void refuseUnwritable(float value) {
  if (!std::isfinite(value)) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, "a value that is not a number");
  }
}

std::string_view shortest(float value, Digits& digits) {
  refuseUnwritable(value);
  if (value == 0) return "0";  // also for a negative zero
  char* const begin = digits.data();
  const auto result = std::to_chars(begin, begin + digits.size(), value, std::chars_format::fixed);
  return {begin, static_cast<std::size_t>(result.ptr - begin)};
}

struct Pattern {
  int leadingZeros = 0;     // digits before the point that are always written
  int minimumDecimals = 0;  // decimals that are always written
  int decimals = 0;         // decimals at most
  bool hasPoint = false;
  bool hasDigits = false;
};

Pattern parsePattern(std::string_view text) {
  Pattern pattern;
  for (const char symbol : text) {
    if (symbol == '.') pattern.hasPoint = true;
    if (symbol != '0' && symbol != '#') continue;
    pattern.hasDigits = true;
    const bool always = symbol == '0';
    if (pattern.hasPoint) {
      ++pattern.decimals;
      if (always) pattern.minimumDecimals = pattern.decimals;
    } else if (always || pattern.leadingZeros > 0) {
      ++pattern.leadingZeros;
    }
  }
  return pattern;
}

// A decimal number without its sign: digits before and after the point.
struct Decimal {
  std::string whole;
  std::string fraction;
};

Decimal splitAtPoint(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, point)), std::string(text.substr(point + 1))};
}

// Adds one to the last digit of the number, carrying leftwards.
void increment(Decimal& number) {
  for (std::string* part : {&number.fraction, &number.whole}) {
    for (auto digit = part->rbegin(); digit != part->rend(); ++digit) {
      if (*digit != '9') {
        ++*digit;
        return;
      }
      *digit = '0';
    }
  }
  number.whole.insert(0, 1, '1');
}

void roundDecimals(Decimal& number, std::size_t decimals) {
  if (number.fraction.size() <= decimals) return;
  const bool up = number.fraction[decimals] >= '5';
  number.fraction.resize(decimals);
  if (up) increment(number);
}

void fitWhole(std::string& whole, int leadingZeros) {
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  const auto least = static_cast<std::size_t>(leadingZeros);
  if (whole.size() < least) whole.insert(0, least - whole.size(), '0');
}

void fitFraction(std::string& fraction, int minimumDecimals) {
  const auto least = static_cast<std::size_t>(minimumDecimals);
  while (fraction.size() > least && fraction.back() == '0') fraction.pop_back();
  if (fraction.size() < least) fraction.append(least - fraction.size(), '0');
}

bool isZero(const Decimal& number) {
  const auto zeros = [](std::string_view digits) {
    return digits.find_first_not_of('0') == std::string_view::npos;
  };
  return zeros(number.whole) && zeros(number.fraction);
}

// The part of the text from where a number begins, an explicit plus sign taken off. The library's
// parser also takes words such as "inf": here only a digit or a point begins a number.
std::string_view numberPart(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  std::string_view body = text;
  const bool plus = body.starts_with('+');
  if (plus || body.starts_with('-')) body.remove_prefix(1);
  const bool number = !body.empty() && ((body[0] >= '0' && body[0] <= '9') || body[0] == '.');
  if (!number) return {};
  return plus ? body : text;
}

// The decimal exponent of a number text: 1 for "12", -3 for "0.001e0", 5 for "1e5".
double decimalExponent(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return 0;
  const double places = static_cast<double>(point) - static_cast<double>(first);
  double exponent = 0;
  std::string_view digits = number.substr(mark);
  if (!digits.empty())
    digits.remove_prefix(digits.starts_with("e+") || digits.starts_with("E+") ? 2 : 1);
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  return exponent + (first < point ? places - 1 : places);
}

template <typename Float>
Float parsed(std::string_view text) {
  text = numberPart(text);
  Float value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // The parser leaves the value alone both for too large and for too small a number.
  const std::string_view used(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
  if (decimalExponent(used) < 0) return 0;
  const Float huge = std::numeric_limits<Float>::infinity();
  return used.starts_with('-') ? -huge : huge;
}

}  // namespace

std::string plainText(float value) {
  Digits digits;
  return std::string(shortest(value, digits));
}

void appendFileText(std::string& out, float value) {
  Digits digits;
  std::string_view text = shortest(value, digits);
  if (text.starts_with('-')) {
    out.push_back('-');
    text.remove_prefix(1);
  }
  if (text.starts_with("0.")) text.remove_prefix(1);
  out.append(text);
}

void appendFileText(std::string& out, int value) {
  Digits digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  out.append(digits.data(), result.ptr);
}

std::string fileText(float value) {
  std::string text;
  appendFileText(text, value);
  return text;
}

std::string signBlankText(float value) {
  const std::string text = fileText(value);
  return text.starts_with('-') ? text : " " + text;
}

std::string signBlankText(int value) {
  std::string text = value < 0 ? "" : " ";
  appendFileText(text, value);
  return text;
}

std::string formatNumber(float value, std::string_view patternText) {
  std::string text;
  appendFormatted(text, value, patternText);
  return text;
}

void appendFormatted(std::string& out, float value, std::string_view patternText) {
  const Pattern pattern = parsePattern(patternText);
  if (!pattern.hasDigits) {
    out += plainText(value);
    return;
  }
  Digits digits;
  std::string_view text = shortest(value, digits);
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);

  Decimal number = splitAtPoint(text);
  roundDecimals(number, static_cast<std::size_t>(pattern.decimals));
  if (negative && !isZero(number)) out.push_back('-');
  fitWhole(number.whole, pattern.leadingZeros);
  fitFraction(number.fraction, pattern.minimumDecimals);
  // A point with no digit on either side would be no number at all.
  if (pattern.hasPoint && number.whole.empty() && number.fraction.empty()) number.whole = "0";
  out += number.whole;
  if (pattern.hasPoint) out.push_back('.');
  out += number.fraction;
}

double Val(std::string_view text) {
  return parsed<double>(text);
}

float parseFloat(std::string_view text) {
  const float value = parsed<float>(text);
  if (!std::isfinite(value)) throw overflow();
  return value;
}

int parseInteger(std::string_view text) {
  text = numberPart(text);
  int whole = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), whole);
  const bool plain = result.ec == std::errc{} &&
                     (result.ptr == text.data() + text.size() ||
                      (*result.ptr != '.' && *result.ptr != 'e' && *result.ptr != 'E'));
  return plain ? whole : roundHalfEven(Val(text));
}

}  // namespace tess
