// The fixed numbers of the geometry. They are part of its behaviour: stored drawings and programs
// were made with exactly these values.
// Owns: kPi, kTwoPi, kThreePi, kZeroStandIn, kSegBoxMargin, kFlatSlope, kSteepSlope,
//       kVerticalSlope, kFarthest.
#pragma once

namespace tess {

// Single-precision values, widened where a formula runs in 64 bits: an angle that was stored as a
// float then meets the same quarter turns again.
inline constexpr double kPi = 3.1415927F;
inline constexpr double kTwoPi = 6.2831855F;
inline constexpr double kThreePi = 9.424778F;

// Stands in for a divisor that is exactly 0.
inline constexpr double kZeroStandIn = 1e-6;

// How far a point may lie outside a segment's box and still count as on it.
// Fixed: neither the tolerance nor the unit changes the margin; joints of outlines would move.
inline constexpr double kSegBoxMargin = 0.0015;

// A slope below the first counts as horizontal, above the second as vertical.
inline constexpr double kFlatSlope = 1.0 / 100000;
inline constexpr double kSteepSlope = 100000;

// The slope that midpointAndSlope reports for a vertical segment.
inline constexpr double kVerticalSlope = 999999.0;

// The scans for the nearest row or end find nothing at this distance or beyond.
inline constexpr float kFarthest = 1e6F;

}  // namespace tess
