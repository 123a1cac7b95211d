// Near matches by counting the letters to insert, drop, change or swap.
#include "shell/automation/near_match.h"

#include <algorithm>
#include <vector>

#include "core/text.h"

namespace tess {
namespace {

// Names are short; a text of a thousand letters is no misspelling of one.
constexpr std::size_t kLongestWord = 64;

// The number of single-letter edits between two texts, a swap of neighbours counting as one.
std::size_t editDistance(std::string_view a, std::string_view b) {
  const std::size_t width = b.size() + 1;
  std::vector<std::size_t> cost((a.size() + 1) * width);
  const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& { return cost[i * width + j]; };
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        at(i, j) = i + j;
        continue;
      }
      const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
      at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + change});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
    }
  }
  return cost.back();
}

}  // namespace

std::optional<std::string> nearMatch(std::string_view word, std::span<const std::string> names) {
  if (word.size() < 2 || word.size() > kLongestWord) return std::nullopt;
  const std::string wanted = lowerCased(word);
  std::size_t nearest = std::max<std::size_t>(1, word.size() / 3) + 1;
  std::optional<std::string> found;
  for (const std::string& name : names) {
    const std::size_t distance = editDistance(wanted, lowerCased(name));
    if (distance >= nearest) continue;
    nearest = distance;
    found = name;
  }
  return found;
}

std::string didYouMean(std::string_view word, std::span<const std::string> names) {
  const std::optional<std::string> meant = nearMatch(word, names);
  return meant ? " (did you mean '" + *meant + "'?)" : std::string();
}

}  // namespace tess
