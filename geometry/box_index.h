// Boxes of rows in a uniform grid: which rows overlap a given box, without looking at all of them.
//
// Every answer equals that of a plain pass over all boxes in ascending row order. The grid fits the
// bulk of the boxes; what lies outside falls into its border cells, and boxes that would cover too
// many cells stand in a list of their own. Boxes hold no NaN.
// Owns: Box, overlaps, boxOf, boxAround, extended, grown, everywhere, BoxGrid, BoxIndex.
#pragma once

#include <limits>
#include <span>
#include <vector>

#include "geometry/float_points.h"
#include "geometry/plane.h"

namespace tess {

// An upright box, limits included. As constructed it is empty and overlaps nothing.
struct Box {
  float minX = std::numeric_limits<float>::infinity();
  float minY = std::numeric_limits<float>::infinity();
  float maxX = -std::numeric_limits<float>::infinity();
  float maxY = -std::numeric_limits<float>::infinity();
  bool isEmpty() const { return minX > maxX || minY > maxY; }
  friend bool operator==(const Box&, const Box&) = default;
};

inline bool overlaps(const Box& a, const Box& b) {
  return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

Box boxOf(Point a, Point b);
// The corners rounded outward; what the tables cannot hold makes a side without end.
Box boxAround(PlanePoint low, PlanePoint high);
Box extended(const Box& box, Point p);
// All sides moved out by `by`; never less than that after rounding. An empty box stays empty.
Box grown(const Box& box, double by);
// The whole plane: overlaps every box but an empty one.
Box everywhere();

// How coordinates fall into cells. Both maps rise with the coordinate and end at the border cells.
struct BoxGrid {
  int columns = 1, rows = 1;
  double originX = 0, originY = 0;
  double columnsPerUnit = 0, rowsPerUnit = 0;

  int column(float x) const { return cell((x - originX) * columnsPerUnit, columns); }
  int row(float y) const { return cell((y - originY) * rowsPerUnit, rows); }

 private:
  // Written so that it compiles to a maximum and a minimum: a query does this four times.
  static int cell(double at, int count) {
    const double last = count - 1;
    const double notBelow = at > 0 ? at : 0;
    return static_cast<int>(notBelow < last ? notBelow : last);
  }
};

class BoxIndex {
 public:
  // boxes[k] is the box of row k + 1.
  explicit BoxIndex(std::vector<Box> boxes = {});

  int rows() const { return static_cast<int>(boxes_.size()); }
  const Box& box(int row) const { return boxes_[static_cast<std::size_t>(row) - 1]; }
  // Around all boxes ever given.
  const Box& bounds() const { return bounds_; }
  // About the size of a cell: how far a search should look first.
  double cellSize() const;

  // Gives row `row` another box, an empty one to take it out; rows() + 1 appends a row. Many
  // changes make the grid anew by themselves.
  void update(int row, const Box& box);

  // The rows above `after` whose boxes overlap `query`, ascending. Replaces the contents of `rows`.
  void rowsOverlapping(const Box& query, int after, std::vector<int>& rows) const;

  // Visits all pairs of rows i < j with overlapping boxes, by ascending i and then j, until
  // `visit(i, j)` returns false.
  template <typename Visit>
  void visitPairs(Visit visit) const {
    std::vector<int> partners;
    for (int row = 1; row <= rows(); ++row) {
      rowsOverlapping(box(row), row, partners);
      for (const int partner : partners) {
        if (!visit(row, partner)) return;
      }
    }
  }

 private:
  // A box in one cell. The tag is four times its row, plus whether the box's lower limits lie in
  // the cell's column and row.
  struct Item {
    Box box;
    int tag = 0;
    int row() const { return tag >> 2; }
  };
  static constexpr int kBeginsInColumn = 1;
  static constexpr int kBeginsInRow = 2;

  struct CellRange {
    int firstColumn, lastColumn, firstRow, lastRow;
    long long cells() const {
      return (lastColumn - firstColumn + 1LL) * (lastRow - firstRow + 1LL);
    }
  };

  void build();
  void countItems();
  void placeItems();
  void placeItem(std::size_t at, const CellRange& range, std::vector<int>& next);
  bool isWide(const CellRange& range) const;
  CellRange cellRange(const Box& box) const;
  std::size_t cellAt(int column, int row) const;
  void collectFromCells(const Box& query, int after, std::vector<int>& rows) const;
  void collectFromCell(std::span<const Item> items, int needed, const Box& query, int after,
                       std::vector<int>& rows) const;
  void collectFromList(std::span<const int> list, const Box& query, int after,
                       std::vector<int>& rows) const;

  std::vector<Box> boxes_;
  Box bounds_;
  BoxGrid grid_;
  std::vector<int> cellStart_;  // where each cell's items begin; cell by cell, row by row
  std::vector<Item> items_;
  std::vector<int> wide_;       // rows that would cover too many cells
  std::vector<int> changed_;    // rows whose items in the cells no longer hold
  std::vector<char> outdated_;  // per row: stands in changed_
};

}  // namespace tess
