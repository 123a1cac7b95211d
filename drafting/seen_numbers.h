// Which numbers have been met before, roughly but fast: a bit for each. Made for keys of rows, of
// which hardly any two are the same.
// Owns: SeenNumbers, repeatedNumbers.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tess {

// It may take a number for one that was met which was not, for one in thirty of them, but never
// the other way round. Those of another round are others.
class SeenNumbers {
 public:
  explicit SeenNumbers(std::size_t numbers, unsigned round = 0)
      : words_(std::bit_ceil(std::max<std::size_t>(numbers, kFewest) / kNumbersPerWord)),
        shift_(64 - std::countr_zero(words_.size() * kBits)),
        factor_(0x9E3779B97F4A7C15ULL + 0x5851F42D4C957F2EULL * round) {}

  bool has(std::uint64_t number) const {
    const std::uint64_t bit = bitOf(number);
    return (words_[bit / kBits] >> bit % kBits & 1U) != 0;
  }
  // Whether it was there before.
  bool meet(std::uint64_t number) {
    const std::uint64_t bit = bitOf(number);
    std::uint64_t& word = words_[bit / kBits];
    const std::uint64_t mark = std::uint64_t{1} << bit % kBits;
    const bool met = (word & mark) != 0;
    word |= mark;
    return met;
  }

 private:
  static constexpr std::size_t kBits = 64;
  static constexpr std::size_t kNumbersPerWord = 2;
  static constexpr std::size_t kFewest = 64;

  std::uint64_t bitOf(std::uint64_t number) const {
    return ((number ^ number >> 32U) * factor_) >> static_cast<unsigned>(shift_);
  }

  std::vector<std::uint64_t> words_;  // their number is a power of two
  int shift_;
  std::uint64_t factor_;  // odd
};

// For each number whether it may be there more than once; of those that are it always says so.
std::vector<bool> repeatedNumbers(std::span<const std::uint64_t> numbers);

}  // namespace tess
