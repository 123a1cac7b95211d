// The centres, sorted along the axis in which they agree.
#include "geometry/aligned_centers.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace tess {
namespace {

// How much farther apart the centres must be along one axis than along the other. SameY begins well
// before kSteepSlope: short of that the radical line is right, but so steep that its hits are
// coarse.
constexpr double kRatioSameY = 1e4;
constexpr double kRatioSameX = 0.999 * kSteepSlope;

// Centres of exactly the same y are treated as vertical, which is right, only when their distance
// divided by kZeroStandIn exceeds kSteepSlope. Up to here it does not.
constexpr double kNearCenters = 1.001 * kSteepSlope * kZeroStandIn;

double gap(float a, float b) {
  return std::abs(static_cast<double>(a) - b);
}

}  // namespace

AlignedCenters::AlignedCenters(const std::vector<Entity>& entities, CenterAxis axis) : axis_(axis) {
  for (std::size_t k = 0; k < entities.size(); ++k) {
    if (isArc(entities[k].type))
      places_.push_back(placeOf(entities[k].center, static_cast<int>(k) + 1));
  }
  std::sort(places_.begin(), places_.end(), [](const Place& a, const Place& b) {
    return std::tie(a.key, a.other) < std::tie(b.key, b.other);
  });
  if (places_.empty()) return;
  const auto [low, high] =
      std::minmax_element(places_.begin(), places_.end(),
                          [](const Place& a, const Place& b) { return a.other < b.other; });
  otherRange_ = {low->other, high->other};
}

void AlignedCenters::collect(Point center, int after, std::vector<int>& rows) const {
  if (places_.empty()) return;
  const Place place = placeOf(center, 0);
  collectAlmostEqualKeys(place, after, rows);
  if (axis_ == CenterAxis::SameY) collectEqualKeys(place, after, rows);
}

AlignedCenters::Place AlignedCenters::placeOf(Point center, int row) const {
  if (axis_ == CenterAxis::SameY) return {center.y, center.x, row};
  return {center.x, center.y, row};
}

void AlignedCenters::collectEqualKeys(const Place& place, int after, std::vector<int>& rows) const {
  const auto before = [&](const Place& a, double other) {
    return a.key < place.key || (a.key == place.key && a.other < other);
  };
  auto at = std::lower_bound(places_.begin(), places_.end(), place.other - kNearCenters, before);
  for (; at != places_.end() && at->key == place.key; ++at) {
    if (at->other - static_cast<double>(place.other) > kNearCenters) return;
    if (at->row > after && at->other != place.other) rows.push_back(at->row);
  }
}

void AlignedCenters::collectAlmostEqualKeys(const Place& place, int after,
                                            std::vector<int>& rows) const {
  const double ratio = axis_ == CenterAxis::SameY ? kRatioSameY : kRatioSameX;
  const double farthest =
      std::max(gap(place.other, otherRange_.first), gap(place.other, otherRange_.second));
  const double window = farthest / ratio;
  const auto collectFrom = [&](auto from, auto to) {
    for (; from != to && gap(from->key, place.key) <= window; ++from) {
      const bool aligned = gap(from->other, place.other) > ratio * gap(from->key, place.key);
      if (aligned && from->row > after) rows.push_back(from->row);
    }
  };
  // Centres of exactly equal key, of which there may be many, are stepped over at once.
  const auto [same, above] =
      std::equal_range(places_.begin(), places_.end(), place,
                       [](const Place& a, const Place& b) { return a.key < b.key; });
  collectFrom(above, places_.end());
  collectFrom(std::make_reverse_iterator(same), places_.rend());
}

}  // namespace tess
