// Division as the program means it: by zero it is a failure, never an infinity.
// Owns: quotient.
#pragma once

#include "core/runtime_failure.h"

namespace tess {

// Raises Division by zero, or Overflow for zero by zero.
inline double quotient(double dividend, double divisor) {
  if (divisor != 0) return dividend / divisor;
  throw dividend == 0 ? overflow() : divisionByZero();
}

}  // namespace tess
