// The joining of ends: first what lies in one small cell, then neighbouring groups, the nearest
// first, as long as a group stays small. A run of rows shorter than the tolerance so becomes a run
// of longer ones and does not shrink to a point.
#include "import/join_ends.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "geometry/curve.h"

namespace tess {
namespace {

// Sides of the two grids, as shares of the tolerance: what one small cell holds is one group at
// once, and groups within the tolerance lie in neighbouring large cells.
constexpr double kSmallCell = 0.25;
constexpr double kLargeCell = 1.5;
constexpr double kLargestGroup = 2;
// Rounding must not choose between two ends, which are equally far from their middle.
constexpr double kClearlyNearer = 1 - 1e-9;
// For drawings without a tolerance: only what is the same then joins.
constexpr double kMinTolerance = 1e-9;

struct Cell {
  double column = 0, row = 0;  // whole numbers; 64-bit integers would not hold them all
  friend bool operator==(const Cell&, const Cell&) = default;
};

struct CellHash {
  std::size_t operator()(const Cell& cell) const {
    constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;
    const std::size_t column = std::hash<double>{}(cell.column);
    return (column * kSpread) ^ (std::hash<double>{}(cell.row) + (column >> 7U));
  }
};

Cell cellOf(PlanePoint p, double side) {
  return {std::floor(p.x / side), std::floor(p.y / side)};
}

// Ends that are going to be one, by the box of where they were.
struct Group {
  PlanePoint low, high;
};

Group together(const Group& a, const Group& b) {
  return {{std::min(a.low.x, b.low.x), std::min(a.low.y, b.low.y)},
          {std::max(a.high.x, b.high.x), std::max(a.high.y, b.high.y)}};
}

double sizeOf(const Group& group) {
  return std::max(group.high.x - group.low.x, group.high.y - group.low.y);
}

double gapBetween(const Group& a, const Group& b) {
  return std::max(
      {a.low.x - b.high.x, b.low.x - a.high.x, a.low.y - b.high.y, b.low.y - a.high.y, 0.0});
}

// Two groups near each other.
struct Pair {
  double gap = 0;
  std::size_t a = 0, b = 0;
};

class Joining {
 public:
  Joining(const std::vector<PlanePoint>& ends, double tolerence)
      : ends_(ends), tolerence_(tolerence) {}

  // Where each end goes.
  std::vector<PlanePoint> joined() {
    groupByCell();
    for (const Pair& pair : neighbours()) unite(pair);
    return chosenPlaces();
  }

 private:
  void groupByCell() {
    std::unordered_map<Cell, std::size_t, CellHash> groupAt;
    for (const PlanePoint end : ends_) {
      const auto [found, isNew] =
          groupAt.try_emplace(cellOf(end, kSmallCell * tolerence_), groups_.size());
      if (isNew) groups_.push_back({end, end});
      Group& group = groups_[found->second];
      group = together(group, {end, end});
      groupOf_.push_back(found->second);
    }
    root_.resize(groups_.size());
    std::iota(root_.begin(), root_.end(), std::size_t{0});
  }

  std::vector<Pair> neighbours() const {
    std::unordered_map<Cell, std::vector<std::size_t>, CellHash> cells;
    std::vector<Pair> pairs;
    for (std::size_t b = 0; b < groups_.size(); ++b) {
      const Cell home = cellOf(groups_[b].low, kLargeCell * tolerence_);
      for (int step = 0; step < 9; ++step) {
        const auto found = cells.find({home.column + step % 3 - 1, home.row + step / 3 - 1});
        if (found == cells.end()) continue;
        for (const std::size_t a : found->second) {
          const double gap = gapBetween(groups_[a], groups_[b]);
          if (gap <= tolerence_) pairs.push_back({gap, a, b});
        }
      }
      cells[home].push_back(b);
    }
    std::stable_sort(pairs.begin(), pairs.end(),
                     [](const Pair& p, const Pair& q) { return p.gap < q.gap; });
    return pairs;
  }

  std::size_t rootOf(std::size_t group) {
    while (root_[group] != group) group = root_[group] = root_[root_[group]];
    return group;
  }

  void unite(const Pair& pair) {
    const auto [first, second] = std::minmax({rootOf(pair.a), rootOf(pair.b)});
    if (first == second) return;
    const Group both = together(groups_[first], groups_[second]);
    if (sizeOf(both) > kLargestGroup * tolerence_) return;
    groups_[first] = both;
    root_[second] = first;
  }

  // The end nearest to the middle of its group stays; the first of several.
  std::vector<PlanePoint> chosenPlaces() {
    std::vector<PlanePoint> chosen(groups_.size());
    std::vector<double> nearest(groups_.size(), std::numeric_limits<double>::infinity());
    for (std::size_t k = 0; k < ends_.size(); ++k) {
      const std::size_t group = rootOf(groupOf_[k]);
      const double away = lengthOf(ends_[k] - 0.5 * (groups_[group].low + groups_[group].high));
      if (!(away < kClearlyNearer * nearest[group])) continue;
      nearest[group] = away;
      chosen[group] = ends_[k];
    }
    std::vector<PlanePoint> places;
    for (std::size_t k = 0; k < ends_.size(); ++k) places.push_back(chosen[rootOf(groupOf_[k])]);
    return places;
  }

  const std::vector<PlanePoint>& ends_;
  const double tolerence_;
  std::vector<Group> groups_;
  std::vector<std::size_t> groupOf_;  // by end
  std::vector<std::size_t> root_;     // by group: the group that it joined, or itself
};

void setEnds(DxfRow& row, PlanePoint start, PlanePoint end) {
  row.x0 = start.x;
  row.y0 = start.y;
  row.x1 = end.x;
  row.y1 = end.y;
}

bool canMove(const DxfRow& row) {
  return isStorable(startOf(row)) && isStorable(endOf(row)) && !isWholeCircle(row);
}

PlanePoint rounded(PlanePoint p) {
  // Adding 0 makes 0 of -0, which would be a number of its own to a map.
  return {static_cast<float>(p.x) + 0.0, static_cast<float>(p.y) + 0.0};
}

// The nearest place to the centre that is as far from both ends. The short chord of a nearly whole
// circle would swing it about: there the centre stays.
PlanePoint fairCenter(const DxfRow& arc, double moved) {
  const PlanePoint center = centerOf(arc);
  const PlanePoint even = evenCenter(startOf(arc), endOf(arc), center);
  return isLongArc(arc) && lengthOf(even - center) > 4 * moved ? center : even;
}

bool passesForOne(PlanePoint a, PlanePoint b, float tolerence) {
  return std::abs(a.x - b.x) <= tolerence && std::abs(a.y - b.y) <= tolerence;
}

// Gives an arc its new ends. Of a short one, whose ends other routines would take for those of a
// whole circle, only the chord is kept.
void moveArc(DxfRow& arc, PlanePoint start, PlanePoint end, float tolerence) {
  const PlanePoint chord = endOf(arc) - startOf(arc);
  const double moved = lengthOf(start - startOf(arc)) + lengthOf(end - endOf(arc));
  const bool whole = isLongArc(arc);
  setEnds(arc, start, end);
  if (start == end) return;
  const bool turnedBack = dot(chord, end - start) <= 0;
  if (!whole && (turnedBack || passesForOne(start, end, tolerence))) return straighten(arc);
  const PlanePoint center = fairCenter(arc, moved);
  arc.xc = center.x;
  arc.yc = center.y;
}

// False for a row that has no length with these ends.
bool move(DxfRow& row, PlanePoint start, PlanePoint end, float tolerence) {
  const bool stays = start == end && row.type != kLine && isLongArc(row);
  if (start == end && !stays) return false;
  if (row.type == kLine) {
    setEnds(row, start, end);
  } else {
    moveArc(row, start, end, tolerence);
  }
  return true;
}

}  // namespace

void joinEnds(std::vector<PlacedRow>& rows, float tolerence) {
  std::vector<PlanePoint> ends;
  for (const PlacedRow& placed : rows) {
    if (!canMove(placed.row)) continue;
    ends.push_back(rounded(startOf(placed.row)));
    ends.push_back(rounded(endOf(placed.row)));
  }
  const double reach = std::max<double>(tolerence, kMinTolerance);
  const std::vector<PlanePoint> places = Joining(ends, reach).joined();
  std::size_t next = 0;
  const auto dropped = [&](PlacedRow& placed) {
    if (!canMove(placed.row)) return false;
    const std::size_t at = std::exchange(next, next + 2);
    return !move(placed.row, places[at], places[at + 1], tolerence);
  };
  std::vector<PlacedRow> kept;
  for (PlacedRow& placed : rows) {
    if (!dropped(placed)) kept.push_back(placed);
  }
  rows = std::move(kept);
}

}  // namespace tess
