// The path rows of a long command as one step of the change log.
#include "toolpath/path_step.h"

#include <set>
#include <utility>

namespace tess {
namespace {

std::vector<PathRow> pathRows(const DrawingStore& store) {
  std::vector<PathRow> rows;
  rows.reserve(static_cast<std::size_t>(store.NumPathSegments));
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) rows.push_back(pathRow(store, ps));
  return rows;
}

// Turns one list of rows into another by records from front to back, each with the place that its
// row has at that moment.
class DifferenceLog {
 public:
  DifferenceLog(ChangeLog& log, const std::vector<PathRow>& before) : log_(log), before_(before) {
    for (const PathRow& row : before) codesBefore_.insert(row.code);
  }

  void write(const std::vector<PathRow>& after) {
    for (const PathRow& row : after) {
      // Rows of a new group cannot be old ones; before any other, old rows that differ are gone.
      if (codesBefore_.contains(row.code)) {
        while (old_ < before_.size() && before_[old_] != row) removed(before_[old_++]);
      }
      old_ < before_.size() && before_[old_] == row ? kept() : added(row);
    }
    while (old_ < before_.size()) removed(before_[old_++]);
  }

 private:
  void kept() {
    ++old_;
    ++place_;
  }
  void removed(const PathRow& row) { record(row, "D"); }
  void added(const PathRow& row) {
    record(row, "A");
    ++place_;
  }

  void record(const PathRow& row, std::string_view kind) {
    clsSegment entry;
    entry.SetPathSegment(row, kind, /*start=*/startsStep_);
    entry.row = place_;
    log_.logRecord(entry, /*cutRedo=*/true);
    startsStep_ = false;
  }

  ChangeLog& log_;
  const std::vector<PathRow>& before_;
  std::set<int> codesBefore_;
  std::size_t old_ = 0;
  int place_ = 1;
  bool startsStep_ = true;
};

}  // namespace

PathStep::PathStep(CamDesk& cam) : cam_(cam), before_(pathRows(cam.store)) {
  std::swap(cam_.changelog, log_);
}

PathStep::~PathStep() {
  if (kept_) return;
  bringLogBack();
  bringRowsBack();
}

void PathStep::keep() {
  bringLogBack();
  ChangeLog& log = cam_.changelog;
  const Int16 records = log.changecount;
  try {
    DifferenceLog(log, before_).write(pathRows(cam_.store));
  } catch (...) {
    log.changecount = log.changetop = records;
    throw;
  }
  kept_ = true;
}

void PathStep::bringLogBack() {
  if (std::exchange(logIsAside_, false)) std::swap(cam_.changelog, log_);
}

// The tables never shrink, so there is room.
void PathStep::bringRowsBack() {
  int ps = 0;
  for (const PathRow& row : before_) setPathRow(cam_.store, ++ps, row);
  cam_.store.NumPathSegments = ps;
}

}  // namespace tess
