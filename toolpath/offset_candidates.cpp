// Candidates of an offset.
#include "toolpath/offset_candidates.h"

#include <algorithm>
#include <cmath>

#include "toolpath/region_offset.h"

namespace tess {
namespace {

constexpr double kSlack = 2e-11;
constexpr double kSlackMagnitude = 1e4;  // of numbers, beyond which it grows with them
// A joint that turns right by more than this gets an arc: the sine.
constexpr double kLeastTurn = 1e-9;
// Within this of a half turn nobody can say which way it goes.
constexpr double kBackTurn = 1e-6;
// The cosine of a turn beyond which the rows beside a joint may come close to its arc.
constexpr double kSharpTurn = -0.99;
constexpr double kSmallestArc = 1e-12;
constexpr std::size_t kShownTogether = 256;

PlanePoint startDirection(const Curve& curve) {
  return curve.isArc() ? (curve.turn / curve.radius) * leftOf(curve.start - curve.center)
                       : (1 / normOf(curve.end - curve.start)) * (curve.end - curve.start);
}

PlanePoint endDirection(const Curve& curve) {
  return curve.isArc() ? (curve.turn / curve.radius) * leftOf(curve.end - curve.center)
                       : startDirection(curve);
}

}  // namespace

OffsetMeasures::OffsetMeasures(double offsetDistance, double largestNumber)
    : distance(offsetDistance),
      slack(kSlack * std::max(1.0, std::max(largestNumber, distance) / kSlackMagnitude)),
      shortest(std::max(1e-5, 2 * std::sqrt(8 * slack * distance * std::max(1.0, distance)))),
      reach(std::max(1e-4, 10 * shortest)),
      corner(std::max(0.002, distance / 50)) {}

OffsetCandidates::OffsetCandidates(double distance, const std::vector<Curve>& walls)
    : distance_(distance), walls_(walls) {
  candidates_.reserve(kShownTogether + 1);
}

void OffsetCandidates::take(int wall, bool reverse, Run& run) const {
  const Curve& drawn = walls_[static_cast<std::size_t>(wall)];
  run.curve = reverse ? reversed(drawn) : drawn;
  run.wall = wall;
  run.reverse = reverse;
  run.in = startDirection(run.curve);
  run.out = run.curve.isArc() ? endDirection(run.curve) : run.in;
  run.turnsRight = run.turnsAway = false;
}

void OffsetCandidates::forChain(const WallChain& chain, const Visit& visit) {
  const auto [first, last, closed, reverse] = chain;
  const auto wallAt = [&, first = first, last = last, reverse = reverse](int k) {
    return reverse ? last - (k - first) : k;
  };
  Run runs[3];
  Run* before = &runs[0];
  Run* run = &runs[1];
  Run* after = &runs[2];
  take(wallAt(last), reverse, *before);
  take(wallAt(first), reverse, *run);
  if (closed) judgeJoint(*before, *run);
  for (int k = first; k <= last; ++k) {
    take(wallAt(k < last ? k + 1 : first), reverse, *after);
    if (closed || k < last) judgeJoint(*run, *after);
    addDisplaced(*before, *run, *after);
    if (run->turnsRight) addCorner(*run, *after);
    Run* const passed = before;
    before = run;
    run = after;
    after = passed;
    if (candidates_.size() < kShownTogether && k < last) continue;
    visit(candidates_);
    candidates_.clear();
  }
}

// A loose end turns nowhere, and spares nothing.
void OffsetCandidates::judgeJoint(Run& before, const Run& after) {
  const double sine = cross(before.out, after.in);
  const double cosine = dot(before.out, after.in);
  before.turnsRight = sine < -kLeastTurn || (cosine < 0 && sine < kBackTurn);
  before.turnsAway = cosine > kSharpTurn && (sine <= 0 || (cosine > 0 && sine <= kLeastTurn));
}

void OffsetCandidates::addDisplaced(const Run& before, const Run& run, const Run& after) {
  const Curve& wall = run.curve;
  OffsetCandidate candidate;
  candidate.source = run.wall;
  candidate.reverse = run.reverse;
  candidate.spared = {run.wall, before.turnsAway && !before.curve.isArc() ? before.wall : -1,
                      run.turnsAway && !after.curve.isArc() ? after.wall : -1};
  if (!wall.isArc()) {
    const PlanePoint aside = distance_ * leftOf(run.in);
    candidate.curve.start = wall.start + aside;
    candidate.curve.end = wall.end + aside;
    candidate.middle = 0.5 * (candidate.curve.start + candidate.curve.end);
  } else {
    // Counter-clockwise the centre is on the left.
    const double radius = wall.radius - wall.turn * distance_;
    if (radius <= kSmallestArc) {
      lostByAHair_ |= radius > -2 * kHairWidth;
      return;
    }
    const double ratio = radius / wall.radius;
    candidate.curve = {wall.center + ratio * (wall.start - wall.center),
                       wall.center + ratio * (wall.end - wall.center), wall.center, radius,
                       wall.turn};
    candidate.middle = pointAt(candidate.curve, 0.5);
  }
  candidate.half = normOf(candidate.curve.end - candidate.middle);
  candidates_.push_back(candidate);
}

void OffsetCandidates::addCorner(const Run& before, const Run& after) {
  const PlanePoint vertex = before.curve.end;
  const PlanePoint from = leftOf(before.out);
  const PlanePoint to = leftOf(after.in);
  const PlanePoint start = vertex + distance_ * from;
  const PlanePoint end = vertex + distance_ * to;
  if (start == end) return;
  OffsetCandidate corner;
  corner.curve = {start, end, vertex, distance_, -1};
  const double both = normOf(from + to);
  // Back to back the middle of the normals says nothing.
  corner.middle =
      both > 0.1 ? vertex + (distance_ / both) * (from + to) : pointAt(corner.curve, 0.5);
  corner.half = normOf(end - corner.middle);
  corner.source = before.wall;
  corner.reverse = before.reverse;
  const bool clear = before.turnsAway;
  corner.spared = {clear && !before.curve.isArc() ? before.wall : -1,
                   clear && !after.curve.isArc() ? after.wall : -1, -1};
  candidates_.push_back(corner);
}

}  // namespace tess
