// Free stretches: forbidden ranges of each candidate, and what lies between them. Candidates that
// follow one another are near to the same walls, so the index is asked for several at once.
#include "toolpath/free_stretches.h"

#include <algorithm>
#include <cmath>

#include "toolpath/region_offset.h"

namespace tess {
namespace {

constexpr double kSamePlace = 1e-9;
// Of candidates whose walls are asked for together.
constexpr std::size_t kMostTogether = 32;
// What a room may be narrower than the tool and yet count, from its middle to either side, and what
// rounding adds.
constexpr double kHairDepth = 2.05 * kHairWidth;

bool isSameLineOrCircle(const Curve& a, const Curve& b) {
  if (a.turn != b.turn) return false;
  if (a.isArc()) {
    return normOf(a.center - b.center) <= kSamePlace && std::abs(a.radius - b.radius) <= kSamePlace;
  }
  const PlanePoint along = directionAt(a, 0);
  return dot(along, directionAt(b, 0)) > 0 &&
         std::abs(cross(along, b.start - a.start)) <= kSamePlace &&
         std::abs(cross(along, b.end - a.start)) <= kSamePlace;
}

// Around some candidates.
struct Corners {
  PlanePoint low, high;
  double largerSide() const { return std::max(high.x - low.x, high.y - low.y); }
};

Corners cornersOf(const OffsetCandidate& candidate) {
  const PlanePoint half{candidate.half, candidate.half};
  return {candidate.middle - half, candidate.middle + half};
}

Corners together(const Corners& a, const Corners& b) {
  return {{std::min(a.low.x, b.low.x), std::min(a.low.y, b.low.y)},
          {std::max(a.high.x, b.high.x), std::max(a.high.y, b.high.y)}};
}

// True when no place within `reach` of the middle lies on the wall. Without a root or a quotient:
// this is asked of every candidate and every wall near to it.
bool isBeyond(const Curve& wall, PlanePoint middle, double reach) {
  if (wall.isArc()) return distanceTo(wall, middle) >= reach;
  const PlanePoint along = wall.end - wall.start;
  const PlanePoint to = middle - wall.start;
  const double foot = dot(to, along);
  const double square = dot(along, along);
  if (foot <= 0) return dot(to, to) >= reach * reach;
  if (foot >= square) return dot(middle - wall.end, middle - wall.end) >= reach * reach;
  const double across = cross(along, to);
  return across * across >= reach * reach * square;
}

}  // namespace

void FreeStretches::append(const std::vector<OffsetCandidate>& candidates,
                           std::vector<FreePiece>& pieces) {
  for (std::size_t first = 0; first < candidates.size();) {
    const std::size_t end = gather(candidates, first);
    for (; first < end; ++first) judge(candidates[first], pieces);
  }
}

// Finds the walls near to some candidates from `first` on; returns the one behind the last of
// these.
std::size_t FreeStretches::gather(const std::vector<OffsetCandidate>& candidates,
                                  std::size_t first) {
  Corners all = cornersOf(candidates[first]);
  const double most = std::max(3 * measures_.distance, all.largerSide());
  std::size_t end = first + 1;
  for (; end < std::min(candidates.size(), first + kMostTogether); ++end) {
    const Corners more = together(all, cornersOf(candidates[end]));
    if (more.largerSide() > most) break;
    all = more;
  }
  walls_.candidates(boxAround(all.low, all.high), measures_.distance, found_);
  near_.clear();
  for (const int number : found_) near_.push_back(nearWall(number));
  return end;
}

FreeStretches::NearWall FreeStretches::nearWall(int number) const {
  const Box& box = walls_.box(number);
  const PlanePoint low{box.minX, box.minY};
  const PlanePoint high{box.maxX, box.maxY};
  const PlanePoint half = 0.5 * (high - low);
  const double reach = measures_.distance + measures_.slack;
  const PlanePoint aside{reach, reach};
  return {low + half, half + aside, number};
}

FreeStretches::Extent FreeStretches::extentOf(const OffsetCandidate& candidate) {
  if (candidate.curve.isArc()) return {candidate.middle, {candidate.half, candidate.half}};
  const PlanePoint half = candidate.curve.end - candidate.middle;
  return {candidate.middle, {std::abs(half.x), std::abs(half.y)}};
}

// Where a tool is large beside the rows, one wall forbids many candidates in a row.
bool FreeStretches::liesDeepInLast(const OffsetCandidate& candidate) {
  if (last_ < 0 || candidate.isSpared(last_)) return false;
  ranges_.clear();
  appendForbidden(candidate.curve, wall(last_), measures_.distance - kHairDepth, ranges_);
  return ranges_.size() == 1 && ranges_[0].from <= 0 && ranges_[0].to >= 1;
}

void FreeStretches::judge(const OffsetCandidate& candidate, std::vector<FreePiece>& pieces) {
  if (liesDeepInLast(candidate)) return;
  forbidden_.clear();
  const Extent extent = extentOf(candidate);
  for (const NearWall& near : near_) {
    if (!near.reaches(extent) || candidate.isSpared(near.number)) continue;
    forbid(candidate, near.number, measures_.distance - measures_.slack);
    const bool mayOwn = overlaps_ != Overlaps::None && near.number < candidate.source;
    if (mayOwn) leaveToOwner(candidate, wall(near.number));
  }
  if (forbidden_.empty()) {
    add(candidate, {0, 1}, pieces);
    return;
  }
  std::sort(forbidden_.begin(), forbidden_.end(),
            [](const WallRange& a, const WallRange& b) { return a.range.from < b.range.from; });
  findFree();
  for (const ShareRange& range : free_) add(candidate, range, pieces);
  if (free_.empty()) rememberWhole();
  if (!lostByAHair_) lookForHair(candidate);
}

// Nothing is left of the candidate: by one wall alone, perhaps.
void FreeStretches::rememberWhole() {
  const auto whole = std::find_if(forbidden_.begin(), forbidden_.end(), [](const WallRange& r) {
    return r.range.from <= 0 && r.range.to >= 1;
  });
  if (whole != forbidden_.end()) last_ = whole->wall;
}

void FreeStretches::forbid(const OffsetCandidate& candidate, int number, double distance) {
  const Curve& near = wall(number);
  if (isBeyond(near, candidate.middle, distance + candidate.half)) return;
  ranges_.clear();
  appendForbidden(candidate.curve, near, distance, ranges_);
  for (const ShareRange& range : ranges_) forbidden_.push_back({range, number});
}

void FreeStretches::leaveToOwner(const OffsetCandidate& candidate, Curve near) {
  const Curve& drawn = wall(candidate.source);
  const Curve own = candidate.reverse ? reversed(drawn) : drawn;
  if (!isSameLineOrCircle(own, near)) {
    near = reversed(near);
    if (overlaps_ != Overlaps::BothWays || !isSameLineOrCircle(own, near)) return;
  }
  const bool lies = isBeside(own, pointAt(near, 0.5)) || isBeside(near, pointAt(own, 0.5));
  if (!lies) return;
  const double from = shareOf(own, isBeside(own, near.start) ? near.start : own.start);
  const double to = shareOf(own, isBeside(own, near.end) ? near.end : own.end);
  if (from < to) forbidden_.push_back({{from, to}, candidate.source});
}

// What the forbidden ranges leave.
void FreeStretches::findFree() {
  free_.clear();
  double from = 0;
  for (const WallRange& forbidden : forbidden_) {
    if (from < forbidden.range.from) free_.push_back({from, forbidden.range.from});
    from = std::max(from, forbidden.range.to);
  }
  if (from < 1) free_.push_back({from, 1});
}

// The chord of a stretch is no longer than it.
void FreeStretches::add(const OffsetCandidate& candidate, ShareRange range,
                        std::vector<FreePiece>& pieces) {
  const bool whole = range.from <= 0 && range.to >= 1;
  pieces.push_back(
      {whole ? candidate.curve : partOf(candidate.curve, range.from, range.to), candidate.source});
  const Curve& part = pieces.back().curve;
  const PlanePoint chord = part.end - part.start;
  const double shortest = measures_.shortest;
  if (dot(chord, chord) < shortest * shortest && lengthOf(part) < shortest) pieces.pop_back();
}

// ---- What rounding may have taken

// True when the candidate is a line of which each forbidden part is that of one line, and deep but
// for what corners take at its ends: then a hair less distance frees nothing that matters.
bool FreeStretches::isDeepIn(const OffsetCandidate& candidate) const {
  if (candidate.curve.isArc()) return false;
  const double distance = measures_.distance - kHairDepth;
  const double corner = measures_.corner / (2 * candidate.half);
  const PlanePoint start = candidate.curve.start;
  const PlanePoint along = candidate.curve.end - start;
  double last = -1;
  for (const WallRange& forbidden : forbidden_) {
    const Curve& near = wall(forbidden.wall);
    const auto [from, to] = forbidden.range;
    if (near.isArc() || from <= last) return false;
    last = to;
    const double begin = from <= 0 ? 0 : from + corner;
    const double end = to >= 1 ? 1 : to - corner;
    if (begin > end) continue;
    if (isBeyond(near, start + begin * along, distance)) return false;
    if (isBeyond(near, start + end * along, distance)) return false;
  }
  return true;
}

// By the walls that forbid some of the candidate, at another distance.
void FreeStretches::forbidAgain(const OffsetCandidate& candidate, double distance) {
  std::vector<int> walls;
  walls.reserve(forbidden_.size());
  for (const WallRange& forbidden : forbidden_) walls.push_back(forbidden.wall);
  std::sort(walls.begin(), walls.end());
  walls.erase(std::unique(walls.begin(), walls.end()), walls.end());
  forbidden_.clear();
  for (const int number : walls) forbid(candidate, number, distance);
  std::sort(forbidden_.begin(), forbidden_.end(),
            [](const WallRange& a, const WallRange& b) { return a.range.from < b.range.from; });
}

bool FreeStretches::goesFarBeyond(const ShareRange& wider, const std::vector<ShareRange>& free,
                                  double length) const {
  double more = wider.to - wider.from;
  bool holdsSome = false;
  for (const ShareRange& range : free) {
    const bool apart = wider.from > range.to || range.from > wider.to;
    if (apart || (range.to - range.from) * length < measures_.shortest) continue;
    holdsSome = true;
    more -= range.to - range.from;
  }
  return !holdsSome || more * length > 2 * measures_.corner;
}

// What is free at a hair less must not go far beyond what is free. Where nothing is, it may be a
// room of a single place.
void FreeStretches::lookForHair(const OffsetCandidate& candidate) {
  if (measures_.distance <= kHairDepth) return;
  const double length = lengthOf(candidate.curve);
  const bool leavesSome = std::any_of(free_.begin(), free_.end(), [&](const ShareRange& range) {
    return (range.to - range.from) * length >= measures_.shortest;
  });
  if (leavesSome && isDeepIn(candidate)) return;
  const std::vector<ShareRange> free = free_;
  forbidAgain(candidate, measures_.distance - kHairDepth);
  findFree();
  lostByAHair_ = std::any_of(free_.begin(), free_.end(), [&](const ShareRange& range) {
    return goesFarBeyond(range, free, length);
  });
}

}  // namespace tess
