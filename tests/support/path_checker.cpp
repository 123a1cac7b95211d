// The sweep of a tool along path rows.
#include "tests/support/path_checker.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

#include "core/drawing_store.h"

namespace tess::testing {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
// Coordinates are 32-bit numbers: what is nearer than this is on the wall, not in it.
constexpr double kTouching = 2e-5;

Curve reversed(const Curve& curve) {
  if (!curve.isArc) return lineCurve(curve.end, curve.start);
  return arcCurve(curve.end, curve.start, curve.center, /*clockwise=*/curve.sweep > 0);
}

// The row's curve, turned so that it goes on from `at`.
Curve goingOn(const Curve& curve, Vec at) {
  const bool forward = lengthOf(curve.start - at) <= lengthOf(curve.end - at);
  return forward ? curve : reversed(curve);
}

Loop loopOf(const std::vector<SegmentRow>& rows) {
  Loop loop;
  for (const SegmentRow& row : rows) loop.push_back(curveOf(row));
  if (loop.size() < 2) return loop;
  const Loop second{loop[1], reversed(loop[1])};
  const auto reach = [&](Vec end) {
    return std::min(lengthOf(end - second[0].start), lengthOf(end - second[1].start));
  };
  if (reach(loop[0].start) < reach(loop[0].end)) loop[0] = reversed(loop[0]);
  for (std::size_t k = 1; k < loop.size(); ++k) loop[k] = goingOn(loop[k], loop[k - 1].end);
  return loop;
}

template <typename Visit>
void forEachWall(const PartShape& part, Visit visit) {
  for (const Curve& wall : part.pocket) visit(wall);
  for (const Loop& island : part.islands) {
    for (const Curve& wall : island) visit(wall);
  }
}

double distanceToWalls(const PartShape& part, const auto& curveOrPoint) {
  double least = kInfinity;
  forEachWall(part, [&](const Curve& wall) {
    least = std::min(least, distanceBetween(wall, curveOrPoint));
  });
  return least;
}

// A place of a curve, by its share of the way.
struct Lowest {
  double clearance = kInfinity;
  double share = 0;
};

// Takes the place if it is lower; its clearance.
double lowerAt(const PartShape& part, const Curve& curve, double share, Lowest& lowest) {
  const double here = clearance(part, pointOn(curve, share));
  if (here < lowest.clearance) lowest = {here, share};
  return here;
}

// The lowest clearance of a stretch. No place is nearer to a wall, or deeper in, than its neighbour
// by more than their distance; so a stretch whose middle leaves no room for a lower one is done
// with.
void searchLowest(const PartShape& part, const Curve& curve, double from, double to,
                  Lowest& lowest) {
  const double middle = (from + to) / 2;
  const double here = lowerAt(part, curve, middle, lowest);
  const double half = lengthOf(curve) * (to - from) / 2;
  if (half <= kSearchStep || here - half > lowest.clearance - kSearchStep) return;
  searchLowest(part, curve, from, middle, lowest);
  searchLowest(part, curve, middle, to, lowest);
}

// From a place close by down to the very lowest.
void settleLowest(const PartShape& part, const Curve& curve, Lowest& lowest) {
  constexpr double kFinest = 1e-9;
  for (double step = 0.05; step > kFinest; step /= 2) {
    const double at = lowest.share;
    lowerAt(part, curve, std::max(0.0, at - step), lowest);
    lowerAt(part, curve, std::min(1.0, at + step), lowest);
  }
}

// Where the curve is nearest to a wall, roughly: which distance it is there is known exactly.
double nearestShare(const PartShape& part, const Curve& curve) {
  constexpr int kSteps = 32;
  Lowest lowest;
  for (int step = 0; step <= kSteps; ++step)
    lowerAt(part, curve, static_cast<double>(step) / kSteps, lowest);
  settleLowest(part, curve, lowest);
  return lowest.share;
}

// The lowest clearance of the curve if it is below `bound`.
std::optional<Lowest> lowestBelow(double bound, const PartShape& part, const Curve& curve) {
  const double least = distanceToWalls(part, curve);
  if (least > kTouching && isAllowed(part, pointOn(curve, 0.5))) {
    if (least >= bound) return std::nullopt;
    return Lowest{least, nearestShare(part, curve)};
  }
  Lowest lowest{bound, -1};
  lowerAt(part, curve, 0, lowest);
  lowerAt(part, curve, 1, lowest);
  searchLowest(part, curve, 0, 1, lowest);
  if (lowest.share < 0) return std::nullopt;
  settleLowest(part, curve, lowest);
  return lowest;
}

// ---- The raster

struct Bounds {
  Vec low{kInfinity, kInfinity}, high{-kInfinity, -kInfinity};

  void include(Vec p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  // An arc by its ends and what it passes of the circle's four outermost points.
  void include(const Curve& curve) {
    include(curve.start);
    include(curve.end);
    if (!curve.isArc) return;
    constexpr double kQuarter = kFullTurn / 4;
    const double first = std::min(curve.from, curve.from + curve.sweep);
    const double last = std::max(curve.from, curve.from + curve.sweep);
    for (double angle = std::ceil(first / kQuarter) * kQuarter; angle <= last; angle += kQuarter)
      include(onCircle(curve.center, curve.radius, angle));
  }
  void grow(double by) {
    low = low - Vec{by, by};
    high = high + Vec{by, by};
  }
};

// Square cells over the pocket, row by row.
class Raster {
 public:
  Raster(const Bounds& bounds, double cell)
      : low_(bounds.low),
        cell_(cell),
        columns_(cellsFor(bounds.high.x - bounds.low.x)),
        rows_(cellsFor(bounds.high.y - bounds.low.y)) {
    constexpr std::int64_t kMaxCells = 20'000'000;
    if (std::int64_t{columns_} * rows_ > kMaxCells)
      throw std::invalid_argument("the pocket has too many cells for a raster of this tool");
  }

  int columns() const { return columns_; }
  int rows() const { return rows_; }
  double cell() const { return cell_; }
  std::size_t cells() const {
    return static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_);
  }
  std::size_t at(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }
  Vec middle(int column, int row) const {
    return low_ + Vec{(column + 0.5) * cell_, (row + 0.5) * cell_};
  }

  template <typename Visit>
  void forEachCell(Visit visit) const {
    for (int row = 0; row < rows_; ++row) {
      for (int column = 0; column < columns_; ++column) visit(column, row);
    }
  }

  // visit(column, row) for the cells whose middles may lie within the bounds.
  template <typename Visit>
  void cellsWithin(const Bounds& bounds, Visit visit) const {
    const int lastColumn = clamped((bounds.high.x - low_.x) / cell_, columns_);
    const int lastRow = clamped((bounds.high.y - low_.y) / cell_, rows_);
    for (int row = clamped((bounds.low.y - low_.y) / cell_, rows_); row <= lastRow; ++row) {
      for (int column = clamped((bounds.low.x - low_.x) / cell_, columns_); column <= lastColumn;
           ++column)
        visit(column, row);
    }
  }

 private:
  int cellsFor(double length) const { return std::max(1, static_cast<int>(length / cell_) + 1); }
  static int clamped(double at, int count) {
    return static_cast<int>(std::clamp(std::floor(at), 0.0, count - 1.0));
  }

  Vec low_;
  double cell_;
  int columns_, rows_;
};

using Marks = std::vector<std::uint8_t>;

Bounds boundsOf(const Loop& loop) {
  Bounds bounds;
  for (const Curve& wall : loop) bounds.include(wall);
  return bounds;
}

// Marks the cells within the tool as it moves along the curve.
void sweep(const Raster& raster, const Curve& curve, double radius, Marks& marks) {
  Bounds bounds;
  bounds.include(curve);
  bounds.grow(radius);
  raster.cellsWithin(bounds, [&](int column, int row) {
    std::uint8_t& mark = marks[raster.at(column, row)];
    if (mark == 0 && distanceBetween(curve, raster.middle(column, row)) <= radius) mark = 1;
  });
}

// Along a row of cells the clearance changes by no more than the way: so many cells beyond one
// whose clearance differs from a limit by `margin` lie on the same side of the limit.
int cellsAlike(const Raster& raster, double margin) {
  return std::min(raster.columns(), static_cast<int>(std::abs(margin) / raster.cell()));
}

// Where the tool may stand.
Marks toolPositions(const PartShape& part, const Raster& raster, double radius) {
  Marks positions(raster.cells());
  for (int row = 0; row < raster.rows(); ++row) {
    for (int column = 0; column < raster.columns();) {
      const double spare = clearance(part, raster.middle(column, row)) - (radius - kTouching);
      const int next = std::min(raster.columns(), column + 1 + cellsAlike(raster, spare));
      for (; column < next; ++column) positions[raster.at(column, row)] = spare >= 0 ? 1 : 0;
    }
  }
  return positions;
}

// Takes the room that the position belongs to out of the marks.
void clearRoom(const Raster& raster, Marks& positions, int column, int row) {
  std::vector<std::pair<int, int>> open{{column, row}};
  while (!open.empty()) {
    const auto [x, y] = open.back();
    open.pop_back();
    const bool outside = x < 0 || y < 0 || x >= raster.columns() || y >= raster.rows();
    if (outside || positions[raster.at(x, y)] == 0) continue;
    positions[raster.at(x, y)] = 0;
    for (const auto& [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}})
      open.emplace_back(x + dx, y + dy);
  }
}

// A position with a neighbour that is none.
bool isRim(const Raster& raster, const Marks& positions, int column, int row) {
  const auto isPosition = [&](int x, int y) {
    const bool outside = x < 0 || y < 0 || x >= raster.columns() || y >= raster.rows();
    return !outside && positions[raster.at(x, y)] != 0;
  };
  return isPosition(column, row) && !(isPosition(column - 1, row) && isPosition(column + 1, row) &&
                                      isPosition(column, row - 1) && isPosition(column, row + 1));
}

// Marks what the tool reaches from the raster's own positions. Only from the rim does it reach
// places where it may not stand.
Marks reachedFrom(const Raster& raster, const Marks& positions, double radius) {
  Marks reached = positions;
  raster.forEachCell([&](int column, int row) {
    if (!isRim(raster, positions, column, row)) return;
    const Vec at = raster.middle(column, row);
    sweep(raster, lineCurve(at, at), radius, reached);
  });
  return reached;
}

Vec nearestWallPoint(const PartShape& part, Vec at) {
  Vec nearest;
  double least = kInfinity;
  forEachWall(part, [&](const Curve& wall) {
    const Vec place = nearestOn(wall, at);
    const double distance = lengthOf(place - at);
    if (distance < least) least = distance, nearest = place;
  });
  return nearest;
}

// True when a tool pushed away from the nearest wall, time and again, comes to stand clear of all
// walls and still over the place, which is allowed: this finds the positions between those of the
// raster.
bool isReachedByPushing(const PartShape& part, Vec place, double radius) {
  constexpr int kPushes = 12;
  Vec position = place;
  for (int push = 0; push < kPushes; ++push) {
    const Vec wall = nearestWallPoint(part, position);
    const double distance = lengthOf(position - wall);
    if (distance == 0 || lengthOf(position - place) > radius + kTouching) return false;
    if (distance >= radius - kTouching) return clearance(part, position) > 0;
    position = wall + (radius / distance) * (position - wall);
  }
  return false;
}

Marks reachableCells(const PartShape& part, const Raster& raster, double radius) {
  Marks reachable = reachedFrom(raster, toolPositions(part, raster, radius), radius);
  for (int row = 0; row < raster.rows(); ++row) {
    for (int column = 0; column < raster.columns(); ++column) {
      std::uint8_t& mark = reachable[raster.at(column, row)];
      if (mark != 0) continue;
      const Vec place = raster.middle(column, row);
      const double clear = clearance(part, place);
      if (clear <= 0) column += cellsAlike(raster, clear);
      if (clear > 0 && isReachedByPushing(part, place, radius)) mark = 1;
    }
  }
  return reachable;
}

double distanceToPath(const std::vector<Curve>& path, Vec at) {
  double least = kInfinity;
  for (const Curve& curve : path) least = std::min(least, distanceBetween(curve, at));
  return least;
}

}  // namespace

PartShape partOf(const std::vector<SegmentRow>& pocket,
                 const std::vector<std::vector<SegmentRow>>& islands) {
  PartShape part{loopOf(pocket), {}};
  for (const auto& island : islands) part.islands.push_back(loopOf(island));
  return part;
}

std::vector<Curve> toolPath(const DrawingStore& store, int first, int last) {
  std::vector<Curve> path;
  for (int ps = first; ps <= last; ++ps) {
    const PathRow row = pathRow(store, ps);
    const bool feeds = row.type == kLine || isArc(row.type);
    if (feeds && row.z != kLatheRapidZ) path.push_back(curveOf(row));
  }
  return path;
}

std::vector<Curve> toolPath(const DrawingStore& store) {
  return toolPath(store, 1, store.NumPathSegments);
}

bool isAllowed(const PartShape& part, Vec point) {
  return encloses(part.pocket, point) &&
         std::none_of(part.islands.begin(), part.islands.end(),
                      [&](const Loop& island) { return encloses(island, point); });
}

double clearance(const PartShape& part, Vec point) {
  const double distance = distanceToWalls(part, point);
  return isAllowed(part, point) ? distance : -distance;
}

Gouge deepestGouge(const PartShape& part, const std::vector<Curve>& path, double toolRadius) {
  Gouge worst{-kInfinity, -1, {}};
  for (std::size_t k = 0; k < path.size(); ++k) {
    const auto lowest = lowestBelow(toolRadius - worst.depth, part, path[k]);
    if (lowest) {
      worst = {toolRadius - lowest->clearance, static_cast<int>(k),
               pointOn(path[k], lowest->share)};
    }
  }
  return worst;
}

int toolRooms(const PartShape& part, double toolRadius, int cellsPerRadius) {
  const Raster raster(boundsOf(part.pocket), toolRadius / cellsPerRadius);
  Marks positions = toolPositions(part, raster, toolRadius);
  int rooms = 0;
  raster.forEachCell([&](int column, int row) {
    if (positions[raster.at(column, row)] == 0) return;
    clearRoom(raster, positions, column, row);
    ++rooms;
  });
  return rooms;
}

struct ReachableArea::Cells {
  double radius;
  Raster raster;
  Marks reachable;
};

ReachableArea::ReachableArea(const PartShape& part, double toolRadius, int cellsPerRadius) {
  const Raster raster(boundsOf(part.pocket), toolRadius / cellsPerRadius);
  cells_ = std::make_shared<const Cells>(
      Cells{toolRadius, raster, reachableCells(part, raster, toolRadius)});
}

double ReachableArea::area() const {
  const auto count = std::count(cells_->reachable.begin(), cells_->reachable.end(), 1);
  return static_cast<double>(count) * cells_->raster.cell() * cells_->raster.cell();
}

Coverage ReachableArea::coverageOf(const std::vector<Curve>& path) const {
  return coverageOf({ToolSweep{path, cells_->radius}});
}

Coverage ReachableArea::coverageOf(const std::vector<ToolSweep>& sweeps) const {
  const auto& [radius, raster, reachable] = *cells_;
  Marks cut(raster.cells());
  for (const ToolSweep& tool : sweeps) {
    for (const Curve& curve : tool.path) sweep(raster, curve, tool.radius + kTouching, cut);
  }
  Coverage coverage;
  int cells = 0;
  raster.forEachCell([&](int column, int row) {
    const std::size_t at = raster.at(column, row);
    if (reachable[at] == 0) return;
    if (cut[at] != 0) {
      ++cells;
      return;
    }
    const Vec place = raster.middle(column, row);
    double rest = kInfinity;
    for (const ToolSweep& tool : sweeps) {
      rest = std::min(rest, distanceToPath(tool.path, place) - tool.radius);
    }
    if (rest > coverage.rest) coverage.rest = rest, coverage.restPlace = place;
  });
  coverage.reachable = area();
  coverage.cut = cells * raster.cell() * raster.cell();
  if (coverage.reachable > 0) coverage.share = coverage.cut / coverage.reachable;
  return coverage;
}

}  // namespace tess::testing
