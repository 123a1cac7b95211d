// A small picture of pixels as a drawing surface, with lines by Bresenham's way, so that tests can
// compare whole pictures and see what the inverting pen leaves behind.
// Owns: RasterSurface.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <utility>
#include <vector>

#include "display/drawing_target.h"
#include "tests/support/recording_target.h"

namespace tess::testing {

class RasterSurface : public DrawingSurface {
 public:
  static constexpr int kWidth = 200, kHeight = 160;

  explicit RasterSurface(CallLog& /*log*/)
      : pixels_(kWidth * kHeight), inkedBy_(kWidth * kHeight) {}

  const std::vector<std::int32_t>& picture() const { return pixels_; }
  int differences(const std::vector<std::int32_t>& other) const {
    return std::inner_product(pixels_.begin(), pixels_.end(), other.begin(), 0, std::plus<>(),
                              std::not_equal_to<>());
  }

  SurfaceArea area() const override { return {0, 0, kWidth, kHeight}; }
  void Move(const SurfaceArea& /*area*/) override {}
  bool Enabled() const override { return enabled_; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }
  void setRepaint(bool /*on*/) override {}
  void Refresh() override {}

  void Cls() override { pixels_.assign(pixels_.size(), state().backColor); }
  void line(const WorldBox& ends, Rgb color) override {
    Pixels touched;
    addLine(at(ends.x0, ends.y0), at(ends.x1, ends.y1), touched);
    ink(touched, color);
  }
  void box(const WorldBox& corners, Rgb color, bool filled) override {
    const Pixel a = at(corners.x0, corners.y0);
    const Pixel b = at(corners.x1, corners.y1);
    Pixels touched;
    if (filled) {
      for (int y = std::min(a.second, b.second); y <= std::max(a.second, b.second); ++y) {
        addLine({a.first, y}, {b.first, y}, touched);
      }
    } else {
      addLine(a, {b.first, a.second}, touched);
      addLine({b.first, a.second}, b, touched);
      addLine(b, {a.first, b.second}, touched);
      addLine({a.first, b.second}, a, touched);
    }
    ink(touched, color);
  }
  void arc(const WorldArc& arc, Rgb color) override {
    constexpr int kSteps = 720;
    const double start = arc.whole ? 0 : arc.start;
    double end = arc.whole ? kTwoPi : arc.end;
    if (end < start) end += kTwoPi;
    Pixels touched;
    for (int step = 0; step <= kSteps; ++step) {
      const double angle = start + (end - start) * step / kSteps;
      touched.push_back(at(static_cast<float>(arc.x + arc.radius * std::cos(angle)),
                           static_cast<float>(arc.y + arc.radius * std::sin(angle))));
    }
    ink(touched, color);
  }
  void text(float x, float y, const std::string& text, Rgb color) override {
    const auto [column, row] = at(x, y);
    Pixels touched;
    addLine({column, row}, {column + static_cast<int>(4 * text.size()), row}, touched);
    ink(touched, color);
  }

 private:
  using Pixel = std::pair<int, int>;
  using Pixels = std::vector<Pixel>;  // some of them more than once

  Pixel at(float x, float y) const {
    const PixelPoint pixel = toPixels(x, y);
    return {static_cast<int>(std::floor(pixel.x)), static_cast<int>(std::floor(pixel.y))};
  }

  // Every second pixel of a dotted line, and two of three of a dashed one.
  bool isInked(int step) const {
    switch (state().drawStyle) {
      case PenStyle::Solid:
        return true;
      case PenStyle::Dash:
        return step % 3 != 2;
      case PenStyle::Dot:
        return step % 2 == 0;
    }
    return true;
  }

  void addLine(Pixel from, Pixel to, Pixels& touched) const {
    const int dx = std::abs(to.first - from.first);
    const int dy = -std::abs(to.second - from.second);
    const int stepX = from.first < to.first ? 1 : -1;
    const int stepY = from.second < to.second ? 1 : -1;
    int error = dx + dy;
    for (int step = 0;; ++step) {
      if (isInked(step)) touched.push_back(from);
      if (from == to) return;
      const int twice = 2 * error;
      if (twice >= dy) {
        error += dy;
        from.first += stepX;
      }
      if (twice <= dx) {
        error += dx;
        from.second += stepY;
      }
    }
  }

  // Each pixel once, however often a shape passes over it.
  void ink(const Pixels& touched, Rgb color) {
    ++shape_;
    const int reach = state().drawWidth / 2;
    for (const auto& [x, y] : touched) {
      for (int dx = -reach; dx <= reach; ++dx) {
        for (int dy = -reach; dy <= reach; ++dy) inkPixel(x + dx, y + dy, color);
      }
    }
  }
  void inkPixel(int x, int y, Rgb color) {
    if (x < 0 || x >= kWidth || y < 0 || y >= kHeight) return;
    const auto index = static_cast<std::size_t>(y * kWidth + x);
    if (std::exchange(inkedBy_[index], shape_) == shape_) return;
    std::int32_t& pixel = pixels_[index];
    pixel = state().drawMode == PenMode::NotXor ? ~(pixel ^ color) & 0xFFFFFF : color;
  }

  std::vector<std::int32_t> pixels_;
  std::vector<int> inkedBy_;  // the last shape that passed over each pixel
  int shape_ = 0;
  bool enabled_ = true;
};

}  // namespace tess::testing
