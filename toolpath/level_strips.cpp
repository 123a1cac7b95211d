// Strips of levels.
#include "toolpath/level_strips.h"

#include <algorithm>
#include <limits>
#include <set>

namespace tess {
namespace {

constexpr std::size_t kMostStrips = 200000;
constexpr int kLevelsOfPart = 400;
constexpr double kEverywhere = std::numeric_limits<double>::infinity();

// The free stretches of a level: between two crossings the smallest loop decides, which is the last
// of those that were entered.
void freeSpans(const PocketRegion& region, double y, std::vector<LevelCrossing>& crossings,
               std::vector<Span>& spans) {
  region.crossingsAt(y, crossings);
  std::sort(crossings.begin(), crossings.end(),
            [](const LevelCrossing& a, const LevelCrossing& b) { return a.x < b.x; });
  std::set<int> round;
  double from = -kEverywhere;
  const auto isFree = [&] {
    if (round.empty()) return region.traits().unbounded;
    return region.loops()[static_cast<std::size_t>(*round.rbegin())].area >= 0;
  };
  spans.clear();
  for (const LevelCrossing& crossing : crossings) {
    if (isFree()) spans.push_back({from, crossing.x});
    from = crossing.x;
    const int loop = region.loopOf(crossing.curve);
    if (!round.insert(loop).second) round.erase(loop);
  }
  if (isFree()) spans.push_back({from, kEverywhere});
  unite(spans);
}

}  // namespace

void addStrip(const LevelStrip& strip, std::vector<LevelStrip>& strips) {
  if (strips.size() < kMostStrips) strips.push_back(strip);
}

HeightRange heightsOf(const std::vector<Curve>& curves) {
  HeightRange heights{kEverywhere, -kEverywhere};
  for (const Curve& curve : curves) {
    const Box box = boxOf(curve);
    heights.low = std::min<double>(heights.low, box.minY);
    heights.high = std::max<double>(heights.high, box.maxY);
  }
  return heights;
}

void addStripsInPart(const PocketRegion& region, const std::vector<SweptCurve>& moves,
                     std::vector<LevelStrip>& strips, const Breathing& breathing) {
  if (moves.empty()) return;
  std::vector<Curve> curves;
  double radius = 0;
  for (const SweptCurve& move : moves) {
    curves.push_back(move.curve);
    radius = std::max(radius, move.radius);
  }
  const HeightRange heights = heightsOf(curves);
  Levels levels{.low = heights.low - radius, .step = 0, .count = kLevelsOfPart};
  levels.step = (heights.high - heights.low + 2 * radius) / levels.count;
  SweepByLevel sweep(moves);
  std::vector<LevelCrossing> crossings;
  std::vector<Span> swept, free, inPart;
  for (int level = 0; level < levels.count; ++level) {
    breathe(breathing);
    const double y = levels.at(level);
    sweep.spansAt(y, swept);
    freeSpans(region, y, crossings, free);
    inPart.clear();
    rest(swept, free, inPart);
    for (const Span& span : inPart) addStrip({span, y, levels.step}, strips);
  }
}

}  // namespace tess
