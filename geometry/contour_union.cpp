// The union of contours. All corners are whole numbers, so that every question of sides is answered
// exactly:
// 1. Lines are cut where they cross or touch, the cuts rounded, until none is left to cut: rounding
//    moves a line a little and may bring about another crossing.
// 2. Lines that lie on one another become one that knows how often, and in which sense, it is run.
// 3. The turns on both sides of each line are counted by a ray straight down from its middle.
// 4. A line with the inside on one side alone is part of the outline.
#include "geometry/contour_union.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <tuple>
#include <utility>

#include "geometry/box_index.h"

namespace tess {
namespace {

__extension__ using Wide = __int128;

struct GridPoint {
  std::int64_t x = 0, y = 0;
  friend bool operator==(const GridPoint&, const GridPoint&) = default;
  friend auto operator<=>(const GridPoint&, const GridPoint&) = default;
  friend GridPoint operator-(GridPoint a, GridPoint b) { return {a.x - b.x, a.y - b.y}; }
};

struct GridLine {
  GridPoint from, to;
};

// A line from its lesser end, and how often it is run in that sense, less how often in the other.
struct CountedLine {
  GridPoint low, high;
  int count = 0;
};

Wide crossOf(GridPoint a, GridPoint b) {
  return Wide{a.x} * b.y - Wide{a.y} * b.x;
}
Wide dotOf(GridPoint a, GridPoint b) {
  return Wide{a.x} * b.x + Wide{a.y} * b.y;
}
int signOfWide(Wide value) {
  return value > 0 ? 1 : (value < 0 ? -1 : 0);
}
// 1 when `point` lies to the left of the line.
int sideOf(const GridLine& line, GridPoint point) {
  return signOfWide(crossOf(line.to - line.from, point - line.from));
}

GridPoint rounded(PlanePoint point) {
  return {std::llround(point.x), std::llround(point.y)};
}
PlanePoint plane(GridPoint point) {
  return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

// ---- Contours

using Contour = std::vector<ContourLine>;

std::vector<Contour> contoursOf(std::span<const ContourLine> lines) {
  std::vector<Contour> contours;
  bool goesOn = false;
  for (const ContourLine& line : lines) {
    goesOn = goesOn && contours.back().back().to == line.from;
    if (!goesOn) contours.emplace_back();
    contours.back().push_back(line);
    goesOn = !(line.to == contours.back().front().from);
  }
  return contours;
}

bool isClosed(const Contour& contour) {
  return contour.size() > 2 && contour.back().to == contour.front().from;
}

// ---- Cutting

// A place strictly between the ends.
bool liesWithin(const GridLine& line, GridPoint point) {
  if (sideOf(line, point) != 0) return false;
  const Wide along = dotOf(line.to - line.from, point - line.from);
  return along > 0 && along < dotOf(line.to - line.from, line.to - line.from);
}

bool crosses(const GridLine& a, const GridLine& b) {
  return sideOf(a, b.from) * sideOf(a, b.to) < 0 && sideOf(b, a.from) * sideOf(b, a.to) < 0;
}

GridPoint crossing(const GridLine& a, const GridLine& b) {
  const GridPoint along = a.to - a.from;
  const GridPoint other = b.to - b.from;
  const double part = static_cast<double>(crossOf(b.from - a.from, other)) /
                      static_cast<double>(crossOf(along, other));
  return {a.from.x + std::llround(part * static_cast<double>(along.x)),
          a.from.y + std::llround(part * static_cast<double>(along.y))};
}

class Cuts {
 public:
  explicit Cuts(const std::vector<GridLine>& lines) : lines_(lines) {}

  void between(std::size_t first, std::size_t second) {
    const GridLine& a = lines_[first];
    const GridLine& b = lines_[second];
    for (const GridPoint end : {b.from, b.to}) {
      if (liesWithin(a, end)) places_.push_back({first, end});
    }
    for (const GridPoint end : {a.from, a.to}) {
      if (liesWithin(b, end)) places_.push_back({second, end});
    }
    if (!crosses(a, b)) return;
    const GridPoint at = crossing(a, b);
    add(first, at);
    add(second, at);
  }

  std::size_t count() const { return places_.size(); }

  std::vector<GridLine> pieces() {
    std::sort(places_.begin(), places_.end(), [this](const Place& a, const Place& b) {
      return a.line != b.line ? a.line < b.line : along(a) < along(b);
    });
    std::vector<GridLine> pieces;
    pieces.reserve(lines_.size() + places_.size());
    auto next = places_.begin();
    for (std::size_t line = 0; line < lines_.size(); ++line) {
      GridPoint from = lines_[line].from;
      for (; next != places_.end() && next->line == line; ++next) {
        if (!(next->at == from)) pieces.push_back({from, next->at});
        from = next->at;
      }
      if (!(from == lines_[line].to)) pieces.push_back({from, lines_[line].to});
    }
    return pieces;
  }

 private:
  struct Place {
    std::size_t line;
    GridPoint at;
  };
  void add(std::size_t line, GridPoint at) {
    if (!(at == lines_[line].from) && !(at == lines_[line].to)) places_.push_back({line, at});
  }
  Wide along(const Place& place) const {
    const GridLine& line = lines_[place.line];
    return dotOf(line.to - line.from, place.at - line.from);
  }

  const std::vector<GridLine>& lines_;
  std::vector<Place> places_;
};

BoxIndex boxesOf(const std::vector<GridLine>& lines) {
  std::vector<Box> boxes;
  boxes.reserve(lines.size());
  for (const GridLine& line : lines) {
    const auto [left, right] = std::minmax(line.from.x, line.to.x);
    const auto [bottom, top] = std::minmax(line.from.y, line.to.y);
    boxes.push_back(boxAround(plane({left, bottom}), plane({right, top})));
  }
  return BoxIndex(std::move(boxes));
}

// A cut makes progress always, and rounded cuts soon bring about no more. False where that is not
// in sight: with more pairs to compare, or more cuts to make, than any letters have.
bool cutAtCrossings(std::vector<GridLine>& lines) {
  constexpr int kMostPairs = 10000000;
  constexpr std::size_t kMostCuts = 200000;
  int pairs = 0;
  while (true) {
    Cuts cuts(lines);
    boxesOf(lines).visitPairs([&](int first, int second) {
      cuts.between(static_cast<std::size_t>(first) - 1, static_cast<std::size_t>(second) - 1);
      return ++pairs < kMostPairs && cuts.count() < kMostCuts;
    });
    if (pairs >= kMostPairs || cuts.count() >= kMostCuts) return false;
    if (cuts.count() == 0) return true;
    lines = cuts.pieces();
  }
}

// ---- Counting

std::vector<CountedLine> counted(const std::vector<GridLine>& lines) {
  std::vector<CountedLine> all;
  all.reserve(lines.size());
  for (const GridLine& line : lines) {
    const bool rises = line.from < line.to;
    all.push_back(rises ? CountedLine{line.from, line.to, 1} : CountedLine{line.to, line.from, -1});
  }
  const auto ends = [](const CountedLine& line) { return std::tie(line.low, line.high); };
  std::sort(all.begin(), all.end(),
            [&](const CountedLine& a, const CountedLine& b) { return ends(a) < ends(b); });
  std::vector<CountedLine> once;
  for (const CountedLine& line : all) {
    if (!once.empty() && ends(once.back()) == ends(line)) {
      once.back().count += line.count;
    } else {
      once.push_back(line);
    }
  }
  std::erase_if(once, [](const CountedLine& line) { return line.count == 0; });
  return once;
}

// The lines above and below one another, by columns of equal width.
class Columns {
 public:
  explicit Columns(const std::vector<CountedLine>& lines) : lines_(lines) {
    left_ = lines.front().low.x;  // in their order the first begins furthest left
    for (const CountedLine& line : lines) right_ = std::max(right_, line.high.x - left_);
    for (count_ = lines.size(); count_ > 1 && items() > kItemsPerLine * lines.size();) count_ /= 2;
    fill();
  }

  // How often the contours turn about the place just beside the middle of a line: below it, or to
  // the left of an upright one.
  int turnsBeside(std::size_t index) const {
    const CountedLine& line = lines_[index];
    const GridPoint middle{line.low.x + line.high.x, line.low.y + line.high.y};  // doubled
    const bool upright = line.low.x == line.high.x;
    int turns = 0;
    for (const std::uint32_t other : columns_[column(middle.x / 2)]) {
      if (other == index) continue;
      if (reaches(lines_[other], middle.x, upright) && liesBelow(lines_[other], middle)) {
        turns += lines_[other].count;
      }
    }
    return turns;
  }

 private:
  static constexpr std::size_t kItemsPerLine = 16;

  std::size_t column(std::int64_t x) const {
    const double part = static_cast<double>(x - left_) / (static_cast<double>(right_) + 1);
    return std::min(static_cast<std::size_t>(part * static_cast<double>(count_)), count_ - 1);
  }
  std::size_t items() const {
    std::size_t total = 0;
    for (const CountedLine& line : lines_) total += column(line.high.x) - column(line.low.x) + 1;
    return total;
  }
  void fill() {
    columns_.resize(count_);
    for (std::size_t index = 0; index < lines_.size(); ++index) {
      const std::size_t last = column(lines_[index].high.x);
      for (std::size_t at = column(lines_[index].low.x); at <= last; ++at) {
        columns_[at].push_back(static_cast<std::uint32_t>(index));
      }
    }
  }
  // Each place belongs to one of two lines that meet above it: the one to its right, and for an
  // upright line, beside which the ray falls to the left, the one to its left.
  static bool reaches(const CountedLine& line, std::int64_t x2, bool fromLeft) {
    return fromLeft ? 2 * line.low.x < x2 && x2 <= 2 * line.high.x
                    : 2 * line.low.x <= x2 && x2 < 2 * line.high.x;
  }
  static bool liesBelow(const CountedLine& line, GridPoint doubled) {
    const GridPoint low{2 * line.low.x, 2 * line.low.y};
    return crossOf(line.high - line.low, doubled - low) > 0;
  }

  const std::vector<CountedLine>& lines_;
  std::int64_t left_ = 0, right_ = 0;  // right_ from left_ on
  std::size_t count_ = 1;
  std::vector<std::vector<std::uint32_t>> columns_;
};

// The lines of the outline, each with the inside to its left.
std::vector<GridLine> outlineOf(const std::vector<CountedLine>& lines) {
  std::vector<GridLine> outline;
  if (lines.empty()) return outline;
  const Columns columns(lines);
  for (std::size_t index = 0; index < lines.size(); ++index) {
    const CountedLine& line = lines[index];
    const int beside = columns.turnsBeside(index);
    const bool upright = line.low.x == line.high.x;
    // Beside an upright line that is its left, beside any other its right.
    const bool insideLeft = (upright ? beside : beside + line.count) != 0;
    const bool insideRight = (upright ? beside - line.count : beside) != 0;
    if (insideLeft == insideRight) continue;
    outline.push_back(insideLeft ? GridLine{line.low, line.high} : GridLine{line.high, line.low});
  }
  return outline;
}

// ---- Contours again

// Rank of a direction, seen turning clockwise from where one came: the sharpest turn to the left
// comes first.
bool comesBefore(GridPoint back, GridPoint a, GridPoint b) {
  const auto half = [&](GridPoint direction) {
    const int side = signOfWide(crossOf(back, direction));
    if (side != 0) return side < 0 ? 0 : 1;
    return dotOf(back, direction) > 0 ? 2 : 0;
  };
  const int halfA = half(a);
  const int halfB = half(b);
  return halfA != halfB ? halfA < halfB : crossOf(a, b) < 0;
}

class Chains {
 public:
  explicit Chains(std::vector<GridLine> lines) : lines_(std::move(lines)), used_(lines_.size()) {
    std::sort(lines_.begin(), lines_.end(),
              [](const GridLine& a, const GridLine& b) { return a.from < b.from; });
  }

  std::vector<std::vector<GridPoint>> contours() {
    std::vector<std::vector<GridPoint>> contours;
    for (std::size_t first = 0; first < lines_.size(); ++first) {
      if (!used_[first]) contours.push_back(contourFrom(first));
    }
    return contours;
  }

 private:
  std::vector<GridPoint> contourFrom(std::size_t first) {
    std::vector<GridPoint> corners;
    std::size_t at = first;
    while (at < lines_.size()) {
      used_[at] = true;
      corners.push_back(lines_[at].from);
      at = nextAfter(lines_[at]);
    }
    return corners;
  }

  // Past the end where the contour is closed.
  std::size_t nextAfter(const GridLine& line) const {
    const GridPoint back = line.from - line.to;
    std::size_t best = lines_.size();
    const auto begin =
        std::lower_bound(lines_.begin(), lines_.end(), line.to,
                         [](const GridLine& each, GridPoint place) { return each.from < place; });
    for (auto next = begin; next != lines_.end() && next->from == line.to; ++next) {
      const auto index = static_cast<std::size_t>(next - lines_.begin());
      if (used_[index]) continue;
      const bool better = best == lines_.size() || comesBefore(back, next->to - next->from,
                                                               lines_[best].to - lines_[best].from);
      if (better) best = index;
    }
    return best;
  }

  std::vector<GridLine> lines_;
  std::vector<char> used_;
};

bool isStraight(GridPoint before, GridPoint corner, GridPoint after) {
  return crossOf(corner - before, after - corner) == 0 &&
         dotOf(corner - before, after - corner) > 0;
}

std::vector<GridPoint> withoutStraightCorners(const std::vector<GridPoint>& corners) {
  std::vector<GridPoint> kept;
  const std::size_t count = corners.size();
  for (std::size_t at = 0; at < count; ++at) {
    const GridPoint before = kept.empty() ? corners[(at + count - 1) % count] : kept.back();
    if (!isStraight(before, corners[at], corners[(at + 1) % count])) kept.push_back(corners[at]);
  }
  return kept;
}

// What rounding leaves between lines that nearly lie on one another is no area.
bool hasArea(const std::vector<GridPoint>& corners) {
  constexpr double kLeastWidth = 2;
  double twice = 0;
  double length = 0;
  for (std::size_t at = 0; at < corners.size(); ++at) {
    const GridPoint next = corners[(at + 1) % corners.size()];
    twice += static_cast<double>(crossOf(corners[at] - corners[0], next - corners[0]));
    length += lengthOf(plane(next - corners[at]));
  }
  return corners.size() > 2 && std::abs(twice) > length * kLeastWidth;
}

// ---- The frame

// Rays fall across the longer side of the whole, where fewer lines lie above one another: a tall
// one is turned by a quarter.
bool isTall(const std::vector<GridLine>& lines) {
  std::array<std::int64_t, 2> low{lines[0].from.x, lines[0].from.y};
  std::array<std::int64_t, 2> high = low;
  for (const GridLine& line : lines) {
    low = {std::min(low[0], line.from.x), std::min(low[1], line.from.y)};
    high = {std::max(high[0], line.from.x), std::max(high[1], line.from.y)};
  }
  return high[1] - low[1] > high[0] - low[0];
}

GridPoint quarterTurned(GridPoint point) {
  return {point.y, -point.x};
}
GridPoint turnedBack(GridPoint point) {
  return {-point.y, point.x};
}

void appendContour(std::vector<ContourLine>& lines, const std::vector<GridPoint>& corners,
                   bool turned) {
  const auto place = [&](std::size_t at) {
    const GridPoint corner = corners[at % corners.size()];
    return plane(turned ? turnedBack(corner) : corner);
  };
  for (std::size_t at = 0; at < corners.size(); ++at) lines.push_back({place(at), place(at + 1)});
}

// The lines of the closed contours on the grid; those of the others go to `open` as they are.
std::vector<GridLine> closedLines(std::span<const ContourLine> lines,
                                  std::vector<ContourLine>& open) {
  std::vector<GridLine> closed;
  for (const Contour& contour : contoursOf(lines)) {
    if (!isClosed(contour)) {
      open.insert(open.end(), contour.begin(), contour.end());
      continue;
    }
    for (const ContourLine& line : contour) {
      const GridLine onGrid{rounded(line.from), rounded(line.to)};
      if (!(onGrid.from == onGrid.to)) closed.push_back(onGrid);
    }
  }
  return closed;
}

}  // namespace

std::optional<std::vector<ContourLine>> unitedContours(std::span<const ContourLine> lines) {
  std::vector<ContourLine> result;
  std::vector<GridLine> closed = closedLines(lines, result);
  if (closed.empty()) return result;
  const bool turned = isTall(closed);
  if (turned) {
    for (GridLine& line : closed) line = {quarterTurned(line.from), quarterTurned(line.to)};
  }
  if (!cutAtCrossings(closed)) return std::nullopt;
  for (const std::vector<GridPoint>& corners : Chains(outlineOf(counted(closed))).contours()) {
    const std::vector<GridPoint> kept = withoutStraightCorners(corners);
    if (hasArea(kept)) appendContour(result, kept, turned);
  }
  return result;
}

}  // namespace tess
