// Plain linear passes over the tables, one metric each.
#include "geometry/nearest_scans.h"

#include "geometry/nearest.h"
#include "geometry/row_boxes.h"

namespace tess {
namespace {

// `nearestPoint(row, point)` gives a row's nearest point, or false for a row that does not count;
// `least(row)` what its distance cannot be below.
template <typename LeastDistance, typename NearestPoint>
int nearestRow(int rows, Point at, LeastDistance least, NearestPoint nearestPoint) {
  float best = kFarthest;
  int found = 0;
  for (int row = 1; row <= rows; ++row) {
    if (least(row) > best) continue;
    Point point;
    if (!nearestPoint(row, point)) continue;
    const float away = distance(at, point);
    if (away >= best) continue;
    best = away;
    found = row;
  }
  return found;
}

template <typename NearestPoint>
int nearestRow(int rows, Point at, NearestPoint nearestPoint) {
  return nearestRow(
      rows, at, [](int /*row*/) { return 0.0; }, nearestPoint);
}

// `endsOf(row, start, end)` gives a row's ends, or false for a row that does not count.
template <typename EndsOf>
bool nearestEnd(int rows, Point at, Point& nearest, EndsOf endsOf) {
  float best = kFarthest;
  for (int row = 1; row <= rows; ++row) {
    Point ends[2];
    if (!endsOf(row, ends[0], ends[1])) continue;
    for (const Point& end : ends) {
      const float away = distance(at, end);
      if (away >= best) continue;
      best = away;
      nearest = end;
    }
  }
  return best < kFarthest;
}

bool inGroup(const DrawingStore& store, int ps, double group) {
  return group == 0 || store.pscode[ps] / 100.0 + 1 == group;
}

}  // namespace

int nearestLineSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg, Point& nearest) {
    return store.segtype[sg] == kLine && nearestOnSeg(store, sg, at, nearest) == kFound;
  });
}

int nearestArcSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg, Point& nearest) {
    return isArc(store.segtype[sg]) && nearestOnSeg(store, sg, at, nearest) == kFound;
  });
}

int nearestRoundSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg, Point& nearest) {
    if (!isRound(store.segtype[sg])) return false;
    return nearestOnArc(segmentEntity(store, sg), at, store.cfg_tolerance, nearest) == kFound;
  });
}

bool nearestPointOfRow(const DrawingStore& store, int sg, Point at, Point& nearest) {
  if (store.segtype[sg] != kPoint) return nearestOnSeg(store, sg, at, nearest) == kFound;
  nearest = {store.x1[sg], store.y1[sg]};
  return true;
}

bool nearestPointOfPathRow(const DrawingStore& store, int ps, Point at, Point& nearest) {
  const int type = store.pstype[ps];
  const bool measurable = type == kLine || isArc(type) || isPointCycle(type);
  return measurable && nearestOnPathSeg(store, ps, at, nearest) == kFound;
}

int nearestSeg(const DrawingStore& store, Point at) {
  const auto least = [&](int sg) {
    return leastDistance(segmentEntity(store, sg), at, store.cfg_tolerance);
  };
  return nearestRow(store.NumSegments, at, least, [&](int sg, Point& nearest) {
    return nearestPointOfRow(store, sg, at, nearest);
  });
}

int nearestSelectedSeg(const DrawingStore& store, Point at) {
  return nearestRow(store.NumSegments, at, [&](int sg, Point& nearest) {
    return store.segattr[sg] == kVerifiedRow && nearestPointOfRow(store, sg, at, nearest);
  });
}

int nearestPathChord(const DrawingStore& store, Point at) {
  return nearestRow(store.NumPathSegments, at, [&](int ps, Point& nearest) {
    const int type = store.pstype[ps];
    if (!store.psvisible[ps] || (type != kLine && !isArc(type))) return false;
    const Entity row = pathEntity(store, ps);
    nearest = nearestOnLine(row.start, row.end, at);
    return true;
  });
}

int nearestPathSeg(const DrawingStore& store, Point at, double group) {
  const auto least = [&](int ps) {
    return leastDistance(pathEntity(store, ps), at, store.cfg_tolerance);
  };
  return nearestRow(store.NumPathSegments, at, least, [&](int ps, Point& nearest) {
    return store.psvisible[ps] && inGroup(store, ps, group) &&
           nearestPointOfPathRow(store, ps, at, nearest);
  });
}

bool nearestSegEndpoint(const DrawingStore& store, Point at, Point& end) {
  return nearestEnd(store.NumSegments, at, end, [&](int sg, Point& first, Point& second) {
    first = {store.x0[sg], store.y0[sg]};
    second = {store.x1[sg], store.y1[sg]};
    return true;
  });
}

bool nearestPathEndpoint(const DrawingStore& store, Point at, Point& end) {
  return nearestEnd(store.NumPathSegments, at, end, [&](int ps, Point& first, Point& second) {
    first = {store.psx0[ps], store.psy0[ps]};
    second = {store.psx1[ps], store.psy1[ps]};
    return static_cast<bool>(store.psvisible[ps]);
  });
}

}  // namespace tess
