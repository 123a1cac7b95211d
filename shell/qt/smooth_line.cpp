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
  std::ptrdiff_t alongStep, acrossStep;  // from a pixel to its neighbour
  int rows;
};

namespace {

using Fixed = std::int32_t;
constexpr int kShift = 16;
constexpr Fixed kOne = 1 << kShift;
constexpr int kToShare = kShift - 8;
constexpr std::uint32_t kWhole = 256;  // share of a pixel

Fixed fixed(float value) {
  return static_cast<Fixed>(value * kOne);
}

int wholeBelow(float value) {
  const int whole = static_cast<int>(value);
  return whole - (value < static_cast<float>(whole) ? 1 : 0);
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

// A line from left to right over the columns that it crosses.
struct Run {
  bool isSteep;        // the columns are the rows of the picture
  float left, atLeft;  // the left end: along the columns, and across them
  float slope;         // the rise in each column
  float half;          // of the stretch in a column
  float from, to;      // with its ends

  float heightAt(float place) const { return atLeft + slope * (place - left); }
  // Of a column's width that the line covers, in 256ths.
  int shareOf(int column) const {
    const auto edge = static_cast<float>(column);
    return static_cast<int>((std::min(to, edge + 1) - std::max(from, edge)) * kWhole);
  }
};

struct Place {
  float x, y;
};

inline Run runOf(const Place& start, const Place& end, float width) {
  const auto [x1, y1] = start;
  const auto [x2, y2] = end;
  const bool steep = std::abs(y2 - y1) > std::abs(x2 - x1);
  const float along1 = steep ? y1 : x1, across1 = steep ? x1 : y1;
  const float along2 = steep ? y2 : x2, across2 = steep ? x2 : y2;
  const bool back = along2 < along1;
  const float left = back ? along2 : along1, atLeft = back ? across2 : across1;
  const float right = back ? along1 : along2, atRight = back ? across1 : across2;
  constexpr float kNoLength = 1e-30F;  // a point lies level
  const float slope = (atRight - atLeft) / std::max(right - left, kNoLength);
  const float stretch = std::sqrt(1 + slope * slope);  // of the length, and of the width
  const float reach = width / 2 / stretch;
  return {steep, left, atLeft, slope, width / 2 * stretch, left - reach, right + reach};
}

// Whether no column's stretch can leave the picture, and none needs more than three pixels.
inline bool isInner(const Run& run, int rows) {
  constexpr float kTouched = 3;
  const float start = run.heightAt(run.from), end = run.heightAt(run.to);
  const float highest = static_cast<float>(rows) - kTouched;
  const int inside = (std::min(start, end) > kTouched ? 1 : 0) & (std::max(start, end) < highest);
  return (inside & (run.half <= 1 ? 1 : 0)) != 0;
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
  return {Pixels{first, 1, line, picture_.height()}, Pixels{first, line, 1, picture_.width()}};
}

// No branch in this and in what it calls: which way a line runs is as good as chance, and loops
// without branches are worked out several rounds at once.
SmoothLines::Columns SmoothLines::columnsOf(const Lines& lines, const QSize& picture) {
  Columns columns;
  const int width = picture.width();
  const int height = picture.height();
  for (std::size_t at = 0; at < kMost; ++at) {
    const Run run = runOf({lines.startX[at], lines.startY[at]}, {lines.endX[at], lines.endY[at]},
                          lines.width[at]);
    const int first = std::max(0, wholeBelow(run.from));
    const int last = std::min((run.isSteep ? height : width) - 1, -wholeBelow(-run.to) - 1);
    columns.isSteep[at] = run.isSteep ? 1 : 0;
    columns.first[at] = first;
    columns.last[at] = last;
    columns.low[at] = fixed(run.heightAt(static_cast<float>(first) + 0.5F) - run.half);
    columns.slope[at] = fixed(run.slope);
    columns.length[at] = fixed(2 * run.half);
    columns.firstShare[at] = run.shareOf(first);
    columns.lastShare[at] = run.shareOf(last);
    columns.isInner[at] = isInner(run, run.isSteep ? width : height) ? 1 : 0;
  }
  columns.ink = lines.ink;
  return columns;
}

void SmoothLines::fetch(const Ways& ways, const Columns& columns, std::size_t at) {
  const Pixels& pixels = ways[columns.isSteep[at]];
  const QRgb* column = pixels.first + columns.first[at] * pixels.alongStep;
  Fixed low = columns.low[at];
  for (int left = columns.last[at] - columns.first[at]; left >= 0; --left) {
    __builtin_prefetch(column + (low >> kShift) * pixels.acrossStep, /*forWriting=*/1);
    low += columns.slope[at];
    column += pixels.alongStep;
  }
}

// Only the first and the last column may be covered in part of their width.
void SmoothLines::blend(const Ways& ways, const Columns& columns, std::size_t at) {
  const int between = columns.last[at] - columns.first[at] - 1;
  if (between < -1) return;
  const Pixels& pixels = ways[columns.isSteep[at]];
  const auto blendBy = [&](auto blendColumn) {
    Stretch stretch{pixels.acrossStep, pixels.rows, columns.low[at], columns.length[at],
                    spread(columns.ink[at])};
    QRgb* column = pixels.first + columns.first[at] * pixels.alongStep;
    const auto goOn = [&, slope = columns.slope[at]] {
      stretch.low += slope;
      column += pixels.alongStep;
    };
    blendColumn(column, stretch, columns.firstShare[at]);
    if (between < 0) return;
    goOn();
    for (int left = between; left > 0; --left, goOn()) blendColumn(column, stretch, kWhole);
    blendColumn(column, stretch, columns.lastShare[at]);
  };
  if (columns.isInner[at]) {
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
  const Columns next = columnsOf(added_, picture_.size());
  for (std::size_t at = 0; at < count_; ++at) fetch(ways, next, at);
  for (std::size_t at = 0; at < fetchedCount_; ++at) blend(ways, fetched_, at);
  fetched_ = next;
  fetchedCount_ = std::exchange(count_, 0);
}

void SmoothLines::finish() {
  while (count_ + fetchedCount_ > 0) step();
}

}  // namespace tess
