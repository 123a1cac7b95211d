// The roundings of the program.
#include "core/rounding.h"

#include <cmath>
#include <iterator>
#include <limits>

#include "core/runtime_failure.h"

namespace tess {

namespace {

// These are exact, as the library's powers are, and need no call of it.
constexpr double kPowersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

double powerOfTen(int exponent) {
  const bool listed = exponent >= 0 && exponent < static_cast<int>(std::size(kPowersOfTen));
  return listed ? kPowersOfTen[exponent] : std::pow(10.0, exponent);
}

}  // namespace

float roundTo(double value, int places) {
  const double scale = powerOfTen(places);
  return static_cast<float>(std::floor(value * scale + 0.5) / scale);
}

int roundHalfEven(double value) {
  double rounded = std::floor(value + 0.5);
  const bool tie = rounded - value == 0.5;
  if (tie && std::fmod(rounded, 2.0) != 0.0) rounded -= 1.0;
  const bool fits =
      rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max();
  if (!fits) throw overflow();
  return static_cast<int>(rounded);
}

}  // namespace tess
