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
constexpr std::uint32_t kWhole = 256;  // share of a pixel

Fixed fixed(double value) {
  return static_cast<Fixed>(value * kOne);
}

// The share of the ink in 256ths; at 256 nothing is left of the pixel.
inline QRgb blended(QRgb under, QRgb ink, std::uint32_t share) {
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

inline void blendPart(QRgb& pixel, QRgb ink, Fixed part, std::uint32_t share) {
  pixel = blended(pixel, ink, (static_cast<std::uint32_t>(part) >> kToShare) * share >> 8);
}

Fixed firstPart(const Stretch& stretch) {
  return kOne - (stretch.low & (kOne - 1));
}

// For a stretch of one to two pixels that lies in the picture with the three that it may touch.
inline void blendInner(const Pixels& pixels, QRgb* column, const Stretch& stretch, QRgb ink) {
  QRgb* pixel = column + (stretch.low >> kShift) * pixels.acrossStep;
  const Fixed first = firstPart(stretch);
  const Fixed second = std::min(kOne, stretch.length - first);
  blendPart(pixel[0], ink, first, stretch.share);
  blendPart(pixel[pixels.acrossStep], ink, second, stretch.share);
  blendPart(pixel[2 * pixels.acrossStep], ink, stretch.length - first - second, stretch.share);
}

void blendAny(const Pixels& pixels, QRgb* column, const Stretch& stretch, QRgb ink) {
  int row = stretch.low >> kShift;
  Fixed part = firstPart(stretch);
  for (Fixed left = stretch.length; left > 0; left -= part, part = kOne, ++row) {
    if (row < 0 || row >= pixels.rows) continue;
    blendPart(column[row * pixels.acrossStep], ink, std::min(part, left), stretch.share);
  }
}

// A line from left to right that rises or falls by `slope` in each column.
struct Run {
  double from, to;  // with its ends
  double start;     // the height at 0
  double slope;
  double half;  // of the stretch in a column
};

bool liesInside(const Pixels& pixels, const Run& run) {
  const double first = run.start + run.slope * run.from;
  const double last = run.start + run.slope * run.to;
  constexpr double kTouched = 3;  // pixels of one column
  return std::min(first, last) - kTouched > 0 && std::max(first, last) + kTouched < pixels.rows;
}

// The pixels of a steep line lie far apart in memory. Asked for beforehand they come at once
// instead of one after the other.
void fetchRun(const Pixels& pixels, const QRgb* pixel, int columns, Fixed low, Fixed slope) {
  for (; columns > 0; --columns, low += slope, pixel += pixels.alongStep) {
    __builtin_prefetch(pixel + (low >> kShift) * pixels.acrossStep, /*forWriting=*/1);
  }
}

// Only the first and the last column may be covered in part of their width.
template <typename BlendColumn>
void blendRun(const Pixels& pixels, const Run& run, BlendColumn blendColumn) {
  const int first = std::max(0, static_cast<int>(std::floor(run.from)));
  const int last = std::min(pixels.columns - 1, static_cast<int>(std::ceil(run.to)) - 1);
  const Fixed slope = fixed(run.slope);
  Stretch stretch{fixed(run.start + run.slope * (first + 0.5) - run.half), fixed(2 * run.half), 0};
  QRgb* pixel = pixels.first + first * pixels.alongStep;
  const auto blendNext = [&](std::uint32_t share) {
    stretch.share = share;
    blendColumn(pixel, stretch);
    stretch.low += slope;
    pixel += pixels.alongStep;
  };
  const auto shareOf = [&](int column) {
    const double width = std::min(run.to, column + 1.0) - std::max(run.from, 1.0 * column);
    return static_cast<std::uint32_t>(width * kWhole);
  };
  if (first > last) return;
  fetchRun(pixels, pixel, last - first + 1, stretch.low, slope);
  blendNext(shareOf(first));
  for (int column = first + 1; column < last; ++column) blendNext(kWhole);
  if (first < last) blendNext(shareOf(last));
}

}  // namespace

void blendLine(QImage& picture, const QLineF& line, double width, QRgb ink) {
  const bool steep = std::abs(line.dy()) > std::abs(line.dx());
  QPointF from = steep ? line.p1().transposed() : line.p1();
  QPointF to = steep ? line.p2().transposed() : line.p2();
  if (to.x() < from.x()) std::swap(from, to);
  const QPointF delta = to - from;
  const double slope = delta.x() > 0 ? delta.y() / delta.x() : 0;  // a point lies level
  const double stretch = std::sqrt(1 + slope * slope);  // of the length, and of the width
  const double reach = width / 2 / stretch;
  const Pixels pixels = pixelsOf(picture, steep);
  const Run run{.from = from.x() - reach,
                .to = to.x() + reach,
                .start = from.y() - slope * from.x(),
                .slope = slope,
                .half = width / 2 * stretch};
  const bool narrow = 2 * run.half <= 2;
  if (narrow && liesInside(pixels, run)) {
    blendRun(pixels, run, [&](QRgb* column, const Stretch& covered) {
      blendInner(pixels, column, covered, ink);
    });
  } else {
    blendRun(pixels, run,
             [&](QRgb* column, const Stretch& covered) { blendAny(pixels, column, covered, ink); });
  }
}

}  // namespace tess
