// What is left, by levels.
#include "toolpath/missed_area.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace tess {
namespace {

constexpr double kLevelsPerRadius = 25;
constexpr double kFewestLevels = 200;
constexpr double kMostLevels = 2000;
// Stretches that all levels together may look at: more ways than a table of rows holds on a part of
// ordinary shape never come near it, and other shapes get fewer levels.
constexpr double kMostStretches = 2e7;
// What is shorter comes from rounding.
constexpr double kShortest = 2e-5;

Levels levelsOver(const HeightRange& centers, double toolRadius,
                  const std::vector<SweptCurve>& swept) {
  Levels levels;
  levels.low = centers.low - toolRadius;
  const double height = centers.high + toolRadius - levels.low;
  double count =
      std::clamp(std::ceil(kLevelsPerRadius * height / toolRadius), kFewestLevels, kMostLevels);
  double reached = 0;  // how much of all levels the ways reach, summed up
  for (const SweptCurve& way : swept) {
    const Box of = boxOf(way.curve);
    const double extent = static_cast<double>(of.maxY) - of.minY + 2 * way.radius;
    reached += std::min(1.0, extent / height);
  }
  if (reached * count > kMostStretches) {
    count = std::max(kFewestLevels, std::floor(kMostStretches / reached));
  }
  levels.count = static_cast<int>(count);
  levels.step = height / levels.count;
  return levels;
}

// What the centre sweeps along its own boundary, and what lies between the boundaries.
class Reach {
 public:
  Reach(const PocketRegion& centers, double toolRadius)
      : centers_(centers), rim_(rimOf(centers, toolRadius)) {}

  void spansAt(double y, std::vector<Span>& spans) {
    rim_.spansAt(y, spans);
    centers_.crossingsAt(y, crossings_);
    std::sort(crossings_.begin(), crossings_.end(),
              [](const LevelCrossing& a, const LevelCrossing& b) { return a.x < b.x; });
    for (std::size_t k = 0; k + 1 < crossings_.size(); k += 2) {
      spans.push_back({crossings_[k].x, crossings_[k + 1].x});
    }
    unite(spans);
  }

 private:
  static std::vector<SweptCurve> rimOf(const PocketRegion& centers, double toolRadius) {
    std::vector<SweptCurve> rim;
    for (const Curve& curve : centers.walls()) rim.push_back({curve, toolRadius});
    return rim;
  }

  const PocketRegion& centers_;
  SweepByLevel rim_;
  std::vector<LevelCrossing> crossings_;
};

// Gathers the stretches of level after level into places.
class Places {
 public:
  explicit Places(double step) : step_(step) {}

  // Stretches of a level are in order and apart, and so are those of the one below.
  void addLevel(double y, const std::vector<Span>& spans) {
    std::vector<Open> open;
    std::size_t below = 0;
    for (const Span& span : spans) {
      const std::size_t place = add(span, y);
      while (below < last_.size() && last_[below].span.to <= span.from) ++below;
      for (std::size_t k = below; k < last_.size() && last_[k].span.from < span.to; ++k) {
        join(last_[k].place, place);
      }
      open.push_back({span, place});
    }
    last_ = std::move(open);
  }

  std::vector<MissedPlace> largest() {
    std::vector<std::size_t> roots;
    for (std::size_t k = 0; k < extents_.size(); ++k) {
      if (rootOf(k) == k) roots.push_back(k);
    }
    std::stable_sort(roots.begin(), roots.end(), [this](std::size_t a, std::size_t b) {
      return extents_[a].area > extents_[b].area;
    });
    roots.resize(std::min(roots.size(), MissedArea::kMaxPlaces));
    std::vector<MissedPlace> found;
    for (const std::size_t root : roots) found.push_back(placeOf(root));
    return found;
  }

 private:
  struct Extent {
    double minX, maxX, minY, maxY, area;
    void include(const Extent& other) {
      minX = std::min(minX, other.minX), maxX = std::max(maxX, other.maxX);
      minY = std::min(minY, other.minY), maxY = std::max(maxY, other.maxY);
      area += other.area;
    }
    MissedPlace place() const {
      return {(minX + maxX) / 2, (minY + maxY) / 2, maxX - minX, maxY - minY, area};
    }
  };
  struct Open {
    Span span;
    std::size_t place;
  };
  struct Stretch {
    Span span;
    double y;
  };

  // A place that lies round something has its middle outside of itself: then that of its longest
  // stretch stands for it.
  MissedPlace placeOf(std::size_t root) {
    MissedPlace place = extents_[root].place();
    const Stretch* longest = &stretches_[root];
    for (std::size_t k = 0; k < stretches_.size(); ++k) {
      if (rootOf(k) != root) continue;
      const auto& [span, y] = stretches_[k];
      const bool isMiddle =
          std::abs(y - place.y) <= step_ && span.from <= place.x && place.x <= span.to;
      if (isMiddle) return place;
      if (span.length() > longest->span.length()) longest = &stretches_[k];
    }
    place.x = (longest->span.from + longest->span.to) / 2;
    place.y = longest->y;
    return place;
  }

  std::size_t add(const Span& span, double y) {
    extents_.push_back({span.from, span.to, y - step_ / 2, y + step_ / 2, span.length() * step_});
    parents_.push_back(parents_.size());
    stretches_.push_back({span, y});
    return parents_.back();
  }

  std::size_t rootOf(std::size_t place) {
    while (parents_[place] != place) {
      parents_[place] = parents_[parents_[place]];
      place = parents_[place];
    }
    return place;
  }
  void join(std::size_t a, std::size_t b) {
    const std::size_t first = rootOf(a);
    const std::size_t second = rootOf(b);
    if (first == second) return;
    extents_[first].include(extents_[second]);
    parents_[second] = first;
  }

  double step_;
  std::vector<Extent> extents_;
  std::vector<std::size_t> parents_;
  std::vector<Stretch> stretches_;  // by the same numbers
  std::vector<Open> last_;          // of the level before
};

double lengthOf(const std::vector<Span>& spans) {
  return std::accumulate(spans.begin(), spans.end(), 0.0,
                         [](double sum, const Span& span) { return sum + span.length(); });
}

}  // namespace

MissedArea missedArea(const PocketRegion& centers, double toolRadius,
                      const std::vector<SweptCurve>& swept, const Breathing& breathing) {
  MissedArea missed;
  if (centers.isEmpty() || !(toolRadius > 0)) return missed;
  const Levels levels = levelsOver(heightsOf(centers.walls()), toolRadius, swept);
  Reach reach(centers, toolRadius);
  SweepByLevel cut(swept);
  Places places(levels.step);
  std::vector<Span> reached, taken, left;
  for (int level = 0; level < levels.count; ++level) {
    breathe(breathing);
    const double y = levels.at(level);
    reach.spansAt(y, reached);
    cut.spansAt(y, taken);
    left.clear();
    rest(reached, taken, left);
    std::erase_if(left, [](const Span& span) { return span.length() < kShortest; });
    missed.reach += lengthOf(reached) * levels.step;
    missed.area += lengthOf(left) * levels.step;
    for (const Span& span : left) {
      addStrip({span, y, levels.step}, missed.strips);
    }
    places.addLevel(y, left);
  }
  missed.places = places.largest();
  return missed;
}

}  // namespace tess
