// The length and the area of a closed outline.
#include "shell/outline_totals.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "geometry/curve.h"
#include "geometry/end_point_index.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

OutlineTotals totalsOf(const std::vector<Curve>& loop) {
  OutlineTotals totals{0, std::abs(areaOf(loop))};
  for (const Curve& curve : loop) totals.length += lengthOf(curve);
  return totals;
}

// A walk along rows of the drawing from end to end.
class Walk {
 public:
  Walk(const DrawingStore& store, std::span<const int> rows)
      : store_(store), rows_(rows), ends_(store.cfg_tolerance) {
    ends_.reserve(count());
    for (int n = count(); n >= 1; --n) ends_.update(n, entity(n).start, entity(n).end);
  }

  // False when it ends before it has passed all rows and come back, or meets a branch.
  bool closes() {
    int row = 1;
    bool forwards = true;
    for (int passed = 1; passed <= count(); ++passed) {
      pass(row, forwards);
      if (!step(row, forwards)) return false;
      if (row == 1) return passed == count() && forwards;
    }
    return false;
  }

  const std::vector<Curve>& loop() const { return loop_; }

 private:
  int count() const { return static_cast<int>(rows_.size()); }
  Entity entity(int n) const {
    return segmentEntity(store_, rows_[static_cast<std::size_t>(n) - 1]);
  }

  void pass(int row, bool forwards) {
    const std::size_t first = loop_.size();
    appendCurves(entity(row), loop_);
    if (forwards) return;
    const auto begin = loop_.begin() + static_cast<std::ptrdiff_t>(first);
    std::reverse(begin, loop_.end());
    std::transform(begin, loop_.end(), begin, reversed);
  }

  // To the only other row at the end of this one.
  bool step(int& row, bool& forwards) {
    ends_.rowsAt(forwards ? entity(row).end : entity(row).start, matches_);
    if (matches_.size() != 2) return false;
    const EndMatch& next = matches_[0].row == row ? matches_[1] : matches_[0];
    if (next.atStart == next.atEnd) return false;
    row = next.row;
    forwards = next.atStart;
    return true;
  }

  const DrawingStore& store_;
  std::span<const int> rows_;
  EndPointIndex ends_;  // of the rows by their places, from 1
  std::vector<EndMatch> matches_;
  std::vector<Curve> loop_;
};

bool isLineOrArc(int type) {
  return type == kLine || isArc(type);
}

}  // namespace

std::optional<OutlineTotals> totalsOfOutline(const DrawingStore& store, std::span<const int> rows) {
  if (rows.size() == 1) {
    const Entity row = segmentEntity(store, rows.front());
    std::vector<Curve> loop;
    if (isRound(row.type) && row.start == row.end) appendCurves(row, loop);
    return loop.empty() ? std::nullopt : std::optional(totalsOf(loop));
  }
  const bool fitting =
      std::all_of(rows.begin(), rows.end(), [&](int sg) { return isLineOrArc(store.segtype[sg]); });
  if (rows.empty() || !fitting) return std::nullopt;
  Walk walk(store, rows);
  return walk.closes() ? std::optional(totalsOf(walk.loop())) : std::nullopt;
}

}  // namespace tess
