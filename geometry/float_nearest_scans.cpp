// Plain linear passes over the tables, one metric each.
#include "geometry/float_nearest_scans.h"

#include <array>

#include "core/drawing_store.h"
#include "geometry/float_nearest.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

// `nearestPoint(row)` gives a row's nearest point, or a miss for a row that does not count;
// `least(row)` what its distance cannot be below.
template <typename LeastDistance, typename NearestOf>
int nearestRow(int rows, Point at, LeastDistance least, NearestOf nearestPoint) {
  float best = kFarthest;
  int found = 0;
  for (int row = 1; row <= rows; ++row) {
    if (least(row) > best) continue;
    const NearestPoint point = nearestPoint(row);
    if (!point) continue;
    const float away = distance(at, point.at);
    if (away >= best) continue;
    best = away;
    found = row;
  }
  return found;
}

template <typename NearestOf>
int nearestRow(int rows, Point at, NearestOf nearestPoint) {
  return nearestRow(
      rows, at, [](int /*row*/) { return 0.0; }, nearestPoint);
}

// Of the rows that count.
template <typename Counts, typename EndsOf>
std::optional<Point> nearestEnd(int rows, Point at, Counts counts, EndsOf endsOf) {
  float best = kFarthest;
  Point nearest;
  for (int row = 1; row <= rows; ++row) {
    if (!counts(row)) continue;
    for (const Point& end : endsOf(row)) {
      const float away = distance(at, end);
      if (away >= best) continue;
      best = away;
      nearest = end;
    }
  }
  return best < kFarthest ? std::optional(nearest) : std::nullopt;
}

// What the distance of an arc cannot be below; of all else nothing is said.
auto leastOfArcs(const DrawingStore& store, Point at) {
  return [&store, at](int sg) {
    const bool arc = isArc(store.segtype[sg]);
    return arc ? leastDistance(segmentEntity(store, sg), at, store.cfg_tolerance) : 0.0;
  };
}

// Fixed: a group is its number less 1 with tool index 0; scripts ask for groups that way.
bool inGroup(const DrawingStore& store, int ps, double group) {
  return group == 0 || store.pscode[ps] / double{kCodesPerGroup} + 1 == group;
}

}  // namespace

int nearestLineSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg) {
    return store.segtype[sg] == kLine ? nearestOnSeg(store, sg, at) : NearestPoint{};
  });
}

int nearestArcSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, leastOfArcs(store, at), [&](int sg) {
    return isArc(store.segtype[sg]) ? nearestOnSeg(store, sg, at) : NearestPoint{};
  });
}

int nearestRoundSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, leastOfArcs(store, at), [&](int sg) {
    if (!isRound(store.segtype[sg])) return NearestPoint{};
    // Fixed: circles are measured as arcs too; Change Radius picks by it.
    return nearestOnArc(segmentEntity(store, sg), at, store.cfg_tolerance);
  });
}

NearestPoint nearestPointOfRow(const DrawingStore& store, int sg, Point at) {
  if (store.segtype[sg] != kPoint) return nearestOnSeg(store, sg, at);
  return {Miss::None, {store.x1[sg], store.y1[sg]}};
}

NearestPoint nearestPointOfPathRow(const DrawingStore& store, int ps, Point at) {
  const int type = store.pstype[ps];
  const bool measurable = type == kLine || isArc(type) || isPointCycle(type);
  return measurable ? nearestOnPathSeg(store, ps, at) : NearestPoint{};
}

int nearestSeg(const DrawingStore& store, Point at) {
  const auto least = [&](int sg) {
    return leastDistance(segmentEntity(store, sg), at, store.cfg_tolerance);
  };
  return nearestRow(store.NumSegments, at, least,
                    [&](int sg) { return nearestPointOfRow(store, sg, at); });
}

int nearestSelectedSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg) {
    return store.segattr[sg] == kVerifiedRow ? nearestPointOfRow(store, sg, at) : NearestPoint{};
  });
}

int nearestPathChord(const DrawingStore& store, Point at) {
  return nearestRow(store.NumPathSegments, at, [&](int ps) {
    const int type = store.pstype[ps];
    if (!store.psvisible[ps] || (type != kLine && !isArc(type))) return NearestPoint{};
    const Entity row = pathEntity(store, ps);
    return NearestPoint{Miss::None, nearestOnLine(row.start, row.end, at)};
  });
}

int nearestPathLine(const DrawingStore& store, Point at) {
  return nearestRow(store.NumPathSegments, at, [&](int ps) {
    const bool counts = store.psvisible[ps] && store.pstype[ps] == kLine;
    return counts ? nearestOnPathSeg(store, ps, at) : NearestPoint{};
  });
}

int nearestPathArc(const DrawingStore& store, Point at) {
  return nearestRow(store.NumPathSegments, at, [&](int ps) {
    const bool counts = store.psvisible[ps] && isArc(store.pstype[ps]);
    return counts ? nearestOnPathSeg(store, ps, at) : NearestPoint{};
  });
}

int nearestPathSeg(const DrawingStore& store, Point at, double group) {
  const auto least = [&](int ps) {
    return leastDistance(pathEntity(store, ps), at, store.cfg_tolerance);
  };
  return nearestRow(store.NumPathSegments, at, least, [&](int ps) {
    const bool counts = store.psvisible[ps] && inGroup(store, ps, group);
    return counts ? nearestPointOfPathRow(store, ps, at) : NearestPoint{};
  });
}

std::optional<Point> nearestSegEndpoint(const DrawingStore& store, Point at) {
  return nearestEnd(
      store.NumSegments, at, [](int /*sg*/) { return true; },
      [&](int sg) {
        return std::array<Point, 2>{{{store.x0[sg], store.y0[sg]}, {store.x1[sg], store.y1[sg]}}};
      });
}

std::optional<Point> nearestPathEndpoint(const DrawingStore& store, Point at) {
  return nearestEnd(
      store.NumPathSegments, at, [&](int ps) { return store.psvisible[ps]; },
      [&](int ps) {
        return std::array<Point, 2>{
            {{store.psx0[ps], store.psy0[ps]}, {store.psx1[ps], store.psy1[ps]}}};
      });
}

}  // namespace tess
