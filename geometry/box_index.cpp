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

constexpr std::size_t kSampleSize = 128;  // boxes that tell where the bulk of the drawing lies
constexpr double kOutlierShare = 0.05;    // on each side, left out of the range
constexpr double kRangeMargin = 0.06;     // of the range, on each side
constexpr double kCellsPerBox = 1;
constexpr int kWideFactor = 2;     // a wide box covers this times columns plus rows
constexpr int kChangedShare = 32;  // one row in so many may change before a new build
constexpr std::size_t kMinChanged = 32;

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

// Rounded to 32 bits, but never up: two rounding units and the smallest normal number lower.
float roundedDown(double value) {
  constexpr double kUnit = std::numeric_limits<float>::epsilon();
  return static_cast<float>(value - std::abs(value) * kUnit - std::numeric_limits<float>::min());
}

float roundedUp(double value) {
  return -roundedDown(-value);
}

// The range of most values: outliers would stretch the grid until all else shared one cell. A
// margin brings an even spread back in full.
Range rangeOfMost(std::vector<double>& values) {
  std::sort(values.begin(), values.end());
  const auto skipped = static_cast<std::size_t>(kOutlierShare * static_cast<double>(values.size()));
  const double low = values[skipped];
  const double high = values[values.size() - 1 - skipped];
  if (!(high > low)) return {values.front(), values.back()};
  const double margin = (high - low) * kRangeMargin;
  return {low - margin, high + margin};
}

// Where the boxes lie and how large they are along one axis, by a sample of them.
struct Spread {
  Range range;
  double meanSize = 0;
};

Spread spreadOf(std::vector<double>& middles, const std::vector<double>& sizes) {
  if (middles.empty()) return {};
  Spread spread{rangeOfMost(middles), 0};
  // A box larger than the range covers all cells, not more.
  for (const double size : sizes) spread.meanSize += std::min(size, spread.range.length());
  spread.meanSize /= static_cast<double>(sizes.size());
  return spread;
}

struct Sample {
  std::vector<double> middlesX, middlesY, widths, heights;
};

Sample sampleOf(const std::vector<Box>& boxes) {
  Sample sample;
  const std::size_t stride = boxes.size() / kSampleSize + 1;
  for (std::size_t k = 0; k < boxes.size(); k += stride) {
    const Box& box = boxes[k];
    if (!isBounded(box)) continue;
    sample.middlesX.push_back((static_cast<double>(box.minX) + box.maxX) / 2);
    sample.middlesY.push_back((static_cast<double>(box.minY) + box.maxY) / 2);
    sample.widths.push_back(static_cast<double>(box.maxX) - box.minX);
    sample.heights.push_back(static_cast<double>(box.maxY) - box.minY);
  }
  return sample;
}

// No more cells along an axis than boxes of mean size fit into it.
double mostCells(double length, double meanSize, double cells) {
  if (!(length > 0)) return 1;
  return meanSize > 0 ? std::clamp(length / meanSize, 1.0, cells) : cells;
}

// About one cell for each box, cells as square as the mean box allows.
BoxGrid gridFor(const std::vector<Box>& boxes) {
  Sample sample = sampleOf(boxes);
  const Spread x = spreadOf(sample.middlesX, sample.widths);
  const Spread y = spreadOf(sample.middlesY, sample.heights);
  const double width = x.range.length();
  const double height = y.range.length();
  const double cells = std::max(1.0, kCellsPerBox * static_cast<double>(boxes.size()));
  const double mostColumns = mostCells(width, x.meanSize, cells);
  const double mostRows = mostCells(height, y.meanSize, cells);
  const double even = height > 0 ? std::sqrt(cells * (width / height)) : cells;
  double columns = std::clamp(even, 1.0, mostColumns);
  const double rows = std::clamp(cells / columns, 1.0, mostRows);
  columns = std::clamp(cells / rows, 1.0, mostColumns);
  BoxGrid grid;
  grid.columns = static_cast<int>(columns);
  grid.rows = static_cast<int>(rows);
  grid.originX = x.range.low;
  grid.originY = y.range.low;
  grid.columnsPerUnit = width > 0 ? grid.columns / width : 0;
  grid.rowsPerUnit = height > 0 ? grid.rows / height : 0;
  return grid;
}

}  // namespace

Box boxOf(Point a, Point b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

Box boxAround(PlanePoint low, PlanePoint high) {
  const auto storable = [](double value) {
    constexpr double kEnd = std::numeric_limits<float>::max();
    return std::clamp(value, -kEnd, kEnd);
  };
  return {roundedDown(storable(low.x)), roundedDown(storable(low.y)), roundedUp(storable(high.x)),
          roundedUp(storable(high.y))};
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
  if (changed_.size() > kMinChanged + boxes_.size() / kChangedShare) build();
}

void BoxIndex::rowsOverlapping(const Box& query, int after, std::vector<int>& rows) const {
  rows.clear();
  if (query.isEmpty()) return;
  collectFromCells(query, after, rows);
  collectFromList(wide_, query, after, rows);
  collectFromList(changed_, query, after, rows);
  if (rows.size() > 1) std::sort(rows.begin(), rows.end());
}

void BoxIndex::build() {
  grid_ = gridFor(boxes_);
  wide_.clear();
  changed_.clear();
  outdated_.assign(boxes_.size(), 0);
  countItems();
  placeItems();
}

// Leaves in cellStart_ where each cell's items will begin.
void BoxIndex::countItems() {
  cellStart_.assign(cellAt(0, grid_.rows) + 1, 0);
  for (std::size_t k = 0; k < boxes_.size(); ++k) {
    const Box& box = boxes_[k];
    if (box.isEmpty()) continue;
    bounds_ = extended(extended(bounds_, {box.minX, box.minY}), {box.maxX, box.maxY});
    const CellRange range = cellRange(box);
    if (isWide(range)) {
      wide_.push_back(static_cast<int>(k) + 1);
      continue;
    }
    for (int row = range.firstRow; row <= range.lastRow; ++row) {
      int* counts = &cellStart_[cellAt(0, row) + 1];
      for (int column = range.firstColumn; column <= range.lastColumn; ++column) ++counts[column];
    }
  }
  for (std::size_t cell = 1; cell < cellStart_.size(); ++cell)
    cellStart_[cell] += cellStart_[cell - 1];
}

// Puts each box into its cells, by ascending row.
void BoxIndex::placeItems() {
  items_.resize(static_cast<std::size_t>(cellStart_.back()));
  std::vector<int> next(cellStart_);
  for (std::size_t k = 0; k < boxes_.size(); ++k) {
    const CellRange range = cellRange(boxes_[k]);
    if (!boxes_[k].isEmpty() && !isWide(range)) placeItem(k, range, next);
  }
}

// `next` is where each cell's next item goes.
void BoxIndex::placeItem(std::size_t at, const CellRange& range, std::vector<int>& next) {
  const int tag = static_cast<int>(at + 1) * 4;
  for (int row = range.firstRow; row <= range.lastRow; ++row) {
    int* places = &next[cellAt(0, row)];
    const int rowTag = tag + (row == range.firstRow ? kBeginsInRow : 0);
    for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
      const int columnTag = column == range.firstColumn ? kBeginsInColumn : 0;
      items_[static_cast<std::size_t>(places[column]++)] = {boxes_[at], rowTag + columnTag};
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

inline void BoxIndex::collectFromCell(std::span<const Item> items, int needed, const Box& query,
                                      int after, std::vector<int>& rows) const {
  for (const Item& item : items) {
    if (item.row() <= after || !overlaps(item.box, query)) continue;
    if ((item.tag & needed) != needed) continue;
    if (!outdated_[static_cast<std::size_t>(item.row()) - 1]) rows.push_back(item.row());
  }
}

void BoxIndex::collectFromCells(const Box& query, int after, std::vector<int>& rows) const {
  const CellRange range = cellRange(query);
  for (int row = range.firstRow; row <= range.lastRow; ++row) {
    const int* starts = &cellStart_[cellAt(0, row)];
    for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
      // What an item must begin in, for this cell to hold the lower corner of its overlap.
      const int needed = (column == range.firstColumn ? 0 : kBeginsInColumn) +
                         (row == range.firstRow ? 0 : kBeginsInRow);
      collectFromCell({items_.data() + starts[column], items_.data() + starts[column + 1]}, needed,
                      query, after, rows);
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
