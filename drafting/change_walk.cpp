// Walking the change log.
//
// A step of many records would pass over the tables once for each. Instead the tables are taken out
// for the step: drawing rows are found through their hashes, and path rows lie in two halves
// on either side of the place where work goes on. Path rows are those that plain passes give. So
// are drawing rows, unless a copy within the tolerance lies behind the row itself: then that goes,
// so that undo leads to the very numbers that were there.
#include "drafting/change_walk.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ranges>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/row_columns.h"
#include "core/runtime_failure.h"
#include "drafting/row_finder.h"
#include "drafting/seen_numbers.h"
#include "geometry/entity.h"

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

// One number for all by which a row is told from others; equal rows have the same one.
std::uint64_t keyOf(const SegmentRow& row) {
  const auto pairOf = [](float a, float b) {
    constexpr float kNoSign = 0;  // of a negative zero
    const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value + kNoSign); };
    return static_cast<std::uint64_t>(bits(a)) << 32U | bits(b);
  };
  std::uint64_t key = pairOf(row.x0, row.y0) * 0x9E3779B97F4A7C15ULL;
  key = (key ^ (key >> 32U) ^ pairOf(row.x1, row.y1)) * 0xBF58476D1CE4E5B9ULL;
  if (isRound(row.type)) {
    key = (key ^ (key >> 32U) ^ pairOf(row.xc, row.yc)) * 0x94D049BB133111EBULL;
  }
  return key + static_cast<std::uint64_t>(row.type * kCodesPerState + entityClass(row.attr));
}

// The drawing table during a step. Rows that go are marked until the end, so that the others keep
// their places: those that there were, then those that came back.
class DrawnRows {
 public:
  explicit DrawnRows(const DrawingStore& store)
      : store_(store), columns_(store), originals_(static_cast<std::size_t>(store.NumSegments)) {}

  // The step, in the order of the walk, before it begins.
  void expect(const clsSegment& record, bool goes) {
    if (!goes) coming_.push_back(drawnRow(record));
    anyGoes_ = anyGoes_ || goes;
  }

  void takeAway(const clsSegment& record) {
    begin();
    const std::size_t place = placeOf(record);
    if (place == RowFinder::kNone) return;
    gone_[place] = true;
    --live_;
    last_ = place;
  }

  void bringBack(const clsSegment& record) {
    begin();
    live_ = Int16(live_ + 1);
    // Fixed: a drawing row comes back as the last one; row numbers in scripts go by that.
    const std::size_t place = originals_ + came_++;
    if (finder_) finder_->add(place, drawnRow(record));
  }

  void putBack(SegmentChanges& table) {
    if (!begun_) return;
    std::vector<std::int16_t> gone, come;
    for (std::size_t place = 0; place < originals_; ++place) {
      if (gone_[place]) gone.push_back(Int16(place + 1));
    }
    std::size_t place = originals_;
    std::erase_if(coming_, [&](const SegmentRow& /*row*/) { return gone_[place++]; });
    come.reserve(coming_.size());
    for (std::size_t n = originals_ - gone.size(); come.size() < coming_.size();) {
      come.push_back(Int16(++n));
    }
    table.erase(gone, Entry::Unlogged);
    table.putBack(come, coming_);
  }

 private:
  void begin() {
    if (std::exchange(begun_, true)) return;
    live_ = store_.NumSegments;
    last_ = originals_;
    gone_.resize(originals_ + coming_.size());
    if (anyGoes_) findRepeated();
  }

  void findRepeated() {
    std::vector<std::uint64_t> keys;
    keys.reserve(gone_.size());
    for (int sg = 1; sg <= live_; ++sg) keys.push_back(keyOf(columns_.row(sg)));
    for (const SegmentRow& row : coming_) keys.push_back(keyOf(row));
    repeated_ = repeatedNumbers(keys);
  }

  SegmentRow rowAt(std::size_t place) const {
    return place < originals_ ? columns_.row(static_cast<int>(place) + 1)
                              : coming_[place - originals_];
  }

  // Steps that took many rows along leave them where their records say, or one before the other:
  // there the row is looked for first, unless another one is the same.
  std::size_t placeOf(const clsSegment& record) {
    if (!finder_) {
      for (const std::size_t place : {static_cast<std::size_t>(record.row) - 1, last_ - 1}) {
        if (isThere(record, place) && !repeated_[place]) return place;
      }
      findByEnds();
    }
    return finder_->takeClosest(record, [this](std::size_t place) { return rowAt(place); });
  }

  bool isThere(const clsSegment& record, std::size_t place) const {
    if (place >= originals_ + came_ || gone_[place]) return false;
    const SegmentRow row = rowAt(place);
    return RowFinder::isClosest(record, row) && isSameRow(record, row, store_.cfg_tolerance);
  }

  void findByEnds() {
    finder_.emplace(store_.cfg_tolerance, gone_.size());
    for (std::size_t place = 0; place < originals_ + came_; ++place) {
      if (!gone_[place]) finder_->add(place, rowAt(place));
    }
  }

  const DrawingStore& store_;
  const SegmentColumns columns_;
  const std::size_t originals_;
  std::vector<SegmentRow> coming_;  // with the step
  bool anyGoes_ = false;
  bool begun_ = false;
  int live_ = 0;
  std::size_t came_ = 0;             // of those that come
  std::vector<bool> gone_;           // by place, those that are yet to come too
  std::vector<bool> repeated_;       // there may be another row that is the same
  std::size_t last_ = 0;             // where the last row went
  std::optional<RowFinder> finder_;  // of those that are not gone, once one was looked for
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

  // A record of the step, before it is walked.
  void expect(const clsSegment& record, bool goes) {
    if (!record.isPath()) drawn_.expect(record, goes);
  }
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
  for (const clsSegment& record : std::views::reverse(changes.log.lastStep())) {
    rows.expect(record, record.added());
  }
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
  for (const clsSegment& record : log.nextStep()) rows.expect(record, !record.added());
  while (log.canRedo()) {
    const clsSegment record = changes.log.nextRedoRecord();
    record.added() ? rows.bringBack(record) : rows.takeAway(record);
    if (log.canRedo() && log.record(log.changecount).StartOfSegment) break;
  }
  rows.putBack(change);
}

}  // namespace tess
