// Rows that hang together, by a walk from end to end.
#include "toolpath/connected_rows.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/end_point_index.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

// A rectangle has no ends: its corners join nothing.
bool hasEnds(const DrawingStore& store, int sg) {
  return store.segtype[sg] != kRectangle;
}

bool isOutlineRow(const DrawingStore& store, int sg) {
  return entityClass(store.segattr[sg]) == kOrdinaryClass && store.segtype[sg] != kPoint;
}

class Connections {
 public:
  explicit Connections(const DrawingStore& store)
      : store_(store),
        ends_(store.cfg_tolerance),
        taken_(static_cast<std::size_t>(store.NumSegments) + 1) {
    ends_.reserve(store.NumSegments);
    for (int sg = store.NumSegments; sg >= 1; --sg) {
      if (!isOutlineRow(store, sg) || !hasEnds(store, sg)) continue;
      const Entity row = segmentEntity(store, sg);
      ends_.update(sg, row.start, row.end);
    }
  }

  bool isTaken(int sg) const { return taken_[static_cast<std::size_t>(sg)]; }

  std::vector<int> from(int first) {
    std::vector<int> rows;
    std::vector<int> open;
    take(first, open);
    while (!open.empty()) {
      const int sg = open.back();
      open.pop_back();
      rows.push_back(sg);
      if (!hasEnds(store_, sg)) continue;
      const Entity row = segmentEntity(store_, sg);
      for (const Point end : {row.start, row.end}) {
        ends_.rowsAt(end, matches_);
        for (const EndMatch& match : matches_) take(match.row, open);
      }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }

 private:
  void take(int sg, std::vector<int>& open) {
    if (isTaken(sg)) return;
    taken_[static_cast<std::size_t>(sg)] = true;
    open.push_back(sg);
  }

  const DrawingStore& store_;
  EndPointIndex ends_;
  std::vector<bool> taken_;
  std::vector<EndMatch> matches_;
};

}  // namespace

std::vector<std::vector<int>> connectedRows(const DrawingStore& store) {
  Connections connections(store);
  std::vector<std::vector<int>> all;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (isOutlineRow(store, sg) && !connections.isTaken(sg)) all.push_back(connections.from(sg));
  }
  return all;
}

std::vector<int> rowsConnectedTo(const DrawingStore& store, int sg) {
  if (!isOutlineRow(store, sg)) return {};
  return Connections(store).from(sg);
}

std::vector<Entity> segmentEntities(const DrawingStore& store, const std::vector<int>& rows) {
  std::vector<Entity> entities;
  for (const int sg : rows) entities.push_back(segmentEntity(store, sg));
  return entities;
}

}  // namespace tess
