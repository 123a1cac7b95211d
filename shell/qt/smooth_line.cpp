// Smooth lines by columns. Along the axis in which it is longer, a line crosses column after
// column; in each it covers a stretch of the other axis, which is as long for all of them. A pixel
// takes the share of the ink that the stretch has of it.
#include "shell/qt/smooth_line.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tess {

namespace {

// Positions within the picture, in 65536ths of a pixel.
using Fixed = std::int32_t;
constexpr int kShift = 16;
constexpr Fixed kOne = 1 << kShift;
constexpr int kToShare = kShift - 8;

Fixed fixed(double value) {
  return static_cast<Fixed>(value * kOne);
}

// The share of the ink in 256ths; at 256 nothing is left of the pixel.
QRgb blended(QRgb under, QRgb ink, std::uint32_t share) {
  constexpr QRgb kRedBlue = 0x00FF00FF;
  constexpr QRgb kGreen = 0x0000FF00;
  const std::uint32_t rest = 256 - share;
  const QRgb redBlue = ((under & kRedBlue) * rest + (ink & kRedBlue) * share) >> 8;
  const QRgb green = ((under & kGreen) * rest + (ink & kGreen) * share) >> 8;
  return 0xFF000000 | (redBlue & kRedBlue) | (green & kGreen);
}

// The picture's pixels, turned over where a line is steep, so that it always runs along columns.
struct Pixels {
  QRgb* first;
  std::ptrdiff_t alongStep, acrossStep;  // from a pixel to its neighbour
  int columns, rows;
};

Pixels pixelsOf(QImage& picture, bool steep) {
  auto* first = reinterpret_cast<QRgb*>(picture.bits());
  const std::ptrdiff_t line = picture.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb));
  if (steep) return {first, line, 1, picture.height(), picture.width()};
  return {first, 1, line, picture.width(), picture.height()};
}

// A column's stretch, from `low` on, of a line that fills the part `share` (in 256ths) of the
// column's width.
struct Stretch {
  Fixed low, length;
  std::uint32_t share;
};

void blendColumn(const Pixels& pixels, QRgb* column, const Stretch& stretch, QRgb ink) {
  int row = stretch.low >> kShift;
  QRgb* pixel = column + row * pixels.acrossStep;
  Fixed part = kOne - (stretch.low & (kOne - 1));  // of the first pixel
  for (Fixed left = stretch.length; left > 0; left -= part, part = kOne) {
    const auto covered = static_cast<std::uint32_t>(std::min(part, left)) >> kToShare;
    if (row >= 0 && row < pixels.rows) *pixel = blended(*pixel, ink, covered * stretch.share >> 8);
    ++row;
    pixel += pixels.acrossStep;
  }
}

// A line from left to right that rises or falls by `slope` in each column.
struct Run {
  double from, to;  // with its ends
  double start;     // the height at 0
  double slope;
  double half;  // of the stretch in a column
};

void blendRun(const Pixels& pixels, const Run& run, QRgb ink) {
  const int first = std::max(0, static_cast<int>(std::floor(run.from)));
  const int last = std::min(pixels.columns - 1, static_cast<int>(std::ceil(run.to)) - 1);
  const Fixed from = fixed(run.from);
  const Fixed to = fixed(run.to);
  const Fixed slope = fixed(run.slope);
  Stretch stretch{fixed(run.start + run.slope * (first + 0.5) - run.half), fixed(2 * run.half), 0};
  QRgb* pixel = pixels.first + first * pixels.alongStep;
  for (int column = first; column <= last; ++column, pixel += pixels.alongStep) {
    const Fixed left = column << kShift;
    const Fixed width = std::min(to, left + kOne) - std::max(from, left);
    stretch.share = static_cast<std::uint32_t>(width) >> kToShare;
    blendColumn(pixels, pixel, stretch, ink);
    stretch.low += slope;
  }
}

}  // namespace

void blendLine(QImage& picture, const QLineF& line, double width, QRgb ink) {
  const bool steep = std::abs(line.dy()) > std::abs(line.dx());
  QPointF from = steep ? line.p1().transposed() : line.p1();
  QPointF to = steep ? line.p2().transposed() : line.p2();
  if (to.x() < from.x()) std::swap(from, to);
  const QPointF way = to - from;
  const double slope = way.x() > 0 ? way.y() / way.x() : 0;  // a point lies level
  const double stretch = std::sqrt(1 + slope * slope);       // of the way, and of the width
  const double reach = width / 2 / stretch;
  blendRun(pixelsOf(picture, steep),
           {.from = from.x() - reach,
            .to = to.x() + reach,
            .start = from.y() - slope * from.x(),
            .slope = slope,
            .half = width / 2 * stretch},
           ink);
}

}  // namespace tess
