// The search looks at growing squares round the point until one holds a row, and then once more as
// far as that row is away: what lies outside is farther.
#include "geometry/nearest_index.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr double kGrowth = 4;

double farFrom(const Box& box, Point at) {
  const double dx =
      std::max({static_cast<double>(box.minX) - at.x, static_cast<double>(at.x) - box.maxX, 0.0});
  const double dy =
      std::max({static_cast<double>(box.minY) - at.y, static_cast<double>(at.y) - box.maxY, 0.0});
  return std::max(dx, dy);
}

bool covers(const Box& outer, const Box& inner) {
  return outer.minX <= inner.minX && outer.minY <= inner.minY && outer.maxX >= inner.maxX &&
         outer.maxY >= inner.maxY;
}

struct Nearest {
  int entry = 0;
  float away = kFarthest;
};

// `nearestPoint(entry)` gives an entry's nearest point, or a miss to pass it over.
template <typename NearestOf>
class Search {
 public:
  Search(const BoxIndex& boxes, Point at, double slack, NearestOf nearestPoint)
      : boxes_(boxes), at_(at), slack_(slack), nearestPoint_(nearestPoint) {}

  int run() {
    const Box& bounds = boxes_.bounds();
    if (bounds.isEmpty()) return 0;
    double reach = farFrom(bounds, at_) + boxes_.cellSize() + slack_;
    Nearest found = within(reach);
    while (found.entry == 0 && !isExhausted(reach)) {
      reach *= kGrowth;
      found = within(reach);
    }
    if (found.entry == 0) return 0;
    const double needed = found.away * (1 + kRoundingMargin) + slack_;
    return reach >= needed ? found.entry : within(needed).entry;
  }

 private:
  Box square(double reach) const { return grown(boxOf(at_, at_), reach); }

  bool isExhausted(double reach) const {
    return reach > kFarthest * (1 + kRoundingMargin) + slack_ ||
           covers(square(reach), boxes_.bounds());
  }

  Nearest within(double reach) {
    boxes_.rowsOverlapping(square(reach), /*after=*/0, entries_);
    Nearest nearest;
    for (const int entry : entries_) {
      const NearestPoint point = nearestPoint_(entry);
      if (!point) continue;
      const float away = distance(at_, point.at);
      if (away < nearest.away) nearest = {entry, away};
    }
    return nearest;
  }

  const BoxIndex& boxes_;
  Point at_;
  double slack_;
  NearestOf nearestPoint_;
  std::vector<int> entries_;
};

std::optional<Point> nearestEnd(const BoxIndex& ends, Point at) {
  const auto pointOf = [&](int entry) {
    const Box& box = ends.box(entry);
    return NearestPoint{Miss::None, {box.minX, box.minY}};
  };
  const int entry = Search(ends, at, /*slack=*/0, pointOf).run();
  return entry > 0 ? pointOf(entry).found() : std::nullopt;
}

Box rowBox(const FindableRow& row) {
  return row ? entityBox(*row) : Box{};
}
Box startBox(const FindableRow& row) {
  return row ? boxOf(row->start, row->start) : Box{};
}
Box endBox(const FindableRow& row) {
  return row ? boxOf(row->end, row->end) : Box{};
}

std::vector<Box> rowBoxes(const std::vector<FindableRow>& rows) {
  std::vector<Box> boxes;
  boxes.reserve(rows.size());
  for (const FindableRow& row : rows) boxes.push_back(rowBox(row));
  return boxes;
}

std::vector<Box> endBoxes(const std::vector<FindableRow>& rows) {
  std::vector<Box> boxes;
  boxes.reserve(2 * rows.size());
  for (const FindableRow& row : rows) {
    boxes.push_back(startBox(row));
    boxes.push_back(endBox(row));
  }
  return boxes;
}

FindableRow findableSegment(const DrawingStore& store, int sg) {
  return segmentEntity(store, sg);
}

FindableRow findablePath(const DrawingStore& store, int ps) {
  return store.psvisible[ps] ? FindableRow(pathEntity(store, ps)) : std::nullopt;
}

template <typename FindableOf>
std::vector<FindableRow> allRows(const DrawingStore& store, int count, FindableOf findableOf) {
  std::vector<FindableRow> rows;
  rows.reserve(static_cast<std::size_t>(count));
  for (int row = 1; row <= count; ++row) rows.push_back(findableOf(store, row));
  return rows;
}

}  // namespace

NearestBoxes::NearestBoxes(const std::vector<FindableRow>& rows, float tolerence)
    : rows_(rowBoxes(rows)), ends_(endBoxes(rows)), tolerence_(tolerence) {
  for (const FindableRow& row : rows) note(row);
}

void NearestBoxes::update(int row, const FindableRow& entity) {
  rows_.update(row, rowBox(entity));
  ends_.update(2 * row - 1, startBox(entity));
  ends_.update(2 * row, endBox(entity));
  note(entity);
}

double NearestBoxes::slack(Point at) const {
  if (!hasRoundKinds_) return 0;
  const double magnitude = std::max(magnitude_, largestCoordinate(at));
  return nearestSlack(magnitude, tolerence_);
}

void NearestBoxes::note(const FindableRow& row) {
  if (!row) return;
  magnitude_ = std::max(magnitude_, magnitudeOf(*row));
  hasRoundKinds_ = hasRoundKinds_ || isRound(row->type);
}

NearestSegIndex::NearestSegIndex(const DrawingStore& store)
    : store_(store),
      boxes_(allRows(store, store.NumSegments, findableSegment), store.cfg_tolerance) {}

void NearestSegIndex::update(int sg) {
  boxes_.update(sg, findableSegment(store_, sg));
}

int NearestSegIndex::nearestSeg(Point at) const {
  return Search(boxes_.rows(), at, boxes_.slack(at),
                [&](int sg) { return nearestPointOfRow(store_, sg, at); })
      .run();
}

std::optional<Point> NearestSegIndex::nearestSegEndpoint(Point at) const {
  return nearestEnd(boxes_.ends(), at);
}

NearestPathIndex::NearestPathIndex(const DrawingStore& store)
    : store_(store),
      boxes_(allRows(store, store.NumPathSegments, findablePath), store.cfg_tolerance) {}

void NearestPathIndex::update(int ps) {
  boxes_.update(ps, findablePath(store_, ps));
}

int NearestPathIndex::nearestPathSeg(Point at) const {
  return Search(boxes_.rows(), at, boxes_.slack(at),
                [&](int ps) { return nearestPointOfPathRow(store_, ps, at); })
      .run();
}

std::optional<Point> NearestPathIndex::nearestPathEndpoint(Point at) const {
  return nearestEnd(boxes_.ends(), at);
}

}  // namespace tess
