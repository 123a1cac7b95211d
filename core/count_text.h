// Numbers of things in words.
// Owns: countText.
#pragma once

#include <cstddef>
#include <string>

namespace tess {

// "1 row", "4 rows"; the plural is that with an s.
inline std::string countText(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}
inline std::string countText(int count, const std::string& thing) {
  return countText(static_cast<std::size_t>(count), thing);
}

}  // namespace tess
