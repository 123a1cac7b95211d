// Cleared ground, level by level of y: what the cuts sweep are exact stretches there.
#include "toolpath/cleared_ground.h"

#include <algorithm>
#include <array>
#include <map>

namespace tess {
namespace {

// Cuts count as so much wider, so that rounding leaves no slivers between them.
constexpr double kRounding = 2e-5;
// What is thinner is no material.
constexpr double kHairOfMaterial = 1e-4;
constexpr double kSameDepth = 1e-6;

std::vector<Box> boxesOf(const std::vector<GroundCut>& cuts) {
  std::vector<Box> boxes(cuts.size());
  for (std::size_t k = 0; k < cuts.size(); ++k) {
    for (const Curve& curve : cuts[k].curves) {
      const Box box = grown(boxOf(curve), cuts[k].radius + kRounding);
      boxes[k] = extended(extended(boxes[k], {box.minX, box.minY}), {box.maxX, box.maxY});
    }
  }
  return boxes;
}

// What tells one way from another, whatever its depth.
using WayKey = std::array<double, 10>;

WayKey keyOf(const GroundCut& cut) {
  if (cut.curves.empty()) return {};
  const Curve& first = cut.curves.front();
  const PlanePoint end = cut.curves.back().end;
  return {first.start.x, first.start.y,  first.end.x,
          first.end.y,   first.center.x, first.center.y,
          end.x,         end.y,          static_cast<double>(first.turn),
          cut.radius};
}

// Numbers of the ways; levels of one path have the same.
std::vector<int> waysOf(const std::vector<GroundCut>& cuts) {
  std::map<WayKey, int> numbers;
  std::vector<int> ways;
  ways.reserve(cuts.size());
  for (const GroundCut& cut : cuts) {
    ways.push_back(numbers.try_emplace(keyOf(cut), static_cast<int>(numbers.size())).first->second);
  }
  return ways;
}

}  // namespace

ClearedGround::ClearedGround(std::vector<GroundCut> cuts)
    : cuts_(std::move(cuts)), ways_(waysOf(cuts_)), index_(boxesOf(cuts_)) {}

std::optional<PlanePoint> ClearedGround::untaken(const SweptCurve& swept, double z, int before,
                                                 int& effort) const {
  return untakenBy(cutsNear(swept, before), swept, z, effort);
}

// The depths of the cuts are all that it can be; whether one of them is reached rises with it.
double ClearedGround::depthBelow(PlanePoint at, double radius, int before, int& effort) const {
  const SweptCurve place{lineCurve(at, at), radius};
  const std::vector<int> near = cutsNear(place, before);
  std::vector<double> depths;
  depths.reserve(near.size());
  for (const int cut : near) depths.push_back(cuts_[static_cast<std::size_t>(cut) - 1].z);
  std::sort(depths.begin(), depths.end());
  depths.erase(std::unique(depths.begin(), depths.end()), depths.end());
  const auto deepest = std::partition_point(depths.begin(), depths.end(), [&](double z) {
    return untakenBy(near, place, z, effort).has_value();
  });
  return deepest == depths.end() ? 0 : std::min(0.0, *deepest);
}

// Of those that go the same way the deepest alone: it has taken what the others take.
std::vector<int> ClearedGround::cutsNear(const SweptCurve& swept, int before) const {
  std::vector<int> near;
  index_.rowsOverlapping(grown(boxOf(swept.curve), swept.radius), /*after=*/0, near);
  near.erase(std::lower_bound(near.begin(), near.end(), before), near.end());
  const auto wayOf = [this](int cut) { return ways_[static_cast<std::size_t>(cut) - 1]; };
  const auto depthOf = [this](int cut) { return cuts_[static_cast<std::size_t>(cut) - 1].z; };
  std::sort(near.begin(), near.end(), [&](int a, int b) {
    return wayOf(a) != wayOf(b) ? wayOf(a) < wayOf(b) : depthOf(a) < depthOf(b);
  });
  const auto isSame = [&](int a, int b) { return wayOf(a) == wayOf(b); };
  near.erase(std::unique(near.begin(), near.end(), isSame), near.end());
  return near;
}

std::optional<PlanePoint> ClearedGround::untakenBy(const std::vector<int>& cuts,
                                                   const SweptCurve& swept, double z,
                                                   int& effort) const {
  std::vector<SweptCurve> taken;
  for (const int number : cuts) {
    const GroundCut& cut = cuts_[static_cast<std::size_t>(number) - 1];
    if (cut.z > z + kSameDepth) continue;
    for (const Curve& curve : cut.curves) taken.push_back({curve, cut.radius + kRounding});
  }
  const Box box = grown(boxOf(swept.curve), swept.radius);
  constexpr int kLevels = 50;
  std::vector<Span> wanted, had, left;
  for (int level = 0; level < kLevels; ++level) {
    const double y =
        box.minY + (level + 0.5) / kLevels * (static_cast<double>(box.maxY) - box.minY);
    wanted.clear();
    had.clear();
    left.clear();
    appendSwept(swept, y, wanted);
    for (const SweptCurve& way : taken) appendSwept(way, y, had);
    unite(wanted);
    unite(had);
    rest(wanted, had, left);
    effort += static_cast<int>(taken.size()) + 1;
    for (const Span& span : left) {
      if (span.length() > kHairOfMaterial) return PlanePoint{(span.from + span.to) / 2, y};
    }
  }
  return std::nullopt;
}

}  // namespace tess
