// Taking rows out of the tables and putting path rows in between.
#include "drafting/row_edits.h"

namespace tess {
namespace {

constexpr int kCodesPerGroup = 100;

// How many rows a range has; 0 when it is not wholly in use.
int rowsInUse(int first, int last, int count) {
  return first >= 1 && last <= count ? last - first + 1 : 0;
}

PathRow placedRow(const DrawingStore& store, const PathRow& row, int tool) {
  PathRow placed = row;
  const int index = tool > kCodesPerGroup ? tool % kCodesPerGroup : tool;
  placed.code = store.currentpathgroup * kCodesPerGroup + index;
  placed.visible = true;
  return placed;
}

void rowsInserted(DrawingStore& store, Int16 count) {
  store.NumPathSegments = count;
  store.lastplacedgroup = store.currentpathgroup;
  store.drawingsaved = false;
}

}  // namespace

void deleteSegment(DrawingStore& store, int sg) {
  deleteSegments(store, sg, sg);
}

void deletePathSegment(DrawingStore& store, int ps) {
  deletePathSegments(store, ps, ps);
}

void deleteSegments(DrawingStore& store, int first, int last) {
  const int removed = rowsInUse(first, last, store.NumSegments);
  if (removed < 1) return;
  for (int row = first; row + removed <= store.NumSegments; ++row) {
    setSegmentRow(store, row, segmentRow(store, row + removed));
  }
  store.NumSegments -= removed;
  store.drawingsaved = false;
}

void deletePathSegments(DrawingStore& store, int first, int last) {
  const int removed = rowsInUse(first, last, store.NumPathSegments);
  if (removed < 1) return;
  for (int row = first; row + removed <= store.NumPathSegments; ++row) {
    setPathRow(store, row, pathRow(store, row + removed));
  }
  store.NumPathSegments -= removed;
  store.drawingsaved = false;
}

void deletePathSegments(DrawingStore& store, const std::vector<bool>& gone) {
  int kept = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (gone[static_cast<std::size_t>(ps)]) continue;
    if (++kept != ps) setPathRow(store, kept, pathRow(store, ps));
  }
  if (kept == store.NumPathSegments) return;
  store.NumPathSegments = kept;
  store.drawingsaved = false;
}

void insertPathSegment(DrawingStore& store, int index, const PathRow& row, int tool) {
  const Int16 count = store.NumPathSegments + 1;
  ensurePathCapacity(store, count);
  const PathRow placed = placedRow(store, row, tool);
  for (int ps = store.NumPathSegments; ps >= index; --ps) {
    setPathRow(store, ps + 1, pathRow(store, ps));
  }
  setPathRow(store, index, placed);
  rowsInserted(store, count);
}

void insertPathSegments(DrawingStore& store, std::span<const PathInsertion> insertions, int tool) {
  if (insertions.empty()) return;
  const Int16 count = store.NumPathSegments + insertions.size();
  ensurePathCapacity(store, count);
  int ps = store.NumPathSegments;  // the last row that may still have to move
  for (std::size_t left = insertions.size(); left > 0; --left) {
    const PathInsertion& insertion = insertions[left - 1];
    const int distance = static_cast<int>(left);
    for (; ps >= insertion.before; --ps) setPathRow(store, ps + distance, pathRow(store, ps));
    setPathRow(store, ps + distance, placedRow(store, insertion.row, tool));
  }
  rowsInserted(store, count);
}

}  // namespace tess
