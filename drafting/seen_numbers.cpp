// Numbers that are there more than once.
#include "drafting/seen_numbers.h"

#include <ranges>

namespace tess {
namespace {

using Places = std::vector<std::uint32_t>;

// Of the numbers at `places` those that may be there again.
template <class Range>
Places repeatedAmong(std::span<const std::uint64_t> numbers, const Range& places, unsigned round) {
  SeenNumbers once(places.size(), round), again(places.size(), round);
  for (const std::uint32_t place : places) {
    if (once.meet(numbers[place])) again.meet(numbers[place]);
  }
  Places left;
  for (const std::uint32_t place : places) {
    if (again.has(numbers[place])) left.push_back(place);
  }
  return left;
}

}  // namespace

// Each round leaves a thirtieth of those that are there once; the last one leaves hardly any.
std::vector<bool> repeatedNumbers(std::span<const std::uint64_t> numbers) {
  std::size_t before = numbers.size();
  const auto all = std::views::iota(0U, static_cast<std::uint32_t>(before));
  Places places = repeatedAmong(numbers, all, 0);
  for (unsigned round = 1; !places.empty() && 2 * places.size() < before; ++round) {
    before = places.size();
    places = repeatedAmong(numbers, places, round);
  }
  std::vector<bool> repeated(numbers.size());
  for (const std::uint32_t place : places) repeated[place] = true;
  return repeated;
}

}  // namespace tess
