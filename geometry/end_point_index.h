// End points of rows, hashed by place: which rows begin or end at a point, without a pass over all.
//
// Answers equal those of a plain pass with samePoint in ascending row order. With a tolerance of 0
// two points are the same when they are equal, which serves the search for duplicate rows.
// Owns: EndMatch, EndPointIndex, segmentEndIndex, pathEndIndex.
#pragma once

#include <vector>

#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// A row that has an end at the point asked for.
struct EndMatch {
  int row = 0;
  bool atStart = false, atEnd = false;
  friend bool operator==(const EndMatch&, const EndMatch&) = default;
};

class EndPointIndex {
 public:
  explicit EndPointIndex(float tolerence);

  // Puts row `row` (from 1) at its ends, whether it is new or moved, or takes it out.
  void update(int row, Point start, Point end);
  void remove(int row);

  // The rows with an end that is samePoint to `at`, ascending. Replaces the contents of `matches`.
  void rowsAt(Point at, std::vector<EndMatch>& matches) const;

  // Makes room for rows 1 to `rows`; filling by falling row then is fastest.
  void reserve(int rows);

 private:
  // Along one axis, the cells in which the same point may lie.
  struct Cells {
    double at[3];
    int count;
  };
  void addEnd(std::size_t entry, Point at);
  void removeEnd(std::size_t entry);
  void rehash(std::size_t buckets);
  double cellOf(double value) const;
  std::size_t bucketOf(double cellX, double cellY) const;
  std::size_t bucketOf(Point at) const { return bucketOf(cellOf(at.x), cellOf(at.y)); }
  Cells cellsAround(float value) const;
  void matchBuckets(const Cells& columns, const Cells& rows, Point at,
                    std::vector<EndMatch>& matches) const;
  void matchBucket(std::size_t bucket, Point at, std::vector<EndMatch>& matches) const;

  // An end of a row: entry 2*row its start, 2*row + 1 its end, chained within its bucket.
  struct End {
    Point at;
    int next = kAbsent;
  };
  static constexpr int kAbsent = -2;
  static constexpr int kLast = -1;

  float tolerence_;
  double cellsPerUnit_;
  std::vector<End> ends_;
  std::vector<int> heads_;  // per bucket; their number is a power of two
};

// The ends of all rows, with the drawing's tolerance or another one.
EndPointIndex segmentEndIndex(const DrawingStore& store, float tolerence);
EndPointIndex pathEndIndex(const DrawingStore& store, float tolerence);
EndPointIndex segmentEndIndex(const DrawingStore& store);
EndPointIndex pathEndIndex(const DrawingStore& store);

}  // namespace tess
