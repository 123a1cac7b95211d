// The discs of a row by halves: a half that lies out of sight is left out as a whole.
#include "display/disc_row.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tess {
namespace {

constexpr int kSmallPart = 8;  // so few discs are not worth a look at where they lie

double pixelOf(const DrawingTarget& target) {
  const double across = target.ScaleX(1, ScaleUnit::Pixels, ScaleUnit::User);
  const double down = target.ScaleY(1, ScaleUnit::Pixels, ScaleUnit::User);
  return std::max(std::abs(across), std::abs(down));
}

// What a target shows, with room for what reaches into it from outside.
struct Sight {
  Sight(const DrawingTarget& target, double room)
      : left(target.ScaleLeft() - room),
        right(target.ScaleLeft() + double{target.ScaleWidth()} + room),
        bottom(target.ScaleTop() + double{target.ScaleHeight()} - room),
        top(target.ScaleTop() + room) {}

  bool meets(Point a, Point b, double bulge) const {
    const auto [low, high] = std::minmax(a.x, b.x);
    const auto [lower, upper] = std::minmax(a.y, b.y);
    return low - bulge <= right && high + bulge >= left && lower - bulge <= top &&
           upper + bulge >= bottom;
  }

  double left, right, bottom, top;
};

void traceDisc(const DiscRow& row, int place, Rgb color, DrawingTarget& target) {
  const Point at = row.at(place);
  target.TraceCircle(at.x, at.y, row.radius, color);
}

class SeenDiscs {
 public:
  SeenDiscs(const DiscRow& row, Rgb color, DrawingTarget& target)
      : row_(row),
        color_(color),
        target_(target),
        sight_(target, row.radius + 2 * pixelOf(target)),
        stride_(strideFor(row, pixelOf(target))) {}

  void trace() { trace(1, row_.count / stride_); }

 private:
  static int strideFor(const DiscRow& row, double pixel) {
    const double wanted = std::ceil(pixel / row.spacing);
    return wanted < row.count ? std::max(static_cast<int>(wanted), 1) : row.count;
  }

  // Strides from `first` to `last`.
  void trace(int first, int last) {
    if (first > last || !isSeen(first * stride_, last * stride_)) return;
    if (last - first > kSmallPart) {
      const int middle = first + (last - first) / 2;
      trace(first, middle);
      trace(middle + 1, last);
      return;
    }
    for (int number = first; number <= last; ++number) {
      traceDisc(row_, number * stride_, color_, target_);
    }
  }

  bool isSeen(int from, int to) const {
    return sight_.meets(row_.at(from), row_.at(to), row_.bulge(from, to));
  }

  const DiscRow& row_;
  Rgb color_;
  DrawingTarget& target_;
  Sight sight_;
  int stride_;
};

}  // namespace

void traceDiscs(const DiscRow& row, Rgb color, DrawingTarget& target) {
  const double sides = double{target.Width()} + target.Height();
  if (row.count > sides) return SeenDiscs(row, color, target).trace();
  for (int place = 1; place <= row.count; ++place) traceDisc(row, place, color, target);
}

}  // namespace tess
