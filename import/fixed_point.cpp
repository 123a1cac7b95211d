// Fixed-point numbers of the font interface.
#include "import/fixed_point.h"

#include <cmath>
#include <limits>

#include "core/runtime_failure.h"

namespace tess {

std::uint16_t LoWord(std::int32_t L) {
  return static_cast<std::uint16_t>(static_cast<std::uint32_t>(L) & 0xFFFFU);
}

std::int16_t HiWord(std::int32_t L) {
  return static_cast<std::int16_t>(L >> 16);
}

void clsFixed::AsDouble(double Value) {
  const double scaled = std::nearbyint(Value * kOne);
  constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (!(scaled >= kLeast && scaled <= kMost)) throw overflow();
  long_ = static_cast<std::int32_t>(scaled);
}

void clsFixed::Load(std::int16_t Value, std::uint16_t Frac) {
  long_ = Value * 65536 + Frac;
}

clsFixed clsFixed::Average(const clsFixed& X1, const clsFixed& X2) {
  clsFixed middle;
  middle.long_ = static_cast<std::int32_t>((std::int64_t{X1.long_} + X2.long_) / 2);
  return middle;
}

void clsFixedPoint::Load(std::int16_t xValue, std::uint16_t xFract, std::int16_t yValue,
                         std::uint16_t yFract) {
  X.Load(xValue, xFract);
  Y.Load(yValue, yFract);
}

clsFixedPoint clsFixedPoint::MidPoint(const clsFixedPoint& P1, const clsFixedPoint& P2) {
  return {clsFixed::Average(P1.X, P2.X), clsFixed::Average(P1.Y, P2.Y)};
}

double clsFixedPoint::DistanceTo(const clsFixedPoint& P) const {
  return std::hypot(P.X.AsDouble() - X.AsDouble(), P.Y.AsDouble() - Y.AsDouble());
}

void clsFixedMatrix::SetToIdentity() {
  m11_ = m22_ = clsFixed(1);
  m12_ = m21_ = clsFixed(0);
}

void clsFixedMatrix::Mirror(bool X, bool Y) {
  if (X) {
    m11_.AsDouble(-m11_.AsDouble());
    m21_.AsDouble(-m21_.AsDouble());
  }
  if (Y) {
    m12_.AsDouble(-m12_.AsDouble());
    m22_.AsDouble(-m22_.AsDouble());
  }
}

// What the matrix did before is done first.
void clsFixedMatrix::ApplyRotation(double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double xToX = m11_.AsDouble();
  const double xToY = m12_.AsDouble();
  const double yToX = m21_.AsDouble();
  const double yToY = m22_.AsDouble();
  m11_.AsDouble(c * xToX - s * xToY);
  m12_.AsDouble(s * xToX + c * xToY);
  m21_.AsDouble(c * yToX - s * yToY);
  m22_.AsDouble(s * yToX + c * yToY);
}

MAT2 clsFixedMatrix::AsMAT2() const {
  return {m11_.AsFIXED(), m12_.AsFIXED(), m21_.AsFIXED(), m22_.AsFIXED()};
}

}  // namespace tess
