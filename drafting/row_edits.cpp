// Taking rows out of the tables and putting path rows in between.
#include "drafting/row_edits.h"

namespace tess {
namespace {

constexpr int kCodesPerGroup = 100;

}  // namespace

void deleteSegment(DrawingStore& store, int sg) {
  if (sg < 1 || sg > store.NumSegments) return;
  for (int row = sg; row < store.NumSegments; ++row) {
    setSegmentRow(store, row, segmentRow(store, row + 1));
  }
  --store.NumSegments;
  store.drawingsaved = false;
}

void deletePathSegment(DrawingStore& store, int ps) {
  if (ps < 1 || ps > store.NumPathSegments) return;
  for (int row = ps; row < store.NumPathSegments; ++row) {
    setPathRow(store, row, pathRow(store, row + 1));
  }
  --store.NumPathSegments;
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
