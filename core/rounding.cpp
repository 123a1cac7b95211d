// The roundings of the program.
#include "core/rounding.h"

#include <cmath>
#include <limits>

#include "core/runtime_failure.h"

namespace tess {

float roundTo(double value, int places) {
  const double scale = std::pow(10.0, places);
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
