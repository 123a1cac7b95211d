// Sums in a text, by descent: sums of products of factors.
#include "core/arithmetic.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace tess {
namespace {

constexpr bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

}  // namespace

char SumReader::next() {
  while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
  return at_ < text_.size() ? text_[at_] : '\0';
}

bool SumReader::atEnd() {
  next();
  return at_ >= text_.size();
}

bool SumReader::take(char wanted) {
  if (next() != wanted || atEnd()) return false;
  ++at_;
  return true;
}

void SumReader::fail(const std::string& what) {
  throw SumTrouble(what +
                   (atEnd() ? " at the end." : " at character " + std::to_string(at_ + 1) + "."));
}

double SumReader::checked(double value) {
  if (!std::isfinite(value)) fail("A figure is too large");
  return value;
}

double SumReader::sum() {
  double value = product();
  for (;;) {
    if (take('+')) {
      value = checked(value + product());
    } else if (take('-')) {
      value = checked(value - product());
    } else {
      return value;
    }
  }
}

double SumReader::product() {
  double value = signedFactor();
  for (;;) {
    if (take('*')) {
      value = checked(value * signedFactor());
    } else if (take('/')) {
      const std::string place = std::to_string(at_);
      const double divisor = signedFactor();
      if (divisor == 0) throw SumTrouble("The division at character " + place + " is by zero.");
      value = checked(value / divisor);
    } else {
      return value;
    }
  }
}

double SumReader::signedFactor() {
  double sign = 1;
  for (int signs = 0;; ++signs) {
    if (signs > kMostNested) fail("There are too many signs");
    if (take('-')) {
      sign = -sign;
    } else if (!take('+')) {
      return sign * factor();
    }
  }
}

double SumReader::factor() {
  if (!take('(')) return number();
  if (++nested_ > kMostNested) fail("There are too many brackets within brackets");
  const double value = sum();
  if (!take(')')) fail("A closing bracket is missing");
  --nested_;
  return value;
}

double SumReader::number() {
  const char first = next();
  if (!isDigit(first) && first != '.') fail("A number is missing");
  double value = 0;
  const char* const begin = text_.data() + at_;
  const auto [end, trouble] = std::from_chars(begin, text_.data() + text_.size(), value);
  if (trouble == std::errc::result_out_of_range) fail("A figure is too large or too small");
  if (trouble != std::errc()) fail("A number is missing");
  at_ += static_cast<std::size_t>(end - begin);
  return value;
}

}  // namespace tess
