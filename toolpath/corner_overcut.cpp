// Drops into corners: found between two walls, put into a way, known again.
#include "toolpath/corner_overcut.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "toolpath/region_rows.h"

namespace tess {
namespace {

// A joint that turns by less is tangent.
constexpr double kSharp = 0.01;
// Ends of walls this near to one another meet.
constexpr double kSameCorner = 1e-6;
// A path in a room of a tool's own size begins a drop that much aside.
constexpr double kSamePlace = 1e-4;
constexpr double kTouching = 1e-6;
// No drawing has more walls at one place.
constexpr std::size_t kMostAtCorner = 16;
constexpr std::size_t kMostPieces = 1000;
constexpr std::size_t kMostEffort = 4000000;

Curve spotAt(PlanePoint at) {
  return lineCurve(at, at);
}

bool isSame(PlanePoint a, PlanePoint b, double slack) {
  return normOf(a - b) <= slack;
}

Curve lineOf(const CornerDrop& drop) {
  return lineCurve(drop.place, drop.bottom);
}

// ---- Between two walls

// The cutter's centre runs there while it touches the wall from the left; nothing for an arc that
// it is too large for.
std::optional<Curve> besideLeft(const Curve& wall, double radius) {
  const auto aside = [&](double share) {
    return pointAt(wall, share) + radius * leftOf(directionAt(wall, share));
  };
  if (!wall.isArc()) return lineCurve(aside(0), aside(1));
  const double left = wall.radius - wall.turn * radius;
  if (!(left > 0)) return std::nullopt;
  return Curve{aside(0), aside(1), wall.center, left, wall.turn};
}

// Where two lines or circles of which these are parts meet, the nearest to a place.
std::optional<PlanePoint> meetingNear(const Curve& first, const Curve& second, PlanePoint near) {
  std::vector<PlanePoint> found;
  if (!first.isArc() && !second.isArc()) {
    const PlanePoint u = directionAt(first, 0);
    const PlanePoint v = directionAt(second, 0);
    const double sine = cross(u, v);
    if (sine == 0) return std::nullopt;
    return first.start + (cross(second.start - first.start, v) / sine) * u;
  }
  const Curve& circle = first.isArc() ? first : second;
  const Curve& other = first.isArc() ? second : first;
  PlanePoint along, foot;
  if (other.isArc()) {
    const PlanePoint between = other.center - circle.center;
    const double apart = normOf(between);
    if (apart == 0) return std::nullopt;
    const PlanePoint toward = (1 / apart) * between;
    const double sum = (circle.radius - other.radius) * (circle.radius + other.radius);
    foot = circle.center + ((apart + sum / apart) / 2) * toward;
    along = leftOf(toward);
  } else {
    along = directionAt(other, 0);
    foot = other.start + dot(along, circle.center - other.start) * along;
  }
  const double off = normOf(foot - circle.center);
  const double square = (circle.radius - off) * (circle.radius + off);
  if (!(square >= 0)) return std::nullopt;
  const PlanePoint half = std::sqrt(square) * along;
  const PlanePoint a = foot - half;
  const PlanePoint b = foot + half;
  return normOf(a - near) < normOf(b - near) ? a : b;
}

bool goesStraightOn(const Curve& wall, const Curve& beyond) {
  constexpr double kSameDirection = 1e-7;
  if (wall.turn != beyond.turn) return false;
  if (wall.isArc()) {
    return isSame(wall.center, beyond.center, kSameCorner) &&
           std::abs(wall.radius - beyond.radius) <= kSameCorner;
  }
  return std::abs(turnAt(wall, beyond)) <= kSameDirection;
}

}  // namespace

double turnAt(const Curve& before, const Curve& after) {
  const PlanePoint in = directionAt(before, 1);
  const PlanePoint out = directionAt(after, 0);
  return std::atan2(cross(in, out), dot(in, out));
}

// ---- Corners of walls

const std::vector<int>& CornerWalls::near(const Curve& curve, double distance) {
  near_.clear();
  if (effort_ < kMostEffort) walls_.candidates(curve, distance, near_);
  effort_ += near_.size();
  return near_;
}

std::vector<CornerWalls::Side> CornerWalls::meetingAt(PlanePoint at, bool ends) {
  std::vector<Side> found;
  for (const int number : near(spotAt(at), kSameCorner)) {
    const Curve& curve = wall(number);
    const PlanePoint here = ends ? curve.end : curve.start;
    const PlanePoint there = ends ? curve.start : curve.end;
    if (isSame(here, at, kSameCorner)) found.push_back({curve, number});
    const bool either = sense_ == WallSense::Either;
    if (either && isSame(there, at, kSameCorner)) found.push_back({reversed(curve), number});
    if (found.size() > kMostAtCorner) return {};
  }
  return found;
}

// A wall may be drawn in several pieces: those of it that are near to the drop, from the corner on.
std::vector<int> CornerWalls::piecesOf(Side side, bool backward, const Curve& drop, double radius) {
  std::vector<int> pieces{side.number};
  while (pieces.size() < kMostPieces) {
    const PlanePoint end = backward ? side.curve.start : side.curve.end;
    if (distanceTo(drop, end) >= radius) break;
    const std::vector<Side> beyond = meetingAt(end, backward);
    const auto next = std::find_if(beyond.begin(), beyond.end(), [&](const Side& piece) {
      const bool goesOn = backward ? goesStraightOn(piece.curve, side.curve)
                                   : goesStraightOn(side.curve, piece.curve);
      return goesOn && std::find(pieces.begin(), pieces.end(), piece.number) == pieces.end();
    });
    if (next == beyond.end()) break;
    side = *next;
    pieces.push_back(side.number);
  }
  return pieces;
}

bool CornerWalls::touches(const std::vector<int>& pieces, PlanePoint place, double radius) const {
  return std::any_of(pieces.begin(), pieces.end(), [&](int number) {
    return std::abs(distanceTo(wall(number), place) - radius) <= kTouching;
  });
}

// The centre keeps on its side of the walls that meet in the corner.
bool CornerWalls::keepsClear(const Curve& drop, std::span<const int> own, double radius) {
  const std::vector<int>& walls = near(drop, radius);
  return std::all_of(walls.begin(), walls.end(), [&](int number) {
    const double gap = gapBetween(drop, wall(number)).distance;
    const bool isOwn = std::find(own.begin(), own.end(), number) != own.end();
    return isOwn ? gap > kTouching : gap >= radius - kPlacedSlack;
  });
}

std::optional<CornerDrop> CornerWalls::dropBetween(const Side& before, const Side& after,
                                                   double radius) {
  const auto first = besideLeft(before.curve, radius);
  const auto second = besideLeft(after.curve, radius);
  if (!first || !second || turnAt(before.curve, after.curve) < kSharp) return std::nullopt;
  const PlanePoint corner = before.curve.end;
  const auto place = meetingNear(*first, *second, corner);
  if (!place) return std::nullopt;
  const double away = normOf(*place - corner);
  if (!(away > radius)) return std::nullopt;
  CornerDrop drop{
      .corner = corner, .place = *place, .bottom = corner + (radius / away) * (*place - corner)};
  const Curve line = lineOf(drop);
  std::vector<int> own = piecesOf(before, /*backward=*/true, line, radius);
  const std::vector<int> ofAfter = piecesOf(after, /*backward=*/false, line, radius);
  if (!touches(own, *place, radius) || !touches(ofAfter, *place, radius)) return std::nullopt;
  own.insert(own.end(), ofAfter.begin(), ofAfter.end());
  drop.isClear = effort_ < kMostEffort && keepsClear(line, own, radius);
  drop.depth = radius - std::min(distanceTo(before.curve, drop.bottom),
                                 distanceTo(after.curve, drop.bottom));
  return drop;
}

std::optional<CornerDrop> CornerWalls::dropBetween(const WallJoint& joint, double radius) {
  return dropBetween(Side{wall(joint.before), joint.before}, Side{wall(joint.after), joint.after},
                     radius);
}

std::vector<CornerDrop> CornerWalls::dropsInto(PlanePoint corner, double radius) {
  std::vector<CornerDrop> drops;
  const std::vector<Side> ends = meetingAt(corner, /*ends=*/true);
  const std::vector<Side> starts = meetingAt(corner, /*ends=*/false);
  for (const Side& before : ends) {
    for (const Side& after : starts) {
      if (before.number == after.number) continue;
      if (const auto drop = dropBetween(before, after, radius)) drops.push_back(*drop);
    }
  }
  return drops;
}

// ---- Drops by place

namespace {

// Rows along an axis do not fall together on it.
double alongSlant(PlanePoint at) {
  return 0.6127 * at.x + 0.7903 * at.y;
}

}  // namespace

void CornerDrops::Ends::add(PlanePoint end, int drop) {
  ends_.push_back({alongSlant(end), end, drop});
}

void CornerDrops::Ends::sort() {
  std::sort(ends_.begin(), ends_.end(), [](const End& a, const End& b) {
    return a.along != b.along ? a.along < b.along : a.drop < b.drop;
  });
}

std::vector<int> CornerDrops::Ends::at(PlanePoint place) const {
  const double along = alongSlant(place);
  std::vector<int> found;
  auto end = std::partition_point(ends_.begin(), ends_.end(), [along](const End& one) {
    return one.along < along - kSamePlace;
  });
  for (; end != ends_.end() && end->along <= along + kSamePlace; ++end) {
    if (isSame(end->at, place, kSamePlace)) found.push_back(end->drop);
  }
  return found;
}

CornerDrops::CornerDrops(std::vector<CornerDrop> drops) : drops_(std::move(drops)) {
  std::vector<Curve> lines;
  lines.reserve(drops_.size());
  for (const CornerDrop& drop : drops_) {
    const auto number = static_cast<int>(lines.size());
    lines.push_back(lineOf(drop));
    places_.add(drop.place, number);
    bottoms_.add(drop.bottom, number);
  }
  places_.sort();
  bottoms_.sort();
  index_ = CurveIndex(std::move(lines));
}

int CornerDrops::around(const Curve& move, double slack) const {
  if (isEmpty() || move.isArc()) return -1;
  std::vector<int> near;
  index_.candidates(move, slack, near);
  const auto found = std::find_if(near.begin(), near.end(), [&](int number) {
    const Curve& drop = index_.curves()[static_cast<std::size_t>(number)];
    return distanceTo(drop, move.start) <= slack && distanceTo(drop, move.end) <= slack;
  });
  return found == near.end() ? -1 : *found;
}

// The last joint of a way that ends where it begins is its end.
std::vector<Curve> CornerDrops::putInto(const std::vector<Curve>& way) const {
  if (isEmpty() || way.empty()) return way;
  std::vector<Curve> whole;
  const bool isClosed = way.back().end == way.front().start;
  for (std::size_t k = 0; k < way.size(); ++k) {
    whole.push_back(way[k]);
    const PlanePoint joint = way[k].end;
    if (k + 1 == way.size() && !isClosed) break;
    for (const int number : beginningAt(joint)) {
      const PlanePoint bottom = drops_[static_cast<std::size_t>(number)].bottom;
      whole.push_back(lineCurve(joint, bottom));
      whole.push_back(lineCurve(bottom, joint));
    }
  }
  return whole;
}

void CornerDrops::completeEnds(std::vector<Curve>& part) const {
  const auto dropAt = [this](PlanePoint at) -> const CornerDrop* {
    const int number = around(spotAt(at), kSamePlace);
    return number < 0 ? nullptr : &drops_[static_cast<std::size_t>(number)];
  };
  if (part.empty()) return;
  Curve& first = part.front();
  const CornerDrop* const before = dropAt(first.start);
  if (before != nullptr && first.end == before->bottom) first.start = before->place;
  Curve& last = part.back();
  const CornerDrop* const behind = dropAt(last.end);
  if (behind != nullptr && last.start == behind->bottom) last.end = behind->place;
}

// ---- Corners beside ways

namespace {

// What a cutter leaves between two walls that turn to the left, as if they were straight.
double leftBetween(const Curve& before, const Curve& after, double radius) {
  const PlanePoint in = directionAt(before, 1);
  const PlanePoint out = directionAt(after, 0);
  if (!(cross(in, out) > 0)) return 0;
  const double cosineOfHalf = std::sqrt(std::max(0.0, (1 + dot(in, out)) / 2));
  return radius * (1 / cosineOfHalf - 1);
}

// Which of the drops begin at a joint of some way.
std::vector<bool> beginAtJoints(const CornerDrops& drops,
                                const std::vector<std::vector<Curve>>& ways) {
  std::vector<bool> begin(drops.drops().size(), false);
  if (drops.isEmpty()) return begin;
  for (const std::vector<Curve>& way : ways) {
    for (const Curve& curve : way) {
      for (const int number : drops.beginningAt(curve.end)) {
        begin[static_cast<std::size_t>(number)] = true;
      }
    }
  }
  return begin;
}

}  // namespace

InsideCorners insideCorners(const CurveIndex& walls, std::span<const WallJoint> joints,
                            const std::vector<std::vector<Curve>>& ways, double radius,
                            double least) {
  // Arcs leave more or less than straight walls that turn as they do.
  constexpr double kRoughly = 0.25;
  CornerWalls corners(walls, WallSense::FreeLeft);
  std::vector<CornerDrop> possible;
  int count = 0;
  for (const WallJoint& joint : joints) {
    const double left = leftBetween(walls.curves()[static_cast<std::size_t>(joint.before)],
                                    walls.curves()[static_cast<std::size_t>(joint.after)], radius);
    if (left < kRoughly * least) continue;
    const auto drop = corners.dropBetween(joint, radius);
    if ((drop ? normOf(drop->bottom - drop->place) : left) < least) continue;
    ++count;
    if (drop && drop->isClear) possible.push_back(*drop);
  }
  const CornerDrops clear(std::move(possible));
  const std::vector<bool> begin = beginAtJoints(clear, ways);
  InsideCorners found;
  for (std::size_t k = 0; k < begin.size(); ++k) {
    if (begin[k]) found.drops.push_back(clear.drops()[k]);
  }
  found.blocked = count - static_cast<int>(found.drops.size());
  return found;
}

}  // namespace tess
