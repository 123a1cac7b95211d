// The depth of a move. Where its centre is free all along, that is its distance from the nearest
// wall. Otherwise the move is halved, and a half goes on only while it could be deeper than the
// deepest place seen: depth changes by no more than the way, and by no more than the distance from
// any one wall does.
#include "toolpath/row_depth.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <queue>

namespace tess {
namespace {

// A gap like this is a crossing.
constexpr double kTouching = 1e-10;
// Places that all searches against the same walls may look at: some seconds at the very worst.
constexpr int kMaxEffort = 200000;

// How far the farthest place of a circle's arc is from a point.
double farthestFrom(const Curve& curve, PlanePoint from) {
  double farthest = std::max(normOf(curve.start - from), normOf(curve.end - from));
  if (!curve.isArc()) return farthest;
  const PlanePoint away = curve.center - from;
  const double apart = normOf(away);
  if (apart == 0) return curve.radius;
  const PlanePoint opposite = curve.center + (curve.radius / apart) * away;
  if (isBeside(curve, opposite)) farthest = apart + curve.radius;
  return farthest;
}

// How far an arc bulges out from its chord.
double bulgeOf(const Curve& curve) {
  return curve.isArc() ? curve.radius * (1 - std::cos(sweepOf(curve) / 2)) : 0;
}

// No place of the move is farther from the wall. A distance from a line is largest at an end, but
// for the bulge; that from an arc which the move is beside follows that from its centre.
double mostFrom(const Curve& wall, const Curve& move) {
  const double ends = std::max(distanceTo(wall, move.start), distanceTo(wall, move.end));
  if (!wall.isArc()) return ends + bulgeOf(move);
  const bool beside =
      isBeside(wall, move.start) && isBeside(wall, move.end) && isBeside(wall, pointAt(move, 0.5));
  if (!beside) return ends + lengthOf(move) / 2;
  return std::max(farthestFrom(move, wall.center) - wall.radius,
                  wall.radius - distanceTo(move, wall.center));
}

// Above the place with side 1, below it with -1.
bool hasAWall(const PocketRegion& region, PlanePoint at, double side) {
  constexpr double kFar = 1e12;
  std::vector<int> found;
  region.index().candidates(lineCurve(at, {at.x, side * kFar}), 0, found);
  return std::any_of(found.begin(), found.end(), [&](int number) {
    const Curve& wall = region.walls()[static_cast<std::size_t>(number)];
    const Shares crossings = sharesOnLine(wall, at, {0, 1});
    return std::any_of(crossings.begin(), crossings.end(),
                       [&](double share) { return side * (pointAt(wall, share).y - at.y) > 0; });
  });
}

struct Stretch {
  double from, to;   // shares of the move
  double mostDepth;  // nowhere on it is the tool deeper
  bool operator<(const Stretch& other) const { return mostDepth < other.mostDepth; }
};

}  // namespace

// The search grows: what is not near may be anywhere.
std::optional<NearCurve> DepthSearch::nearestWall(PlanePoint at, double radius) const {
  constexpr double kLargest = 1e12;
  const Curve place = lineCurve(at, at);
  for (double distance = std::max(radius, 1e-3); distance < kLargest; distance *= 4) {
    if (const auto near = region_.index().nearest(place, distance)) return near;
  }
  return std::nullopt;
}

bool DepthSearch::isFree(PlanePoint at) const {
  switch (space_) {
    case FreeSpace::Inside:
      return region_.isFree(at);
    case FreeSpace::NotBelow:
      return region_.isFree(at) || !hasAWall(region_, at, 1);
    case FreeSpace::NotAbove:
      return region_.isFree(at) || !hasAWall(region_, at, -1);
    case FreeSpace::Unknown:
      break;
  }
  return true;
}

std::optional<WallDepth> DepthSearch::deepest(const Curve& move, double radius, double bound) {
  const auto near = region_.index().nearest(move, radius);
  const bool crosses = near && near->gap.distance <= kTouching;
  const bool staysFree = space_ == FreeSpace::Unknown || (!crosses && isFree(pointAt(move, 0.5)));
  WallDepth found;
  if (near) found = {radius - near->gap.distance, near->gap.onFirst};
  if (staysFree) return near ? std::optional(found) : std::nullopt;
  return search(move, radius, found, bound);
}

std::optional<WallDepth> DepthSearch::search(const Curve& move, double radius, WallDepth found,
                                             double bound) {
  const double length = lengthOf(move);
  std::priority_queue<Stretch> open;
  // Takes the middle of a stretch if it is the deepest place yet.
  const auto look = [&](double from, double to) {
    const PlanePoint middle = pointAt(move, (from + to) / 2);
    const auto near = nearestWall(middle, radius);
    ++effort_;
    if (!near) return;
    const double half = length * (to - from) / 2;
    const double distance = near->gap.distance;
    const bool middleIsFree = isFree(middle);
    const double depth = middleIsFree ? radius - distance : radius + distance;
    if (depth > found.depth) found = {depth, middle};
    if (middleIsFree && distance >= half) return;
    const Curve& wall = region_.walls()[static_cast<std::size_t>(near->index)];
    const double byWall = radius + mostFrom(wall, partOf(move, from, to));
    open.push({from, to, std::min(depth + half, byWall)});
  };
  look(0, 1);
  while (!open.empty() && effort_ < kMaxEffort) {
    const Stretch stretch = open.top();
    open.pop();
    if (stretch.mostDepth <= std::max(found.depth, bound) + kSearchGrain) break;
    const double middle = (stretch.from + stretch.to) / 2;
    look(stretch.from, middle);
    look(middle, stretch.to);
  }
  return found;
}

}  // namespace tess
