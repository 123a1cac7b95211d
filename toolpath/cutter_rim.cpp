// The rim, place by place.
#include "toolpath/cutter_rim.h"

#include <algorithm>
#include <cmath>

#include "geometry/curve_distance.h"

namespace tess {
namespace {

constexpr double kStep = 0.5;    // from place to place of a way, in radii
constexpr int kMostPlaces = 64;  // of a way

// `last` is what took the place before: its neighbour mostly is taken by the same.
bool isTaken(PlanePoint place, const std::vector<SweptCurve>& taken, std::size_t& last,
             long long& effort) {
  const auto takes = [&](std::size_t k) {
    ++effort;
    return distanceTo(taken[k].curve, place) <= taken[k].radius;
  };
  if (last < taken.size() && takes(last)) return true;
  for (std::size_t k = 0; k < taken.size(); ++k) {
    if (k == last || !takes(k)) continue;
    last = k;
    return true;
  }
  return false;
}

}  // namespace

double CutterRim::engagedShare(const std::vector<SweptCurve>& taken, long long& effort) const {
  std::size_t last = 0;
  int engaged = 0;
  for (int k = 0; k < kPlaces; ++k) {
    const double aside = (2 * k + 1.0) / kPlaces - 1;
    const double ahead = std::sqrt(1 - aside * aside);
    const PlanePoint place =
        at + radius * (1 + kBeforeRim) * (ahead * along + aside * leftOf(along));
    engaged += isTaken(place, taken, last, effort) ? 0 : 1;
  }
  return static_cast<double>(engaged) / kPlaces;
}

EngagedPlace mostEngagedAlong(const Curve& way, double radius, double least,
                              std::vector<SweptCurve>& taken, long long& effort) {
  EngagedPlace most{.share = least};
  const double length = lengthOf(way);
  const int places =
      std::clamp(static_cast<int>(std::ceil(length / (kStep * radius))), 1, kMostPlaces);
  const double last = 1 - CutterRim::kBeforeEnd * radius / length;
  for (int k = 0; k <= places && most.share < 1; ++k) {
    const double share = std::max(0.0, last * k / places);
    const bool hasOwn = share > 0;
    if (hasOwn) taken.push_back({partOf(way, 0, share), radius});
    const CutterRim rim{pointAt(way, share), directionAt(way, share), radius};
    const double engaged = rim.engagedShare(taken, effort);
    if (hasOwn) taken.pop_back();
    if (engaged > most.share) most = {engaged, rim.at};
  }
  return most.share > least ? most : EngagedPlace{};
}

}  // namespace tess
