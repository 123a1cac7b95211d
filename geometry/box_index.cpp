// The uniform grid of boxes.
//
// Cells are numbered row by row and their items lie in one array, so that a query walks through
// runs of memory. A box that reaches into several cells of a query is reported in one of them: the
// cell that holds the lower corner of the overlap.
#include "geometry/box_index.h"

#include <algorithm>
#include <cmath>

namespace tess {
namespace {

constexpr std::size_t kSampleSize = 512;  // boxes that tell where the bulk of the drawing lies
constexpr double kOutlierShare = 0.05;    // on each side, left out of the range
constexpr double kRangeMargin = 0.1;      // of the range, brings an even spread back in full
constexpr int kWideFactor = 2;            // a wide box covers this times columns plus rows
constexpr int kChangedShare = 32;         // one row in so many may change before a new build
constexpr std::size_t kLeastChanged = 32;

struct Range {
  double low = 0, high = 0;
  double length() const { return high - low; }
};

// Neither empty nor without end in some direction.
bool isBounded(const Box& box) {
  constexpr float kEnd = std::numeric_limits<float>::max();
  return !box.isEmpty() && box.minX > -kEnd && box.minY > -kEnd && box.maxX < kEnd &&
         box.maxY < kEnd;
}

float roundedDown(double value) {
  const float rounded = static_cast<float>(value);
  return rounded > value ? std::nextafter(rounded, -std::numeric_limits<float>::infinity())
                         : rounded;
}

float roundedUp(double value) {
  return -roundedDown(-value);
}

// The range of most values: outliers would stretch the grid until all else shared one cell.
Range rangeOfMost(std::vector<double>& sample, Range all) {
  std::sort(sample.begin(), sample.end());
  const auto skipped = static_cast<std::size_t>(kOutlierShare * static_cast<double>(sample.size()));
  const double low = sample[skipped];
  const double high = sample[sample.size() - 1 - skipped];
  if (!(high > low)) return all;
  const double margin = (high - low) * kRangeMargin;
  return {std::max(all.low, low - margin), std::min(all.high, high + margin)};
}

struct Spread {
  std::size_t count = 0;
  Range x, y;
  double meanWidth = 0, meanHeight = 0;
};

void measureRanges(const std::vector<Box>& boxes, const Box& bounds, Spread& spread) {
  std::vector<double> xs;
  std::vector<double> ys;
  const std::size_t stride = boxes.size() / kSampleSize + 1;
  for (std::size_t k = 0; k < boxes.size(); k += stride) {
    if (!isBounded(boxes[k])) continue;
    xs.push_back((static_cast<double>(boxes[k].minX) + boxes[k].maxX) / 2);
    ys.push_back((static_cast<double>(boxes[k].minY) + boxes[k].maxY) / 2);
  }
  spread.x = {bounds.minX, bounds.maxX};
  spread.y = {bounds.minY, bounds.maxY};
  if (xs.empty()) return;
  spread.x = rangeOfMost(xs, spread.x);
  spread.y = rangeOfMost(ys, spread.y);
}

Spread measure(const std::vector<Box>& boxes) {
  Spread spread;
  Box bounds;
  for (const Box& box : boxes) {
    if (!isBounded(box)) continue;
    ++spread.count;
    bounds = extended(extended(bounds, {box.minX, box.minY}), {box.maxX, box.maxY});
  }
  if (spread.count == 0) return spread;
  measureRanges(boxes, bounds, spread);
  const double widest = spread.x.length();
  const double highest = spread.y.length();
  for (const Box& box : boxes) {
    if (!isBounded(box)) continue;
    spread.meanWidth += std::min(static_cast<double>(box.maxX) - box.minX, widest);
    spread.meanHeight += std::min(static_cast<double>(box.maxY) - box.minY, highest);
  }
  spread.meanWidth /= static_cast<double>(spread.count);
  spread.meanHeight /= static_cast<double>(spread.count);
  return spread;
}

// No more cells along an axis than boxes of mean size fit into it.
double mostCells(double length, double meanSize, double cells) {
  if (!(length > 0)) return 1;
  return meanSize > 0 ? std::clamp(length / meanSize, 1.0, cells) : cells;
}

// About one cell for each box, cells as square as the mean box allows.
BoxGrid gridFor(const std::vector<Box>& boxes) {
  const Spread spread = measure(boxes);
  BoxGrid grid;
  if (spread.count == 0) return grid;
  const double width = spread.x.length();
  const double height = spread.y.length();
  const double cells = static_cast<double>(spread.count);
  const double mostColumns = mostCells(width, spread.meanWidth, cells);
  const double mostRows = mostCells(height, spread.meanHeight, cells);
  const double even = height > 0 ? std::sqrt(cells * (width / height)) : cells;
  double columns = std::clamp(even, 1.0, mostColumns);
  const double rows = std::clamp(cells / columns, 1.0, mostRows);
  columns = std::clamp(cells / rows, 1.0, mostColumns);
  grid.columns = static_cast<int>(columns);
  grid.rows = static_cast<int>(rows);
  grid.originX = spread.x.low;
  grid.originY = spread.y.low;
  grid.columnsPerUnit = width > 0 ? grid.columns / width : 0;
  grid.rowsPerUnit = height > 0 ? grid.rows / height : 0;
  return grid;
}

}  // namespace

Box boxOf(Point a, Point b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

Box extended(const Box& box, Point p) {
  return {std::min(box.minX, p.x), std::min(box.minY, p.y), std::max(box.maxX, p.x),
          std::max(box.maxY, p.y)};
}

Box grown(const Box& box, double by) {
  if (box.isEmpty()) return box;
  return {roundedDown(box.minX - by), roundedDown(box.minY - by), roundedUp(box.maxX + by),
          roundedUp(box.maxY + by)};
}

Box everywhere() {
  // Not infinite: an empty box begins there.
  constexpr float kEnd = std::numeric_limits<float>::max();
  return {-kEnd, -kEnd, kEnd, kEnd};
}

BoxIndex::BoxIndex(std::vector<Box> boxes) : boxes_(std::move(boxes)) {
  build();
}

double BoxIndex::cellSize() const {
  const double perUnit = std::max(grid_.columnsPerUnit, grid_.rowsPerUnit);
  return perUnit > 0 && std::isfinite(perUnit) ? 1 / perUnit : 1;
}

void BoxIndex::update(int row, const Box& box) {
  const auto at = static_cast<std::size_t>(row) - 1;
  if (at == boxes_.size()) {
    boxes_.emplace_back();
    outdated_.push_back(0);
  }
  boxes_[at] = box;
  if (!box.isEmpty())
    bounds_ = extended(extended(bounds_, {box.minX, box.minY}), {box.maxX, box.maxY});
  if (outdated_[at]) return;
  outdated_[at] = 1;
  changed_.push_back(row);
  std::erase(wide_, row);
  if (changed_.size() > kLeastChanged + boxes_.size() / kChangedShare) build();
}

void BoxIndex::rowsOverlapping(const Box& query, int after, std::vector<int>& rows) const {
  rows.clear();
  if (query.isEmpty()) return;
  collectFromCells(query, after, rows);
  collectFromList(wide_, query, after, rows);
  collectFromList(changed_, query, after, rows);
  std::sort(rows.begin(), rows.end());
}

void BoxIndex::build() {
  grid_ = gridFor(boxes_);
  wide_.clear();
  changed_.clear();
  outdated_.assign(boxes_.size(), 0);
  std::vector<CellRange> ranges(boxes_.size());
  cellStart_.assign(cellAt(0, grid_.rows) + 1, 0);
  for (std::size_t k = 0; k < boxes_.size(); ++k) {
    const Box& box = boxes_[k];
    ranges[k].lastColumn = -1;  // covers nothing
    if (box.isEmpty()) continue;
    bounds_ = extended(extended(bounds_, {box.minX, box.minY}), {box.maxX, box.maxY});
    const CellRange range = cellRange(box);
    if (isWide(range)) {
      wide_.push_back(static_cast<int>(k) + 1);
      continue;
    }
    ranges[k] = range;
    for (int row = range.firstRow; row <= range.lastRow; ++row)
      for (int column = range.firstColumn; column <= range.lastColumn; ++column)
        ++cellStart_[cellAt(column, row) + 1];
  }
  fillCells(ranges);
}

// Turns the counts into starts and puts each box into its cells, by ascending row.
void BoxIndex::fillCells(const std::vector<CellRange>& ranges) {
  for (std::size_t cell = 1; cell < cellStart_.size(); ++cell)
    cellStart_[cell] += cellStart_[cell - 1];
  items_.resize(static_cast<std::size_t>(cellStart_.back()));
  std::vector<int> next = cellStart_;
  for (std::size_t k = 0; k < boxes_.size(); ++k) {
    const CellRange& range = ranges[k];
    for (int row = range.firstRow; row <= range.lastRow; ++row) {
      for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
        const auto at = static_cast<std::size_t>(next[cellAt(column, row)]++);
        items_[at] = {boxes_[k], static_cast<int>(k) + 1, column == range.firstColumn,
                      row == range.firstRow};
      }
    }
  }
}

bool BoxIndex::isWide(const CellRange& range) const {
  return range.cells() > kWideFactor * (static_cast<long long>(grid_.columns) + grid_.rows);
}

BoxIndex::CellRange BoxIndex::cellRange(const Box& box) const {
  return {grid_.column(box.minX), grid_.column(box.maxX), grid_.row(box.minY), grid_.row(box.maxY)};
}

std::size_t BoxIndex::cellAt(int column, int row) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(grid_.columns) +
         static_cast<std::size_t>(column);
}

void BoxIndex::collectFromCells(const Box& query, int after, std::vector<int>& rows) const {
  const CellRange range = cellRange(query);
  for (int row = range.firstRow; row <= range.lastRow; ++row) {
    for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
      const std::size_t cell = cellAt(column, row);
      for (int at = cellStart_[cell]; at < cellStart_[cell + 1]; ++at) {
        const Item& item = items_[static_cast<std::size_t>(at)];
        if (item.row <= after || !overlaps(item.box, query)) continue;
        const bool holdsLowerCorner = (column == range.firstColumn || item.beginsInColumn) &&
                                      (row == range.firstRow || item.beginsInRow);
        if (!holdsLowerCorner || outdated_[static_cast<std::size_t>(item.row) - 1]) continue;
        rows.push_back(item.row);
      }
    }
  }
}

void BoxIndex::collectFromList(std::span<const int> list, const Box& query, int after,
                               std::vector<int>& rows) const {
  for (const int row : list) {
    if (row > after && overlaps(box(row), query)) rows.push_back(row);
  }
}

}  // namespace tess
