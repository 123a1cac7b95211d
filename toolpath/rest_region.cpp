// Rest machining. The rest is told by lines across it, level by level, once along x and once along
// y: what is too thin for the one is seen by the other.
#include "toolpath/rest_region.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "core/drawing_store.h"
#include "toolpath/forbidden_shares.h"
#include "toolpath/missed_area.h"
#include "toolpath/swept_floor.h"
#include "toolpath/way_by_length.h"

namespace tess {
namespace {

// Shares of the tool's radius: what a part is longer than the rest asks for, and how far from a
// line left out another one may lie in its stead.
constexpr double kOverlap = 0.1;
constexpr double kLevelApart = 0.08;
constexpr double kEndApart = 0.02;
// Of what can be reached: less comes from rounding.
constexpr double kNothing = 1e-5;
// The tool counts as so much smaller: rounding then leaves no slivers along walls.
constexpr double kToolSmaller = 0.00002;

PlanePoint mirrored(PlanePoint at) {
  return {at.y, at.x};
}

Curve mirrored(const Curve& curve) {
  return {mirrored(curve.start), mirrored(curve.end), mirrored(curve.center), curve.radius,
          -curve.turn};
}

std::vector<SweptCurve> mirrored(const std::vector<SweptCurve>& swept) {
  std::vector<SweptCurve> seen;
  seen.reserve(swept.size());
  for (const SweptCurve& way : swept) seen.push_back({mirrored(way.curve), way.radius});
  return seen;
}

// Mirrored, a loop has its free space on the other side: it is turned round.
PocketRegion mirrored(const PocketRegion& region) {
  std::vector<RegionLoop> loops;
  for (RegionLoop loop : region.loops()) {
    for (Curve& curve : loop.curves) curve = mirrored(curve);
    loop.area = -loop.area;
    loops.push_back(reversedLoop(loop));
  }
  return PocketRegion(std::move(loops), region.traits());
}

// Of strips that lie close together one stands for the others.
std::vector<LevelStrip> thinned(const std::vector<LevelStrip>& strips, double toolRadius) {
  std::vector<LevelStrip> kept;
  std::size_t first = 0;  // of those that are near enough
  for (const LevelStrip& strip : strips) {
    while (first < kept.size() && strip.y - kept[first].y > kLevelApart * toolRadius) ++first;
    const bool stands = std::any_of(
        kept.begin() + static_cast<std::ptrdiff_t>(first), kept.end(), [&](const LevelStrip& one) {
          return one.span.from <= strip.span.from + kEndApart * toolRadius &&
                 one.span.to >= strip.span.to - kEndApart * toolRadius;
        });
    if (!stands) kept.push_back(strip);
  }
  return kept;
}

void appendLines(const std::vector<LevelStrip>& strips, double toolRadius, bool isMirrored,
                 std::vector<Curve>& lines) {
  for (const LevelStrip& strip : thinned(strips, toolRadius)) {
    const Curve line = lineCurve({strip.span.from, strip.y}, {strip.span.to, strip.y});
    lines.push_back(isMirrored ? mirrored(line) : line);
  }
}

// What one sweep leaves of another.
struct SweepRest {
  std::vector<LevelStrip> strips;
  double area = 0, reach = 0;
};

SweepRest sweepRest(const std::vector<SweptCurve>& ways, const std::vector<SweptCurve>& taken,
                    double toolRadius, const Breathing& breathing) {
  constexpr double kLevelsPerRadius = 25, kFewest = 200, kMost = 2000;
  std::vector<Curve> curves;
  for (const SweptCurve& way : ways) curves.push_back(way.curve);
  const HeightRange heights = heightsOf(curves);
  Levels levels{.low = heights.low - toolRadius, .step = 0, .count = 0};
  const double height = heights.high - heights.low + 2 * toolRadius;
  levels.count = static_cast<int>(
      std::clamp(std::ceil(kLevelsPerRadius * height / toolRadius), kFewest, kMost));
  levels.step = height / levels.count;
  SweepByLevel reach(ways);
  SweepByLevel cut(taken);
  SweepRest found;
  std::vector<Span> reached, had, left;
  for (int level = 0; level < levels.count; ++level) {
    breathe(breathing);
    const double y = levels.at(level);
    reach.spansAt(y, reached);
    cut.spansAt(y, had);
    left.clear();
    rest(reached, had, left);
    for (const Span& span : reached) found.reach += span.length();
    for (const Span& span : left) {
      if (span.length() < kToolSmaller) continue;
      found.area += span.length();
      addStrip({span, y, levels.step}, found.strips);
    }
  }
  return found;
}

// Ranges of lengths that overlap, or leave less than a radius between them, are one.
std::vector<ShareRange> joined(std::vector<ShareRange> ranges, double gap) {
  std::sort(ranges.begin(), ranges.end(),
            [](const ShareRange& a, const ShareRange& b) { return a.from < b.from; });
  std::vector<ShareRange> all;
  for (const ShareRange& range : ranges) {
    if (!all.empty() && range.from <= all.back().to + gap) {
      all.back().to = std::max(all.back().to, range.to);
    } else {
      all.push_back(range);
    }
  }
  return all;
}

class Groups {
 public:
  explicit Groups(std::size_t count) : parents_(count) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
  }
  std::size_t rootOf(std::size_t one) {
    while (parents_[one] != one) one = parents_[one] = parents_[parents_[one]];
    return one;
  }
  // The root of the lower number stays one.
  void join(std::size_t a, std::size_t b) {
    const std::size_t first = rootOf(a);
    const std::size_t second = rootOf(b);
    parents_[std::max(first, second)] = std::min(first, second);
  }

 private:
  std::vector<std::size_t> parents_;
};

}  // namespace

std::vector<SweptCurve> cutBefore(CamContext& cam, float floor, const Breathing& breathing) {
  const std::vector<ProofGroup> groups =
      proofGroups(cam.store, cam.context.session.pathJobs, breathing);
  std::vector<SweptCurve> taken = sweptAt(cam.store, groups, floor);
  const std::vector<SweptCurve> byTabs = leftByTabsAt(cam.store, groups, floor);
  taken.insert(taken.end(), byTabs.begin(), byTabs.end());
  return taken;
}

bool isLargerThanAll(double toolRadius, const std::vector<SweptCurve>& taken) {
  constexpr double kSameRadius = 1e-6;
  return !taken.empty() && std::all_of(taken.begin(), taken.end(), [&](const SweptCurve& cut) {
    return cut.radius < toolRadius - kSameRadius;
  });
}

RestPlaces::RestPlaces(std::vector<Curve> lines, double toolRadius)
    : index_(std::move(lines)), toolRadius_(toolRadius) {}

// From place to place the depth changes by no more than the way.
double RestPlaces::depthIn(const PocketRegion& offset, const Breathing& breathing) const {
  constexpr double kEverywhere = 1e12;
  const auto depthAt = [&](PlanePoint at) {
    if (!offset.isFree(at)) return 0.0;
    const Curve place = lineCurve(at, at);
    for (double within = toolRadius_; within < kEverywhere; within *= 4) {
      if (const auto near = offset.index().nearest(place, within)) return near->gap.distance;
    }
    return 0.0;
  };
  double deepest = 0;
  for (const Curve& line : index_.curves()) {
    breathe(breathing);
    const double length = lengthOf(line);
    const double looks = std::ceil(length / toolRadius_) + 1;
    for (double look = 0; look < looks; ++look) {
      const double depth = depthAt(pointAt(line, (look + 0.5) / looks));
      deepest = std::max(deepest, depth + length / looks / 2);
    }
  }
  return deepest;
}

std::vector<std::vector<Curve>> RestPlaces::partsOf(const std::vector<Curve>& way) const {
  const double reach = (1 + kOverlap) * toolRadius_;
  const WayByLength along(way);
  std::vector<ShareRange> needed, ranges;
  std::vector<int> near;
  for (std::size_t k = 0; k < way.size(); ++k) {
    index_.candidates(way[k], reach, near);
    ranges.clear();
    for (const int line : near) {
      appendForbidden(way[k], index_.curves()[static_cast<std::size_t>(line)], reach, ranges);
    }
    const double from = along.startOf(k);
    const double length = along.endOf(k) - from;
    for (const ShareRange& range : ranges) {
      needed.push_back(
          {from + length * std::max(range.from, 0.0), from + length * std::min(range.to, 1.0)});
    }
  }
  needed = joined(std::move(needed), toolRadius_);
  constexpr double kAtEnd = 1e-9;
  const double all = along.length();
  const bool isClosed = !way.empty() && way.front().start == way.back().end;
  const bool goesOn = isClosed && needed.size() > 1 && needed.front().from <= toolRadius_ / 2 &&
                      needed.back().to >= all - toolRadius_ / 2;
  std::vector<std::vector<Curve>> parts;
  for (std::size_t k = goesOn ? 1 : 0; k < needed.size(); ++k) {
    const bool wraps = goesOn && k + 1 == needed.size();
    std::vector<Curve> part = along.part(needed[k].from, wraps ? all : needed[k].to);
    if (wraps) {
      const std::vector<Curve> begin = along.part(0, needed.front().to);
      part.insert(part.end(), begin.begin(), begin.end());
    }
    if (!part.empty() && needed[k].to - needed[k].from > kAtEnd) parts.push_back(std::move(part));
  }
  return parts;
}

RestPlaces restOfRegion(const PocketRegion& centers, double toolRadius,
                        const std::vector<SweptCurve>& taken, const Breathing& breathing) {
  const double radius = toolRadius - kToolSmaller;
  std::vector<Curve> lines;
  const MissedArea across = missedArea(centers, radius, taken, breathing);
  const MissedArea upright = missedArea(mirrored(centers), radius, mirrored(taken), breathing);
  if (std::max(across.share(), upright.share()) > kNothing) {
    appendLines(across.strips, toolRadius, /*isMirrored=*/false, lines);
    appendLines(upright.strips, toolRadius, /*isMirrored=*/true, lines);
  }
  return {std::move(lines), toolRadius};
}

RestPlaces restOfWays(const std::vector<Curve>& ways, double toolRadius,
                      const std::vector<SweptCurve>& taken, const Breathing& breathing) {
  std::vector<SweptCurve> swept;
  for (const Curve& way : ways) swept.push_back({way, toolRadius - kToolSmaller});
  std::vector<Curve> lines;
  if (swept.empty()) return {std::move(lines), toolRadius};
  const SweepRest across = sweepRest(swept, taken, toolRadius, breathing);
  const SweepRest upright = sweepRest(mirrored(swept), mirrored(taken), toolRadius, breathing);
  if (across.area > kNothing * across.reach || upright.area > kNothing * upright.reach) {
    appendLines(across.strips, toolRadius, /*isMirrored=*/false, lines);
    appendLines(upright.strips, toolRadius, /*isMirrored=*/true, lines);
  }
  return {std::move(lines), toolRadius};
}

std::vector<std::vector<Curve>> orderedByPlace(std::vector<std::vector<Curve>> pieces, double near,
                                               PlanePoint from) {
  std::vector<Curve> curves;
  std::vector<std::size_t> pieceOf;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    curves.insert(curves.end(), pieces[k].begin(), pieces[k].end());
    pieceOf.resize(curves.size(), k);
  }
  const CurveIndex index(curves);
  Groups groups(pieces.size());
  std::vector<int> found;
  for (std::size_t k = 0; k < curves.size(); ++k) {
    index.candidates(curves[k], near, found);
    for (const int other : found) {
      const std::size_t piece = pieceOf[static_cast<std::size_t>(other)];
      if (groups.rootOf(piece) == groups.rootOf(pieceOf[k])) continue;
      if (gapBetween(curves[k], curves[static_cast<std::size_t>(other)]).distance > near) continue;
      groups.join(piece, pieceOf[k]);
    }
  }
  std::vector<std::vector<std::size_t>> ofRoot(pieces.size());
  for (std::size_t k = 0; k < pieces.size(); ++k) ofRoot[groups.rootOf(k)].push_back(k);
  std::erase_if(ofRoot, [](const auto& group) { return group.empty(); });
  std::vector<std::vector<Curve>> ordered;
  ordered.reserve(pieces.size());
  while (!ofRoot.empty()) {
    const auto next = std::min_element(ofRoot.begin(), ofRoot.end(), [&](auto& a, auto& b) {
      return normOf(pieces[a.front()].front().start - from) <
             normOf(pieces[b.front()].front().start - from);
    });
    for (const std::size_t piece : *next) {
      from = pieces[piece].back().end;
      ordered.push_back(std::move(pieces[piece]));
    }
    ofRoot.erase(next);
  }
  return ordered;
}

}  // namespace tess
