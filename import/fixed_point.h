// The 16.16 fixed-point numbers of the font interface, with points and matrices of them. A value
// that does not fit raises Overflow.
// Owns: LoWord, HiWord, FIXED, clsFixed, clsFixedPoint, MAT2, clsFixedMatrix.
#pragma once

#include <cstdint>

namespace tess {

// The halves of a 32-bit value: the low one without a sign, the high one with it.
std::uint16_t LoWord(std::int32_t L);
std::int16_t HiWord(std::int32_t L);

// The two-field form: value + fract / 65536.
struct FIXED {
  std::uint16_t fract = 0;
  std::int16_t value = 0;
  friend bool operator==(const FIXED&, const FIXED&) = default;
};

class clsFixed {
 public:
  clsFixed() = default;
  explicit clsFixed(double value) { AsDouble(value); }

  double AsDouble() const { return long_ / kOne; }
  void AsDouble(double Value);  // rounded to the nearest
  void Load(std::int16_t Value, std::uint16_t Frac);
  std::int32_t AsLong() const { return long_; }
  FIXED AsFIXED() const { return {LoWord(long_), HiWord(long_)}; }
  static clsFixed Average(const clsFixed& X1, const clsFixed& X2);

  friend bool operator==(const clsFixed&, const clsFixed&) = default;

 private:
  static constexpr double kOne = 65536;
  std::int32_t long_ = 0;
};

struct clsFixedPoint {
  clsFixed X, Y;

  void Load(std::int16_t xValue, std::uint16_t xFract, std::int16_t yValue, std::uint16_t yFract);
  static clsFixedPoint MidPoint(const clsFixedPoint& P1, const clsFixedPoint& P2);
  double DistanceTo(const clsFixedPoint& P) const;

  friend bool operator==(const clsFixedPoint&, const clsFixedPoint&) = default;
};

// x' = eM11 * x + eM21 * y, y' = eM12 * x + eM22 * y.
struct MAT2 {
  FIXED eM11, eM12, eM21, eM22;
  friend bool operator==(const MAT2&, const MAT2&) = default;
};

// As constructed it is the identity.
class clsFixedMatrix {
 public:
  clsFixedMatrix() { SetToIdentity(); }

  void SetToIdentity();
  void Mirror(bool X, bool Y);       // negates the axes whose flag is set
  void ApplyRotation(double angle);  // counter-clockwise where y grows upward; radians
  MAT2 AsMAT2() const;

 private:
  clsFixed m11_, m12_, m21_, m22_;
};

}  // namespace tess
