// The roundings of the program. Each rule of rounding has one home here.
// Owns: roundTo, roundHalfEven.
#pragma once

namespace tess {

// value rounded to `places` decimals as floor(value * 10^places + 0.5) / 10^places, in 64 bits:
// halves go up, for negative values too.
// Fixed: -0.5 rounds up to 0; coordinates in files and programs were made so.
float roundTo(double value, int places);

// The nearest whole number, ties to the even one: how numbers become integer fields, and how a path
// code divided by 100 becomes its group. Raises Overflow outside the 32-bit range.
int roundHalfEven(double value);

}  // namespace tess
