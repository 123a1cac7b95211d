// The 16-bit integers and booleans of the drawing tables. Both hold exactly what the file formats
// and composite codes were laid out for, and refuse anything wider.
// Owns: Int16, Flag.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <utility>

#include "core/runtime_failure.h"

namespace tess {

// A 16-bit signed integer; an assignment that does not fit raises Overflow.
class Int16 {
 public:
  constexpr Int16() = default;
  template <std::integral T>
  constexpr Int16(T value) : value_(checked(value)) {}  // NOLINT: implicit, it replaces short
  Int16(std::floating_point auto) = delete;             // say how to round

  constexpr operator std::int16_t() const { return value_; }  // NOLINT

  constexpr Int16& operator++() { return *this = Int16(value_ + 1); }
  constexpr Int16& operator--() { return *this = Int16(value_ - 1); }
  constexpr Int16& operator+=(int step) { return *this = Int16(value_ + step); }
  constexpr Int16& operator-=(int step) { return *this = Int16(value_ - step); }

 private:
  template <std::integral T>
  static constexpr std::int16_t checked(T value) {
    if (!std::in_range<std::int16_t>(value)) throw overflow();
    return static_cast<std::int16_t>(value);
  }

  std::int16_t value_ = 0;
};

// A 16-bit boolean: 0 false, -1 true. Another value read from a file counts as true and is kept.
class Flag {
 public:
  constexpr Flag() = default;
  constexpr Flag(bool value) : value_(value ? -1 : 0) {}  // NOLINT: implicit, it replaces bool
  Flag(std::integral auto) = delete;                      // use fromRaw

  static constexpr Flag fromRaw(std::int16_t raw) {
    Flag flag;
    flag.value_ = raw;
    return flag;
  }

  constexpr operator bool() const { return value_ != 0; }  // NOLINT
  constexpr std::int16_t raw() const { return value_; }

 private:
  std::int16_t value_ = 0;
};

}  // namespace tess
