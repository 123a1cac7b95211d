// One field of a table: values indexed by row number, with row 0 present but not a drawing row.
// Owns: kStartUpperBound, Column.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/runtime_failure.h"

namespace tess {

inline constexpr int kStartUpperBound = 10;

template <typename T>
class Column {
 public:
  explicit Column(int upperBound = kStartUpperBound)
      : values_(static_cast<std::size_t>(upperBound) + 1) {}

  // Checked access: an index outside 0..upperBound() raises Subscript out of range.
  T& operator[](int index) { return values_[position(index)]; }
  const T& operator[](int index) const { return values_[position(index)]; }

  int upperBound() const { return static_cast<int>(values_.size()) - 1; }
  void resize(int upperBound) { values_.resize(static_cast<std::size_t>(upperBound) + 1); }
  void fill(const T& value) { values_.assign(values_.size(), value); }

  // Unchecked rows for inner loops; element 0 is row 0.
  std::span<T> rows() { return values_; }
  std::span<const T> rows() const { return values_; }

 private:
  std::size_t position(int index) const {
    if (index < 0 || index > upperBound()) throw subscriptOutOfRange();
    return static_cast<std::size_t>(index);
  }

  std::vector<T> values_;
};

}  // namespace tess
