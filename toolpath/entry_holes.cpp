// Holes to start in.
#include "toolpath/entry_holes.h"

#include <algorithm>

#include "core/number_text.h"
#include "core/rounding.h"
#include "toolpath/true_links.h"

namespace tess {
namespace {

constexpr double kSame = 1e-6;

std::string number(double value) {
  constexpr int kDecimals = 5;
  return plainText(roundTo(narrow(value), kDecimals));
}

std::string holeAt(PlanePoint at) {
  return "hole at X = " + number(at.x) + ", Y = " + number(at.y);
}

// The first part of a way, up to a place on it.
std::vector<Curve> upTo(const std::vector<Curve>& way, PlanePoint last) {
  std::vector<Curve> part;
  for (const Curve& curve : way) {
    if (distanceTo(curve, last) <= kSame) {
      part.push_back(partOf(curve, 0, shareOf(curve, last)));
      break;
    }
    part.push_back(curve);
  }
  return part;
}

// The shorter way round.
std::vector<Curve> alongLoop(const RegionLoop& loop, const LoopPlace& from, PlanePoint last) {
  const std::vector<Curve> round = loopFrom(loop, from);
  std::vector<Curve> forth = upTo(round, last);
  std::vector<Curve> back = upTo(turnedRound(round), last);
  return lengthOfWay(forth) <= lengthOfWay(back) ? forth : back;
}

}  // namespace

HoleStart HoleWays::startFor(PlanePoint place) const {
  HoleStart start;
  for (const DrilledHole& hole : holesFor(place)) {
    std::vector<Curve> way = wayFrom(hole.at, place);
    if (way.empty()) {
      if (rules_.isPicked) {
        start.trouble = "The tool cannot go from the " + holeAt(hole.at) + " to the path.";
      }
      continue;
    }
    const std::string unfit = whatIsWrongWith(hole);
    if (unfit.empty()) return {std::move(way), {}};
    if (start.trouble.empty()) start.trouble = unfit;
  }
  if (start.trouble.empty()) start.trouble = "No hole is drilled where the tool could start.";
  return start;
}

// The picked one, or those nearest to the place; of very many only these are looked at.
std::vector<DrilledHole> HoleWays::holesFor(PlanePoint place) const {
  constexpr std::size_t kMostHoles = 50;
  const PlanePoint from = rules_.isPicked ? rules_.marker : place;
  std::vector<DrilledHole> nearest(
      std::min(holes_.size(), rules_.isPicked ? std::size_t{1} : kMostHoles));
  std::partial_sort_copy(holes_.begin(), holes_.end(), nearest.begin(), nearest.end(),
                         [from](const DrilledHole& a, const DrilledHole& b) {
                           return normOf(a.at - from) < normOf(b.at - from);
                         });
  return nearest;
}

std::string HoleWays::whatIsWrongWith(const DrilledHole& hole) const {
  if (hole.z > rules_.floor + kSame) {
    return "The " + holeAt(hole.at) + " is too shallow:  it goes down to Z = " + number(hole.z) +
           ", the path to Z = " + number(rules_.floor) + ".";
  }
  if (hole.radius < rules_.radius - kSame) {
    return "The " + holeAt(hole.at) + " is too narrow:  its radius is " + number(hole.radius) +
           ", that of the tool " + number(rules_.radius) + ".";
  }
  return "";
}

// Straight, or by a loop that both places see.
std::vector<Curve> HoleWays::wayFrom(PlanePoint hole, PlanePoint to) const {
  const Curve straight = lineCurve(hole, to);
  if (rules_.isClear(straight)) return {straight};
  std::vector<Curve> best;
  if (rules_.tracks == nullptr) return best;
  for (const RegionLoop& loop : rules_.tracks->loops()) {
    std::vector<Curve> way = wayAlong(loop, hole, to);
    if (way.empty()) continue;
    if (best.empty() || lengthOfWay(way) < lengthOfWay(best)) best = std::move(way);
  }
  return best;
}

std::vector<Curve> HoleWays::wayAlong(const RegionLoop& loop, PlanePoint hole,
                                      PlanePoint to) const {
  const LoopPlace on = nearestPlace(loop, hole);
  const LoopPlace off = nearestPlace(loop, to);
  const PlanePoint last = pointAt(loop.curves[off.curve], off.share);
  const Curve in = lineCurve(hole, pointAt(loop.curves[on.curve], on.share));
  const Curve out = lineCurve(last, to);
  if (!rules_.isClear(in) || !rules_.isClear(out)) return {};
  std::vector<Curve> way = alongLoop(loop, on, last);
  way.insert(way.begin(), in);
  way.push_back(out);
  std::erase_if(way, [](const Curve& curve) { return lengthOf(curve) <= kSame; });
  return way;
}

}  // namespace tess
