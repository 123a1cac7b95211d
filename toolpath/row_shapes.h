// Path rows that are alike but for their depth, feed and group: the same move of the same tool.
// Owns: RowShapes.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_set>

namespace tess {

struct DrawingStore;

class RowShapes {
 public:
  // False for a row of which one like it was added before.
  bool add(const DrawingStore& store, int ps);

 private:
  using Shape = std::array<std::uint32_t, 8>;
  struct Hash {
    std::size_t operator()(const Shape& shape) const;
  };
  std::unordered_set<Shape, Hash> shapes_;
};

}  // namespace tess
