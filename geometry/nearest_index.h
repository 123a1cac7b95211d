// The nearest row or end by boxes: the answers of float_nearest_scans.h, ties included, for many
// questions about one drawing.
// Owns: FindableRow, NearestBoxes, NearestSegIndex, NearestPathIndex.
#pragma once

#include <optional>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/entity.h"

namespace tess {

struct DrawingStore;

// A row to be found, or none where a row is hidden.
using FindableRow = std::optional<Entity>;

// The boxes of a table's rows and of their ends (entry 2*row - 1 the start, 2*row the end), and
// how far the nearest point of a row may be placed outside its box.
class NearestBoxes {
 public:
  NearestBoxes(const std::vector<FindableRow>& rows, float tolerence);
  void update(int row, const FindableRow& entity);

  const BoxIndex& rows() const { return rows_; }
  const BoxIndex& ends() const { return ends_; }
  double slack(Point at) const;

 private:
  void note(const FindableRow& entity);

  BoxIndex rows_, ends_;
  float tolerence_;
  double magnitude_ = 0;  // the largest coordinate or radius ever met
  bool hasRoundKinds_ = false;
};

// The drawing rows of a store, which it refers to. A row that changes or is appended must be told
// of by update; after a deletion, which moves rows, the index is made anew.
class NearestSegIndex {
 public:
  explicit NearestSegIndex(const DrawingStore& store);
  void update(int sg);

  // What the scans of these names give.
  int nearestSeg(Point at) const;
  std::optional<Point> nearestSegEndpoint(Point at) const;

 private:
  const DrawingStore& store_;
  NearestBoxes boxes_;
};

// The visible path rows of a store; a change of visibility is a change too.
class NearestPathIndex {
 public:
  explicit NearestPathIndex(const DrawingStore& store);
  void update(int ps);

  int nearestPathSeg(Point at) const;  // of all groups
  std::optional<Point> nearestPathEndpoint(Point at) const;

 private:
  const DrawingStore& store_;
  NearestBoxes boxes_;
};

}  // namespace tess
