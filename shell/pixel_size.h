// The size of a surface or a picture.
// Owns: kLongestSide, PixelSize, isUsable.
#pragma once

namespace tess {

inline constexpr int kLongestSide = 16384;  // what a picture may have

struct PixelSize {
  int width = 1000;
  int height = 800;
};

constexpr bool isUsable(const PixelSize& size) {
  return size.width >= 1 && size.width <= kLongestSide && size.height >= 1 &&
         size.height <= kLongestSide;
}

}  // namespace tess
