// Outlines that do not close.
#include "geometry/open_outlines.h"

#include <numeric>
#include <set>
#include <vector>

#include "core/drawing_store.h"
#include "geometry/end_point_index.h"
#include "geometry/entity.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

// The rows in chains: rows whose ends meet belong to one.
class Chains {
 public:
  Chains(const DrawingStore& store, int first, int last)
      : store_(store), first_(first), ends_(store.cfg_tolerance) {
    ends_.reserve(last);
    for (int sg = last; sg >= first; --sg) {
      if (hasEnds(sg)) ends_.update(sg, entity(sg).start, entity(sg).end);
    }
    chainOf_.resize(static_cast<std::size_t>(last - first + 1));
    std::iota(chainOf_.begin(), chainOf_.end(), first);
    for (int sg = first; sg <= last; ++sg) follow(sg);
  }

  int open() {
    std::set<int> chains;
    for (const int sg : loose_) chains.insert(chain(sg));
    return static_cast<int>(chains.size());
  }

 private:
  Entity entity(int sg) const { return segmentEntity(store_, sg); }

  bool hasEnds(int sg) const {
    const Entity row = entity(sg);
    return (row.type == kLine || isArc(row.type)) &&
           !samePoint(row.start, row.end, store_.cfg_tolerance);
  }

  void follow(int sg) {
    if (!hasEnds(sg)) return;
    for (const Point end : {entity(sg).start, entity(sg).end}) {
      ends_.rowsAt(end, matches_);
      if (matches_.size() < 2) loose_.push_back(sg);
      for (const EndMatch& match : matches_) at(chain(match.row)) = chain(sg);
    }
  }

  int& at(int sg) { return chainOf_[static_cast<std::size_t>(sg - first_)]; }
  // The row that stands for the chain; the way to it becomes shorter as it is gone.
  int chain(int sg) {
    while (at(sg) != sg) sg = at(sg) = at(at(sg));
    return sg;
  }

  const DrawingStore& store_;
  int first_;
  EndPointIndex ends_;
  std::vector<int> chainOf_;  // by row
  std::vector<int> loose_;    // rows with a loose end
  std::vector<EndMatch> matches_;
};

}  // namespace

int openOutlines(const DrawingStore& store, int first, int last) {
  return last < first ? 0 : Chains(store, first, last).open();
}

}  // namespace tess
