// Finds the row that a record tells of among many, without a pass over all, for those who look for
// as many rows as there are.
// Owns: RowFinder.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/drawing_rows.h"
#include "drafting/change_log.h"
#include "geometry/entity.h"

namespace tess {

class RowFinder {
 public:
  // For about so many rows.
  RowFinder(float tolerence, std::size_t rows);

  // Row at place `place` (from 0). Places come in rising order.
  void add(std::size_t place, const SegmentRow& row);

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Whether takeClosest would prefer no other row to this one.
  static bool isClosest(const clsSegment& record, const SegmentRow& row) {
    const bool sameEnds =
        record.x0 == row.x0 && record.y0 == row.y0 && record.x1 == row.x1 && record.y1 == row.y1;
    return sameEnds && entityClass(record.SegAttr) == entityClass(row.attr) &&
           (!isRound(row.type) || (record.CenterX == row.xc && record.CenterY == row.yc));
  }

  // Takes out the row that findSegment finds: of all that match the one of the highest place; kNone
  // when there is none. `rowAt` gives the row of a place.
  template <class RowAt>
  std::size_t takeLast(const clsSegment& record, const RowAt& rowAt) {
    return unlinked(best(record, rowAt, [](const SegmentRow&) { return 0U; }));
  }

  // The same for the row itself: of rows that match the one goes first whose coordinates and class
  // are those of the record, then one that has them but for the rounding of a save; among several
  // the highest place.
  template <class RowAt>
  std::size_t takeClosest(const clsSegment& record, const RowAt& rowAt) {
    return unlinked(
        best(record, rowAt, [&](const SegmentRow& row) { return differenceOf(record, row); }));
  }

 private:
  static constexpr int kEnd = -1;
  // A row within the chain of its bucket, where the highest place stands first.
  struct Link {
    int place = kEnd;
    int before = kEnd;  // in the chain
    std::size_t bucket = 0;
    unsigned difference = 0;
    bool isBetterThan(const Link& other) const {
      if (other.place < 0 || difference != other.difference) {
        return other.place < 0 || difference < other.difference;
      }
      return place > other.place;
    }
  };
  // One number for all four coordinates, and how far from it rows that match may lie.
  struct Mark {
    double value = 0, reach = 0;
  };

  template <class RowAt, class Difference>
  Link best(const clsSegment& record, const RowAt& rowAt, const Difference& difference) const {
    Link found;
    visitBuckets(record, [&](std::size_t bucket) {
      Link link{heads_[bucket], kEnd, bucket};
      while (link.place >= 0) {
        const auto place = static_cast<std::size_t>(link.place);
        if (isSameRow(record, rowAt(place), tolerence_)) {
          link.difference = difference(rowAt(place));
          if (link.isBetterThan(found)) found = link;
          if (link.difference == 0) break;
        }
        link.before = link.place;
        link.place = next_[place];
      }
    });
    return found;
  }

  // A row near the edge of its cell may match one of the next. What is no number or endless matches
  // nothing.
  template <class Visit>
  void visitBuckets(const clsSegment& record, const Visit& visit) const {
    const Mark mark = markOf(record.x0, record.y0, record.x1, record.y1);
    if (!std::isfinite(mark.value)) return;
    const std::int64_t last = cellOf(mark.value + mark.reach);
    for (std::int64_t cell = cellOf(mark.value - mark.reach); cell <= last; ++cell) {
      visit(bucketOf(cell));
    }
  }

  static unsigned differenceOf(const clsSegment& record, const SegmentRow& row);
  Mark markOf(double x0, double y0, double x1, double y1) const;
  std::int64_t cellOf(double mark) const;
  std::size_t bucketOf(std::int64_t cell) const;
  std::size_t unlinked(const Link& link);

  float tolerence_;
  double cellsPerUnit_;
  std::vector<int> heads_;  // per bucket; their number is a power of two
  std::vector<int> next_;   // by place
};

}  // namespace tess
