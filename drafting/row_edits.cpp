// Taking rows out of the tables and putting path rows in between.
#include "drafting/row_edits.h"

namespace tess {
namespace {

constexpr int kCodesPerGroup = 100;

// How many rows a range has; 0 when it is not wholly in use.
int rowsInUse(int first, int last, int count) {
  return first >= 1 && last <= count ? last - first + 1 : 0;
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

void insertPathSegment(DrawingStore& store, int index, const PathRow& row, int tool) {
  const Int16 count = store.NumPathSegments + 1;
  ensurePathCapacity(store, count);
  for (int ps = store.NumPathSegments; ps >= index; --ps) {
    setPathRow(store, ps + 1, pathRow(store, ps));
  }
  PathRow placed = row;
  placed.code = store.currentpathgroup * kCodesPerGroup + tool;
  placed.visible = true;
  setPathRow(store, index, placed);
  store.NumPathSegments = count;
  store.lastplacedgroup = store.currentpathgroup;
  store.drawingsaved = false;
}

}  // namespace tess
