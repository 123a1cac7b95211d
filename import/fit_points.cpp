// The cubic through the fit points of a spline, for files that give no control points.
#include "import/fit_points.h"

#include <cmath>
#include <iterator>

namespace tess {
namespace {

// What an end does to the slopes at least halves from each point to the next: so many points away
// nothing of it is left in 64 bits.
constexpr std::size_t kBeyondInfluence = 55;

using Places = std::vector<PlanePoint>;

bool isNone(PlanePoint direction) {
  return direction == PlanePoint{};
}

struct EndDirections {
  PlanePoint start, end;  // of length 1, or (0, 0) for an end that runs out straight
};

Places placesOf(const DxfSpline& spline, const BlockPlacement& placement) {
  Places places;
  for (const DxfPoint& point : spline.fitPoints) {
    const PlanePoint place = placement.point(point);
    if (!isStorable(place)) return {};
    if (places.empty() || !(places.back() == place)) places.push_back(place);
  }
  return places;
}

// The slopes at all points, for a parameter that grows by the length of each chord: the second
// derivative has no steps. A row of the system says
//   m[i-1]/h[i-1] + 2 (1/h[i-1] + 1/h[i]) m[i] + m[i+1]/h[i]
//     = 3 ((p[i] - p[i-1])/h[i-1]^2 + (p[i+1] - p[i])/h[i]^2).
Places slopesOf(const Places& p, const EndDirections& ends) {
  const std::size_t last = p.size() - 1;
  const auto inverse = [&p](std::size_t k) { return 1 / lengthOf(p[k + 1] - p[k]); };
  const auto pull = [&](std::size_t k) { return 3 * inverse(k) * inverse(k) * (p[k + 1] - p[k]); };
  std::vector<double> toNext(last + 1);
  Places slopes(last + 1);
  // Downward: each slope as a value less a share of the next one.
  const bool startGiven = !isNone(ends.start);
  toNext[0] = startGiven ? 0 : 0.5;
  slopes[0] = startGiven ? ends.start : 0.5 * inverse(0) * 3 * (p[1] - p[0]);
  for (std::size_t k = 1; k < last; ++k) {
    const double before = inverse(k - 1);
    const double after = inverse(k);
    const double whole = 2 * (before + after) - before * toNext[k - 1];
    toNext[k] = after / whole;
    slopes[k] = (1 / whole) * (pull(k - 1) + pull(k) - before * slopes[k - 1]);
  }
  const PlanePoint straight = 3 * inverse(last - 1) * (p[last] - p[last - 1]);
  slopes[last] =
      isNone(ends.end) ? (1 / (2 - toNext[last - 1])) * (straight - slopes[last - 1]) : ends.end;
  for (std::size_t k = last; k-- > 0;) slopes[k] = slopes[k] - toNext[k] * slopes[k + 1];
  return slopes;
}

std::vector<BezierSpan> spansOf(const Places& p, const Places& slopes) {
  std::vector<BezierSpan> spans;
  for (std::size_t k = 0; k + 1 < p.size(); ++k) {
    const double third = lengthOf(p[k + 1] - p[k]) / 3;
    const PlanePoint after = p[k] + third * slopes[k];
    const PlanePoint before = p[k + 1] - third * slopes[k + 1];
    spans.push_back(
        {{p[k].x, p[k].y}, {after.x, after.y}, {before.x, before.y}, {p[k + 1].x, p[k + 1].y}});
  }
  return spans;
}

// A closed curve is the middle of one that goes round often enough: its ends cannot be felt there.
std::vector<BezierSpan> closedSpans(Places ring) {
  if (ring.front() == ring.back()) ring.pop_back();
  const std::size_t count = ring.size();
  if (count < 2) return {};
  const std::size_t lead = (kBeyondInfluence / count + 1) * count;
  Places unrolled;
  for (std::size_t k = 0; k < lead + count + lead + 1; ++k) unrolled.push_back(ring[k % count]);
  const Places slopes = slopesOf(unrolled, {});
  const auto from = static_cast<std::ptrdiff_t>(lead);
  const auto to = static_cast<std::ptrdiff_t>(lead + count + 1);
  return spansOf({unrolled.begin() + from, unrolled.begin() + to},
                 {slopes.begin() + from, slopes.begin() + to});
}

}  // namespace

std::vector<BezierSpan> spansThrough(const DxfSpline& spline, bool closed,
                                     const BlockPlacement& placement) {
  const Places places = placesOf(spline, placement);
  if (places.size() < 2) return {};
  if (closed) return closedSpans(places);
  const EndDirections ends{unitOf(placement.direction(spline.startTangent)),
                           unitOf(placement.direction(spline.endTangent))};
  return spansOf(places, slopesOf(places, ends));
}

}  // namespace tess
