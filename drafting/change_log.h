// The change log: before-and-after records of all rows, on which undo and redo walk.
// Owns: kDrawingTable, kPathTable, RecordKind, clsSegment, kRowsAdded, kRectangleAdded,
//       kRowsDeleted, kMaxRecords, ChangeLog, logSegment, logPathSegment, isSameRow, findSegment,
//       findPathSegment.
#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/drawing_rows.h"

namespace tess {

struct DrawingStore;

// Where a record's row lives.
inline constexpr int kDrawingTable = 0;
inline constexpr int kPathTable = 1;

// Whether a row exists after the change ("A") or existed before it ("D"); "" in a cleared record.
// Another text raises Type mismatch.
class RecordKind {
 public:
  constexpr RecordKind() = default;
  constexpr RecordKind(const char* text) : RecordKind(std::string_view(text)) {}  // NOLINT: a text
  constexpr RecordKind(std::string_view text)                                     // NOLINT: as well
      : letter_(text.empty() ? '\0' : text.front()) {
    if (text != std::string_view(*this)) throw typeMismatch();
  }

  constexpr operator std::string_view() const {  // NOLINT
    return letter_ == 'A' ? "A" : letter_ == 'D' ? "D" : "";
  }
  friend constexpr bool operator==(RecordKind kind, std::string_view text) {
    return std::string_view(kind) == text;
  }

 private:
  char letter_ = '\0';
};

// One record: a row as it stood. Steps can be long, so that it holds nothing but numbers.
struct clsSegment {
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  float CenterX = 0, CenterY = 0;
  Int16 TypeOfSegment;  // move kind of a path row
  float ZDepth = 0;
  float FeedRate = 0;
  Int16 WhereDeletedFrom;  // kDrawingTable or kPathTable
  Int16 SegType;
  Int16 SegAttr;  // segattr, or pscode of a path row
  RecordKind AddOrDelete;
  bool StartOfSegment = false;  // first record of a step
  Int16 row;                    // index at the time of logging: path rows return to their place

  void ClearSeqment() { *this = {}; }
  void SetSegment(const SegmentRow& drawn, RecordKind kind, bool start);
  void SetPathSegment(const PathRow& placed, RecordKind kind, bool start);
  bool isPath() const { return WhereDeletedFrom == kPathTable; }
  bool added() const { return AddOrDelete == "A"; }
};

// Field by field: a record that is put together elsewhere and then copied takes three times as
// long, and long steps are made of little else.
inline void clsSegment::SetSegment(const SegmentRow& drawn, RecordKind kind, bool start) {
  x0 = drawn.x0;
  x1 = drawn.x1;
  y0 = drawn.y0;
  y1 = drawn.y1;
  CenterX = drawn.xc;
  CenterY = drawn.yc;
  TypeOfSegment = {};
  ZDepth = FeedRate = 0;
  WhereDeletedFrom = kDrawingTable;
  SegType = drawn.type;
  SegAttr = drawn.attr;
  AddOrDelete = kind;
  StartOfSegment = start;
  row = {};
}

using RecordValue = std::variant<float, int, std::string, bool>;

// What kind of change can be taken back.
inline constexpr int kRowsAdded = 1;
inline constexpr int kRectangleAdded = 4;
inline constexpr int kRowsDeleted = -1;

// As many as their 16-bit counter counts.
inline constexpr int kMaxRecords = std::numeric_limits<std::int16_t>::max();

// Records count from 0. A step runs from a record with StartOfSegment to before the next one.
// Path rows are logged directly before they are removed or directly after they are placed, so that
// walking back finds each at its place. When the log is full, the oldest whole steps give way.
class ChangeLog {
 public:
  Int16 changecount;  // live records
  Int16 changetop;    // the largest count since the last fresh change; redo reaches up to here
  Int16 UndoMark;     // not zero: something was done that the Undo menu entry can take back

  // Appends a copy; with `cutRedo` the records above are given up. Raises Overflow when the step
  // that the record goes on with fills the log by itself.
  void logRecord(const clsSegment& record, bool cutRedo);
  // The same for many at once, which cut the redo branch. They are of one step, all but the first
  // without StartOfSegment; either all enter or, with Overflow, none.
  void logRecords(std::span<const clsSegment> records);
  // The live records of the step that was logged last, and those of the one that redo does next;
  // good until the log changes.
  std::span<const clsSegment> lastStep() const;
  std::span<const clsSegment> nextStep() const;
  int lastStepSize() const { return static_cast<int>(lastStep().size()); }
  // The exact inverses of logRecord: the last live record, and the next one above it. Both raise
  // Subscript out of range when there is none.
  clsSegment popRecord();
  clsSegment nextRedoRecord();

  const clsSegment& record(int index) const;
  // Reads or writes one field by name: "x0", "y0", "x1", "y1", "centerx", "centery", "segtype",
  // "segattr", "addordelete", "startofsegment", in any case. Another name or a value of the wrong
  // kind raises Type mismatch.
  RecordValue recordField(int index, std::string_view name) const;
  void setRecordField(int index, std::string_view name, const RecordValue& value);

  bool canUndo() const { return changecount >= 1; }
  bool canRedo() const { return changetop > changecount; }
  void clear();

 private:
  clsSegment& at(int index);
  void giveWayTo(const clsSegment& record);
  int oldestStepSize() const;
  std::span<const clsSegment> recordsFrom(int first, int last) const;
  void forgetOldest(int records);

  std::vector<clsSegment> changelog_;
  std::size_t forgotten_ = 0;  // records at the front of changelog_ that have given way
};

// Log row `sg` or `ps` as it stands; kind "A" or "D". An index below 1 logs nothing.
void logSegment(ChangeLog& log, const DrawingStore& store, int sg, RecordKind kind, bool start);
void logPathSegment(ChangeLog& log, const DrawingStore& store, int ps, RecordKind kind, bool start);

// True when the row is the record's: equal type, ends by samePoint and, unless the row is a line or
// a rectangle, centres equal at 4 decimals.
bool isSameRow(const clsSegment& record, const SegmentRow& row, float tolerence);
bool isSameRow(const clsSegment& record, const PathRow& row, float tolerence);

// The highest row that matches the record, or -1.
int findSegment(const DrawingStore& store, const clsSegment& record);
// The same over the path rows from `from` downward.
int findPathSegment(const DrawingStore& store, const clsSegment& record, int from);

}  // namespace tess
