// Tells rows that no other row can match from those that have to be looked for, with one look at a
// table for each: hardly a drawing has rows that lie on one another.
// Owns: TwinSearch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/drawing_rows.h"

namespace tess {

// It may call a row matched that is not, but never the other way round.
class TwinSearch {
 public:
  // The rows that are to be known.
  TwinSearch(float tolerence, std::span<const SegmentRow> known);

  // Others come: which of them, in their order, may match one that is known.
  std::vector<bool> meet(std::span<const SegmentRow> others);
  // Which of those that are known may match another one of them, or one that was met.
  std::vector<bool> matched() const;

 private:
  // Where a row lies: two numbers made of its four coordinates, in cells. What matches lies in the
  // same cell or, near an edge, in the next: -1 or 1.
  struct Cell {
    std::int64_t number;
    int next;
  };
  struct Place {
    Cell first, second;
    int type;
    bool isNearEdge() const { return first.next != 0 || second.next != 0; }
  };
  // How one of the numbers is made, a * 1 + b * weight, and its cells.
  struct Axis {
    Axis(double weightOfB, double tolerence);
    Cell cellOf(double a, double b) const;
    bool holds(double a, double b) const;
    double weight, cellsPerUnit;
    double reach;  // in cells
  };
  // A cell where known rows lie: the upper bits tell it from others, the lower ones count its rows.
  using Slot = std::uint32_t;
  struct NearEdge {
    std::size_t row;
    Place place;
  };

  template <class Visit>
  void visitPlaces(std::span<const SegmentRow> rows, const Visit& visit);
  template <class Visit>
  void visitNeighbours(const Place& place, const Visit& visit) const;
  std::size_t slotOf(std::uint64_t key) const;
  void countOneMore(std::size_t slot) {
    if ((slots_[slot] & kCount) < kSeveral) ++slots_[slot];
  }

  static constexpr Slot kCount = 3;
  static constexpr Slot kSeveral = 2;

  Axis first_, second_;
  std::vector<Slot> slots_;             // their number is a power of two; 0 where there is none
  std::vector<std::uint32_t> ownSlot_;  // of the known rows
  std::vector<NearEdge> nearEdges_;
  bool anyBeyond_ = false;  // where cells cannot be told apart; then every row may match
};

}  // namespace tess
