// Sums in a text: numbers with + - * /, signs and brackets, read the same in every country.
// Owns: kMostNested, SumTrouble, SumReader.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace tess {

// Brackets within brackets, and signs before a number.
inline constexpr int kMostNested = 32;

// What is wrong with a text, and where: what() is a sentence for the operator that names the
// character, counted from 1.
class SumTrouble : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads sums off the front of a text, one after the other. A number has a point, never a comma, and
// may have an exponent.
class SumReader {
 public:
  explicit SumReader(std::string_view text) : text_(text) {}

  // The next sum; it ends before whatever is no part of it. Raises SumTrouble.
  double sum();
  // Takes the character if it comes next, blanks aside.
  bool take(char wanted);
  bool atEnd();
  // Raises SumTrouble that `what` is so at the present place: "A number is missing at character 3."
  [[noreturn]] void fail(const std::string& what);

 private:
  double product();
  double factor();
  double signedFactor();
  double number();
  double checked(double value);
  char next();

  std::string_view text_;
  std::size_t at_ = 0;
  int nested_ = 0;
};

}  // namespace tess
