// Smooth lines by columns. Along the axis in which it is longer, a line crosses column after
// column; in each it covers a stretch of the other axis, which is as long for all of them. A pixel
// takes the share of the ink that the stretch has of it.
#include "shell/qt/smooth_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tess {

// The picture's pixels, turned over where a line is steep, so that it always runs along columns.
struct SmoothLines::Pixels {
  QRgb* first;
  std::ptrdiff_t alongStep, acrossStep;
  int columns, rows;
};

namespace {

using Fixed = std::int32_t;
constexpr int kShift = 16;
constexpr Fixed kOne = 1 << kShift;
constexpr int kToShare = kShift - 8;
constexpr std::uint32_t kWhole = 256;  // share of a pixel

Fixed fixed(double value) {
  return static_cast<Fixed>(value * kOne);
}

int wholeBelow(double value) {
  const int whole = static_cast<int>(value);
  return value < whole ? whole - 1 : whole;
}

// The three channels of a pixel, each with room for its product with a share.
inline std::uint64_t spread(QRgb pixel) {
  return (pixel & 0x00FF00FF) | static_cast<std::uint64_t>(pixel & 0x0000FF00) << 24;
}

// The share of the ink in 256ths; at 256 nothing is left of the pixel.
inline QRgb blended(QRgb under, std::uint64_t ink, std::uint32_t share) {
  const std::uint64_t sums = (spread(under) * (kWhole - share) + ink * share) >> 8;
  return 0xFF000000 | (sums & 0x00FF00FF) | (sums >> 24 & 0x0000FF00);
}

// A line from left to right that rises or falls by `slope` in each column.
struct Run {
  double from, to;  // with its ends
  double start;     // the height at 0
  double slope;
  double half;  // of the stretch in a column
};

bool liesInside(const Run& run, int rows) {
  const double first = run.start + run.slope * run.from;
  const double last = run.start + run.slope * run.to;
  constexpr double kTouched = 3;  // pixels of one column
  return std::min(first, last) - kTouched > 0 && std::max(first, last) + kTouched < rows;
}

Fixed firstPart(Fixed low) {
  return kOne - (low & (kOne - 1));
}

// A column's stretch of ink, from `low` on, as it falls on the pixels.
struct Stretch {
  std::ptrdiff_t acrossStep;
  int rows;
  Fixed low, length;
  std::uint64_t ink;

  std::uint32_t shareOf(Fixed part, std::uint32_t ofWidth) const {
    return (static_cast<std::uint32_t>(part) >> kToShare) * ofWidth >> 8;
  }
};

// For a stretch of one to two pixels that lies in the picture with the three that it may touch.
inline void blendInner(QRgb* column, const Stretch& stretch, std::uint32_t ofWidth) {
  QRgb* pixel = column + (stretch.low >> kShift) * stretch.acrossStep;
  const Fixed first = firstPart(stretch.low);
  const Fixed second = std::min(kOne, stretch.length - first);
  const Fixed third = stretch.length - first - second;
  pixel[0] = blended(pixel[0], stretch.ink, stretch.shareOf(first, ofWidth));
  pixel += stretch.acrossStep;
  pixel[0] = blended(pixel[0], stretch.ink, stretch.shareOf(second, ofWidth));
  pixel += stretch.acrossStep;
  if (third > 0) pixel[0] = blended(pixel[0], stretch.ink, stretch.shareOf(third, ofWidth));
}

inline void blendAny(QRgb* column, const Stretch& stretch, std::uint32_t ofWidth) {
  int row = stretch.low >> kShift;
  Fixed part = firstPart(stretch.low);
  for (Fixed left = stretch.length; left > 0; left -= part, part = kOne, ++row) {
    if (row < 0 || row >= stretch.rows) continue;
    QRgb& pixel = column[row * stretch.acrossStep];
    pixel = blended(pixel, stretch.ink, stretch.shareOf(std::min(part, left), ofWidth));
  }
}

}  // namespace

SmoothLines::Ways SmoothLines::waysOf() const {
  auto* first = reinterpret_cast<QRgb*>(picture_.bits());
  const std::ptrdiff_t line = picture_.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb));
  const int width = picture_.width();
  const int height = picture_.height();
  return {Pixels{first, 1, line, width, height}, Pixels{first, line, 1, height, width}};
}

// Which way a line runs is as good as chance, so that is looked up: the processor cannot foresee a
// branch on it.
SmoothLines::Columns SmoothLines::columnsOf(const Ways& ways, const Line& line) {
  const std::array ends{line.ends.x1(), line.ends.y1(), line.ends.x2(), line.ends.y2()};
  const unsigned steep = std::abs(line.ends.dy()) > std::abs(line.ends.dx()) ? 1 : 0;
  const unsigned left = ends[2 + steep] < ends[steep] ? 2 : 0;
  const QPointF from(ends[left + steep], ends[left + 1 - steep]);
  const QPointF to(ends[2 - left + steep], ends[3 - left - steep]);
  const QPointF delta = to - from;
  const double slope = delta.x() > 0 ? delta.y() / delta.x() : 0;  // a point lies level
  const double stretch = std::sqrt(1 + slope * slope);  // of the length, and of the width
  const double reach = line.width / 2 / stretch;
  const Pixels& pixels = ways[steep];
  const Run run{.from = from.x() - reach,
                .to = to.x() + reach,
                .start = from.y() - slope * from.x(),
                .slope = slope,
                .half = line.width / 2 * stretch};
  const int first = std::max(0, wholeBelow(run.from));
  const int last = std::min(pixels.columns - 1, -wholeBelow(-run.to) - 1);
  const auto shareOf = [&](int column) {
    const double covered = std::min(run.to, column + 1.0) - std::max(run.from, 1.0 * column);
    return static_cast<std::uint32_t>(static_cast<int>(covered * kWhole));
  };
  const bool narrow = 2 * run.half <= 2;
  return {.first = pixels.first + first * pixels.alongStep,
          .alongStep = pixels.alongStep,
          .acrossStep = pixels.acrossStep,
          .count = std::max(0, last - first + 1),
          .rows = pixels.rows,
          .low = fixed(run.start + run.slope * (first + 0.5) - run.half),
          .slope = fixed(run.slope),
          .length = fixed(2 * run.half),
          .firstShare = shareOf(first),
          .lastShare = shareOf(last),
          .ink = line.ink,
          .isInner = narrow && liesInside(run, pixels.rows)};
}

void SmoothLines::fetch(const Columns& line) {
  const QRgb* column = line.first;
  Fixed low = line.low;
  for (int left = line.count; left > 0; --left, low += line.slope, column += line.alongStep) {
    __builtin_prefetch(column + (low >> kShift) * line.acrossStep, /*forWriting=*/1);
  }
}

// Only the first and the last column may be covered in part of their width.
void SmoothLines::blend(const Columns& line) {
  if (line.count == 0) return;
  const auto blendBy = [&line](auto blendColumn) {
    Stretch stretch{line.acrossStep, line.rows, line.low, line.length, spread(line.ink)};
    QRgb* column = line.first;
    const auto goOn = [&] {
      stretch.low += line.slope;
      column += line.alongStep;
    };
    blendColumn(column, stretch, line.firstShare);
    if (line.count == 1) return;
    goOn();
    for (int left = line.count - 2; left > 0; --left, goOn()) blendColumn(column, stretch, kWhole);
    blendColumn(column, stretch, line.lastShare);
  };
  if (line.isInner) {
    blendBy([](QRgb* column, const Stretch& stretch, std::uint32_t ofWidth) {
      blendInner(column, stretch, ofWidth);
    });
  } else {
    blendBy([](QRgb* column, const Stretch& stretch, std::uint32_t ofWidth) {
      blendAny(column, stretch, ofWidth);
    });
  }
}

// All that was added is fetched, and what had been fetched before is blended.
void SmoothLines::step() {
  const Ways ways = waysOf();
  std::array<Columns, kMost> next;
  for (std::size_t at = 0; at < count_; ++at) next[at] = columnsOf(ways, added_[at]);
  for (std::size_t at = 0; at < count_; ++at) fetch(next[at]);
  for (std::size_t at = 0; at < fetchedCount_; ++at) blend(fetched_[at]);
  fetched_ = next;
  fetchedCount_ = std::exchange(count_, 0);
}

void SmoothLines::finish() {
  while (count_ + fetchedCount_ > 0) step();
}

}  // namespace tess
