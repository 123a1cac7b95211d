// The centres, sorted by height.
#include "geometry/aligned_centers.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace tess {
namespace {

// Centres of exactly the same height are taken as that, and rightly, only when their distance
// divided by kZeroStandIn exceeds kSteepSlope. Up to here it does not.
constexpr double kNearCenters = 1.001 * kSteepSlope * kZeroStandIn;

double gap(float a, float b) {
  return std::abs(static_cast<double>(a) - b);
}

}  // namespace

AlignedCenters::AlignedCenters(const std::vector<Entity>& entities) {
  for (std::size_t k = 0; k < entities.size(); ++k) {
    const Point center = entities[k].center;
    if (isArc(entities[k].type)) places_.push_back({center.y, center.x, static_cast<int>(k) + 1});
  }
  if (places_.empty()) return;
  std::sort(places_.begin(), places_.end(),
            [](const Place& a, const Place& b) { return std::tie(a.y, a.x) < std::tie(b.y, b.x); });
  const auto [left, right] = std::minmax_element(
      places_.begin(), places_.end(), [](const Place& a, const Place& b) { return a.x < b.x; });
  leftmost_ = left->x;
  rightmost_ = right->x;
}

void AlignedCenters::collect(Point center, int after, std::vector<int>& rows) const {
  collectAtHeight(center, after, rows);
  collectAtAlmostHeight(center, after, rows);
}

void AlignedCenters::collectAtHeight(Point center, int after, std::vector<int>& rows) const {
  const auto before = [&](const Place& place, double x) {
    return place.y < center.y || (place.y == center.y && place.x < x);
  };
  auto at = std::lower_bound(places_.begin(), places_.end(), center.x - kNearCenters, before);
  for (; at != places_.end() && at->y == center.y; ++at) {
    if (at->x > center.x + kNearCenters) return;
    if (at->row > after && at->x != center.x) rows.push_back(at->row);
  }
}

void AlignedCenters::collectAtAlmostHeight(Point center, int after, std::vector<int>& rows) const {
  const double farthest = std::max(gap(center.x, leftmost_), gap(center.x, rightmost_));
  const auto collectFrom = [&](auto from, auto to) {
    for (; from != to && gap(from->y, center.y) * kSteepestRegular <= farthest; ++from) {
      const bool aligned = gap(from->x, center.x) > kSteepestRegular * gap(from->y, center.y);
      if (aligned && from->row > after) rows.push_back(from->row);
    }
  };
  // Centres of exactly this height, of which there may be many, are stepped over at once.
  const auto [same, above] =
      std::equal_range(places_.begin(), places_.end(), Place{center.y, 0, 0},
                       [](const Place& a, const Place& b) { return a.y < b.y; });
  collectFrom(above, places_.end());
  collectFrom(std::make_reverse_iterator(same), places_.rend());
}

}  // namespace tess
