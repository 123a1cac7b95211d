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
constexpr std::size_t kMostTogether = 16;
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

Box boxOfCandidate(const OffsetCandidate& candidate) {
  if (candidate.curve.isArc()) {
    const PlanePoint half{candidate.half, candidate.half};
    return boxAround(candidate.middle - half, candidate.middle + half);
  }
  const PlanePoint a = candidate.curve.start;
  const PlanePoint b = candidate.curve.end;
  return boxAround({std::min(a.x, b.x), std::min(a.y, b.y)},
                   {std::max(a.x, b.x), std::max(a.y, b.y)});
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

Box together(const Box& a, const Box& b) {
  return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
          std::max(a.maxY, b.maxY)};
}

double largerSide(const Box& box) {
  return std::max(box.maxX - box.minX, box.maxY - box.minY);
}

}  // namespace

void FreeStretches::append(const std::vector<OffsetCandidate>& candidates, std::size_t first,
                           std::size_t last, std::vector<FreePiece>& pieces) {
  while (first < last) {
    const std::size_t end = gather(candidates, first, last);
    for (std::size_t k = 0; first < end; ++first, ++k) judge(candidates[first], boxes_[k], pieces);
  }
}

// Finds the walls near to some candidates from `first` on; returns the one behind the last of
// these.
std::size_t FreeStretches::gather(const std::vector<OffsetCandidate>& candidates, std::size_t first,
                                  std::size_t last) {
  Box all = boxOfCandidate(candidates[first]);
  boxes_.assign(1, all);
  const double most = std::max(2 * measures_.distance, static_cast<double>(largerSide(all)));
  std::size_t end = first + 1;
  for (; end < std::min(last, first + kMostTogether); ++end) {
    const Box box = boxOfCandidate(candidates[end]);
    const Box more = together(all, box);
    if (largerSide(more) > most) break;
    all = more;
    boxes_.push_back(box);
  }
  walls_.candidates(all, measures_.distance, found_);
  near_.clear();
  for (const int number : found_) {
    near_.push_back({grown(walls_.box(number), measures_.distance), number});
  }
  return end;
}

// Where a tool is large beside the rows, one wall forbids many candidates in a row.
bool FreeStretches::liesDeepInLast(const OffsetCandidate& candidate) {
  if (last_ < 0 || candidate.isSpared(last_)) return false;
  ranges_.clear();
  appendForbidden(candidate.curve, wall(last_), measures_.distance - kHairDepth, ranges_);
  return ranges_.size() == 1 && ranges_[0].from <= 0 && ranges_[0].to >= 1;
}

void FreeStretches::judge(const OffsetCandidate& candidate, const Box& box,
                          std::vector<FreePiece>& pieces) {
  if (liesDeepInLast(candidate)) return;
  forbidden_.clear();
  for (const NearWall& near : near_) {
    if (!overlaps(near.box, box) || candidate.isSpared(near.number)) continue;
    forbid(candidate, near.number, measures_.distance - measures_.slack);
    if (overlaps_ && near.number < candidate.source) leaveToOwner(candidate, wall(near.number));
  }
  if (forbidden_.empty()) {
    add(candidate, {0, 1}, pieces);
    return;
  }
  std::sort(forbidden_.begin(), forbidden_.end(),
            [](const WallRange& a, const WallRange& b) { return a.range.from < b.range.from; });
  for (const ShareRange& range : freeRanges()) add(candidate, range, pieces);
  const auto whole = std::find_if(forbidden_.begin(), forbidden_.end(), [](const WallRange& r) {
    return r.range.from <= 0 && r.range.to >= 1;
  });
  if (whole != forbidden_.end()) last_ = whole->wall;
  if (!lostByAHair_) lookForHair(candidate);
}

void FreeStretches::forbid(const OffsetCandidate& candidate, int number, double distance) {
  const Curve& near = wall(number);
  if (isBeyond(near, candidate.middle, distance + candidate.half)) return;
  ranges_.clear();
  appendForbidden(candidate.curve, near, distance, ranges_);
  for (const ShareRange& range : ranges_) forbidden_.push_back({range, number});
}

void FreeStretches::leaveToOwner(const OffsetCandidate& candidate, const Curve& near) {
  const Curve& own = wall(candidate.source);
  if (!isSameLineOrCircle(own, near)) return;
  const bool lies = isBeside(own, pointAt(near, 0.5)) || isBeside(near, pointAt(own, 0.5));
  if (!lies) return;
  const double from = shareOf(own, isBeside(own, near.start) ? near.start : own.start);
  const double to = shareOf(own, isBeside(own, near.end) ? near.end : own.end);
  if (from < to) forbidden_.push_back({{from, to}, candidate.source});
}

std::vector<ShareRange> FreeStretches::freeRanges() const {
  std::vector<ShareRange> free;
  double from = 0;
  for (const WallRange& forbidden : forbidden_) {
    if (from < forbidden.range.from) free.push_back({from, forbidden.range.from});
    from = std::max(from, forbidden.range.to);
  }
  if (from < 1) free.push_back({from, 1});
  return free;
}

// The chord of a stretch is no longer than it.
void FreeStretches::add(const OffsetCandidate& candidate, ShareRange range,
                        std::vector<FreePiece>& pieces) {
  const bool whole = range.from <= 0 && range.to >= 1;
  const Curve part = whole ? candidate.curve : partOf(candidate.curve, range.from, range.to);
  if (normOf(part.end - part.start) >= measures_.shortest || lengthOf(part) >= measures_.shortest) {
    pieces.push_back({part, candidate.source});
  }
}

// ---- What rounding may have taken

// True when the candidate is a line of which each forbidden part is that of one line, and deep but
// for what corners take at its ends: then a hair less distance frees nothing that matters.
bool FreeStretches::isDeepIn(const OffsetCandidate& candidate) const {
  if (candidate.curve.isArc()) return false;
  const double distance = measures_.distance - kHairDepth;
  const double corner = measures_.corner / (2 * candidate.half);
  double last = -1;
  for (const WallRange& forbidden : forbidden_) {
    const Curve& near = wall(forbidden.wall);
    const auto [from, to] = forbidden.range;
    if (near.isArc() || from <= last) return false;
    last = to;
    const double begin = from <= 0 ? 0 : from + corner;
    const double end = to >= 1 ? 1 : to - corner;
    if (begin > end) continue;
    if (distanceTo(near, pointAt(candidate.curve, begin)) >= distance) return false;
    if (distanceTo(near, pointAt(candidate.curve, end)) >= distance) return false;
  }
  return true;
}

// What is free at a hair less must not go far beyond what is free.
void FreeStretches::lookForHair(const OffsetCandidate& candidate) {
  if (measures_.distance <= kHairDepth || isDeepIn(candidate)) return;
  const std::vector<ShareRange> free = freeRanges();
  std::vector<WallRange> walls;
  walls.swap(forbidden_);
  for (std::size_t k = 0; k < walls.size(); ++k) {
    const bool seen =
        std::any_of(walls.begin(), walls.begin() + static_cast<std::ptrdiff_t>(k),
                    [&](const WallRange& other) { return other.wall == walls[k].wall; });
    if (!seen) forbid(candidate, walls[k].wall, measures_.distance - kHairDepth);
  }
  std::sort(forbidden_.begin(), forbidden_.end(),
            [](const WallRange& a, const WallRange& b) { return a.range.from < b.range.from; });
  const double length = lengthOf(candidate.curve);
  for (const ShareRange& wider : freeRanges()) {
    double more = wider.to - wider.from;
    bool holdsSome = false;
    for (const ShareRange& range : free) {
      if (wider.from > range.to || range.from > wider.to) continue;
      if ((range.to - range.from) * length < measures_.shortest) continue;
      holdsSome = true;
      more -= range.to - range.from;
    }
    lostByAHair_ |= !holdsSome || more * length > 2 * measures_.corner;
  }
}

}  // namespace tess
