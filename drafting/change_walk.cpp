// Walking the change log.
//
// A step of many records would pass over the tables once for each. Instead the tables are taken out
// for the step: drawing rows are found through their hashed ends, and path rows lie in two halves
// on either side of the place where work goes on. Path rows are those that plain passes give. So
// are drawing rows, unless a copy within the tolerance lies behind the row itself: then that goes,
// so that undo leads to the very numbers that were there.
#include "drafting/change_walk.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "drafting/row_finder.h"

namespace tess {
namespace {

SegmentRow drawnRow(const clsSegment& record) {
  return {.type = record.SegType,
          .attr = record.SegAttr,
          .x0 = record.x0,
          .y0 = record.y0,
          .x1 = record.x1,
          .y1 = record.y1,
          .xc = record.CenterX,
          .yc = record.CenterY};
}

PathRow placedRow(const clsSegment& record) {
  return {.type = record.TypeOfSegment,
          .x0 = record.x0,
          .y0 = record.y0,
          .x1 = record.x1,
          .y1 = record.y1,
          .xc = record.CenterX,
          .yc = record.CenterY,
          .z = record.ZDepth,
          .feed = record.FeedRate,
          .code = record.SegAttr};
}

// A row with its number in the table; 0 of one that has come back.
template <class Row>
struct HeldRow {
  Row row;
  int number = 0;
};

// Lets `table` hold these rows: those that it has kept their order.
template <class Row>
void settle(RowChanges<Row>& table, const std::vector<HeldRow<Row>>& rows) {
  std::vector<std::int16_t> gone, come;
  std::vector<Row> cameBack;
  int next = 1;  // of the table, not yet met
  for (std::size_t k = 0; k < rows.size(); ++k) {
    if (rows[k].number == 0) {
      come.push_back(Int16(k + 1));
      cameBack.push_back(rows[k].row);
    } else {
      for (; next < rows[k].number; ++next) gone.push_back(Int16(next));
      ++next;
    }
  }
  for (; next <= table.count(); ++next) gone.push_back(Int16(next));
  table.erase(gone, Entry::Unlogged);
  table.putBack(come, cameBack);
}

// The drawing table during a step, taken out with the first record that needs it. Rows that go are
// marked until the end, so that the others keep their places.
class DrawnRows {
 public:
  explicit DrawnRows(const DrawingStore& store) : store_(store) {}

  void takeAway(const clsSegment& record) {
    takeOut();
    const auto rowAt = [this](std::size_t place) -> const SegmentRow& { return rows_[place].row; };
    const std::size_t place = finder_->takeClosest(record, rowAt);
    if (place == RowFinder::kNone) return;
    rows_[place].gone = true;
    --live_;
  }

  void bringBack(const clsSegment& record) {
    takeOut();
    live_ = Int16(live_ + 1);
    // Fixed: a drawing row comes back as the last one; row numbers in scripts go by that.
    rows_.push_back({{drawnRow(record)}});
    finder_->add(rows_.size() - 1, rows_.back().row);
  }

  void putBack(SegmentChanges& table) const {
    if (!out_) return;
    std::vector<HeldRow<SegmentRow>> rows;
    rows.reserve(rows_.size());
    for (const Row& held : rows_) {
      if (!held.gone) rows.push_back(held);
    }
    settle(table, rows);
  }

 private:
  struct Row : HeldRow<SegmentRow> {
    bool gone = false;
  };

  void takeOut() {
    if (std::exchange(out_, true)) return;
    live_ = store_.NumSegments;
    rows_.reserve(static_cast<std::size_t>(live_) + 1);
    finder_.emplace(store_.cfg_tolerance, static_cast<std::size_t>(live_));
    for (int sg = 1; sg <= live_; ++sg) {
      rows_.push_back({{segmentRow(store_, sg), sg}});
      finder_->add(rows_.size() - 1, rows_.back().row);
    }
  }

  const DrawingStore& store_;
  bool out_ = false;
  int live_ = 0;
  std::vector<Row> rows_;
  std::optional<RowFinder> finder_;  // of those that are not gone
};

// The path table during a step: the rows before and behind the place of work, the latter in
// reverse. They are taken out of the table with the first record that needs them.
class PlacedRows {
 public:
  explicit PlacedRows(const DrawingStore& store) : store_(store) {}

  void takeAway(const clsSegment& record) {
    takeOut();
    const int place = find(record);
    if (place < 1) return;
    goTo(place);
    behind_.pop_back();
  }

  void bringBack(const clsSegment& record) {
    takeOut();
    const Int16 rows = count() + 1;
    goTo(std::clamp<int>(record.row, 1, rows));
    before_.push_back({placedRow(record)});
  }

  void putBack(PathChanges& table) {
    if (!out_) return;
    goTo(count() + 1);
    settle(table, before_);
  }

 private:
  using Row = HeldRow<PathRow>;

  int count() const { return static_cast<int>(before_.size() + behind_.size()); }

  void takeOut() {
    if (std::exchange(out_, true)) return;
    before_.reserve(static_cast<std::size_t>(store_.NumPathSegments) + 1);
    for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
      before_.push_back({pathRow(store_, ps), ps});
    }
  }

  // Row `place` becomes the first one behind.
  void goTo(int place) {
    const auto ahead = static_cast<std::size_t>(place) - 1;
    while (before_.size() > ahead) moveRow(before_, behind_);
    while (before_.size() < ahead) moveRow(behind_, before_);
  }

  static void moveRow(std::vector<Row>& from, std::vector<Row>& to) {
    to.push_back(from.back());
    from.pop_back();
  }

  const PathRow& rowAt(int ps) const {
    const auto row = static_cast<std::size_t>(ps) - 1;
    const bool isBefore = row < before_.size();
    return (isBefore ? before_[row] : behind_[before_.size() + behind_.size() - 1 - row]).row;
  }

  // Path rows keep their places while the log is walked, so the recorded place is asked first: two
  // passes that differ only in depth look alike to a search.
  int find(const clsSegment& record) const {
    if (isMatch(record, record.row)) return record.row;
    int ps = count();
    while (ps >= 1 && !isMatch(record, ps)) --ps;
    return ps;
  }

  bool isMatch(const clsSegment& record, int ps) const {
    return ps >= 1 && ps <= count() && isSameRow(record, rowAt(ps), store_.cfg_tolerance);
  }

  const DrawingStore& store_;
  bool out_ = false;
  std::vector<Row> before_, behind_;
};

// Both tables, while one step is walked.
class StepRows {
 public:
  explicit StepRows(const DrawingStore& store) : drawn_(store), placed_(store) {}

  void takeAway(const clsSegment& record) {
    record.isPath() ? placed_.takeAway(record) : drawn_.takeAway(record);
  }
  void bringBack(const clsSegment& record) {
    record.isPath() ? placed_.bringBack(record) : drawn_.bringBack(record);
  }
  void putBack(Change& change) {
    drawn_.putBack(change.segments);
    placed_.putBack(change.paths);
    change.keep({.redraws = false});
  }

 private:
  DrawnRows drawn_;
  PlacedRows placed_;
};

}  // namespace

void undoStep(Changes& changes) {
  Change change(changes, Step::Continued);
  StepRows rows(changes.store);
  while (changes.log.canUndo()) {
    const clsSegment record = changes.log.popRecord();
    record.added() ? rows.takeAway(record) : rows.bringBack(record);
    if (record.StartOfSegment) break;
  }
  rows.putBack(change);
}

// It looks ahead for the start of the next step, and reports under that name.
void redoStep(Changes& changes) {
  const Procedure here("StartOfSegment");
  Change change(changes, Step::Continued);
  const ChangeLog& log = changes.log;
  StepRows rows(changes.store);
  while (log.canRedo()) {
    const clsSegment record = changes.log.nextRedoRecord();
    record.added() ? rows.bringBack(record) : rows.takeAway(record);
    if (log.canRedo() && log.record(log.changecount).StartOfSegment) break;
  }
  rows.putBack(change);
}

}  // namespace tess
