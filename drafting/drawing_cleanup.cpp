// Zero-length lines and duplicate rows.
#include "drafting/drawing_cleanup.h"

#include <bit>
#include <cstdint>
#include <vector>

#include "core/drawing_store.h"
#include "geometry/entity.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

Point startOf(const SegmentRow& row) {
  return {row.x0, row.y0};
}

Point endOf(const SegmentRow& row) {
  return {row.x1, row.y1};
}

std::uint64_t mixed(std::uint64_t bits) {
  bits *= 0x9E3779B97F4A7C15ULL;
  return bits ^ bits >> 32U;
}

// Adding 0 makes both zeros one, as they compare alike.
std::uint64_t hashOf(Point p) {
  const std::uint64_t x = std::bit_cast<std::uint32_t>(p.x + 0.0F);
  return mixed(x << 32U | std::bit_cast<std::uint32_t>(p.y + 0.0F));
}

// Exchanged ends give the same sum.
std::uint64_t hashOf(const SegmentRow& row) {
  const auto kind = static_cast<std::uint64_t>(row.type);
  return mixed(hashOf(startOf(row)) + hashOf(endOf(row)) + 3 * hashOf(Point{row.xc, row.yc}) +
               kind);
}

// The rows met so far, hashed so that duplicates share a bucket.
class RowsMet {
 public:
  RowsMet(const DrawingStore& store, ArcHalves halves)
      : store_(store),
        halves_(halves),
        heads_(std::bit_ceil(static_cast<std::size_t>(store.NumSegments) + 1)),
        next_(static_cast<std::size_t>(store.NumSegments) + 1) {}

  // True when row `sg` is a duplicate of one met before; if not, it has been met from now on.
  bool meetsDuplicate(int sg) {
    const SegmentRow row = segmentRow(store_, sg);
    int& head = heads_[hashOf(row) & (heads_.size() - 1)];
    for (int met = head; met != 0; met = next_[static_cast<std::size_t>(met)]) {
      const SegmentRow other = segmentRow(store_, met);
      if (areDuplicates(other, row) && !areHalves(other, row)) return true;
    }
    next_[static_cast<std::size_t>(sg)] = head;
    head = sg;
    return false;
  }

 private:
  bool areHalves(const SegmentRow& a, const SegmentRow& b) const {
    return halves_ == ArcHalves::AreApart && isArc(a.type) && startOf(a) != startOf(b);
  }

  const DrawingStore& store_;
  ArcHalves halves_;
  std::vector<int> heads_;  // the row met last in each bucket; 0 for none
  std::vector<int> next_;   // by row: the one before it in its bucket
};

// Row numbers, ascending.
using Rows = std::vector<std::int16_t>;

// Being duplicates carries over from pair to pair, so of each such set the lowest row stays: just
// what a walk over all pairs leaves.
// Fixed: duplicates are equal to the last bit; rows within the tolerance would be deleted.
Rows duplicateRows(const DrawingStore& store, ArcHalves halves) {
  Rows duplicates;
  RowsMet rowsMet(store, halves);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (rowsMet.meetsDuplicate(sg)) duplicates.push_back(Int16(sg));
  }
  return duplicates;
}

Rows zeroLengthRows(const DrawingStore& store) {
  Rows found;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Entity row = segmentEntity(store, sg);
    if (row.type == kLine && distance(row.start, row.end) == 0) found.push_back(Int16(sg));
  }
  return found;
}

// Fixed: a clean-up is not logged; undo passes it over.
void deleteRows(Changes& changes, const Rows& doomed) {
  Change change(changes);
  change.segments.erase(doomed, Entry::Unlogged);
  change.keep({.redraws = false});
}

bool operatorAgrees(Prompts& prompts) {
  return prompts.showMessage({.text = "There are duplicate drawing entities.  Would you like to "
                                      "delete all duplicates?",
                              .title = "Duplicate Entities",
                              .icon = MessageIcon::Question,
                              .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

}  // namespace

bool areDuplicates(const SegmentRow& a, const SegmentRow& b) {
  if (a.type != b.type || a.xc != b.xc || a.yc != b.yc) return false;
  const bool alike = startOf(a) == startOf(b) && endOf(a) == endOf(b);
  const bool exchanged = startOf(a) == endOf(b) && endOf(a) == startOf(b);
  return alike || exchanged;
}

int countDuplicates(const DrawingStore& store) {
  return static_cast<int>(duplicateRows(store, ArcHalves::AreDuplicates).size());
}

int countZeroLength(const DrawingStore& store) {
  return static_cast<int>(zeroLengthRows(store).size());
}

void removeDuplicates(Changes& changes, Prompts& prompts, bool deleteSilently, ArcHalves halves) {
  const Procedure here("removeDuplicates(deleteSilently)");
  const Rows duplicates = duplicateRows(changes.store, halves);
  if (duplicates.empty()) return;
  if (deleteSilently || operatorAgrees(prompts)) deleteRows(changes, duplicates);
}

int removeZeroLength(Changes& changes) {
  const Procedure here("removeZeroLength()");
  const Rows found = zeroLengthRows(changes.store);
  deleteRows(changes, found);
  return static_cast<int>(found.size());
}

}  // namespace tess
