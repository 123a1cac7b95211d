// Taking single rows out of the tables and putting rows in between.
#include "drafting/row_edits.h"

#include <vector>

#include "core/drawing_store.h"

namespace tess {
namespace {

int codeInCurrentGroup(const DrawingStore& store, int tool) {
  return pathCode(store.currentpathgroup, tool > kCodesPerGroup ? toolIndex(tool) : tool);
}

template <class Row>
void deleteRow(Change& change, RowChanges<Row>& rows, int number) {
  if (number < 1 || number > rows.count()) return;
  rows.erase(number, Entry::Unlogged);
  change.keep();
}

}  // namespace

void deleteSegment(Changes& changes, int sg) {
  Change change(changes, Step::Continued);
  deleteRow(change, change.segments, sg);
}

void deletePathSegment(Changes& changes, int ps) {
  Change change(changes, Step::Continued);
  deleteRow(change, change.paths, ps);
}

bool insertSegment(Changes& changes, int index, const SegmentRow& row) {
  if (row.x0 == row.x1 && row.y0 == row.y1) return false;
  Change change(changes, Step::Continued);
  change.segments.insert(index, row, Entry::Unlogged);
  change.keep({.redraws = false});
  return true;
}

void insertPathSegment(Changes& changes, int index, const PathRow& row, int tool) {
  const PathInsertion insertion{index, row};
  insertPathSegments(changes, {&insertion, 1}, tool);
}

void insertPathSegments(Changes& changes, std::span<const PathInsertion> insertions, int tool) {
  std::vector<PathInsertion> placed(insertions.begin(), insertions.end());
  for (PathInsertion& insertion : placed) {
    insertion.row.code = codeInCurrentGroup(changes.store, tool);
  }
  Change change(changes, Step::Continued);
  change.paths.insert(placed, Entry::Unlogged);
  change.keep({.redraws = false});
}

void roundRows(Changes& changes) {
  Change change(changes, Step::Continued);
  change.roundall();
  change.keep();
}

}  // namespace tess
