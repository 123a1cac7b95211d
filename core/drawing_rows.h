// The rows of the drawing's tables: one row as a value, appending, growing and rounding, and the
// composite codes of a row.
// Owns: SegmentDrawing, SegmentRow, PathRow, AddSeg, AddSegLine, ensureSegmentCapacity,
//       ensurePathCapacity, addPathSegment, nextPathGroup, kCoordinateDecimals, roundall,
//       segmentRow, setSegmentRow, pathRow, setPathRow, entityClass, isSelected, hasSelectionMark,
//       withoutSelection, isSelectedUnverified, isVerified, pathCode, toolIndex, groupCutOff,
//       groupRounded.
#pragma once

#include "core/conventions.h"
#include "core/int16.h"

namespace tess {

struct DrawingStore;

// Where a freshly appended drawing row shows itself.
class SegmentDrawing {
 public:
  virtual ~SegmentDrawing() = default;
  virtual void DrawSegment(int sg) = 0;
};

// A drawing row as one value.
struct SegmentRow {
  int type = 0;
  int attr = kOrdinaryClass;
  float x0 = 0, y0 = 0, x1 = 0, y1 = 0, xc = 0, yc = 0;
  friend bool operator==(const SegmentRow&, const SegmentRow&) = default;
};

// A path row as one value.
struct PathRow {
  int type = 0;
  float x0 = 0, y0 = 0, x1 = 0, y1 = 0, xc = 0, yc = 0;
  float z = 0, feed = 0;
  int code = 0;
  bool visible = true;
  friend bool operator==(const PathRow&, const PathRow&) = default;
};

// Appends a drawing row and draws it on `target` (null: nowhere). Marks nothing as changed and logs
// nothing: that is the caller's part. Raises Overflow at row 32768.
void AddSeg(DrawingStore& store, const SegmentRow& row, SegmentDrawing* target);

// The same for a line. The coordinates come y before x, and the centre is stored as 0.
// Fixed: y comes before x; scripts call it so.
void AddSegLine(DrawingStore& store, int segtype, int segattr, float y0, float x0, float y1,
                float x1, SegmentDrawing* target);

// Make the tables reach row n, growing by 20 drawing rows or 100 path rows past it.
void ensureSegmentCapacity(DrawingStore& store, int n);
void ensurePathCapacity(DrawingStore& store, int n);

// Appends a visible path row and marks the drawing changed. Raises Overflow at row 32768.
void addPathSegment(DrawingStore& store, const PathRow& row);

// The largest group in use plus 1; 1 when there are no path rows.
Int16 nextPathGroup(const DrawingStore& store);

// Rounds all coordinates of the drawing rows to 5 decimals.
inline constexpr int kCoordinateDecimals = 5;
void roundall(DrawingStore& store);

// Row `sg` or `ps` as one value, and back into the table without touching the counter.
SegmentRow segmentRow(const DrawingStore& store, int sg);
void setSegmentRow(DrawingStore& store, int sg, const SegmentRow& row);
PathRow pathRow(const DrawingStore& store, int ps);
void setPathRow(DrawingStore& store, int ps, const PathRow& row);

// Composite codes.
constexpr int entityClass(int segattr) {
  return segattr % kCodesPerState;
}
constexpr bool isSelected(int code) {
  return code > kSelected;
}
// The same, but for kSelected itself: the code of class 0 or of tool 0 in no group.
constexpr bool hasSelectionMark(int code) {
  return code >= kSelected;
}
constexpr int withoutSelection(int code) {
  return isSelected(code) ? code - kSelected : code;
}
constexpr bool isSelectedUnverified(int segattr) {
  return segattr > kSelected && segattr < kVerified;
}
constexpr bool isVerified(int segattr) {
  return segattr >= kVerified;
}
constexpr int pathCode(int group, int tool) {
  return group * kCodesPerGroup + tool;
}
constexpr int toolIndex(int pscode) {
  return pscode % kCodesPerGroup;
}
// The group of a path row as the tables show it: cut off, by whole-number division.
constexpr int groupCutOff(int pscode) {
  return withoutSelection(pscode) / kCodesPerGroup;
}
// The group of a path row as placing and counting read it: to the nearest whole number, ties to
// even, so that a tool index above 50 counts as the next group.
// Fixed: placing rounds where the tables cut off; undoing a placement goes by the rounded group.
int groupRounded(int pscode);

}  // namespace tess
