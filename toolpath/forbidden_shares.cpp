// The places at which a curve may come nearer to a wall than a distance, or leave it, are those
// where it meets the edge of the wall's surroundings. What lies between two of them is nearer or
// not as its middle is: a crossing too many does no harm.
#include "toolpath/forbidden_shares.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "geometry/curve_distance.h"

namespace tess {
namespace {

// Along a line, in units of length from its start.
struct Stretch {
  double from = 0, to = 0;
  bool isEmpty() const { return !(from < to); }
};

void include(Stretch& all, const Stretch& part) {
  if (part.isEmpty()) return;
  all = all.isEmpty() ? part : Stretch{std::min(all.from, part.from), std::max(all.to, part.to)};
}

// A line as a start and a direction of length 1.
struct Ray {
  PlanePoint start, direction;
};

Stretch withinCircle(const Ray& ray, PlanePoint center, double radius) {
  const PlanePoint to = center - ray.start;
  const double foot = dot(ray.direction, to);
  const double off = std::abs(cross(ray.direction, to));
  if (off >= radius) return {};
  const double half = std::sqrt((radius - off) * (radius + off));
  return {foot - half, foot + half};
}

// Where `value + slope * t` lies between `low` and `high`.
Stretch between(double value, double slope, double low, double high, const Stretch& within) {
  if (slope == 0) return value > low && value < high ? within : Stretch{};
  const double a = (low - value) / slope;
  const double b = (high - value) / slope;
  return {std::max(within.from, std::min(a, b)), std::min(within.to, std::max(a, b))};
}

// All of a line on one side of a wall, prolonged, and farther from it than `distance`: half of the
// walls that are looked at are told so, without a root or a quotient.
bool liesAside(const Curve& line, const Curve& wall, PlanePoint wallAlong, double distance) {
  const double start = cross(wallAlong, line.start - wall.start);
  const double end = cross(wallAlong, line.end - wall.start);
  const double least = distance * distance * dot(wallAlong, wallAlong);
  return (start > 0) == (end > 0) && start * start > least && end * end > least;
}

// The surroundings of a line are convex: a line enters and leaves them once.
void lineByLine(const Curve& line, const Curve& wall, double distance,
                std::vector<ShareRange>& ranges) {
  const PlanePoint along = line.end - line.start;
  const PlanePoint wallAlong = wall.end - wall.start;
  if (liesAside(line, wall, wallAlong, distance)) return;
  const double length = normOf(along);
  const double wallLength = normOf(wallAlong);
  if (length == 0) return;
  const Ray ray{line.start, (1 / length) * along};
  Stretch near;
  if (wallLength > 0) {
    const PlanePoint w = (1 / wallLength) * wallAlong;
    const PlanePoint from = line.start - wall.start;
    Stretch beside = between(cross(w, from), cross(w, ray.direction), -distance, distance,
                             {-distance, length + distance});
    if (!beside.isEmpty()) {
      beside = between(dot(w, from), dot(w, ray.direction), 0, wallLength, beside);
    }
    include(near, beside);
  }
  const bool isWhole = near.from <= 0 && near.to >= length;
  if (!isWhole) {
    include(near, withinCircle(ray, wall.start, distance));
    include(near, withinCircle(ray, wall.end, distance));
  }
  const double from = std::max(near.from, 0.0);
  const double to = std::min(near.to, length);
  if (from < to) ranges.push_back({from / length, to / length});
}

// ---- Arcs

// The most places at which a curve meets the edge of a wall's surroundings, and its own ends.
using Places = std::array<double, 10>;

// Where a curve meets the edge of a wall's surroundings. Points of its circle that do not lie on it
// are told by their directions, before any angle is reckoned.
class EdgeShares {
 public:
  explicit EdgeShares(const Curve& curve) : curve_(curve) {
    places_[count_++] = 0;
    places_[count_++] = 1;
  }

  void addCircle(PlanePoint center, double radius) {
    if (!curve_.isArc()) {
      add(sharesOnCircle(curve_, center, radius));
      return;
    }
    const PlanePoint between = center - curve_.center;
    const double apart = normOf(between);
    if (apart == 0) return;
    const double toChord =
        (apart + (curve_.radius - radius) * (curve_.radius + radius) / apart) / 2;
    const PlanePoint direction = (1 / apart) * between;
    addChord(toChord * direction, leftOf(direction), toChord);
  }

  void addLine(PlanePoint through, PlanePoint along) {
    if (!curve_.isArc()) {
      add(sharesOnLine(curve_, through, along));
      return;
    }
    const PlanePoint off = through - curve_.center;
    const PlanePoint foot = off - dot(off, along) * along;
    addChord(foot, along, normOf(foot));
  }

  std::span<const double> sorted() {
    std::sort(places_.begin(), places_.begin() + count_);
    return {places_.data(), static_cast<std::size_t>(count_)};
  }

 private:
  void add(const Shares& shares) {
    for (const double share : shares) places_[count_++] = share;
  }

  // Both points of the arc's circle on a chord; `foot` is its middle, seen from the centre.
  void addChord(PlanePoint foot, PlanePoint along, double distance) {
    const double square = (curve_.radius - distance) * (curve_.radius + distance);
    if (!(square >= 0)) return;
    const double half = std::sqrt(square);
    addOnArc(foot - half * along);
    if (half > 0) addOnArc(foot + half * along);
  }

  void addOnArc(PlanePoint fromCenter) {
    if (!isBeside(curve_, curve_.center + fromCenter)) return;
    if (sweep_ == 0) sweep_ = sweepOf(curve_);
    const PlanePoint from = curve_.start - curve_.center;
    const double angle = std::atan2(curve_.turn * cross(from, fromCenter), dot(from, fromCenter));
    if (angle >= 0 && angle <= sweep_) places_[count_++] = angle / sweep_;
  }

  const Curve& curve_;
  double sweep_ = 0;  // once it was asked for
  Places places_{};
  int count_ = 0;
};

void addEdges(const Curve& wall, double distance, EdgeShares& edges) {
  edges.addCircle(wall.start, distance);
  edges.addCircle(wall.end, distance);
  if (wall.isArc()) {
    edges.addCircle(wall.center, wall.radius + distance);
    edges.addCircle(wall.center, std::abs(wall.radius - distance));
    return;
  }
  const PlanePoint whole = wall.end - wall.start;
  const PlanePoint along = (1 / normOf(whole)) * whole;
  const PlanePoint aside = distance * leftOf(along);
  edges.addLine(wall.start + aside, along);
  edges.addLine(wall.start - aside, along);
}

// The range of distances of a curve's places from a point; of an arc, its whole circle's.
Stretch distancesFrom(const Curve& curve, PlanePoint at) {
  if (curve.isArc()) {
    const double apart = normOf(at - curve.center);
    return {std::abs(apart - curve.radius), apart + curve.radius};
  }
  return {distanceTo(curve, at), std::max(normOf(at - curve.start), normOf(at - curve.end))};
}

// No place of one curve is near to the other: the circle of an arc tells.
bool isFar(const Curve& curve, const Curve& wall, double distance) {
  const auto isBeyond = [distance](const Curve& arc, const Curve& other) {
    if (!arc.isArc()) return false;
    const Stretch far = distancesFrom(other, arc.center);
    return far.from >= arc.radius + distance || far.to <= arc.radius - distance;
  };
  return isBeyond(curve, wall) || isBeyond(wall, curve);
}

void byEdges(const Curve& curve, const Curve& wall, double distance,
             std::vector<ShareRange>& ranges) {
  EdgeShares edges(curve);
  addEdges(wall, distance, edges);
  const std::span<const double> shares = edges.sorted();
  for (std::size_t k = 0; k + 1 < shares.size(); ++k) {
    const double from = shares[k];
    const double to = shares[k + 1];
    if (!(from < to) || distanceTo(wall, pointAt(curve, (from + to) / 2)) >= distance) continue;
    if (!ranges.empty() && ranges.back().to == from) {
      ranges.back().to = to;
    } else {
      ranges.push_back({from, to});
    }
  }
}

}  // namespace

void appendForbidden(const Curve& curve, const Curve& wall, double distance,
                     std::vector<ShareRange>& ranges) {
  if (!curve.isArc() && !wall.isArc()) {
    lineByLine(curve, wall, distance, ranges);
  } else if (!isFar(curve, wall, distance)) {
    byEdges(curve, wall, distance, ranges);
  }
}

}  // namespace tess
