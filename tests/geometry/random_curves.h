// Random lines and arcs for the tests of curves.
// Owns: randomCurve, randomCurves.
#pragma once

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "geometry/curve.h"

namespace tess::testing {

// Within about `reach` of the origin; on a coarse grid now and then, so that some touch, overlap or
// are one.
inline Curve randomCurve(std::mt19937& random, double reach) {
  const auto number = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const bool onGrid = random() % 2 == 0;
  const auto coordinate = [&] {
    const double value = number(-reach, reach);
    return onGrid ? std::round(value) : value;
  };
  const PlanePoint start{coordinate(), coordinate()};
  const PlanePoint other{coordinate(), coordinate()};
  if (random() % 2 == 0 || start == other) return lineCurve(start, other);
  const double quarter = std::numbers::pi / 2;
  const int quarters = random() % 2 == 0 ? 1 : 2;
  const double sweep = onGrid ? quarter * quarters : number(0.001, 2 * quarter);
  const int turn = random() % 2 == 0 ? 1 : -1;
  const PlanePoint from = start - other;
  const PlanePoint to = std::cos(sweep) * from + (turn * std::sin(sweep)) * leftOf(from);
  return arcCurve(start, other + to, other, turn);
}

inline std::vector<Curve> randomCurves(std::mt19937& random, int count, double reach) {
  std::vector<Curve> curves;
  curves.reserve(static_cast<std::size_t>(count));
  for (int k = 0; k < count; ++k) curves.push_back(randomCurve(random, reach));
  return curves;
}

}  // namespace tess::testing
