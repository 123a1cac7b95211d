// Zero-length lines and duplicate rows.
#include "drafting/drawing_cleanup.h"

#include <functional>
#include <unordered_set>
#include <vector>

#include "geometry/entity.h"

namespace tess {
namespace {

Point startOf(const SegmentRow& row) {
  return {row.x0, row.y0};
}

Point endOf(const SegmentRow& row) {
  return {row.x1, row.y1};
}

// Both zeros hash alike, as they compare alike.
std::size_t hashOf(Point p) {
  constexpr std::size_t kSpread = 0x9E3779B97F4A7C15ULL;
  const std::hash<float> hash;
  return hash(p.x) * kSpread + hash(p.y);
}

// Exchanged ends give the same sum.
struct DuplicateHash {
  std::size_t operator()(const SegmentRow& row) const {
    return hashOf(startOf(row)) + hashOf(endOf(row)) + 3 * hashOf({row.xc, row.yc}) +
           static_cast<std::size_t>(row.type);
  }
};

struct DuplicateEquality {
  bool operator()(const SegmentRow& a, const SegmentRow& b) const { return areDuplicates(a, b); }
};

// Row numbers, ascending.
using Rows = std::vector<int>;

// Being duplicates carries over from pair to pair, so of each such set the lowest row stays: just
// what a walk over all pairs leaves.
Rows duplicateRows(const DrawingStore& store) {
  Rows duplicates;
  std::unordered_set<SegmentRow, DuplicateHash, DuplicateEquality> kept;
  kept.reserve(static_cast<std::size_t>(store.NumSegments));
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!kept.insert(segmentRow(store, sg)).second) duplicates.push_back(sg);
  }
  return duplicates;
}

Rows zeroLengthRows(const DrawingStore& store) {
  Rows found;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Entity row = segmentEntity(store, sg);
    if (row.type == kLine && distance(row.start, row.end) == 0) found.push_back(sg);
  }
  return found;
}

// Deletes all of them in one pass: one at a time, each would move every later row.
void deleteSegments(DrawingStore& store, const Rows& doomed) {
  if (doomed.empty()) return;
  auto next = doomed.begin();
  int kept = *next - 1;
  for (int sg = *next; sg <= store.NumSegments; ++sg) {
    if (next != doomed.end() && *next == sg) {
      ++next;
    } else {
      setSegmentRow(store, ++kept, segmentRow(store, sg));
    }
  }
  store.NumSegments = kept;
  store.drawingsaved = false;
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
  return static_cast<int>(duplicateRows(store).size());
}

int countZeroLength(const DrawingStore& store) {
  return static_cast<int>(zeroLengthRows(store).size());
}

void removeDuplicates(DrawingStore& store, Prompts& prompts, bool deleteSilently) {
  const Procedure here("removeDuplicates(deleteSilently)");
  const Rows duplicates = duplicateRows(store);
  if (duplicates.empty()) return;
  if (deleteSilently || operatorAgrees(prompts)) deleteSegments(store, duplicates);
}

int removeZeroLength(DrawingStore& store) {
  const Procedure here("removeZeroLength()");
  const Rows found = zeroLengthRows(store);
  deleteSegments(store, found);
  return static_cast<int>(found.size());
}

}  // namespace tess
