// Elements, joints, and the walk that puts both together.
#include "toolpath/element_offset.h"

#include "core/drawing_store.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr int reversed(int arcType) {
  return kClockwiseArc + kCounterClockwiseArc - arcType;
}

Entity offsetLine(const Entity& line, Side side, float radius) {
  const double length = nonZero(distance(line.start, line.end));
  const double dirX = (static_cast<double>(line.end.x) - line.start.x) / length;
  const double dirY = (static_cast<double>(line.end.y) - line.start.y) / length;
  const double dx = signOf(side) * dirY * radius;
  const double dy = -signOf(side) * dirX * radius;
  const auto shifted = [dx, dy](Point p) { return Point{narrow(p.x + dx), narrow(p.y + dy)}; };
  return lineEntity(shifted(line.start), shifted(line.end));
}

std::optional<Entity> offsetArc(const Entity& arc, Side side, float radius) {
  const double before = radiusOf(arc);
  const double after = arcSense(arc.type) * signOf(side) * static_cast<double>(radius) + before;
  if (after <= 0 && side != Side::On) return std::nullopt;
  const double ratio = side != Side::On ? after / nonZero(before) : 1;
  const auto moved = [&arc, ratio](Point p) {
    return Point{narrow(arc.center.x + (static_cast<double>(p.x) - arc.center.x) * ratio),
                 narrow(arc.center.y + (static_cast<double>(p.y) - arc.center.y) * ratio)};
  };
  return Entity{arc.type, moved(arc.start), moved(arc.end), arc.center};
}

// A path on the right goes round a corner counter-clockwise. On the profile there is none: the arc
// is clockwise then.
constexpr int bridgeType(Side side) {
  return side == Side::Right ? kCounterClockwiseArc : kClockwiseArc;
}

}  // namespace

Entity travelledRow(const DrawingStore& store, int sg, Point start, Point end) {
  if (!isArc(store.segtype[sg])) return {store.segtype[sg], start, end, {}};
  const Entity row = segmentEntity(store, sg);
  Entity along{row.type, start, end, row.center};
  if (samePoint(row.start, row.end, store.cfg_tolerance)) {
    along.type = kClockwiseArc;
  } else if (!samePoint(row.start, start, store.cfg_tolerance)) {
    along.type = reversed(row.type);
  }
  return along;
}

Point otherEnd(const DrawingStore& store, int sg, Point start) {
  const Entity row = segmentEntity(store, sg);
  return samePoint(row.end, start, store.cfg_tolerance) ? row.start : row.end;
}

bool hasDirection(const DrawingStore& store, int sg, Point start, Point direction) {
  return isArc(store.segtype[sg]) || !samePoint(start, direction, store.cfg_tolerance);
}

Side sideOfLine(const Entity& line, SideSigns reference) {
  const int alongX = signOf(static_cast<double>(line.end.x) - line.start.x);
  const int alongY = signOf(static_cast<double>(line.end.y) - line.start.y);
  // An axis that is undecided agrees with whatever the other one says.
  const auto agreesX = [&](int sign) {
    return reference.x == sign || (reference.x == 0 && reference.y != 0);
  };
  const auto agreesY = [&](int sign) {
    return reference.y == sign || (reference.y == 0 && reference.x != 0);
  };
  if (agreesX(-alongY) && agreesY(alongX)) return Side::Left;
  if (agreesX(alongY) && agreesY(-alongX)) return Side::Right;
  return Side::On;
}

std::optional<Entity> offsetElement(const Entity& along, Side side, float radius) {
  return isArc(along.type) ? offsetArc(along, side, radius) : offsetLine(along, side, radius);
}

bool OffsetChain::append(const Entity& along) {
  if (along.type == kLine || isArc(along.type)) {
    const auto element = offsetElement(along, settings_.side, settings_.radius);
    if (!element) return false;
    last_ = *element;
  } else {
    // Fixed: a circle or rectangle repeats the last places under its kind; files hold such rows.
    last_.type = along.type;
  }
  elements_.push_back(last_);
  return true;
}

void OffsetChain::joinLast(Point corner) {
  if (elements_.size() < 2) return;
  join(elements_.size() - 2, elements_.size() - 1, corner);
}

void OffsetChain::close(Point corner) {
  if (elements_.empty()) return;
  join(elements_.size() - 1, 0, corner);
}

// Elements farther apart than the tolerance are never joined by a line: the gap is too wide for
// one to stand in for the arc.
void OffsetChain::join(std::size_t earlier, std::size_t later, Point corner) {
  const Point from = elements_[earlier].end;
  const Point to = elements_[later].start;
  if (samePoint(from, to, settings_.tolerence) || trim(earlier, later)) return;
  const auto behind = elements_.begin() + static_cast<std::ptrdiff_t>(earlier) + 1;
  elements_.insert(behind, {bridgeType(settings_.side), from, to, corner});
  bridges_.push_back(earlier + 1);
}

// An element that closes on itself has no crossing.
// Fixed: of two hits the second counts, however far it lies; joints of stored paths are there.
bool OffsetChain::trim(std::size_t earlier, std::size_t later) {
  if (earlier == later) return false;
  const Crossing crossing =
      intersectEntities(elements_[earlier], elements_[later], settings_.tolerence);
  if (!crossing) return false;
  const Point at = crossing.second ? crossing.at.second : crossing.at.first;
  elements_[earlier].end = at;
  elements_[later].start = at;
  return true;
}

bool offsetAlong(const DrawingStore& store, const OffsetWalk& walk, OffsetChain& chain) {
  std::vector<bool> visited(static_cast<std::size_t>(store.NumSegments) + 1);
  const auto take = [&](int sg, Point start, Point end) {
    visited[static_cast<std::size_t>(sg)] = true;
    if (walk.taken) walk.taken(sg);
    return chain.append(travelledRow(store, sg, start, end));
  };
  take(walk.sg, walk.start, walk.end);
  if (!walk.wholeChain) return samePoint(walk.end, walk.start, store.cfg_tolerance);
  int sg = walk.sg;
  Point at = walk.end;
  while (!samePoint(at, walk.start, store.cfg_tolerance)) {
    const auto step = walk.next(sg, at);
    if (!step) return false;
    if (visited[static_cast<std::size_t>(step->row)]) return true;
    if (take(step->row, at, step->end)) chain.joinLast(at);
    sg = step->row;
    at = step->end;
  }
  chain.close(walk.start);
  return true;
}

}  // namespace tess
