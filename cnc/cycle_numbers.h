// Machine cycles by the numbers of their G words.
// Owns: CycleNumbers, isOneOf.
#pragma once

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>

namespace tess {

using CycleNumbers = std::bitset<100>;

template <std::size_t count>
bool isOneOf(const std::array<int, count>& cycles, int cycle) {
  return std::ranges::find(cycles, cycle) != cycles.end();
}

}  // namespace tess
