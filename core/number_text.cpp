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
#include "core/text.h"

namespace tess {
namespace {

// The longest plain decimal of a 32-bit float, the smallest denormal, has 48 characters.
using Digits = std::array<char, 64>;

template <typename Float>
void refuseUnwritable(Float value) {
  if (!std::isfinite(value)) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, "a value that is not a number");
  }
}

// The shortest text of a value, with one place of the buffer left free before it.
std::string_view shortest(float value, Digits& digits) {
  refuseUnwritable(value);
  if (value == 0) value = 0;  // a negative zero has no sign here
  char* const begin = digits.data() + 1;
  const auto result =
      std::to_chars(begin, digits.data() + digits.size(), value, std::chars_format::fixed);
  return {begin, static_cast<std::size_t>(result.ptr - begin)};
}

// The digits of a number where they stand in its buffer. The place before the first is free, or
// holds a sign that `negative` has taken note of.
struct Decimal {
  char* first;
  char* point;  // where the point stands; the end when there is none
  char* end;
  bool negative;

  std::string_view whole() const { return {first, static_cast<std::size_t>(point - first)}; }
  std::string_view fraction() const {
    return point == end ? std::string_view{} : std::string_view(point + 1, end);
  }
};

Decimal shortestDecimal(float value, Digits& digits) {
  const std::string_view text = shortest(value, digits);
  char* const first = digits.data() + 1;
  char* const end = first + text.size();
  const bool negative = text.starts_with('-');
  return {first + (negative ? 1 : 0), std::find(first, end, '.'), end, negative};
}

// Most numbers of a drawing have few decimals, and need no search for their shortest text.
//
// While value * scale stays below 2^23, neighbouring values lie closer together than 1 / scale. So
// at most one multiple of 1 / scale reads back as the value, and if there is one, it is the
// shortest text, but for zeros at its end. Whether it reads back is told for certain by a 64-bit
// division: in that range no multiple lies halfway between two values, and none closer to there
// than 2^-20 of their distance (scale up to 10^8), while the division is off by 2^-29 of it at
// most.
constexpr double kLargestUnits = 1 << 23;
constexpr std::size_t kMaxQuickDecimals = 8;
constexpr std::size_t kMaxQuickLeading = 16;  // which leave room in Digits

// The number of units of 1 / scale that `value` reads back from; -1 when it has to be searched for.
int wholeUnits(float value, double scale) {
  const double magnitude = std::abs(static_cast<double>(value));
  const double units = magnitude * scale;
  if (!(units < kLargestUnits)) return -1;
  const int n = static_cast<int>(units + 0.5);
  return static_cast<float>(n / scale) == std::abs(value) ? n : -1;
}

// Digits of a number put down from the last to the first.
class DigitsBackwards {
 public:
  explicit DigitsBackwards(Digits& digits) : end_(digits.data() + digits.size()), first_(end_) {}
  void put(char letter) { *--first_ = letter; }
  void takeDigit(unsigned& units) {
    put(static_cast<char>('0' + units % 10));
    units /= 10;
  }
  std::size_t size() const { return static_cast<std::size_t>(end_ - first_); }
  const char* first() const { return first_; }

 private:
  char* end_;
  char* first_;
};

// Adds one to the last digit, carrying leftwards over the point and, at worst, into the free place.
void increment(Decimal& number) {
  for (char* digit = number.end; digit != number.first;) {
    --digit;
    if (digit == number.point) continue;
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  *--number.first = '1';
}

void roundDecimals(Decimal& number, std::size_t decimals) {
  const std::string_view fraction = number.fraction();
  if (fraction.size() <= decimals) return;
  const bool up = fraction[decimals] >= '5';
  number.end = number.point + (decimals == 0 ? 0 : decimals + 1);
  if (up) increment(number);
}

bool hasNoValue(const Decimal& number) {
  return std::all_of(number.first, number.end, [](char c) { return c == '0' || c == '.'; });
}

std::string_view withoutLeadingZeros(std::string_view whole) {
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  return whole;
}

std::string_view withoutTrailingZeros(std::string_view fraction, std::size_t least) {
  while (fraction.size() > least && fraction.back() == '0') fraction.remove_suffix(1);
  return fraction;
}

void appendZeros(std::string& out, std::size_t wanted, std::size_t present) {
  if (present < wanted) out.append(wanted - present, '0');
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

std::string exactText(double value) {
  constexpr std::size_t kLongest = 352;  // the smallest denormal has 326 characters
  refuseUnwritable(value);
  if (value == 0) value = 0;  // a negative zero has no sign here
  std::array<char, kLongest> digits;
  char* const begin = digits.data();
  const auto result = std::to_chars(begin, begin + kLongest, value, std::chars_format::fixed);
  return {begin, result.ptr};
}

char* writeFileText(char* out, float value) {
  refuseUnwritable(value);
  if (value == 0) value = 0;  // a negative zero has no sign here
  char* const end = std::to_chars(out, out + kLongestNumber, value, std::chars_format::fixed).ptr;
  char* const digits = value < 0 ? out + 1 : out;
  if (*digits != '0' || end - digits == 1) return end;
  return std::copy(digits + 1, end, digits);
}

char* writeFileText(char* out, int value) {
  return std::to_chars(out, out + kLongestNumber, value).ptr;
}

void appendFileText(std::string& out, float value) {
  char digits[kLongestNumber];
  out.append(digits, writeFileText(digits, value));
}

void appendFileText(std::string& out, int value) {
  char digits[kLongestNumber];
  out.append(digits, writeFileText(digits, value));
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

NumberPattern::Section::Section(std::string_view text) : isEmpty(text.empty()) {
  for (const char symbol : text) {
    if (symbol == '.') hasPoint = true;
    if (symbol == '-') hasSign = true;
    if (symbol != '0' && symbol != '#') continue;
    hasDigits = true;
    const bool always = symbol == '0';
    if (hasPoint) {
      ++decimals;
      scale *= 10;
      if (always) minimumDecimals = decimals;
    } else if (always || leadingDigits > 0) {
      ++leadingDigits;
    }
  }
}

void NumberPattern::Section::append(std::string& out, float value) const {
  Digits digits;
  if (!hasDigits) {
    out.append(shortest(value, digits));
    return;
  }
  const bool quick = decimals <= kMaxQuickDecimals && leadingDigits <= kMaxQuickLeading;
  const int units = quick ? wholeUnits(value, scale) : -1;
  if (units >= 0) return appendUnits(out, static_cast<unsigned>(units), value < 0);
  Decimal number = shortestDecimal(value, digits);
  roundDecimals(number, decimals);
  const std::string_view whole = withoutLeadingZeros(number.whole());
  const std::string_view fraction = withoutTrailingZeros(number.fraction(), minimumDecimals);

  if (number.negative && !hasNoValue(number)) out.push_back('-');
  appendZeros(out, leadingDigits, whole.size());
  out.append(whole);
  if (!hasPoint) return;
  // A point with no digit on either side would be no number at all.
  const bool bare = leadingDigits == 0 && minimumDecimals == 0;
  if (bare && whole.empty() && fraction.empty()) out.push_back('0');
  out.push_back('.');
  out.append(fraction);
  appendZeros(out, minimumDecimals, fraction.size());
}

// The digits of so many units of the last decimal, which is as many as the pattern has.
void NumberPattern::Section::appendUnits(std::string& out, unsigned units, bool negative) const {
  Digits digits;
  DigitsBackwards text(digits);
  const bool nothing = units == 0;
  std::size_t places = decimals;
  for (; places > minimumDecimals && units % 10 == 0; --places) units /= 10;
  const bool noDigits = units == 0 && leadingDigits == 0 && minimumDecimals == 0;
  for (std::size_t place = 0; place < places; ++place) text.takeDigit(units);
  if (hasPoint) text.put('.');
  const std::size_t behind = text.size();
  while (units != 0) text.takeDigit(units);
  while (text.size() < behind + leadingDigits) text.put('0');
  if (hasPoint && noDigits) text.put('0');  // a point with no digit would be no number at all
  if (negative && !nothing) text.put('-');
  out.append(text.first(), text.size());
}

bool NumberPattern::Section::roundsToNothing(float value) const {
  Digits digits;
  Decimal number = shortestDecimal(value, digits);
  if (hasDigits) roundDecimals(number, decimals);
  return hasNoValue(number);
}

NumberPattern::NumberPattern(std::string_view text) {
  const std::size_t first = std::min(text.find(';'), text.size());
  positive_ = Section(text.substr(0, first));
  if (first == text.size()) return;
  std::string_view rest = text.substr(first + 1);
  const std::size_t second = std::min(rest.find(';'), rest.size());
  negative_ = Section(rest.substr(0, second));
  sections_ = 2;
  if (second == rest.size()) return;
  rest.remove_prefix(second + 1);
  zero_ = Section(rest.substr(0, rest.find(';')));
  sections_ = 3;
}

const NumberPattern::Section* NumberPattern::sectionOf(float value) const {
  const Section& own = value < 0 ? negative_ : positive_;
  const bool nothing = value == 0 || (!own.isEmpty && own.roundsToNothing(value));
  const Section& chosen = sections_ == 3 && nothing ? zero_ : own;
  return chosen.isEmpty ? nullptr : &chosen;
}

void NumberPattern::append(std::string& out, float value) const {
  if (sections_ == 1) return positive_.append(out, value);
  const Section* const section = sectionOf(value);
  if (section == nullptr) return;
  if (section != &negative_) return section->append(out, value);
  if (section->hasSign && !section->roundsToNothing(value)) out.push_back('-');
  section->append(out, -value);
}

std::string formatNumber(float value, std::string_view pattern) {
  std::string text;
  NumberPattern(pattern).append(text, value);
  return text;
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

std::optional<double> numericValue(std::string_view text) {
  text = trimmed(text);
  std::string_view body = text;
  if (body.starts_with('+')) body.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(body.data(), body.data() + body.size(), value);
  const bool number = result.ptr == body.data() + body.size() && !body.empty();
  if (!number || std::isnan(value)) return std::nullopt;
  return result.ec == std::errc{} ? value : Val(text);
}

}  // namespace tess
