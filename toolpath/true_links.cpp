// Ways along loops, and links.
#include "toolpath/true_links.h"

#include <algorithm>
#include <numeric>

#include "toolpath/region_rows.h"

namespace tess {

double lengthOfWay(const std::vector<Curve>& way) {
  return std::accumulate(way.begin(), way.end(), 0.0,
                         [](double sum, const Curve& curve) { return sum + lengthOf(curve); });
}

std::vector<Curve> turnedRound(std::vector<Curve> way) {
  std::reverse(way.begin(), way.end());
  for (Curve& curve : way) curve = reversed(curve);
  return way;
}

namespace {

// A place this near to an end of a curve is the end.
constexpr double kAtEnd = 1e-3;
// A place is on a loop within this.
constexpr double kOnLoop = 1e-6;

void appendPart(const Curve& curve, double from, double to, std::vector<Curve>& way) {
  if (!(from < to)) return;
  const Curve part = from <= 0 && to >= 1 ? curve : partOf(curve, from, to);
  if (part.start != part.end) way.push_back(part);
}

// Along a loop as it runs, from one place of it to another; nothing for a way longer than that.
std::vector<Curve> wayAlong(const RegionLoop& loop, const LoopPlace& from, const LoopPlace& to,
                            double longest) {
  const std::size_t count = loop.curves.size();
  std::vector<Curve> way;
  if (from.curve == to.curve && from.share <= to.share) {
    appendPart(loop.curves[from.curve], from.share, to.share, way);
    return way;
  }
  appendPart(loop.curves[from.curve], from.share, 1, way);
  double length = lengthOfWay(way);
  for (std::size_t k = (from.curve + 1) % count; k != to.curve; k = (k + 1) % count) {
    way.push_back(loop.curves[k]);
    length += lengthOf(loop.curves[k]);
    if (length > longest) return {};
  }
  appendPart(loop.curves[to.curve], 0, to.share, way);
  return lengthOfWay(way) > longest ? std::vector<Curve>{} : way;
}

void takeShorter(std::vector<Curve>& best, std::vector<Curve> way) {
  if (way.empty()) return;
  if (best.empty() || lengthOfWay(way) < lengthOfWay(best)) best = std::move(way);
}

struct TrackPlace {
  int loop = 0;
  LoopPlace place;
};

// Where a point lies on the loops.
std::vector<TrackPlace> placesOn(const PocketRegion& tracks, PlanePoint at) {
  std::vector<int> found;
  tracks.index().candidates(lineCurve(at, at), kOnLoop, found);
  std::vector<TrackPlace> places;
  for (const int wall : found) {
    const Curve& curve = tracks.walls()[static_cast<std::size_t>(wall)];
    const double distance = distanceTo(curve, at);
    if (distance > kOnLoop) continue;
    const int loop = tracks.loopOf(wall);
    places.push_back({loop,
                      {static_cast<std::size_t>(wall - tracks.firstWallOf(loop)),
                       shareOf(curve, at), distance}});
  }
  return places;
}

LoopPlace snapped(const RegionLoop& loop, LoopPlace place) {
  const double length = lengthOf(loop.curves[place.curve]);
  if (place.share * length <= kAtEnd) place.share = 0;
  if ((1 - place.share) * length <= kAtEnd) place = {(place.curve + 1) % loop.curves.size(), 0};
  return place;
}

}  // namespace

LoopPlace nearestPlace(const RegionLoop& loop, PlanePoint from) {
  LoopPlace best;
  for (std::size_t k = 0; k < loop.curves.size(); ++k) {
    const double distance = distanceTo(loop.curves[k], from);
    if (k == 0 || distance < best.distance) best = {k, 0, distance};
  }
  best.share = shareOf(loop.curves[best.curve], nearestOn(loop.curves[best.curve], from).at);
  return best;
}

std::vector<Curve> loopFrom(const RegionLoop& loop, const LoopPlace& from) {
  const LoopPlace start = snapped(loop, from);
  const std::size_t count = loop.curves.size();
  std::vector<Curve> way;
  appendPart(loop.curves[start.curve], start.share, 1, way);
  for (std::size_t k = 1; k < count; ++k) way.push_back(loop.curves[(start.curve + k) % count]);
  appendPart(loop.curves[start.curve], 0, start.share, way);
  return way;
}

void RoomWay::cut(const std::vector<Curve>& curves, bool linked, const PocketRegion* tracks) {
  if (curves.empty()) return;
  const PlanePoint start = curves.front().start;
  const bool follows = !runs_.empty() && at_ == start;
  std::vector<Curve> link;
  if (linked && rules_.links && !follows && !runs_.empty()) link = linkTo(start, tracks);
  if (link.empty() && !follows) runs_.emplace_back();
  std::vector<Curve>& run = runs_.back();
  run.insert(run.end(), link.begin(), link.end());
  run.insert(run.end(), curves.begin(), curves.end());
  at_ = curves.back().end;
}

// Straight, or the shorter way along a loop on which both places lie, unless that goes far round.
std::vector<Curve> RoomWay::linkTo(PlanePoint to, const PocketRegion* tracks) const {
  const Curve straight = lineCurve(at_, to);
  if (region_->isClear(straight, rules_.distance - kPlacedSlack)) return {straight};
  if (tracks == nullptr) return {};
  const double longest = 3 * lengthOf(straight) + 4 * rules_.radius;
  std::vector<Curve> best;
  for (const TrackPlace& from : placesOn(*tracks, at_)) {
    for (const TrackPlace& end : placesOn(*tracks, to)) {
      if (from.loop != end.loop) continue;
      const RegionLoop& loop = tracks->loops()[static_cast<std::size_t>(from.loop)];
      takeShorter(best, wayAlong(loop, from.place, end.place, longest));
      takeShorter(best, turnedRound(wayAlong(loop, end.place, from.place, longest)));
    }
  }
  if (best.empty()) return best;
  best.front().start = at_;
  best.back().end = to;
  return best;
}

}  // namespace tess
