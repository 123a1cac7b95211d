// Walking the change log.
//
// A step of many records would pass over the tables once for each. Instead, removed drawing rows
// are marked until the end of the step and found through their hashed ends, and path rows are kept
// in two halves on either side of the place where work goes on. Both give the rows that a plain
// pass for each record gives.
#include "drafting/change_walk.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "geometry/end_point_index.h"

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

// The drawing table during a step. The last row in use is never one that is marked as gone.
class DrawnRows {
 public:
  explicit DrawnRows(DrawingStore& store) : store_(store) {}
  ~DrawnRows() { closeGaps(); }
  DrawnRows(const DrawnRows&) = delete;
  DrawnRows& operator=(const DrawnRows&) = delete;

  void takeAway(const clsSegment& record) {
    const int sg = find(record);
    if (sg < 1) return;
    if (ends_) ends_->remove(sg);
    markGone(sg);
    store_.drawingsaved = false;
  }

  void bringBack(const clsSegment& record) {
    if (store_.NumSegments == std::numeric_limits<std::int16_t>::max()) closeGaps();
    const SegmentRow row = drawnRow(record);
    AddSeg(store_, row, nullptr);
    if (ends_) ends_->update(store_.NumSegments, {row.x0, row.y0}, {row.x1, row.y1});
    store_.drawingsaved = false;
  }

 private:
  // The highest row that matches. Mostly that is the last one, which needs no index.
  int find(const clsSegment& record) {
    if (isMatch(record, store_.NumSegments)) return store_.NumSegments;
    if (!ends_) ends_.emplace(segmentEndIndex(store_));
    ends_->rowsAt({record.x0, record.y0}, found_);
    const auto match = std::find_if(found_.rbegin(), found_.rend(), [&](const EndMatch& end) {
      return end.atStart && isMatch(record, end.row);
    });
    return match == found_.rend() ? -1 : match->row;
  }

  bool isMatch(const clsSegment& record, int sg) const {
    return sg >= 1 && isSameRow(record, segmentRow(store_, sg), store_.cfg_tolerance);
  }

  void markGone(int sg) {
    gone_.resize(std::max(gone_.size(), static_cast<std::size_t>(store_.NumSegments) + 1));
    gone_[static_cast<std::size_t>(sg)] = true;
    while (isGone(store_.NumSegments)) {
      gone_[static_cast<std::size_t>(store_.NumSegments)] = false;
      --store_.NumSegments;
    }
  }

  bool isGone(int sg) const {
    const auto row = static_cast<std::size_t>(sg);
    return row < gone_.size() && gone_[row];
  }

  void closeGaps() {
    int kept = 0;
    for (int sg = 1; sg <= store_.NumSegments; ++sg) {
      if (isGone(sg)) continue;
      if (++kept != sg) setSegmentRow(store_, kept, segmentRow(store_, sg));
    }
    store_.NumSegments = kept;
    gone_.clear();
    ends_.reset();
  }

  DrawingStore& store_;
  std::vector<bool> gone_;  // by row number
  std::optional<EndPointIndex> ends_;
  std::vector<EndMatch> found_;
};

// The path table during a step: the rows before and behind the place of work, the latter in
// reverse. They are taken out of the table with the first record that needs them.
class PlacedRows {
 public:
  explicit PlacedRows(DrawingStore& store) : store_(store) {}
  ~PlacedRows() { putBack(); }
  PlacedRows(const PlacedRows&) = delete;
  PlacedRows& operator=(const PlacedRows&) = delete;

  void takeAway(const clsSegment& record) {
    takeOut();
    const int place = find(record);
    if (place < 1) return;
    goTo(place);
    behind_.pop_back();
    store_.drawingsaved = false;
  }

  void bringBack(const clsSegment& record) {
    takeOut();
    const Int16 rows = count() + 1;
    ensurePathCapacity(store_, rows);
    goTo(std::clamp<int>(record.row, 1, rows));
    before_.push_back(placedRow(record));
    store_.drawingsaved = false;
  }

 private:
  int count() const { return static_cast<int>(before_.size() + behind_.size()); }

  void takeOut() {
    if (std::exchange(out_, true)) return;
    before_.reserve(static_cast<std::size_t>(store_.NumPathSegments) + 1);
    for (int ps = 1; ps <= store_.NumPathSegments; ++ps) before_.push_back(pathRow(store_, ps));
  }

  void putBack() {
    if (!out_) return;
    const Int16 rows = count();
    goTo(rows + 1);
    for (int ps = 1; ps <= rows; ++ps) setPathRow(store_, ps, rowAt(ps));
    store_.NumPathSegments = rows;
  }

  // Row `place` becomes the first one behind.
  void goTo(int place) {
    const auto ahead = static_cast<std::size_t>(place) - 1;
    while (before_.size() > ahead) moveRow(before_, behind_);
    while (before_.size() < ahead) moveRow(behind_, before_);
  }

  static void moveRow(std::vector<PathRow>& from, std::vector<PathRow>& to) {
    to.push_back(from.back());
    from.pop_back();
  }

  const PathRow& rowAt(int ps) const {
    const auto row = static_cast<std::size_t>(ps) - 1;
    return row < before_.size() ? before_[row] : behind_[before_.size() + behind_.size() - 1 - row];
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

  DrawingStore& store_;
  bool out_ = false;
  std::vector<PathRow> before_, behind_;
};

// Both tables, while one step is walked.
class StepRows {
 public:
  explicit StepRows(DrawingStore& store) : drawn_(store), placed_(store) {}

  void takeAway(const clsSegment& record) {
    record.isPath() ? placed_.takeAway(record) : drawn_.takeAway(record);
  }
  void bringBack(const clsSegment& record) {
    record.isPath() ? placed_.bringBack(record) : drawn_.bringBack(record);
  }

 private:
  DrawnRows drawn_;
  PlacedRows placed_;
};

}  // namespace

void undoStep(ChangeLog& log, DrawingStore& store) {
  StepRows rows(store);
  while (log.canUndo()) {
    const clsSegment record = log.popRecord();
    record.added() ? rows.takeAway(record) : rows.bringBack(record);
    if (record.StartOfSegment) return;
  }
}

void redoStep(ChangeLog& log, DrawingStore& store) {
  StepRows rows(store);
  while (log.canRedo()) {
    const clsSegment record = log.nextRedoRecord();
    record.added() ? rows.bringBack(record) : rows.takeAway(record);
    if (log.canRedo() && log.record(log.changecount).StartOfSegment) return;
  }
}

}  // namespace tess
