// What has become of a list of path rows, as records.
#include "drafting/path_difference.h"

#include <set>

namespace tess {
namespace {

class Difference {
 public:
  explicit Difference(const std::vector<PathRow>& before) : before_(before) {
    for (const PathRow& row : before) codesBefore_.insert(row.code);
  }

  std::vector<clsSegment> to(const std::vector<PathRow>& after) {
    for (const PathRow& row : after) {
      // Rows of a new group cannot be old ones; before any other, old rows that differ are gone.
      if (codesBefore_.contains(row.code)) {
        while (old_ < before_.size() && before_[old_] != row) removed(before_[old_++]);
      }
      old_ < before_.size() && before_[old_] == row ? kept() : added(row);
    }
    while (old_ < before_.size()) removed(before_[old_++]);
    return std::move(records_);
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

  void record(const PathRow& row, RecordKind kind) {
    clsSegment& entry = records_.emplace_back();
    entry.SetPathSegment(row, kind, /*start=*/false);
    entry.row = place_;
  }

  const std::vector<PathRow>& before_;
  std::set<int> codesBefore_;
  std::size_t old_ = 0;
  int place_ = 1;
  std::vector<clsSegment> records_;
};

}  // namespace

std::vector<clsSegment> pathDifference(const std::vector<PathRow>& before,
                                       const std::vector<PathRow>& after) {
  return Difference(before).to(after);
}

}  // namespace tess
